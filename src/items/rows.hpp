// The fields of an item as rows: how many bits one has, which member of the value record it is, and how the detail view
// shows it. Reading, writing and showing follow from the rows of an item, so that each of these is said once:
//
//     static constexpr Row<Value> kRows[] = {
//         {&Value::nogo, 2, "SYS_STATUS", kStates},              // a number, shown as one of the texts
//         {&Value::ovl, "OVERLOAD"},                             // a flag
//         {&Value::time_valid, kInverted, "TIME_SOURCE_INVALID"}, // one that is set when its bit is clear
//         spare(4, "0"),
//     };
//
// Rows stand in the order of the bits and fill whole octets: a field begins where the one before it ends, the first one
// at bit 8 of the first octet. One without a label is not shown. An item that has rows needs no `read`, `show` or
// `write` (see frame.hpp), a kind of subfield no `read` or `show`; one with something odd about it has its own, which
// may leave the rest to `read_rows`, `place_rows` or a `RowTable`.
#pragma once

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <type_traits>
#include <utility>

#include "codec/size_rules.hpp"
#include "core/bits.hpp"
#include "items/units.hpp"
#include "view/view_writer.hpp"

namespace ast {

// ---- What a row is made of ----

// How a number stands in its bits: with a sign, or as a code. `from` makes the member's number of what is sent and `to`
// the opposite; without `to` the number is sent as it is.
struct Bits {
    constexpr Bits(unsigned count) : width(count) {}
    constexpr Bits(unsigned count, Sign rule) : width(count), sign(rule) {}
    constexpr Bits(unsigned count, uint32_t (*value_of)(uint32_t)) : width(count), has_from(true), from(value_of) {}
    constexpr Bits(unsigned count, uint32_t (*value_of)(uint32_t), uint32_t (*code_of)(uint32_t))
        : width(count), has_from(true), has_to(true), from(value_of), to(code_of) {}

    unsigned width;
    Sign sign = Sign::None;
    bool has_from = false; // sanitizers do not let constants compare functions with null
    bool has_to = false;
    uint32_t (*from)(uint32_t) = nullptr;
    uint32_t (*to)(uint32_t) = nullptr;
};

constexpr Bits kSigned16 = {16, Sign::TwosComplement};
constexpr Bits kMagnitude16 = {16, Sign::MagnitudeLessMaximum};

// A flag that is set when its bit is clear.
constexpr Bits kInverted = {1, [](uint32_t bit) { return bit ^ 1; }, [](uint32_t flag) { return flag ^ 1; }};

// A number that counts from 1, of which one bit tells whether it is the second. 0 is sent as the first.
constexpr Bits kFirstOrSecond = {1, [](uint32_t bit) { return bit + 1; },
                                 [](uint32_t number) { return number == 0 ? 0 : number - 1; }};

// The name of a field, and its short one where the table has a column for that.
struct Label {
    constexpr Label() = default;
    constexpr Label(const char *full) : name(full) {}
    constexpr Label(const char *short_one, const char *full) : id(short_one), name(full) {}

    std::string_view id;
    std::string_view name; // empty: the field is not shown
};

// How a value is shown: in digits unless it chooses a text.
struct Texts {
    enum class Form : uint8_t { Decimal, Binary, OctalDigits, Bit, List, Function };

    constexpr Texts(Form how = Form::Decimal) : form(how) {}
    constexpr Texts(const char *of_0, const char *of_1) : form(Form::Bit), clear(of_0), set(of_1) {} // of a bit as sent
    constexpr Texts(const char *(*text_for)(uint32_t)) : form(Form::Function), function(text_for) {}
    template <size_t N>
    constexpr Texts(const char *const (&texts)[N], const char *for_others = nullptr)
        : form(Form::List), list(texts), count(N), has_fallback(for_others != nullptr), fallback(for_others) {}

    // Whether there is a text for each number of so many bits.
    constexpr bool suffice_for(unsigned width) const {
        return form != Form::List || has_fallback || count >> width != 0;
    }

