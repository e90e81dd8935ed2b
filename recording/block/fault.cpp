#include "block/fault.hpp"

#include "framing/soundness.hpp"

namespace ast::recording {

namespace {

FaultKind kind_of(const SplitBlock &block, const Datagram &datagram) {
    if (!is_known_category(block.category)) {
        return datagram.is_filled ? FaultKind::unsupported_category : FaultKind::not_asterix;
    }
    if (block.result.reason == AST_SPLIT_NO_ITEM) return FaultKind::unsupported_edition;
    if (block.result.reason == AST_SPLIT_UNSUPPORTED) return FaultKind::unsupported_item;
    if (block.result.reason == AST_SPLIT_NO_ROOM) return FaultKind::unsupported_record;
    return FaultKind::damaged;
}

std::string reason_of(const SplitBlock &block) {
    const ast_reader_result_t &result = block.result;
    const std::string frn = "FRN " + std::to_string(result.broken_frn);
    const std::string item = ast_dataitem_type_to_str(result.broken_type);
    if (!is_known_category(block.category)) return "nothing is known of category " + std::to_string(block.category);
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

Fault find_fault(const SplitBlock &block, const Datagram &datagram) {
    return {.kind = kind_of(block, datagram),
            .code = block.result.reason,
            .octets = block.result.end,
            .frn = block.result.broken_frn,
            .item = block.result.broken_type,
            .record = block.records.incomplete(),
            .reason = reason_of(block)};
}

Report fault_report(const Fault &fault, const SplitBlock &block, const Datagram &datagram, uint64_t offset) {
    const uint32_t kind = fault.kind == FaultKind::not_asterix ? AST_REPORT_OTHER_TRAFFIC
                          : is_unsupported(fault.kind)         ? AST_REPORT_UNSUPPORTED
                                                               : AST_REPORT_DAMAGED;
    Report report(kind, AST_REASON_BLOCK);
    set_place(report.data, datagram, offset);
    report.data.category = block.category;
    report.data.length = block.result.length;
    report.data.octets = block.result.length - fault.octets;
    report.data.split_reason = fault.code;
    if (is_known_category(block.category)) {
        report.data.broken_frn = fault.frn;
        report.data.broken_type = fault.item;
    }
    report.data.record = block.record_count + 1;
    report.data.items = fault.record.item_count;
    report.data.end = fault.octets;
    report.detail = fault.reason;
    report.file = datagram.file;
    return report;
}

} // namespace ast::recording
