// Records from JSON: the same tables the other way round.

#include <cstring>
#include <iterator>

#include "core/bits.hpp"
#include "schema/line_keys.hpp"
#include "schema/match.hpp"
#include "schema/ordered.hpp"

namespace ast::schema {

namespace {

constexpr char kMissing[] = "is missing";
constexpr char kNoObject[] = "is no object";
constexpr char kNoArray[] = "is no array";
constexpr char kTooMany[] = "has more elements than can be counted";
constexpr char kTooLong[] = "is too long";
constexpr char kUnknown[] = "is not known here";
constexpr char kRepeated[] = "is repeated";
constexpr char kBesideData[] = "stands beside data, which are all octets of the record";
constexpr char kTwice[] = "stands twice, or does not go with what stands before it";

constexpr uint64_t kMaxCount = 255;

Slice key_of(const Field &field) { return {field.key, field.key_chars - 1U}; }

// What is wrong first, and the way to it.
class Fault {
public:
    const char *what() const { return what_; }
    const char *place() const { return place_; }
    const char *path() const { return path_; }

    // Says what is wrong with a value, or with the object that lacks it.
    bool set(const char *what, Slice value) {
        what_ = what;
        place_ = value.data();
        return false;
    }

    // Does something one step further down. The way there is put together on the way back, if anything is wrong.
    template <typename Do>
    bool within(Slice name, Do what) {
        return what() || step(name);
    }
    template <typename Do>
    bool within(uint64_t element, Do what) {
        if (what()) return true;
        char digits[kNumberRoom + 2] = {'['};
        char *const end = put_number(digits + 1, element);
        *end = ']';
        return step({digits, static_cast<size_t>(end + 1 - digits)});
    }

private:
    // What stands in front of the way so far.
    bool step(Slice text) {
        if (path_[0] != '\0' && path_[0] != '[') prepend("/");
        prepend(text);
        return false;
    }
    void prepend(Slice text) {
        const size_t room = sizeof path_ - 1;
        const size_t chars = text.size() < room ? text.size() : room;
        std::memmove(path_ + chars, path_, room - chars);
        std::memcpy(path_, text.data(), chars);
    }

    const char *what_ = nullptr;
    const char *place_ = nullptr;
    char path_[AST_JSON_PATH_CAPACITY] = {};
};

// ---- Items ----

class Encoder {
public:
    Encoder(BitWriter &out, Fault &fault, const Context &context) : out_(out), fault_(fault), context_(context) {}

    // A field from a value that is there.
    bool field(const Field *field, Slice value) {
        switch (field->kind) {
        case Kind::Group:
        case Kind::Extended:
        case Kind::Compound:
            return object(field, value);
        case Kind::Repetitive:
            return repetitive(field, value);
        case Kind::Chained:
            return chained(field, value);
        case Kind::Explicit:
            return explicit_length(field, value);
        case Kind::Random:
            return random(field, value);
        case Kind::Register:
            return mode_s_register(field, value);
        case Kind::Ascii:
            return characters(field, value);
        default:
            return field->bits <= kMaxNumberBits ? number(field, value) : octets(field, value);
        }
    }

private:
    bool object(const Field *field, Slice value) {
        if (!is_object(value)) return fault_.set(kNoObject, value);
        JsonObject object(value);
        const bool is_good = field->kind == Kind::Group      ? members(field, object, value)
                             : field->kind == Kind::Extended ? extended(field, object, value)
                                                             : compound(field, object, value);
        return is_good && uses_up(field, object, value);
    }

    // Says which member it is that nobody took.
    bool uses_up(const Field *field, const JsonObject &object, Slice text) {
        if (object.is_used_up()) return true;
        for (JsonItems each(text); each.next();)
            if (!knows(field, each.key())) return reject(each, kUnknown);
        for (JsonItems each(text); each.next();)
            for (JsonItems other(text); other.next() && other.key().data() != each.key().data();)
                if (other.key() == each.key()) return reject(each, kTwice);
        return fault_.set(kTwice, text);
    }
    bool reject(const JsonItems &item, const char *what) {
        return fault_.within(between_quotes(item.key()), [&] { return fault_.set(what, item.key()); });
    }
    static bool knows(const Field *field, Slice key) {
        for (const Field *row = field + 1; row != behind(field); ++row)
            if (row->is_named() && key_of(*row) == key) return true;
        return false;
    }

