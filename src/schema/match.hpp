// Whether octets still mean the values that stand beside them.
#pragma once

#include "schema/encode.hpp"
#include "schema/walk.hpp"

namespace ast::schema {

// A visitor that looks each value up in JSON.
class Match {
public:
    explicit Match(Slice value) : pending_(value) {}

    bool holds() const { return holds_; }

    void open(const Field &field) {
        const Slice value = take(field);
        must_hold(is_list(field) ? is_array(value) : is_object(value));
        push(value);
    }
    void close(const Field &) {
        if (level_ == 0) return must_hold(false);
        Level &top = levels_[--level_];
        must_hold(top.is_list ? !top.elements.next() : top.members.is_used_up());
    }
    void element() {
        if (level_ == 0) return must_hold(false);
        JsonItems &elements = levels_[level_ - 1].elements;
        must_hold(elements.next());
        pending_ = holds_ ? elements.value() : Slice("0");
    }

    void open_register(const Field &field, uint32_t number, uint64_t) {
        uint32_t given = 0;
        const Slice value = take(field);
        must_hold(!read_register_number(given, value) && given == number);
        push(value);
        if (holds_) levels_[level_ - 1].members.take("\"bds\"");
    }

    void value(const Field &field, uint64_t raw) {
        const Slice value = take(field);
        uint64_t given = 0;
        must_hold(read_leaf(given, field, value) ? is_same_identity(field, raw, value) : given == raw);
    }

    void octets(const Field &field, const uint8_t *data, uint64_t count) {
        const Slice value = take(field);
        must_hold(is_string(value));
        if (holds_)
            must_hold(field.kind == Kind::Ascii ? is_same_text(data, count, value) : is_same_hex(data, count, value));
    }

private:
    static constexpr unsigned kMaxLevels = 16; // more than any table has

    struct Level {
        JsonObject members;
        JsonItems elements;
        bool is_list = false;
    };

    void must_hold(bool holds) { holds_ = holds_ && holds; }

    void push(Slice value) {
        must_hold(level_ < kMaxLevels);
        if (!holds_) return;
        Level &top = levels_[level_++];
        top.is_list = is_array(value);
        if (top.is_list)
            top.elements = JsonItems(value);
        else
            top.members = JsonObject(value);
    }

    // The value of a field, empty when it is missing.
    Slice take(const Field &field) {
        if (!pending_.empty()) {
            const Slice value = pending_;
            pending_ = {};
            return value;
        }
        if (!holds_ || level_ == 0 || !field.is_named()) return {};
        return levels_[level_ - 1].members.take(Slice(field.key, field.key_chars - 1U));
    }

    // An identification with undefined characters, which only its octets can tell.
    static bool is_same_identity(const Field &field, uint64_t raw, Slice value) {
        if (field.kind != Kind::Icao || !is_string(value)) return false;
        JsonChars characters(value);
        for (unsigned i = 0; i < field.bits / kIcaoBits; ++i)
            if ((characters.is_at_end() ? ' ' : characters.next()) != icao_character(field, raw, i)) return false;
        return characters.is_at_end();
    }

    static bool is_same_text(const uint8_t *data, uint64_t count, Slice value) {
        JsonChars characters(value);
        for (uint64_t i = 0; i < count; ++i) {
            const char shown = is_printable(data[i]) ? static_cast<char>(data[i]) : kUndefinedCharacter;
            if ((characters.is_at_end() ? ' ' : characters.next()) != shown) return false;
        }
        return characters.is_at_end();
    }

    static bool is_same_hex(const uint8_t *data, uint64_t count, Slice value) {
        uint64_t octets = 0;
        if (!hex_octets(octets, value) || octets != count) return false;
        const Slice digits = between_quotes(value);
        for (size_t i = 0; i < count; ++i)
            if ((ast_hex_to_int(digits[2 * i]) << kHexBits | ast_hex_to_int(digits[2 * i + 1])) != data[i])
                return false;
        return true;
    }

    Slice pending_; // an element, or the item itself
    Level levels_[kMaxLevels];
    unsigned level_ = 0;
    bool holds_ = true;
};

} // namespace ast::schema
