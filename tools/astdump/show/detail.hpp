// The detail view of an item as aligned lines of text.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "base/text_buffer.hpp"
#include "show/by_type.hpp"
#include "show/item_views.hpp"
#include "show/memo.hpp"
#include "show/terminal.hpp"

namespace ast::recording::astdump {

class Detail final : private DetailSink {
public:
    explicit Detail(Style style) : style_(style) {}
    void item(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading);

private:
    struct SubfieldName {
        std::string_view id;
        std::string_view name;
    };
    using SubfieldNames = std::vector<SubfieldName>; // from the first on
    using Widths = std::vector<size_t>;              // of the columns of a table

    const SubfieldNames &names_of(ast_dataitem_type_t type);
    bool compound(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading, const SubfieldNames &names);
    void overview(TextBuffer &out) const;
    void subfield(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading, uint32_t number);
    void put_lines(TextBuffer &out) const;
    void begin(TextBuffer &out, uint32_t kind);

    void title(DetailTexts pieces) override;
    void paragraph(DetailTexts pieces) override;
    void table_begin(DetailTexts header) override;
    void row(DetailTexts cells) override;
    void link_row(DetailTexts cells, const ast_detail_link_t &link) override;
    void table_end() override;
    void bits(std::span<const uint8_t>) override {}

    void begin_part();
    void put_line(Widths &widths);
    void align();
    size_t indent() const;
    void put_title(TextBuffer &out, std::string_view text) const;

    Style style_;
    ItemViews views_;

    // The view at hand. A title stands where something follows it.
    TextBuffer *out_ = nullptr;
    std::string title_;
    bool has_title_ = false;
    bool below_title_ = false;

    // The table at hand. Its columns are as wide as those of the last view of the kind; where they come out different,
    // its lines are put anew.
    std::unordered_map<uint32_t, std::vector<Widths>> widths_; // by the type of an item or a subfield
    std::vector<Widths> *widths_of_view_ = nullptr;
    size_t table_ = 0; // among those of the view
    size_t table_begin_ = 0;
    size_t rows_begin_ = 0;
    bool is_headed_ = false;
    Widths needed_;
    struct Place {
        size_t begin; // behind that of the table
        size_t size;
    };
    std::vector<Place> cells_;
    struct Line {
        size_t cells;
        size_t end; // of its text, behind the begin of the table
    };
    std::vector<Line> lines_;
    TextBuffer unaligned_;

    // The line at hand.
    std::vector<std::string_view> line_;
    std::string link_;
    std::vector<DetailText> linked_;

    struct Compound {
        bool is_known = false;
        SubfieldNames names; // none for items that are not compound
    };
    ByType<Compound> compounds_;

    // The subfields of the compound item at hand.
    struct Subfield {
        uint64_t number;
        uint64_t size; // in octets
        const SubfieldName *name;
        size_t begin; // of its text among the others
    };
    Memo memo_;
    TextBuffer texts_;
    std::vector<Subfield> subfields_;
};

} // namespace ast::recording::astdump
