// The summaries and the detail views of items.
#pragma once

#include <ast.h>
#include <string>
#include <string_view>

#include "show/item_values.hpp"

namespace ast::recording::astdump {

// What the library writes as the summary of an item or subfield that it has none for.
constexpr std::string_view kNoSummary = "NOT_IMPLEMENTED";

// The library's views as whole texts, however long.
class Views {
public:
    // What a view of the library writes of a thing; good until the next call. Views cut their text at the capacity, so
    // one that fills it is asked again with more.
    template <typename View, typename Thing>
    std::string_view show(View view, const Thing &thing) {
        for (;; buffer_.resize(2 * buffer_.size())) {
            view(buffer_.data(), buffer_.size(), &thing);
            const std::string_view text = buffer_.c_str();
            if (text.size() + 1 < buffer_.size()) return text;
        }
    }

    // The summary of an item; empty where the library has none. Good until the next call, and not made printable yet.
    std::string_view summary(const ast_dataitem_t &item);

private:
    std::string buffer_ = std::string(4096, '\0');
};

// The library's views of an item, and the published values where it has none.
class ItemViews {
public:
    // Whether the library shows items of a type by their subfields: an overview of them, then each by itself.
    static bool is_compound(ast_dataitem_type_t type) {
        return ast_dataitem_get_func(type).get_detail_html == ast_dataitem_subfields_get_detail_html;
    }

    // Both are good until the next call, and not made printable yet.
    std::string_view summary(const ast_dataitem_t &item, const Reading &reading) {
        const std::string_view text = views_.summary(item);
        return text.empty() ? value_summary(item, reading) : text;
    }
    std::string_view detail(const ast_dataitem_t &item, const Reading &reading);

    // The same for a subfield of a compound item, its detail without its title and bits.
    std::string subfield_summary(const ast_dataitem_t &item, const Reading &reading, uint32_t number);
    std::string_view subfield_detail(const ast_dataitem_t &item, const Reading &reading, uint32_t number);

    // As the detail of its item has it: with its published values also where the library's view ends with nothing, such
    // as a register that it has no fields of.
    std::string_view subfield_section(const ast_dataitem_t &item, const Reading &reading, uint32_t number);

private:
    struct Subject; // a compound item, whose paths are found when they are first asked for

    std::string_view value_summary(const ast_dataitem_t &item, const Reading &reading);
    std::string own_summary(Subject &subject, uint32_t number);
    void put_own_table(Subject &subject, uint32_t number);
    void complete_table(std::string_view table, Subject &subject);
    void complete_subfields(std::string_view html, Subject &subject);

    Views views_;
    ItemValues values_;
    std::string line_;
    TextBuffer text_;
};

} // namespace ast::recording::astdump
