// How programs read recordings, by every function of the interface. All ways to read the same octets, by the caller, by
// threads and once more, hand over the same blocks and report the same at the same places. The input begins with
// choices: options, what the rest is wrapped in, and where the reading is broken off.

#include <algorithm>
#include <array>
#include <ast_recording.h>
#include <limits>
#include <memory>
#include <string>
#include <zlib.h>

#include "splits.hpp"

namespace ast_fuzz {

namespace {

using Bytes = std::vector<uint8_t>;

// ---- What the rest of the input is wrapped in ----

void put(Bytes &to, Octets octets) {
    const size_t had = to.size();
    to.resize(had + octets.size());
    std::ranges::copy(octets, to.data() + had);
}

void put_big(Bytes &to, uint64_t number, size_t octets) {
    std::array<uint8_t, sizeof number> digits;
    for (size_t i = 0; i < octets; ++i) digits[i] = static_cast<uint8_t>(number >> 8 * (octets - 1 - i));
    put(to, Octets(digits).first(octets));
}

// An IPv4 packet; of UDP, or a segment of TCP.
Bytes packet_of(Octets payload, bool is_tcp, uint32_t sequence) {
    constexpr uint8_t kTcp = 6, kUdp = 17;
    const uint64_t header = is_tcp ? 20 : 8;
    Bytes packet;
    put_big(packet, 0x4500, 2);
    put_big(packet, 20 + header + payload.size(), 2);
    put(packet, std::array<uint8_t, 5>{0, 0, 0, 0, 64});
    put_big(packet, is_tcp ? kTcp : kUdp, 1);
    put(packet, std::array<uint8_t, 14>{0, 0, 192, 0, 2, 1, 192, 0, 2, 2, 0x21, 0x98, 0x21, 0x98});
    if (is_tcp) {
        put_big(packet, sequence, 4);
        put(packet, std::array<uint8_t, 12>{0, 0, 0, 0, 0x50, 0x18, 0xFF, 0xFF, 0, 0, 0, 0});
    } else {
        put_big(packet, header + payload.size(), 2);
        put_big(packet, 0, 2);
    }
    put(packet, payload);
    return packet;
}

constexpr uint32_t kLinkTypeIp = 101;
constexpr uint64_t kMostCaptured = 65535;
constexpr uint32_t kFirstSecond = 1717243200; // 2024-06-01 12:00

class Pcap {
public:
    explicit Pcap(Bytes &file) : file_(file) {
        put(file_, std::array<uint8_t, 16>{0xA1, 0xB2, 0xC3, 0xD4, 0, 2, 0, 4});
        put_big(file_, kMostCaptured, 4);
        put_big(file_, kLinkTypeIp, 4);
    }
    void add(Octets packet, uint32_t second) {
        put_big(file_, kFirstSecond + second, 4);
        put_big(file_, 0, 4);
        for (int i = 0; i < 2; ++i) put_big(file_, packet.size(), 4);
        put(file_, packet);
    }

private:
    Bytes &file_;
};

class Pcapng {
public:
    explicit Pcapng(Bytes &file) : file_(file) {
        constexpr uint32_t kSection = 0x0A0D0D0A, kInterface = 1;
        Bytes section = {0x1A, 0x2B, 0x3C, 0x4D, 0, 1, 0, 0};
        section.resize(16, 0xFF);
        add_block(kSection, section);
        Bytes interface;
        put_big(interface, kLinkTypeIp, 2);
        put_big(interface, 0, 6);
        add_block(kInterface, interface);
    }
    void add(Octets packet, uint32_t second) {
        constexpr uint32_t kEnhancedPacket = 6;
        constexpr uint64_t kMicroseconds = 1'000'000;
        Bytes content(4);
        put_big(content, (uint64_t{kFirstSecond} + second) * kMicroseconds, 8);
        for (int i = 0; i < 2; ++i) put_big(content, packet.size(), 4);
        put(content, packet);
        content.resize((content.size() + 3) / 4 * 4);
        add_block(kEnhancedPacket, content);
    }

private:
    void add_block(uint32_t type, Octets content) {
        const uint64_t length = content.size() + 12;
        put_big(file_, type, 4);
        put_big(file_, length, 4);
        put(file_, content);
        put_big(file_, length, 4);
    }

