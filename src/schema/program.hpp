// What the JSON of items takes, as the compiler works it out of their rows: the text that always stands, where a digit
// of it is to be added to, and what is written between its pieces.
#pragma once

#include "schema/field.hpp"

namespace ast::schema {

// What stands behind the text of a piece.
enum class Op : uint8_t {
    Plain,  // nothing
    Number, // whole, from 0 on
    Code,   // the same, which may have a text
    Octal,
    Hex,
    Icao,
    Whole,       // quantities from 0 on, by their decimals
    Thousandths, // below 2^32 of them
    Millionths,
    Signed, // the same in two's complement, and whole numbers
    SignedThousandths,
    SignedMillionths,
    Other,      // a number or quantity, by its row
    Characters, // octets that are no number
    Octets,
    Register,
    Spare,      // bits that are to be 0
    Unless,     // a status and its member: where the status is clear, some pieces are passed over
    UnlessZero, // where a number is 0
    Case,       // where a number before is another one, or the record is of another message type
    Skip,
};

// A digit of a text, "0" as it stands there, that takes the few bits of an octet.
struct Digit {
    uint8_t place = 0; // in the text
    uint8_t octet = 0;
    uint8_t shift = 0;
    uint8_t mask = 0;
    uint16_t row = 0;   // of the field, counted from the item
    uint16_t texts = 0; // of its code, see Program::texts
};

// A piece of text and what stands behind it: the bits of the number are those at (word at the octet << left >> right).
struct Piece {
    uint16_t text = 0; // where it starts in Program::text
    uint16_t digit = 0;
    uint8_t chars = 0;
    uint8_t digits = 0;
    Op op = Op::Plain;
    uint8_t octet = 0;
    uint8_t left = 0;
    uint8_t right = 63;
    uint8_t shift = 0;   // of a quantity, less one; of Unless: the bits of the member
    uint8_t count = 0;   // of pieces to pass over or digits; of zeros that a quantity lacks
    uint32_t factor = 0; // of a quantity; the texts of a code; the number that a Case is for, or of octets
    uint16_t row = 0;
    uint16_t message_type = 0; // that a Case is for, or kAnyMessage
};
constexpr uint16_t kAnyMessage = UINT16_MAX;

enum class Shape : uint8_t { Fixed, Extended, Compound, Repetitive, Chained, Explicit, None, Random };

// An item, a part or a subfield: pieces that are always the same, or nodes that are there or not.
struct Node {
    Shape shape = Shape::None;
    uint8_t count = 0;      // of pieces or nodes
    uint8_t closing = 0;    // brackets behind the last piece
    uint8_t chars = 0;      // of the text
    bool has_fx = false;    // of a part
    bool is_silent = false; // a part that nothing in the text tells
    uint16_t octets = 0;    // of pieces; presence octets of a compound, 0 for those chained by FX
    uint16_t first = 0;     // piece or node
    uint16_t text = 0;      // what opens it, of a node of nodes
    uint16_t room = 0;      // more than the characters that its pieces write
    uint16_t room_with_texts = 0;
};

constexpr size_t kMaxFixedOctets = 256;

constexpr unsigned kMaxClosing = 4;

// Texts are copied in blocks of so many characters, the last one beyond their end.
constexpr size_t kBlock = 32;

// No list of texts: they are numbered, and looked for one by one; or there is none.
constexpr uint16_t kLookedFor = UINT16_MAX;

struct Program {
    const Node *nodes = nullptr; // those of the items first, in their order
    const Piece *pieces = nullptr;
    const Digit *digits = nullptr;
    const char *text = nullptr;
    const uint8_t *texts = nullptr; // of a code: how many texts it has, and how long each of them is
};

} // namespace ast::schema
