// The words that the tables of answers are written in, and how what they say is read. A field says where in an item an
// answer stands, in which step, and which bits beside it or values of it say that there is none; the compiler makes of
// it the few instructions that read just that.
#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <type_traits>
#include <utility>

#include "ast.h"
#include "core/bits.hpp"
#include "schema/field.hpp"
#include "schema/texts.hpp"

namespace ast::reader {

// ---- Answers ----

// In the order of their bits.
enum class Answer : uint8_t {
    Timestamp,
    Time,
    Category,
    Sac,
    Sic,
    Type,
    TrackNumber,
    Squawk,
    Callsign,
    Icao24,
    Fl,
    Altitude,
    SelectedAltitude,
    Latitude,
    Longitude,
    Range,
    Azimuth,
    X,
    Y,
    Groundspeed,
    Track,
    MagneticHeading,
    TrueHeading,
    VerticalRate,
    Roll,
    TrueAirspeed,
    IndicatedAirspeed,
    Mach,
    SquawkValidated,
    SquawkGarbled,
    SquawkSmoothed,
    SquawkChanged,
    Spi,
    Emergency,
    OnGround,
    Simulated,
    Test,
    Coasted,
    Ended,
};

constexpr uint64_t bit_of(Answer answer) { return UINT64_C(1) << static_cast<unsigned>(answer); }

struct Member {
    const char *name;
    size_t offset; // in ast_answers_t
};

inline constexpr Member kMembers[] = {
    {"timestamp", offsetof(ast_answers_t, timestamp_ns)},
    {"time", offsetof(ast_answers_t, time_of_day_s)},
    {"category", offsetof(ast_answers_t, category)},
    {"sac", offsetof(ast_answers_t, sac)},
    {"sic", offsetof(ast_answers_t, sic)},
    {"type", offsetof(ast_answers_t, type)},
    {"track_number", offsetof(ast_answers_t, track_number)},
    {"squawk", offsetof(ast_answers_t, squawk)},
    {"callsign", offsetof(ast_answers_t, callsign)},
    {"icao24", offsetof(ast_answers_t, icao24)},
    {"fl", offsetof(ast_answers_t, fl)},
    {"altitude_ft", offsetof(ast_answers_t, altitude_ft)},
    {"selected_altitude_ft", offsetof(ast_answers_t, selected_altitude_ft)},
    {"latitude", offsetof(ast_answers_t, latitude_deg)},
    {"longitude", offsetof(ast_answers_t, longitude_deg)},
    {"range_nm", offsetof(ast_answers_t, range_nm)},
    {"azimuth_deg", offsetof(ast_answers_t, azimuth_deg)},
    {"x_nm", offsetof(ast_answers_t, x_nm)},
    {"y_nm", offsetof(ast_answers_t, y_nm)},
    {"groundspeed_kt", offsetof(ast_answers_t, groundspeed_kt)},
    {"track_deg", offsetof(ast_answers_t, track_deg)},
    {"magnetic_heading_deg", offsetof(ast_answers_t, magnetic_heading_deg)},
    {"true_heading_deg", offsetof(ast_answers_t, true_heading_deg)},
    {"vertical_rate_ftmin", offsetof(ast_answers_t, vertical_rate_ftmin)},
    {"roll_deg", offsetof(ast_answers_t, roll_deg)},
    {"true_airspeed_kt", offsetof(ast_answers_t, true_airspeed_kt)},
    {"indicated_airspeed_kt", offsetof(ast_answers_t, indicated_airspeed_kt)},
    {"mach", offsetof(ast_answers_t, mach)},
    {"squawk_validated", offsetof(ast_answers_t, squawk_validated)},
    {"squawk_garbled", offsetof(ast_answers_t, squawk_garbled)},
    {"squawk_smoothed", offsetof(ast_answers_t, squawk_smoothed)},
    {"squawk_changed", offsetof(ast_answers_t, squawk_changed)},
    {"spi", offsetof(ast_answers_t, spi)},
    {"emergency", offsetof(ast_answers_t, emergency)},
    {"on_ground", offsetof(ast_answers_t, on_ground)},
    {"simulated", offsetof(ast_answers_t, simulated)},
    {"test", offsetof(ast_answers_t, test)},
    {"coasted", offsetof(ast_answers_t, coasted)},
    {"ended", offsetof(ast_answers_t, ended)},
};
static_assert(std::size(kMembers) == AST_ANSWERS && bit_of(Answer::Ended) == AST_ANSWER_ENDED);

constexpr size_t offset_of(Answer answer) { return kMembers[static_cast<size_t>(answer)].offset; }

constexpr unsigned kChoices = 5;

// What of a record has been read so far.
struct Answering {
    ast_answers_t &out;
    uint64_t given[kChoices]; // the answers that came as first choice, as second choice ...

