#include "write/block_converter.hpp"

#include <algorithm>
#include <iterator>
#include <span>
#include <stdexcept>

#include "framing/block_header.hpp"

namespace ast::recording {

namespace {

struct Conversion {
    uint8_t from;
    uint8_t to;
    ast_dataitem_type_t needed; // without it a record cannot be read, or says nothing
    ast_datarecord_t (*convert)(uint8_t *buffer, uint64_t length, const ast_datarecord_t *source);
};

constexpr Conversion kConversions[] = {
    {48, 1, AST_DATAITEM_TYPE(1, 20), ast_datarecord_convert_048_001},
    {34, 2, AST_DATAITEM_TYPE(2, 0), ast_datarecord_convert_034_002},
    {1, 48, AST_DATAITEM_TYPE(48, 20), ast_datarecord_convert_001_048},
    {2, 34, AST_DATAITEM_TYPE(34, 0), ast_datarecord_convert_002_034},
};

bool is_of_use(const ast_datarecord_t &record, const Conversion &conversion) {
    const std::span items(record.items, static_cast<size_t>(record.item_count));
    return record.valid && std::ranges::count(items, conversion.needed, &ast_dataitem_t::type) != 0;
}

const Conversion *find_conversion(uint32_t category, const CategorySet &targets) {
    const auto found = std::ranges::find(kConversions, category, &Conversion::from);
    return found != std::end(kConversions) && targets.test(found->to) ? found : nullptr;
}

} // namespace

CategorySet read_convert_targets(const std::string &list) {
    const auto targets = read_categories(list);
    for (size_t category = 0; targets && category < targets->size(); ++category)
        if (targets->test(category) && !std::ranges::count(kConversions, category, &Conversion::to))
            throw std::invalid_argument("--convert: nothing converts to category " + std::to_string(category) +
                                        ", only to 1, 2, 34 and 48");
    if (!targets) throw std::invalid_argument("--convert: '" + list + "' is not a list of categories");
    return *targets;
}

std::optional<uint64_t> BlockConverter::convert(DecodedBlock &decoded) {
    const Conversion *const conversion = find_conversion(decoded.block->category, targets_);
    if (!conversion) return std::nullopt;
    octets_.resize(kMaxBlockOctets);
    octets_[0] = conversion->to;
    uint64_t size = kBlockHeaderOctets;
    uint64_t left_out = 0;
    for (uint64_t i = 0; i < decoded.block->record_count; ++i) {
        if (!decoded.shown[i]) continue;
        const ast_datarecord_t made =
            conversion->convert(octets_.data() + size, octets_.size() - size, &decoded.block->records[i]);
        const bool stays = is_of_use(made, *conversion);
        left_out += stays ? 0U : 1U;
        size += stays ? made.size : 0;
    }
    octets_.resize(static_cast<size_t>(size));
    set_block_length(octets_);
    block_.read(editions_, octets_);
    decoded.octets = octets_;
    decoded.block = &block_;
    decoded.fault.reset();
    decoded.shown.set_all(block_.record_count);
    return left_out;
}

} // namespace ast::recording
