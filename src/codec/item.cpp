// Items by type: the registry, sizing, copying and encoding, and the size rules under their exported names.

#include <algorithm>
#include <cstring>

#include "codec/category.hpp"
#include "codec/item.hpp"
#include "core/text.hpp"

namespace ast {

void report_unsupported(ast_dataitem_type_t type) {
    if (type != AST_DATAITEM_NONE) ast_log(AST_LOG_CRITICAL, "Unsupported dataitem %s", ast_dataitem_type_to_str(type));
}

const Handlers &handlers_of(ast_dataitem_type_t type) {
    static constexpr Handlers kNone{};
    const Handlers &handlers = find_item(type).handlers;
    if (handlers.size.kind != SizeRule::Kind::None) return handlers;
    report_unsupported(type);
    return kNone;
}

const char *item_name(const Category &category, ast_dataitem_type_t type) {
    const bool is_own = type / kItemNumbers == category.number;
    const char *const name = is_own ? find_item(category, type % kItemNumbers).name : nullptr;
    if (name) return name;
    if (category.reports_unknown_names)
        ast_log(AST_LOG_WARNING, "Unknown dataitem name: %s.", ast_dataitem_type_to_str(type));
    return category.unknown_name;
}

} // namespace ast

using namespace ast;

namespace {

// In three digits at least; without print(), since a walk over the values of an item begins with the item's name.
void append_number(TextWriter &out, uint32_t number) {
    if (number > 999) return out.print("%u", number);
    const char digits[] = {static_cast<char>('0' + number / 100), static_cast<char>('0' + number / 10 % 10),
                           static_cast<char>('0' + number % 10)};
    out.append({digits, sizeof digits});
}

} // namespace

// The rules under their exported names.
#define AST_SIZE_RULES(X)                                                                                              \
    X(ast_dataitem_get_size_fixed_1_byte, fixed<1>)                                                                    \
    X(ast_dataitem_get_size_fixed_2_byte, fixed<2>)                                                                    \
    X(ast_dataitem_get_size_fixed_3_byte, fixed<3>)                                                                    \
    X(ast_dataitem_get_size_fixed_4_byte, fixed<4>)                                                                    \
    X(ast_dataitem_get_size_fixed_5_byte, fixed<5>)                                                                    \
    X(ast_dataitem_get_size_fixed_6_byte, fixed<6>)                                                                    \
    X(ast_dataitem_get_size_fixed_7_byte, fixed<7>)                                                                    \
    X(ast_dataitem_get_size_fixed_8_byte, fixed<8>)                                                                    \
    X(ast_dataitem_get_size_fixed_9_byte, fixed<9>)                                                                    \
    X(ast_dataitem_get_size_fixed_12_byte, fixed<12>)                                                                  \
    X(ast_dataitem_get_size_var_1_byte, extended<1>)                                                                   \
    X(ast_dataitem_get_size_var_2_byte, extended<2>)                                                                   \
    X(ast_dataitem_get_size_var_3_byte, extended<3>)                                                                   \
    X(ast_dataitem_get_size_var_4_byte, extended<4>)                                                                   \
    X(ast_dataitem_get_size_var_5_byte, extended<5>)                                                                   \
    X(ast_dataitem_get_size_var_6_byte, extended<6>)                                                                   \
    X(ast_dataitem_get_size_var_11_byte, extended<11>)                                                                 \
    X(ast_dataitem_get_size_var_12_byte, extended<12>)                                                                 \
    X(ast_dataitem_get_size_var_16_byte, extended<16>)                                                                 \
    X(ast_dataitem_get_size_var_23_byte, extended<23>)                                                                 \
    X(ast_dataitem_get_size_var_unlimited, extended<kUnlimitedOctets>)                                                 \
    X(ast_dataitem_get_size_rep_1_byte, repetitive<1>)                                                                 \
    X(ast_dataitem_get_size_rep_2_byte, repetitive<2>)                                                                 \
    X(ast_dataitem_get_size_rep_3_byte, repetitive<3>)                                                                 \
    X(ast_dataitem_get_size_rep_4_byte, repetitive<4>)                                                                 \
    X(ast_dataitem_get_size_rep_5_byte, repetitive<5>)                                                                 \
    X(ast_dataitem_get_size_rep_6_byte, repetitive<6>)                                                                 \
    X(ast_dataitem_get_size_rep_8_byte, repetitive<8>)                                                                 \
    X(ast_dataitem_get_size_rep_12_byte, repetitive<12>)                                                               \
    X(ast_dataitem_get_size_rep_15_byte, repetitive<15>)                                                               \
    X(ast_dataitem_get_size_rep_21_byte, repetitive<21>)                                                               \
    X(ast_dataitem_get_size_rep_64_byte, repetitive<64>)                                                               \
    X(ast_dataitem_get_size_rep_256_byte, repetitive<256>)                                                             \
    X(ast_dataitem_reserved_expansion_field_get_size, explicit_length)                                                 \
    X(ast_dataitem_special_purpose_field_get_size, explicit_length)                                                    \
    X(ast_dataitem_random_field_sequencing_get_size, explicit_length)

