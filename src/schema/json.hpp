// A JSON text, read where it stands.
#pragma once

#include "ast.h"
#include "schema/slice.hpp"

namespace ast::schema {

constexpr unsigned kMaxJsonLevels = 32;

// Whether a text is one JSON object and nothing but blanks around it. What is wrong and where, otherwise null: only
// what this accepts may be given to the rest.
struct JsonFault {
    const char *what = nullptr;
    uint64_t position = 0;
};
JsonFault check_json(Slice text);

// The value without blanks around it.
Slice trimmed(Slice text);

constexpr bool is_blank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

inline bool is_null(Slice value) { return value == "null"; }
inline bool is_object(Slice value) { return !value.empty() && value[0] == '{'; }
inline bool is_array(Slice value) { return !value.empty() && value[0] == '['; }
inline bool is_string(Slice value) { return !value.empty() && value[0] == '"'; }
inline bool is_number(Slice value) {
    return !value.empty() && (value[0] == '-' || (value[0] >= '0' && value[0] <= '9'));
}
// Between the quotes, escapes as they are written.
inline Slice between_quotes(Slice string) { return slice(string, 1, string.size() - 2); }

// The members of an object, or the elements of an array, one after the other.
class JsonItems {
public:
    JsonItems() = default;
    explicit JsonItems(Slice container) : text_(container), at_(1) {}

    // The next one that is not null; false behind the last.
    bool next();
    Slice key() const { return key_; } // with its quotes
    Slice value() const { return value_; }

private:
    Slice text_;
    size_t at_ = 0;
    Slice key_;
    Slice value_;
};

// An object whose members are asked for by name, mostly in their order.
class JsonObject {
public:
    JsonObject() = default;
    explicit JsonObject(Slice text);

    // The value of "NAME", a key with its quotes; empty when it is missing or null. Taking one counts.
    Slice take(Slice key);
    Slice find(Slice key) const;
    bool has(Slice key) const { return !find(key).empty(); }
    bool is_used_up() const { return taken_ == count_; }

    template <typename Take>
    void each_key(Take take) const {
        for (unsigned i = 0; i < known_count_; ++i) take(Slice(known_[i].key, known_[i].key_chars));
        for (JsonItems each = beyond_; each.next();) take(each.key());
    }

private:
    // Without a constructor: most of the places stay empty.
    struct Member {
        uint64_t mark; // of the key
        const char *key;
        size_t key_chars;
        const char *value;
        size_t value_chars;
    };
    // Most objects have fewer members; those beyond are looked for in the text.
    static constexpr unsigned kMaxKnown = 40;

    Slice find(Slice key, unsigned from, unsigned &place) const;

    Member known_[kMaxKnown];
    unsigned known_count_ = 0;
    unsigned next_ = 0;
    JsonItems beyond_;
    uint64_t count_ = 0;
    uint64_t taken_ = 0;
};

// The characters of a string, escapes resolved. One beyond ASCII is given as '\x7F'.
class JsonChars {
public:
    explicit JsonChars(Slice string) : rest_(between_quotes(string)) {}
    bool is_at_end() const { return rest_.empty(); }
    char next();

private:
    Slice rest_;
};
constexpr char kBeyondAscii = '\x7F';

} // namespace ast::schema
