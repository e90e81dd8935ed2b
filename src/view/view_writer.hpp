// Where detail views write their pieces, whoever takes them.
#pragma once

#include "core/text.hpp"

namespace ast {

using ViewText = ast_detail_text_t;

// What comes from outside, fit to be shown: what cannot be printed as blanks.
template <uint64_t Chars>
class ReceivedText {
public:
    // A text of so many characters, which need not be terminated.
    explicit ReceivedText(const char *text) : ReceivedText(std::string_view(text, Chars)) {}

    // One of so many at most.
    explicit ReceivedText(std::string_view text) : size_(std::min<size_t>(text.size(), Chars)) {
        for (size_t i = 0; i < size_; ++i) text_[i] = is_printable(text[i]) ? text[i] : ' ';
    }

    ViewText as(uint32_t kind) const { return {text_, static_cast<uint32_t>(size_), kind}; }

private:
    char text_[Chars];
    size_t size_;
};

inline ViewText view_text(std::string_view text) {
    return {text.data(), static_cast<uint32_t>(text.size()), AST_DETAIL_PLAIN};
}

inline ViewText view_text(const ViewText &text) { return text; }

template <uint64_t Chars>
ViewText view_text(const ReceivedText<Chars> &text) {
    return text.as(AST_DETAIL_RECEIVED);
}

class ViewWriter {
public:
    // The visitor has all its functions.
    ViewWriter(const ast_details_visitor_t &visitor, void *context) : visitor_(visitor), context_(context) {}
    ViewWriter(const ViewWriter &) = delete;
    ViewWriter &operator=(const ViewWriter &) = delete;

    template <typename... Pieces>
    void title(const Pieces &...pieces) {
        hand_over(visitor_.title, pieces...);
    }
    template <typename... Pieces>
    void paragraph(const Pieces &...pieces) {
        hand_over(visitor_.paragraph, pieces...);
    }
    template <typename... Cells>
    void table_begin(const Cells &...header) {
        hand_over(visitor_.table_begin, header...);
    }
    template <typename... Cells>
    void row(const Cells &...cells) {
        hand_over(visitor_.row, cells...);
    }
    void table_end() { visitor_.table_end(context_); }

    // Nothing for no octets.
    void bit_table(const uint8_t *octets, uint64_t count) {
        if (octets && count != 0) visitor_.bits(context_, octets, count);
    }

    // A row whose last cell is a link to a position. A service that has none leaves the cell empty.
    template <typename... Cells>
    void map_link_row(uint32_t service, double latitude, double longitude, const Cells &...cells) {
        char url[512];
        if (!ast_map_get_link_url(url, sizeof url, service, latitude, longitude)) return row(cells..., "");
        const ViewText texts[] = {view_text(cells)...};
        const ast_detail_link_t link = {service, latitude, longitude, ast_map_get_service_name(service), url};
        visitor_.link_row(context_, texts, sizeof...(cells), &link);
    }

    // Whether nothing more can be shown, so that nothing need be asked for.
    bool is_full() const { return text_ && text_->is_full(); }

protected:
    // One who writes a text.
    ViewWriter(const ast_details_visitor_t &visitor, TextWriter &text)
        : visitor_(visitor), context_(&text), text_(&text) {}

private:
    using TakeTexts = void(void *context, const ViewText *texts, uint64_t count);

    template <typename... Texts>
    void hand_over(TakeTexts *take, const Texts &...texts) {
        const ViewText all[] = {view_text(texts)...};
        take(context_, all, sizeof...(texts));
    }

    const ast_details_visitor_t &visitor_;
    void *context_;
    const TextWriter *text_ = nullptr;
};

// A visitor of users, all of whose functions can be called.
class WholeVisitor {
public:
    explicit WholeVisitor(const ast_details_visitor_t &visitor);
    const ast_details_visitor_t &get() const { return visitor_; }

private:
    ast_details_visitor_t visitor_;
};

// A detail view's table: begins with its header row, takes data rows, and ends with its life.
class DetailTable {
public:
    template <typename... Cells>
    explicit DetailTable(ViewWriter &view, const Cells &...header) : view_(view) {
        view_.table_begin(header...);
    }
    ~DetailTable() { view_.table_end(); }
    DetailTable(const DetailTable &) = delete;
    DetailTable &operator=(const DetailTable &) = delete;

    template <typename... Cells>
    void row(const Cells &...cells) {
        view_.row(cells...);
    }
    template <typename... Cells>
    void map_link_row(uint32_t service, double latitude, double longitude, const Cells &...cells) {
        view_.map_link_row(service, latitude, longitude, cells...);
    }

private:
    ViewWriter &view_;
};

} // namespace ast
