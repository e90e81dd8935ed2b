// Reading JSON.

#include "schema/json.hpp"
#include "schema/utf8.hpp"

#include <array>
#include <bitset>
#include <cstring>

namespace ast::schema {

namespace {

constexpr bool is_digit(char c) { return c >= '0' && c <= '9'; }
constexpr bool is_plain(unsigned char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\'; }
constexpr bool is_hex_digit(char c) { return is_digit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'); }

size_t after_blanks(Slice text, size_t at) {
    while (at < text.size() && is_blank(text[at])) ++at;
    return at;
}

size_t after_digits(Slice text, size_t at) {
    while (at < text.size() && is_digit(text[at])) ++at;
    return at;
}

// Checks a text once, so that all who read it later need not. Keeps whether each open bracket is one of an object.
class Checker {
public:
    explicit Checker(Slice text) : text_(text) {}

    JsonFault run() {
        at_ = after_blanks(text_, 0);
        if (peek() != '{') return fault("is no JSON object");
        do
            if (!value()) return fault(what_);
        while (level_ != 0);
        at_ = after_blanks(text_, at_);
        return at_ == text_.size() ? JsonFault{} : fault("has more behind the object");
    }

private:
    JsonFault fault(const char *what) const { return {what, at_}; }
    bool fail(const char *what) {
        what_ = what;
        return false;
    }
    char peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }
    bool take(char c) {
        if (at_ >= text_.size() || text_[at_] != c) return false;
        ++at_;
        return true;
    }
    void blanks() { at_ = after_blanks(text_, at_); }

    // One value and what closes behind it, up to the start of the next value.
    bool value() {
        blanks();
        const char c = peek();
        if (c == '{' || c == '[') {
            if (!open(c == '{')) return false;
            blanks();
            if (!take(is_object_[level_ - 1] ? '}' : ']')) return start_of_next();
            --level_;
        } else if (c == '"') {
            if (!string()) return false;
        } else if (!number_or_word()) {
            return false;
        }
        return close();
    }

    bool open(bool is_object) {
        if (level_ == kMaxJsonLevels) return fail("is nested too deep");
        ++at_;
        is_object_[level_++] = is_object;
        return true;
    }

    bool close() {
        for (; level_ != 0; --level_) {
            blanks();
            if (take(',')) {
                blanks();
                return start_of_next();
            }
            if (!take(is_object_[level_ - 1] ? '}' : ']')) return fail("lacks a comma or a closing bracket");
        }
        return true;
    }

    // A key and a colon in an object.
    bool start_of_next() {
        if (!is_object_[level_ - 1]) return true;
        if (peek() != '"') return fail("lacks a key");
        if (!string()) return false;
        blanks();
        return take(':') || fail("lacks a colon");
    }

    bool string() {
        ++at_;
        while (at_ < text_.size()) {
            const auto c = static_cast<unsigned char>(text_[at_]);
            if (is_plain(c)) [[likely]] {
                ++at_;
                continue;
            }
            if (c == '"') {
                ++at_;
                return true;
            }
            if (c < ' ') return fail("has a control character in a string");
            if (c == '\\' ? !escape() : !character()) return false;
        }
        return fail("lacks the end of a string");
    }

    bool escape() {
        ++at_;
        if (!take('u')) {
            if (at_ >= text_.size() || Slice("\"\\/bfnrt").find(text_[at_]) == Slice::npos)
                return fail("has no such escape");
            ++at_;
            return true;
        }
        for (unsigned i = 0; i < 4; ++i, ++at_)
            if (!is_hex_digit(peek())) return fail("has no such escape");
        return true;
    }

    bool character() {
        const size_t octets = utf8_octets(slice(text_, at_));
        at_ += octets;
        return octets != 0 || fail("is no UTF-8");
    }

    bool number_or_word() {
        for (const Slice word : {Slice("null"), Slice("true"), Slice("false")})
            if (slice(text_, at_, word.size()) == word) {
                at_ += word.size();
                return true;
            }
        return number() || fail("is no value");
    }

    bool number() {
        take('-');
        if (!take('0') && !digits()) return false;
        if (take('.') && !digits()) return false;
        if (peek() != 'e' && peek() != 'E') return true;
        ++at_;
        if (!take('+')) take('-');
        return digits();
    }

    bool digits() {
        const size_t first = at_;
        at_ = after_digits(text_, at_);
        return at_ != first;
    }

    Slice text_;
    size_t at_ = 0;
    unsigned level_ = 0;
    std::bitset<kMaxJsonLevels> is_object_;
    const char *what_ = nullptr;
};

size_t after_string(Slice text, size_t at) {
    for (++at; text[at] != '"'; ++at)
        if (text[at] == '\\') ++at;
    return at + 1;
}

// What a character is to one who looks for the end of a value.
enum class Mark : uint8_t { None, Quote, Open, Close, Behind };
constexpr auto kMarks = [] {
    std::array<Mark, 256> marks{};
    for (const char c : {' ', '\t', '\n', '\r', ','}) marks[static_cast<uint8_t>(c)] = Mark::Behind;
    marks['"'] = Mark::Quote;
    marks['{'] = marks['['] = Mark::Open;
    marks['}'] = marks[']'] = Mark::Close;
    return marks;
}();
Mark mark_of(char c) { return kMarks[static_cast<uint8_t>(c)]; }

// The end of the object or array that starts at `at`.
size_t after_container(Slice text, size_t at) {
    unsigned level = 0;
    for (;;) switch (mark_of(text[at])) {
        case Mark::Quote:
            at = after_string(text, at);
            break;
        case Mark::Open:
            ++level;
            ++at;
            break;
        case Mark::Close:
            ++at;
            if (--level == 0) return at;
            break;
        default:
            ++at;
        }
}

// The end of the value that starts at `at`.
size_t after_value(Slice text, size_t at) {
    const Mark first = mark_of(text[at]);
    if (first == Mark::Quote) return after_string(text, at);
    if (first == Mark::Open) return after_container(text, at);
    while (mark_of(text[at]) < Mark::Close) ++at;
    return at;
}

// What tells most keys apart at once, and those of four to eight characters entirely.
constexpr bool is_all_in_mark(Slice key) { return key.size() >= sizeof(uint32_t) && key.size() <= sizeof(uint64_t); }
uint64_t mark_of(Slice key) {
    uint64_t mark = 0;
    if (key.size() >= sizeof mark) {
        std::memcpy(&mark, key.data(), sizeof mark);
    } else if (key.size() >= sizeof(uint32_t)) {
        uint32_t first = 0;
        uint32_t last = 0;
        std::memcpy(&first, key.data(), sizeof first);
        std::memcpy(&last, key.data() + key.size() - sizeof last, sizeof last);
        mark = uint64_t{last} << 32 | first;
    }
    return mark;
}

} // namespace

JsonFault check_json(Slice text) { return Checker(text).run(); }

Slice trimmed(Slice text) {
    while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
    return text;
}

bool JsonItems::next() {
    do {
        if (text_.empty()) return false;
        at_ = after_blanks(text_, at_);
        if (text_[at_] == ',') at_ = after_blanks(text_, at_ + 1);
        if (text_[at_] == '}' || text_[at_] == ']') return false;
        if (text_[0] == '{') {
            const size_t end = after_string(text_, at_);
            key_ = slice(text_, at_, end - at_);
            at_ = after_blanks(text_, after_blanks(text_, end) + 1);
        }
        const size_t end = after_value(text_, at_);
        value_ = slice(text_, at_, end - at_);
        at_ = end;
    } while (is_null(value_));
    return true;
}

JsonObject::JsonObject(Slice text) {
    JsonItems each(text);
    while (known_count_ < kMaxKnown && each.next()) {
        const Slice key = each.key();
        const Slice value = each.value();
        known_[known_count_++] = {mark_of(key), key.data(), key.size(), value.data(), value.size()};
    }
    count_ = known_count_;
    if (known_count_ < kMaxKnown) return;
    beyond_ = each;
    while (each.next()) ++count_;
}

Slice JsonObject::take(Slice key) {
    const Slice value = find(key, next_, next_);
    taken_ += !value.empty();
    return value;
}

Slice JsonObject::find(Slice key) const {
    unsigned ignored = 0;
    return find(key, next_, ignored);
}

// From a place on and then from the first; sets the place behind the one that is found.
Slice JsonObject::find(Slice key, unsigned from, unsigned &place) const {
    const uint64_t mark = mark_of(key);
    const auto is_at = [&](unsigned at) {
        const Member &member = known_[at];
        return member.mark == mark && member.key_chars == key.size() &&
               (is_all_in_mark(key) || Slice(member.key, member.key_chars) == key);
    };
    unsigned at = from;
    while (at < known_count_ && !is_at(at)) ++at;
    if (at == known_count_)
        for (at = 0; at < from && !is_at(at);) ++at;
    if (at < known_count_ && is_at(at)) {
        place = at + 1;
        return {known_[at].value, known_[at].value_chars};
    }
    if (count_ == known_count_) return {};
    for (JsonItems each = beyond_; each.next();)
        if (each.key() == key) return each.value();
    return {};
}

char JsonChars::next() {
    const char c = rest_[0];
    rest_.remove_prefix(1);
    if (static_cast<unsigned char>(c) >= 0x80) {
        while (!rest_.empty() && (static_cast<unsigned char>(rest_[0]) & 0xC0) == 0x80) rest_.remove_prefix(1);
        return kBeyondAscii;
    }
    if (c != '\\') return c;
    const char escaped = rest_[0];
    rest_.remove_prefix(1);
    constexpr Slice kLetters = "bfnrt";
    constexpr Slice kMeanings = "\b\f\n\r\t";
    if (const size_t found = kLetters.find(escaped); found != Slice::npos) return kMeanings[found];
    if (escaped != 'u') return escaped;
    uint32_t code = 0;
    for (const char c16 : slice(rest_, 0, 4)) code = code * 16 + ast_hex_to_int(c16);
    rest_.remove_prefix(4);
    return code < 0x7F ? static_cast<char>(code) : kBeyondAscii;
}

} // namespace ast::schema
