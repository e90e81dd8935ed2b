// How much of what an item says cannot be.
#pragma once

#include "reader/limits.hpp"
#include "schema/number.hpp"
#include "schema/texts.hpp"
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
        if (field.kind == schema::Kind::Icao) return judge_characters(field, raw);
        if (field.is_quantity()) judge(field, field.meaning ? field.meaning : "", schema::number_of(field, raw));
    }
    void octets(const schema::Field &field, const uint8_t *data, uint64_t count) {
        if (field.kind != schema::Kind::Ascii) return;
        for (uint64_t i = 0; i < count; ++i) count_ += !schema::is_printable(data[i]);
    }

private:
    static constexpr unsigned kTimeOfDayBits = 24;

    void judge(const schema::Field &field, std::string_view unit, double number) {
        if (unit == "s") count_ += field.bits == kTimeOfDayBits && number >= kDayS;
        if (unit == "°") count_ += field.name() == "LAT" && (number < -kMaxLatitudeDeg || number > kMaxLatitudeDeg);
        if (unit == "FL") count_ += number < kLowestLevelFl || number > kHighestLevelFl;
    }
    void judge_characters(const schema::Field &field, uint64_t raw) {
        for (unsigned i = 0; i < field.bits / schema::kIcaoBits; ++i)
            count_ += schema::icao_character(field, raw, i) == schema::kUndefinedCharacter;
    }

    uint32_t count_ = 0;
};

// Whether I007/410 is of the other direction than the profile: requests, 5 to 8, go up, all else comes down.
inline bool is_of_other_direction(const ast_uap_t &uap, uint8_t message) {
    const bool is_request = message >= 5 && message <= 8;
    return is_request != (uap.get_dataitem == AST_UAP_PUBLISHED_OTHER.get_dataitem);
}

// Of one item; one that cannot be read at all is as bad as a value.
inline uint32_t flaws_of(const ast_uap_t &uap, ast_dataitem_type_t type, const uint8_t *data, uint64_t size) {
    const schema::Field *const field = schema::find_item(type, uap);
    if (!field) return 0;
    if (type == AST_DATAITEM_TYPE(7, 410)) return is_of_other_direction(uap, data[0]) ? 1 : 0;
    Flaws flaws;
    const schema::Context context{uap, type / kItemNumbers, 0};
    const bool is_read = schema::Walk<Flaws>(schema::BitReader(data, size, 0), flaws, context).field(field);
    return flaws.count() + (is_read ? 0 : 1);
}

} // namespace ast::reader
