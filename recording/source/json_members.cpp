#include "source/json_members.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "base/endpoint.hpp"
#include "base/letters.hpp"
#include "base/time.hpp"

namespace ast::recording {

namespace {

// What the end of a value may be found by.
constexpr auto kIsMark = [] {
    std::array<bool, 256> marks{};
    for (const char c : {'"', ',', '{', '[', '}', ']'}) marks[static_cast<uint8_t>(c)] = true;
    return marks;
}();

// Whether a quote stands anywhere before a letter from "d" to "t", as the keys that are looked for begin.
bool may_have_key(std::string_view text) {
    uint8_t found = 0; // in octets and without branches, which compilers do for many characters at a time
    for (size_t i = 1; i < text.size(); ++i) {
        const auto behind_d = static_cast<uint8_t>(text[i] - 'd');
        const auto is_quoted = static_cast<uint8_t>(text[i - 1] == '"');
        found |= static_cast<uint8_t>(is_quoted & static_cast<uint8_t>(behind_d <= 't' - 'd'));
    }
    return found != 0;
}

// Goes over the members of an object, without a look inside what they hold.
class Members {
public:
    explicit Members(std::string_view object) : text_(object) { skip_to('{'); }

    bool next() {
        skip_to('"');
        if (at_ >= text_.size()) return false;
        --at_;
        name = string();
        skip_to(':');
        while (at_ < text_.size() && is_blank(text_[at_])) ++at_;
        value = anything();
        return true;
    }

    std::string_view rest() const { return text_.substr(at_); }

    std::string_view name; // both as they stand, in quotes
    std::string_view value;

private:
    void skip_to(char wanted) {
        const size_t found = text_.find(wanted, at_);
        at_ = found == std::string_view::npos ? text_.size() : found + 1;
    }

    std::string_view string() {
        const size_t begin = at_++;
        while (at_ < text_.size() && text_[at_] != '"') at_ += text_[at_] == '\\' ? size_t{2} : 1;
        at_ = std::min(at_ + 1, text_.size());
        return text_.substr(begin, at_ - begin);
    }

    // Up to the comma or brace behind it.
    std::string_view anything() {
        const size_t begin = at_;
        for (size_t depth = 0;;) {
            while (at_ < text_.size() && !kIsMark[static_cast<uint8_t>(text_[at_])]) ++at_;
            if (at_ == text_.size()) break;
            const char c = text_[at_];
            const bool closes = c == '}' || c == ']';
            if (depth == 0 && (closes || c == ',')) break;
            if (c == '"') {
                string();
                continue;
            }
            if (closes) --depth;
            if (c == '{' || c == '[') ++depth;
            ++at_;
        }
        return text_.substr(begin, at_ - begin);
    }

    std::string_view text_;
    size_t at_ = 0;
};

// The text between the quotes of a value. Times and addresses need no escapes.
std::string_view unquoted(std::string_view value) {
    while (!value.empty() && is_blank(value.back())) value.remove_suffix(1);
    if (value.size() < 2 || value.front() != '"') return {};
    return value.substr(1, value.size() - 2);
}

} // namespace

// Blocks that follow each other mostly took the same way.
std::optional<Endpoint> JsonMemberReader::Recent::read(std::string_view text) {
    if (text != text_) {
        endpoint_ = read_endpoint(text);
        text_ = text;
    }
    return endpoint_;
}

JsonMembers JsonMemberReader::read(std::string_view object) {
    JsonMembers found;
    Members members(object);
    bool has_looked_on = false;
    while (members.next()) {
        if (members.name[1] < 'a') { // an item, behind which as a rule nothing else comes
            if (!std::exchange(has_looked_on, true) && !may_have_key(members.rest())) break;
            continue;
        }
        if (members.value.starts_with("null")) continue;
        const std::string_view text = unquoted(members.value);
        const char *error = nullptr;
        const auto read = [&](auto &to, auto value, const char *otherwise) {
            to = value;
            if (!to) error = otherwise;
        };
        if (members.name == "\"file\"") found.file = members.value;
        if (members.name == "\"octets\"") found.has_octets = true;
        if (members.name == "\"time\"") read(found.time, read_time(text), "is no time such as 2014-02-25T12:43:47Z");
        if (members.name == "\"source\"") read(found.source, source_.read(text), "is no address with its port");
        if (members.name == "\"destination\"")
            read(found.destination, destination_.read(text), "is no address with its port");
        if (!error) continue;
        found.error = error;
        found.wrong_path = members.name.substr(1, members.name.size() - 2);
        found.position = static_cast<uint64_t>(members.value.data() - object.data());
        break;
    }
    return found;
}

} // namespace ast::recording
