#include "schema/ordered.hpp"

#include <algorithm>
#include <bit>
#include <cstring>

#include "core/bits.hpp"
#include "schema/line_keys.hpp"
#include "schema/utf8.hpp"
#include "schema/walk.hpp"

namespace ast::schema {

namespace {

const uint8_t *octets_of(const char *chars) { return reinterpret_cast<const uint8_t *>(chars); }

// A place in a text whose last character is a brace. Whoever takes no brace does not come behind its end, so that only
// close() looks for that.
class TextCursor {
public:
    explicit TextCursor(Slice text) : at_(text.data()), end_(at_ + text.size()) {}

    bool is_at(char c) const { return *at_ == c; }
    bool is_at_end() const { return at_ == end_; }
    bool is_at_item() const { return at_[1] < 'a'; } // of members, by their first letters

    bool take(char c) {
        if (*at_ != c) return false;
        ++at_;
        return true;
    }

    // The bracket of an object or array, or the colon behind a key.
    bool open(char bracket) {
        if (!take(bracket)) return false;
        blanks();
        return true;
    }

    // Of one within another.
    bool close(char bracket) { return take(bracket) && !is_at_end(); }

    // To the next key or element, or to the closing bracket.
    bool behind_value(char closing) {
        if (*at_ == ',' && at_[1] == '"') [[likely]] {
            ++at_;
            return true;
        }
        blanks();
        if (!take(',')) return *at_ == closing;
        blanks();
        return *at_ != closing;
    }

    bool is_at_key(const Field &field) const {
        const uint64_t differs =
            read_first_lowest(octets_of(at_), left()) ^ read_first_lowest(octets_of(field.key), sizeof field.key);
        const size_t chars = field.key_chars;
        if (chars <= sizeof differs) return differs << (64 - 8 * chars) == 0;
        return differs == 0 && left() >= chars &&
               std::memcmp(at_ + sizeof differs, field.key + sizeof differs, chars - sizeof differs) == 0;
    }
    bool take_key(const Field &field) {
        if (!is_at_key(field)) return false;
        at_ += field.key_chars;
        blanks();
        return true;
    }

    // A string with its quotes; nothing may be read behind one that is not whole. Few escapes are in the ordinary.
    bool string(Slice &text) {
        const char *const begin = at_;
        if (!take('"')) return false;
        while (left() >= sizeof(uint64_t) && are_plain(read_first_lowest(octets_of(at_), left())))
            at_ += sizeof(uint64_t);
        while (!is_at_end() && *at_ != '"') {
            const size_t octets = *at_ == '\\' ? octets_of_escape() : octets_of_character();
            if (octets == 0) return false;
            at_ += octets;
        }
        if (is_at_end()) return false;
        ++at_;
        text = {begin, static_cast<size_t>(at_ - begin)};
        return true;
    }

    // A string of so many digits.
    bool digits(uint64_t &number, unsigned count, unsigned bits_of_digit) {
        if (left() < count + size_t{2} || !take('"')) return false;
        number = 0;
        for (; count != 0; --count) {
            const uint32_t digit = ast_hex_to_int(*at_++);
            if (digit >> bits_of_digit) return false;
            number = number << bits_of_digit | digit;
        }
        return take('"');
    }

    // The raw number of a field from one without an exponent, most often of one digit.
    bool number(uint64_t &raw, const Field &field) {
        const auto digit = static_cast<uint64_t>(*at_) - '0';
        const auto is_alone = [&] { return at_[1] == ',' || at_[1] == '}'; };
        if (digit > 9 || !is_alone() || field.is_quantity() || field.kind == Kind::Signed || digit >> field.bits != 0)
            return longer_number(raw, field);
        raw = digit;
        ++at_;
        return true;
    }

    bool word(Slice word) {
        if (left() < word.size() || Slice(at_, word.size()) != word) return false;
        at_ += word.size();
        return true;
    }

    uint8_t next_octet() { return static_cast<uint8_t>(*at_++); }

private:
    size_t left() const { return static_cast<size_t>(end_ - at_); }
    void blanks() {
        while (is_blank(*at_)) [[unlikely]]++ at_;
    }

    // 0 for what may be none.
    size_t octets_of_escape() const { return at_[1] == '"' || at_[1] == '\\' || at_[1] == '/' ? 2 : 0; }
    size_t octets_of_character() const { return static_cast<uint8_t>(*at_) < ' ' ? 0 : utf8_octets({at_, left()}); }