    Form form;
    std::string_view clear;
    std::string_view set;
    const char *(*function)(uint32_t) = nullptr;
    const char *const *list = nullptr;
    size_t count = 0;
    bool has_fallback = false; // for numbers behind the list
    const char *fallback = nullptr;
};

constexpr Texts kBinary = Texts::Form::Binary;           // all eight digits of an octet
constexpr Texts kOctalDigits = Texts::Form::OctalDigits; // a row for each: CODE-A, CODE-B, ...

// A member of a value record, of one of the types that fields have.
template <typename Value>
struct Member {
    constexpr Member() = default;
    constexpr Member(bool Value::*member) : flag(member) {}
    constexpr Member(uint32_t Value::*member) : number(member) {}
    constexpr Member(int32_t Value::*member) : integer(member) {}
    constexpr Member(uint8_t Value::*member) : octet(member) {}
    constexpr Member(double Value::*member) : real(member) {}
    constexpr Member(ast_optional_field_t Value::*member) : optional(member) {}

    constexpr bool exists() const { return flag || number || integer || octet || real || optional; }

    bool Value::*flag = nullptr;
    uint32_t Value::*number = nullptr;
    int32_t Value::*integer = nullptr;
    uint8_t Value::*octet = nullptr;
    double Value::*real = nullptr;
    ast_optional_field_t Value::*optional = nullptr; // which an item leaves out that ends before it
};

// A number in a unit, one step of it worth `lsb`: the member that keeps it, if one does, and its row behind the one of
// the number as sent.
template <typename Value>
struct InUnit {
    static constexpr uint64_t kUsualRoom = 24; // of its cell; no number is cut there

    constexpr InUnit() = default;
    constexpr InUnit(Member<Value> kept_in, double step, std::string_view label = {}, unsigned shown_decimals = 2)
        : member(kept_in), lsb(step), name(label), decimals(shown_decimals) {}
    constexpr InUnit(double step, std::string_view label, unsigned shown_decimals = 2, uint64_t cell_room = kUsualRoom)
        : lsb(step), name(label), decimals(shown_decimals), room(cell_room) {}

    Member<Value> member;
    double lsb = 0;
    std::string_view name;
    unsigned decimals = 2;
    uint64_t room = kUsualRoom;
};

// Bits without a meaning, and what is shown of them.
struct Spare {
    unsigned width;
    const char *shown;
};
constexpr Spare spare(unsigned width, const char *shown = nullptr) { return {width, shown}; }

// The bit that tells whether an extended item goes on behind its octet.
struct Extension {
    bool is_shown;
};
constexpr Extension fx = {true};
constexpr Extension hidden_fx = {false};

template <typename Value>
struct Row {
    enum class Kind : uint8_t { Spare, Extension, Field };

    constexpr Row(const Spare &unused) : kind(Kind::Spare), bits(unused.width) {
        if (unused.shown) label = {"---", "SPARE"}, shown = unused.shown;
    }
    constexpr Row(const Extension &extension) : kind(Kind::Extension), bits(1) {
        if (extension.is_shown) label = {"FX", "FIELD_EXTENSION"};
    }
    constexpr Row(bool Value::*flag, Label named = {}, Texts texts_of_bit = {"0", "1"})
        : Row(flag, 1, named, texts_of_bit) {}
    constexpr Row(bool Value::*flag, Bits stands_in, Label named = {}, Texts texts_of_bit = {"0", "1"})
        : kind(Kind::Field), bits(stands_in), label(named), texts(texts_of_bit), member(flag) {}
    constexpr Row(Member<Value> number, Bits stands_in, Label named = {}, Texts texts_of_number = {})
        : kind(Kind::Field), bits(stands_in), label(named), texts(texts_of_number), member(number) {}
    constexpr Row(Member<Value> number, Bits stands_in, Label named, InUnit<Value> unit, InUnit<Value> second = {},
                  InUnit<Value> third = {})
        : kind(Kind::Field), bits(stands_in), label(named), member(number), units{unit, second, third} {}

    constexpr bool is_shown() const { return !label.name.empty() || !units[0].name.empty() || !units[1].name.empty(); }

