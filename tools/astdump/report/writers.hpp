// A report as text, as JSON and as a page.
#pragma once

#include <span>

#include "base/text_buffer.hpp"
#include "report/document.hpp"
#include "show/terminal.hpp"

namespace ast::recording::astdump {

// Lines of no more than `width` characters, but for charts.
void put_text(TextBuffer &out, const SourceReport &report, Style style, size_t width);

// A line.
void put_json(TextBuffer &out, const SourceReport &report);

// One file without scripts, which loads nothing else.
void put_page(TextBuffer &out, std::span<const SourceReport> reports, std::span<const std::string> files);

} // namespace ast::recording::astdump
