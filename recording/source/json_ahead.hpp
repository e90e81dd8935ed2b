// Lines of JSON that are encoded before they are asked for, by threads of their own.
#pragma once

#include <ast.h>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "base/octet_stream.hpp"
#include "base/octets.hpp"
#include "source/json_members.hpp"

namespace ast::recording {

// What an object came to.
struct EncodedObject {
    ast_json_result_t result{};
    Octets octets;
    JsonMembers members; // read where the result is valid
};

// Encodes one at a time into memory of its own, which the next one takes.
class JsonEncoder {
public:
    JsonEncoder();
    EncodedObject encode(std::string_view object);

private:
    std::vector<uint8_t> record_;
    JsonMemberReader members_;
};

// Reads a text in pieces, which threads encode line by line while those before them are taken. Objects that take more
// lines than one are left to who takes them.
class JsonAhead {
public:
    // With one thread, or of what has yet to arrive, nothing is encoded ahead.
    JsonAhead(OctetStream &stream, size_t threads);
    ~JsonAhead();
    JsonAhead(const JsonAhead &) = delete;
    JsonAhead &operator=(const JsonAhead &) = delete;

    // Appends what comes next to the text; false at the end.
    bool read(std::string &text);

    // What the object has been encoded to that stands so far behind the beginning of the text, if it has been and is
    // valid. Those in front of it are no longer asked for.
    const EncodedObject *find(uint64_t offset, std::string_view object);

private:
    struct Line {
        uint64_t offset = 0; // of its object in the text
        size_t chars = 0;
        size_t begin = 0; // of its octets
        EncodedObject encoded;
    };

    // Stays where it is: there are views of it.
    struct Piece {
        std::string room;      // for what is read, which is never made smaller
        std::string_view text; // whole lines, unless one is longer
        uint64_t offset = 0;
        JsonEncoder encoder;
        std::vector<uint8_t> octets;
        std::vector<Line> lines;
        size_t next = 0; // of these that may be asked for
        enum class State : uint8_t { waiting, begun, encoded } state = State::waiting;
    };

    bool read_piece(Piece &piece);
    void read_pieces();
    Piece *waiting_piece() const;
    void encode_pieces();
    static void encode_lines(Piece &piece);

    OctetStream &stream_;
    size_t pieces_ahead_ = 0;                  // 0 for none
    std::string rest_;                         // of the last piece, a line that has no end in it
    uint64_t offset_ = 0;                      // behind what has been read
    std::deque<std::unique_ptr<Piece>> taken_; // that have lines, which may be asked for
    std::vector<std::unique_ptr<Piece>> idle_;
    Piece own_; // where nothing is encoded ahead

    std::mutex mutex_; // guards what follows
    std::condition_variable changed_;
    std::deque<std::unique_ptr<Piece>> read_; // in their order
    bool is_over_ = false;
    std::vector<std::thread> encoders_;
};

} // namespace ast::recording