    Kind kind;
    Bits bits;
    Label label;
    Texts texts;
    std::string_view shown; // of spare bits
    Member<Value> member;
    InUnit<Value> units[3];
};

// A row of a number that is a quantity: as sent, and in up to three units.
template <typename Value, typename Number>
constexpr Row<Value> quantity(Number Value::*raw, Bits bits, Label label, InUnit<Value> unit, InUnit<Value> second = {},
                              InUnit<Value> third = {}) {
    return {raw, bits, label, unit, second, third};
}

// A row of a code, which stands for the number that the member has.
template <typename Value>
constexpr Row<Value> code(uint32_t Value::*number, Bits bits, Label label = {}, Texts texts = {}) {
    return {number, bits, label, texts};
}

// The columns of a detail table of rows, and how their places count.
struct Columns {
    enum class Count : uint8_t { Bits, Octets, OctetsWhereWhole };

    const char *place;
    const char *id; // null: none
    const char *name;
    const char *value;
    Count count;
    unsigned first; // the number of the first bit or octet
};
constexpr Columns kBitColumns = {"Bit", nullptr, "Item", "Value", Columns::Count::Bits, 0};
constexpr Columns kBitColumnsWithIds = {"Bit", "ID", "Item", "Value", Columns::Count::Bits, 0};
constexpr Columns kNamedBitColumns = {"Bit", nullptr, "Name", "Value", Columns::Count::Bits, 0};
constexpr Columns kOctetColumns = {"Octet", nullptr, "Item", "Value", Columns::Count::Octets, 1};
constexpr Columns kOctetColumnsFrom0 = {"Octet", nullptr, "Item", "Value", Columns::Count::Octets, 0};

// ---- Where the rows of an item stand ----

// The first and the last bit of a field, counted from 1 at bit 8 of the first octet.
struct Place {
    unsigned first;
    unsigned last;

    constexpr unsigned first_octet() const { return (first - 1) / 8; } // counted from 0
    constexpr unsigned last_octet() const { return (last - 1) / 8; }
    constexpr bool is_in_one_octet() const { return first_octet() == last_octet(); }
    constexpr bool is_whole_octets() const { return first % 8 == 1 && last % 8 == 0; }
    constexpr unsigned high_bit() const { return 8 - (first - 1) % 8; }
    constexpr unsigned low_bit() const { return 8 - (last - 1) % 8; }
};

template <typename I>
concept HasRows = requires {
    I::kRows;
};

template <typename I>
constexpr size_t kRowCount = std::size(I::kRows);

template <typename I>
constexpr auto kPlaces = [] {
    std::array<Place, kRowCount<I>> places{};
    unsigned behind = 0;
    for (size_t i = 0; i < places.size(); ++i) {
        places[i] = {behind + 1, behind + I::kRows[i].bits.width};
        behind = places[i].last;
    }
    return places;
}();

template <typename I>
constexpr unsigned kRowOctets = kPlaces<I>.back().last / 8;

template <typename I>
constexpr Columns kColumnsOf = [] {
    if constexpr (requires { I::kColumns; })
        return I::kColumns;
    else
        return kBitColumns;
}();

// "Bit[3]", "Bit[4-6]", "Octet[1-2]".
class PlaceText {
public:
    constexpr PlaceText(const Place &place, const Columns &columns) {
        const bool counts_octets = columns.count == Columns::Count::Octets ||
                                   (columns.count == Columns::Count::OctetsWhereWhole && place.is_whole_octets());
        const unsigned step = counts_octets ? 8 : 1;
        const unsigned first = (place.first - 1) / step + columns.first;
        const unsigned last = (place.last - 1) / step + columns.first;
        append(counts_octets ? "Octet[" : "Bit[");
        append(first);
        if (last != first) append("-"), append(last);
        append("]");
    }
    constexpr operator std::string_view() const { return {text_, size_}; }

private:
    constexpr void append(std::string_view piece) {
        for (const char character : piece) text_[size_++] = character;
    }
    constexpr void append(unsigned number) {
        if (number >= 10) append(number / 10);
        text_[size_++] = static_cast<char>('0' + number % 10);
    }

