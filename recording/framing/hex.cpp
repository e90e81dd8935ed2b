// Hexadecimal text: digits in pairs, with or without 0x before them and white space or commas between, the blocks of a
// datagram on each line.

#include <algorithm>

#include "framing/block_header.hpp"
#include "framing/framing.hpp"
#include "framing/soundness.hpp"

namespace ast::recording {

namespace {

int digit(uint8_t character) {
    if (character >= '0' && character <= '9') return character - '0';
    if (character >= 'A' && character <= 'F') return character - 'A' + 10;
    if (character >= 'a' && character <= 'f') return character - 'a' + 10;
    return -1;
}

bool separates(uint8_t character) {
    return character == ' ' || character == '\t' || character == ',' || character == '\r';
}

// The octets of one line; false when there is anything else in it.
bool read_line(Octets line, std::vector<uint8_t> &storage) {
    storage.clear();
    for (size_t i = 0; i < line.size();) {
        if (separates(line[i])) {
            ++i;
            continue;
        }
        if (i + 1 >= line.size()) return false;
        if (line[i] == '0' && (line[i + 1] == 'x' || line[i + 1] == 'X')) {
            i += 2;
            continue;
        }
        const int high = digit(line[i]);
        const int low = digit(line[i + 1]);
        if (high < 0 || low < 0) return false;
        storage.push_back(static_cast<uint8_t>(high << 4 | low));
        i += 2;
    }
    return true;
}

// Blocks of any category, or one that is known and breaks off.
bool may_hold_blocks(Octets octets) {
    const bool is_broken_block = octets.size() > kBlockHeaderOctets && has_published_category(octets);
    return !octets.empty() && (count_blocks(octets).octets == octets.size() || is_broken_block);
}

} // namespace

// What separates stands by itself where a line would begin. The last line may do without its end.
Framed find_hex(Octets rest, std::vector<uint8_t> &storage) {
    const auto begin = std::ranges::find_if(rest, [](uint8_t octet) { return octet != '\n' && !separates(octet); });
    if (begin != rest.begin()) return frame_without_blocks(static_cast<uint64_t>(begin - rest.begin()));
    const auto end = std::find(begin, rest.end(), uint8_t{'\n'});
    const bool is_last = end == rest.end();
    const auto octets = static_cast<uint64_t>(end - rest.begin()) + (is_last ? 0 : 1);
    Framed framed;
    if (read_line(Octets(begin, end), storage) && may_hold_blocks(storage)) {
        framed.state = Framed::State::frame;
        framed.blocks = storage;
    }
    framed.octets = octets;
    framed.may_go_on = is_last;
    return framed;
}

} // namespace ast::recording