    Bytes &file_;
};

// A block of category 048 that is in order: one record of Mode S registers, which are long and quickly read.
Bytes block_of(uint8_t registers) {
    constexpr size_t kRegisterOctets = 8;
    Bytes block;
    put_big(block, 48, 1);
    put_big(block, 6 + kRegisterOctets * registers, 2);
    put(block, std::array<uint8_t, 3>{0x01, 0x20, registers});
    block.resize(block.size() + kRegisterOctets * registers);
    return block;
}

// Blocks that almost fill what is read at a time: up to two thousand octets are missing, the fewer the longer the last
// block is.
std::vector<Bytes> lead_of(uint8_t registers_of_last) {
    std::vector<Bytes> lead(31, block_of(0xFF));
    lead.push_back(block_of(registers_of_last));
    return lead;
}

// How octets become packets.
struct Packets {
    bool is_tcp;
    size_t payload; // octets of each
    size_t missing; // one of so many is
    size_t swapped; // one of so many comes behind the next one
};

Packets take_packets(Input &input, bool is_tcp) {
    return {.is_tcp = is_tcp,
            .payload = size_t{1} + input.below(1400),
            .missing = size_t{2} + input.octet(),
            .swapped = size_t{2} + input.octet()};
}

template <typename Capture>
Bytes capture_of(const std::vector<Bytes> &lead, Octets octets, const Packets &how) {
    Bytes file;
    Capture capture(file);
    Bytes late; // a packet that comes behind the next one
    uint32_t second = 0;
    uint32_t sequence = 0;
    size_t count = 0;
    for (const Bytes &block : lead) {
        capture.add(packet_of(block, how.is_tcp, sequence), second++);
        sequence += static_cast<uint32_t>(block.size());
    }
    for (size_t place = 0; place < octets.size(); place += how.payload) {
        const Octets payload = octets.subspan(place, std::min(how.payload, octets.size() - place));
        if (++count % how.missing == 0) continue;
        Bytes packet = packet_of(payload, how.is_tcp, sequence + static_cast<uint32_t>(place));
        if (count % how.swapped == 0) {
            late.swap(packet);
            continue;
        }
        capture.add(packet, second++);
        if (!late.empty()) capture.add(std::exchange(late, {}), second++);
    }
    if (!late.empty()) capture.add(late, second);
    return file;
}

// Without its end, when the last octets are to be cut off.
Bytes gzip_of(const Bytes &octets, size_t cut_off) {
    constexpr int kGzip = 16, kSmallestWindow = 9, kLeastMemory = 1;
    z_stream stream{};
    require(deflateInit2(&stream, 1, Z_DEFLATED, kGzip + kSmallestWindow, kLeastMemory, Z_DEFAULT_STRATEGY) == Z_OK,
            "there is memory for gzip");
    Bytes packed(deflateBound(&stream, octets.size()));
    stream.next_in = const_cast<Bytef *>(octets.data());
    stream.avail_in = static_cast<uInt>(octets.size());
    stream.next_out = packed.data();
    stream.avail_out = static_cast<uInt>(packed.size());
    require(deflate(&stream, Z_FINISH) == Z_STREAM_END, "anything can be compressed");
    packed.resize(packed.size() - stream.avail_out);
    deflateEnd(&stream);
    packed.resize(packed.size() - std::min(cut_off, packed.size()));
    packed.shrink_to_fit();
    return packed;
}

enum Wrapper : uint8_t { kNone, kUdpPcap, kTcpPcap, kUdpPcapng, kTcpPcapng, kWrappers };

Bytes wrap(uint8_t wrapper, const Packets &how, const std::vector<Bytes> &lead, Octets octets) {
    if (wrapper == kUdpPcapng || wrapper == kTcpPcapng) return capture_of<Pcapng>(lead, octets, how);
    if (wrapper != kNone) return capture_of<Pcap>(lead, octets, how);
    Bytes file;
    for (const Bytes &block : lead) put(file, block);
    put(file, octets);
    return file;
}

// ---- Choices ----

constexpr const char *kFramings[] = {nullptr,  "auto", "raw",     "final", "gps",
                                     "oradis", "hdlc", "mac-llc", "hex",   "json"};
constexpr const char *kProfiles[] = {nullptr, "auto", "standard", "cat021-2.1", "cat001-plot", "published"};
constexpr const char *kCategories[] = {nullptr, "", "34,48", "1-21", "62", "0-255"};
constexpr const char *kPorts[] = {nullptr, nullptr, "8600", "1-8599"};
constexpr const char *kHosts[] = {nullptr, nullptr, "192.0.2.0/31", "2001:db8::/32"};
constexpr const char *kTimes[] = {nullptr, nullptr, "2024-06-01T12:00:03Z", "12:00:02", "00:00"};

constexpr const char *kColumnCategories[] = {nullptr, "48", "62", "21", "1", "4", "34", "240"};

template <size_t Count>
const char *choose(const char *const (&texts)[Count], Input &input) {
    return texts[input.octet() % Count];
}

// Where a reading ends.
constexpr uint64_t kNever = std::numeric_limits<uint64_t>::max();

// Blocks and reports of a reading that are looked at from all sides; many are much alike.
constexpr uint64_t kClosely = 40;

struct Choices {
    ast_recording_options_t options{};
    bool is_plain = false;          // neither wrapped nor compressed
    bool takes_all = false;         // blocks
    bool is_raw = false;            // by what is asked for
    uint64_t interrupt_at = kNever; // a number of blocks
    bool interrupts_in_report = false;
    uint64_t capacity = 0; // of texts
    uint32_t timeout_ms = 0;
    const char *columns = nullptr; // of one category, where that is named
    const char *category = nullptr;
    ast_recording_report_t forged{}; // whatever it says
};

Choices take_options(Input &input) {
    Choices choices;
    ast_recording_options_t &options = choices.options;
    options.framing = choose(kFramings, input);
    options.profile = choose(kProfiles, input);
    options.categories = choose(kCategories, input);
    options.ports = choose(kPorts, input);
    options.hosts = choose(kHosts, input);
    options.from = choose(kTimes, input);
    options.to = choose(kTimes, input);
    choices.is_raw = options.framing && std::strcmp(options.framing, "raw") == 0;
    choices.takes_all = (!options.categories || !*options.categories || options.categories == kCategories[5]) &&
                        !options.ports && !options.hosts && !options.from && !options.to;
    choices.interrupt_at = input.octet() % 16;
    choices.interrupts_in_report = (input.octet() & 1) != 0;
    choices.capacity = input.octet();
    const uint8_t last = input.octet();
    choices.timeout_ms = last & 1;
    choices.category = kColumnCategories[last / 2 % std::size(kColumnCategories)];
    choices.columns = choices.category ? "all" : "common,file,received,I010/SAC,I250/MCP_ALT,I250[1]/TRACK";
    return choices;
}

// ---- Reading ----

// What a reading hands over and reports, one after the other, as octets that compare.
class Transcript {
public:
    template <typename... Values>
    void put(char what, const Values &...values) {
        begins_.push_back(text_.size());
        text_.push_back(what);
        (append(values), ...);
    }
    bool operator==(const Transcript &) const = default;
    bool begins(const Transcript &other) const {
        return other.text_.starts_with(text_) && begins_.size() <= other.begins_.size();
    }

private:
    template <typename Value>
    void append(const Value &value) {
        if constexpr (std::is_convertible_v<Value, std::string_view>) {
            const std::string_view text(value);
            append(text.size());
            text_.append(text);
        } else {
            static_assert(std::has_unique_object_representations_v<Value>);
            text_.append(reinterpret_cast<const char *>(&value), sizeof value);
        }
    }
    void append(bool value) { text_.push_back(value ? 1 : 0); }
    void append(const ast_endpoint_t &end) {
        text_.append(reinterpret_cast<const char *>(end.octets), sizeof end.octets);
        append(uint64_t{end.family} << 48 | uint64_t{end.port} << 32 | end.scope);
    }

