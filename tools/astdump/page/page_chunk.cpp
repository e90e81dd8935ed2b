#include "page/page_chunk.hpp"

#include "base/counted.hpp"
#include "base/endpoint.hpp"
#include "base/printable.hpp"
#include "base/time.hpp"
#include "page/pack.hpp"
#include "show/markup.hpp"

namespace ast::recording::astdump {

namespace {

template <typename Put>
void put_span(TextBuffer &out, std::string_view css_class, Put put) {
    for (const std::string_view piece : {std::string_view("<span class=\""), css_class, std::string_view("\">")})
        out.put(piece);
    put();
    out.put("</span>");
}

// Puts a field, which is blank where there is nothing to be put.
template <typename Put>
void put_field(TextBuffer &out, bool is_there, Put put) {
    out.put('\t');
    if (is_there) put();
}

// What is always shown of a block.
void put_block_fields(TextBuffer &out, const DecodedBlock &decoded) {
    const Datagram &datagram = *decoded.datagram;
    const SplitBlock &block = *decoded.block;
    put_field(out, true, [&] { out.number(decoded.number); });
    put_field(out, true, [&] { out.number(block.category, 3, '0'); });
    put_field(out, decoded.fault.has_value(), [&] { out.put(fault_word(decoded.fault->kind)); });
    put_field(out, datagram.file, [&] { out.put(escape(readable(*datagram.file))); });
    put_field(out, true, [&] {
        put_counted(out, block.record_count, "record");
        out.put(", ");
        put_counted(out, decoded.octets.size(), "octet");
    });
    put_field(out, true, [&] { put_profile(out, block.profile); });
    put_field(out, datagram.time.has_value(), [&] { put_time(out, *datagram.time); });
    put_field(out, datagram.endpoints.has_value(), [&] {
        TextBuffer route;
        put_route(route, *datagram.endpoints);
        out.put(escape(route.text()));
    });
}

std::string record_note(const ast_datarecord_t &record, const ast_uap_t &block_uap) {
    const std::string octets = counted(record.size, "octet");
    if (record.uap.get_dataitem == block_uap.get_dataitem) return octets;
    return octets + ", " + std::string(profile_name(record.uap, record.category));
}

} // namespace

void PageChunk::block(const DecodedBlock &decoded, TextBuffer &) {
    const SplitBlock &block = *decoded.block;
    if (blocks_++ == 0) first_number_ = decoded.number;
    last_number_ = decoded.number;
    octets_ += decoded.octets.size();
    lines_.put('B');
    put_block_fields(lines_, decoded);
    lines_.put('\n');
    for (uint64_t i = 0; i < block.record_count; ++i)
        if (decoded.shown[i]) record(i + 1, record_note(block.records[i], *block.uap), block.records[i]);
    if (decoded.fault) fault(decoded);
    columns_.block(decoded);
}

void PageChunk::record(uint64_t number, const std::string &note, const ast_datarecord_t &record) {
    items_.clear();
    const Reading reading = readings_.of(record);
    for (uint64_t i = 0; i < record.item_count; ++i) {
        if (i != 0) items_.put(',');
        if (const auto known = texts_.find_or_put(lines_, record.items[i], reading)) items_.number(*known);
    }
    lines_.put("R\t");
    lines_.number(number);
    lines_.put('\t');
    lines_.put(note);
    lines_.put('\t');
    if (record.item_count == 0) items_.put('-');
    lines_.put(items_.text());
    lines_.put('\n');
}

void PageChunk::fault(const DecodedBlock &decoded) {
    const Fault &fault = *decoded.fault;
    damaged_ = damaged_ || fault.kind == FaultKind::damaged;
    record(decoded.block->record_count + 1, fault_word(fault.kind), fault.record);
    lines_.put("F\tOctet ");
    lines_.number(fault.octets);
    lines_.put(" of the block: ");
    lines_.put(escape(fault.reason));
    lines_.put('\n');
}

void PageChunk::heading(TextBuffer &out) const {
    out.put("Blocks #");
    out.number(first_number_);
    out.put(" to #");
    out.number(last_number_);
    put_span(out, "counts", [&] {
        put_counted(out, blocks_, "block");
        out.put(", ");
        put_counted(out, octets_, "octet");
    });
    if (damaged_) put_span(out, "fault", [&] { out.put("damaged"); });
}

void PageChunk::end(TextBuffer &out) {
    if (blocks_ != 0) {
        out.put("<details class=\"section\" data-packed=\"");
        out.put(pack(lines_.text()));
        out.put("\" data-plan=\"");
        out.put(columns_.pack());
        out.put("\"><summary>");
        heading(out);
        out.put("</summary></details>\n");
    }
    lines_.clear();
    texts_.clear();
    columns_.clear();
    blocks_ = octets_ = 0;
    damaged_ = false;
}

} // namespace ast::recording::astdump
