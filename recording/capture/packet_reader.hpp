// Reads the packets of a capture in place, whatever its form, and finds the place again behind damage.
#pragma once

#include <algorithm>
#include <string>
#include <utility>

#include "base/counted.hpp"
#include "datagram/window.hpp"

namespace ast::recording {

struct Packet {
    Time time{};
    uint32_t link_type = 0; // as capture files number them
    Octets frame;
    const char *fault = nullptr; // why it cannot be read; null if it can
};

// The most of a packet that is looked at: IP with its link layer. What stands behind that is passed over.
constexpr size_t kMostFrameOctets = 65536 + 128;

// The most that any system captures of a packet; the length of one that claims more is damaged.
constexpr size_t kMaxCapturedOctets = 262144;

// What stands at the beginning of octets of a capture.
struct Piece {
    enum class Kind : uint8_t {
        packet,
        long_packet, // whose last octets, behind those at hand, need not be looked at
        other,       // in order, with nothing to show
        part,        // of a packet or a block, more octets of which are needed
        damaged,     // neither
    };
    uint64_t octets = 0; // up to the next piece; unless it is a packet, that may lie behind those at hand
    Packet packet{};
};

// A form of captures says of octets alone what they begin with:
//   Piece::Kind read(Octets rest, Piece &piece) const
//   bool is_doubtful(Octets rest) const         whether a part is damaged unless what follows it shows otherwise
//   void take(Octets block)                     what `other` says of the packets behind it
//   std::string complaint(Octets rest) const    why octets are damaged
//   bool is_sound(Octets rest) const            whether they begin a piece beyond doubt
//   kDoubtOctets                                no more than so many are needed to be sure of that, as a rule
//   kAlignment                                  of pieces, from one to the next
//   kShift                                      what seems to be a piece may be one that begins so many octets before
//   kFraming, kPiece                            what captures of it, and pieces of these, are called
template <typename Form>
class PacketReader {
public:
    PacketReader(OctetStream &stream, const Form &form) : stream_(&stream), window_(stream), form_(form) {}

    // Starts on an empty chunk. Waits until something has come that can be told.
    void open(Chunk &chunk) {
        position_ = 0;
        window_.open(chunk);
        do is_at_end_ = !window_.read(chunk);
        while (!is_at_end_ && pass_over(chunk) && form_.read(chunk.octets().subspan(position_), piece_) == kPart);
        if (is_at_end_) pass_over(chunk);
    }

    // To be called before the first chunk, where reading begins in the midst of a capture.
    void lose_place() {
        complaint_ = std::string("no ") + Form::kPiece + " is found";
        lost_from_ = stream_->consumed();
        searched_from_ = Form::kShift;
    }

    bool is_at_end() const { return is_at_end_; }

    // Where the last packet begins in the file.
    uint64_t begin_of_packet(const Chunk &chunk) const { return offset(chunk) + left_to_skip_ - piece_.octets; }

    // The next packet of the chunk, good until the next call, or null when no other one is whole.
    const Packet *next(Chunk &chunk) {
        for (;;) {
            const Octets rest = chunk.octets().subspan(position_);
            Piece::Kind kind = form_.read(rest, piece_);
            if (kind == Piece::Kind::packet) [[likely]] {
                position_ += piece_.octets;
                return &piece_.packet;
            }
            if (kind == kPart && is_at_end_ && form_.is_doubtful(rest)) kind = Piece::Kind::damaged;
            if (kind == kPart || !go_on(kind, rest, chunk)) return nullptr;
            if (kind == Piece::Kind::long_packet) return &piece_.packet;
        }
    }

    // Leaves the rest for the next chunk; false at the end of the capture.
    bool close(Chunk &chunk) {
        if (is_at_end_) tell_end(chunk);
        window_.leave(chunk, position_ - doubtful_);
        return !is_at_end_;
    }

private:
    static constexpr auto kPart = Piece::Kind::part;

    void skip(uint64_t octets, uint64_t available) {
        position_ += octets;
        if (octets <= available) return;
        left_to_skip_ = octets - available;
        position_ -= left_to_skip_;
    }

    bool go_on(Piece::Kind kind, Octets rest, Chunk &chunk) {
        if (kind != Piece::Kind::damaged) {
            if (kind == Piece::Kind::other) form_.take(rest.first(std::min<uint64_t>(piece_.octets, rest.size())));
            skip(piece_.octets, rest.size());
            return true;
        }
        complaint_ = form_.complaint(rest);
        lost_from_ = offset(chunk);
        position_ += Form::kAlignment;
        return search(chunk);
    }

    // Up to the next piece; false when that lies behind the chunk.
    bool pass_over(Chunk &chunk) {
        if (!complaint_.empty()) return search(chunk);
        skip(std::exchange(left_to_skip_, 0), chunk.octets().size() - position_);
        return left_to_skip_ == 0;
    }

    // Where nothing is sound, the last octets are left to be looked at again with those behind them.
    bool search(Chunk &chunk) {
        const Octets octets = chunk.octets();
        doubtful_ = 0;
        position_ = std::max(position_, std::exchange(searched_from_, 0));
        for (; position_ < octets.size(); position_ += Form::kAlignment) {
            if (!is_at_end_ && octets.size() - position_ < Form::kDoubtOctets) break;
            if (!form_.is_sound(octets.subspan(position_))) continue;
            const bool may_be_shifted = Form::kShift != 0 && offset(chunk) >= lost_from_ + Form::kShift;
            if (may_be_shifted && form_.is_sound(octets.subspan(position_ - Form::kShift))) position_ -= Form::kShift;
            chunk.reports().skipped(lost_from_, offset(chunk) - lost_from_, Form::kFraming);
            complaint_.clear();
            return true;
        }
        position_ = std::min<uint64_t>(position_, octets.size());
        searched_from_ = std::min<uint64_t>(position_, Form::kShift);
        doubtful_ = octets.size() - position_ + searched_from_;
        position_ = octets.size();
        return false;
    }

    // What the stream itself complains of, and what the user has had enough of, is not told here.
    void tell_end(Chunk &chunk) {
        const uint64_t rest = chunk.octets().size() - position_;
        if (stream_->cut_off() || !stream_->damage().empty()) return;
        if (!complaint_.empty())
            chunk.reports().unfinished(complaint_ + ", and nothing behind it can be read");
        else if (rest != 0 || left_to_skip_ != 0)
            chunk.reports().unfinished("the last " + std::string(Form::kPiece) + " is cut off" +
                                       (rest != 0 ? " after " + counted(rest, "octet") : ""));
    }

    uint64_t offset(const Chunk &chunk) const { return stream_->consumed() - (chunk.octets().size() - position_); }

    OctetStream *stream_;
    Window window_;
    Form form_;
    Piece piece_;               // the last one
    uint64_t position_ = 0;     // in the chunk
    uint64_t left_to_skip_ = 0; // behind it
    bool is_at_end_ = false;
    std::string complaint_;      // while the place is to be found again
    uint64_t lost_from_ = 0;     // in the file
    uint64_t searched_from_ = 0; // in the next chunk
    uint64_t doubtful_ = 0;      // octets before `position_` that may begin a piece
};

} // namespace ast::recording
