#include "datagram/report_words.hpp"

#include <cstdio>
#include <iterator>

#include "base/counted.hpp"
#include "base/endpoint.hpp"
#include "datagram/report.hpp"
#include "framing/soundness.hpp"

namespace ast::recording {

namespace {

using Facts = ast_recording_report_t;

std::string packet_text(const Facts &facts) { return "packet " + std::to_string(facts.packet); }

std::string category_text(uint32_t category) {
    char text[16];
    std::snprintf(text, sizeof text, "category %03u", category);
    return text;
}

std::string route_text(const Facts &facts) {
    return ast::recording::route_text({to_internal(facts.sender), to_internal(facts.receiver)});
}

// ---- Octets that start no whole block ----

bool has_length(const Facts &facts) {
    return facts.reason == AST_REASON_SHORT_LENGTH || facts.reason == AST_REASON_PAST_END;
}

std::string framing_cause(const Facts &facts) {
    const std::string category = category_text(facts.category);
    if (facts.reason == AST_REASON_SHORT_HEADER) return "too few octets for a block header";
    if (facts.reason == AST_REASON_SHORT_LENGTH) return category + ": LEN is less than the block header";
    if (facts.reason == AST_REASON_PAST_END) return category + ": LEN runs past the end";
    return facts.reason == AST_REASON_TEXT ? "octets of text" : "octets that are no blocks";
}

std::string framing_detail(const Facts &facts) {
    const std::string available = counted(facts.available, "octet");
    const std::string length = "LEN is " + std::to_string(facts.length);
    if (facts.reason == AST_REASON_SHORT_HEADER) return available + ", too few for a block header";
    if (facts.reason == AST_REASON_SHORT_LENGTH) return length + ", less than the block header";
    if (facts.reason == AST_REASON_PAST_END) return length + ", but only " + available + " are left";
    return available + (facts.reason == AST_REASON_TEXT ? " of text" : " that are no blocks");
}

ReportWords framing(const Facts &facts) {
    const std::string where = place_text(facts) + ": ";
    std::string end;
    if (facts.packet == 0) end = has_length(facts) ? "; " + counted(facts.octets, "octet") + " skipped" : "; skipped";
    return {.text = where + framing_text(facts) + end,
            .cause = framing_cause(facts),
            .example = where + framing_detail(facts) + end,
            .noun = "place"};
}

// ---- The others ----

ReportWords told(const Facts &facts) {
    return {.text = facts.detail, .cause = facts.detail, .example = {}, .noun = {}};
}

ReportWords unfinished(const Facts &facts) {
    return {.text = facts.detail, .cause = "not read to the end", .example = facts.detail, .noun = {}};
}

ReportWords trailers(const Facts &facts) {
    return {.text = counted(facts.count, "datagram") + " with octets behind the last block, " +
                    counted(facts.available, "octet") + " in all; passed over",
            .cause = "octets behind the last block",
            .example = {},
            .noun = "datagram"};
}

ReportWords fragments(const Facts &facts) {
    return {.text = "fragments are missing of " + counted(facts.count, "datagram"),
            .cause = "fragments are missing",
            .example = {},
            .noun = "datagram"};
}

ReportWords dropped(const Facts &facts) {
    return {.text = counted(facts.count, "datagram") + " dropped by the system",
            .cause = "dropped by the system",
            .example = {},
            .noun = "datagram"};
}

ReportWords truncated(const Facts &facts) {
    const std::string text = packet_text(facts) + ": cut by the capture after " + counted(facts.available, "octet");
    return {.text = text, .cause = "cut by the capture", .example = text, .noun = "datagram"};
}

ReportWords undissected(const Facts &facts) {
    const std::string cause = std::string("not dissected: ") + facts.detail;
    return {.text = packet_text(facts) + ": " + cause, .cause = cause, .example = packet_text(facts), .noun = "packet"};
}

ReportWords stream(const Facts &facts) {
    const std::string example =
        packet_text(facts) + ": TCP " + route_text(facts) + ": " + counted(facts.octets, "octet");
    const std::string what = facts.reason == AST_REASON_STREAM_GAP ? " missing" : " before the next block; skipped";
    return {.text = example + what, .cause = "octets of a TCP stream" + what, .example = example, .noun = "octet"};
}

ReportWords no_frame(const Facts &facts) {
    const std::string where = place_text(facts) + ": " + counted(facts.octets, "octet");
    const std::string cause = std::string("no ") + facts.detail + " frame";
    return {.text = where + " that are " + cause + "; skipped",
            .cause = cause,
            .example = where + " skipped",
            .noun = "place"};
}

ReportWords line(const Facts &facts) {
    std::string where = place_text(facts);
    if (*facts.path) where.append(": ").append(facts.path);
    return {.text = where + ": " + facts.detail, .cause = facts.detail, .example = where, .noun = "line"};
}

ReportWords other_datagram(const Facts &facts) {
    std::string example = packet_text(facts) + ": ";
    if (facts.sender.family != 0) example += route_text(facts) + ", ";
    example += counted(facts.available, "octet");
    if (*facts.detail) example.append(" ").append(facts.detail);
    return {.text = example + ": not ASTERIX", .cause = "other traffic", .example = example, .noun = "datagram"};
}

ReportWords other_stream(const Facts &facts) {
    const std::string stream = "TCP " + route_text(facts);
    return {.text = stream + ": not ASTERIX", .cause = "other traffic over TCP", .example = stream, .noun = "stream"};
}

// Where nothing is known of a category, the detail names it.
ReportWords block(const Facts &facts) {
    const std::string where = place_text(facts) + ": ";
    const std::string category = category_text(facts.category) + ": ";
    const bool is_unknown = facts.kind == AST_REPORT_UNSUPPORTED && !is_known_category(facts.category);
    const std::string detail = "in record " + std::to_string(facts.record) + " after " + counted(facts.items, "item") +
                               ", at octet " + std::to_string(facts.end) + " of " + std::to_string(facts.length);
    return {.text = where + category + kind_word(facts.kind) + ' ' + detail + ": " + facts.detail,
            .cause = (is_unknown ? "" : category) + facts.detail,
            .example = where + detail,
            .noun = "block"};
}

using Say = ReportWords (*)(const Facts &facts);

// By reason.
constexpr Say kWords[] = {told,     told,   unfinished, fragments,      dropped,      truncated, undissected,
                          stream,   stream, framing,    framing,        framing,      framing,   framing,
                          no_frame, line,   block,      other_datagram, other_stream, trailers};
static_assert(std::size(kWords) == AST_REASON_TRAILERS + 1);

constexpr const char *kKinds[] = {"damaged", "not supported", "not ASTERIX", "note", "not readable"};
static_assert(std::size(kKinds) == AST_REPORT_KINDS);

} // namespace

ReportWords words_of(const ast_recording_report_t &report) {
    return report.reason < std::size(kWords) ? kWords[report.reason](report) : ReportWords{};
}

uint64_t count_of(const ast_recording_report_t &report) {
    const bool is_stream = report.reason == AST_REASON_STREAM_GAP || report.reason == AST_REASON_STREAM_REST;
    return is_stream ? report.octets : report.count;
}

std::string framing_text(const ast_recording_report_t &report) {
    const std::string detail = framing_detail(report);
    return has_length(report) ? category_text(report.category) + ": " + detail : detail;
}

// "packet 12, octet 40" of its payload in a capture, "offset 1234" in a raw file.
std::string place_text(const ast_recording_report_t &report) {
    const bool has_offset = report.offset != AST_OFFSET_NONE;
    if (report.line != 0)
        return "line " + std::to_string(report.line) + ", character " + std::to_string(report.character);
    if (report.packet == 0) return has_offset ? "offset " + std::to_string(report.offset) : std::string();
    return packet_text(report) + (has_offset ? ", octet " + std::to_string(report.offset) : "");
}

const char *kind_word(uint32_t kind) { return kind < std::size(kKinds) ? kKinds[kind] : ""; }

} // namespace ast::recording
