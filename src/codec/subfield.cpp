// Compound items: sizing them through their subfields, and splitting them into those.

#include "codec/category.hpp"
#include "codec/fspec.hpp"
#include "codec/item.hpp"

namespace {

using namespace ast;

// What follows the first `offset` octets; nothing once a walk has gone past the end.
struct Rest {
    const uint8_t *data;
    uint64_t available;
};

void report_unknown_subfield(const Compound &compound, uint32_t subfield_type) {
    if (compound.reports_unknown_subfields) ast_log(AST_LOG_CRITICAL, "Unsupported Subfield type %u", subfield_type);
}

Rest after(const uint8_t *data, uint64_t available, uint64_t offset) {
    return offset <= available ? Rest{data + offset, available - offset} : Rest{nullptr, 0};
}

} // namespace

namespace ast {

uint64_t summed_offset(const Compound &compound, const ast_fspec_t &primary, uint32_t number) {
    const uint64_t last = frn_octet(number);
    if (last >= compound.sums_count) return 0;
    uint64_t offset = primary.length - last - 1; // a sum holds the octet of the primary subfield that it is for
    for (uint64_t i = 0; i <= last; ++i) {
        const uint32_t before = i < last ? UINT32_MAX : ~(2U * frn_mask(number) - 1);
        const uint8_t sum = compound.sums[i][bits(primary.data[i] & before, 8, 2)];
        if (sum == kNoSum) return 0;
        offset += sum;
    }
    return offset;
}

uint64_t compound_size(const Compound &compound, const uint8_t *data, uint64_t available) {
    const ast_fspec_t primary = decode_fspec(data, available);
    if (!primary.valid) return 0;
    uint64_t size = primary.length;
    each_frn(primary, [&](uint32_t number) {
        const SubfieldRow *const row = find_subfield(compound, number);
        if (row && row->size.kind == SizeRule::Kind::Fixed) [[likely]] {
            size += row->size.octets;
        } else if (row) {
            const Rest rest = after(data, available, size);
            size += subfield_size(row->size, rest.data, rest.available);
        } else {
            report_unknown_subfield(compound, AST_SUBFIELD_TYPE(compound.type, number));
        }
        return true;
    });
    return size <= available ? size : 0;
}

ast_subfield_t find_announced(const Compound &compound, const ast_dataitem_t &item, const ast_fspec_t &primary,
                              uint32_t number) {
    ast_subfield_t found{.type = AST_SUBFIELD_TYPE(item.type, number), .valid = true};
    if (number == 0 || !announces(primary, number)) return found;
    const auto size_at = [&](uint32_t frn, const Rest &rest) {
        const SubfieldRow *const row = find_subfield(compound, frn);
        return row ? subfield_size(row->size, rest.data, rest.available) : 0;
    };
    uint64_t offset = summed_offset(compound, primary, number);
    if (offset == 0) {
        offset = primary.length;
        each_frn(primary, [&](uint32_t frn) {
            if (frn >= number) return false;
            offset += size_at(frn, after(item.data, item.size, offset));
            return true;
        });
    }
    const Rest rest = after(item.data, item.size, offset);
    const uint64_t size = size_at(number, rest);
    found.present = true;
    found.data = rest.data;
    found.size = size <= rest.available ? size : 0;
    return found;
}

uint64_t listed_subfields(const ast_dataitem_t &item, const ast_fspec_t &primary) {
    const uint64_t defined = ast_dataitem_subfields_get_number(item.type);
    return std::min({primary.frn_count, defined, uint64_t{AST_SUBFIELDS_MAX}});
}

uint64_t subfield_size(const Compound &compound, const uint8_t *data, uint64_t available, uint32_t subfield_type) {
    const SubfieldRow *const row = find_subfield(compound, subfield_number(subfield_type));
    if (row) return subfield_size(row->size, data, available);
    report_unknown_subfield(compound, subfield_type);
    return 0;
}

const char *subfield_id(const Compound &compound, uint32_t number) {
    const SubfieldRow *const row = find_subfield(compound, number);
    return row ? row->id : compound.unknown_id;
}

const char *subfield_name(const Compound &compound, uint32_t number) {
    const SubfieldRow *const row = find_subfield(compound, number);
    return row ? row->name : kNoSubfieldName;
}

} // namespace ast

ast_subfield_func_t ast_subfield_get_func(uint32_t subfield_type) {
    const Compound *const compound = find_compound(subfield_type / kSubfieldNumbers);
    return compound ? compound->func : ast_subfield_func_t{};
}

uint64_t ast_subfield_get_size(const uint8_t *data, uint64_t available, uint32_t subfield_type) {
    const auto get_size = ast_subfield_get_func(subfield_type).get_size;
    return get_size ? get_size(data, available, subfield_type) : 0;
}

const char *ast_subfield_get_id(uint32_t subfield_type) {
    const auto get_id = ast_subfield_get_func(subfield_type).get_id;
    return get_id ? get_id(subfield_type) : kNoSubfieldId;
}

const char *ast_subfield_get_name(uint32_t subfield_type) {
    const auto get_name = ast_subfield_get_func(subfield_type).get_name;
    return get_name ? get_name(subfield_type) : kNoSubfieldName;
}

uint64_t ast_subfield_get_size_variable(const uint8_t *data, uint64_t available, uint64_t maximum) {
    return extended_size(data, available, maximum, kSubfieldTooLong);
}

uint64_t ast_subfield_get_size_repeated(const uint8_t *data, uint64_t available, uint64_t element_size) {
    return repetitive_size(data, available, element_size);
}

uint64_t ast_dataitem_subfields_get_number(ast_dataitem_type_t type) {
    if (const Compound *const compound = find_compound(type)) return compound->count;
    ast_log(AST_LOG_CRITICAL, "Undefined Subfield %s", ast_dataitem_type_to_str(type));
    return 0;
}

uint64_t ast_dataitem_subfields_get_size(const uint8_t *data, uint64_t available, ast_dataitem_type_t type) {
    // An item without subfields of its own still has its primary subfield.
    static constexpr Compound kNoSubfields{};
    const Compound *const compound = find_compound(type);
    return compound_size(compound ? *compound : kNoSubfields, data, available);
}

ast_subfields_t ast_dataitem_subfields_decode(const ast_dataitem_t *item) {
    ast_subfields_t result{};
    if (!is_readable(item)) return result;
    result.primary = decode_fspec(item->data, item->size);
    if (!result.primary.valid) return result;
    result.valid = true;

    const Compound *const compound = find_compound(item->type);
    const uint64_t listed = listed_subfields(*item, result.primary);
    uint64_t offset = result.primary.length;
    for (; result.subfield_count < listed; ++result.subfield_count) {
        const auto number = static_cast<uint32_t>(result.subfield_count + 1);
        ast_subfield_t &subfield = result.subfields[result.subfield_count];
        subfield.type = AST_SUBFIELD_TYPE(item->type, number);
        subfield.valid = true;
        if (!announces(result.primary, number)) continue;
        const Rest rest = after(item->data, item->size, offset);
        subfield.present = true;
        subfield.data = rest.data;
        const uint64_t size = subfield_size(compound->rows[number - 1].size, rest.data, rest.available);
        subfield.size = size <= rest.available ? size : 0; // more only where the item's size is not its own rule's
        offset += size;
    }
    return result;
}
