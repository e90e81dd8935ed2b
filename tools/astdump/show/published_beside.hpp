// The published value behind a described one, where the two differ.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ask/published_reading.hpp"
#include "show/detail_sink.hpp"

namespace ast::recording::astdump {

// Passes a view of an item on, and adds "(published: -0.01 NM)" to the rows of fields that the library reads in a way
// of its own, those of docs/differences.md, and to the summaries of such subfields.
class PublishedBeside final : public DetailSink {
public:
    static bool concerns(ast_dataitem_type_t type);

    // The last cell of a row, or the summary behind the id of a subfield, with the published value; empty where there
    // is no other one.
    static std::string both(const ast_dataitem_t &item, const Reading &reading, DetailTexts cells);

    PublishedBeside(DetailSink &sink, const ast_dataitem_t &item, const Reading &reading)
        : sink_(sink), item_(item), reading_(reading) {}

    void title(DetailTexts pieces) override { sink_.title(pieces); }
    void paragraph(DetailTexts pieces) override { sink_.paragraph(pieces); }
    void table_begin(DetailTexts header) override { sink_.table_begin(header); }
    void row(DetailTexts cells) override;
    void link_row(DetailTexts cells, const ast_detail_link_t &link) override { sink_.link_row(cells, link); }
    void table_end() override { sink_.table_end(); }
    void bits(std::span<const uint8_t> octets) override { sink_.bits(octets); }

private:
    DetailSink &sink_;
    const ast_dataitem_t &item_;
    const Reading &reading_;
    std::vector<DetailText> cells_;
};

} // namespace ast::recording::astdump
