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
};

// All of them, in the order in which they are tried.
std::span<const FramingKind> framings();

const FramingKind *find_framing(std::string_view name);

// Whether octets, none included, are nothing but what may stand behind the last frame.
bool is_idle(const FramingKind &kind, Octets rest);

// The framing whose frames the beginning of a file holds, or null when it is none of them, or when there is not enough
// to tell. The more frames follow each other, the surer it is; plain blocks win a tie.
const FramingKind *recognise_framing(Octets head, bool is_whole_file);

// The same for the octets of one datagram.
const FramingKind *recognise_wrapper(Octets datagram);

// ---- Blocks ----

// The octets of blocks back to back at the beginning of others: each with a LEN that fits, a published category, and an
// FSPEC that ends within it.
uint64_t chain_of_blocks(Octets octets);

bool has_published_category(Octets block);

// Whether any edition of a category can be read.
bool is_known_category(uint32_t category);

// Whether octets, none included, may turn out to be a block once more of them are there.
bool may_begin_block(Octets octets);

// How much of octets hangs together as blocks, and what lies behind that before blocks run again.
struct Soundness {
    uint64_t sound = 0;          // octets of blocks
    uint64_t blocks = 0;         // that they are
    uint64_t last = 0;           // where the last of these begins
    std::optional<uint64_t> gap; // octets behind them that are none; nothing where there are too few to tell
    uint64_t no_blocks = 0;      // of those too few, how many begin none, whatever follows

    // Where it is sound after all only up to the last block.
    void take_back_last() {
        blocks -= sound > last;
        sound = last;
    }
};

// Looks through octets that are to be blocks back to back. A LEN that is wrong shows where it leads: then the block
// that has it is no longer sound, unless its records fill it. Blocks that have no published category are sound where
// the blocks around them are.
Soundness check_blocks(Octets octets, bool is_end);

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
