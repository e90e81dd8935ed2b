#include "damage.hpp"

#include <cstdio>

#include "terminal.hpp"
#include "text.hpp"

namespace astdump {

namespace {

// "packet 12, octet 40" of its payload in a capture, "offset 1234" in a raw file.
std::string place(const Datagram &datagram, uint64_t offset) {
    if (datagram.packet == 0) return "offset " + std::to_string(datagram.offset + offset);
    return "packet " + std::to_string(datagram.packet) + ", octet " + std::to_string(offset);
}

std::string category_text(uint32_t category) {
    char text[16];
    std::snprintf(text, sizeof text, "category %03u", category);
    return text;
}

std::string framing_text(const Frame &frame, uint64_t available) {
    if (frame.framing == Framing::short_header) return counted(available, "octet") + ", too few for a block header";
    const std::string length = category_text(frame.category) + ": LEN is " + std::to_string(frame.length);
    if (frame.framing == Framing::short_length) return length + ", less than the block header";
    return length + ", but only " + counted(available, "octet") + " are left";
}

} // namespace

// What is on standard output comes first, so that the report stands behind the block before it on a terminal.
void Damage::report(const std::string &text) {
    std::fflush(stdout);
    clear_line();
    const Style style(color_);
    std::fprintf(stderr, "%sastdump:%s %s: %s\n", style.on(Color::fault), style.off(), file_.c_str(), text.c_str());
}

void Damage::input(const std::string &what) {
    ++losses_.unfinished;
    report(what);
}

void Damage::incomplete(uint64_t datagrams) {
    losses_.incomplete += datagrams;
    report("fragments are missing of " + counted(datagrams, "datagram"));
}

// Datagrams are dropped when there is no time to spare, so that this is left to the summary.
void Damage::dropped(uint64_t datagrams) { losses_.dropped += datagrams; }

void Damage::truncated(uint64_t packet, uint64_t octets) {
    ++losses_.truncated;
    report("packet " + std::to_string(packet) + ": truncated to " + counted(octets, "octet"));
}

void Damage::packet(uint64_t number, const std::string &what) {
    ++losses_.undissected;
    report("packet " + std::to_string(number) + ": not dissected: " + what);
}

void Damage::framing(const Datagram &datagram, uint64_t offset, const Frame &frame) {
    const uint64_t available = datagram.octets.size() - offset;
    losses_.skipped += datagram.unread.value_or(available);
    std::string text = place(datagram, offset) + ": " + framing_text(frame, available);
    if (datagram.packet == 0)
        text +=
            datagram.unread ? "; " + counted(*datagram.unread, "octet") + " left unread" : "; the rest is left unread";
    report(text);
}

void Damage::block(const DecodedBlock &decoded) {
    ++losses_.invalid;
    const Fault &fault = *decoded.fault;
    const uint64_t items = fault.record.valid ? 0 : fault.record.item_count;
    report(place(*decoded.datagram, decoded.offset) + ": " + category_text(decoded.block->category) +
           ": damaged in record " + std::to_string(decoded.block->record_count + 1) + " after " +
           counted(items, "item") + ", at octet " + std::to_string(fault.octets) + " of " +
           std::to_string(decoded.octets.size()) + ": " + fault_reason(fault, decoded.octets));
}

void Damage::summary() const {
    if (!any()) return;
    std::fflush(stdout);
    const Style style(color_);
    std::fprintf(stderr, "%sastdump:%s lost: %s\n", style.on(Color::fault), style.off(), losses_.text().c_str());
}

} // namespace astdump
