#include "source/json_file.hpp"

#include <algorithm>
#include <ast.h>

#include "base/letters.hpp"
#include "framing/soundness.hpp"

namespace ast::recording {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kBetweenElements = " \t\r\n,[]";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF"; // which some editors put in front of UTF-8

constexpr size_t kMostBlanks = 4096; // in front of the first object

// Of one object: what the JSON of a record as long as a block may take.
constexpr size_t kMostCharacters = size_t{32} * 1024 * 1024;

// Of one that is still read when the user has seen enough.
constexpr size_t kFewCharacters = size_t{1024} * 1024;

// Few in long texts.
uint64_t feeds_in(std::string_view text) {
    uint64_t feeds = 0;
    for (size_t at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', at + 1)) ++feeds;
    return feeds;
}

// Follows the braces of an object from line to line. No string goes on behind its line.
class Nesting {
public:
    void follow(std::string_view line) {
        bool in_string = false;
        for (size_t i = 0; i < line.size(); ++i) {
            const char c = line[i];
            if (c == '"') in_string = !in_string;
            if (in_string && c == '\\') ++i;
            if (in_string) continue;
            if (c == '{') ++depth_;
            if (c == '}' && depth_ != 0) --depth_;
        }
    }
    bool is_open() const { return depth_ != 0; }

private:
    size_t depth_ = 0;
};

// Of a stream that is not at rest, no more is waited for.
bool has_control(OctetStream &stream) {
    constexpr size_t kHeadOctets = 64;
    const Octets head = stream.is_at_rest() ? stream.peek(kHeadOctets) : stream.peeked();
    return std::ranges::any_of(head, [](uint8_t octet) {
        return octet < ' ' && kBlanks.find(static_cast<char>(octet)) == std::string_view::npos;
    });
}

// Octets that stand for values may be those of another item, or fewer.
bool is_whole_record(Octets octets, uint32_t category) {
    std::vector<uint8_t> block = {static_cast<uint8_t>(category), 0, 0};
    block.insert(block.end(), octets.begin(), octets.end());
    set_block_length(block);
    return !is_known_category(category) || is_read_whole(block);
}

bool begins_array(Octets head) {
    std::string_view text(reinterpret_cast<const char *>(head.data()), head.size());
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    const size_t begin = text.find_first_not_of(kBlanks);
    return begin != std::string_view::npos && text[begin] == '[';
}

// Goes to where the reading of a range begins. The elements of an array may all stand in one line, and are read from
// its beginning. Whether the objects are elements of an array, where that is known then.
std::optional<bool> go_to(OctetStream &stream, const OctetRange &range) {
    if (range.start() == 0 || begins_array(stream.peek(kMostBlanks))) return std::nullopt;
    stream.go_to(range.start());
    return false;
}

} // namespace

bool begins_json(OctetStream &stream) {
    const Octets mark = stream.peek(kByteOrderMark.size());
    const bool is_marked =
        std::ranges::equal(mark, kByteOrderMark, {}, {}, [](char c) { return static_cast<uint8_t>(c); });
    bool in_object = false, in_array = false;
    for (size_t i = is_marked ? kByteOrderMark.size() : 0; i < kMostBlanks; ++i) {
        const Octets head = stream.peek(i + 1);
        if (head.size() <= i) return false;
        const char c = static_cast<char>(head[i]);
        if (kBlanks.find(c) != std::string_view::npos) continue;
        if (in_object) return (c == '"' || c == '}') && !has_control(stream);
        if (c != '{' && (c != '[' || in_array)) return false;
        (c == '[' ? in_array : in_object) = true;
    }
    return false;
}

JsonFile::JsonFile(OctetStream &stream, size_t threads, const OctetRange &range)
    : stream_(stream),
      range_(range),
      is_array_(go_to(stream, range)),
      ahead_(stream, threads),
      offset_(stream.consumed()) {}

// Behind the range, records are only those of a block that begins in it.
bool JsonFile::is_behind_range() const {
    return offset_ >= range_.end && (!block_ || block_->datagram.offset >= range_.end);
}

bool JsonFile::fill(Chunk &chunk) {
    const auto is_empty = [&] { return chunk.datagrams().empty() && chunk.reports().empty(); };
    const uint64_t begin = offset_;
    const auto has_room = [&] { return !chunk.is_full() && (is_empty() || offset_ - begin < chunk.limit()); };
    while ((has_room() || goes_on_together(chunk)) && !is_behind_range()) {
        const std::string_view object = is_array() ? next_element() : next_object();
        if (object.empty() || is_too_late(object.size())) {
            close_block(chunk);
            break;
        }
        const size_t before = is_array() ? std::min(object.find_first_not_of(kBetweenElements), object.size()) : 0;
        pass(object.substr(0, before));
        take(object.substr(before), chunk);
        pass(object.substr(before));
        if (!is_empty() && !has_line() && !stream_.is_ready()) break;
    }
    return !is_empty();
}

void JsonFile::pass(std::string_view text) {
    if (text.empty()) return;
    const size_t feed = text.rfind('\n');
    column_ = feed == std::string_view::npos ? column_ + text.size() : text.size() - feed - 1;
    if (offset_ >= range_.begin) line_ += feeds_in(text);
    offset_ += text.size();
    begin_ += text.size();
    encoded_text_ = {};
}

// Whether the objects are the elements of one array, instead of standing for themselves.
bool JsonFile::is_array() {
    if (is_array_) return *is_array_;
    std::string_view rest;
    size_t begin = 0;
    do {
        rest = text_;
        if (rest.starts_with(kByteOrderMark)) rest.remove_prefix(kByteOrderMark.size());
        begin = rest.find_first_not_of(kBlanks);
    } while (begin == std::string_view::npos && read());
    is_array_ = begin != std::string_view::npos && rest[begin] == '[';
    if (rest.size() != text_.size()) pass(kByteOrderMark);
    column_ = 0;
    return *is_array_;
}

// To the brace that closes it, with all that stands before it; or to a line that begins with another one.
std::string_view JsonFile::next_element() {
    size_t depth = 0;
    bool in_string = false, is_escaped = false;
    for (size_t at = 0; at < kMostCharacters; ++at) {
        if (begin_ + at == text_.size() && (is_too_late(at) || !read()))
            return std::string_view(text_).substr(begin_, at);
        const char c = text_[begin_ + at];
        const bool begins_line = at != 0 && text_[begin_ + at - 1] == '\n';
        if (depth != 0 && begins_line && c == '{') return std::string_view(text_).substr(begin_, at);
        if (c == '\n') in_string = is_escaped = false; // no string goes on behind its line
        if (in_string) {
            in_string = is_escaped || c != '"';
            is_escaped = !is_escaped && c == '\\';
            continue;
        }
        if (c == '"') in_string = true;
        if (c == '{') ++depth;
        if (c == '}' && depth != 0 && --depth == 0) return std::string_view(text_).substr(begin_, at + 1);
    }
    return std::string_view(text_).substr(begin_, kMostCharacters);
}

// To the end of the line that closes it, or to a line that begins another: a brace that is missing costs no more than
// its own object. Empty at the end of the input.
std::string_view JsonFile::next_object() {
    Nesting nesting;
    size_t size = 0;
    do {
        const size_t begin = size;
        size = end_of_line(begin);
        if (size == begin || is_too_late(size)) break;
        if (begin == 0 && is_record(std::string_view(text_).substr(begin_, size))) break;
        if (begin != 0 && text_[begin_ + begin] == '{') {
            size = begin;
            break;
        }
        nesting.follow(std::string_view(text_).substr(begin_ + begin, size - begin));
    } while (nesting.is_open() && size < kMostCharacters);
    return std::string_view(text_).substr(begin_, size);
}

// Most lines are one object each, whose braces need not be followed: who encodes it finds that out.
bool JsonFile::is_record(std::string_view line) {
    line = without_blanks_behind(line);
    return line.ends_with('}') && line.size() < kMostCharacters && encode(line).result.valid;
}

// What has been encoded before is not encoded again.
const EncodedObject &JsonFile::encode(std::string_view object) {
    if (const EncodedObject *const ahead = ahead_.find(offset_, object)) return *ahead;
    if (object.data() != encoded_text_.data() || object.size() != encoded_text_.size())
        encoded_ = encoder_.encode(encoded_text_ = object);
    return encoded_;
}

bool JsonFile::is_too_late(size_t characters) const { return characters > kFewCharacters && stream_.cut_off(); }

// Behind the line that begins `from` characters behind what has been taken; `from` at the end.
size_t JsonFile::end_of_line(size_t from) {
    for (size_t searched = from;;) {
        const size_t feed = text_.find('\n', begin_ + searched);
        if (feed != std::string::npos) return feed + 1 - begin_;
        searched = text_.size() - begin_;
        if (searched >= kMostCharacters || !read()) return searched;
    }
}

bool JsonFile::read() {
    text_.erase(0, begin_);
    begin_ = 0;
    encoded_text_ = {};
    return ahead_.read(text_);
}

void JsonFile::take(std::string_view object, Chunk &chunk) {
    // It would take longer to find out what of it is wrong than anybody waits.
    if (object.size() >= kMostCharacters) return report(object, 0, {}, "is longer than a record can be", chunk);
    const bool is_line = object.ends_with('\n');
    object = object.substr(0, object.find_last_not_of(is_array() ? kBetweenElements : kBlanks) + 1);
    if (object.empty()) return;
    const auto &[result, octets, members] = encode(object);
    // What was about to be written when the user had seen enough is no damage.
    if (!result.valid && stream_.cut_off() && !is_line) return;
    if (!result.valid)
        return report(object, result.position, result.path,
                      result.error ? result.error : "is more than a block can hold", chunk);
    if (members.error) return report(object, members.position, members.wrong_path, members.error, chunk);
    if (members.has_octets && !result.is_data && !is_whole_record(octets, result.category))
        return report(object, 0, "octets", "make no whole record", chunk);
    if (result.is_data && result.block == 0) {
        close_block(chunk);
        if (!range_.holds(offset_)) return;
        Datagram datagram = datagram_of(members, chunk.keep(octets));
        datagram.is_no_block = true;
        chunk.add(datagram);
        return;
    }
    const bool goes_on = block_ && result.block != 0 && block_->number == result.block &&
                         block_->octets[0] == result.category && block_->file == members.file &&
                         block_->octets.size() + result.size <= kMaxBlockOctets;
    if (!goes_on) {
        close_block(chunk);
        block_.emplace(Block{.number = result.block,
                             .file = std::string(members.file),
                             .octets = {static_cast<uint8_t>(result.category), 0, 0},
                             .datagram = datagram_of(members, {})});
    }
    block_->octets.insert(block_->octets.end(), octets.begin(), octets.end());
    if (result.block == 0) close_block(chunk); // nothing that follows belongs to it
}

// Blocks that follow each other with the same time and way came in one datagram.
Datagram JsonFile::datagram_of(const JsonMembers &members, Octets octets) {
    Datagram datagram{.octets = octets, .offset = offset_, .time = members.time};
    if (members.source && members.destination) datagram.endpoints = Endpoints{*members.source, *members.destination};
    if (datagram.time && datagram.endpoints) {
        const bool is_same = last_.time == datagram.time && last_.endpoints == datagram.endpoints;
        datagram.together = last_.together + (is_same ? 0 : 1);
        last_.together = datagram.together;
    }
    last_.time = datagram.time;
    last_.endpoints = datagram.endpoints;
    return datagram;
}

bool JsonFile::goes_on_together(const Chunk &chunk) const {
    return block_ && !chunk.datagrams().empty() && block_->datagram.is_same_as(chunk.datagrams().back());
}

void JsonFile::report(std::string_view object, uint64_t position, std::string_view path, const char *error,
                      Chunk &chunk) {
    if (!range_.holds(offset_)) return;
    const std::string_view before = object.substr(0, static_cast<size_t>(position));
    const size_t feed = before.rfind('\n');
    chunk.reports().line(line_ + feeds_in(before),
                         feed == std::string_view::npos ? column_ + before.size() + 1 : before.size() - feed, path,
                         error);
}

void JsonFile::close_block(Chunk &chunk) {
    if (block_ && !range_.holds(block_->datagram.offset)) block_.reset();
    if (!block_) return;
    std::vector<uint8_t> &octets = block_->octets;
    set_block_length(octets);
    block_->datagram.octets = chunk.keep(octets);
    chunk.add(block_->datagram);
    block_.reset();
}

} // namespace ast::recording
