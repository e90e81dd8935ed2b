// How recorders wrap data blocks in a file or a datagram. A framing is one source with one row in the list; what it
// finds it says of octets alone, so that a reader can hand it a window of a file of any size.
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "base/octets.hpp"
#include "base/printable.hpp"

namespace ast::recording {

// What stands at the beginning of some octets.
struct Framed {
    enum class State {
        frame,      // a whole frame
        incomplete, // the beginning of one that may go on behind the octets at hand
        other,      // nothing of this framing
    };
    State state = State::other;
    uint64_t octets = 0; // of the frame, with all that wraps its blocks; of what is none, if known
    Octets blocks;       // back to back; in the frame itself, or in the storage that was given; may be none
    std::optional<uint32_t> centiseconds; // since midnight, where the frame has a time
    bool may_go_on = false;               // behind the octets at hand, so that only their end makes sure of it
};

struct FramingKind {
    std::string_view name;                                      // as on the command line
    std::string_view title;                                     // what it is
    uint64_t lead_octets;                                       // before the first frame of a file
    Framed (*find)(Octets rest, std::vector<uint8_t> &storage); // null for what has a reader of its own
    std::optional<uint8_t> idle = {};                           // what may stand behind the last frame
    bool is_text = false;
    bool is_bare = false; // its frames are told from chance by what follows them alone
};

// All of them, in the order in which they are tried.
std::span<const FramingKind> framings();

const FramingKind *find_framing(std::string_view name);

// The octets before the first frame of a file: none where the file does not begin as one of this framing does.
uint64_t lead_of(const FramingKind &kind, Octets head);

// Whether a frame that stands behind octets which are none is not there by chance: one that is bare stands before
// another one or the end, with blocks that are read whole, or before many, with none of these in it.
bool is_sure_frame(const FramingKind &kind, const Framed &frame, Octets rest);

// How far it is from a place where no frame is to the next one where one may be.
uint64_t octets_without_frame(const Framed &found, Octets rest);

// Whether octets, none included, are nothing but what may stand behind the last frame.
bool is_idle(const FramingKind &kind, Octets rest);

// The framing whose frames the beginning of a file holds, or null when it is none of them, or when there is not enough
// to tell. The more frames follow each other, the surer it is; plain blocks win a tie. Where the beginning is damaged,
// or lies in the midst of a frame, it is the framing that explains most octets, and half of them at least.
const FramingKind *recognise_framing(Octets head, bool is_whole_file);

// The same for the octets of one datagram.
const FramingKind *recognise_wrapper(Octets datagram);

// ---- For framings of their own sources ----

inline Framed incomplete_frame() {
    Framed framed;
    framed.state = Framed::State::incomplete;
    return framed;
}

inline Framed frame_without_blocks(uint64_t octets) {
    Framed framed;
    framed.state = Framed::State::frame;
    framed.octets = octets;
    return framed;
}

// A frame when what is inside is blocks and nothing else.
Framed frame_of(uint64_t octets, Octets blocks, std::optional<uint32_t> centiseconds = {});

Framed find_raw(Octets rest, std::vector<uint8_t> &storage);
Framed find_final(Octets rest, std::vector<uint8_t> &storage);
Framed find_gps(Octets rest, std::vector<uint8_t> &storage);
Framed find_oradis(Octets rest, std::vector<uint8_t> &storage);
Framed find_hdlc(Octets rest, std::vector<uint8_t> &storage);
Framed find_mac_llc(Octets rest, std::vector<uint8_t> &storage);
Framed find_hex(Octets rest, std::vector<uint8_t> &storage);

} // namespace ast::recording
