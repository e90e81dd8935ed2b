// Records as JSON.

#include <cstring>
#include <limits>

#include "schema/item_writer.hpp"
#include "schema/utf8.hpp"

namespace ast::schema {

namespace {

// ---- Where the characters go ----
// Pieces of at most kPieceChars are put together where begin() says and end there where end() is told.

constexpr uint64_t kPieceChars = 96;

// Into a buffer that has room, as long as its limit is kept; beyond, all is given up.
class Ample {
public:
    Ample(char *text, uint64_t capacity) : text_(text), out_(text), end_(text + capacity) {}
    char *begin() { return out_; }
    void end(char *out) { out_ = out; }
    void drop_comma() { out_ -= out_[-1] == ','; }
    char *limit() const { return end_ - kBeyondLimit; }
    // Whether there is room for so many characters; all is given up otherwise.
    bool claim(uint64_t chars) {
        if (out_ > limit() || static_cast<uint64_t>(limit() - out_) < chars) give_up();
        return !is_given_up_;
    }
    void give_up() { is_given_up_ = true; }
    uint64_t finish() {
        *out_ = '\0';
        return is_given_up_ ? kGivenUp : static_cast<uint64_t>(out_ - text_);
    }
    static constexpr uint64_t kGivenUp = UINT64_MAX;

private:
    char *text_;
    char *out_;
    char *end_;
    bool is_given_up_ = false;
};

// Into any buffer, cut where it ends, and counted.
class Bounded {
public:
    Bounded(char *text, uint64_t capacity) : text_(text), capacity_(text ? capacity : 0) {}
    char *begin() { return piece_; }
    static constexpr bool claim(uint64_t) { return true; }
    void end(const char *out) {
        const auto chars = static_cast<uint64_t>(out - piece_);
        const uint64_t room = length_ < capacity_ ? capacity_ - length_ : 0;
        if (room != 0) std::memcpy(text_ + length_, piece_, static_cast<size_t>(chars < room ? chars : room));
        length_ += chars;
        if (chars != 0) is_comma_last_ = out[-1] == ',';
    }
    void drop_comma() {
        length_ -= is_comma_last_;
        is_comma_last_ = false;
    }
    uint64_t mark() const { return length_; }
    void rewind(uint64_t mark) { // to behind a comma, or the first bracket
        length_ = mark;
        is_comma_last_ = was_comma_;
    }
    void expect_rewind() { was_comma_ = is_comma_last_; }
    uint64_t finish() {
        if (capacity_ != 0) text_[length_ < capacity_ ? length_ : capacity_ - 1] = '\0';
        return length_;
    }

private:
    char piece_[kPieceChars];
    char *text_;
    uint64_t capacity_;
    uint64_t length_ = 0;
    bool is_comma_last_ = false;
    bool was_comma_ = false;
};

// ---- Keys and texts ----

// What a line is made of. Everything has a comma behind it, which the end of what it stands in takes back.
template <typename Out>
class Pieces {
public:
    Pieces(char *text, uint64_t capacity) : out_(text, capacity) {}

    // A text in UTF-8 behind a key; what is no character or has to be is escaped.
    [[gnu::always_inline]] void text(std::string_view key, std::string_view text) {
        literal(key);
        string(text);
    }
    [[gnu::always_inline]] void number(std::string_view key, uint64_t number) {
        char *const out = put_number(put(out_.begin(), key), number);
        *out = ',';
        out_.end(out + 1);
    }
    // A text that stands for itself.
    [[gnu::always_inline]] void name(std::string_view key, std::string_view name) {
        char *const out = put(put(out_.begin(), key), "\"");
        out_.end(put(copy_text(out, name.data(), name.size()), "\","));
    }
    // A piece as it is, a key or a bracket.
    [[gnu::always_inline]] void literal(std::string_view piece) { out_.end(put(out_.begin(), piece)); }
    void hex(std::string_view name, const uint8_t *data, uint64_t count) {
        if (!out_.claim(sizeof "\"\":\"\"," + name.size() + 2 * count)) return;
        out_.end(put(put(put(out_.begin(), "\""), name), "\":"));
        hex_digits_of(data, count);
    }

