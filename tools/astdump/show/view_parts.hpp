// Reads the HTML fragments that the library's detail views are made of.
#pragma once

#include <array>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ast::recording::astdump {

// What items carried as characters is not made printable yet.
struct ViewPart {
    enum class Kind { title, paragraph, table };
    using Row = std::span<const std::string_view>;

    Row header() const { return is_headed ? row(0) : Row(); }
    size_t rows() const { return row_begins.size(); }
    Row row(size_t number) const {
        const size_t begin = row_begins[number];
        return Row(cells).subspan(begin, (number + 1 < rows() ? row_begins[number + 1] : cells.size()) - begin);
    }

    Kind kind{};
    std::string_view text; // of a title or paragraph

    // Of a table. Header cells stand in its first row alone.
    std::vector<std::string_view> cells;
    std::vector<size_t> row_begins;
    bool is_headed = false;
};

// How many characters of a table, or of what is left of one, come first.
size_t rest_of_table(std::string_view html);

// The titles, the paragraphs that are not empty, and the detail tables of a view, in order; bit and hex tables are left
// out. A link reads as its text and its address. Markup of any other kind is taken as text.
class ViewReader {
public:
    // Good until the next call, and as long as the text.
    std::span<const ViewPart> read(std::string_view html);

    // Of what was read last: the tables that are left out, but for their start, and the address that a text ends with.
    std::span<const std::string_view> left_out() const { return left_out_; }
    std::string_view address_in(std::string_view text) const;

private:
    struct Tag {
        constexpr Tag(std::string_view tag, void (ViewReader::*action)());

        std::string_view start;
        void (ViewReader::*act)();
        bool is_whole; // has no attributes
        uint64_t head; // its first characters
        uint64_t mask; // of as many as it has
    };
    static const std::array<Tag, 16> kTags;

    bool tag();
    void text();
    void append(std::string_view piece);
    ViewPart &open(ViewPart::Kind kind);
    void title();
    void paragraph();
    void close();
    void detail_table();
    void other_table();
    bool in_table() const;
    void row();
    void header_cell();
    void cell();
    void link();
    void link_end();

    std::vector<ViewPart> parts_; // the first so many are in use, the others keep their room
    size_t count_ = 0;
    std::deque<std::string> joined_; // texts of several pieces
    std::vector<std::string_view> left_out_;
    struct Link {
        const char *text; // where it begins
        std::string_view address;
    };
    std::vector<Link> links_;
    std::string_view rest_;
    std::string_view attributes_;        // of the last tag
    std::string_view address_;           // of the last link
    std::string_view *target_ = nullptr; // what text belongs to
};

} // namespace ast::recording::astdump