    std::string text_;
    std::vector<size_t> begins_;
};

// A text that a function writes into so much room: as much of it as there is room for.
template <typename Write>
std::string check_text(uint64_t capacity, Write write) {
    constexpr uint64_t kRoom = 8;
    std::string whole(write(nullptr, 0), '\0');
    require(write(whole.data(), whole.size() + 1) == whole.size(), "a text has another length the second time");
    require(std::strlen(whole.c_str()) == whole.size(), "a text ends before its end");
    std::vector<uint8_t> part = buffer_of(capacity + kRoom);
    require(write(reinterpret_cast<char *>(part.data()), capacity) == whole.size(), "a length depends on the capacity");
    const uint64_t written = capacity == 0 ? 0 : std::min<uint64_t>(whole.size(), capacity - 1) + 1;
    require_untouched_behind(part, written);
    if (written == 0) return whole;
    require(part[written - 1] == 0 && std::memcmp(part.data(), whole.data(), written - 1) == 0, "a text is cut badly");
    return whole;
}

std::string text_of(const ast_endpoint_t &endpoint, uint64_t capacity) {
    const std::string text =
        check_text(capacity, [&](char *to, uint64_t room) { return ast_endpoint_to_text(to, room, &endpoint); });
    require(text.size() < AST_ENDPOINT_TEXT_OCTETS, "an endpoint takes more room than the header says");
    return text;
}

std::string text_of(int64_t time_ns, uint64_t capacity) {
    const std::string text =
        check_text(capacity, [&](char *to, uint64_t room) { return ast_time_to_text(to, room, time_ns); });
    require(text.size() < AST_TIME_TEXT_OCTETS, "a time takes more room than the header says");
    return text;
}

void put_texts(Transcript &transcript, const ast_recording_report_t &report, uint64_t capacity) {
    for (const auto &write :
         {ast_recording_report_to_text, ast_recording_report_get_place, ast_recording_report_get_cause})
        transcript.put('t', check_text(capacity, [&](char *to, uint64_t room) { return write(to, room, &report); }));
}

// One reading, from opening to closing.
class Reading {
public:
    enum class End { reached, closed, interrupted };

