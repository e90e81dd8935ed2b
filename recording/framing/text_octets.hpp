// Octets in texts as people pass them on: digits wrapped and quoted, dumps with offsets in front and characters behind,
// arrays of programs, with words around them.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "base/octets.hpp"

namespace ast::recording {

// Octets that belong together: what a dump, a paragraph or a line has.
struct Passage {
    std::vector<uint8_t> octets;
    uint64_t offset = 0;   // of the first digit in the text
    bool is_alone = false; // with no words in its lines, so that its digits are meant as octets
};

// What a text shows, line by line.
class TextOctets {
public:
    // A line without its end, and where it stands in the text. Passages that end in front of it are added.
    void take_line(std::string_view line, uint64_t offset, std::vector<Passage> &passages);

    // Adds what is still open: at the end, or where there is no more for now and it is whole.
    void end_passage(std::vector<Passage> &passages);

    // Whether what is open, if anything is, is whole blocks.
    bool is_open_whole() const;
    bool is_open() const { return !open_.octets.empty(); }
    size_t open_octets() const { return open_.octets.size(); }

private:
    struct Line;

    // In front of a line of a dump.
    struct Offset {
        uint64_t value = 0;
        bool goes_on = false; // with what is open
        size_t characters = 0;
    };

    Line read_line(std::string_view text) const;
    std::optional<Offset> offset_of(std::string_view line) const;
    bool begins_passage(const Line &line) const;

    Passage open_;
    uint64_t blocks_end_ = 0;            // of the whole blocks at the start of what is open
    std::optional<uint64_t> dump_begin_; // the offset of the first line, of a dump
};

// Whether a text is a line of octets and nothing else: those of a header at least.
bool is_hexadecimal_text(std::string_view text);

} // namespace ast::recording