    bool longer_number(uint64_t &raw, const Field &field) {
        constexpr ptrdiff_t kMostChars = 18;
        const char *const begin = at_;
        const bool is_negative = take('-');
        const char *const first = at_;
        uint64_t value = 0;
        add_digits(value);
        if (at_ == first || (*first == '0' && at_ - first > 1)) return false;
        const char *const point = at_;
        if (take('.') && add_digits(value) == 0) return false;
        if (*at_ == 'e' || *at_ == 'E') return false;
        const bool is_plain = at_ - first <= kMostChars && field.offset == 0;
        if (is_plain &&
            nearest(raw, field, value, is_negative, at_ == point ? 0 : static_cast<size_t>(at_ - point - 1)))
            return true;
        return !read_value(raw, field, {begin, static_cast<size_t>(at_ - begin)});
    }

    size_t add_digits(uint64_t &value) {
        const char *const begin = at_;
        for (; *at_ >= '0' && *at_ <= '9'; ++at_) value = value * 10 + static_cast<uint64_t>(*at_ - '0');
        return static_cast<size_t>(at_ - begin);
    }

    // False where the products may not fit, or the result does not.
    static bool nearest(uint64_t &raw, const Field &field, uint64_t value, bool is_negative, size_t decimals) {
        constexpr int kMostBits = 62;
        if (field.is_quantity()) {
            const auto common = std::min(static_cast<size_t>(std::countr_zero(field.denominator)), decimals);
            const uint64_t denominator = field.denominator >> common; // less the powers of two that ten has as well
            const uint64_t one = kPowersOfTen[decimals] >> common;
            if (std::bit_width(value) + std::bit_width(denominator) > kMostBits ||
                std::bit_width(one) + std::bit_width(field.numerator) > kMostBits)
                return false;
            const uint64_t unit = field.numerator * one;
            value = (2 * value * denominator + unit) / (2 * unit);
        } else if (decimals != 0) {
            return false;
        }
        const bool is_signed = field.kind == Kind::Signed;
        const uint64_t behind = uint64_t{1} << (field.bits - is_signed);
        if (is_negative ? value > (is_signed ? behind : 0) : value >= behind) return false;
        raw = (is_negative ? -value : value) & ((uint64_t{1} << field.bits) - 1);
        return true;
    }

    const char *at_;
    const char *end_;
};

// Octets by their bits, most significant first.
class OctetSink {
public:
    void put(uint64_t value, unsigned bits) {
        waiting_ = waiting_ << bits | value;
        waiting_bits_ += bits;
        for (; waiting_bits_ >= 8; waiting_bits_ -= 8)
            octets_[size_++] = static_cast<uint8_t>(waiting_ >> (waiting_bits_ - 8));
    }
    void set(size_t place, uint64_t value) { octets_[place] = static_cast<uint8_t>(value); }
    // Makes room for more octets at a place.
    void widen(size_t place, size_t octets) {
        std::memmove(octets_ + place + octets, octets_ + place, size_ - place);
        size_ += octets;
    }
    void cut(size_t size) { size_ = size; }
    bool has_room() const { return size_ + kMostAtOnce <= sizeof octets_; }
    size_t size() const { return size_; }
    const uint8_t *data() const { return octets_; }

private:
    static constexpr size_t kMostAtOnce = 16;

    uint64_t waiting_ = 0;
    unsigned waiting_bits_ = 0;
    size_t size_ = 0;
    uint8_t octets_[4096];
};

class OrderedReader {
public:
    explicit OrderedReader(Slice text) : text_(text) {}

    bool run(ast_json_result_t &result, uint8_t *buffer, uint64_t length) {
        if (!text_.open('{')) return false;
        while (text_.is_at('"')) {
            if (text_.is_at_item() ? !item() : !line_member()) return false;
            if (!text_.behind_value('}')) return false;
        }
        if (!text_.take('}') || !text_.is_at_end() || !settle()) return false;
        const uint64_t fspec_octets = close_fspec();
        if (fspec_octets + octets_.size() > length) return false;
        copy_octets(buffer, fspec_, fspec_octets);
        copy_octets(buffer + fspec_octets, octets_.data(), octets_.size());
        result = {.valid = true,
                  .size = fspec_octets + octets_.size(),
                  .category = context_.category,
                  .uap = context_.uap,
                  .block = block_};
        return true;
    }

private:
    // ---- Lines ----