namespace {

struct NamedSizeRule {
    SizeRule rule;
    SizeFunction *function;
};

#define AST_ENTER_SIZE_RULE(function, rule) {rule, function},
constexpr NamedSizeRule kNamedSizeRules[] = {AST_SIZE_RULES(AST_ENTER_SIZE_RULE)};

SizeFunction *function_of(const SizeRule &rule) {
    if (rule.function) return rule.function;
    for (const NamedSizeRule &named : kNamedSizeRules)
        if (named.rule.kind == rule.kind && named.rule.octets == rule.octets) return named.function;
    return nullptr;
}

} // namespace

ast_dataitem_func_t ast_dataitem_get_func(ast_dataitem_type_t type) {
    const Handlers &handlers = handlers_of(type);
    if (handlers.size.kind == SizeRule::Kind::None) return {};
    return {function_of(handlers.size), find_category(type / kItemNumbers).get_name, handlers.get_summary,
            handlers.detail.html, handlers.encode};
}

const char *ast_dataitem_type_to_str(ast_dataitem_type_t type) {
    thread_local char text[10];
    const uint32_t category = type / kItemNumbers;
    const ItemRow &row = find_item(type);
    const uint32_t number = row.variant_of ? row.variant_of : type % kItemNumbers;
    TextWriter out(text, sizeof text);
    out.append("I");
    append_number(out, category);
    out.append("/");
    switch (number) {
    case AST_ITEM_RFS:
        out.append("RFS");
        break;
    case AST_ITEM_REF:
        out.append("REF");
        break;
    case AST_ITEM_SPF:
        out.append("SPF");
        break;
    default:
        append_number(out, number);
    }
    return text;
}

const char *ast_dataitem_get_name(ast_dataitem_type_t type) {
    const bool is_registered = handlers_of(type).size.kind != SizeRule::Kind::None;
    return is_registered ? find_category(type / kItemNumbers).get_name(type) : "UNKNOWN NAME";
}

uint64_t ast_dataitem_get_size(const uint8_t *data, uint64_t available, ast_dataitem_type_t type) {
    return ast_dataitem_decode(data, available, type).size;
}

ast_dataitem_t ast_dataitem_decode(const uint8_t *data, uint64_t available, ast_dataitem_type_t type) {
    const uint64_t size = item_size(find_item(type), type, data, data ? available : 0);
    if (size != 0 && data) return sized_item(data, size, type, available > size ? available - size : 0);
    return {.data = data, .size = 0, .type = type, .valid = false, .following = 0};
}

ast_dataitem_t ast_dataitem_copy(uint8_t *buffer, uint64_t length, const ast_dataitem_t *source) {
    ast_dataitem_t copy{};
    copy.data = buffer;
    if (!is_readable(source) || !buffer || source->size > length) return copy;
    std::memcpy(buffer, source->data, static_cast<size_t>(source->size));
    copy.size = source->size;
    copy.type = source->type;
    copy.valid = true;
    return copy;
}

ast_dataitem_t ast_dataitem_encode(uint8_t *buffer, uint64_t length, const ast_dataitem_src_t *source) {
    ast_dataitem_t result{};
    result.data = buffer;
    if (!source) return result;
    result.type = source->type;
    if (!buffer || !source->value) return result;
    if (const auto encode = handlers_of(source->type).encode) {
        const ast_dataitem_src_t own_source = *source;
        encode(&result, buffer, length, &own_source);
    } else {
        ast_log(AST_LOG_WARNING, "Enconding function not implemented for dataitem %s.",
                ast_dataitem_type_to_str(source->type));
    }
    return result;
}

uint64_t ast_dataitem_get_size_fixed(const uint8_t *data, uint64_t available, uint64_t size) {
    return item_size(SizeRule::Kind::Fixed, size, data, available);
}

uint64_t ast_dataitem_get_size_variable(const uint8_t *data, uint64_t available, uint64_t maximum) {
    return item_size(SizeRule::Kind::Extended, maximum, data, available);
}

uint64_t ast_dataitem_get_size_repeat(const uint8_t *data, uint64_t available, uint64_t element_size) {
    return item_size(SizeRule::Kind::Repetitive, element_size, data, available);
}

#define AST_DEFINE_SIZE_RULE(function, rule)                                                                           \
    uint64_t function(const uint8_t *data, uint64_t available) { return item_size(rule, data, available); }
AST_SIZE_RULES(AST_DEFINE_SIZE_RULE)
