#include "fault.hpp"

#include "split.hpp"

namespace astdump {

namespace {

bool is_known(uint32_t category) {
    return ast_uap_max_frn_published(category) != 0 || ast_uap_max_frn_standard(category) != 0;
}

FaultKind kind_of(const Block &block, const Datagram &datagram) {
    if (!is_known(block.category)) {
        const bool is_chain = count_blocks(datagram.octets).octets == datagram.octets.size();
        return is_chain ? FaultKind::unsupported_category : FaultKind::not_asterix;
    }
    if (block.result.reason == AST_SPLIT_NO_ITEM) return FaultKind::unsupported_edition;
    if (block.result.reason == AST_SPLIT_UNSUPPORTED) return FaultKind::unsupported_item;
    if (block.result.reason == AST_SPLIT_NO_ROOM) return FaultKind::unsupported_record;
    return FaultKind::damaged;
}

std::string reason_of(const Block &block) {
    const ast_reader_result_t &result = block.result;
    const std::string frn = "FRN " + std::to_string(result.broken_frn);
    const std::string item = ast_dataitem_type_to_str(result.broken_type);
    if (!is_known(block.category)) return "nothing is known of category " + std::to_string(block.category);
    switch (result.reason) {
    case AST_SPLIT_FSPEC_CUT:
        return "the FSPEC runs past the end of the block";
    case AST_SPLIT_FSPEC_EMPTY:
        return "the FSPEC announces no item";
    case AST_SPLIT_NO_ITEM:
        return frn +
               (result.broken_frn > ast_uap_max_frn(result.uap, block.category) ? " is not defined" : " is spare");
    case AST_SPLIT_UNSUPPORTED:
        return "the layout of " + item + " is not known";
    case AST_SPLIT_NO_LENGTH:
        return item + " has length 0";
    case AST_SPLIT_NO_ROOM:
        return "more than " + std::to_string(AST_DATARECORD_MAX_ITEMS) + " items in a record";
    default:
        return item + " runs past the end of the block";
    }
}

} // namespace

Fault find_fault(const Block &block, const Datagram &datagram) {
    return {.kind = kind_of(block, datagram),
            .code = block.result.reason,
            .octets = block.result.end,
            .frn = block.result.broken_frn,
            .item = block.result.broken_type,
            .record = block.records.incomplete(),
            .reason = reason_of(block)};
}

} // namespace astdump