    char text_[sizeof "Octet[100-100]"] = {};
    size_t size_ = 0;
};

template <typename I, size_t R>
constexpr PlaceText kPlaceText{kPlaces<I>[R], kColumnsOf<I>};

// ---- What one row does ----

template <typename I, size_t R>
struct RowOf {
    using Value = typename I::Value;
    static constexpr const Row<Value> &kRow = I::kRows[R];
    static constexpr const Member<Value> &kMember = kRow.member;
    static constexpr Place kPlace = kPlaces<I>[R];

    // The number that the member holds.
    static auto number(const Value &value) {
        if constexpr (kMember.flag != nullptr)
            return uint32_t{value.*kMember.flag};
        else if constexpr (kMember.integer != nullptr)
            return value.*kMember.integer;
        else if constexpr (kMember.octet != nullptr)
            return uint32_t{value.*kMember.octet};
        else if constexpr (kMember.optional != nullptr)
            return (value.*kMember.optional).value;
        else
            return value.*kMember.number;
    }

    // The number that is sent for it.
    static auto code(const Value &value) {
        if constexpr (kRow.bits.has_to)
            return kRow.bits.to(number(value));
        else
            return number(value);
    }

    static void read(Value &value, const uint8_t *octets) {
        if constexpr (kPlace.is_in_one_octet())
            read_from(value, octets[kPlace.first_octet()]);
        else if constexpr (kMember.exists())
            take(value, field(octets, kPlace.first, kPlace.last));
    }

    // From the octet that holds it.
    static void read_from(Value &value, uint8_t octet) {
        if constexpr (kMember.exists()) take(value, ast::bits(octet, kPlace.high_bit(), kPlace.low_bit()));
    }

    // Takes what was sent.
    static void take(Value &value, uint32_t number) {
        if constexpr (kRow.bits.has_from) number = kRow.bits.from(number);
        keep(value, number);
        if constexpr (kRow.units[0].member.exists()) keep_in_unit(value);
    }

    static void keep(Value &value, uint32_t number) {
        if constexpr (kMember.flag != nullptr)
            value.*kMember.flag = number != 0;
        else if constexpr (kMember.integer != nullptr)
            value.*kMember.integer = signed_number(number, kRow.bits.width, kRow.bits.sign);
        else if constexpr (kMember.octet != nullptr)
            value.*kMember.octet = static_cast<uint8_t>(number);
        else if constexpr (kMember.optional != nullptr)
            value.*kMember.optional = {.present = true, .value = number};
        else if constexpr (kMember.number != nullptr)
            value.*kMember.number = number;
    }

    static void keep_in_unit(Value &value) {
        constexpr const InUnit<Value> &unit = kRow.units[0];
        if constexpr (unit.member.real != nullptr)
            value.*unit.member.real = number(value) * unit.lsb;
        else if constexpr (unit.member.integer != nullptr)
            value.*unit.member.integer = static_cast<int32_t>(number(value)) * static_cast<int32_t>(unit.lsb);
        else
            value.*unit.member.number = static_cast<uint32_t>(number(value)) * static_cast<uint32_t>(unit.lsb);
    }

    static bool is_sent(const Value &value) {
        if constexpr (kMember.optional != nullptr)
            return (value.*kMember.optional).present;
        else
            return kMember.exists();
    }

    static bool fits(const Value &value) {
        if constexpr (kMember.exists())
            return !is_sent(value) || ast::fits(code(value), kRow.bits.width, kRow.bits.sign);
        else
            return true;
    }

    // What of the field stands in one of its octets.
    template <unsigned Octet>
    static uint32_t part(const Value &value) {
        constexpr unsigned kEnd = 8 * (Octet + 1);
        constexpr bool is_there = kPlace.first_octet() <= Octet && Octet <= kPlace.last_octet();
        if constexpr (!kMember.exists() || !is_there) {
            return 0;
        } else {
            constexpr unsigned kBefore =
                kPlace.first_octet() == Octet ? 8 - kPlace.high_bit() : 0; // bits of other fields
            auto sent = static_cast<uint32_t>(code(value));
            if constexpr (kRow.bits.sign == Sign::MagnitudeLessMaximum) sent = one_below_when_negative(code(value));
            if (!is_sent(value)) sent = 0;
            const uint32_t moved = kPlace.last > kEnd ? sent >> (kPlace.last - kEnd) : sent << (kEnd - kPlace.last);
            return moved & 0xFFU >> kBefore;
        }
    }

