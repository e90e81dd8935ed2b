// Items of every registered type: sizes, values and views. The input chooses a type; the octets of an item follow.

#include "harness.hpp"
#include "value_decoders.hpp"

namespace ast_fuzz {

namespace {

// Ample for what an input of a few hundred octets is shown as.
constexpr uint64_t kTextChars = 65536;

template <typename Write, typename... Subject>
void show(Write write, Subject... subject) {
    static char text[kTextChars];
    write(text, kTextChars, subject...);
    require(strnlen(text, kTextChars) < kTextChars, "a text is not terminated");
}

void check_subfields(const ast_dataitem_t &item) {
    const ast_subfields_t subfields = ast_dataitem_subfields_decode(&item);
    const uint8_t *const end = item.data + item.size;
    require(subfields.subfield_count <= AST_SUBFIELDS_MAX, "an item holds more subfields than there is room for");
    for (uint64_t i = 0; i < subfields.subfield_count; ++i) {
        const ast_subfield_t &subfield = subfields.subfields[i];
        require(subfield.valid, "a listed subfield is not valid");
        require(subfield.present || (!subfield.data && subfield.size == 0), "an absent subfield has octets");
        if (!subfield.data) {
            require(subfield.size == 0, "a subfield has a size, but no octets");
            continue;
        }
        require(subfield.data >= item.data && subfield.data + subfield.size <= end, "a subfield is outside its item");
        show(ast_subfield_get_bin_html, &subfield);
    }
    for (uint32_t number = 0; number <= ast_dataitem_subfields_get_number(item.type) + 1; ++number) {
        const uint32_t type = AST_SUBFIELD_TYPE(item.type, number);
        require(ast_subfield_get_id(type) && ast_subfield_get_name(type), "a subfield has no name");
        show(ast_subfield_get_summary, &item, type);
        show(ast_subfield_get_detail_html, &item, type);
    }
}

void check_views(const ast_dataitem_t &item) {
    for (const auto write : {ast_dataitem_get_summary, ast_dataitem_get_detail_html, ast_dataitem_get_hex_str,
                             ast_dataitem_get_bin_str, ast_dataitem_get_hex_html, ast_dataitem_get_bin_html,
                             ast_dataitem_subfields_get_summary, ast_dataitem_subfields_get_detail_html})
        show(write, &item);
}

void check_values(const ast_dataitem_t &item) {
    for (const ValueFunctions &value : kValues)
        require(!value.decodes(&item) || item.valid, "an item that is not valid has a value");
}

void check_copy(const ast_dataitem_t &item) {
    std::vector<uint8_t> buffer = buffer_of(item.size);
    const ast_dataitem_t copy = ast_dataitem_copy(buffer.data(), buffer.size(), &item);
    require(copy.valid && copy.size == item.size && std::memcmp(buffer.data(), item.data, item.size) == 0,
            "an item is copied as another one");
    require(!ast_dataitem_copy(buffer.data(), buffer.size() - 1, &item).valid,
            "an item fits a buffer too small for it");
}

void check_item(const ast_dataitem_t &item) {
    check_views(item);
    check_values(item);
    check_subfields(item);
}

} // namespace

void run(Input input) {
    const ast_dataitem_t item = take_item(input);
    require(ast_dataitem_get_name(item.type) != nullptr, "an item has no name");
    check_item(item);
    if (item.valid) check_copy(item);

    // The same octets under a type that may not suit them, as an application may put them together.
    const Octets octets = input.rest();
    check_item({.data = octets.data(), .size = octets.size(), .type = item.type, .valid = true, .following = 0});
}

} // namespace ast_fuzz
