// The values of one field of an item, which is found by its path once and then read without a way to it.

#include <algorithm>
#include <span>

#include "schema/field_tree.hpp"
#include "schema/value.hpp"

namespace ast::schema {

namespace {

constexpr uint32_t kRegisters = 256;

class Finder {
public:
    Finder(std::string_view wanted, ast_field_place_t *places, uint32_t room)
        : wanted_(wanted), places_(places), room_(room) {}

    void item(const Field *item, std::string_view reference) {
        FieldTree tree([&](const Field &field, std::string_view path, Place place) {
            if (path == wanted_) add(field, place);
            if (field.kind != Kind::Register || !wanted_.starts_with(path)) return;
            in_registers(field, slice(wanted_, path.size()));
        });
        tree.field(item, reference);
    }

    uint32_t count() const { return count_; }

private:
    // `rest` is what stands behind the path of the register: "/MCP_ALT".
    void in_registers(const Field &field, std::string_view rest) {
        const uint32_t own = field.denominator;
        for (uint32_t number = own; number < (own == 0 ? kRegisters : own + 1); ++number) {
            const Field *const found = find_register(number);
            if (!found) continue;
            FieldTree tree([&](const Field &each, std::string_view path, const Place &) {
                if (slice(path, std::min(path.size(), found->name().size())) == rest) add(each, {});
            });
            tree.field(found);
        }
    }

    void add(const Field &field, Place place) {
        if (!has_value(field)) return;
        if (count_ < room_) places_[count_] = {&field, is_plain(field) ? place.bit : kVaries, place.needed};
        ++count_;
    }

    static bool has_value(const Field &field) {
        return field.kind < Kind::Register || field.kind == Kind::UnsignedOrNone || !is_plain(field);
    }
    // Of the others, their own octets or another field tells what they are.
    static bool is_plain(const Field &field) { return field.kind != Kind::Explicit && field.kind != Kind::Either; }

    std::string_view wanted_;
    ast_field_place_t *places_;
    uint32_t room_;
    uint32_t count_ = 0;
};

// Hands over the values of a few fields.
class Chosen {
public:
    Chosen(std::span<const ast_field_place_t> places, ast_field_value_visitor_t visit, void *context)
        : places_(places), visit_(visit), context_(context) {}

    static void open(const Field &) {}
    static void close(const Field &) {}
    static void element() {}
    static void open_register(const Field &, uint32_t, uint64_t) {}
    void value(const Field &field, uint64_t raw) {
        if (is_chosen(field)) hand_over(field, make_.bare_number(field, raw));
    }
    void octets(const Field &field, const uint8_t *data, uint64_t count) {
        if (is_chosen(field)) hand_over(field, make_.octets(field, data, count));
    }

    void read(const Field &field, BitReader bits, uint32_t first) {
        bits.skip(first);
        if (!is_number(field)) return hand_over(field, make_.octets(field, bits.here(), field.bits / 8));
        const uint64_t raw = bits.take(field.bits);
        if (raw != 0 || field.kind != Kind::UnsignedOrNone) hand_over(field, make_.bare_number(field, raw));
    }

private:
    bool is_chosen(const Field &field) const {
        return std::ranges::any_of(places_, [&](const ast_field_place_t &place) { return place.field == &field; });
    }
    void hand_over(const Field &field, ast_field_value_t value) {
        const ast_field_t description = description_of(field, "");
        value.field = &description;
        visit_(context_, &value);
    }

    std::span<const ast_field_place_t> places_;
    ast_field_value_visitor_t visit_;
    void *context_;
    ValueMaker make_;
};

} // namespace

} // namespace ast::schema

using namespace ast::schema;

uint32_t ast_dataitem_find_field(ast_dataitem_type_t type, ast_uap_t uap, const char *path, ast_field_place_t *places,
                                 uint32_t room) {
    const Field *const item = find_item(type, uap);
    if (!item || !path) return 0;
    Finder finder(path, places, places ? room : 0);
    finder.item(item, ast_dataitem_type_to_str(type));
    return finder.count();
}

bool ast_dataitem_read_field(const ast_dataitem_t *item, ast_uap_t uap, uint32_t message_type,
                             const ast_field_place_t *places, uint32_t count, ast_field_value_visitor_t visit,
                             void *context) {
    if (!item || !item->valid || !item->data || !visit || !places) return false;
    Chosen chosen({places, count}, visit, context);
    const BitReader bits(item->data, item->size, item->following);
    if (count == 1 && places->bit != kVaries) {
        if (!bits.has(places->needed)) return false;
        chosen.read(*static_cast<const Field *>(places->field), bits, places->bit);
        return true;
    }
    const Field *const field = find_item(item->type, uap);
    if (!field) return false;
    const Context depends_on{uap, item->type / AST_DATAITEM_TYPE(1, 0), message_type};
    return Walk<Chosen>(bits, chosen, depends_on).field(field);
}

bool ast_dataitem_get_bits(const ast_dataitem_t *item, const ast_field_place_t *place, uint64_t *raw) {
    if (!item || !item->valid || !item->data || !place || place->bit == kVaries || !raw) return false;
    const Field &field = *static_cast<const Field *>(place->field);
    BitReader bits(item->data, item->size, item->following);
    if (!is_number(field) || !bits.has(place->needed)) return false;
    bits.skip(place->bit);
    const uint64_t taken = bits.take(field.bits);
    if (taken == 0 && field.kind == Kind::UnsignedOrNone) return false;
    *raw = taken;
    return true;
}
