#include "show/detail_sink.hpp"

namespace ast::recording::astdump {

struct DetailSink::Visitor {
    static DetailSink &take(void *context, Piece piece) {
        auto &sink = *static_cast<DetailSink *>(context);
        sink.last_ = piece;
        return sink;
    }
    static DetailSink &take(void *context) { return take(context, Piece::other); }
    static Piece paragraph_of(DetailTexts pieces) {
        return pieces.size() == 1 && pieces[0].size == 0 ? Piece::blank : Piece::other;
    }

    static constexpr ast_details_visitor_t kFunctions = {
        .title =
            [](void *sink, const DetailText *pieces, uint64_t count) {
                take(sink).title({pieces, count});
            },
        .paragraph =
            [](void *sink, const DetailText *pieces, uint64_t count) {
                take(sink, paragraph_of({pieces, count})).paragraph({pieces, count});
            },
        .table_begin =
            [](void *sink, const DetailText *header, uint64_t count) {
                take(sink).table_begin({header, count});
            },
        .row =
            [](void *sink, const DetailText *cells, uint64_t count) {
                take(sink).row({cells, count});
            },
        .link_row =
            [](void *sink, const DetailText *cells, uint64_t count, const ast_detail_link_t *link) {
                take(sink).link_row({cells, count}, *link);
            },
        .table_end = [](void *sink) { take(sink).table_end(); },
        .bits =
            [](void *sink, const uint8_t *octets, uint64_t count) {
                take(sink).bits({octets, count});
            },
    };
};

DetailSink::Piece DetailSink::take_item(const ast_dataitem_t &item) {
    last_ = Piece::none;
    ast_dataitem_get_details(&item, &Visitor::kFunctions, this);
    return last_;
}

DetailSink::Piece DetailSink::take_subfield(const ast_dataitem_t &item, uint32_t number) {
    last_ = Piece::none;
    ast_subfield_get_details(&item, AST_SUBFIELD_TYPE(item.type, number), &Visitor::kFunctions, this);
    return last_;
}

} // namespace ast::recording::astdump