    template <typename Type>
    Type &member(Answer answer) {
        return *reinterpret_cast<Type *>(reinterpret_cast<char *>(&out) + offset_of(answer));
    }

    // Whether none has come yet that is as good.
    template <unsigned choice>
    bool wants(uint64_t answers) const {
        static_assert(choice < kChoices);
        uint64_t as_good = 0;
        for (unsigned i = 0; i <= choice; ++i) as_good |= given[i];
        return choice == 0 || (as_good & answers) == 0;
    }
    template <unsigned choice>
    bool claim(uint64_t answers) {
        if (!wants<choice>(answers)) return false;
        given[choice] |= answers;
        return true;
    }

    // Takes answers back.
    void forget(uint64_t answers) {
        for (uint64_t &each : given) each &= ~answers;
    }

    uint64_t present() const { return given[0] | given[1] | given[2] | given[3] | given[4]; }
};
static_assert(kChoices == 5); // as present() counts them

// Reads an item or subfield, which has so many octets.
using Read = void (*)(Answering &, const uint8_t *data, uint64_t size);

// ---- Fields ----

enum class Form : uint8_t {
    Unsigned,
    Signed,
    Code,
    Mark, // true or false, of the choice that the rest of its item is
    Flag, // true when any of several says so
};

constexpr uint32_t kAnyValue = UINT32_MAX; // all values of a field are good
constexpr unsigned kMaxFlagBits = 5;       // of a flag; higher values mean nothing

// Bits count from 1 at the first of an item; a bit 0 is none.
struct Field {
    Form form;
    Answer answer;
    uint16_t first;
    uint16_t width;
    uint64_t numerator = 1; // of the step
    uint64_t denominator = 1;
    unsigned choice = 0;
    unsigned clear = 0; // bits that say by being set that the field means nothing
    unsigned clear_2 = 0;
    unsigned set = 0; // and those that say so by being clear
    unsigned set_2 = 0;
    uint32_t none = kAnyValue; // the value that says so
    uint32_t yes = 0;          // of a flag: the values that set it, as bits
    uint32_t unknown = 0;      // and those that mean nothing

    constexpr unsigned last() const { return first + width - 1U; }

