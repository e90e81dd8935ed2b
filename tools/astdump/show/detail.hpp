// The detail view of an item as aligned lines of text.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "base/text_buffer.hpp"
#include "show/by_type.hpp"
#include "show/item_views.hpp"
#include "show/memo.hpp"
#include "show/terminal.hpp"
#include "show/view_parts.hpp"
#include "show/view_pattern.hpp"

namespace ast::recording::astdump {

class Detail {
public:
    explicit Detail(Style style) : style_(style) {}
    void item(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading);

private:
    struct SubfieldName {
        std::string_view id;
        std::string_view name;
    };
    using SubfieldNames = std::vector<SubfieldName>; // from the first on

    const SubfieldNames &names_of(ast_dataitem_type_t type);
    bool compound(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading, const SubfieldNames &names);
    void overview(TextBuffer &out) const;
    void subfield(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading, uint32_t number);
    void put_lines(TextBuffer &out) const;
    void fragment(TextBuffer &out, std::string_view html, uint32_t kind);
    void read_fragment(TextBuffer &out, std::string_view html);
    void put_kept(TextBuffer &out, std::string_view text);
    void keep_row(ViewPart::Row row, size_t begin, size_t end);
    void keep(std::string_view text, size_t place, size_t width);
    void choose_parts(std::span<const ViewPart> parts);
    void choose_rows(const ViewPart &table);
    void title(TextBuffer &out, std::string_view text);
    void table(TextBuffer &out, const ViewPart &table);
    void row(TextBuffer &out, ViewPart::Row row) const;
    void indent(TextBuffer &out) const;

    Style style_;
    ItemViews views_;
    ViewReader reader_;
    bool below_title_ = false;
    std::unordered_map<uint32_t, ViewPattern> patterns_; // by the type of an item or a subfield
    ViewPattern *pattern_ = nullptr;                     // of the view at hand, which becomes that of its kind
    size_t pattern_begin_ = 0;                           // where its text begins

    // What is shown of a view, and of a table in it, and how wide its columns are.
    std::vector<const ViewPart *> parts_;
    std::vector<ViewPart::Row> rows_;
    std::vector<size_t> widths_;

    struct Compound {
        bool is_known = false;
        SubfieldNames names; // none for items that are not compound
    };
    ByType<Compound> compounds_;

    // The subfields of the compound item at hand.
    struct Subfield {
        uint64_t number;
        uint64_t size; // in octets
        const SubfieldName *name;
        size_t begin; // of its text among the others
    };
    Memo memo_;
    TextBuffer texts_;
    std::vector<Subfield> subfields_;
    std::string html_;
};

} // namespace ast::recording::astdump
