// The detail view of an item as aligned lines of text.
#pragma once

#include "terminal.hpp"
#include "text_buffer.hpp"
#include "view_parts.hpp"
#include "views.hpp"

namespace astdump {

class Detail {
public:
    explicit Detail(Style style) : style_(style) {}
    void item(TextBuffer &out, const ast_dataitem_t &item);

private:
    void title(TextBuffer &out, const std::string &text);
    void table(TextBuffer &out, ViewPart table) const;
    void line(TextBuffer &out, std::string_view text) const;

    Style style_;
    Views views_;
    bool below_title_ = false;
};

} // namespace astdump
