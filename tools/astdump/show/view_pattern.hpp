// Views of the library that differ in few places: what was made of one serves for those that follow.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "base/text_buffer.hpp"

namespace ast::recording::astdump {

// How many characters two texts begin with in common.
inline size_t common_size(std::string_view a, std::string_view b) {
    const size_t most = std::min(a.size(), b.size());
    size_t size = 0;
    for (uint64_t words[2]; size + sizeof words[0] <= most; size += sizeof words[0]) {
        std::memcpy(&words[0], a.data() + size, sizeof words[0]);
        std::memcpy(&words[1], b.data() + size, sizeof words[1]);
        if (words[0] != words[1]) break;
    }
    while (size < most && a[size] == b[size]) ++size;
    return size;
}

// Calls changed(place, piece) for the places of a known view, in their order, where the view at hand has another piece,
// and returns whether all else is the same. A place has a `begin` and an `end`; piece_at(place, rest) tells what the
// rest of the view at hand has there, and is empty where that can be nothing of the kind.
template <typename Place, typename PieceAt, typename Changed>
bool each_change(std::string_view view, std::string_view known, const std::vector<Place> &places, PieceAt piece_at,
                 Changed changed) {
    size_t at = 0; // in the view, and in the known one
    size_t at_known = 0;
    for (auto place = places.begin();; ++place) {
        const size_t same = common_size(view.substr(at), known.substr(at_known));
        at += same;
        at_known += same;
        if (at == view.size() && at_known == known.size()) return true;
        place = std::find_if(place, places.end(), [&](const Place &p) { return at_known <= p.end; });
        if (place == places.end() || at_known < place->begin) return false;
        const size_t start = at - (at_known - place->begin);
        const std::string_view piece = piece_at(*place, view.substr(start));
        if (piece.empty()) return false;
        changed(*place, piece);
        at = start + piece.size();
        at_known = place->end;
    }
}

// A view as HTML and as text, with holes in both where values stand. Views that differ in these alone are put without
// being read.
class ViewPattern {
public:
    // Puts the text of a view; false, with nothing put, where it differs from the one at hand in more than its pieces.
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
