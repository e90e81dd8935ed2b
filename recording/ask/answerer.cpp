#include "ask/answerer.hpp"

#include "base/time.hpp"

namespace ast::recording {

void Answerer::set_block(const DecodedBlock &decoded) {
    const auto &time = decoded.datagram->time;
    const auto reception = time ? nanoseconds_of(*time) : std::nullopt;
    sites_ = decoded.sites;
    context_ = {.has_reception = reception.has_value(), .reception_ns = reception.value_or(0), .reserved = {}};
    has_date_ = time && has_date(*time);
}

void Answerer::ask() {
    ast_datarecord_get_answers(record_, &context_, &answers_);
    if (!has_date_) {
        answers_.present &= ~AST_ANSWER_TIMESTAMP;
        answers_.timestamp_ns = 0;
    }
    sites_->locate(answers_);
    is_asked_ = true;
}

} // namespace ast::recording
