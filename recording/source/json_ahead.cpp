#include "source/json_ahead.hpp"

#include <algorithm>
#include <new>
#include <utility>

#include "base/letters.hpp"
#include "base/silence.hpp"
#include "framing/block_header.hpp"
#include "system/process.hpp"

namespace ast::recording {

namespace {

// So much is encoded at a time; of what has yet to arrive, there is less.
constexpr size_t kPieceOctets = size_t{256} * 1024;
constexpr size_t kOctetsAtATime = size_t{64} * 1024;

// More would wait for the one that takes what they have encoded.
constexpr size_t kMostEncoders = 8;

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

JsonAhead::JsonAhead(OctetStream &stream, size_t threads) : stream_(stream), offset_(stream.consumed()) {
    if (threads == 1 || !stream.is_at_rest()) return;
    encoders_.reserve(kMostEncoders);
    try {
        while (encoders_.size() < std::min(threads, kMostEncoders))
            encoders_.push_back(system::start_thread([this] { encode_pieces(); }));
    } catch (const std::exception &) {
        // Those that the system and the memory grant will do.
    }
    pieces_ahead_ = encoders_.empty() ? 0 : encoders_.size() + 1;
}

JsonAhead::~JsonAhead() {
    {
        const std::lock_guard lock(mutex_);
        is_over_ = true;
    }
    changed_.notify_all();
    for (std::thread &encoder : encoders_) encoder.join();
}

bool JsonAhead::read(std::string &text) {
    if (pieces_ahead_ == 0) {
        const bool is_any = read_piece(own_);
        text += own_.text;
        return is_any;
    }
    read_pieces();
    std::unique_lock lock(mutex_);
    if (read_.empty()) return false;
    changed_.wait(lock, [&] { return read_.front()->state == Piece::State::encoded; });
    std::unique_ptr<Piece> piece = std::move(read_.front());
    read_.pop_front();
    lock.unlock();
    text += piece->text;
    if (piece->lines.empty())
        idle_.push_back(std::move(piece));
    else
        taken_.push_back(std::move(piece));
    read_pieces();
    return true;
}

const EncodedObject *JsonAhead::find(uint64_t offset, std::string_view object) {
    while (!taken_.empty()) {
        Piece &piece = *taken_.front();
        while (piece.next < piece.lines.size() && piece.lines[piece.next].offset < offset) ++piece.next;
        if (piece.next < piece.lines.size()) {
            const Line &line = piece.lines[piece.next];
            return line.offset == offset && line.chars == object.size() ? &line.encoded : nullptr;
        }
        idle_.push_back(std::move(taken_.front()));
        taken_.pop_front();
    }
    return nullptr;
}

// Up to the end of its last line, what is behind that being kept; of a longer line, what there is. False at the end.
bool JsonAhead::read_piece(Piece &piece) {
    const size_t wanted = pieces_ahead_ == 0 ? kOctetsAtATime : kPieceOctets;
    std::string &room = piece.room;
    room.resize(std::max(room.size(), rest_.size() + wanted));
    std::ranges::copy(rest_, room.begin());
    const size_t count = stream_.read(reinterpret_cast<uint8_t *>(room.data()) + rest_.size(), wanted);
    piece.text = std::string_view(room).substr(0, rest_.size() + count);
    const size_t feed = pieces_ahead_ == 0 || count == 0 ? std::string::npos : piece.text.rfind('\n');
    const size_t size = feed == std::string::npos ? piece.text.size() : feed + 1;
    rest_ = piece.text.substr(size);
    piece.text = piece.text.substr(0, size);
    piece.offset = offset_;
    offset_ += size;
    return size != 0;
}

// As many as may be worked on. The memory of those that were taken is used again, which the system would have to clear
// otherwise.
void JsonAhead::read_pieces() {
    while (read_.size() < pieces_ahead_) { // which grows on this thread alone
        auto piece = idle_.empty() ? std::make_unique<Piece>() : std::move(idle_.back());
        if (!idle_.empty()) idle_.pop_back();
        if (!read_piece(*piece)) return;
        piece->state = Piece::State::waiting;
        {
            const std::lock_guard lock(mutex_);
            read_.push_back(std::move(piece));
        }
        changed_.notify_all();
    }
}

// The first that nobody has begun to encode; null for none.
JsonAhead::Piece *JsonAhead::waiting_piece() const {
    const auto found = std::ranges::find(read_, Piece::State::waiting, [](const auto &piece) { return piece->state; });
    return found == read_.end() ? nullptr : found->get();
}

void JsonAhead::encode_pieces() {
    const Silence silence;
    std::unique_lock lock(mutex_);
    for (;;) {
        Piece *piece = nullptr;
        changed_.wait(lock, [&] { return is_over_ || (piece = waiting_piece()) != nullptr; });
        if (is_over_) return;
        piece->state = Piece::State::begun;
        lock.unlock();
        encode_lines(*piece);
        lock.lock();
        piece->state = Piece::State::encoded;
        changed_.notify_all();
    }
}

void JsonAhead::encode_lines(Piece &piece) try {
    piece.octets.clear();
    piece.lines.clear();
    piece.next = 0;
    for (size_t begin = 0, end = 0; begin < piece.text.size(); begin = end) {
        end = std::min(piece.text.find('\n', begin), piece.text.size() - 1) + 1;
        const std::string_view object = without_blanks_behind(piece.text.substr(begin, end - begin));
        if (!object.ends_with('}')) continue;
        const EncodedObject encoded = piece.encoder.encode(object);
        if (!encoded.result.valid) continue;
        piece.lines.push_back(
            {.offset = piece.offset + begin, .chars = object.size(), .begin = piece.octets.size(), .encoded = encoded});
        piece.octets.insert(piece.octets.end(), encoded.octets.begin(), encoded.octets.end());
    }
    for (Line &line : piece.lines)
        line.encoded.octets = Octets(piece.octets).subspan(line.begin, line.encoded.octets.size());
} catch (const std::bad_alloc &) {
    piece.lines.clear(); // whoever takes it encodes it
}

} // namespace ast::recording
