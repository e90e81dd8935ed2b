#include "framing/text_octets.hpp"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <utility>

#include "base/letters.hpp"
#include "framing/block_header.hpp"
#include "framing/soundness.hpp"

namespace ast::recording {

namespace {

// Letters beyond ASCII are of words, too.
bool is_of_word(char c) { return is_letter(c) || is_digit(c) || c == '_' || static_cast<uint8_t>(c) >= 0x80; }

// What mail programs put in front of what they quote.
std::string_view without_quotes(std::string_view line) {
    const size_t begin = line.find_first_not_of(" \t>");
    return begin == std::string_view::npos ? std::string_view() : line.substr(begin);
}

std::string_view without_comment(std::string_view line) {
    for (const std::string_view mark : {"//", "/*", "#", ";"}) line = line.substr(0, line.find(mark));
    return line;
}

uint8_t octet_of(std::string_view digits) {
    uint8_t octet = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), octet, 16);
    return octet;
}

// ---- Texts of programs ----

constexpr std::string_view kEscape = "\\x";

// What stands between the quotes of a line with "\x30\x00", or behind the first of these where there are none.
std::string_view quoted_in(std::string_view line) {
    const size_t escape = line.find(kEscape);
    const size_t quote = line.find_first_of("\"'");
    if (quote == std::string_view::npos || quote > escape) return line.substr(escape);
    const size_t end = line.rfind(line[quote]);
    return line.substr(quote + 1, end > quote ? end - quote - 1 : std::string_view::npos);
}

