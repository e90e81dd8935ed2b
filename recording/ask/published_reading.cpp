#include "ask/published_reading.hpp"

#include <algorithm>

namespace ast::recording {

namespace {

constexpr uint32_t kSafetyNet = 4; // the category with fields that depend on the message type
constexpr uint32_t kMessageTypes = 256;

} // namespace

uint32_t message_type_of(const ast_datarecord_t &record) {
    if (record.category != kSafetyNet) return 0;
    for (uint64_t i = 0; i < record.item_count; ++i)
        if (record.items[i].type == AST_DATAITEM_TYPE(kSafetyNet, 0) && record.items[i].size != 0)
            return record.items[i].data[0];
    return 0;
}

Reading Readings::of(const ast_datarecord_t &record) {
    auto known = std::ranges::find(profiles_, record.uap.get_dataitem);
    if (known == profiles_.end()) known = profiles_.insert(known, record.uap.get_dataitem);
    const uint32_t message_type = message_type_of(record);
    return {record.uap, message_type, static_cast<uint32_t>(known - profiles_.begin()) * kMessageTypes + message_type};
}

} // namespace ast::recording
