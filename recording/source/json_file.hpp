// Records as JSON, as --json writes them and docs/json.md explains them: objects that stand for themselves, or in one
// array.
#pragma once

#include <ast.h>
#include <string>
#include <string_view>

#include "base/octet_range.hpp"
#include "base/octet_stream.hpp"
#include "datagram/datagram_source.hpp"
#include "framing/block_header.hpp"
#include "source/json_ahead.hpp"

namespace ast::recording {

// Whether the beginning of an input is that of an object, or of an array of objects. Takes no more of it than that
// needs.
bool begins_json(OctetStream &stream);

class JsonFile : public DatagramSource {
public:
    // Its lines are encoded by so many threads.
    JsonFile(OctetStream &stream, size_t threads, const OctetRange &range);

    // Of what begins in the range, a block for the records that share its number, its category and its file and follow
    // each other, and one for each record without a number; of more octets than a block holds, several. Octets in
    // "data" stand in their block, or, without a number, by themselves.
    bool fill(Chunk &chunk) override;
    std::string nothing() const override { return "records"; }

private:
    // The block that the next record may belong to.
    struct Block {
        uint64_t number = 0;
        std::string file;
        std::vector<uint8_t> octets;
        Datagram datagram;
    };

    void pass(std::string_view text);
    bool is_array();
    std::string_view next_element();
    std::string_view next_object();
    bool is_record(std::string_view line);
    const EncodedObject &encode(std::string_view object);
    size_t end_of_line(size_t from);
    bool is_too_late(size_t characters) const;
    bool read();
    bool has_line() const { return text_.find('\n', begin_) != std::string::npos; }
    void take(std::string_view object, Chunk &chunk);
    void report(std::string_view object, uint64_t position, std::string_view path, const char *error, Chunk &chunk);
    Datagram datagram_of(const JsonMembers &members, Octets octets);
    bool goes_on_together(const Chunk &chunk) const;
    void close_block(Chunk &chunk);
    bool is_behind_range() const;

    OctetStream &stream_;
    OctetRange range_;
    std::optional<bool> is_array_;
    JsonAhead ahead_;
    std::string text_; // read but not taken, from `begin_` on
    size_t begin_ = 0;
    uint64_t offset_ = 0; // of the next object, in characters of the input
    uint64_t line_ = 1;   // where it begins, of those in the range
    uint64_t column_ = 0; // and how many characters are in front of it there
    JsonEncoder encoder_;
    std::string_view encoded_text_; // what this is of
    EncodedObject encoded_;
    std::optional<Block> block_;
    Datagram last_; // time and route of the last block, and with what it came together
};

} // namespace ast::recording
