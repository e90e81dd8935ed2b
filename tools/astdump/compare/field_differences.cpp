#include "compare/field_differences.hpp"

#include <algorithm>

#include "show/field_text.hpp"

namespace ast::recording::astdump {

namespace {

struct Field {
    std::string path;
    std::string unit;
    FieldText value;
};

// Those of an item, spare bits left out.
std::vector<Field> fields_of(const KeptRecord &record, const ast_dataitem_t &item) {
    std::vector<Field> fields;
    const auto visit = [](void *context, const ast_field_value_t *value) {
        if (value->field->kind == AST_FIELD_SPARE) return;
        TextBuffer text;
        put_value(text, *value);
        const bool is_number = value->has_number || value->field->kind == AST_FIELD_CODE;
        static_cast<std::vector<Field> *>(context)->push_back(
            {value->field->path, value->field->unit, {std::string(text.text()), is_number}});
    };
    const bool is_whole = ast_dataitem_walk(&item, record.uap, record.message_type, visit, &fields);
    if (is_whole && !fields.empty()) return fields;
    TextBuffer octets;
    octets.hex_digits({item.data, item.size});
    return {{ast_dataitem_type_to_str(item.type), {}, {std::string(octets.text()), false}}};
}

void add(std::vector<FieldDifference> &differences, const std::vector<Field> &first, std::vector<Field> second) {
    for (const Field &one : first) {
        const auto other = std::ranges::find(second, one.path, &Field::path);
        const FieldText value = other == second.end() ? FieldText() : other->value;
        if (value != one.value) differences.push_back({one.path, one.unit, one.value, value});
        if (other != second.end()) second.erase(other);
    }
    for (const Field &other : second) differences.push_back({other.path, other.unit, FieldText(), other.value});
}

} // namespace

std::vector<FieldDifference> field_differences(const KeptRecords &first, size_t one, const KeptRecords &second,
                                               size_t other) {
    const auto item_of = [](const KeptRecords &records, size_t place, const KeptItem &item) {
        const Octets octets = records.octets(place).subspan(item.begin, item.size);
        return ast_dataitem_t{
            .data = octets.data(), .size = octets.size(), .type = item.type, .valid = true, .following = 0};
    };
    const auto fields = [&](const KeptRecords &records, size_t place, const KeptItem &item) {
        return fields_of(records[place], item_of(records, place, item));
    };
    std::vector<FieldDifference> differences;
    std::vector<KeptItem> left(second.items(other).begin(), second.items(other).end());
    for (const KeptItem &item : first.items(one)) {
        const auto same = std::ranges::find(left, item.type, &KeptItem::type);
        if (same == left.end()) {
            add(differences, fields(first, one, item), {});
            continue;
        }
        const bool is_equal = std::ranges::equal(first.octets(one).subspan(item.begin, item.size),
                                                 second.octets(other).subspan(same->begin, same->size));
        if (!is_equal) add(differences, fields(first, one, item), fields(second, other, *same));
        left.erase(same);
    }
    for (const KeptItem &item : left) add(differences, {}, fields(second, other, item));
    return differences;
}

} // namespace ast::recording::astdump