    Reading(Octets octets, const Choices &choices, uint32_t threads) : choices_(choices), octets_(octets) {
        ast_recording_options_t options = choices.options;
        options.threads = threads;
        options.report = [](void *self, const ast_recording_report_t *report) {
            static_cast<Reading *>(self)->take(*report);
        };
        options.context = this;
        ast_recording_error_t error;
        recording_.reset(ast_recording_open_octets(octets.data(), octets.size(), "in", &options, &error));
        require((recording_ != nullptr) == (error.code == AST_RECORDING_ERROR_NONE), "an error is not told");
        require(recording_ != nullptr, "options that have a meaning are refused");
    }

    // Up to a number of blocks.
    void read(uint64_t most, End end, bool by_timeout) {
        while (blocks_ < most && next(by_timeout)) take(block_);
        if (blocks_ < most) return check_end(AST_RECORDING_ENDED);
        if (end != End::interrupted) return;
        ast_recording_interrupt(recording_.get());
        std::memset(static_cast<void *>(&block_), 0xA5, sizeof block_);
        require(!next(by_timeout), "a block is handed over behind an interruption");
        check_end(AST_RECORDING_INTERRUPTED);
    }

    // Interrupted by its first report.
    void read_up_to_report() {
        interrupts_ = true;
        while (next(false)) {
            require(reports_ == 0, "a block is handed over behind an interruption");
            take(block_);
        }
        check_end(reports_ == 0 ? AST_RECORDING_ENDED : AST_RECORDING_INTERRUPTED);
    }

    const Transcript &transcript() const { return transcript_; }
    uint64_t blocks() const { return blocks_; }
    uint64_t records() const { return records_; }

    // Of a file of blocks back to back: what was neither a block nor reported.
    void require_all_covered() const {
        require(covered_ == octets_.size(), "octets are neither in a block nor reported");
    }

