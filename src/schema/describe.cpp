// The description of fields, and the values of an item, handed to a caller one by one.

#include <cstring>

#include "core/text.hpp"
#include "schema/number.hpp"
#include "schema/texts.hpp"
#include "schema/walk.hpp"

namespace ast::schema {

namespace {

// "I048/250[1]/MCP_ALT", put together on the way down and taken back on the way up.
class Path {
public:
    const char *text() const { return text_; }
    size_t length() const { return length_; }
    Path() { text_[0] = '\0'; }
    void append(std::string_view piece) {
        if (piece.empty()) return; // it may be nowhere
        const size_t room = sizeof text_ - 1 - length_;
        const size_t chars = piece.size() < room ? piece.size() : room;
        std::memcpy(text_ + length_, piece.data(), chars);
        cut(length_ + chars);
    }
    void append_step(std::string_view name) {
        if (name.empty()) return;
        if (length_ != 0) append("/");
        append(name);
    }
    // The name of a field, copied by a few moves where there is room.
    void append_step(const Field &field) {
        if (!field.is_named()) return;
        if (length_ == 0 || length_ + 1 + sizeof field.key >= sizeof text_) return append_step(field.name());
        std::memcpy(text_ + length_, field.key, sizeof field.key);
        text_[length_] = '/'; // in place of its quote
        cut(length_ + 1 + field.name().size());
    }
    void cut(size_t length) {
        length_ = length;
        text_[length_] = '\0';
    }

private:
    char text_[128];
    size_t length_ = 0;
};

// "I048/040" of an item, whose field is named "I040".
class Reference {
public:
    Reference(uint32_t category, const Field &item) {
        const std::string_view name = item.name();
        const std::string_view number = name.starts_with('I') ? slice(name, 1) : name;
        for (uint32_t i = 0; i < 3; ++i, category /= 10) text_[3 - i] = digit(category % 10);
        std::memcpy(text_ + kCategoryChars, number.data(), number.size());
        length_ = kCategoryChars + number.size();
    }
    operator std::string_view() const { return {text_, length_}; }

private:
    static constexpr size_t kCategoryChars = 5;
    char text_[kCategoryChars + sizeof(Field::key)] = {'I', '0', '0', '0', '/'};
    size_t length_;
};

constexpr const char *or_empty(const char *text) { return text ? text : ""; }

uint32_t public_kind(Kind kind) {
    if (kind == Kind::UnsignedOrNone) return AST_FIELD_UNSIGNED;
    if (kind == Kind::Status) return AST_FIELD_RAW;
    return static_cast<uint32_t>(kind);
}

ast_field_t description_of(const Field &field, const char *path) {
    const bool has_step = field.is_quantity();
    return {.path = path,
            .title = or_empty(field.title),
            .kind = public_kind(field.kind),
            .bits = field.bits,
            .unit = has_step ? or_empty(field.meaning) : "",
            .numerator = has_step ? field.numerator : 0,
            .denominator = has_step ? field.denominator : 0,
            .offset = field.offset,
            .texts = field.kind == Kind::Code ? or_empty(field.meaning) : ""};
}

// What has no line of its own: its members are those of what it stands in.
bool is_inside(const Field &field) {
    return field.kind == Kind::Part || field.kind == Kind::When || field.kind == Kind::None ||
           field.kind == Kind::Status;
}

class Describer {
public:
    Describer(ast_field_visitor_t visit, void *context) : visit_(visit), context_(context) {}

    void field(const Field *field, std::string_view first_step = {}) {
        const size_t before = path_.length();
        path_.append(first_step);
        if (first_step.empty() && field->kind != Kind::When) path_.append_step(*field);
        const bool has_content = field->kind == Kind::Explicit && field->rows != 0; // which has its name, too
        if (!is_inside(*field) && !has_content && !is_transparent_inside(*field, before)) {
            const ast_field_t description = description_of(*field, path_.text());
            visit_(context_, &description);
        }
        if (has_content) path_.cut(before);
        if (is_list(*field)) path_.append("[]");
        if (field->kind == Kind::Either) path_.cut(before);
        for (const Field *member = field + 1; member != behind(field); member = behind(member))
            this->field(member, has_content ? first_step : std::string_view());
        path_.cut(before);
    }

private:
    static bool is_transparent_inside(const Field &field, size_t level) { return level != 0 && is_transparent(field); }

    ast_field_visitor_t visit_;
    void *context_;
    Path path_;
};

// Hands values over as they are met.
class Values {
public:
    Values(ast_field_value_visitor_t visit, void *context, std::string_view item) : visit_(visit), context_(context) {
        path_.append(item);
        text_[0] = '\0';
    }

    void open(const Field &field) {
        push(is_item_ ? nullptr : &field);
        levels_[level_ - 1].is_list = is_list(field);
    }
    void close(const Field &) { pop(); }
    void element() {
        Level &list = levels_[level_ - 1];
        path_.cut(list.inside);
        char digits[kNumberRoom];
        path_.append("[");
        path_.append({digits, static_cast<size_t>(put_number(digits, list.elements++) - digits)});
        path_.append("]");
        is_element_ = true;
    }
    // Its number is named as in JSON.
    void open_register(const Field &field, uint32_t number, uint64_t raw) {
        push(is_item_ ? nullptr : &field);
        TextWriter out(text_, sizeof text_);
        digits(out, number, 2, kHexBits);
        const size_t before = path_.length();
        path_.append_step("bds");
        hand_over(field, {.raw = raw, .text = text_});
        path_.cut(before);
    }

    void value(const Field &field, uint64_t raw) {
        const bool is_number = !is_shown_as_octets(field) && field.kind != Kind::Octal && field.kind != Kind::Icao;
        write_text(field, raw);
        hand_over(field, raw, is_number, is_number ? number_of(field, raw) : 0);
    }