    // What stands in one object.
    bool members(const Field *parent, JsonObject &object, Slice text) {
        for (const Field *member = parent + 1; member != behind(parent); member = behind(member)) {
            if (member->kind == Kind::Spare) {
                out_.put(0, member->bits);
            } else if (member->kind == Kind::Status) {
                const bool means_something = has_any(behind(member), object);
                out_.put(means_something, 1);
                if (means_something) continue;
                member = behind(member);
                out_.put(0, member->bits);
            } else if (!this->member(member, object, text)) {
                return false;
            }
        }
        return true;
    }

    bool member(const Field *field, JsonObject &object, Slice text) {
        if (field->kind == Kind::Either)
            if (const Field *const reading = reading_of(field, last_, context_.message_type)) field = reading;
        if (is_transparent(*field)) return members(field, object, text);
        const Slice value = object.take(key_of(*field));
        if (value.empty() && field->kind == Kind::UnsignedOrNone) {
            out_.put(0, field->bits);
            return true;
        }
        return fault_.within(field->name(),
                             [&] { return value.empty() ? fault_.set(kMissing, text) : this->field(field, value); });
    }

    static bool has_any(const Field *field, const JsonObject &object) {
        if (field->is_named()) return object.has(key_of(*field));
        for (const Field *member = field + 1; member != behind(field); member = behind(member))
            if (has_any(member, object)) return true;
        return false;
    }

    bool extended(const Field *field, JsonObject &object, Slice text) {
        const Field *last = field + 1;
        for (const Field *part = field + 1; part != behind(field); part = behind(part))
            if (has_any(part, object)) last = part;
        for (const Field *part = field + 1;; part = behind(part)) {
            if (!members(part, object, text)) return false;
            if (fx_bits(*part) != 0) out_.put(part != last, 1);
            if (part == last) return true;
        }
    }

    bool compound(const Field *field, JsonObject &object, Slice) {
        put_presence(field, object);
        for (const Field *subfield = field + 1; subfield != behind(field); subfield = behind(subfield)) {
            const Slice value = subfield->is_named() ? object.take(key_of(*subfield)) : Slice();
            if (!value.empty() && !fault_.within(subfield->name(), [&] { return this->field(subfield, value); }))
                return false;
        }
        return true;
    }

    void put_presence(const Field *field, const JsonObject &object) {
        const bool has_fx = field->denominator == 0;
        const unsigned step = has_fx ? 7 : 8;
        unsigned count = has_fx ? 1 : 8 * field->denominator; // of the bits that are needed
        unsigned number = 0;
        const auto each = [&](auto take) {
            number = 0;
            for (const Field *subfield = field + 1; subfield != behind(field); subfield = behind(subfield), ++number)
                take(subfield->is_named() && object.has(key_of(*subfield)));
        };
        if (has_fx) each([&](bool is_present) { count = is_present ? number + 1 : count; });
        const unsigned all = (count + step - 1) / step * step;
        const auto put = [&](bool is_present) {
            out_.put(is_present, 1);
            if (has_fx && number % step == step - 1) out_.put(number + 1 < all, 1);
        };
        each([&](bool is_present) {
            if (number < all) put(is_present);
        });
        for (; number < all; ++number) put(false);
    }

    template <typename Do>
    bool elements(Slice array, uint64_t &count, Do what) {
        if (!is_array(array)) return fault_.set(kNoArray, array);
        for (JsonItems each(array); each.next(); ++count) {
            if (count == kMaxCount) return fault_.set(kTooMany, array);
            if (!fault_.within(count, [&] { return what(each.value()); })) return false;
        }
        return true;
    }

    bool repetitive(const Field *list, Slice array) {
        const uint64_t place = out_.octets();
        uint64_t count = 0;
        out_.put(0, 8);
        if (!elements(array, count, [&](Slice element) { return field(list + 1, element); })) return false;
        out_.set(place, count);
        return true;
    }