    struct Close {
        void operator()(ast_recording_t *recording) const { ast_recording_close(recording); }
    };

private:
    bool next(bool by_timeout) {
        if (!by_timeout) return ast_recording_next(recording_.get(), &block_);
        constexpr uint32_t kLong_ms = 1000;
        for (uint32_t timeout_ms = choices_.timeout_ms;; timeout_ms = kLong_ms) {
            if (ast_recording_next_within(recording_.get(), &block_, timeout_ms)) return true;
            if (ast_recording_get_state(recording_.get(), nullptr) != AST_RECORDING_QUIET) return false;
            require(block_.octets == nullptr, "silence has octets");
        }
    }

    void cover(uint64_t offset, uint64_t octets) {
        if (!choices_.is_raw || !choices_.is_plain || !choices_.takes_all) return;
        require(offset == covered_, "octets are told twice or not at all");
        covered_ += octets;
    }

    void take(const ast_recording_report_t &report) {
        ++reports_;
        require(report.kind < AST_REPORT_KINDS && *ast_recording_report_kind_to_str(report.kind) != 0,
                "a report has no kind");
        ++kinds_[report.kind];
        require(report.count > 0, "a report is of nothing");
        if (report.reason >= AST_REASON_SHORT_HEADER && report.reason <= AST_REASON_NO_BLOCKS)
            cover(report.offset, report.octets);
        transcript_.put('r', report.kind, report.reason, report.file, report.count, report.packet, report.offset,
                        report.octets, report.available, report.length, report.category, report.sender, report.receiver,
                        report.detail, report.line, report.character, report.path);
        transcript_.put('b', report.block, report.record, report.items, report.split_reason, report.end,
                        report.broken_frn, report.broken_type);
        if (reports_ <= kClosely) put_texts(transcript_, report, choices_.capacity);
        if (interrupts_) ast_recording_interrupt(recording_.get());
    }

    void take(const ast_recording_block_t &block) {
        ++blocks_;
        records_ += block.records;
        const Octets octets{block.octets, block.length};
        require(octets.size() >= 3 && octets.size() == (size_t{octets[1]} << 8 | octets[2]), "a block is not whole");
        require(block.read.category == octets[0] && block.read.length == octets.size(), "a block is read as another");
        require(block.read.valid == (block.state == AST_BLOCK_WHOLE) && block.state <= AST_BLOCK_OTHER_TRAFFIC,
                "a block is in a state of its own");
        require(block.number > number_ && block.datagram >= datagram_ && block.packet >= packet_,
                "blocks are not in their order");
        require(block.input == 0 && std::strcmp(block.file, "in") == 0, "a block is of another input");
        number_ = block.number;
        datagram_ = block.datagram;
        packet_ = block.packet;
        cover(block.offset, block.length);
        const std::string_view content(reinterpret_cast<const char *>(octets.data()), octets.size());
        transcript_.put('B', content, block.records, block.number, block.datagram, block.packet, block.offset,
                        block.time_ns, block.sender, block.receiver, block.state);
        transcript_.put('R', block.read.valid, block.read.uap, block.read.profile, block.read.edition,
                        block.read.ambiguous, block.read.category, block.read.length, block.read.reason, block.read.end,
                        block.read.broken_frn, block.read.broken_type);
        if (blocks_ > kClosely) return;
        transcript_.put('T', text_of(block.time_ns, choices_.capacity), text_of(block.sender, choices_.capacity),
                        text_of(block.receiver, choices_.capacity));
        put_state();
        check_records(block);
    }

    void put_state() {
        ast_recording_state_t state;
        require(ast_recording_get_state(recording_.get(), &state) == state.phase, "there are two phases");
        require(state.blocks == blocks_ && std::ranges::equal(state.reports, kinds_), "the state counts otherwise");
        require((state.phase == AST_RECORDING_FAILED) == (state.error.code != AST_RECORDING_ERROR_NONE),
                "a failure has no reason, or none is meant by one");
        require(state.file && std::strcmp(state.file, "in") == 0 && state.framing, "the input has no name");
        // How far it is read ahead is not the same by threads and without them.
        transcript_.put('S', state.phase, state.framing, state.file_octets, state.error.code, state.error.text);
    }

