// Replies of SSR transponders: Mode 3/A and Mode 2 codes, Mode C heights, and how sure the radar is of them.

#include "core/bits.hpp"
#include "items/code.hpp"
#include "items/value.hpp"
#include "view/html.hpp"

using namespace ast;

namespace {

constexpr unsigned kDigits = 4; // A, B, C, D
constexpr unsigned kPulsesPerDigit = AST_PULSES / kDigits;
constexpr const char *kPulseNames[AST_PULSES] = {"A4", "A2", "A1", "B4", "B2", "B1",
                                                 "C4", "C2", "C1", "D4", "D2", "D1"};

constexpr char kNotValidated[] = " NOT_VALIDATED";
constexpr char kGarbled[] = " GARBLED";

// The letters of the four digits, lower case where a pulse of the digit is of low quality.
class QualityLetters {
public:
    template <typename IsLow>
    explicit QualityLetters(IsLow is_low) {
        for (unsigned pulse = 0; pulse < AST_PULSES; ++pulse)
            if (is_low(pulse)) letters_[pulse / kPulsesPerDigit] = static_cast<char>('a' + pulse / kPulsesPerDigit);
    }
    const char *c_str() const { return letters_; }

private:
    char letters_[kDigits + 1] = "ABCD";
};

} // namespace

// ---- Mode 3/A code, Mode 2 code ----

namespace {

// What an item calls its code, and its third flag. Without a flag none of the three means anything.
struct CodeKind {
    ast_dataitem_type_t type;
    const char *label;
    const char *third_flag;
};

constexpr CodeKind kMode3a = {AST_DATAITEM_NONE, "MODE_3/A", "SMOOTHED"};
constexpr CodeKind kOtherCodes[] = {
    {1050, "MODE_2", "SMOOTHED"},
    {62060, "MODE_3/A", "CHANGED"},
    {62120, "MODE_2", nullptr},
};

const CodeKind &code_kind(ast_dataitem_type_t type) {
    for (const CodeKind &kind : kOtherCodes)
        if (kind.type == type) return kind;
    return kMode3a;
}

} // namespace

ast_mode_3a_t ast_dataitem_mode_3a_code_decode(const ast_dataitem_t *item) {
    ast_mode_3a_t code{};
    if (!holds(item, 2)) return code;
    code.not_validated = bit(item->data[0], 8);
    code.garbled = bit(item->data[0], 7);
    code.changed = bit(item->data[0], 6);
    code.smoothed = bit(item->data[0], 6);
    code.code = field(item->data, 5, 16);
    code.valid = true;
    return code;
}

void ast_dataitem_mode_3a_code_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                      const ast_dataitem_src_t *source) {
    const auto *const code = open_encode<ast_mode_3a_t>(result, buffer, length, source, 2);
    if (!code || code->code > INT32_MAX) return;
    write_u16(buffer, code->code);
    buffer[0] = static_cast<uint8_t>(placed(code->not_validated, 8) | placed(code->garbled, 7) |
                                     placed(code->changed || code->smoothed, 6) | placed(buffer[0], 4, 1));
    written(result);
}

void ast_dataitem_mode_3a_code_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto code = ast_dataitem_mode_3a_code_decode(item);
    if (!code.valid) return;
    const CodeKind &kind = code_kind(item->type);
    out.print("%s:%04o", kind.label, code.code);
    if (!kind.third_flag) return;
    out.append(shown_if(code.not_validated, kNotValidated));
    out.append(shown_if(code.garbled, kGarbled));
    if (code.smoothed) out.print(" %s", kind.third_flag);
}

void ast_dataitem_mode_3a_code_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto code = ast_dataitem_mode_3a_code_decode(item);
    if (!code.valid) return;
    const CodeKind &kind = code_kind(item->type);
    DetailTable table(html, "Bit", "Item", "Value");
    if (kind.third_flag) {
        table.row("Bit[0]", "NOT_VALIDATED", Cell<2>("%d", code.not_validated));
        table.row("Bit[1]", "GARBLED", Cell<2>("%d", code.garbled));
        table.row("Bit[2]", kind.third_flag, Cell<2>("%d", code.smoothed));
        table.row("Bit[3]", "SPARE", "0");
    } else {
        table.row("Bit[0-3]", "SPARE", "0");
    }
    write_code_digits(table, code.code);
}