    bool chained(const Field *list, Slice array) {
        if (!is_array(array)) return fault_.set(kNoArray, array);
        uint64_t count = 0;
        for (JsonItems each(array); each.next(); ++count) {
            if (count != 0) out_.put(1, 1);
            if (!fault_.within(count, [&] { return field(list + 1, each.value()); })) return false;
        }
        if (count == 0) return fault_.set("has no element", array);
        out_.put(0, 1);
        return true;
    }

    bool explicit_length(const Field *field, Slice value) {
        const uint64_t place = out_.octets();
        out_.put(0, 8);
        if (field->rows != 0 && is_object(value)) {
            if (!this->field(field + 1, value)) return false;
        } else if (!hex(value)) {
            return false;
        }
        const uint64_t length = out_.octets() - place;
        if (length > kMaxCount) return fault_.set(kTooLong, value);
        out_.set(place, length);
        return true;
    }

    bool hex(Slice value) {
        uint64_t octets = 0;
        if (!hex_octets(octets, value)) return fault_.set(kNoHexDigits, value);
        put_hex_octets(out_, value);
        return true;
    }

    bool random(const Field *list, Slice value) {
        if (is_string(value)) return explicit_length(list, value);
        const uint64_t place = out_.octets();
        uint64_t count = 0;
        out_.put(0, 8);
        if (!elements(value, count, [&](Slice element) { return item_by_frn(element); })) return false;
        out_.set(place, count);
        return true;
    }

    // {"I010":{...}}
    bool item_by_frn(Slice object) {
        JsonItems member(object);
        if (!is_object(object) || !member.next()) return fault_.set(kNoObject, object);
        const uint32_t max_frn = context_.uap.max_frn ? context_.uap.max_frn(context_.category) : 0;
        for (uint32_t frn = 1; frn <= max_frn && frn <= kMaxCount; ++frn) {
            const Field *const item = find_item(context_.uap.get_dataitem(context_.category, frn), context_.uap);
            if (!item || item->kind == Kind::Random || key_of(*item) != member.key()) continue;
            out_.put(frn, 8);
            const bool is_good = fault_.within(item->name(), [&] { return field(item, member.value()); });
            return is_good && (!member.next() || reject(member, kUnknown));
        }
        return reject(member, kUnknown);
    }

    bool mode_s_register(const Field *field, Slice value) {
        uint32_t number = 0;
        if (const char *const what = read_register_number(number, value)) return fault_.set(what, value);
        if (field->denominator != 0 && field->denominator != number) return fault_.set("is another register", value);
        JsonObject object(value);
        object.take("\"bds\"");
        const Field *const known = find_register(number);
        const bool is_good = known ? members(known, object, value) : member(&kRegisterOctets, object, value);
        if (!is_good) return false;
        if (!object.is_used_up()) return known ? uses_up_register(known, value) : fault_.set(kUnknown, value);
        if (field->denominator == 0) out_.put(number, kRegisterNumberBits);
        return true;
    }
    bool uses_up_register(const Field *known, Slice text) {
        for (JsonItems each(text); each.next();)
            if (each.key() != "\"bds\"" && !knows(known, each.key())) return reject(each, kUnknown);
        return fault_.set(kTwice, text);
    }

    bool characters(const Field *field, Slice value) {
        if (!is_string(value)) return fault_.set("is no string", value);
        JsonChars text(value);
        for (unsigned i = 0; i < field->bits / 8U; ++i) {
            const char character = text.is_at_end() ? ' ' : text.next();
            if (!is_printable(static_cast<uint8_t>(character)))
                return fault_.set("has a character beyond ASCII", value);
            out_.put(static_cast<uint8_t>(character), 8);
        }
        return text.is_at_end() || fault_.set(kTooLong, value);
    }

    bool octets(const Field *field, Slice value) {
        uint64_t count = 0;
        if (!hex_octets(count, value)) return fault_.set(kNoHexDigits, value);
        if (count != field->bits / 8U) return fault_.set("has more or fewer octets", value);
        put_hex_octets(out_, value);
        return true;
    }

    bool number(const Field *field, Slice value) {
        if (const char *const what = read_leaf(last_, *field, value)) return fault_.set(what, value);
        out_.put(last_, field->bits);
        return true;
    }

