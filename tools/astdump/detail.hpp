// The detail view of an item as aligned lines of text.
#pragma once

#include "item_views.hpp"
#include "terminal.hpp"
#include "text_buffer.hpp"
#include "view_parts.hpp"

namespace astdump {

class Detail {
public:
    explicit Detail(Style style) : style_(style) {}
    void item(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading);

private:
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

    // What is shown of a view, and of a table in it, and how wide its columns are.
    std::vector<const ViewPart *> parts_;
    std::vector<ViewPart::Row> rows_;
    std::vector<size_t> widths_;
};

} // namespace astdump
