// An item in the listing: its line, its octets where they do not fit into it, and its fields if they are asked for.
#pragma once

#include <optional>
#include <string>

#include "by_type.hpp"
#include "detail.hpp"
#include "memo.hpp"
#include "terminal.hpp"
#include "views.hpp"

namespace astdump {

class ItemLines {
public:
    // Laid out for so many columns, at least 60.
    ItemLines(unsigned columns, Style style, bool detail);

    void put(TextBuffer &out, const ast_dataitem_t &item) {
        memo_.put(out, item, [&](TextBuffer &to) { write(to, item); });
    }

private:
    void write(TextBuffer &out, const ast_dataitem_t &item);
    const std::string &title(ast_dataitem_type_t type);
    void octets(TextBuffer &out, Octets octets, size_t indent) const;

    Style style_;
    size_t octets_per_line_;
    size_t summary_width_;
    size_t name_width_;
    size_t hex_column_;          // where the octets start
    ByType<std::string> titles_; // where lines start; empty until a type is met
    Views views_;
    std::optional<Detail> detail_;
    Memo memo_;
};

} // namespace astdump
