// Reads the HTML fragments that the library's detail views are made of.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace astdump {

struct ViewPart {
    enum class Kind { title, paragraph, table };
    using Row = std::vector<std::string>;

    Kind kind;
    std::string text; // of a title or paragraph
    Row header;       // of a table
    std::vector<Row> rows;
};

// The titles, the paragraphs that are not empty, and the detail tables of a view, in order; bit and hex tables are left
// out. A link reads as its text and its address. Markup of any other kind is taken as text.
std::vector<ViewPart> read_view(std::string_view html);

} // namespace astdump