    // `octets` are those of an extended item, which says there itself whether it goes on.
    static void show(DetailTable &table, const Value &value, const uint8_t *octets, uint64_t size) {
        if constexpr (kRow.kind == Row<Value>::Kind::Spare) {
            constexpr std::string_view shown = kRow.shown;
            show_cell(table, shown);
        } else if constexpr (kRow.kind == Row<Value>::Kind::Extension) {
            constexpr unsigned kOctet = kPlace.last_octet();
            const bool goes_on = kOctet + 1 < I::kSize.octets ? size > kOctet + 1 : has_fx(octets[kOctet]);
            show_cell(table, std::string_view(goes_on ? "1" : "0", 1));
        } else {
            if constexpr (kMember.optional != nullptr)
                if (!(value.*kMember.optional).present) return;
            if constexpr (!kRow.label.name.empty()) show_number(table, value);
            show_in_unit<0>(table, value);
            show_in_unit<1>(table, value);
            show_in_unit<2>(table, value);
        }
    }

    static void show_number(DetailTable &table, const Value &value) {
        constexpr Texts texts = kRow.texts;
        static_assert(kRow.bits.has_from || texts.suffice_for(kRow.bits.width), "a text for each number");
        const auto shown = number(value);
        if constexpr (texts.form == Texts::Form::Bit)
            show_cell(table, std::string_view(code(value) ? texts.set : texts.clear));
        else if constexpr (texts.form == Texts::Form::Binary)
            show_cell(table, BinaryOctet(static_cast<uint8_t>(shown)));
        else if constexpr (texts.form == Texts::Form::OctalDigits)
            show_digits(table, shown, std::make_integer_sequence<unsigned, (kRow.bits.width + 2) / 3>{});
        else if constexpr (texts.form == Texts::Form::Function)
            show_cell(table, texts.function(shown));
        else if constexpr (texts.form == Texts::Form::List && kRow.texts.has_fallback)
            show_cell(table, shown < texts.count ? texts.list[shown] : texts.fallback);
        else if constexpr (texts.form == Texts::Form::List)
            show_cell(table, texts.list[shown]);
        else if constexpr (kMember.integer != nullptr)
            show_cell(table, Cell<12>("%d", shown));
        else
            show_cell(table, Cell<12>("%u", shown));
    }

    // Three bits each from the first one on; what is left for the last.
    template <unsigned... Digits>
    static void show_digits(DetailTable &table, uint32_t code, std::integer_sequence<unsigned, Digits...>) {
        const auto show_digit = [&](auto digit) {
            constexpr unsigned kFirst = kPlace.first + 3 * digit;
            static constexpr PlaceText kText{{kFirst, std::min(kFirst + 2, kPlace.last)}, kColumnsOf<I>};
            static constexpr char kName[] = {'C', 'O', 'D', 'E', '-', 'A' + digit, '\0'};
            constexpr unsigned kLeft = kPlace.last + 1 - kFirst;
            table.row(std::string_view(kText), kName, Cell<2>("%o", ast::bits(code, kLeft, kLeft > 3 ? kLeft - 2 : 1)));
        };
        (show_digit(std::integral_constant<unsigned, Digits>{}), ...);
    }

    template <size_t U>
    static void show_in_unit(DetailTable &table, const Value &value) {
        constexpr const InUnit<Value> &unit = kRow.units[U];
        constexpr std::string_view name = unit.name;
        if constexpr (!name.empty())
            show_cell(table, decimal<unit.decimals, unit.room>(number(value) * unit.lsb), name);
    }

    template <unsigned Decimals, uint64_t Room>
    static Cell<Room> decimal(double number) {
        static_assert(Decimals == 0 || Decimals == 2 || Decimals == 3 || Decimals == 6);
        return Cell<Room>(Decimals == 0 ? "%.0f" : Decimals == 2 ? "%.2f" : Decimals == 3 ? "%.3f" : "%f", number);
    }

