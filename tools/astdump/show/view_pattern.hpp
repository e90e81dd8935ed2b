// What was made of a view of the library, so that the same is made of views that are nearly alike without reading them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/text_buffer.hpp"

namespace ast::recording::astdump {

// A view as HTML and as text, and which pieces of both are the same.
class ViewPattern {
public:
    // Puts the text of a view; false, with nothing put, where it differs from the one at hand in more than such pieces.
    bool put(TextBuffer &out, std::string_view html) const;

    enum class Kind {
        text,    // up to the next tag
        address, // of a link
        table,   // of octets, and not shown
    };

    // Take a view in place of the one at hand, then its pieces, and then the text that was made of it. A piece is part
    // of the HTML, and stands as it is `shown_at` in the text: in a column of some width, or where more or fewer
    // characters may follow. Others are passed over.
    void begin(std::string_view html);
    void add(Kind kind, std::string_view piece, size_t shown_at, size_t width = 0);
    void end(std::string_view text);

private:
    struct Piece {
        Kind kind;
        size_t begin; // in the HTML
        size_t end;
        size_t shown_at; // in the text
        size_t width;

        size_t size() const { return end - begin; }
    };

    static std::string_view piece_at(const Piece &known, std::string_view html);

    std::string html_;
    std::string text_;
    std::string_view source_; // what `html_` is a copy of
    std::vector<Piece> pieces_;
};

} // namespace ast::recording::astdump
