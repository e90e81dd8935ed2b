#include "show/listing.hpp"

#include "base/counted.hpp"
#include "base/endpoint.hpp"
#include "base/time.hpp"
#include "show/item_lines.hpp"

namespace ast::recording::astdump {

namespace {

class ListingRenderer : public Renderer {
public:
    explicit ListingRenderer(const Listing::Form &form)
        : form_(form), style_(form.color), lines_(form.columns, style_, form.detail) {}

    void block(const DecodedBlock &decoded, TextBuffer &out) override { block(decoded, decoded.octets.size(), out); }
    void part_of_block(const DecodedBlock &decoded, uint64_t announced, TextBuffer &out) override {
        block(decoded, announced, out);
    }

private:
    void block(const DecodedBlock &decoded, uint64_t announced, TextBuffer &out);
    void block_line(const DecodedBlock &decoded, uint64_t announced, TextBuffer &out);
    void fold(size_t begin, size_t place, TextBuffer &out) const;
    void record(const ast_datarecord_t &record, uint64_t number, const ast_uap_t &block_uap, TextBuffer &out);
    void items(const ast_datarecord_t &record, TextBuffer &out);
    void fault(const DecodedBlock &decoded, TextBuffer &out);

    Listing::Form form_;
    Style style_;
    ItemLines lines_;
    Readings readings_;
};

void ListingRenderer::block(const DecodedBlock &decoded, uint64_t announced, TextBuffer &out) {
    const SplitBlock &block = *decoded.block;
    block_line(decoded, announced, out);
    for (uint64_t i = 0; i < block.record_count; ++i)
        if (decoded.shown[i]) record(block.records[i], i + 1, *block.uap, out);
    if (decoded.fault) fault(decoded, out);
    out.put('\n');
}

const char *state_of(const DecodedBlock &decoded) {
    if (!decoded.fault) return "valid";
    if (decoded.fault->kind == FaultKind::not_asterix) return "NOT ASTERIX";
    return is_unsupported(decoded.fault->kind) ? "NOT SUPPORTED" : "DAMAGED";
}

// Blocks that are not whole have no number.
void ListingRenderer::block_line(const DecodedBlock &decoded, uint64_t announced, TextBuffer &out) {
    const Datagram &datagram = *decoded.datagram;
    const SplitBlock &block = *decoded.block;
    const size_t begin = out.size();
    out.put(style_.on(Color::heading));
    out.put('#');
    const bool is_whole = announced == decoded.octets.size();
    if (is_whole)
        out.number(decoded.number);
    else
        out.put('-');
    if (datagram.file) {
        out.put("  ");
        out.put(*datagram.file);
    }
    if (datagram.time) {
        out.put("  ");
        put_time(out, *datagram.time);
        out.put('Z');
    }
    if (datagram.endpoints) {
        out.put("  ");
        put_route(out, *datagram.endpoints);
    }
    const size_t place = out.size();
    out.put("  CAT ");
    out.number(block.category, 3, '0');
    out.put(style_.off());
    out.put("  ");
    out.number(decoded.octets.size());
    if (!is_whole) {
        out.put(" of ");
        out.number(announced);
    }
    out.put(" octets  ");
    put_profile(out, block.profile);
    if (*block.profile.name) out.put("  ");
    put_counted(out, block.record_count, "record");
    out.put("  ");
    out.put(style_.on(block.valid && is_whole ? Color::good : Color::fault));
    out.put(is_whole ? state_of(decoded) : "DAMAGED");
    out.put(style_.off());
    if (form_.folds) fold(begin, place, out);
    out.put('\n');
}

// Starts a new line at a place of one that is too long.
void ListingRenderer::fold(size_t begin, size_t place, TextBuffer &out) const {
    const std::string_view line = out.text().substr(begin);
    if (width_of(line) <= form_.columns) return;
    const std::string rest(line.substr(place - begin));
    out.cut(place);
    out.put("\n  ");
    out.put(rest);
}

// Says by which profile a record was decoded when that is not the block's: plots and tracks in one block.
void ListingRenderer::record(const ast_datarecord_t &record, uint64_t number, const ast_uap_t &block_uap,
                             TextBuffer &out) {
    out.put("  record ");
    out.number(number);
    out.put("  ");
    out.number(record.size);
    out.put(" octets");
    if (record.uap.get_dataitem != block_uap.get_dataitem) {
        out.put("  ");
        out.put(profile_name(record.uap, record.category));
    }
    out.put('\n');
    items(record, out);
}

void ListingRenderer::items(const ast_datarecord_t &record, TextBuffer &out) {
    const Reading reading = readings_.of(record);
    for (uint64_t i = 0; i < record.item_count; ++i) lines_.put(out, record.items[i], reading);
}

void ListingRenderer::fault(const DecodedBlock &decoded, TextBuffer &out) {
    const Fault &fault = *decoded.fault;
    out.put("  record ");
    out.number(decoded.block->record_count + 1);
    out.put('\n');
    items(fault.record, out);
    out.put("    ");
    out.put(style_.on(Color::fault));
    out.put(fault_word(fault.kind));
    out.put(" at octet ");
    out.number(fault.octets);
    out.put(": ");
    out.put(fault.reason);
    out.put(style_.off());
    out.put('\n');
}

} // namespace

std::unique_ptr<Renderer> Listing::renderer() const { return std::make_unique<ListingRenderer>(form_); }

void Listing::file(const std::string &name) {
    if (!form_.name_files) return;
    const Style style(form_.color);
    out_.write(std::string(style.on(Color::heading)) + "==> " + name + " <==" + style.off() + "\n\n");
}

} // namespace ast::recording::astdump
