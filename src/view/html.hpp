// Detail views as HTML, on the bounded text writer.
#pragma once

#include <span>

#include "view/view_writer.hpp"

namespace ast {

class HtmlWriter : public TextWriter {
public:
    using TextWriter::TextWriter;
    using Texts = std::span<const ViewText>;

    void title(Texts pieces);
    void paragraph(Texts pieces);

    void table_begin();
    void table_end();
    void header_row(Texts cells) { whole_row<true>(cells); }
    void row(Texts cells) { whole_row<false>(cells); }

    // A row in pieces, for cells that come one by one.
    void row_begin(bool is_header);
    void cell(bool is_header, const ViewText &content);
    void row_end(bool is_header);

    void link_row(Texts cells, const ast_detail_link_t &link);
    void hex_table(const uint8_t *octets, uint64_t count);
    void bit_table(const uint8_t *octets, uint64_t count);
    void link(const ast_detail_link_t &link);

private:
    void open_table(std::string_view css_class);
    void append_texts(Texts texts);
    template <bool is_header>
    void whole_row(Texts cells);
};

struct HtmlText {
    HtmlWriter html;
};

// The pieces of a view as a text in HTML.
class HtmlView : private HtmlText, public ViewWriter {
public:
    HtmlView(char *text, uint64_t capacity) : HtmlText{{text, capacity}}, ViewWriter(kVisitor, html) {}

private:
    static const ast_details_visitor_t kVisitor;
};

} // namespace ast
