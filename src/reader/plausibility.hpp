// How much of what an item says cannot be.
#pragma once

#include "schema/judgement.hpp"
#include "schema/walk.hpp"

namespace ast::reader {

// A visitor that counts implausible values.
class Flaws {
public:
    uint32_t count() const { return count_; }

    void open(const schema::Field &) {}
    void close(const schema::Field &) {}
    void element() {}
    void open_register(const schema::Field &, uint32_t, uint64_t) {}
    void value(const schema::Field &field, uint64_t raw) {
        if (field.kind == schema::Kind::Icao) count_ += schema::undefined_characters(field.bits, raw);
        if (!field.is_quantity()) return;
        const int64_t steps = schema::steps_of(field.bits, field.kind == schema::Kind::Signed, raw);
        count_ += !schema::limits_of(field).allow(steps);
    }
    void octets(const schema::Field &field, const uint8_t *data, uint64_t count) {
        if (field.kind != schema::Kind::Ascii) return;
        for (uint64_t i = 0; i < count; ++i) count_ += !schema::is_printable(data[i]);
    }

private:
    uint32_t count_ = 0;
};

// Whether I007/410 is of the other direction than the profile: requests, 5 to 8, go up, all else comes down.
inline bool is_of_other_direction(const ast_uap_t &uap, uint8_t message) {
    const bool is_request = message >= 5 && message <= 8;
    return is_request != (uap.get_dataitem == AST_UAP_PUBLISHED_OTHER.get_dataitem);
}

// Of one item as a record of a profile carries it, by the edition of that; one that cannot be read at all is as bad as
// a value.
inline uint32_t flaws_of(const schema::Edition *edition, const ast_uap_t &uap, ast_dataitem_type_t type,
                         const uint8_t *data, uint64_t size) {
    if (type == AST_DATAITEM_TYPE(7, 410)) return is_of_other_direction(uap, data[0]) ? 1 : 0;
    const uint32_t place = edition ? edition->place_of(item_number(type)) : 0;
    if (place != 0 && edition->judgements[place - 1].by != schema::Judgement::By::Walk)
        return schema::flaws_by(edition->judgements[place - 1], data, size);
    const schema::Field *const field = schema::find_item(type, uap);
    if (!field) return 0;
    Flaws flaws;
    const schema::Context context{uap, type / kItemNumbers, 0};
    const bool is_read = schema::Walk<Flaws>(schema::BitReader(data, size, 0), flaws, context).field(field);
    return flaws.count() + (is_read ? 0 : 1);
}

} // namespace ast::reader
