#include "show/item_lines.hpp"

#include <algorithm>

#include "base/printable.hpp"

namespace ast::recording::astdump {

namespace {

// "    I048/010  Data Source Identifier        2  SAC:025 SIC:012       19 0c"
constexpr size_t kIndent = 4;
constexpr size_t kTypeWidth = 8;
constexpr size_t kSizeWidth = 5;
constexpr size_t kGap = 2;
constexpr size_t kFixedWidth = kIndent + kTypeWidth + kGap + kSizeWidth + kGap + kGap;
constexpr size_t kMaxNameWidth = 50;
constexpr size_t kHexWidth = 3; // of one octet and the blank behind it
constexpr size_t kMinOctetsPerLine = 4;
constexpr size_t kMaxOctetsPerLine = 32;

// What type and size leave of a line goes to the name, the summary and the octets, as 4 to 3 to 3.
constexpr size_t kShareOfTen = 3;

size_t share(unsigned columns) { return (columns - kFixedWidth) * kShareOfTen / 10; }

} // namespace

ItemLines::ItemLines(unsigned columns, Style style, bool detail)
    : style_(style),
      dim_(style.on(Color::dim)),
      off_(style.off()),
      octets_per_line_(std::clamp((share(columns) + 1) / kHexWidth, kMinOctetsPerLine, kMaxOctetsPerLine)),
      summary_width_(share(columns)),
      name_width_(std::min(columns - kFixedWidth - 2 * share(columns), kMaxNameWidth)),
      hex_column_(kIndent + kTypeWidth + kGap + name_width_ + kSizeWidth + kGap + summary_width_ + kGap) {
    if (detail) detail_.emplace(style);
}

const std::string &ItemLines::title(ast_dataitem_type_t type, const ast_uap_t &uap) {
    std::string &title = titles_[type];
    if (title.empty()) {
        TextBuffer line;
        line.pad(kIndent);
        line.put(style_.on(Color::item));
        line.left(ast_dataitem_type_to_str(type), kTypeWidth);
        line.put(style_.off());
        line.pad(kGap);
        line.left(cut(item_name(type, uap), name_width_), name_width_);
        title = line.text();
    }
    return title;
}

// A summary that leaves no room for the octets pushes them to the next line.
void ItemLines::write(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading) {
    out.put(title(item.type, reading.uap));
    out.number(item.size, kSizeWidth);
    out.pad(kGap);
    const std::string_view summary = views_.summary(item, reading);
    put_printable(out, summary);
    const bool fits = summary.size() <= summary_width_;
    if (!fits) out.put('\n');
    octets(out, {item.data, item.size}, fits ? summary_width_ - summary.size() + kGap : hex_column_);
    if (detail_) detail_->item(out, item, reading);
}

// Starts the first line with `indent` blanks.
void ItemLines::octets(TextBuffer &out, Octets octets, size_t indent) const {
    for (size_t at = 0; at < octets.size(); at += octets_per_line_) {
        out.pad(at == 0 ? indent : hex_column_);
        out.put(dim_);
        out.hex(octets.subspan(at, std::min(octets_per_line_, octets.size() - at)));
        out.put(off_);
        out.put('\n');
    }
}

} // namespace ast::recording::astdump