    void close_with(char bracket) {
        out_.drop_comma();
        char *const out = out_.begin();
        out[0] = bracket;
        out[1] = ',';
        out_.end(out + 2);
    }
    uint64_t finish() {
        out_.drop_comma();
        out_.end(put(out_.begin(), "}"));
        return out_.finish();
    }

protected:
    void hex_digits_of(const uint8_t *data, uint64_t count) {
        constexpr uint64_t kAtATime = kPieceChars / 2;
        out_.end(put(out_.begin(), "\""));
        while (count != 0) {
            const uint64_t now = count < kAtATime ? count : kAtATime;
            out_.end(put_octets(out_.begin(), data, now));
            data += now;
            count -= now;
        }
        out_.end(put(out_.begin(), "\","));
    }

    void character(char c) {
        char *out = out_.begin();
        constexpr unsigned kEscapeDigits = 4;
        if (static_cast<uint8_t>(c) < ' ') {
            out_.end(Symbols<kHexBits>::put(put(out, "\\u"), static_cast<uint8_t>(c), kEscapeDigits));
            return;
        }
        if (c == '"' || c == '\\') *out++ = '\\';
        *out++ = c;
        out_.end(out);
    }

    // Puts what stands for itself at the front of a text, eight characters at a time; returns the rest.
    std::string_view plain(std::string_view text) {
        uint64_t eight = 0;
        while (text.size() >= sizeof eight) {
            std::memcpy(&eight, text.data(), sizeof eight);
            if (!are_plain(eight)) break;
            char *const out = out_.begin();
            std::memcpy(out, &eight, sizeof eight);
            out_.end(out + sizeof eight);
            text.remove_prefix(sizeof eight);
        }
        return text;
    }

    void string(std::string_view text) {
        out_.end(put(out_.begin(), "\""));
        for (text = plain(text); !text.empty();) {
            const size_t octets = utf8_octets(text);
            if (octets > 1)
                out_.end(put(out_.begin(), slice(text, 0, octets)));
            else
                character(octets == 1 ? text[0] : kUndefinedCharacter);
            text.remove_prefix(octets > 1 ? octets : 1);
        }
        out_.end(put(out_.begin(), "\","));
    }

    Out out_;
};

// ---- Items ----

// Field by field, into any buffer.
class Walked : public Pieces<Bounded> {
public:
    Walked(char *text, uint64_t capacity, const ast_json_line_t &line, const Context &context)
        : Pieces(text, capacity), context_(context), texts_(line.texts) {}

    static const ast_dataitem_t *usual(const Edition &, const ast_dataitem_t *item, const ast_dataitem_t *,
                                       ast_dataitem_type_t) {
        return item;
    }
    // Whether the values of an item give its octets back. One whose octets end too early is left out.
    bool item(const Found &found, const ast_dataitem_t &item) {
        is_lossy_ = false;
        out_.expect_rewind();
        const uint64_t before = out_.mark();
        Walk<Walked> walk(BitReader(item.data, item.size, item.following), *this, context_);
        const bool is_whole = walk.field(found.field);
        if (!is_whole) out_.rewind(before);
        return is_whole && !is_lossy_ && !walk.is_lossy();
    }

    void open(const Field &field) {
        const char bracket = is_list(field) ? '[' : '{';
        char *const out = key(field);
        *out = bracket;
        out_.end(out + 1);
    }
    void close(const Field &field) { close_with(is_list(field) ? ']' : '}'); }
    void element() {}

    void open_register(const Field &field, uint32_t number, uint64_t) {
        char *out = put(key(field), "{\"bds\":");
        out = put_hex(out, number, 2);
        *out++ = ',';
        out_.end(out);
    }

    void value(const Field &field, uint64_t raw) {
        if (texts_ && field.kind == Kind::Code && code_with_text(field, raw)) return;
        char *out = key(field);
        if (field.kind == Kind::Code && raw < 10) [[likely]] // as most are
            *out++ = digit(raw);
        else
            out = put_raw(out, field, raw, is_lossy_);
        *out = ',';
        out_.end(out + 1);
    }

    void octets(const Field &field, const uint8_t *data, uint64_t count) {
        if (field.kind == Kind::Ascii)
            characters(field, data, count);
        else
            octets_in_hex(field, data, count);
    }

private:
    char *key(const Field &field) {
        char *const out = out_.begin();
        std::memcpy(out, field.key, sizeof field.key);
        return out + field.key_chars;
    }

    bool code_with_text(const Field &field, uint64_t raw) {
        const std::string_view meaning = text_of_code(field.meaning, raw);
        if (meaning.empty()) return false;
        char *const out = put_number(put(key(field), "{\"value\":"), raw);
        *out = ',';
        out_.end(out + 1);
        text("\"text\":", meaning);
        close_with('}');
        return true;
    }