// ---- Mode 3/A code confidence ----

namespace {

// The twelve flags stand in the low bits of two octets, in the order of the pulses.
constexpr unsigned kFirstFlagBit = 5;

} // namespace

ast_mode_3a_confidence_t ast_dataitem_mode_3a_confidence_decode(const ast_dataitem_t *item) {
    ast_mode_3a_confidence_t confidence{};
    if (!holds(item, 2)) return confidence;
    for (unsigned pulse = 0; pulse < AST_PULSES; ++pulse)
        confidence.low_quality[pulse] = field(item->data, kFirstFlagBit + pulse, kFirstFlagBit + pulse) != 0;
    confidence.valid = true;
    return confidence;
}

void ast_dataitem_mode_3a_confidence_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                            const ast_dataitem_src_t *source) {
    const auto *const confidence = open_encode<ast_mode_3a_confidence_t>(result, buffer, length, source, 2);
    if (!confidence) return;
    uint32_t flags = 0;
    for (const bool is_low : confidence->low_quality) flags = flags << 1 | is_low;
    write_u16(buffer, flags);
    written(result);
}

void ast_dataitem_mode_3a_confidence_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto confidence = ast_dataitem_mode_3a_confidence_decode(item);
    if (!confidence.valid) return;
    const QualityLetters letters([&](unsigned pulse) { return confidence.low_quality[pulse]; });
    out.print("QTY:%s", letters.c_str());
}

void ast_dataitem_mode_3a_confidence_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto confidence = ast_dataitem_mode_3a_confidence_decode(item);
    if (!confidence.valid) return;
    DetailTable table(html, "Bit", "Item", "Value");
    table.row("Bit[1-4]", "UNUSED", "---");
    for (unsigned pulse = 0; pulse < AST_PULSES; ++pulse)
        table.row(Cell<10>("Bit[%u]", kFirstFlagBit + pulse), Cell<10>("Q%s", kPulseNames[pulse]),
                  confidence.low_quality[pulse] ? "LOW" : "---");
}

// ---- Mode C code ----

ast_mode_c_t ast_dataitem_mode_c_code_decode(const ast_dataitem_t *item) {
    ast_mode_c_t height{};
    if (!holds(item, 2)) return height;
    height.validated = !bit(item->data[0], 8);
    height.garbled = bit(item->data[0], 7);
    height.flight_level = twos_complement(read_u16(item->data), 14);
    height.valid = true;
    return height;
}

void ast_dataitem_mode_c_code_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                     const ast_dataitem_src_t *source) {
    const auto *const height = open_encode<ast_mode_c_t>(result, buffer, length, source, 2);
    if (!height) return;
    write_u16(buffer, one_below_when_negative(height->flight_level));
    buffer[0] =
        static_cast<uint8_t>(placed(!height->validated, 8) | placed(height->garbled, 7) | placed(buffer[0], 6, 1));
    written(result);
}

void ast_dataitem_mode_c_code_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    constexpr int32_t kUnitsPerLevel = 4;
    TextWriter out(text, capacity);
    const auto height = ast_dataitem_mode_c_code_decode(item);
    if (!height.valid) return;
    out.print("MODE_C:%04d%s%s", height.flight_level / kUnitsPerLevel, shown_if(!height.validated, kNotValidated),
              shown_if(height.garbled, kGarbled));
}

void ast_dataitem_mode_c_code_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    constexpr double kLsbFl = 0.25;
    constexpr double kLsbFt = 25;
    constexpr double kLsbM = 7.62;
    HtmlWriter html(text, capacity);
    const auto height = ast_dataitem_mode_c_code_decode(item);
    if (!height.valid) return;
    DetailTable table(html, "Bit", "Item", "Value");
    table.row("Bit[0]", "NOT_VALIDATED", Cell<10>("%d", !height.validated));
    table.row("Bit[1]", "GARBLED", Cell<10>("%d", height.garbled));
    table.row("Bit[2-15]", "FLIGHT_LEVEL (LSB=1/4FL)", Cell<10>("%d", height.flight_level));
    table.row("Bit[2-15]", "FLIGHT_LEVEL (LSB=FL)", Cell<10>("%.2f", height.flight_level * kLsbFl));
    table.row("Bit[2-15]", "FLIGHT_LEVEL (LSB=FT)", Cell<10>("%.2f", height.flight_level * kLsbFt));
    table.row("Bit[2-15]", "FLIGHT_LEVEL (LSB=M)", Cell<10>("%.2f", height.flight_level * kLsbM));
}

