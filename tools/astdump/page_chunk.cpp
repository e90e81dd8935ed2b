#include "page_chunk.hpp"

#include "markup.hpp"
#include "pack.hpp"
#include "text.hpp"

namespace astdump {

namespace {

template <typename Put>
void put_span(TextBuffer &out, std::string_view css_class, Put put) {
    for (const std::string_view piece : {std::string_view("<span class=\""), css_class, std::string_view("\">")})
        out.put(piece);
    put();
    out.put("</span>");
}

// The line of a block that is always shown.
void put_block_line(TextBuffer &out, const DecodedBlock &decoded) {
    const Datagram &datagram = *decoded.datagram;
    const Block &block = *decoded.block;
    put_span(out, "number", [&] {
        out.put('#');
        out.number(decoded.number);
    });
    put_span(out, "category", [&] { out.number(block.category, 3, '0'); });
    if (decoded.fault) put_span(out, "fault", [&] { out.put(fault_word(decoded.fault->kind)); });
    if (datagram.file) put_span(out, "file", [&] { out.put(escape(*datagram.file)); });
    put_span(out, "counts", [&] {
        put_counted(out, block.record_count, "record");
        out.put(", ");
        put_counted(out, decoded.octets.size(), "octet");
    });
    put_span(out, "profile", [&] { put_profile(out, block.profile); });
    if (datagram.time) put_span(out, "received", [&] { put_time(out, *datagram.time); });
    if (datagram.endpoints)
        put_span(out, "route", [&] {
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

std::string record_line(uint64_t number, const std::string &note) {
    return "Record " + std::to_string(number) + " <small>" + note + "</small>";
}

} // namespace

void PageChunk::block(const DecodedBlock &decoded, TextBuffer &) {
    const Block &block = *decoded.block;
    if (blocks_++ == 0) first_number_ = decoded.number;
    last_number_ = decoded.number;
    octets_ += decoded.octets.size();
    lines_.put("B\t");
    put_block_line(lines_, decoded);
    lines_.put('\n');
    for (uint64_t i = 0; i < block.record_count; ++i)
        if (decoded.shown[i]) record(record_line(i + 1, record_note(block.records[i], *block.uap)), block.records[i]);
    if (decoded.fault) fault(decoded);
    columns_.block(decoded);
}

void PageChunk::record(const std::string &line, const ast_datarecord_t &record) {
    items_.clear();
    const Reading reading = readings_.of(record);
    for (uint64_t i = 0; i < record.item_count; ++i) {
        if (i != 0) items_.put(',');
        if (const auto number = texts_.find_or_put(lines_, record.items[i], reading)) items_.number(*number);
    }
    for (const std::string_view piece : {std::string_view("R\t"), std::string_view(line), std::string_view("\t")})
        lines_.put(piece);
    if (record.item_count == 0) items_.put('-');
    lines_.put(items_.text());
    lines_.put('\n');
}

void PageChunk::fault(const DecodedBlock &decoded) {
    const Fault &fault = *decoded.fault;
    damaged_ = damaged_ || fault.kind == FaultKind::damaged;
    record(record_line(decoded.block->record_count + 1, fault_word(fault.kind)), fault.record);
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

} // namespace astdump
