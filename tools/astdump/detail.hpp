// The detail view of an item as aligned lines of text.
#pragma once

#include <cstdio>

#include "terminal.hpp"
#include "view_parts.hpp"
#include "views.hpp"

namespace astdump {

class Detail {
public:
    Detail(std::FILE *out, Style style) : out_(out), style_(style) {}
    void item(const ast_dataitem_t &item);

private:
    void title(const std::string &text);
    void table(ViewPart table);
    void line(const std::string &text) const;

    std::FILE *out_;
    Style style_;
    Views views_;
    bool below_title_ = false;
};

} // namespace astdump
