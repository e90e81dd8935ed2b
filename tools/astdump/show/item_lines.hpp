// An item in the listing: its line, its octets where they do not fit into it, and its fields if they are asked for.
#pragma once

#include <optional>
#include <string>

#include "show/by_type.hpp"
#include "show/detail.hpp"
#include "show/item_views.hpp"
#include "show/memo.hpp"
#include "show/terminal.hpp"

namespace ast::recording::astdump {

class ItemLines {
public:
    // Laid out for so many columns, at least 60.
    ItemLines(unsigned columns, Style style, bool detail);

    void put(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading) {
        memo_.put(out, item, reading.number, [&](TextBuffer &to) { write(to, item, reading); });
    }

private:
    void write(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading);
    const std::string &title(ast_dataitem_type_t type, const ast_uap_t &uap);
    void octets(TextBuffer &out, Octets octets, size_t indent) const;

    Style style_;
    std::string_view dim_; // what octets stand between, in colours
    std::string_view off_;
    size_t octets_per_line_;
    size_t summary_width_;
    size_t name_width_;
    size_t hex_column_;          // where the octets start
    ByType<std::string> titles_; // where lines start; empty until a type is met
    ItemViews views_;
    std::optional<Detail> detail_;
    Memo memo_;
};

} // namespace ast::recording::astdump