    // What is said of a field beside its place.
    constexpr Field as_choice(unsigned number) const {
        Field field = *this;
        field.choice = number;
        return field;
    }
    constexpr Field when_clear(unsigned bit, unsigned another = 0) const {
        Field field = *this;
        field.clear = bit;
        field.clear_2 = another;
        return field;
    }
    constexpr Field when_set(unsigned bit, unsigned another = 0) const {
        Field field = *this;
        field.set = bit;
        field.set_2 = another;
        return field;
    }
    constexpr Field unless(uint32_t value) const {
        Field field = *this;
        field.none = value;
        return field;
    }
    constexpr Field not_known_by(uint32_t values) const {
        Field field = *this;
        field.unknown = values;
        return field;
    }
};

using schema::Step;

// From bit `first` on, of so many bits.
constexpr Field number(Answer answer, unsigned first, unsigned width, Step step) {
    return {.form = Form::Unsigned,
            .answer = answer,
            .first = static_cast<uint16_t>(first),
            .width = static_cast<uint16_t>(width),
            .numerator = step.numerator,
            .denominator = step.denominator};
}
constexpr Field signed_number(Answer answer, unsigned first, unsigned width, Step step) {
    Field field = number(answer, first, width, step);
    field.form = Form::Signed;
    return field;
}
constexpr Field code(Answer answer, unsigned first, unsigned width) {
    Field field = number(answer, first, width, {});
    field.form = Form::Code;
    return field;
}
// True for the values that are set in `yes`: 1 << 3 for 3.
constexpr Field flag(Answer answer, unsigned first, unsigned width, uint32_t yes) {
    Field field = code(answer, first, width);
    field.form = Form::Flag;
    field.yes = yes;
    return field;
}
constexpr Field flag(Answer answer, unsigned bit) { return flag(answer, bit, 1, 1U << 1); }
constexpr Field mark(Answer answer, unsigned bit, bool when = true) {
    Field field = flag(answer, bit, 1, when ? 1U << 1 : 1U << 0);
    field.form = Form::Mark;
    return field;
}
// One that nothing but its being set says anything.
constexpr Field flag_if_set(Answer answer, unsigned bit) { return flag(answer, bit).not_known_by(1U << 0); }

// ---- Reading fields ----

// Where fields are read: in octets, or in so many of them as one number, so that they are read from memory once.
struct Octets {
    const uint8_t *data;

    template <unsigned first, unsigned width>
    uint32_t bits() const {
        if constexpr (first % 8 == 1 && width == 32) return read_u32(data + first / 8);
        if constexpr (first % 8 == 1 && width == 24) return read_u24(data + first / 8);
        if constexpr (first % 8 == 1 && width == 16) return read_u16(data + first / 8);
        return ast::field(data, first, first + width - 1);
    }
};

template <unsigned octets>
struct Number {
    using Value = std::conditional_t<(octets > 4), uint64_t, uint32_t>;
    Value value;

    explicit Number(const uint8_t *data) : value(read(data)) {}

