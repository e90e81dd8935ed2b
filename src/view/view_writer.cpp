#include "view/view_writer.hpp"

namespace ast {

namespace {

constexpr ast_details_visitor_t kNoVisitor = {
    .title = [](void *, const ViewText *, uint64_t) {},
    .paragraph = [](void *, const ViewText *, uint64_t) {},
    .table_begin = [](void *, const ViewText *, uint64_t) {},
    .row = [](void *, const ViewText *, uint64_t) {},
    .link_row = [](void *, const ViewText *, uint64_t, const ast_detail_link_t *) {},
    .table_end = [](void *) {},
    .bits = [](void *, const uint8_t *, uint64_t) {},
};

template <typename Function>
Function *one_of(Function *function, Function *otherwise) {
    return function ? function : otherwise;
}

} // namespace

WholeVisitor::WholeVisitor(const ast_details_visitor_t &visitor)
    : visitor_{
          .title = one_of(visitor.title, kNoVisitor.title),
          .paragraph = one_of(visitor.paragraph, kNoVisitor.paragraph),
          .table_begin = one_of(visitor.table_begin, kNoVisitor.table_begin),
          .row = one_of(visitor.row, kNoVisitor.row),
          .link_row = one_of(visitor.link_row, kNoVisitor.link_row),
          .table_end = one_of(visitor.table_end, kNoVisitor.table_end),
          .bits = one_of(visitor.bits, kNoVisitor.bits),
      } {}

} // namespace ast