// An escape of C, without its backslash, and how many characters it has.
std::pair<uint8_t, size_t> escaped(std::string_view text) {
    struct Sign {
        char name;
        uint8_t octet;
    };
    static constexpr Sign kSigns[] = {{'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'0', 0},
                                      {'a', 7},    {'b', 8},    {'f', 12},   {'v', 11}};
    if (text.size() > 2 && text[0] == 'x' && is_hexadecimal(text[1]) && is_hexadecimal(text[2]))
        return {octet_of(text.substr(1, 2)), 3};
    for (const Sign &sign : kSigns)
        if (text[0] == sign.name) return {sign.octet, 1};
    return {static_cast<uint8_t>(text[0]), 1};
}

// The octets of a text of C or Python, in which those that are characters stand for themselves.
std::vector<uint8_t> unescaped(std::string_view text) {
    std::vector<uint8_t> octets;
    while (!text.empty()) {
        const bool is_escape = text[0] == '\\' && text.size() > 1;
        const auto [octet, characters] =
            is_escape ? escaped(text.substr(1)) : std::pair(static_cast<uint8_t>(text[0]), size_t{1});
        octets.push_back(octet);
        text.remove_prefix(characters + (is_escape ? 1 : 0));
    }
    return octets;
}

// ---- Words ----

// The digits in a word, without what programs mark hexadecimal ones with: 0x30, 30h. Of "0x0" it is one digit. Empty
// where it is another word.
std::string_view digits_in(std::string_view word) {
    const bool is_marked = word.size() > 2 && word[0] == '0' && (word[1] == 'x' || word[1] == 'X');
    if (is_marked) word.remove_prefix(2);
    if (word.size() == 3 && (word.back() == 'h' || word.back() == 'H')) word.remove_suffix(1);
    const bool is_paired = word.size() % 2 == 0 || (is_marked && word.size() == 1);
    return !word.empty() && is_paired && std::ranges::all_of(word, is_hexadecimal) ? word : std::string_view();
}

// "Ed", "be" and "decade" are words of a language, "123456" is a number there.
bool is_of_language(std::string_view digits) {
    constexpr size_t kLongest = 10;
    return digits.size() <= kLongest &&
           (std::ranges::all_of(digits, is_letter) || std::ranges::all_of(digits, is_digit));
}

// Words of digits that follow each other with the same signs between them.
struct Digits {
    std::vector<uint8_t> octets;
    size_t begin = 0; // in the line
    size_t words = 0;
    std::string signs;           // such as "," or ":"; of blanks, none
    bool is_of_language = false; // the last of them
};

// A line cut to words of digits, others, and what lies between them.
class Words {
public:
    explicit Words(std::string_view line) : line_(line), rest_(line) {}

    // The longest run of digits, the last one of those.
    Digits longest() {
        while (next()) continue;
        close_run();
        return std::move(longest_);
    }

    // Whether there is anything else in the line.
    bool any_others() const { return any_others_; }

private:
    bool next() {
        const auto begin = std::ranges::find_if(rest_, is_of_word);
        const std::string_view between = rest_.substr(0, static_cast<size_t>(begin - rest_.begin()));
        rest_.remove_prefix(between.size());
        if (rest_.empty()) return false;
        if (is_characters_column(between)) {
            rest_ = {};
            return false;
        }
        const auto end = std::ranges::find_if_not(rest_, is_of_word);
        const std::string_view word = rest_.substr(0, static_cast<size_t>(end - rest_.begin()));
        rest_.remove_prefix(word.size());
        take(word, between);
        return true;
    }

    void take(std::string_view word, std::string_view between) {
        const std::string_view digits = digits_in(word);
        if (digits.empty()) {
            any_others_ = true;
            return close_run();
        }
        std::string signs;
        for (const char c : between)
            if (!is_blank(c)) signs += c;
        if (run_.words > 1 && signs != run_.signs) {
            any_others_ = true;
            const bool is_label = run_.words == 2; // "48: 30 00", of which the second word has gone with the first
            const Last last = last_;
            close_run();
            if (is_label) add(last.digits, last.begin);
        }
        if (run_.words == 1) run_.signs = signs;
        add(digits, static_cast<size_t>(word.data() - line_.data()));
    }

    void add(std::string_view digits, size_t begin) {
        if (run_.words == 0) run_.begin = begin;
        ++run_.words;
        last_ = {digits, begin};
        run_.is_of_language = is_of_language(digits);
        for (size_t i = 0; i < digits.size(); i += 2) run_.octets.push_back(octet_of(digits.substr(i, 2)));
    }

    // Whether what follows shows the octets so far as characters, which dumps do behind blanks or a bar.
    bool is_characters_column(std::string_view between) const {
        const size_t bar = between.find('|');
        if (run_.octets.empty() || (between.size() < 2 && bar == std::string_view::npos)) return false;
        std::string_view column =
            trimmed({between.data(), static_cast<size_t>(line_.data() + line_.size() - between.data())});
        if (bar != std::string_view::npos && column.size() > 1 && column.front() == '|' && column.back() == '|')
            column = column.substr(1, column.size() - 2);
        Octets octets = run_.octets;
        while (!octets.empty() && octets.front() == ' ' && !shows(column, octets)) octets = octets.subspan(1);
        return shows(column, octets);
    }

    // Blanks at the end may be gone.
    static bool shows(std::string_view column, Octets octets) {
        const auto is_shown = [](char c, uint8_t octet) { return c == '.' || static_cast<uint8_t>(c) == octet; };
        return !column.empty() && column.size() <= octets.size() &&
               std::ranges::equal(column, octets.first(column.size()), is_shown) &&
               std::ranges::all_of(octets.subspan(column.size()), [](uint8_t octet) { return octet == ' '; });
    }

    void close_run() {
        Digits run = std::exchange(run_, {});
        if (!run.octets.empty() && run.octets.size() >= longest_.octets.size()) longest_ = std::move(run);
    }

    std::string_view line_;
    std::string_view rest_;
    struct Last {
        std::string_view digits;
        size_t begin;
    };

    Digits run_;
    Last last_{};
    Digits longest_;
    bool any_others_ = false;
};

// Among other words stand times, dates and addresses of hosts as well; a last line may have anything.
bool is_meant_as_octets(const Digits &digits, bool is_among_words, bool is_missing_some) {
    constexpr size_t kFewest = 3;
    constexpr size_t kFewestOfMany = 8; // where dots, colons or dashes are between them
    const bool is_plain = digits.signs.empty() || digits.signs == ",";
    if (digits.octets.empty()) return false;
    const bool is_word = digits.words == 1 && digits.is_of_language;
    if (!is_among_words) return is_missing_some || !is_word;
    return !is_word && digits.octets.size() >= (is_plain ? kFewest : kFewestOfMany);
}

bool is_whole(Octets octets) { return count_blocks(octets).octets == octets.size(); }

} // namespace

// ---- Lines ----

struct TextOctets::Line {
    std::vector<uint8_t> octets;
    size_t begin = 0; // of the first digit
    bool is_among_words = false;
    std::optional<Offset> offset{};
};

