// The detail views of items on the HTML page: views of one kind have their markup in common, and most of their texts.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/text_buffer.hpp"
#include "show/detail_sink.hpp"

namespace ast::recording::astdump {

// Writes views as two fields behind tabs, of which the second may be missing: the number of a shape, and of its texts
// those that are different, each behind its place. A shape is the first view that had its markup, on a line of its own:
// markup and text in turn. Texts are escaped; one that begins with a mark is the octets of a table of bits, in hex.
class ViewShapes final : public DetailSink {
public:
    void clear();

    // Forgets the view that was taken; the next one is taken piece by piece.
    void begin();

    // Puts the fields of the view that was taken, none for a view of nothing, and the line of a new shape. Views of a
    // kind, such as those of a type of items, have shapes of their own, and most likely the same as the one before.
    void put(TextBuffer &lines, TextBuffer &fields, uint32_t kind);

    void title(DetailTexts pieces) override;
    void paragraph(DetailTexts pieces) override;
    void table_begin(DetailTexts header) override;
    void row(DetailTexts cells) override;
    void link_row(DetailTexts cells, const ast_detail_link_t &link) override;
    void table_end() override;
    void bits(std::span<const uint8_t> octets) override;

private:
    // A view: its markup, with a mark in the place of each text, and the texts one behind the other.
    struct View {
        std::string_view text(size_t number) const {
            const size_t begin = number == 0 ? 0 : ends[number - 1];
            return std::string_view(texts).substr(begin, ends[number] - begin);
        }

        std::string markup;
        std::string texts;
        std::vector<size_t> ends;
    };
    struct Shape {
        size_t number;
        View view;
    };

    void row_begin();
    void element(std::string_view begin, DetailTexts texts, std::string_view end);
    void put_texts(DetailTexts texts);
    void put_address(std::string_view address);
    void add_text(std::string_view text, char mark);
    void put_fields(TextBuffer &fields, const Shape &shape) const;
    static void put_line(TextBuffer &lines, const View &view);
    const Shape &find_or_put(TextBuffer &lines, uint32_t kind);

    std::unordered_map<std::string, Shape> shapes_;    // by their markup and kind
    std::unordered_map<uint32_t, const Shape *> last_; // by kind

    View view_; // at hand
    bool is_even_ = false;
};

} // namespace ast::recording::astdump
