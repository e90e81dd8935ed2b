#include "show/detail_sink.hpp"

namespace ast::recording::astdump {

struct DetailSink::Visitor {
    static DetailTexts of(const DetailText *texts, uint64_t count) { return {texts, static_cast<size_t>(count)}; }
    static DetailSink &take(void *context) {
        auto &sink = *static_cast<DetailSink *>(context);
        sink.is_taken_ = true;
        return sink;
    }

    static constexpr ast_details_visitor_t kFunctions = {
        .title = [](void *sink, const DetailText *pieces, uint64_t count) { take(sink).title(of(pieces, count)); },
        .paragraph = [](void *sink, const DetailText *pieces,
                        uint64_t count) { take(sink).paragraph(of(pieces, count)); },
        .table_begin = [](void *sink, const DetailText *header,
                          uint64_t count) { take(sink).table_begin(of(header, count)); },
        .row = [](void *sink, const DetailText *cells, uint64_t count) { take(sink).row(of(cells, count)); },
        .link_row = [](void *sink, const DetailText *cells, uint64_t count,
                       const ast_detail_link_t *link) { take(sink).link_row(of(cells, count), *link); },
        .table_end = [](void *sink) { take(sink).table_end(); },
        .bits =
            [](void *sink, const uint8_t *octets, uint64_t count) {
                take(sink).bits({octets, static_cast<size_t>(count)});
            },
    };
};

bool DetailSink::take_item(const ast_dataitem_t &item) {
    is_taken_ = false;
    ast_dataitem_get_details(&item, &Visitor::kFunctions, this);
    return is_taken_;
}

bool DetailSink::take_subfield(const ast_dataitem_t &item, uint32_t number) {
    is_taken_ = false;
    ast_subfield_get_details(&item, AST_SUBFIELD_TYPE(item.type, number), &Visitor::kFunctions, this);
    return is_taken_;
}

} // namespace ast::recording::astdump
