// What is said of one block, record or item.

#include "ask/quantities.hpp"
#include "base/printable.hpp"
#include "module/session.hpp"
#include "show/video.hpp"

namespace ast::viewer {

using recording::astdump::DetailSink;
using recording::astdump::DetailText;
using recording::astdump::DetailTexts;
using recording::astdump::ItemViews;
using recording::astdump::kNoSummary;
using recording::astdump::text_of;

namespace {

// A text of a view: printable, and nothing for a summary that the library has not.
void put_text(JsonWriter &out, std::string_view text) { out.text(text == kNoSummary ? "" : printable(text)); }

// The parts of a view.
class DetailParts final : public DetailSink {
public:
    explicit DetailParts(JsonWriter &out) : out_(out) {}

    void title(DetailTexts pieces) override { part("title", pieces); }
    void paragraph(DetailTexts pieces) override { part("paragraph", pieces); }
    void table_begin(DetailTexts header) override {
        out_.begin('{');
        out_.key("table");
        put(header);
        out_.key("rows").begin('[');
    }
    void row(DetailTexts cells) override { put(cells); }
    void link_row(DetailTexts cells, const ast_detail_link_t &link) override {
        out_.list([&] {
            for (const DetailText &cell : cells) put(cell);
            out_.object([&] {
                out_.member("link", link.title);
                out_.member("url", link.url);
                out_.member("latitude", link.latitude);
                out_.member("longitude", link.longitude);
            });
        });
    }
    void table_end() override {
        out_.end(']');
        out_.end('}');
    }
    void bits(std::span<const uint8_t> octets) override {
        out_.object([&] { out_.key("bits").hex(octets); });
    }

private:
    void part(std::string_view name, DetailTexts pieces) {
        out_.object([&] {
            out_.key(name);
            put(pieces);
        });
    }
    void put(DetailTexts texts) {
        out_.list([&] {
            for (const DetailText &text : texts) put(text);
        });
    }
    void put(const DetailText &text) {
        if (text.kind != AST_DETAIL_STRONG) return put_text(out_, text_of(text));
        out_.object([&] {
            out_.key("strong");
            put_text(out_, text_of(text));
        });
    }

