#include "datagram/report.hpp"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "base/printable.hpp"
#include "framing/soundness.hpp"

namespace ast::recording {

namespace {

// Octets that no LEN of a block can be read from have one of the last two reasons.
uint32_t reason_of(const Frame &frame, Octets octets) {
    if (frame.framing == Framing::short_header) return AST_REASON_SHORT_HEADER;
    if (is_text(octets)) return AST_REASON_TEXT;
    if (!has_published_category(octets)) return AST_REASON_NO_BLOCKS;
    if (frame.framing == Framing::short_length) return AST_REASON_SHORT_LENGTH;
    return frame.framing == Framing::past_end ? AST_REASON_PAST_END : AST_REASON_NO_BLOCKS;
}

// The first octets of a payload, for whoever knows what they are.
std::string head_of(Octets octets) {
    constexpr size_t kMost = 8;
    std::string text;
    for (const uint8_t octet : octets.first(std::min(octets.size(), kMost))) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%02x ", octet);
        text += digits;
    }
    if (octets.size() > kMost) return text + "...";
    if (!text.empty()) text.pop_back();
    return text;
}

void set_route(ast_recording_report_t &data, const Endpoints &endpoints) {
    data.sender = to_public(endpoints.source);
    data.receiver = to_public(endpoints.destination);
}

} // namespace

Report::Report(uint32_t kind, uint32_t reason) {
    data.kind = kind;
    data.reason = reason;
    data.count = 1;
    data.offset = AST_OFFSET_NONE;
}

ast_recording_report_t Report::facts() const {
    ast_recording_report_t facts = data;
    facts.detail = detail.c_str();
    facts.path = path.c_str();
    facts.file = file ? file->c_str() : nullptr;
    return facts;
}

ast_endpoint_t to_public(const Endpoint &endpoint) {
    ast_endpoint_t result{.family = static_cast<uint8_t>(endpoint.address.is_ipv6 ? 6 : 4),
                          .octets = {},
                          .port = endpoint.port,
                          .scope = endpoint.address.scope};
    std::ranges::copy(endpoint.address.octets, result.octets);
    return result;
}

Endpoint to_internal(const ast_endpoint_t &endpoint) {
    Endpoint result{.address = {.is_ipv6 = endpoint.family == 6, .scope = endpoint.scope}, .port = endpoint.port};
    std::ranges::copy(endpoint.octets, result.address.octets.begin());
    return result;
}

void set_place(ast_recording_report_t &data, const Datagram &datagram, uint64_t offset) {
    data.packet = datagram.packet;
    data.offset = datagram.offset + offset;
    if (datagram.endpoints) set_route(data, *datagram.endpoints);
}

Report framing_report(const Datagram &datagram, uint64_t offset, const Frame &frame) {
    const Octets octets = datagram.octets.subspan(offset);
    Report report(AST_REPORT_DAMAGED, reason_of(frame, octets));
    set_place(report.data, datagram, offset);
    report.data.available = octets.size();
    report.data.octets = octets.size();
    if (report.data.reason == AST_REASON_SHORT_LENGTH || report.data.reason == AST_REASON_PAST_END) {
        report.data.category = frame.category;
        report.data.length = frame.length;
    }
    report.file = datagram.file;
    return report;
}

Report foreign_report(const Datagram &datagram) {
    Report report(AST_REPORT_OTHER_TRAFFIC, AST_REASON_OTHER_DATAGRAM);
    set_place(report.data, datagram, 0);
    report.data.available = datagram.octets.size();
    report.detail = head_of(datagram.octets);
    return report;
}

void Reports::clear() {
    place = 0;
    list_.clear();
}

void Reports::add(Report report) {
    report.place = place;
    list_.push_back(std::move(report));
}

void Reports::note(std::string what) {
    Report report(AST_REPORT_NOTE, AST_REASON_NOTE);
    report.detail = std::move(what);
    add(std::move(report));
}

void Reports::unfinished(std::string what) {
    Report report(AST_REPORT_DAMAGED, AST_REASON_UNFINISHED);
    report.detail = std::move(what);
    add(std::move(report));
}

void Reports::incomplete(uint64_t datagrams) {
    Report report(AST_REPORT_DAMAGED, AST_REASON_FRAGMENTS);
    report.data.count = datagrams;
    add(std::move(report));
}

void Reports::dropped(uint64_t datagrams) {
    if (datagrams == 0) return;
    Report report(AST_REPORT_DAMAGED, AST_REASON_DROPPED);
    report.data.count = datagrams;
    add(std::move(report));
}

void Reports::truncated(const Datagram &datagram, uint64_t octets_of_part) {
    Report report(AST_REPORT_DAMAGED, AST_REASON_TRUNCATED);
    set_place(report.data, datagram, 0);
    report.data.available = datagram.octets.size();
    report.data.octets = octets_of_part;
    add(std::move(report));
}

void Reports::trailers(uint64_t datagrams, uint64_t octets) {
    Report report(AST_REPORT_NOTE, AST_REASON_TRAILERS);
    report.data.count = datagrams;
    report.data.available = octets;
    add(std::move(report));
}

void Reports::packet(uint64_t number, std::string what) {
    Report report(AST_REPORT_DAMAGED, AST_REASON_UNDISSECTED);
    report.data.packet = number;
    report.detail = std::move(what);
    add(std::move(report));
}

// Of a TCP stream, in the segment that a packet holds.
void Reports::stream(uint32_t reason, uint64_t packet, const Endpoints &endpoints, uint64_t octets) {
    Report report(AST_REPORT_DAMAGED, reason);
    report.data.packet = packet;
    report.data.octets = octets;
    set_route(report.data, endpoints);
    add(std::move(report));
}

void Reports::missing(uint64_t packet, const Endpoints &endpoints, uint64_t octets) {
    stream(AST_REASON_STREAM_GAP, packet, endpoints, octets);
}

void Reports::fragment(uint64_t packet, const Endpoints &endpoints, uint64_t octets) {
    stream(AST_REASON_STREAM_REST, packet, endpoints, octets);
}

void Reports::foreign_stream(const Endpoints &endpoints) {
    Report report(AST_REPORT_OTHER_TRAFFIC, AST_REASON_OTHER_STREAM);
    set_route(report.data, endpoints);
    add(std::move(report));
}

void Reports::skipped(uint64_t offset, uint64_t octets, std::string_view framing) {
    Report report(AST_REPORT_DAMAGED, AST_REASON_NO_FRAME);
    report.data.offset = offset;
    report.data.octets = octets;
    report.detail = framing;
    add(std::move(report));
}

void Reports::line(uint64_t line, uint64_t character, std::string_view path, const char *what) {
    Report report(AST_REPORT_DAMAGED, AST_REASON_LINE);
    report.data.line = line;
    report.data.character = character;
    report.path = printable(path);
    report.detail = what;
    add(std::move(report));
}

} // namespace ast::recording
