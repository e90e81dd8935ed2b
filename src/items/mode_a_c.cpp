// Replies of SSR transponders: Mode 3/A and Mode 2 codes, Mode C heights, and how sure the radar is of them.

#include "core/bits.hpp"
#include "items/code.hpp"
#include "items/items.hpp"
#include "items/units.hpp"

using namespace ast;

namespace {

constexpr unsigned kDigits = 4; // A, B, C, D
constexpr unsigned kPulsesPerDigit = AST_PULSES / kDigits;
constexpr const char *kPulseNames[AST_PULSES] = {"A4", "A2", "A1", "B4", "B2", "B1",
                                                 "C4", "C2", "C1", "D4", "D2", "D1"};

const char *low_or_not(bool is_low) { return is_low ? "LOW" : "---"; }

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
    {20050, "MODE_2", "SMOOTHED"},
    {62060, "MODE_3/A", "CHANGED"},
    {62120, "MODE_2", nullptr},
};

const CodeKind &code_kind(ast_dataitem_type_t type) {
    for (const CodeKind &kind : kOtherCodes)
        if (kind.type == type) return kind;
    return kMode3a;
}

} // namespace

namespace {

struct Mode3aCode : SharedLayout<ast_mode_3a_t, items::mode_3a_code.size> {
    static constexpr Row<Value> kRows[] = {
        {&Value::not_validated}, {&Value::garbled}, {&Value::smoothed}, spare(1), code_row(&Value::code),
    };

    static void read(Value &code, const uint8_t *octets) {
        read_rows<Mode3aCode>(code, octets);
        code.changed = code.smoothed;
    }

    static void summarize(TextWriter &out, const Value &code, const ast_dataitem_t &item) {
        const CodeKind &kind = code_kind(item.type);
        out.print("%s:%04o", kind.label, code.code);
        if (!kind.third_flag) return;
        out.append(shown_if(code.not_validated, kNotValidated));
        out.append(shown_if(code.garbled, kGarbled));
        if (code.smoothed) out.print(" %s", kind.third_flag);
    }

    // Bits above the 12 of the code are dropped.
    static bool write(uint8_t *octets, const Value &code) {
        return write_code(octets, code.code, code.not_validated, code.garbled, code.changed || code.smoothed);
    }

    static void show(ViewWriter &view, const Value &code, const ast_dataitem_t &item) {
        const CodeKind &kind = code_kind(item.type);
        DetailTable table = table_of_rows<Mode3aCode>(view);
        if (kind.third_flag) {
            table.row("Bit[0]", "NOT_VALIDATED", code.not_validated ? "1" : "0");
            table.row("Bit[1]", "GARBLED", code.garbled ? "1" : "0");
            table.row("Bit[2]", kind.third_flag, code.smoothed ? "1" : "0");
            table.row("Bit[3]", "SPARE", "0");
        } else {
            table.row("Bit[0-3]", "SPARE", "0");
        }
        show_rows<Mode3aCode>(table, code);
    }
};

} // namespace

AST_DEFINE_ENCODED_ITEM(Mode3aCode, ast_dataitem_mode_3a_code)

// ---- Mode 3/A code confidence ----

namespace {

// The twelve flags stand in the low bits of two octets, in the order of the pulses.
constexpr unsigned kFirstFlagBit = 5;

struct Mode3aConfidence : SharedLayout<ast_mode_3a_confidence_t, items::mode_3a_confidence.size> {
    static void read(Value &confidence, const uint8_t *octets) {
        for (unsigned pulse = 0; pulse < AST_PULSES; ++pulse)
            confidence.low_quality[pulse] = field(octets, kFirstFlagBit + pulse, kFirstFlagBit + pulse) != 0;
    }

    static void summarize(TextWriter &out, const Value &confidence) {
        const QualityLetters letters([&](unsigned pulse) { return confidence.low_quality[pulse]; });
        out.print("QTY:%s", letters.c_str());
    }

    static void show(ViewWriter &view, const Value &confidence) {
        DetailTable table(view, "Bit", "Item", "Value");
        table.row("Bit[1-4]", "UNUSED", "---");
        for (unsigned pulse = 0; pulse < AST_PULSES; ++pulse)
            table.row(Cell<10>("Bit[%u]", kFirstFlagBit + pulse), Cell<10>("Q%s", kPulseNames[pulse]),
                      low_or_not(confidence.low_quality[pulse]));
    }