    template <unsigned first, unsigned width>
    uint32_t bits() const {
        constexpr unsigned kBehind = 8 * octets - (first + width - 1);
        return static_cast<uint32_t>(value >> kBehind) & (UINT32_MAX >> (32 - width));
    }

private:
    static Value read(const uint8_t *data) {
        if constexpr (octets == 1) return *data;
        if constexpr (octets == 2) return read_u16(data);
        if constexpr (octets == 3) return read_u24(data);
        if constexpr (octets == 4) return read_u32(data);
        if constexpr (octets == 6) return Value{read_u16(data)} << 32 | read_u32(data + 2);
        if constexpr (octets == 8) return read_u64(data);
    }
};

template <unsigned bit, typename Source>
bool is_set(Source source) {
    if constexpr (bit == 0)
        return false;
    else
        return source.template bits<bit, 1>() != 0;
}

template <Field field>
bool is_yes(uint32_t raw) {
    if constexpr (field.width == 1 && field.yes == 1U << 1) return raw != 0;
    if constexpr (field.width == 1 && field.yes == 1U << 0) return raw == 0;
    return (field.yes >> raw & 1) != 0;
}

// Reads a field that is wanted, whatever is said beside it, and returns its answer; 0 when the value is none.
template <Field field, typename Source>
uint64_t take_field(Answering &answering, Source source) {
    const uint32_t raw = source.template bits<field.first, field.width>();
    if (field.none != kAnyValue && raw == field.none) return 0;
    if constexpr (field.form == Form::Flag) {
        if (field.width > kMaxFlagBits && raw >> kMaxFlagBits != 0) return 0;
        if (field.unknown != 0 && (field.unknown >> raw & 1) != 0) return 0;
        answering.member<bool>(field.answer) |= is_yes<field>(raw);
    } else if constexpr (field.form == Form::Mark) {
        answering.member<bool>(field.answer) = is_yes<field>(raw);
    } else if constexpr (field.form == Form::Code) {
        answering.member<uint32_t>(field.answer) = raw;
    } else {
        constexpr double kStep = static_cast<double>(field.numerator) / static_cast<double>(field.denominator);
        const int64_t value = field.form == Form::Signed ? twos_complement(raw, field.width) : int64_t{raw};
        answering.member<double>(field.answer) = static_cast<double>(value) * kStep;
    }
    return bit_of(field.answer);
}

template <Field field, typename Source>
uint64_t read_field(Answering &answering, Source source) {
    if (is_set<field.clear>(source) || is_set<field.clear_2>(source)) return 0;
    if (field.set != 0 && !is_set<field.set>(source)) return 0;
    if (field.set_2 != 0 && !is_set<field.set_2>(source)) return 0;
    if (!answering.wants<field.choice>(bit_of(field.answer))) return 0;
    return take_field<field>(answering, source);
}

// An item that has at least so many octets; the fields behind them are read as far as there are octets.
template <unsigned octets, Field... fields>
void read(Answering &answering, const uint8_t *data, uint64_t size) {
    if (size < octets) return;
    const Number<octets> number(data);
    uint64_t given[kChoices] = {};
    const auto read_if_there = [&]<Field field>() {
        if constexpr (field.last() <= 8 * octets)
            given[field.choice] |= read_field<field>(answering, number);
        else if (size * 8 >= field.last())
            given[field.choice] |= read_field<field>(answering, Octets{data});
    };
    (read_if_there.template operator()<fields>(), ...);
    const auto give = [&]<unsigned choice>() {
        if constexpr (((fields.choice == choice) || ...)) answering.given[choice] |= given[choice];
    };
    [&]<unsigned... choices>(std::integer_sequence<unsigned, choices...>) {
        (give.template operator()<choices>(), ...);
    }
    (std::make_integer_sequence<unsigned, kChoices>());
}

// Ways to read an item, one after the other.
template <Read... reads>
void read_all(Answering &answering, const uint8_t *data, uint64_t size) {
    (reads(answering, data, size), ...);
}

// ---- What takes more than a field ----

// Both codes of a source.
inline constexpr Field kSac = code(Answer::Sac, 1, 8);
inline constexpr Field kSic = code(Answer::Sic, 9, 8);

// The components of a velocity behind one another, east and north; one that does not move has no direction.
template <unsigned first, unsigned width, uint64_t numerator, uint64_t denominator, unsigned choice>
void read_velocity(Answering &answering, const uint8_t *data, uint64_t size) {
    constexpr double kKnots = static_cast<double>(numerator) / static_cast<double>(denominator);
    constexpr double kDegrees = 180 / 3.14159265358979323846;
    if (size * 8 < first + 2 * width - 1) return;
    const Octets octets{data};
    const auto x = static_cast<double>(twos_complement(octets.bits<first, width>(), width));
    const auto y = static_cast<double>(twos_complement(octets.bits<first + width, width>(), width));
    if (answering.claim<choice>(AST_ANSWER_GROUNDSPEED))
        answering.out.groundspeed_kt = std::sqrt(x * x + y * y) * kKnots;
    if ((x == 0 && y == 0) || !answering.claim<choice>(AST_ANSWER_TRACK)) return;
    const double angle_deg = std::atan2(x, y) * kDegrees;
    answering.out.track_deg = angle_deg < 0 ? angle_deg + 360 : angle_deg;
}

// Of a callsign as it is now: without blanks at its end, and whether any character says something.
inline bool tidy_callsign(char *text, unsigned chars) {
    while (chars != 0 && text[chars - 1] == ' ') text[--chars] = '\0';
    for (unsigned i = 0; i < chars; ++i)
        if (text[i] != ' ' && text[i] != schema::kUndefinedCharacter) return true;
    return false;
}

// The 48 bits of eight characters, each in an octet of its own, the first one highest.
constexpr uint64_t spread_six_bits(uint64_t codes) {
    codes = (codes & 0xFFFFFF000000) << 8 | (codes & 0x000000FFFFFF);
    codes = (codes & 0x00FFF00000FFF000) << 4 | (codes & 0x00000FFF00000FFF);
    return (codes & 0x0FC00FC00FC00FC0) << 2 | (codes & 0x003F003F003F003F);
}

constexpr uint64_t in_each_octet(uint64_t octet) { return octet * 0x0101010101010101; }

// The highest bit of each octet whose code is no letter, digit or blank. Sums of small numbers reach that bit.
constexpr uint64_t undefined_codes(uint64_t codes) {
    const uint64_t low = codes & in_each_octet(0x1F);
    const uint64_t from_1 = low + in_each_octet(0x80 - 1);
    const uint64_t letter = from_1 & ~(low + in_each_octet(0x80 - 27));
    const uint64_t digit = (low + in_each_octet(0x80 - 16)) & ~(low + in_each_octet(0x80 - 26));
    const uint64_t is_other = codes << 2; // from 32 on
    return ((is_other & from_1 & ~digit) | (~is_other & ~letter)) & in_each_octet(0x80);
}

// The characters that a number of eight octets is, the highest one first.
inline void write_characters(char *to, uint64_t characters) {
    if constexpr (std::endian::native == std::endian::little) characters = __builtin_bswap64(characters);
    std::memcpy(to, &characters, sizeof characters);
}

// Eight characters of six bits each, from an octet on that counts from 0; or fewer of eight bits.
template <unsigned octet, unsigned choice>
void read_six_bit_callsign(Answering &answering, const uint8_t *data, uint64_t size) {
    if (size < octet + 6) return;
    constexpr uint64_t kBlanks = in_each_octet(' ');
    const uint64_t codes = spread_six_bits(uint64_t{read_u16(data + octet)} << 32 | read_u32(data + octet + 2));
    const uint64_t undefined = undefined_codes(codes);
    uint64_t text = codes | (~codes & kBlanks) << 1; // letters are 64 higher
    if (undefined != 0) [[unlikely]] {
        const uint64_t where = (undefined >> 7) * 0xFF;
        text = (text & ~where) | (in_each_octet(schema::kUndefinedCharacter) & where);
        if ((text & ~where) == (kBlanks & ~where)) return;
    }
    const uint64_t inked = codes & in_each_octet(0x1F); // neither blanks nor zeros, with which some fill up
    if (inked == 0 || !answering.claim<choice>(AST_ANSWER_CALLSIGN)) return;
    const auto behind = static_cast<unsigned>(std::countr_zero(inked)) & ~7U; // the bits of what is filled up
    write_characters(answering.out.callsign, text >> behind << behind);
}
template <unsigned chars, unsigned choice>
void read_ascii_callsign(Answering &answering, const uint8_t *data, uint64_t size) {
    static_assert(chars < AST_ANSWER_CALLSIGN_CAPACITY);
    if (size < chars) return;
    char text[AST_ANSWER_CALLSIGN_CAPACITY] = {};
    for (unsigned i = 0; i < chars; ++i)
        text[i] = schema::is_printable(data[i]) ? static_cast<char>(data[i]) : schema::kUndefinedCharacter;
    if (tidy_callsign(text, chars) && answering.claim<choice>(AST_ANSWER_CALLSIGN))
        std::memcpy(answering.out.callsign, text, sizeof text);
}

// Four octal digits as characters; anything else is no code.
inline void read_ascii_squawk(Answering &answering, const uint8_t *data, uint64_t size) {
    if (size < 4) return;
    uint32_t squawk = 0;
    for (unsigned i = 0; i < 4; ++i) {
        if (data[i] < '0' || data[i] > '7') return;
        squawk = squawk << 3 | (data[i] - '0');
    }
    if (answering.claim<0>(AST_ANSWER_SQUAWK)) answering.out.squawk = squawk;
}

// Plots and tracks of a sensor look alike but for the track number.
constexpr uint32_t kPlotOrTrack = AST_MESSAGES;

// A code and the kind of message that it stands for; others stand for none.
struct Kind {
    uint8_t code;
    uint8_t type;
};

// Of a code that is none of these, `otherwise`.
template <const auto &kinds, unsigned first, unsigned width, uint32_t otherwise = 0>
void read_type(Answering &answering, const uint8_t *data, uint64_t size) {
    if (size * 8 < first + width - 1) return;
    const uint32_t code = Octets{data}.bits<first, width>();
    answering.out.type = otherwise;
    for (const Kind &kind : kinds)
        if (kind.code == code) answering.out.type = kind.type;
}

// A bit that is set when slant ranges were corrected and projected.
template <unsigned bit>
void read_frame(Answering &answering, const uint8_t *data, uint64_t size) {
    if (size * 8 >= bit) answering.out.frame = is_set<bit>(Octets{data}) ? AST_FRAME_TANGENTIAL : AST_FRAME_RADAR;
}

// The lower bits of a time of day, which count up to 512 s. They wait in place of it for the rest.
constexpr double kTruncatedTimeS = 512;
inline void read_truncated_time(Answering &answering, const uint8_t *data, uint64_t size) {
    read<2, number(Answer::Time, 1, 16, {1, 128})>(answering, data, size);
}

// The seconds of the time of day that was this choice stay, but for one more or less, with a fraction of more bits.
template <unsigned choice>
void refine_time(Answering &answering, const uint8_t *data, uint64_t size) {
    constexpr double kDayS = 24 * 60 * 60;
    constexpr double kCarryS[] = {0, 1, kDayS - 1}; // by the full second indication; 3 means nothing
    if (size < 4 || data[0] >= std::size(kCarryS) << 6 || (answering.given[choice] & AST_ANSWER_TIME) == 0) return;
    if (!answering.wants<choice - 1>(AST_ANSWER_TIME)) return; // a better one came before
    double &time_s = answering.out.time_of_day_s;
    if (time_s >= kDayS) return;
    const Octets octets{data};
    const double fraction_s = octets.bits<3, 30>() / static_cast<double>(1U << 30);
    time_s = std::fmod(std::floor(time_s) + kCarryS[octets.bits<1, 2>()], kDayS) + fraction_s;
}

// ---- Subfields ----

struct Subfield {
    enum class Shape : uint8_t { Fixed, Chained, Elements, Compound };