    bool line_member() {
        Slice text;
        if (!text_.string(text) || !text_.open(':')) return false;
        if (text_.word("null")) return true;
        const unsigned place = find_line_key(text);
        if (place == kNoLineKey || (seen_ >> place & 1) != 0) return false;
        seen_ |= 1U << place;
        static constexpr Field kBlockNumber = row(Kind::Unsigned, "", "", 32);
        static constexpr Field kCategoryNumber = row(Kind::Unsigned, "", "", 8);
        uint64_t number = 0;
        switch (place) {
        case kOctets:
            return given_fspec();
        case kBlock:
            return text_.number(block_, kBlockNumber);
        case kCategory:
            if (is_settled_ || !text_.number(number, kCategoryNumber)) return false;
            context_.category = static_cast<uint32_t>(number);
            return true;
        case kProfile:
            return !is_settled_ && text_.string(text) && find_profile(context_.uap, between_quotes(text));
        default:
            if (text_.is_at('"')) return text_.string(text);
            return text_.word("true") || text_.word("false") || text_.number(number, kBlockNumber);
        }
    }

    // {"FSPEC":"..."} of all octets that may stand beside values: one that says what it needs not say.
    bool given_fspec() {
        static constexpr Field kFspec = row(Kind::Raw, "FSPEC", "", 0);
        const size_t place = octets_.size();
        if (!settle() || !text_.open('{') || !text_.take_key(kFspec) || !hex(sizeof fspec_, false)) return false;
        given_fspec_octets_ = octets_.size() - place;
        if (given_fspec_octets_ * kFrnsOfOctet < last_frn_) return false;
        for (size_t i = 0; i < given_fspec_octets_; ++i)
            if (!takes_for_fspec(i, octets_.data()[place + i])) return false;
        octets_.cut(place);
        return text_.behind_value('}') && text_.close('}');
    }
    // An octet that announces the items that are there, beside FRNs without any.
    bool takes_for_fspec(size_t place, uint8_t octet) {
        if (has_fx(octet) != (place + 1 != given_fspec_octets_)) return false;
        const auto others = static_cast<uint8_t>((octet ^ fspec_[place]) & ~kFx);
        for (unsigned number = 8; number > 1; --number) {
            const auto frn = static_cast<uint32_t>(place * kFrnsOfOctet + 9 - number);
            const bool is_told =
                !bit(others, number) ||
                (bit(octet, number) && context_.uap.get_dataitem(context_.category, frn) == AST_DATAITEM_NONE);
            if (!is_told) return false;
        }
        fspec_[place] = octet;
        return true;
    }

    // How many octets the FSPEC has.
    size_t close_fspec() {
        if (given_fspec_octets_ != 0) return given_fspec_octets_;
        const size_t octets = last_frn_ == 0 ? 1 : (last_frn_ + kFrnsOfOctet - 1) / kFrnsOfOctet;
        for (size_t i = 0; i + 1 < octets; ++i) fspec_[i] |= kFx;
        return octets;
    }

    // The profile, before the first item. Without a name, items of some categories tell it.
    bool settle() {
        if (is_settled_) return true;
        if ((seen_ >> kCategory & 1) == 0) return false;
        if ((seen_ >> kProfile & 1) == 0) {
            const Edition *const newest = newest_edition(context_.category);
            if (newest && newest->other_profile.count != 0) return false;
            context_.uap = AST_UAP_PUBLISHED;
        }
        edition_ = find_edition(context_.category, context_.uap);
        const uint32_t frns = context_.uap.max_frn ? context_.uap.max_frn(context_.category) : 0;
        max_frn_ = frns < kMaxFrn ? frns : kMaxFrn;
        return is_settled_ = true;
    }

    bool item() {
        if (!settle() || given_fspec_octets_ != 0) return false;
        for (uint32_t frn = last_frn_ + 1; frn <= max_frn_; ++frn) {
            const ast_dataitem_type_t type = context_.uap.get_dataitem(context_.category, frn);
            const Field *const found = type == AST_DATAITEM_NONE ? nullptr : find_item(type, context_.uap, edition_);
            if (!found || !text_.take_key(*found)) continue;
            last_frn_ = frn;
            fspec_[(frn - 1) / kFrnsOfOctet] |= static_cast<uint8_t>(0x80U >> (frn - 1) % kFrnsOfOctet);
            last_ = 0;
            return field(found) && (type != AST_DATAITEM_TYPE(context_.category, 0) || set_message_type(*found));
        }
        return false;
    }

    bool set_message_type(const Field &field) {
        if (has_asked_type_ || field.kind != Kind::Code || field.bits > 8) return false;
        context_.message_type = static_cast<uint32_t>(last_);
        return true;
    }

