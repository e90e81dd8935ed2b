// Takes the pieces of detail views: those of the library, and those that are put together from published values.
#pragma once

#include <array>
#include <ast.h>
#include <span>
#include <string_view>

namespace ast::recording::astdump {

using DetailText = ast_detail_text_t;
using DetailTexts = std::span<const DetailText>;

inline std::string_view text_of(const DetailText &text) { return {text.text, text.size}; }

inline DetailText plain(std::string_view text) {
    return {text.data(), static_cast<uint32_t>(text.size()), AST_DETAIL_PLAIN};
}

// Pieces of text as one argument, good until the end of the call.
template <typename... Texts>
std::array<DetailText, sizeof...(Texts)> texts(const Texts &...all) {
    return {plain(all)...};
}

class DetailSink {
public:
    virtual void title(DetailTexts pieces) = 0;
    virtual void paragraph(DetailTexts pieces) = 0;
    virtual void table_begin(DetailTexts header) = 0;
    virtual void row(DetailTexts cells) = 0;
    virtual void link_row(DetailTexts cells, const ast_detail_link_t &link) = 0; // the link is the last cell
    virtual void table_end() = 0;
    virtual void bits(std::span<const uint8_t> octets) = 0;

    // Takes what the library has of an item or of one of its subfields; false when that is nothing.
    bool take_item(const ast_dataitem_t &item);
    bool take_subfield(const ast_dataitem_t &item, uint32_t number);

protected:
    ~DetailSink() = default;

private:
    struct Visitor;

    bool is_taken_ = false;
};

} // namespace ast::recording::astdump