// ---- Mode C code with confidence ----

namespace {

// The order in which a Mode C reply, and the quality of its pulses, are sent.
constexpr unsigned kReplyOrder[AST_PULSES] = {
    AST_PULSE_C1, AST_PULSE_A1, AST_PULSE_C2, AST_PULSE_A2, AST_PULSE_C4, AST_PULSE_A4,
    AST_PULSE_B1, AST_PULSE_D1, AST_PULSE_B2, AST_PULSE_D2, AST_PULSE_B4, AST_PULSE_D4,
};

constexpr unsigned kFirstPulseBit = 5;
constexpr unsigned kFirstQualityBit = 21;

// The bit of a pulse in a code of four octal digits.
constexpr uint32_t code_bit(unsigned pulse) { return UINT32_C(1) << (AST_PULSES - 1 - pulse); }

} // namespace

ast_mode_c_confidence_t ast_dataitem_mode_c_confidence_decode(const ast_dataitem_t *item) {
    ast_mode_c_confidence_t reply{};
    reply.validated = true;
    if (!holds(item, 4)) return reply;
    reply.validated = !bit(item->data[0], 8);
    reply.garbled = bit(item->data[0], 7);
    for (unsigned i = 0; i < AST_PULSES; ++i) {
        ast_pulse_t &pulse = reply.pulses[kReplyOrder[i]];
        pulse.pulse = field(item->data, kFirstPulseBit + i, kFirstPulseBit + i) != 0;
        pulse.low_quality = field(item->data, kFirstQualityBit + i, kFirstQualityBit + i) != 0;
        if (pulse.pulse) reply.code |= code_bit(kReplyOrder[i]);
    }
    reply.valid = true;
    return reply;
}

void ast_dataitem_mode_c_confidence_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                           const ast_dataitem_src_t *source) {
    constexpr uint32_t kMaxCode = 65535;
    const auto *const reply = open_encode<ast_mode_c_confidence_t>(result, buffer, length, source, 4);
    if (!reply || reply->code > kMaxCode) return;
    uint32_t pulses = 0;
    uint32_t quality = 0;
    for (const unsigned pulse : kReplyOrder) {
        pulses = pulses << 1 | ((reply->code & code_bit(pulse)) != 0);
        quality = quality << 1 | reply->pulses[pulse].low_quality;
    }
    write_u16(buffer, pulses);
    write_u16(buffer + 2, quality);
    buffer[0] = static_cast<uint8_t>(buffer[0] | placed(!reply->validated, 8) | placed(reply->garbled, 7));
    written(result);
}

void ast_dataitem_mode_c_confidence_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto reply = ast_dataitem_mode_c_confidence_decode(item);
    if (!reply.valid) return;
    const QualityLetters letters([&](unsigned pulse) { return reply.pulses[pulse].low_quality; });
    out.print("CODE:%.4o QTY:%s%s%s", reply.code, letters.c_str(), shown_if(!reply.validated, kNotValidated),
              shown_if(reply.garbled, kGarbled));
}

void ast_dataitem_mode_c_confidence_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto reply = ast_dataitem_mode_c_confidence_decode(item);
    if (!reply.valid) return;
    {
        DetailTable flags(html, "Bit", "Item", "Value");
        flags.row("Bit[0]", "NOT_VALIDATED", reply.validated ? "0" : "1");
        flags.row("Bit[1]", "GARBLED", reply.garbled ? "1" : "0");
    }
    html.paragraph("%s", "");
    DetailTable table(html, "Name", "Pulse", "Quality");
    for (unsigned pulse = 0; pulse < AST_PULSES; ++pulse)
        table.row(kPulseNames[pulse], reply.pulses[pulse].pulse ? "1" : "0",
                  reply.pulses[pulse].low_quality ? "LOW" : "---");
}
