// What is done with decoded blocks: shown one by one, counted, or both. Chunks of them are rendered on several threads
// at a time, and what has been rendered is taken in their order.
#pragma once

#include <memory>
#include <string>

#include "ask/source_judge.hpp"
#include "base/text_buffer.hpp"
#include "show/counts.hpp"

namespace ast::recording::astdump {

// Renders the blocks of one chunk after the other.
class Renderer {
public:
    virtual ~Renderer() = default;

    virtual void block(const DecodedBlock &decoded, TextBuffer &out) = 0;

    // Octets of a datagram, from `offset` on, that do not start a whole block.
    virtual void no_block(const Datagram &, uint64_t, const std::string &, TextBuffer &) {}

    // The same octets, where they begin one: what is there of it, of so many octets that it announces.
    virtual void part_of_block(const DecodedBlock &, uint64_t, TextBuffer &) {}

    // No block follows in this chunk.
    virtual void end(TextBuffer &) {}
};

class Sink {
public:
    virtual ~Sink() = default;

    // One for each thread; null for a sink that needs no text.
    virtual std::unique_ptr<Renderer> renderer() const = 0;

    // Octets of a chunk that is worth a turn of its own, and small enough that what becomes of it does not fill the
    // memory.
    virtual size_t chunk_octets() const = 0;

    // What it shows of a block, in number: blocks unless it shows lines.
    virtual uint64_t shows(const DecodedBlock &) const { return 1; }

    // The blocks that follow come from this file, whose name is readable.
    virtual void file(const std::string &name) = 0;

    // How the blocks of this file are wrapped, and how it is compressed, if it is.
    virtual void framing(const std::string &) {}

    // Whether it has use for what is counted.
    virtual bool counts() const { return false; }

    // They come as they are sent: none of them waits for those behind it.
    virtual void live() {}

    // What has been rendered, in pieces that end with a block; and what has been counted in a chunk.
    virtual void take(std::string_view rendered) = 0;
    virtual void count(const Tally &) {}

    // What is reported, in the order of what has been rendered.
    virtual void report(const Report &) {}

    // What a data source of the file at hand has sent cannot be.
    virtual void doubt(const JudgedSource &, const Judgement &) {}

    // Whether anything has not reached where it was to go, which has been told.
    virtual bool has_lost_any() const { return false; }

    // Whether it has found what ends the run with a status of its own, though nothing is damaged.
    virtual bool has_found_any() const { return false; }

    // How far it has got, where that is not how far the reading is; empty else.
    virtual std::string progress() { return {}; }

    // Something else is shown next, behind what has been taken.
    virtual void flush() {}

    // No block follows; so many octets have been read.
    virtual void finish(uint64_t octets_read) = 0;

    // The same where an input could not be read, or not all be written: a file that is written stays as it was before.
    virtual void give_up() { finish(0); }

    // The same where the user has ended it: what is not whole does not take the place of what was there before.
    virtual void break_off() { finish(0); }
};

} // namespace ast::recording::astdump
