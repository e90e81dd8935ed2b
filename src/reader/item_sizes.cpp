#include "reader/item_sizes.hpp"

#include "schema/walk.hpp"

namespace ast::reader {

namespace {

// Whether the registered layout of an item may be older than what is sent: chains that go on, and subfields.
bool may_be_newer(const SizeRule &rule, const uint8_t *data, uint64_t left) {
    if (rule.kind == SizeRule::Kind::Extended) return plain_extended_size(data, left, rule.octets) == 0;
    return rule.kind == SizeRule::Kind::Subfields;
}

// Whether an item ends with its last part, whatever the last bit of that says.
bool ends_without_fx(const schema::Field *item) {
    const schema::Field *last = item + 1;
    while (schema::behind(last) != schema::behind(item)) last = schema::behind(last);
    return item->kind == schema::Kind::Extended && schema::fx_bits(*last) == 0;
}

// As published, but for a chain that the octets do not hold to its end.
uint64_t published_size(const schema::Field *item, ast_dataitem_type_t type, const ast_uap_t &uap, const uint8_t *data,
                        uint64_t left) {
    const uint64_t size = ast_dataitem_get_published_size(data, left, type, uap);
    const bool is_chain = item->kind == schema::Kind::Extended || item->kind == schema::Kind::Chained;
    const bool goes_on = size != 0 && is_chain && has_fx(data[size - 1]);
    return goes_on && !ends_without_fx(item) ? 0 : size;
}

} // namespace

uint64_t size_item(const ItemRow &row, ast_dataitem_type_t type, const ast_uap_t &uap, const uint8_t *data,
                   uint64_t left) {
    const SizeRule &rule = row.handlers.size;
    if (type == AST_DATAITEM_NONE || left == 0) return 0;
    if (rule.kind == SizeRule::Kind::Fixed && !rule.is_disputed && rule.octets <= left) return rule.octets;
    const schema::Field *const item = schema::find_item(type, uap);
    if (item && may_be_newer(rule, data, left)) return published_size(item, type, uap, data, left);
    if (const uint64_t size = item && rule.is_disputed ? published_size(item, type, uap, data, left) : 0) return size;
    const uint64_t size = item_size(rule, data, left);
    if (size != 0 && size <= left) return size;
    return item ? published_size(item, type, uap, data, left) : 0;
}

} // namespace ast::reader