    constexpr Subfield(unsigned size, Read how = nullptr) : octets(size), read(how) {}
    constexpr Subfield(Shape of, unsigned size, Read how) : shape(of), octets(size), read(how) {}
    template <size_t N>
    constexpr Subfield(const Subfield (&list)[N], Read how)
        : shape(Shape::Compound), read(how), parts(list), count(N) {}

    Shape shape = Shape::Fixed;
    unsigned octets = 0; // of all of it, of its first part, or of an element
    Read read = nullptr; // none for one without answers
    const Subfield *parts = nullptr;
    size_t count = 0;
};

// Octets chained by FX, the first of which is in the octet that is told; a count and as many elements.
constexpr Subfield chained(Read read = nullptr, unsigned octets = 1) {
    return {Subfield::Shape::Chained, octets, read};
}
constexpr Subfield elements(unsigned octets, Read read = nullptr) { return {Subfield::Shape::Elements, octets, read}; }

constexpr uint64_t kTooLong = UINT64_MAX;

// The octets of a subfield; kTooLong when there are fewer left.
uint64_t size_of(const Subfield &subfield, const uint8_t *data, uint64_t left);

// Subfields in the order of their presence bits, which are chained by FX or fill one octet.
enum class Presence : uint8_t { Chained, OneOctet };

// The octets of presence bits and subfields; kTooLong when there are fewer, or subfields that the list does not have.
uint64_t size_of(const Subfield *list, size_t count, Presence presence, const uint8_t *data, uint64_t left);

// Reads those that are there, up to the last of the list: what is behind it, nobody asks.
void read_subfields(Answering &answering, const Subfield *list, size_t count, Presence presence, const uint8_t *data,
                    uint64_t size);

template <const auto &subfields>
void read_compound(Answering &answering, const uint8_t *data, uint64_t size) {
    read_subfields(answering, subfields, std::size(subfields), Presence::Chained, data, size);
}

template <const auto &subfields>
constexpr Subfield compound = {subfields, read_compound<subfields>};

// A Reserved Expansion Field: its length, then subfields, where they are exactly what the document says. Systems fill
// it as they like.
template <const auto &subfields>
void read_expansion(Answering &answering, const uint8_t *data, uint64_t size) {
    if (size < 2 || data[0] != size) return;
    const uint64_t octets = size_of(subfields, std::size(subfields), Presence::OneOctet, data + 1, size - 1);
    if (octets == size - 1)
        read_subfields(answering, subfields, std::size(subfields), Presence::OneOctet, data + 1, size - 1);
}

// ---- Mode S registers ----

constexpr unsigned kRegisterOctets = 8; // its number is the last one

// Each behind its status bit; of those that answer the same, the first one that is valid. Angles are sent from -180 to
// 180 degrees in two's complement, which is 0 to 360 in as many bits without a sign.
template <unsigned choice, Field... fields>
void read_register_fields(Answering &answering, const Number<kRegisterOctets> &word) {
    uint64_t taken = 0; // by others or here
    for (unsigned i = 0; i <= choice; ++i) taken |= answering.given[i];
    const uint64_t before = taken;
    const auto read_valid = [&]<Field field>() {
        if (is_set<field.first - 1U>(word) && (taken & bit_of(field.answer)) == 0)
            taken |= take_field<field>(answering, word);
    };
    (read_valid.template operator()<fields>(), ...);
    answering.given[choice] |= taken ^ before;
}

template <unsigned choice>
void read_register(Answering &answering, const uint8_t *data) {
    using enum Answer;
    const Number<kRegisterOctets> word(data);
    switch (word.bits<8 * kRegisterOctets - 7, 8>()) {
    case 0x20:
        if (data[0] == 0x20) read_six_bit_callsign<1, choice>(answering, data, kRegisterOctets);
        break;
    case 0x40:
        read_register_fields<choice, number(SelectedAltitude, 2, 12, {16, 1}),
                             number(SelectedAltitude, 15, 12, {16, 1})>(answering, word);
        break;
    case 0x50:
        read_register_fields<choice, signed_number(Roll, 2, 10, {45, 256}), number(Track, 13, 11, {90, 512}),
                             number(Groundspeed, 25, 10, {2, 1}), number(TrueAirspeed, 47, 10, {2, 1})>(answering,
                                                                                                        word);
        break;
    case 0x60:
        read_register_fields<choice, number(MagneticHeading, 2, 11, {90, 512}),
                             number(IndicatedAirspeed, 14, 10, {1, 1}), number(Mach, 25, 10, {4, 1000}),
                             signed_number(VerticalRate, 36, 10, {32, 1}),
                             signed_number(VerticalRate, 47, 10, {32, 1})>(answering, word);
        break;
    default:
        break;
    }
}

// A count, and as many registers.
template <unsigned choice>
void read_registers(Answering &answering, const uint8_t *data, uint64_t size) {
    if (size == 0) return;
    uint64_t left = data[0];
    for (const uint8_t *next = data + 1; left != 0 && next + kRegisterOctets <= data + size; --left) {
        read_register<choice>(answering, next);
        next += kRegisterOctets;
    }
}

} // namespace ast::reader