    // ---- Fields ----

    bool field(const Field *field) {
        if (!octets_.has_room()) return false;
        switch (field->kind) {
        case Kind::Group:
            return text_.open('{') && members(field) && text_.close('}');
        case Kind::Extended:
            return text_.open('{') && extended(field) && text_.close('}');
        case Kind::Compound:
            return text_.open('{') && compound(field) && text_.close('}');
        case Kind::Repetitive:
            return text_.open('[') && repetitive(field) && text_.close(']');
        case Kind::Chained:
            return text_.open('[') && chained(field) && text_.close(']');
        case Kind::Explicit:
        case Kind::Random:
            return explicit_length(field);
        case Kind::Register:
            return text_.open('{') && mode_s_register(field) && text_.close('}');
        case Kind::Ascii:
            return characters(field);
        default:
            if (field->bits > kMaxNumberBits) return hex(field->bits / 8U);
            if (!leaf(*field)) return false;
            octets_.put(last_, field->bits);
            return true;
        }
    }

    bool members(const Field *parent) {
        for (const Field *member = parent + 1; member != behind(parent); member = behind(member)) {
            if (member->kind == Kind::Spare) {
                octets_.put(0, member->bits);
            } else if (member->kind == Kind::Status) {
                const bool means_something = has_any(behind(member));
                octets_.put(means_something, 1);
                if (means_something) continue;
                member = behind(member);
                octets_.put(0, member->bits);
            } else if (!this->member(member)) {
                return false;
            }
        }
        return true;
    }

    bool has_any(const Field *field) const {
        if (field->is_named()) return text_.is_at_key(*field);
        for (const Field *member = field + 1; member != behind(field); member = behind(member))
            if (has_any(member)) return true;
        return false;
    }

    bool member(const Field *field) {
        if (field->kind == Kind::Either) {
            has_asked_type_ = true;
            if (const Field *const reading = reading_of(field, last_, context_.message_type)) field = reading;
        }
        if (is_transparent(*field)) return members(field);
        if (text_.take_key(*field)) return this->field(field) && text_.behind_value('}');
        if (field->kind != Kind::UnsignedOrNone) return false;
        octets_.put(0, field->bits);
        return true;
    }

    bool extended(const Field *field) {
        for (const Field *part = field + 1; part != behind(field); part = behind(part)) {
            if (!members(part)) return false;
            const bool is_last = text_.is_at('}');
            if (fx_bits(*part) != 0) octets_.put(!is_last, 1);
            if (is_last) return true;
        }
        return false;
    }

    bool compound(const Field *field) {
        const bool has_fx = field->denominator == 0;
        const unsigned step = has_fx ? 7 : 8;
        const size_t place = octets_.size();
        uint64_t present = 0; // the first subfield highest
        unsigned count = has_fx ? 1 : step * field->denominator;
        unsigned number = 0;
        for (const Field *subfield = field + 1; !text_.is_at('}'); subfield = behind(subfield), ++number) {
            if (subfield == behind(field)) return false;
            if (!subfield->is_named() || !text_.take_key(*subfield)) continue;
            present |= uint64_t{1} << 63 >> number;
            if (has_fx) count = number + 1;
            if (!this->field(subfield) || !text_.behind_value('}')) return false;
        }
        const unsigned presence_octets = (count + step - 1) / step;
        if (!octets_.has_room()) return false;
        octets_.widen(place, presence_octets);
        for (unsigned i = 0; i < presence_octets; ++i, present <<= step)
            octets_.set(place + i, has_fx ? (present >> 57) << 1 | (i + 1 != presence_octets) : present >> 56);
        return true;
    }

    bool repetitive(const Field *list) {
        constexpr unsigned kMaxCount = 255;
        const size_t place = octets_.size();
        octets_.put(0, 8);
        unsigned count = 0;
        for (; !text_.is_at(']'); ++count)
            if (count == kMaxCount || !field(list + 1) || !text_.behind_value(']')) return false;
        octets_.set(place, count);
        return true;
    }

    bool chained(const Field *list) {
        do {
            if (!field(list + 1) || !text_.behind_value(']')) return false;
            octets_.put(!text_.is_at(']'), 1);
        } while (!text_.is_at(']'));
        return true;
    }

