// What is reported, as rows of a table.
#pragma once

#include <string>
#include <vector>

#include "columns/column.hpp"
#include "datagram/report.hpp"

namespace ast::recording {

std::vector<ColumnHead> report_heads();

// Adds a row to a batch of these; `file` is the one at hand.
void add_report(Batch &batch, const Report &report, const std::string &file);

} // namespace ast::recording