    BitWriter &out_;
    Fault &fault_;
    const Context &context_;
    uint64_t last_ = 0;
};

// ---- Records ----

// Which of the two published profiles of a category an item tells, by codes from 0 to 255.
struct Choice {
    uint32_t category;
    Slice item;
    Slice member;         // empty where the item is the value
    uint64_t first, last; // of the other profile
};
constexpr Field kCode = row(Kind::Code, "", "", 8);
constexpr Choice kChoices[] = {{1, "\"I020\"", "\"TYP\"", 0, 0}, {7, "\"I410\"", "", 5, 8}};

ast_uap_t published_profile(uint32_t category, const JsonObject &record) {
    for (const Choice &choice : kChoices) {
        if (choice.category != category) continue;
        Slice value = record.find(choice.item);
        if (!choice.member.empty() && is_object(value)) value = JsonObject(value).find(choice.member);
        uint64_t code = 0;
        if (!value.empty() && !read_leaf(code, kCode, value) && code >= choice.first && code <= choice.last)
            return AST_UAP_PUBLISHED_OTHER;
    }
    return AST_UAP_PUBLISHED;
}

struct Announced {
    ast_dataitem_type_t type = AST_DATAITEM_NONE;
    const Field *field = nullptr; // null where no edition describes the type
    Slice value;                  // empty for an item of which there are octets only
    Slice octets;                 // empty for none
    bool is_present = false;
};

class RecordReader {
public:
    RecordReader(uint8_t *buffer, uint64_t length, Slice json)
        : json_(json), object_(trimmed(json)), text_(trimmed(json)), out_(buffer, length), length_(length) {}

    ast_json_result_t run() {
        result_.valid = line() && (result_.is_data ? data() : items());
        result_.size = size_;
        if (result_.valid && size_ > length_) {
            result_.valid = false;
            fault_.set("needs a larger buffer", text_);
        }
        if (result_.valid) return result_;
        result_.error = fault_.what();
        result_.position = fault_.place() ? static_cast<uint64_t>(fault_.place() - json_.data()) : 0;
        std::memcpy(result_.path, fault_.path(), sizeof result_.path);
        return result_;
    }

private:
    // A whole number under a key; 0 when it is missing.
    bool whole(uint64_t &number, Slice key, unsigned bits) {
        const Field field = row(Kind::Unsigned, "", "", bits);
        const Slice value = object_.find(key);
        if (value.empty()) return true;
        const char *const what = is_number(value) ? read_value(number, field, value) : "is no number";
        return !what || fault_.within(between_quotes(key), [&] { return fault_.set(what, value); });
    }

    // Those of items are counted, and no other stands twice.
    bool count_keys() {
        static_assert(kNoLineKey < 32);
        uint32_t seen = 0;
        Slice repeated;
        object_.each_key([&](Slice key) {
            const unsigned place = find_line_key(key);
            item_keys_ += place == kNoLineKey;
            if (place != kNoLineKey && (seen >> place & 1) != 0) repeated = key;
            seen |= place == kNoLineKey ? 0 : uint32_t{1} << place;
        });
        return repeated.empty() || reject(repeated, kRepeated);
    }
    bool reject(Slice key, const char *what) {
        return fault_.within(between_quotes(key), [&] { return fault_.set(what, key); });
    }

    bool line() {
        uint64_t category = 0;
        if (!count_keys()) return false;
        if (!object_.has("\"category\"")) return fault_.within("category", [&] { return fault_.set(kMissing, text_); });
        if (!whole(category, "\"category\"", 8) || !whole(result_.block, "\"block\"", 32)) return false;
        result_.category = static_cast<uint32_t>(category);
        result_.is_data = object_.has("\"data\"");
        const Slice name = object_.find("\"profile\"");
        if (name.empty()) {
            result_.uap = published_profile(result_.category, object_);
        } else if (!is_string(name) || !find_profile(result_.uap, between_quotes(name))) {
            if (!result_.is_data) return fault_.within("profile", [&] { return fault_.set(kUnknown, name); });
        }
        context_ = {result_.uap, result_.category, 0};
        return true;
    }

