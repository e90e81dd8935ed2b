// The records of a recording, kept for a comparison: their octets, and what tells which report each is.
#pragma once

#include <ast.h>
#include <span>
#include <string_view>
#include <vector>

#include "base/text_buffer.hpp"

namespace ast::recording::astdump {

// An item among the octets of its record.
struct KeptItem {
    ast_dataitem_type_t type;
    uint32_t begin;
    uint32_t size;
};

// What a record is known by. Members without their bit in `present` are 0.
struct KeptRecord {
    uint64_t present; // AST_ANSWER_...
    double time_of_day_s;
    uint32_t category;
    uint32_t sac;
    uint32_t sic;
    uint32_t type;
    uint32_t track_number;
    uint32_t icao24;
    uint32_t message_type; // that fields of category 004 depend on
    uint32_t items;
    uint64_t octets;
    ast_uap_t uap;

    bool has(uint64_t answer) const { return (present & answer) != 0; }
};

class KeptRecords {
public:
    // Packs a record, so that threads may do it, and takes what they have packed.
    static void pack(TextBuffer &out, const ast_datarecord_t &record, const ast_answers_t &answers);
    void take(std::string_view packed);

    size_t size() const { return records_.size(); }
    const KeptRecord &operator[](size_t place) const { return records_[place].record; }
    std::span<const KeptItem> items(size_t place) const;
    Octets octets(size_t place) const;

private:
    struct Place {
        KeptRecord record;
        size_t first_item;
        size_t first_octet;
    };

    std::vector<Place> records_;
    std::vector<KeptItem> items_;
    std::vector<uint8_t> octets_;
};

} // namespace ast::recording::astdump
