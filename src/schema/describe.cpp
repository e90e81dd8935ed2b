// The description of fields, and the values of an item, handed to a caller one by one.

#include <cstring>

#include "schema/field_tree.hpp"
#include "schema/placed_bits.hpp"
#include "schema/value.hpp"

namespace ast::schema {

namespace {

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

void describe(const Field &item, std::string_view first_step, ast_field_visitor_t visit, void *context) {
    FieldTree tree([&](const Field &field, const char *path, const Place &) {
        const ast_field_t description = description_of(field, path);
        visit(context, &description);
    });
    tree.field(&item, first_step);
}

// Hands values over as they are met.
class Values {
public:
    Values(ast_field_value_visitor_t visit, void *context, std::string_view item) : visit_(visit), context_(context) {
        path_.append(item);
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
        const size_t before = path_.length();
        path_.append_step("bds");
        hand_over_here(field, make_.register_number(number, raw));
        path_.cut(before);
    }

    void value(const Field &field, uint64_t raw) { hand_over(field, make_.number(field, raw)); }
    void octets(const Field &field, const uint8_t *data, uint64_t count) {
        hand_over(field, make_.octets(field, data, count));
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

    void hand_over(const Field &field, const ast_field_value_t &value) {
        const size_t before = path_.length();
        if (!is_item_ && !is_element_) path_.append_step(field);
        hand_over_here(field, value);
        path_.cut(before);
    }

    // A value of the path at hand.
    void hand_over_here(const Field &field, ast_field_value_t value) {
        const ast_field_t description = description_of(field, path_.text());
        value.field = &description;
        visit_(context_, &value);
    }

    ast_field_value_visitor_t visit_;
    void *context_;
    Path path_;
    Level levels_[kMaxLevels];
    unsigned level_ = 0;
    bool is_item_ = true;     // nothing is open yet: the path is that of the item
    bool is_element_ = false; // the path is that of an element
    ValueMaker make_;
};

// Shows values to a changer, and writes where they stand.
class Changes {
public:
    Changes(uint8_t *octets, const uint8_t *data, ast_field_changer_t change, void *context, std::string_view item)
        : octets_(octets), data_(data), change_(change), context_(context), values_(show, this, item) {}

    uint64_t written() const { return written_; }

    void ends_at(const BitReader &bits) { here_ = PlacedBits::before(bits, data_, 0); }
    void open(const Field &field) { values_.open(field); }
    void close(const Field &field) { values_.close(field); }
    void element() { values_.element(); }
    void open_register(const Field &field, uint32_t number, uint64_t raw) {
        here_.bits = 0;
        values_.open_register(field, number, raw);
    }
    void value(const Field &field, uint64_t raw) {
        here_.bits = field.bits;
        values_.value(field, raw);
    }
    void octets(const Field &field, const uint8_t *data, uint64_t count) {
        const bool is_number = count != 0 && count <= sizeof(uint64_t);
        here_ = {static_cast<uint64_t>(data - data_) + count - 1, 0, is_number ? static_cast<unsigned>(count * 8) : 0};
        values_.octets(field, data, count);
    }

private:
    static void show(void *context, const ast_field_value_t *value) {
        auto &changes = *static_cast<Changes *>(context);
        const PlacedBits &here = changes.here_;
        uint64_t raw = value->raw;
        if (here.bits == 0 || !changes.change_(changes.context_, value, &raw)) return;
        if (here.bits < 64 && raw >> here.bits != 0) return;
        here.write(changes.octets_, raw);
        ++changes.written_;
    }

    uint8_t *octets_;
    const uint8_t *data_;
    ast_field_changer_t change_;
    void *context_;
    Values values_;
    PlacedBits here_;
    uint64_t written_ = 0;
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
    describe(*field, ast_dataitem_type_to_str(type), visit, context);
    return true;
}

bool ast_bds_describe(uint32_t bds, ast_field_visitor_t visit, void *context) {
    const Field *const field = find_register(bds);
    if (!field || !visit) return false;
    describe(*field, {}, visit, context);
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

uint64_t ast_dataitem_change_values(uint8_t *octets, const ast_dataitem_t *item, ast_uap_t uap, uint32_t message_type,
                                    ast_field_changer_t change, void *context) {
    if (!octets || !item || !item->valid || !item->data || !change) return 0;
    const Field *const field = find_item(item->type, uap);
    if (!field) return 0;
    const uint32_t category = item->type / AST_DATAITEM_TYPE(1, 0);
    Changes changes(octets, item->data, change, context, Reference(category, *field));
    const Context depends_on{uap, category, message_type};
    Walk<Changes>(BitReader(item->data, item->size, item->following), changes, depends_on).field(field);
    return changes.written();
}
