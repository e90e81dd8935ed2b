#include "source/json_ahead.hpp"

#include <algorithm>
#include <utility>

#include "base/letters.hpp"
#include "base/silence.hpp"
#include "framing/block_header.hpp"

namespace ast::recording {

namespace {

// So much is encoded at a time; of what has yet to arrive, there is less.
constexpr size_t kPieceOctets = size_t{256} * 1024;
constexpr size_t kOctetsAtATime = size_t{64} * 1024;

} // namespace

JsonEncoder::JsonEncoder() : record_(kMaxBlockOctets - kBlockHeaderOctets) {}

EncodedObject JsonEncoder::encode(std::string_view object) {
    EncodedObject encoded{.result =
                              ast_datarecord_from_json(record_.data(), record_.size(), object.data(), object.size()),
                          .octets = {},
                          .members = {}};
    if (!encoded.result.valid) return encoded;
    encoded.octets = Octets(record_).first(encoded.result.size);
    encoded.members = members_.read(object);
    return encoded;
}

JsonAhead::JsonAhead(OctetStream &stream, size_t threads)
    : stream_(stream), pieces_ahead_(threads > 1 && stream.is_at_rest() ? threads + 1 : 0) {}

bool JsonAhead::read(std::string &text) {
    if (pieces_ahead_ == 0) {
        const std::string piece = read_piece();
        text += piece;
        return !piece.empty();
    }
    begin_pieces();
    if (begun_.empty()) return false;
    std::unique_ptr<Piece> piece = begun_.front().get();
    begun_.pop_front();
    begin_pieces();
    text += piece->text;
    if (!piece->lines.empty()) taken_.push_back(std::move(piece));
    return true;
}

const EncodedObject *JsonAhead::find(uint64_t offset, std::string_view object) {
    for (; !taken_.empty(); taken_.pop_front()) {
        Piece &piece = *taken_.front();
        while (piece.next < piece.lines.size() && piece.lines[piece.next].offset < offset) ++piece.next;
        if (piece.next == piece.lines.size()) continue;
        const Line &line = piece.lines[piece.next];
        return line.offset == offset && line.chars == object.size() ? &line.encoded : nullptr;
    }
    return nullptr;
}

// Up to the end of its last line, what is behind that being kept; of a longer line, what there is.
std::string JsonAhead::read_piece() {
    const size_t wanted = pieces_ahead_ == 0 ? kOctetsAtATime : kPieceOctets;
    std::string text = std::exchange(rest_, {});
    const size_t had = text.size();
    text.resize(had + wanted);
    text.resize(had + stream_.read(reinterpret_cast<uint8_t *>(text.data()) + had, wanted));
    const size_t feed = pieces_ahead_ == 0 || text.size() == had ? std::string::npos : text.rfind('\n');
    if (feed != std::string::npos) {
        rest_ = text.substr(feed + 1);
        text.resize(feed + 1);
    }
    return text;
}

// As many as may be worked on.
void JsonAhead::begin_pieces() {
    while (begun_.size() < pieces_ahead_) {
        auto piece = std::make_unique<Piece>(Piece{.text = read_piece(), .offset = offset_, .octets = {}, .lines = {}});
        if (piece->text.empty()) return;
        offset_ += piece->text.size();
        const auto work = [](std::unique_ptr<Piece> begun) {
            encode_lines(*begun);
            return begun;
        };
        begun_.push_back(std::async(work, std::move(piece))); // here, where there is no other thread to be had
    }
}

void JsonAhead::encode_lines(Piece &piece) {
    const Silence silence;
    JsonEncoder encoder;
    const std::string_view text = piece.text;
    for (size_t begin = 0, end = 0; begin < text.size(); begin = end) {
        end = std::min(text.find('\n', begin), text.size() - 1) + 1;
        const std::string_view object = without_blanks_behind(text.substr(begin, end - begin));
        if (!object.ends_with('}')) continue;
        const EncodedObject encoded = encoder.encode(object);
        if (!encoded.result.valid) continue;
        piece.lines.push_back(
            {.offset = piece.offset + begin, .chars = object.size(), .begin = piece.octets.size(), .encoded = encoded});
        piece.octets.insert(piece.octets.end(), encoded.octets.begin(), encoded.octets.end());
    }
    for (Line &line : piece.lines)
        line.encoded.octets = Octets(piece.octets).subspan(line.begin, line.encoded.octets.size());
}

} // namespace ast::recording