    // A cell behind the place and the name of the field.
    template <typename Text>
    static void show_cell(DetailTable &table, const Text &text) {
        constexpr bool shows_short = kRow.kind == Row<Value>::Kind::Extension && kColumnsOf<I>.id == nullptr;
        constexpr std::string_view name = shows_short ? kRow.label.id : kRow.label.name;
        show_cell(table, text, name);
    }
    template <typename Text>
    static void show_cell(DetailTable &table, const Text &text, std::string_view name) {
        constexpr Columns columns = kColumnsOf<I>;
        constexpr std::string_view place = kPlaceText<I, R>;
        constexpr std::string_view id = kRow.label.id;
        if constexpr (columns.place == nullptr)
            table.row(name, text);
        else if constexpr (columns.id == nullptr)
            table.row(place, name, text);
        else
            table.row(place, id, name, text);
    }
};

// ---- What all rows do ----

// Calls `one` with each row, and ends with the first one for which that is false.
template <typename I, typename One>
[[gnu::always_inline]] inline bool all_rows(One one) {
    static_assert(kPlaces<I>.back().last % 8 == 0, "rows fill whole octets");
    return [&]<size_t... R>(std::index_sequence<R...>) { return (one(RowOf<I, R>{}) && ...); }
    (std::make_index_sequence<kRowCount<I>>{});
}

// Reads the fields of the octets that there are. The members of others stay as they are.
template <typename I>
[[gnu::always_inline]] inline void read_rows(typename I::Value &value, const uint8_t *octets) {
    all_rows<I>([&](auto row) { return row.read(value, octets), true; });
}

template <typename I>
[[gnu::always_inline]] inline void read_rows(typename I::Value &value, const uint8_t *octets, uint64_t size) {
    const auto read_octet = [&](auto number) {
        if (number >= size) return false;
        const uint8_t octet = octets[number];
        return all_rows<I>([&](auto row) {
            static_assert(row.kPlace.is_in_one_octet(), "octets that an item may end before have fields of their own");
            if constexpr (row.kPlace.first_octet() == number) row.read_from(value, octet);
            return true;
        });
    };
    [&]<unsigned... O>(std::integer_sequence<unsigned, O...>) {
        (void)(read_octet(std::integral_constant<unsigned, O>{}) && ...);
    }
    (std::make_integer_sequence<unsigned, kRowOctets<I>>{});
}

// Puts all fields into as many octets as the rows have. False when one does not fit.
template <typename I>
bool place_rows(uint8_t *octets, const typename I::Value &value) {
    [&]<unsigned... O>(std::integer_sequence<unsigned, O...>) {
        ((octets[O] = 0, all_rows<I>([&](auto row) {
              octets[O] |= static_cast<uint8_t>(row.template part<O>(value));
              return true;
          })),
         ...);
    }
    (std::make_integer_sequence<unsigned, kRowOctets<I>>{});
    return all_rows<I>([&](auto row) { return row.fits(value); });
}

// The same for what an encoder writes: an extended item ends with the last octet that holds something.
template <typename I>
uint64_t write_rows(uint8_t *octets, const typename I::Value &value) {
    if (!place_rows<I>(octets, value)) return 0;
    return I::kSize.kind == SizeRule::Kind::Extended ? chain_to_last(octets, kRowOctets<I>) : kRowOctets<I>;
}

// The table of a detail view, which its rows fill as far as there are octets.
template <typename I>
DetailTable table_of_rows(ViewWriter &view) {
    constexpr const Columns &columns = kColumnsOf<I>;
    if constexpr (columns.place == nullptr)
        return DetailTable(view, columns.name, columns.value);
    else if constexpr (columns.id == nullptr)
        return DetailTable(view, columns.place, columns.name, columns.value);
    else
        return DetailTable(view, columns.place, columns.id, columns.name, columns.value);
}

template <typename I>
void show_rows(DetailTable &table, const typename I::Value &value, const uint8_t *octets = nullptr,
               uint64_t size = kRowOctets<I>) {
    all_rows<I>([&](auto row) {
        if (row.kPlace.last_octet() >= size) return false;
        if constexpr (row.kRow.is_shown()) row.show(table, value, octets, size);
        return true;
    });
}

} // namespace ast
