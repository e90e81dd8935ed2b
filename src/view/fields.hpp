// The table in which a detail view shows fields: where each stands, its name and its value.
#pragma once

#include "view/view_writer.hpp"

namespace ast {

class FieldTable : public DetailTable {
public:
    using DetailTable::DetailTable;

    void flag(std::string_view where, std::string_view name, bool value) { row(where, name, value ? "1" : "0"); }
    void number(std::string_view where, std::string_view name, int64_t value) {
        row(where, name, Cell<24>("%lld", static_cast<long long>(value)));
    }
    void quantity(std::string_view where, std::string_view name, double value) {
        row(where, name, Cell<24>("%.2f", value));
    }

    // A field as sent, and in its unit.
    void scaled(std::string_view where, std::string_view raw_name, int64_t raw, std::string_view name, double value) {
        number(where, raw_name, raw);
        quantity(where, name, value);
    }
};

} // namespace ast
