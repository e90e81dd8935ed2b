#include "show/view_pattern.hpp"

#include <algorithm>
#include <functional>

#include "base/printable.hpp"
#include "show/item_views.hpp"
#include "show/view_parts.hpp"

namespace ast::recording::astdump {

namespace {

// Whether a text is shown as it is: neither left out nor cut.
bool is_shown(std::string_view text) { return !text.empty() && text.back() != ' ' && text != kNoSummary; }

} // namespace

bool ViewPattern::put(TextBuffer &out, std::string_view html) const {
    if (html_.empty()) return false;
    const std::string_view text = text_;
    const size_t begin = out.size();
    size_t shown = 0; // of the text
    const auto put_piece = [&](const Piece &known, std::string_view piece) {
        if (known.kind == Kind::table) return;
        out.put(text.substr(shown, known.shown_at - shown));
        put_printable(out, piece);
        out.pad(known.width - std::min(known.width, piece.size()));
        shown = known.shown_at + std::max(known.width, known.size());
    };
    if (!each_change(html, html_, pieces_, piece_at, put_piece)) {
        out.cut(begin);
        return false;
    }
    out.put(text.substr(shown));
    return true;
}

// Columns are as wide as the widest of their texts, which has to stay so.
std::string_view ViewPattern::piece_at(const Piece &known, std::string_view html) {
    if (known.kind == Kind::table) return html.substr(0, rest_of_table(html));
    const std::string_view piece = html.substr(0, html.find(known.kind == Kind::text ? '<' : '"'));
    const bool fits =
        known.width == 0 || piece.size() == known.size() || (known.size() < known.width && piece.size() <= known.width);
    return fits && is_shown(piece) ? piece : std::string_view();
}

void ViewPattern::begin(std::string_view html) {
    html_ = html;
    source_ = html;
    pieces_.clear();
}

void ViewPattern::add(Kind kind, std::string_view piece, size_t shown_at, size_t width) {
    const auto begin = static_cast<size_t>(piece.data() - source_.data());
    const bool is_part = !std::less<>()(piece.data(), source_.data()) && begin + piece.size() <= source_.size();
    if (is_part && (kind == Kind::table || is_shown(piece)))
        pieces_.push_back({kind, begin, begin + piece.size(), shown_at, width});
}

void ViewPattern::end(std::string_view text) {
    text_ = text;
    std::ranges::sort(pieces_, {}, &Piece::begin);
}

} // namespace ast::recording::astdump
