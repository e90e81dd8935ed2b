#include "base/json_value.hpp"

#include <algorithm>
#include <cstdint>

#include "base/letters.hpp"
#include "base/numbers.hpp"

namespace ast::recording {

namespace {

constexpr unsigned kMostLevels = 64;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

class Reader {
public:
    explicit Reader(std::string_view text) : text_(text) {}

    JsonValue all() {
        if (text_.starts_with(kByteOrderMark)) at_ = kByteOrderMark.size();
        JsonValue result = value(0);
        skip_blanks();
        if (at_ != text_.size()) fail("expected the end");
        return result;
    }

private:
    using Kind = JsonValue::Kind;

    [[noreturn]] void fail(const char *what) const {
        const std::string_view before = text_.substr(0, at_);
        const size_t line = before.rfind('\n') + 1; // 0 where there is none
        throw std::invalid_argument("line " + std::to_string(std::ranges::count(before, '\n') + 1) + ", character " +
                                    std::to_string(at_ - line + 1) + ": " + what);
    }

    char next() const { return at_ < text_.size() ? text_[at_] : '\0'; }
    void skip_blanks() {
        while (is_blank(next())) ++at_;
    }
    bool takes(char wanted) {
        skip_blanks();
        if (next() != wanted) return false;
        ++at_;
        return true;
    }
    bool takes(std::string_view word) {
        if (!text_.substr(at_).starts_with(word)) return false;
        at_ += word.size();
        return true;
    }

    JsonValue value(unsigned level) {
        if (level > kMostLevels) fail("nested too deep");
        skip_blanks();
        if (next() == '{') return object(level);
        if (next() == '[') return list(level);
        JsonValue result;
        if (next() == '"') {
            result.kind = Kind::text;
            result.text = string();
        } else if (takes("true")) {
            result.kind = Kind::boolean;
            result.boolean = true;
        } else if (takes("false")) {
            result.kind = Kind::boolean;
        } else if (!takes("null")) {
            result.kind = Kind::number;
            result.number = number();
        }
        return result;
    }

    double number() {
        const std::string_view digits = text_.substr(at_, text_.find_first_not_of("+-.0123456789eE", at_) - at_);
        const auto read = read_number<double>(digits);
        if (!read) fail("expected a value");
        at_ += digits.size();
        return *read;
    }

    JsonValue list(unsigned level) {
        JsonValue result;
        result.kind = Kind::list;
        ++at_;
        if (takes(']')) return result;
        do result.elements.push_back(value(level + 1));
        while (takes(','));
        if (!takes(']')) fail("expected , or ]");
        return result;
    }

    JsonValue object(unsigned level) {
        JsonValue result;
        result.kind = Kind::object;
        ++at_;
        if (takes('}')) return result;
        do {
            skip_blanks();
            if (next() != '"') fail("expected the name of a member");
            result.names.push_back(string());
            if (!takes(':')) fail("expected :");
            result.elements.push_back(value(level + 1));
        } while (takes(','));
        if (!takes('}')) fail("expected , or }");
        return result;
    }

    std::string string() {
        std::string result;
        for (++at_; next() != '"'; ++at_) {
            if (at_ >= text_.size()) fail("a text has no end");
            if (next() != '\\') {
                result += next();
                continue;
            }
            ++at_;
            result += escaped();
        }
        ++at_;
        return result;
    }

    // What an escape stands for. Characters by their number are of no matter to whoever reads names and types: they
    // become "?".
    char escaped() {
        constexpr std::string_view kSigns = "\"\\/bfnrtu";
        constexpr std::string_view kMeanings = "\"\\/\b\f\n\r\t?";
        constexpr size_t kHexDigits = 4;
        const size_t sign = at_ < text_.size() ? kSigns.find(next()) : std::string_view::npos;
        if (sign == std::string_view::npos) fail("there is no such escape");
        if (next() == 'u') {
            if (text_.size() - at_ <= kHexDigits) fail("a text has no end");
            at_ += kHexDigits;
        }
        return kMeanings[sign];
    }

    std::string_view text_;
    size_t at_ = 0;
};

} // namespace

const JsonValue *JsonValue::find(std::string_view name) const {
    const auto found = std::ranges::find(names, name);
    return found == names.end() ? nullptr : &elements[static_cast<size_t>(found - names.begin())];
}

const char *JsonValue::kind_text() const {
    constexpr const char *kTexts[] = {"null", "true or false", "a number", "a text", "a list", "an object"};
    return kTexts[static_cast<size_t>(kind)];
}

JsonValue read_json(std::string_view text) { return Reader(text).all(); }

} // namespace ast::recording
