#include "damage.hpp"

#include <cstdio>

#include "framing/framing.hpp"
#include "text.hpp"

namespace astdump {

namespace {

// "packet 12, octet 40" of its payload in a capture, "offset 1234" in a raw file.
std::string place_text(const Datagram &datagram, uint64_t offset) {
    if (datagram.packet == 0) return "offset " + std::to_string(datagram.offset + offset);
    return "packet " + std::to_string(datagram.packet) + ", octet " + std::to_string(datagram.offset + offset);
}

std::string category_text(uint32_t category) {
    char text[16];
    std::snprintf(text, sizeof text, "category %03u", category);
    return text;
}

// Octets that no LEN of a block can be read from.
bool has_length(const Frame &frame, Octets octets) {
    const bool is_wrong = frame.framing == Framing::short_length || frame.framing == Framing::past_end;
    return is_wrong && has_published_category(octets) && !is_text(octets);
}

std::string what_they_are(Octets octets) { return is_text(octets) ? "of text" : "that are no blocks"; }

std::string framing_reason(const Frame &frame, Octets octets) {
    if (frame.framing == Framing::short_header) return "too few octets for a block header";
    if (!has_length(frame, octets)) return "octets " + what_they_are(octets);
    return category_text(frame.category) +
           (frame.framing == Framing::short_length ? ": LEN is less than the block header" : ": LEN runs past the end");
}

struct BlockKind {
    Kind kind;
    Losses losses;
};

constexpr BlockKind kDamaged = {Kind::damaged, {.invalid = 1}};
constexpr BlockKind kUnsupported = {Kind::unsupported, {.unsupported = 1}};
constexpr BlockKind kForeign = {Kind::foreign, {.foreign = 1}};

const BlockKind &kind_of(const Fault &fault) {
    if (fault.kind == FaultKind::not_asterix) return kForeign;
    return is_unsupported(fault.kind) ? kUnsupported : kDamaged;
}

// The first octets of a payload, for whoever knows what they are.
std::string octets_text(Octets octets) {
    constexpr size_t kMost = 8;
    std::string text;
    for (const uint8_t octet : octets.first(std::min(octets.size(), kMost))) {
        char digits[4];
        std::snprintf(digits, sizeof digits, " %02x", octet);
        text += digits;
    }
    return text + (octets.size() > kMost ? " ..." : "");
}

} // namespace

namespace {

std::string framing_detail(const Frame &frame, Octets octets) {
    const std::string available = counted(octets.size(), "octet");
    if (frame.framing == Framing::short_header) return available + ", too few for a block header";
    if (!has_length(frame, octets)) return available + ' ' + what_they_are(octets);
    const std::string length = "LEN is " + std::to_string(frame.length);
    if (frame.framing == Framing::short_length) return length + ", less than the block header";
    return length + ", but only " + available + " are left";
}

} // namespace

std::string framing_text(const Frame &frame, Octets octets) {
    const std::string detail = framing_detail(frame, octets);
    return has_length(frame, octets) ? category_text(frame.category) + ": " + detail : detail;
}

void Damage::clear() {
    place = 0;
    reports_.clear();
}

void Damage::add(Report report) {
    report.place = place;
    reports_.push_back(std::move(report));
}

void Damage::note(const std::string &what) { add({.text = what, .reason = what}); }

void Damage::input(const std::string &what) {
    add({.kind = Kind::damaged, .text = what, .reason = what, .losses = {.unfinished = 1}});
}

void Damage::incomplete(uint64_t datagrams) {
    add({.kind = Kind::damaged,
         .text = "fragments are missing of " + counted(datagrams, "datagram"),
         .reason = "fragments are missing",
         .noun = "datagram",
         .count = datagrams,
         .losses = {.incomplete = datagrams}});
}

// Datagrams are dropped when there is no time to spare, so that this is left to the summary.
void Damage::dropped(uint64_t datagrams) { add({.kind = Kind::damaged, .losses = {.dropped = datagrams}}); }

void Damage::truncated(uint64_t packet, uint64_t octets) {
    const std::string text = "packet " + std::to_string(packet) + ": truncated to " + counted(octets, "octet");
    add({.kind = Kind::damaged,
         .text = text,
         .reason = "only the first octets are there",
         .example = text,
         .noun = "datagram",
         .losses = {.truncated = 1}});
}

void Damage::packet(uint64_t number, const std::string &what) {
    const std::string packet = "packet " + std::to_string(number);
    add({.kind = Kind::damaged,
         .text = packet + ": not dissected: " + what,
         .reason = "not dissected: " + what,
         .example = packet,
         .noun = "packet",
         .losses = {.undissected = 1}});
}

// Of a TCP stream, in the segment that a packet holds.
void Damage::stream(uint64_t packet, const Endpoints &endpoints, uint64_t octets, const char *what,
                    const Losses &losses) {
    const std::string detail =
        "packet " + std::to_string(packet) + ": TCP " + route_text(endpoints) + ": " + counted(octets, "octet");
    add({.kind = Kind::damaged,
         .text = detail + ' ' + what,
         .reason = std::string("octets of a TCP stream ") + what,
         .example = detail,
         .noun = "octet",
         .count = octets,
         .losses = losses});
}

void Damage::missing(uint64_t packet, const Endpoints &endpoints, uint64_t octets) {
    stream(packet, endpoints, octets, "missing", {.missing = octets});
}

void Damage::fragment(uint64_t packet, const Endpoints &endpoints, uint64_t octets) {
    stream(packet, endpoints, octets, "before the next block; skipped", {.skipped = octets});
}

void Damage::foreign_stream(const Endpoints &endpoints) {
    const std::string stream = "TCP " + route_text(endpoints);
    add({.kind = Kind::foreign,
         .text = stream + ": not ASTERIX",
         .reason = "other traffic over TCP",
         .example = stream,
         .noun = "stream",
         .losses = {.foreign_streams = 1}});
}

void Damage::framing(const Datagram &datagram, uint64_t offset, const Frame &frame) {
    const Octets octets = datagram.octets.subspan(offset);
    const uint64_t skipped = datagram.unread.value_or(octets.size());
    const std::string where = place_text(datagram, offset) + ": ";
    std::string end;
    if (datagram.packet == 0)
        end = has_length(frame, octets) ? "; " + counted(skipped, "octet") + " skipped" : "; skipped";
    add({.kind = Kind::damaged,
         .text = where + framing_text(frame, octets) + end,
         .reason = framing_reason(frame, octets),
         .example = where + framing_detail(frame, octets) + end,
         .noun = "place",
         .losses = {.skipped = skipped},
         .file = datagram.file});
}

void Damage::skipped(uint64_t offset, uint64_t octets, std::string_view framing) {
    const std::string where = "offset " + std::to_string(offset) + ": " + counted(octets, "octet");
    const std::string reason = "no " + std::string(framing) + " frame";
    add({.kind = Kind::damaged,
         .text = where + " that are " + reason + "; skipped",
         .reason = reason,
         .example = where + " skipped",
         .noun = "place",
         .losses = {.skipped = octets}});
}

void Damage::line(uint64_t line, uint64_t character, std::string_view path, const char *what) {
    std::string where = "line " + std::to_string(line) + ", character " + std::to_string(character);
    if (!path.empty()) where += ": " + printable(path);
    add({.kind = Kind::damaged,
         .text = where + ": " + what,
         .reason = what,
         .example = where,
         .noun = "line",
         .losses = {.unread_lines = 1}});
}

void Damage::foreign(const Datagram &datagram) {
    std::string example = "packet " + std::to_string(datagram.packet) + ": ";
    if (datagram.endpoints) example.append(route_text(*datagram.endpoints)).append(", ");
    example += counted(datagram.octets.size(), "octet") + octets_text(datagram.octets);
    add({.kind = Kind::foreign,
         .text = example + ": not ASTERIX",
         .reason = "other traffic",
         .example = example,
         .packet = datagram.packet,
         .noun = "datagram",
         .losses = {.foreign = 1}});
}

void Damage::block(const DecodedBlock &decoded) {
    const Fault &fault = *decoded.fault;
    const BlockKind &kind = kind_of(fault);
    const std::string where = place_text(*decoded.datagram, decoded.offset) + ": ";
    const std::string category = category_text(decoded.block->category) + ": ";
    const std::string detail = "in record " + std::to_string(decoded.block->record_count + 1) + " after " +
                               counted(fault.record.item_count, "item") + ", at octet " + std::to_string(fault.octets) +
                               " of " + std::to_string(decoded.octets.size());
    add({.kind = kind.kind,
         .text = where + category + fault_word(fault.kind) + ' ' + detail + ": " + fault.reason,
         .reason = (fault.kind == FaultKind::unsupported_category ? "" : category) + fault.reason,
         .example = where + detail,
         .noun = "block",
         .losses = kind.losses,
         .file = decoded.datagram->file});
}

} // namespace astdump