    bool data() {
        const Slice value = object_.take("\"data\"");
        if (!hex_octets(size_, value)) return fault_.within("data", [&] { return fault_.set(kNoHexDigits, value); });
        put_hex_octets(out_, value);
        for (JsonItems each(text_); each.next();)
            if (each.value().data() != value.data() && (!is_line_key(each.key()) || each.key() == "\"octets\""))
                return reject(each.key(), kBesideData);
        return true;
    }

    bool items() {
        const Slice octets = object_.find("\"octets\"");
        if (is_object(octets)) octets_ = JsonObject(octets);
        if (!octets.empty() && !is_object(octets))
            return fault_.within("octets", [&] { return fault_.set(kNoObject, octets); });
        if (!announce()) return false;
        put_fspec();
        for (uint32_t frn = 1; frn <= last_; ++frn)
            if (announced_[frn].is_present && !item(announced_[frn])) return false;
        size_ += out_.octets();
        return true;
    }

    // Finds the FRN of every item of the record. Those that the profile never encodes are looked for behind the others.
    bool announce() {
        uint64_t wanted = item_keys_;
        const Edition *const edition = find_edition(result_.category, context_.uap);
        const uint32_t max_frn = context_.uap.max_frn ? context_.uap.max_frn(result_.category) : 0;
        for (uint32_t frn = 1; frn <= kMaxFrn && (frn <= max_frn || wanted != 0); ++frn) {
            Announced &item = announced_[frn];
            item.type = context_.uap.get_dataitem(result_.category, frn);
            if (item.type == AST_DATAITEM_NONE) continue;
            item.field = find_item(item.type, context_.uap, edition);
            char buffer[8];
            const Field unknown =
                item.field ? Field{} : row(Kind::Raw, reference_of(item.type, is_second(frn), buffer), "", 0);
            const Slice key = key_of(item.field ? *item.field : unknown);
            item.value = object_.take(key);
            item.octets = octets_.take(key);
            item.is_present = !item.value.empty() || is_opaque(item);
            if (!item.value.empty()) --wanted;
            if (item.is_present) last_ = frn;
            if (item.type == AST_DATAITEM_TYPE(result_.category, 0)) read_message_type(item.value);
        }
        return wanted == 0 || reject_unknown();
    }

    // Whether there is an item of the same type at a lower FRN.
    bool is_second(uint32_t frn) const {
        for (uint32_t other = 1; other < frn; ++other)
            if (announced_[other].is_present && announced_[other].type == announced_[frn].type) return true;
        return false;
    }

    void read_message_type(Slice value) {
        uint64_t type = 0;
        if (!read_leaf(type, kCode, value)) context_.message_type = static_cast<uint32_t>(type);
    }

    bool reject_unknown() {
        for (JsonItems each(text_); each.next();) {
            bool is_known = is_line_key(each.key());
            for (const Announced &item : announced_)
                is_known = is_known || (!item.value.empty() && item.value.data() == each.value().data());
            if (!is_known) return reject(each.key(), stands_before(each) ? kRepeated : kUnknown);
        }
        return fault_.set(kTwice, text_);
    }
    bool stands_before(const JsonItems &member) const {
        for (JsonItems each(text_); each.next() && each.value().data() != member.value().data();)
            if (each.key() == member.key()) return true;
        return false;
    }

    // Octets of an item that have no values: they are all there is. Where the buffer is too short to look at them, they
    // count as such.
    bool is_opaque(const Announced &item) {
        uint64_t count = 0;
        if (item.octets.empty() || !hex_octets(count, item.octets)) return false;
        if (!out_.has_room_for(count)) return true;
        const BitReader bits(out_.here(), count, 0);
        put_hex_octets(out_, item.octets);
        out_.rewind(0);
        Nobody nobody;
        return !item.field || !Walk<Nobody>(bits, nobody, context_).field(item.field);
    }

    void put_fspec() {
        const Slice given = octets_.take("\"FSPEC\"");
        if (announces_the_same(given)) return put_hex_octets(out_, given);
        const uint32_t octets = last_ == 0 ? 1 : (last_ + kFrnsOfOctet - 1) / kFrnsOfOctet;
        for (uint32_t frn = 1; frn <= octets * kFrnsOfOctet; ++frn) {
            out_.put(frn <= last_ && announced_[frn].is_present, 1);
            if (frn % kFrnsOfOctet == 0) out_.put(frn / kFrnsOfOctet != octets, 1);
        }
    }