    void octets(const Field &field, const uint8_t *data, uint64_t count) {
        if (field.kind == Kind::Ascii)
            write_characters(data, count);
        else
            write_hex(data, count);
        uint64_t raw = 0;
        for (uint64_t i = 0; count <= sizeof raw && i < count; ++i) raw = raw << 8 | data[i];
        hand_over(field, raw, false, 0);
    }

private:
    static constexpr unsigned kMaxLevels = 16; // more than any table has

    struct Level {
        size_t before; // lengths of the path
        size_t inside;
        uint64_t elements;
        bool is_list;
    };

    void push(const Field *step) {
        Level &level = levels_[level_++ % kMaxLevels];
        const size_t before = path_.length();
        if (step) path_.append_step(*step);
        level = {.before = before, .inside = path_.length(), .elements = 0, .is_list = false};
        is_item_ = false;
        is_element_ = false;
    }
    void pop() { path_.cut(levels_[--level_ % kMaxLevels].before); }

    void hand_over(const Field &field, uint64_t raw, bool is_number, double number) {
        const size_t before = path_.length();
        if (!is_item_ && !is_element_) path_.append_step(field);
        hand_over(field, {.raw = raw, .has_number = is_number, .number = number, .text = text_});
        path_.cut(before);
    }

    // A value of the path at hand.
    void hand_over(const Field &field, ast_field_value_t value) {
        const ast_field_t description = description_of(field, path_.text());
        value.field = &description;
        visit_(context_, &value);
    }

    void write_text(const Field &field, uint64_t raw) {
        text_[0] = '\0';
        if (field.kind == Kind::Unsigned || field.kind == Kind::Signed) return; // no text
        TextWriter out(text_, sizeof text_);
        if (field.kind == Kind::Code) {
            out.append(text_of_code(field.meaning, raw));
        } else if (field.kind == Kind::Icao) {
            for (unsigned i = 0; i < field.bits / kIcaoBits; ++i) character(out, icao_character(field, raw, i));
        } else if (field.kind == Kind::Octal) {
            digits(out, raw, field.bits / kOctalBits, kOctalBits);
        } else if (is_shown_as_octets(field)) {
            digits(out, raw, hex_digits(field), kHexBits);
        }
        if (field.kind == Kind::Icao) trim(out.length());
    }
    void write_characters(const uint8_t *data, uint64_t count) {
        TextWriter out(text_, sizeof text_);
        for (uint64_t i = 0; i < count; ++i)
            character(out, is_printable(data[i]) ? static_cast<char>(data[i]) : kUndefinedCharacter);
        trim(out.length());
    }
    void write_hex(const uint8_t *data, uint64_t count) {
        TextWriter out(text_, sizeof text_);
        for (uint64_t i = 0; i < count && !out.is_full(); ++i) digits(out, data[i], 2, kHexBits);
    }
    static void character(TextWriter &out, char c) { out.append({&c, 1}); }
    static void digits(TextWriter &out, uint64_t value, unsigned count, unsigned bits) {
        char text[kMaxNumberBits / kOctalBits + 1];
        for (unsigned i = 0; i < count; ++i)
            text[i] = kHexDigits[value >> (bits * (count - 1 - i)) & ((1U << bits) - 1)];
        out.append({text, count});
    }
    void trim(uint64_t length) {
        while (length != 0 && text_[length - 1] == ' ') text_[--length] = '\0';
    }

    ast_field_value_visitor_t visit_;
    void *context_;
    Path path_;
    Level levels_[kMaxLevels];
    unsigned level_ = 0;
    bool is_item_ = true;     // nothing is open yet: the path is that of the item
    bool is_element_ = false; // the path is that of an element
    char text_[256];
};

} // namespace

} // namespace ast::schema

using namespace ast::schema;

uint64_t ast_dataitem_get_published_size(const uint8_t *data, uint64_t available, ast_dataitem_type_t type,
                                         ast_uap_t uap) {
    const Field *const field = find_item(type, uap);
    if (!data || !field) return 0;
    Nobody nobody;
    const Context context{uap, type / AST_DATAITEM_TYPE(1, 0), 0};
    Walk<Nobody> walk(BitReader(data, available, 0), nobody, context);
    const bool is_whole = field->kind == Kind::Random ? walk.fields_by_frn(field) : walk.field(field);
    return is_whole ? walk.bits().octets_read() : 0;
}

bool ast_dataitem_describe(ast_dataitem_type_t type, ast_uap_t uap, ast_field_visitor_t visit, void *context) {
    const Field *const field = find_item(type, uap);
    if (!field || !visit) return false;
    Describer(visit, context).field(field, ast_dataitem_type_to_str(type));
    return true;
}

bool ast_bds_describe(uint32_t bds, ast_field_visitor_t visit, void *context) {
    const Field *const field = find_register(bds);
    if (!field || !visit) return false;
    Describer(visit, context).field(field);
    return true;
}

void ast_field_get_text(char *text, uint64_t capacity, const ast_field_t *field, uint64_t code) {
    ast::set_text(text, capacity, field ? text_of_code(field->texts, code) : std::string_view());
}

bool ast_dataitem_walk(const ast_dataitem_t *item, ast_uap_t uap, uint32_t message_type,
                       ast_field_value_visitor_t visit, void *context) {
    if (!item || !item->valid || !item->data || !visit) return false;
    const Field *const field = find_item(item->type, uap);
    if (!field) return false;
    const uint32_t category = item->type / AST_DATAITEM_TYPE(1, 0);
    Values values(visit, context, Reference(category, *field));
    const Context depends_on{uap, category, message_type};
    return Walk<Values>(BitReader(item->data, item->size, item->following), values, depends_on).field(field);
}