    void characters(const Field &field, const uint8_t *data, uint64_t count) {
        while (count != 0 && data[count - 1] == ' ') --count;
        out_.end(key(field));
        for (uint64_t i = 0; i < count; ++i) is_lossy_ |= !is_printable(data[i]);
        out_.end(put(out_.begin(), "\""));
        for (uint64_t i = 0; i < count; ++i)
            character(is_printable(data[i]) ? static_cast<char>(data[i]) : kUndefinedCharacter);
        out_.end(put(out_.begin(), "\","));
    }

    void octets_in_hex(const Field &field, const uint8_t *data, uint64_t count) {
        out_.end(key(field));
        hex_digits_of(data, count);
    }

    const Context &context_;
    bool texts_;
    bool is_lossy_ = false;
};

// By the functions made of their rows, into a buffer that has room.
class ByFunctions : public Pieces<Ample> {
public:
    ByFunctions(char *text, uint64_t capacity, const ast_json_line_t &line, const Context &context)
        : Pieces(text, capacity), items_(out_.limit(), context, line.texts) {}

    // Writes items up to the first one that is not as most are.
    const ast_dataitem_t *usual(const Edition &edition, const ast_dataitem_t *item, const ast_dataitem_t *end,
                                ast_dataitem_type_t message_type) {
        char *out = out_.begin() - 1; // an item brings the comma along that stands there
        item = items_.usual(out, edition, item, end, message_type);
        *out = ',';
        out_.end(out + 1);
        return item;
    }
    bool item(const Found &found, const ast_dataitem_t &item) {
        char *const out = items_.item(out_.begin() - 1, *found.writer, item);
        if (out) {
            *out = ',';
            out_.end(out + 1);
            return !items_.is_lossy();
        }
        if (items_.gives_up()) out_.give_up();
        return false;
    }

private:
    ItemWriter items_;
};

// ---- Lines ----

constexpr ast_json_line_t kNothingToSay{};

template <typename Out>
void say_where(Pieces<Out> &json, const ast_json_line_t &line) {
    if (line.file) json.text("\"file\":", line.file);
    if (line.block) json.number("\"block\":", line.block);
    if (line.record) json.number("\"record\":", line.record);
    if (line.time) json.text("\"time\":", line.time);
    if (line.source) json.text("\"source\":", line.source);
    if (line.destination) json.text("\"destination\":", line.destination);
    if (line.has_offset) json.number("\"offset\":", line.offset);
}

template <typename Out>
void open_line(Pieces<Out> &json, const ast_json_line_t &line, uint32_t category, const char *profile) {
    const bool says_something = &line != &kNothingToSay;
    json.literal("{");
    if (says_something) say_where(json, line);
    json.number("\"category\":", category);
    if (says_something && line.profile)
        json.text("\"profile\":", line.profile);
    else if (profile)
        json.name("\"profile\":", profile);
    if (says_something && line.ambiguous) json.literal("\"ambiguous\":true,");
}

// Whether the FSPEC is not the one that the items alone would give: it announces spare FRNs, or ends with nothing.
bool is_unusual(const ast_fspec_t &fspec, uint64_t item_count) {
    if (!fspec.valid || !fspec.data || fspec.length == 0) return false;
    return fspec.item_count != item_count || (fspec.length > 1 && fspec.data[fspec.length - 1] == 0);
}

template <typename Items>
class RecordWriter {
public:
    RecordWriter(char *text, uint64_t capacity, const ast_datarecord_t &record, const ast_json_line_t &line)
        : record_(record),
          first_type_(AST_DATAITEM_TYPE(record.category, 0)),
          edition_(find_edition(record.category, record.uap)),
          context_{record.uap, record.category, 0},
          json_(text, capacity, line, context_) {}

    uint64_t write(const ast_json_line_t &line) {
        open_line(json_, line, record_.category, line.profile ? nullptr : profile_name(record_.uap));
        const ast_dataitem_t *const end = record_.items + item_count();
        for (const ast_dataitem_t *each = record_.items; each != end; ++each) {
            if (edition_) each = json_.usual(*edition_, each, end, first_type_);
            if (each == end) break;
            item(static_cast<uint64_t>(each - record_.items));
        }
        const bool has_fspec = is_unusual(record_.fspec, record_.item_count);
        if (needs_octets_ != 0 || has_fspec) octets(has_fspec);
        return json_.finish();
    }

private:
    static_assert(AST_DATARECORD_MAX_ITEMS <= std::numeric_limits<uint32_t>::digits);

