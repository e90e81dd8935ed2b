// What all formats of tables have in common: groups of rows are written, one at a time.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "columns/column.hpp"

namespace ast::recording {

using PutOctets = std::function<void(std::string_view)>;

class TableWriter {
public:
    virtual ~TableWriter() = default;

    // Rows, complete.
    virtual void write(const Batch &batch) = 0;

    // Whether the dictionaries of what is written go on from one group of rows to the next.
    virtual bool shares_dictionaries() const { return false; }

    // What stands at the end; `last` has the dictionaries that groups share.
    virtual void finish(const Batch &last) = 0;
};

} // namespace ast::recording