    // The records one by one are those of the whole block, as far as that has room.
    void check_records(const ast_recording_block_t &block) {
        static ast_datablock_t decoded; // large
        ast_datarecord_t record;
        const bool is_valid = ast_recording_decode(recording_.get(), &decoded);
        require(is_valid == decoded.valid && decoded.record_count <= block.records, "decoding gives more records");
        require(!is_valid || (block.read.valid && decoded.record_count == block.records), "decoding finds more valid");
        require(is_valid || !block.read.valid || block.records > AST_DATABLOCK_MAX_RECORDS,
                "decoding finds it invalid");
        require(decoded.record_count == std::min<uint64_t>(block.records, AST_DATABLOCK_MAX_RECORDS),
                "decoding gives fewer records");
        const uint8_t *place = block.octets + 3;
        for (uint64_t i = 0; i < block.records; ++i) {
            require(ast_recording_get_record(recording_.get(), i, &record), "a record that can be read is not given");
            require(record.valid && record.data == place && record.size > 0, "records do not follow each other");
            place += record.size;
            if (i >= decoded.record_count) continue;
            const ast_datarecord_t &same = decoded.records[i];
            require(record.data == same.data && record.size == same.size && record.category == same.category &&
                        std::equal(record.items, record.items + record.item_count, same.items,
                                   same.items + same.item_count, same_item),
                    "a record is not the one of the decoded block");
        }
        require(place <= block.octets + block.length && (!block.read.valid || place == block.octets + block.length),
                "records do not fill their block");
        require(!ast_recording_get_record(recording_.get(), block.records, &record), "there is one record more");
    }

    void check_end(uint32_t phase) {
        ast_recording_state_t state;
        ast_recording_get_state(recording_.get(), &state);
        const bool has_failed = phase == AST_RECORDING_ENDED && state.phase == AST_RECORDING_FAILED;
        require(state.phase == phase || has_failed, "the end is another one");
        require(has_failed == (kinds_[AST_REPORT_UNREADABLE] != 0) || phase != AST_RECORDING_ENDED,
                "a failure is not reported");
        require(block_.octets == nullptr && block_.length == 0 && block_.number == 0, "the end has a block");
        ast_datarecord_t record;
        static ast_datablock_t decoded; // large
        require(!next(false) && !next(true) && !ast_recording_get_record(recording_.get(), 0, &record) &&
                    !ast_recording_decode(recording_.get(), &decoded),
                "there is something behind the end");
        require(ast_recording_get_state(recording_.get(), nullptr) == state.phase, "the end does not stay");
        if (phase == AST_RECORDING_ENDED && !interrupts_) put_state();
    }