// In front of a line of a dump: digits with a colon, or the number of octets so far, which od writes in octal notation.
std::optional<TextOctets::Offset> TextOctets::offset_of(std::string_view line) const {
    constexpr size_t kFewestDigits = 4;
    constexpr size_t kMostDigits = 8;
    std::string_view rest = line;
    if (rest.starts_with("0x")) rest.remove_prefix(2);
    const auto end = static_cast<size_t>(std::ranges::find_if_not(rest, is_hexadecimal) - rest.begin());
    const bool has_colon = rest.substr(end).starts_with(": ");
    if (end < kFewestDigits || end > kMostDigits || (end < rest.size() && !is_blank(rest[end]) && !has_colon))
        return {};
    Offset offset{.characters = line.size() - rest.size() + end + (has_colon ? 1 : 0)};
    std::from_chars(rest.data(), rest.data() + end, offset.value, 16);
    uint64_t octal = 0;
    const bool is_octal = std::from_chars(rest.data(), rest.data() + end, octal, 8).ptr == rest.data() + end;
    const uint64_t count = dump_begin_.value_or(0) + open_.octets.size();
    offset.goes_on = dump_begin_ && !open_.octets.empty() && (offset.value == count || (is_octal && octal == count));
    return has_colon || offset.goes_on || offset.value == 0 ? std::optional(offset) : std::nullopt;
}

bool TextOctets::is_open_whole() const { return blocks_end_ == open_.octets.size(); }

bool TextOctets::begins_passage(const Line &line) const {
    if (line.offset || dump_begin_) return !line.offset || !line.offset->goes_on;
    if (line.is_among_words || is_open_whole()) return true;
    // A block that lacks some octets, and a line that has blocks of its own.
    const Octets part = Octets(open_.octets).subspan(blocks_end_);
    const Frame frame = frame_block(part);
    const bool ends_within_line = frame.framing == Framing::past_end && frame.length < part.size() + line.octets.size();
    return ends_within_line && is_whole(line.octets) && has_published_category(line.octets);
}

TextOctets::Line TextOctets::read_line(std::string_view text) const {
    const std::string_view line = without_quotes(text);
    if (line.find(kEscape) != std::string_view::npos) {
        const std::string_view inside = quoted_in(line);
        return {.octets = unescaped(inside), .begin = static_cast<size_t>(inside.data() - text.data())};
    }
    const auto offset = offset_of(line);
    const std::string_view content = offset ? line.substr(offset->characters) : without_comment(line);
    Words words(content);
    Digits digits = words.longest();
    const bool is_among_words = words.any_others() && !offset;
    const bool is_missing_some = !open_.octets.empty() && !is_open_whole();
    if (!is_meant_as_octets(digits, is_among_words, is_missing_some)) digits.octets.clear();
    return {.octets = std::move(digits.octets),
            .begin = static_cast<size_t>(content.data() - text.data()) + digits.begin,
            .is_among_words = is_among_words,
            .offset = offset};
}

void TextOctets::take_line(std::string_view text, uint64_t offset, std::vector<Passage> &passages) {
    Line line = read_line(text);
    const bool is_end_of_dump = line.octets.empty() && line.offset && line.offset->goes_on;
    if (is_end_of_dump) return;
    if (!open_.octets.empty() && (line.octets.empty() || begins_passage(line))) end_passage(passages);
    if (line.octets.empty()) return;
    if (open_.octets.empty()) {
        open_.offset = offset + line.begin;
        open_.is_alone = !line.is_among_words;
        if (line.offset) dump_begin_ = line.offset->value;
    }
    open_.octets.insert(open_.octets.end(), line.octets.begin(), line.octets.end());
    const Octets octets = open_.octets;
    blocks_end_ += count_blocks(octets.subspan(blocks_end_)).octets;
}

bool is_hexadecimal_text(std::string_view text) {
    TextOctets octets;
    std::vector<Passage> passages;
    octets.take_line(text, 0, passages);
    octets.end_passage(passages);
    return passages.size() == 1 && passages[0].is_alone && passages[0].octets.size() >= kBlockHeaderOctets;
}

void TextOctets::end_passage(std::vector<Passage> &passages) {
    if (!open_.octets.empty()) passages.push_back(std::exchange(open_, {}));
    dump_begin_.reset();
    blocks_end_ = 0;
}

} // namespace ast::recording
