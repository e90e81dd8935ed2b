// The detail views of items on the HTML page: views of one kind have their markup in common, and most of their texts.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/text_buffer.hpp"

namespace ast::recording::astdump {

// Writes views as two fields behind tabs, of which the second may be missing: the number of a shape, and of its texts
// those that are different, each behind its place. A shape is the first view that had its markup, on a line of its own:
// markup and text in turn. Texts are escaped; one that begins with a mark is the octets of a table of bits, in hex.
class ViewShapes {
public:
    void clear();

    // Puts the fields, none for a view of nothing, and the line of a new shape. Views of a kind, such as those of a
    // type of items, have shapes of their own, and most likely the same as the one before.
    void put(TextBuffer &lines, TextBuffer &fields, std::string_view html, uint32_t kind);

private:
    struct Text {
        size_t begin; // in the view
        size_t end;
        bool is_number; // in the address of a link
    };
    struct Shape {
        size_t number;
        std::string html;
        std::vector<Text> texts;
    };

    static bool put_fields(TextBuffer &fields, std::string_view html, const Shape &shape);
    static void put_line(TextBuffer &lines, const Shape &shape);
    void read(std::string_view html);
    void read_link(std::string_view link, size_t at);
    void add_text(size_t at, size_t size, char mark, bool is_number = false);
    const Shape &find_or_put(TextBuffer &lines, std::string_view html, uint32_t kind);

    std::unordered_map<std::string, Shape> shapes_;    // by their markup and kind
    std::unordered_map<uint32_t, const Shape *> last_; // by kind

    // The view at hand: its markup, with a mark in the place of each text.
    std::string markup_;
    std::vector<Text> texts_;
};

} // namespace ast::recording::astdump