    // Whether an FSPEC announces the items of this record, beside FRNs without an item.
    bool announces_the_same(Slice fspec) const {
        uint64_t octets = 0;
        if (!hex_octets(octets, fspec) || octets == 0) return false;
        const Slice digits = between_quotes(fspec);
        uint32_t frn = 1;
        for (size_t i = 0; i < octets; ++i) {
            const uint32_t octet = ast_hex_to_int(digits[2 * i]) << kHexBits | ast_hex_to_int(digits[2 * i + 1]);
            if (has_fx(static_cast<uint8_t>(octet)) != (i + 1 != octets)) return false;
            for (unsigned number = 8; number > 1; --number, ++frn)
                if (!is_announced_as(frn, bit(static_cast<uint8_t>(octet), number))) return false;
        }
        return frn > last_;
    }
    bool is_announced_as(uint32_t frn, bool is_set) const {
        const bool is_present = frn <= last_ && announced_[frn].is_present;
        if (is_set == is_present) return true;
        return is_set && context_.uap.get_dataitem(result_.category, frn) == AST_DATAITEM_NONE;
    }

    bool item(const Announced &item) {
        const uint64_t before = out_.octets();
        uint64_t count = 0;
        if (item.octets.empty() || !hex_octets(count, item.octets)) return named(item);
        if (!out_.has_room_for(count)) return size_alone(item, before + count);
        const BitReader bits(out_.here(), count, 0);
        put_hex_octets(out_, item.octets);
        if (still_mean(bits, item)) return true;
        out_.rewind(before);
        return named(item);
    }

    // The values of an item, or its octets: without room for them, which ones it will be cannot be told, and the size
    // is that of the longer ones.
    bool size_alone(const Announced &item, uint64_t end_of_octets) {
        Fault ignored;
        if (item.value.empty() || !encode(item, ignored)) {
            out_.rewind(end_of_octets);
        } else if (out_.octets() < end_of_octets) {
            size_ += end_of_octets - out_.octets();
        }
        return true;
    }

    bool named(const Announced &item) {
        const Slice name = between_quotes(item.field ? key_of(*item.field) : Slice("\"octets\""));
        return fault_.within(name, [&] { return encode(item, fault_); });
    }

    bool encode(const Announced &item, Fault &fault) {
        if (item.field) return Encoder(out_, fault, context_).field(item.field, item.value);
        uint64_t count = 0;
        if (!hex_octets(count, item.value)) return fault.set(kNoHexDigits, item.value);
        put_hex_octets(out_, item.value);
        return true;
    }

    // Whether octets mean the values beside them, or mean nothing where there are none.
    bool still_mean(const BitReader &bits, const Announced &item) {
        if (item.value.empty()) return true; // is_opaque() has seen to it
        if (!item.field) return false;
        Match match(item.value);
        return Walk<Match>(bits, match, context_).field(item.field) && match.holds();
    }

    Slice json_;
    JsonObject object_;
    Slice text_;
    JsonObject octets_;
    BitWriter out_;
    uint64_t length_;
    uint64_t item_keys_ = 0;
    uint64_t size_ = 0; // of the data; of a record, what octets may need beyond the values beside them
    Fault fault_;
    Context context_;
    Announced announced_[kMaxFrn + 1];
    uint32_t last_ = 0; // FRN with an item
    ast_json_result_t result_{};
};

} // namespace

} // namespace ast::schema

using namespace ast::schema;

ast_json_result_t ast_datarecord_from_json(uint8_t *buffer, uint64_t length, const char *json, uint64_t chars) {
    const Slice text = json ? Slice(json, static_cast<size_t>(chars)) : Slice("");
    ast_json_result_t ordered;
    if (buffer && read_ordered(ordered, buffer, length, text)) return ordered;
    if (const JsonFault fault = check_json(text); fault.what) {
        ast_json_result_t result{};
        result.error = fault.what;
        result.position = fault.position;
        return result;
    }
    return RecordReader(buffer, buffer ? length : 0, text).run();
}
