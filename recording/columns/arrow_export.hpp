// Hands columns over by Arrow's C data interface.
#pragma once

#include <ast_recording.h>
#include <memory>

#include "columns/column.hpp"
#include "columns/table.hpp"

namespace ast::recording {

// A struct of the columns of a table; as is the next, released where it throws.
void export_schema(std::shared_ptr<const Table> table, ArrowSchema &schema);

// The rows of a complete batch of that table.
void export_batch(std::shared_ptr<const Table> table, Batch batch, ArrowArray &array);

} // namespace ast::recording
