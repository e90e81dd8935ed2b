#include "page_block.hpp"

#include "markup.hpp"
#include "text.hpp"

namespace astdump {

namespace {

std::string record_note(const ast_datarecord_t &record, const ast_uap_t &block_uap) {
    const std::string octets = counted(record.size, "octet");
    if (record.uap.get_dataitem == block_uap.get_dataitem) return octets;
    return octets + ", " + std::string(profile_name(record.uap, record.category));
}

} // namespace

const std::string &PageBlock::html(const DecodedBlock &decoded) {
    const ast_datablock_t &block = *decoded.block;
    html_.clear();
    for (uint64_t i = 0; i < block.record_count; ++i) {
        if (!decoded.shown[i]) continue;
        heading(i + 1, record_note(block.records[i], block.uap));
        contents(block.records[i]);
    }
    if (decoded.fault) fault(decoded);
    return html_;
}

void PageBlock::heading(uint64_t number, const std::string &note) {
    html_ += "<h3>Record " + std::to_string(number) + " <small>" + note + "</small></h3>";
}

void PageBlock::contents(const ast_datarecord_t &record) {
    view(ast_datarecord_get_detail_html, record);
    for (uint64_t i = 0; i < record.item_count; ++i) item(record.items[i]);
}

void PageBlock::item(const ast_dataitem_t &item) {
    html_ += "<details class=\"item\"><summary><b>" + std::string(ast_dataitem_type_to_str(item.type)) + "</b> " +
             escape(ast_dataitem_get_name(item.type)) + "</summary><div>";
    view(ast_dataitem_get_detail_html, item);
    html_ += "<h4>Octets</h4>";
    view(ast_dataitem_get_hex_html, item);
    view(ast_dataitem_get_bin_html, item);
    html_ += "</div></details>";
}

void PageBlock::fault(const DecodedBlock &decoded) {
    const Fault &fault = *decoded.fault;
    heading(decoded.block->record_count + 1, "damaged");
    html_ += "<p class=\"fault\">Octet " + std::to_string(fault.octets) +
             " of the block: " + escape(fault_reason(fault, decoded.octets)) + "</p>";
    if (!fault.record.valid) contents(fault.record);
}

template <typename Thing>
void PageBlock::view(void (*function)(char *text, uint64_t capacity, const Thing *thing), const Thing &thing) {
    append_fragment(html_, views_.show(function, thing));
}

} // namespace astdump
