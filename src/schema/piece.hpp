// What the JSON of items takes, as it is worked out of their rows: the text that always stands, where a digit
// of it is to be added to, and what is written between its pieces.
#pragma once

#include "schema/field.hpp"

namespace ast::schema {

// What a piece writes, or what it says of those behind it.
enum class Op : uint8_t {
    Plain, // its text
    Value, // its text and a field
    Spare, // nothing: bits that are to be 0
    // Some pieces are written or not:
    IfSet,      // those of a member, by the status in front of it
    UnlessZero, // those of a number
    Case,       // those of a reading; the last of them, a Skip, says how many behind it are those of all others
    Skip,
};

// A digit of a text, "0" as it stands there, that takes a few bits of the eight octets from one on.
struct Digit {
    uint8_t place = 0; // in the text
    uint8_t shift = 0;
    uint8_t mask = 0;
    uint16_t row = 0;   // of the field, counted from the item
    uint16_t texts = 0; // of its code, see Compiled::texts
};

// A text and what stands behind it. There are pieces while the library is compiled, not when it runs: functions are
// made of them.
struct Piece {
    Op op = Op::Plain;
    size_t text = 0; // where it starts in Compiled::text
    size_t chars = 0;
    size_t digit = 0;
    size_t digits = 0;
    size_t digits_octet = 0; // from which on they are taken
    size_t bit = 0;
    size_t bits = 0;
    size_t count = 0;             // of pieces to be written or not
    const Field *field = nullptr; // of a value
    const Field *item = nullptr;  // the first row
    size_t texts = 0;             // of a code
    uint32_t selector = 0;        // of a Case
    uint32_t message_type = 0;
};

enum class Shape : uint8_t { Fixed, Extended, Compound, Repetitive, Chained, Explicit, None, Random };

// An item, a part or a subfield, while the library is compiled: pieces that are always the same, or nodes that are
// there or not.
struct Node {
    Shape shape = Shape::None;
    bool has_fx = false;    // of a part
    bool is_silent = false; // a part that nothing in the text tells
    size_t octets = 0;      // of pieces; presence octets of a compound, 0 for those chained by FX
    size_t first = 0;       // piece or node
    size_t count = 0;
    size_t text = 0; // what opens it, of a node of nodes
    size_t chars = 0;
    size_t room = 0;    // of an item: characters that its brackets and keys take at most
    size_t density = 0; // and those that come of an octet
    size_t density_with_texts = 0;
    size_t along = 0; // octets behind it that may be read along with its last ones
    size_t along_with_texts = 0;
};

// Octets that are read at once to have bits that cross no more than so many.
constexpr size_t read_octets(size_t octets) { return octets <= 2 ? octets : octets <= 4 ? 4 : 8; }
constexpr size_t octets_of_bits(size_t bit, size_t bits) { return (bit + bits - 1) / 8 - bit / 8 + 1; }

// No list of texts: they are numbered, and looked for one by one; or there is none.
constexpr uint16_t kLookedFor = UINT16_MAX;

// ---- What there is when the library runs ----

// What is to be known while an item is written.
struct Writing;

// Where characters go to, and octets come from. Null is where the octets end too early.
struct Cursor {
    char *out;
    const uint8_t *at;
};

// How an item is written, or a register.
struct Writer {
    // Up to the end of the octets, with a comma in front. Null for what takes more than its octets.
    Cursor (*write)(Writing &writing, Cursor from, const uint8_t *end) = nullptr;
    uint16_t room = 0;                      // characters that it takes at most: so many
    std::array<uint16_t, 2> densities = {}; // and for each octet, without and with texts
    std::array<uint8_t, 2> along = {};      // octets behind it that may be read along, the same
};

} // namespace ast::schema
