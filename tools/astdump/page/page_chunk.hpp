// The blocks of a chunk on the HTML page.
#pragma once

#include "page/item_texts.hpp"
#include "page/plan_columns.hpp"
#include "show/sink.hpp"

namespace ast::recording::astdump {

// A section of the page, packed until it is opened. Beside the lines of ItemTexts it holds
//
//     B  fields               a block: what is always shown of it, as BLOCK_FIELDS in sections.js names it
//     R  number  note  items  a record of it, and its items by their numbers; a blank one is the next that is new
//     F  line                 what is wrong with it
class PageChunk : public Renderer {
public:
    void block(const DecodedBlock &decoded, TextBuffer &out) override;
    void end(TextBuffer &out) override;

private:
    void record(uint64_t number, const std::string &note, const ast_datarecord_t &record);
    void fault(const DecodedBlock &decoded);
    void heading(TextBuffer &out) const;

    TextBuffer lines_;
    TextBuffer items_;
    ItemTexts texts_;
    Readings readings_;
    PlanColumns columns_;
    uint64_t blocks_ = 0;
    uint64_t octets_ = 0;
    uint64_t first_number_ = 0;
    uint64_t last_number_ = 0;
    bool damaged_ = false;
};

} // namespace ast::recording::astdump
