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

// Every piece of a view is read whole.
void check_details(const ast_dataitem_t &item) {
    static constexpr auto read = [](void *sum, const ast_detail_text_t *texts, uint64_t count) {
        for (uint64_t i = 0; i < count; ++i)
            for (uint32_t at = 0; at < texts[i].size; ++at)
                *static_cast<uint64_t *>(sum) += static_cast<uint8_t>(texts[i].text[at]);
    };
    static constexpr ast_details_visitor_t kReader = {
        .title = read,
        .paragraph = read,
        .table_begin = read,
        .row = read,
        .link_row = [](void *sum, const ast_detail_text_t *cells, uint64_t count,
                       const ast_detail_link_t *) { read(sum, cells, count); },
        .bits =
            [](void *sum, const uint8_t *octets, uint64_t count) {
                for (uint64_t i = 0; i < count; ++i) *static_cast<uint64_t *>(sum) += octets[i];
            },
    };
    uint64_t sum = 0;
    ast_dataitem_get_details(&item, &kReader, &sum);
    for (uint32_t number = 0; number <= ast_dataitem_subfields_get_number(item.type); ++number)
        ast_subfield_get_details(&item, AST_SUBFIELD_TYPE(item.type, number), &kReader, &sum);
    require(sum < UINT32_MAX, "the details of an item are endless");
}

void check_views(const ast_dataitem_t &item) {
    check_details(item);
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
