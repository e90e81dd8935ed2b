#include "damage.hpp"

#include <cstdio>

#include "terminal.hpp"
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

} // namespace

std::string framing_text(const Frame &frame, uint64_t available) {
    if (frame.framing == Framing::short_header) return counted(available, "octet") + ", too few for a block header";
    const std::string length = category_text(frame.category) + ": LEN is " + std::to_string(frame.length);
    if (frame.framing == Framing::short_length) return length + ", less than the block header";
    return length + ", but only " + counted(available, "octet") + " are left";
}

void Damage::clear() {
    place = 0;
    reports_.clear();
}

void Damage::pass_on(const Report &made) { report(made.text, made.losses); }

void Damage::input(const std::string &what) { report(what, {.unfinished = 1}); }

void Damage::incomplete(uint64_t datagrams) {
    report("fragments are missing of " + counted(datagrams, "datagram"), {.incomplete = datagrams});
}

// Datagrams are dropped when there is no time to spare, so that this is left to the summary.
void Damage::dropped(uint64_t datagrams) { report({}, {.dropped = datagrams}); }

void Damage::truncated(uint64_t packet, uint64_t octets) {
    report("packet " + std::to_string(packet) + ": truncated to " + counted(octets, "octet"), {.truncated = 1});
}

void Damage::packet(uint64_t number, const std::string &what) {
    report("packet " + std::to_string(number) + ": not dissected: " + what, {.undissected = 1});
}

void Damage::missing(uint64_t packet, const Endpoints &endpoints, uint64_t octets) {
    report("packet " + std::to_string(packet) + ": TCP " + route_text(endpoints) + ": " + counted(octets, "octet") +
               " missing",
           {.missing = octets});
}

void Damage::fragment(uint64_t packet, const Endpoints &endpoints, uint64_t octets) {
    report("packet " + std::to_string(packet) + ": TCP " + route_text(endpoints) + ": " + counted(octets, "octet") +
               " before the next block; skipped",
           {.skipped = octets});
}

void Damage::framing(const Datagram &datagram, uint64_t offset, const Frame &frame) {
    const uint64_t available = datagram.octets.size() - offset;
    std::string text = place_text(datagram, offset) + ": " + framing_text(frame, available);
    if (datagram.packet == 0) text += "; " + counted(datagram.unread.value_or(available), "octet") + " skipped";
    report(text, {.skipped = datagram.unread.value_or(available)});
}

void Damage::skipped(uint64_t offset, uint64_t octets, std::string_view framing) {
    report("offset " + std::to_string(offset) + ": " + counted(octets, "octet") + " that are no " +
               std::string(framing) + " frame; skipped",
           {.skipped = octets});
}

void Damage::line(uint64_t line, uint64_t character, std::string_view path, const char *what) {
    std::string text = "line " + std::to_string(line) + ", character " + std::to_string(character) + ": ";
    if (!path.empty()) text += printable(path) + ": ";
    report(text + what, {.unread_lines = 1});
}

void Damage::block(const DecodedBlock &decoded) {
    const Fault &fault = *decoded.fault;
    const uint64_t items = fault.record.valid ? 0 : fault.record.item_count;
    report(place_text(*decoded.datagram, decoded.offset) + ": " + category_text(decoded.block->category) +
               ": damaged in record " + std::to_string(decoded.block->record_count + 1) + " after " +
               counted(items, "item") + ", at octet " + std::to_string(fault.octets) + " of " +
               std::to_string(decoded.octets.size()) + ": " + fault.reason,
           {.invalid = 1});
}

void DamageLog::show(const Report &report) {
    losses_ += report.losses;
    if (report.text.empty()) return;
    clear_line();
    const Style style(color_);
    std::fprintf(stderr, "%sastdump:%s %s: %s\n", style.on(Color::fault), style.off(), file_.c_str(),
                 report.text.c_str());
}

void DamageLog::summary() const {
    if (!any()) return;
    const Style style(color_);
    std::fprintf(stderr, "%sastdump:%s lost: %s\n", style.on(Color::fault), style.off(), losses_.text().c_str());
}

} // namespace astdump