    uint64_t item_count() const {
        return record_.item_count < AST_DATARECORD_MAX_ITEMS ? record_.item_count : AST_DATARECORD_MAX_ITEMS;
    }

    void item(uint64_t place) {
        const ast_dataitem_t &item = record_.items[place];
        if (!item.valid || !item.data) return;
        const Found found = find(item.type);
        if (!found.field) { // no edition describes it
            char buffer[8];
            json_.hex(reference_of(item.type, is_second(place), buffer), item.data, item.size);
            return;
        }
        if (!json_.item(found, item)) needs_octets_ |= uint32_t{1} << place;
        if (item.type == first_type_ && item.size == 1) context_.message_type = *item.data;
    }

    Found find(ast_dataitem_type_t type) const {
        const uint32_t place = edition_ ? edition_->place_of(type - first_type_) : 0;
        return place != 0 ? found_at(*edition_, place) : find_with_writer(type, record_.uap);
    }

    bool is_second(uint64_t place) const {
        for (uint64_t i = 0; i < place; ++i)
            if (record_.items[i].type == record_.items[place].type) return true;
        return false;
    }

    void octets(bool has_fspec) {
        json_.literal("\"octets\":{");
        if (has_fspec) json_.hex("FSPEC", record_.fspec.data, record_.fspec.length);
        for (uint64_t i = 0; i < item_count(); ++i)
            if (needs_octets_ >> i & 1) {
                const ast_dataitem_t &item = record_.items[i];
                json_.hex(find_item(item.type, record_.uap, edition_)->name(), item.data, item.size);
            }
        json_.close_with('}');
    }

    const ast_datarecord_t &record_;
    const ast_dataitem_type_t first_type_; // of the category: the type of a message
    const Edition *edition_;
    Context context_;
    Items json_;
    uint32_t needs_octets_ = 0; // by the place of an item
};

// Whether there is room for what stands in front of the items.
bool has_room_for_line(uint64_t capacity, const ast_json_line_t &line) {
    constexpr uint64_t kMaxCharsOfKeys = 256;
    constexpr uint64_t kMaxCharsOfCharacter = 6;
    uint64_t chars = kMaxCharsOfKeys + kBeyondLimit;
    if (&line == &kNothingToSay) return capacity >= chars;
    for (const char *text : {line.file, line.time, line.source, line.destination, line.profile})
        if (text) chars += kMaxCharsOfCharacter * std::string_view(text).size();
    return capacity >= chars;
}

template <typename Items>
uint64_t write_record(char *text, uint64_t capacity, const ast_datarecord_t &record, const ast_json_line_t &line) {
    return RecordWriter<Items>(text, capacity, record, line).write(line);
}

// Where there is room, as there mostly is.
uint64_t write_fast(char *text, uint64_t capacity, const ast_datarecord_t &record, const ast_json_line_t &line) {
    constexpr uint64_t kMostThatCounts = 1U << 30;
    if (!text || !has_room_for_line(capacity, line)) return Ample::kGivenUp;
    const uint64_t room = capacity < kMostThatCounts ? capacity : kMostThatCounts;
    return write_record<ByFunctions>(text, room, record, line);
}

} // namespace

} // namespace ast::schema

using namespace ast::schema;

uint64_t ast_datarecord_to_json(char *text, uint64_t capacity, const ast_datarecord_t *record,
                                const ast_json_line_t *line) {
    static constexpr ast_datarecord_t kNone{};
    const ast_datarecord_t &from = record ? *record : kNone;
    const ast_json_line_t &with = line ? *line : kNothingToSay;
    const uint64_t chars = write_fast(text, capacity, from, with);
    return chars != Ample::kGivenUp ? chars : write_record<Walked>(text, capacity, from, with);
}

uint64_t ast_octets_to_json(char *text, uint64_t capacity, uint32_t category, const uint8_t *data, uint64_t count,
                            const char *error, const ast_json_line_t *line) {
    const ast_json_line_t &with = line ? *line : kNothingToSay;
    Pieces<Bounded> json(text, capacity);
    open_line(json, with, category, nullptr);
    if (error) json.text("\"error\":", error);
    json.hex("data", data, data ? count : 0);
    return json.finish();
}
