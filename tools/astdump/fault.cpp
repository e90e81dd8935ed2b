#include "fault.hpp"

#include <mutex>

#include "split.hpp"

namespace astdump {

namespace {

// What this thread listens to, if it does: the sink is that of the whole process.
thread_local std::string *listening = nullptr;

int32_t keep_message(uint32_t, const char *message) {
    if (listening) *listening = message;
    return 0;
}

// Listens to the library's log as long as it lives.
class Listener {
public:
    Listener() : lock_(one_at_a_time) {
        listening = &message_;
        ast_log_handler_reg(keep_message);
    }
    ~Listener() {
        ast_log_handler_reg(nullptr);
        listening = nullptr;
    }
    Listener(const Listener &) = delete;
    Listener &operator=(const Listener &) = delete;

    const std::string &last_message() const { return message_; }

private:
    static inline std::mutex one_at_a_time;
    std::scoped_lock<std::mutex> lock_;
    std::string message_;
};

// The FRN of the n-th item, counted from 0, that an FSPEC announces.
uint32_t frn_of_item(const ast_fspec_t &fspec, uint64_t n) {
    uint32_t frn = 1;
    while (frn <= fspec.frn_count && !(ast_fspec_is_set(&fspec, frn) && n-- == 0)) ++frn;
    return frn;
}

// Why the item that should follow those of a record cannot be read.
std::string item_reason(const ast_datarecord_t &record, Octets rest) {
    const uint32_t frn = frn_of_item(record.fspec, record.item_count);
    const Listener log;
    const ast_dataitem_type_t type = ast_uap_get_dataitem(&record.uap, record.category, frn);
    const uint64_t size = ast_dataitem_get_size(rest.data(), rest.size(), type);
    if (size == 0 && !log.last_message().empty()) return log.last_message();
    if (type == AST_DATAITEM_NONE) return "FRN " + std::to_string(frn) + " is spare";
    // Explicit-length fields, which count their own length octet, are the last item numbers of a category.
    const bool no_length = type % 1000 >= AST_ITEM_RFS && !rest.empty() && rest[0] == 0;
    return ast_dataitem_type_to_str(type) +
           std::string(no_length ? " has length 0" : " runs past the end of the block");
}

} // namespace

void silence_library_log() { ast_log_handler_reg(nullptr); }

Fault find_fault(const ast_datablock_t &block, Octets octets, const ast_uap_t &uap) {
    Fault fault{.octets = kBlockHeaderOctets, .record = {}, .reason = {}};
    for (uint64_t i = 0; i < block.record_count; ++i) fault.octets += block.records[i].size;
    const Octets rest = octets.subspan(fault.octets);
    fault.record = ast_datarecord_decode(rest.data(), rest.size(), octets[0], uap);
    if (fault.record.valid) return fault;
    fault.octets += fault.record.fspec.length;
    for (uint64_t i = 0; i < fault.record.item_count; ++i) fault.octets += fault.record.items[i].size;
    return fault;
}

std::string fault_reason(const Fault &fault, Octets block) {
    const ast_datarecord_t &record = fault.record;
    const Octets rest = block.subspan(fault.octets);
    if (record.valid) return "more than " + std::to_string(AST_DATABLOCK_MAX_RECORDS) + " records in a block";
    if (!record.fspec.valid) {
        const bool cut = ast_fspec_decode(rest.data(), rest.size()).length == 0;
        return cut ? "the FSPEC runs past the end of the block" : "the FSPEC announces no item";
    }
    if (record.item_count == AST_DATARECORD_MAX_ITEMS)
        return "more than " + std::to_string(AST_DATARECORD_MAX_ITEMS) + " items in a record";
    return item_reason(record, rest);
}

} // namespace astdump
