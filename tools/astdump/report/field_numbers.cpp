#include "report/field_numbers.hpp"

#include <algorithm>
#include <utility>

#include "ask/published_reading.hpp"
#include "show/field_text.hpp"

namespace ast::recording::astdump {

namespace {

// Elements of lists are one field: "048/I250/MCP_ALT" of "I048/250[]/MCP_ALT".
std::string shown_path(std::string_view path) {
    TextBuffer text;
    text.put(path.substr(1, 4));
    put_option_path(text, path);
    std::string shown(text.text());
    for (size_t at = shown.find('['); at != std::string::npos; at = shown.find('['))
        shown.erase(at, shown.find(']', at) - at + 1);
    return shown;
}

uint32_t decimals_of(const ast_field_t &field) {
    uint32_t decimals = 0;
    if (field.numerator == 0) return 0;
    for (uint64_t size = field.numerator; size < field.denominator; size *= 10) ++decimals;
    return field.denominator == 1 ? 0 : decimals + 1;
}

} // namespace

void NumberRange::add(double value) { *this += {1, value, value, value}; }

NumberRange &NumberRange::operator+=(const NumberRange &other) {
    if (other.count == 0) return *this;
    least = count == 0 ? other.least : std::min(least, other.least);
    greatest = count == 0 ? other.greatest : std::max(greatest, other.greatest);
    sum += other.sum;
    count += other.count;
    return *this;
}

size_t FieldNumbers::number_of(const ast_field_t &field) {
    TextBuffer unit;
    put_plain(unit, field.unit);
    NumberField number{shown_path(field.path), std::string(unit.text()), decimals_of(field)};
    const auto [known, is_new] = numbers_.try_emplace(number, fields_.size());
    if (is_new) fields_.push_back(std::move(number));
    return known->second;
}

void FieldNumbers::add(const ast_field_value_t &value) {
    const ast_field_t &field = *value.field;
    auto known = known_.find(std::string_view(field.path));
    if (known == known_.end()) known = known_.try_emplace(field.path).first;
    Known &meant = known->second;
    if (meant.unit != field.unit || meant.numerator != field.numerator || meant.denominator != field.denominator)
        meant = {field.unit, field.numerator, field.denominator, number_of(field)};
    if (now_->size() <= meant.field) now_->resize(fields_.size());
    (*now_)[meant.field].add(value.number);
}

void FieldNumbers::add(const FamilySource &source, const ast_datarecord_t &record) {
    now_ = &ranges_[source];
    const uint32_t message_type = message_type_of(record);
    const auto take = [](void *context, const ast_field_value_t *value) {
        const uint32_t kind = value->field->kind; // codes and bits are no quantities
        if (kind == AST_FIELD_UNSIGNED || kind == AST_FIELD_SIGNED) static_cast<FieldNumbers *>(context)->add(*value);
    };
    for (uint64_t i = 0; i < record.item_count; ++i)
        ast_dataitem_walk(&record.items[i], record.uap, message_type, take, this);
}

} // namespace ast::recording::astdump