    JsonWriter &out_;
};

} // namespace

bool Session::find(uint32_t row, Row &found) {
    if (row >= columns_.rows()) return false;
    found.block = store_.block_of_row(row);
    found.decoded = &stored_.decode(found.block, given_);
    found.index = row - store_[found.block].first_row;
    if (found.index >= found.decoded->block->record_count) return false;
    found.record = &found.decoded->block->records[found.index];
    return true;
}

bool Session::put_block(JsonWriter &out, uint32_t block) {
    if (block >= store_.size()) return false;
    const StoredBlock &stored = store_[block];
    const DecodedBlock &decoded = stored_.decode(block, given_);
    out.object([&] {
        out.member("number", stored.number);
        out.member("category", stored.category);
        out.member("file", readable(names_[stored.file]));
        out.member("octets", stored.length);
        out.member("records", decoded.block->record_count);
        out.member("first_row", stored.first_row);
        out.member("profile", profile_text(decoded.block->profile));
        if (decoded.datagram->time) out.member("time", time_text(*decoded.datagram->time));
        if (const Endpoints *const route = store_.route(block)) {
            out.member("source", endpoint_text(route->source));
            out.member("destination", endpoint_text(route->destination));
        }
        if (stored.packet != 0) out.member("packet", stored.packet);
        out.member("offset", stored.datagram_offset + stored.offset);
        if (decoded.fault) put_fault(out, *decoded.fault);
    });
    return true;
}

void Session::put_fault(JsonWriter &out, const Fault &fault) {
    out.key("fault").object([&] {
        out.member("kind", fault_word(fault.kind));
        out.member("octets", fault.octets);
        out.member("reason", fault.reason);
        put_items(out, fault.record);
    });
}

bool Session::put_record(JsonWriter &out, uint32_t row) {
    Row found;
    if (!find(row, found)) return false;
    const ast_datarecord_t &record = *found.record;
    out.object([&] {
        out.member("row", row);
        out.member("block", found.block);
        out.member("record", found.index + 1);
        out.member("category", record.category);
        out.member("octets", record.size);
        if (record.uap.get_dataitem != found.decoded->block->uap->get_dataitem)
            out.member("profile", profile_name(record.uap, record.category));
        if (ast_datarecord_is_implausible(&record)) out.member("implausible", true);
        put_items(out, record);
    });
    return true;
}

// What is always said of an item.
void Session::put_head(JsonWriter &out, const ast_dataitem_t &item, const Reading &reading) {
    out.member("id", ast_dataitem_type_to_str(item.type));
    out.member("name", recording::astdump::item_name(item.type, reading.uap));
    out.key("octets").hex({item.data, item.size});
    out.key("summary");
    put_text(out, views_.summary(item, reading));
}

void Session::put_items(JsonWriter &out, const ast_datarecord_t &record) {
    const recording::astdump::VideoTurn turn(record.category);
    const Reading reading = readings_.of(record);
    out.key("items").list([&] {
        for (uint64_t i = 0; i < record.item_count; ++i) {
            const ast_dataitem_t &item = record.items[i];
            out.object([&] { put_head(out, item, reading); });
        }
    });
}

bool Session::put_item(JsonWriter &out, uint32_t row, uint32_t item) {
    Row found;
    return find(row, found) && put_item(out, *found.record, item);
}

bool Session::put_fault_item(JsonWriter &out, uint32_t block, uint32_t item) {
    if (block >= store_.size()) return false;
    const DecodedBlock &decoded = stored_.decode(block, given_);
    return decoded.fault && put_item(out, decoded.fault->record, item);
}

// What views of video say follows from the items before them.
bool Session::put_item(JsonWriter &out, const ast_datarecord_t &record, uint32_t number) {
    if (number >= record.item_count) return false;
    const recording::astdump::VideoTurn turn(record.category);
    const ast_dataitem_t &item = record.items[number];
    const Reading reading = readings_.of(record);
    for (uint32_t before = 0; recording::astdump::is_video(item) && before < number; ++before)
        views_.summary(record.items[before], reading);
    out.object([&] {
        put_head(out, item, reading);
        DetailParts parts(out);
        out.key("detail").list([&] { views_.detail(parts, item, reading); });
        const ast_subfields_t split = ast_dataitem_subfields_decode(&item);
        if (!ItemViews::is_compound(item.type) || !split.valid) return;
        out.key("subfields").list([&] {
            for (uint32_t i = 1; i <= split.subfield_count; ++i) {
                const ast_subfield_t &subfield = split.subfields[i - 1];
                if (!subfield.present) continue;
                out.object([&] {
                    out.member("number", i);
                    out.member("id", ast_subfield_get_id(subfield.type));
                    out.member("name", ast_subfield_get_name(subfield.type));
                    out.member("size", subfield.size);
                    out.key("octets").hex({subfield.data, subfield.data ? subfield.size : 0});
                    out.key("summary");
                    put_text(out, views_.subfield_summary(item, reading, i));
                    out.key("detail").list([&] { views_.subfield_detail(parts, item, reading, i); });
                });
            }
        });
    });
    return true;
}

bool Session::put_answers(JsonWriter &out, uint32_t row) {
    Row found;
    if (!find(row, found)) return false;
    Answerer answerer(*found.decoded);
    answerer.set_record(*found.record);
    const ast_answers_t &answers = answerer.answers();
    out.object([&] {
        for (const Quantity &quantity : kQuantities) {
            if (!quantity.is_in(answers)) continue;
            char room[kQuantityRoom];
            CellWriter text(room);
            quantity.write(text, answers);
            const bool is_number = quantity.form == QuantityForm::decimal || quantity.form == QuantityForm::whole ||
                                   quantity.form == QuantityForm::flag;
            out.key(quantity.name);
            if (is_number)
                out.word({room, text.size()});
            else
                out.text({room, text.size()});
        }
    });
    return true;
}

// A line of this record alone: what is behind the last one belongs to the block.
bool Session::put_json(TextBuffer &out, uint32_t row) {
    Row found;
    if (!find(row, found)) return false;
    json_file_ = names_[store_[found.block].file];
    found.decoded->is_cut = true;
    found.decoded->shown.set(found.decoded->block->record_count, [&](size_t i) { return i == found.index; });
    json_lines_->block(*found.decoded, out);
    return true;
}

bool Session::put_block_json(TextBuffer &out, uint32_t block) {
    if (block >= store_.size()) return false;
    json_file_ = names_[store_[block].file];
    json_lines_->block(stored_.decode(block, given_), out);
    return true;
}

} // namespace ast::viewer