    const Choices &choices_;
    Octets octets_;
    Transcript transcript_;
    ast_recording_block_t block_{};
    uint64_t blocks_ = 0;
    uint64_t records_ = 0;
    uint64_t reports_ = 0;
    std::array<uint64_t, AST_REPORT_KINDS> kinds_{};
    uint64_t number_ = 0, datagram_ = 0, packet_ = 0; // of the last block
    uint64_t covered_ = 0;
    bool interrupts_ = false;
    std::unique_ptr<ast_recording_t, Close> recording_;
};

// ---- Columns ----

// A column is as long as its parent says, and what it refers to is there.
void check_column(const ArrowSchema &schema, const ArrowArray &array, int64_t length) {
    const std::string_view format = schema.format;
    const auto at = [&](int64_t place) { return static_cast<const int32_t *>(array.buffers[1])[place]; };
    require(array.length == length && array.null_count >= 0 && array.null_count <= length, "a column is too short");
    require((array.dictionary != nullptr) == (schema.dictionary != nullptr), "a column has another dictionary");
    if (array.dictionary)
        for (int64_t row = 0; row < length; ++row)
            require(at(row) >= 0 && (at(row) < array.dictionary->length || array.null_count != 0),
                    "a code has no text");
    for (int64_t row = 0; format == "+l" && row < length; ++row)
        require(at(row) <= at(row + 1), "a list ends before it begins");
    require(array.n_children == schema.n_children, "a column has other children");
    for (int64_t i = 0; i < array.n_children; ++i)
        check_column(*schema.children[i], *array.children[i], format == "+l" ? at(length) : length);
}

// Each record is a row.
void check_columns(Octets octets, const Choices &choices, uint64_t records) {
    ast_recording_options_t options = choices.options;
    const std::unique_ptr<ast_recording_t, Reading::Close> recording(
        ast_recording_open_octets(octets.data(), octets.size(), "in", &options, nullptr));
    const uint64_t most = choices.capacity + 1;
    const ast_columns_options_t asked = {.columns = choices.columns, .categories = choices.category, .rows = most};
    ArrowArrayStream stream;
    ArrowSchema schema;
    ArrowArray batch;
    require(ast_columns_get_stream(recording.get(), &asked, &stream, nullptr), "columns are refused");
    require(stream.get_schema(&stream, &schema) == 0, "there is no schema");
    uint64_t rows = 0;
    while (stream.get_next(&stream, &batch) == 0 && batch.release) {
        const auto length = static_cast<uint64_t>(batch.length);
        require(length != 0 && length <= most, "a batch is too long");
        check_column(schema, batch, batch.length);
        rows += length;
        batch.release(&batch);
    }
    schema.release(&schema);
    stream.release(&stream);
    require(choices.category ? rows <= records : rows == records, "records are no rows");
}

void check_readings(Octets octets, const Choices &choices) {
    constexpr auto kReached = Reading::End::reached;
    Reading plain(octets, choices, 0);
    plain.read(kNever, kReached, false);
    if (choices.is_raw && choices.is_plain && choices.takes_all) plain.require_all_covered();
    check_columns(octets, choices, plain.records());
    for (const uint32_t threads : {0U, 2U}) {
        Reading other(octets, choices, threads);
        other.read(kNever, kReached, true);
        require(other.transcript() == plain.transcript(),
                threads == 0 ? "a second reading is another one" : "threads make another reading");
        const uint64_t most = std::min(choices.interrupt_at, plain.blocks());
        Reading part(octets, choices, threads);
        part.read(most, choices.interrupts_in_report ? Reading::End::closed : Reading::End::interrupted, false);
        require(part.transcript().begins(plain.transcript()), "what an interruption leaves is another reading");
        if (choices.interrupts_in_report) Reading(octets, choices, threads).read_up_to_report();
    }
}

// A report need not come from the library.
void check_forged(Input &input) {
    auto report = input.number<ast_recording_report_t>();
    report.file = report.detail = report.path = "text";
    Transcript ignored;
    put_texts(ignored, report, report.count % 64);
    require(ast_recording_report_kind_to_str(report.kind) != nullptr, "a kind has no word");
    text_of(report.sender, report.count % 64);
    text_of(static_cast<int64_t>(report.offset), report.count % 64);
}

} // namespace

void run(Input input) {
    ast_log_handler_reg([](uint32_t, const char *) -> int32_t { fail("something is written to the log"); });
    Choices choices = take_options(input);
    const uint8_t wrapper = input.octet() % kWrappers;
    const Packets packets = take_packets(input, wrapper == kTcpPcap || wrapper == kTcpPcapng);
    const uint8_t packing = input.octet();
    const uint8_t leading = input.octet(); // 0 for no blocks in front
    Input forger = input;
    check_forged(forger);
    const std::vector<Bytes> lead = leading == 0 ? std::vector<Bytes>() : lead_of(leading);
    Bytes file = wrap(wrapper, packets, lead, input.rest());
    const bool is_packed = (packing & 1) != 0;
    if (is_packed) file = gzip_of(file, (packing & 2) != 0 ? packing / 4 : 0);
    choices.is_plain = wrapper == kNone && !is_packed;
    file.shrink_to_fit();
    check_readings(file, choices);
}

} // namespace ast_fuzz