    bool explicit_length(const Field *field) {
        constexpr size_t kMaxLength = 255;
        const size_t place = octets_.size();
        octets_.put(0, 8);
        const bool has_fields = field->rows != 0 && text_.is_at('{');
        if (has_fields ? !this->field(field + 1) : !hex(kMaxLength, false)) return false;
        const size_t size = octets_.size() - place;
        octets_.set(place, size);
        return size <= kMaxLength;
    }

    bool mode_s_register(const Field *field) {
        static constexpr Field kNumber = row(Kind::Raw, "bds", "", kRegisterNumberBits);
        uint64_t number = 0;
        if (!text_.take_key(kNumber) || !text_.digits(number, 2, kHexBits) || !text_.behind_value('}')) return false;
        if (field->denominator != 0 && field->denominator != number) return false;
        const Field *const known = find_register(static_cast<uint32_t>(number));
        if (known ? !members(known) : !member(&kRegisterOctets)) return false;
        if (field->denominator == 0) octets_.put(number, kRegisterNumberBits);
        return true;
    }

    // ---- Leaves ----

    bool characters(const Field *field) {
        if (!text_.take('"')) return false;
        for (unsigned left = field->bits / 8U; left != 0; --left) {
            const uint8_t character = text_.is_at('"') ? ' ' : text_.next_octet();
            if (!is_printable(character) || character == '\\' || !octets_.has_room() || text_.is_at_end()) return false;
            octets_.put(character, 8);
        }
        return text_.take('"');
    }

    // So many octets, or fewer.
    bool hex(size_t most, bool is_exact = true) {
        if (!text_.take('"')) return false;
        for (; !text_.is_at('"'); --most) {
            const uint32_t first = ast_hex_to_int(static_cast<char>(text_.next_octet()));
            if (first > 0x0F || most == 0 || !octets_.has_room()) return false;
            const uint32_t second = ast_hex_to_int(static_cast<char>(text_.next_octet()));
            if (second > 0x0F) return false;
            octets_.put(first << kHexBits | second, 8);
        }
        return (most == 0 || !is_exact) && text_.take('"');
    }

    bool leaf(const Field &field) {
        if (field.kind == Kind::Octal) return text_.digits(last_, field.bits / kOctalBits, kOctalBits);
        if (field.kind == Kind::Icao) return icao(field);
        if (is_shown_as_octets(field))
            return text_.digits(last_, hex_digits(field), kHexBits) && last_ >> field.bits == 0;
        if (field.kind == Kind::Code && text_.is_at('{')) return code_with_text(field);
        return text_.number(last_, field);
    }

    bool icao(const Field &field) {
        constexpr uint64_t kBlank = 32;
        if (!text_.take('"')) return false;
        last_ = 0;
        for (unsigned left = field.bits / kIcaoBits; left != 0; --left) {
            uint64_t code = kBlank;
            if (!text_.is_at('"')) code = static_cast<uint64_t>(ast_ansi_to_icao(text_.next_octet()));
            if (code == 0 || code > 0x3F) return false;
            last_ = last_ << kIcaoBits | code;
        }
        return text_.take('"');
    }

    // {"value":5,"text":"..."}
    bool code_with_text(const Field &field) {
        static constexpr Field kValue = row(Kind::Code, "value", "", 0);
        static constexpr Field kText = row(Kind::Code, "text", "", 0);
        Slice text;
        return text_.open('{') && text_.take_key(kValue) && text_.number(last_, field) && text_.behind_value('}') &&
               (!text_.take_key(kText) || (text_.string(text) && text_.behind_value('}'))) && text_.close('}');
    }

    TextCursor text_;
    OctetSink octets_;
    Context context_;
    const Edition *edition_ = nullptr;
    uint64_t block_ = 0;
    uint64_t last_ = 0; // number that was read in the item
    uint32_t max_frn_ = 0;
    uint32_t last_frn_ = 0;
    uint32_t seen_ = 0; // members of the line
    size_t given_fspec_octets_ = 0;
    bool is_settled_ = false;
    bool has_asked_type_ = false; // whether a reading depended on the type of the record
    uint8_t fspec_[kMaxFrn / kFrnsOfOctet] = {};
};

} // namespace

bool read_ordered(ast_json_result_t &result, uint8_t *buffer, uint64_t length, Slice json) {
    const Slice text = trimmed(json);
    if (text.empty() || text.back() != '}') return false;
    const bool was_silent = ast_log_silence(true); // whoever reads what is given up here tells the log
    const bool is_read = OrderedReader(text).run(result, buffer, length);
    ast_log_silence(was_silent);
    return is_read;
}

} // namespace ast::schema
