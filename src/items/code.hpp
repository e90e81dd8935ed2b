// The rows in which detail views show a code of four octal digits.
#pragma once

#include "view/html.hpp"

namespace ast {

inline void write_code_digits(DetailTable &table, uint32_t code) {
    table.row("Bit[4-6]", "CODE-A", Cell<2>("%o", code >> 9 & 7));
    table.row("Bit[7-9]", "CODE-B", Cell<2>("%o", code >> 6 & 7));
    table.row("Bit[10-12]", "CODE-C", Cell<2>("%o", code >> 3 & 7));
    table.row("Bit[13-15]", "CODE-D", Cell<2>("%o", code & 7));
}

} // namespace ast
