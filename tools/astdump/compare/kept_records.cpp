#include "compare/kept_records.hpp"

#include "ask/published_reading.hpp"
#include "show/as_is.hpp"

namespace ast::recording::astdump {

void KeptRecords::pack(TextBuffer &out, const ast_datarecord_t &record, const ast_answers_t &answers) {
    put_as_is(out, KeptRecord{.present = answers.present,
                              .time_of_day_s = answers.time_of_day_s,
                              .category = record.category,
                              .sac = answers.sac,
                              .sic = answers.sic,
                              .type = answers.type,
                              .track_number = answers.track_number,
                              .icao24 = answers.icao24,
                              .message_type = message_type_of(record),
                              .items = static_cast<uint32_t>(record.item_count),
                              .octets = record.size,
                              .uap = record.uap});
    for (uint64_t i = 0; i < record.item_count; ++i) {
        const ast_dataitem_t &item = record.items[i];
        put_as_is(out, KeptItem{.type = item.type,
                                .begin = static_cast<uint32_t>(item.data - record.data),
                                .size = static_cast<uint32_t>(item.size)});
    }
    out.put({reinterpret_cast<const char *>(record.data), static_cast<size_t>(record.size)});
}

void KeptRecords::take(std::string_view packed) {
    while (!packed.empty()) {
        const auto record = take_as_is<KeptRecord>(packed);
        records_.push_back({record, items_.size(), octets_.size()});
        for (uint32_t i = 0; i < record.items; ++i) items_.push_back(take_as_is<KeptItem>(packed));
        const Octets octets = octets_of(packed.substr(0, static_cast<size_t>(record.octets)));
        octets_.insert(octets_.end(), octets.begin(), octets.end());
        packed.remove_prefix(octets.size());
    }
}

std::span<const KeptItem> KeptRecords::items(size_t place) const {
    return std::span(items_).subspan(records_[place].first_item, records_[place].record.items);
}

Octets KeptRecords::octets(size_t place) const {
    return Octets(octets_).subspan(records_[place].first_octet, records_[place].record.octets);
}

} // namespace ast::recording::astdump