    static bool write(uint8_t *octets, const Value &confidence) {
        uint32_t flags = 0;
        for (const bool &is_low : confidence.low_quality) flags = flags << 1 | uint32_t{is_set(is_low)};
        write_u16(octets, flags);
        return true;
    }
};

} // namespace

AST_DEFINE_ENCODED_ITEM(Mode3aConfidence, ast_dataitem_mode_3a_confidence)

// ---- Mode C code ----

namespace {

struct ModeCCode : SharedLayout<ast_mode_c_t, items::mode_c_code.size> {
    static constexpr Row<Value> kRows[] = {
        {&Value::validated, kInverted, "NOT_VALIDATED"},
        {&Value::garbled, "GARBLED"},
        level_row(&Value::flight_level),
    };

    static void summarize(TextWriter &out, const Value &height) {
        summarize_level(out, height.flight_level, !height.validated, height.garbled);
    }

    static bool write(uint8_t *octets, const Value &height) {
        constexpr unsigned kBits = 14;
        write_u16(octets, one_below_when_negative(height.flight_level));
        octets[0] =
            static_cast<uint8_t>(placed(!height.validated, 8) | placed(height.garbled, 7) | placed(octets[0], 6, 1));
        const int32_t read_back = height.flight_level - (height.flight_level < 0 ? 1 : 0);
        return fits_signed(height.flight_level, kBits) && fits_signed(read_back, kBits);
    }
};

} // namespace

AST_DEFINE_ENCODED_ITEM(ModeCCode, ast_dataitem_mode_c_code)

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

struct ModeCConfidence : SharedLayout<ast_mode_c_confidence_t, items::mode_c_confidence.size> {
    static constexpr Value kDefault = {.valid = false, .validated = true, .garbled = false, .code = 0, .pulses = {}};

    static void read(Value &reply, const uint8_t *octets) {
        reply.validated = !bit(octets[0], 8);
        reply.garbled = bit(octets[0], 7);
        for (unsigned i = 0; i < AST_PULSES; ++i) {
            ast_pulse_t &pulse = reply.pulses[kReplyOrder[i]];
            pulse.pulse = field(octets, kFirstPulseBit + i, kFirstPulseBit + i) != 0;
            pulse.low_quality = field(octets, kFirstQualityBit + i, kFirstQualityBit + i) != 0;
            if (pulse.pulse) reply.code |= code_bit(kReplyOrder[i]);
        }
    }

    static void summarize(TextWriter &out, const Value &reply) {
        const QualityLetters letters([&](unsigned pulse) { return reply.pulses[pulse].low_quality; });
        out.print("CODE:%.4o QTY:%s%s%s", reply.code, letters.c_str(), shown_if(!reply.validated, kNotValidated),
                  shown_if(reply.garbled, kGarbled));
    }

    static void show(ViewWriter &view, const Value &reply) {
        {
            DetailTable flags(view, "Bit", "Item", "Value");
            flags.row("Bit[0]", "NOT_VALIDATED", reply.validated ? "0" : "1");
            flags.row("Bit[1]", "GARBLED", reply.garbled ? "1" : "0");
        }
        view.paragraph("");
        DetailTable table(view, "Name", "Pulse", "Quality");
        for (unsigned pulse = 0; pulse < AST_PULSES; ++pulse)
            table.row(kPulseNames[pulse], reply.pulses[pulse].pulse ? "1" : "0",
                      low_or_not(reply.pulses[pulse].low_quality));
    }

    // Bits above the four digits of the code are dropped.
    static bool write(uint8_t *octets, const Value &reply) {
        uint32_t pulses = 0;
        uint32_t quality = 0;
        for (const unsigned pulse : kReplyOrder) {
            pulses = pulses << 1 | ((reply.code & code_bit(pulse)) != 0);
            quality = quality << 1 | uint32_t{is_set(reply.pulses[pulse].low_quality)};
        }
        write_u16(octets, pulses);
        write_u16(octets + 2, quality);
        octets[0] = static_cast<uint8_t>(octets[0] | placed(!reply.validated, 8) | placed(reply.garbled, 7));
        return fits(reply.code, 16);
    }
};

} // namespace

AST_DEFINE_ENCODED_ITEM(ModeCConfidence, ast_dataitem_mode_c_confidence)
