// Records as JSON and back. The input chooses a category and a profile; the octets of a record follow, or a JSON text.

#include <algorithm>
#include <string>
#include <string_view>

#include "harness.hpp"
#include "records.hpp"

namespace ast_fuzz {

namespace {

// What the header calls ample, and no more.
size_t ample_capacity(const ast_datarecord_t &record, std::string_view line) {
    uint64_t octets = record.fspec.length;
    for (uint64_t i = 0; i < record.item_count; ++i) octets += record.items[i].size;
    return 1024 + 256 * octets + 6 * line.size();
}

std::string json_of(const ast_datarecord_t &record, bool with_texts) {
    const ast_json_line_t line{.file = "a\"\xFF", .block = 1, .record = 1, .texts = with_texts};
    std::string text(1024, '#');
    const uint64_t needed = ast_datarecord_to_json(text.data(), text.size(), &record, &line);
    text.assign(needed + 1, '#');
    require(ast_datarecord_to_json(text.data(), text.size(), &record, &line) == needed, "the size of a line changes");
    require(strnlen(text.data(), text.size()) == needed, "a line is not as long as was said");
    std::string ample(std::max(needed + 1, ample_capacity(record, line.file)), '#'); // the fast way
    require(ast_datarecord_to_json(ample.data(), ample.size(), &record, &line) == needed, "the ways differ in size");
    require(std::memcmp(ample.data(), text.data(), needed) == 0, "the ways differ");
    text.pop_back();
    return text;
}

// A text that is not written as lines are is read in another way.
void require_same_with_a_blank(std::string json, const std::vector<uint8_t> &octets) {
    constexpr std::string_view kKey = "\"category\"";
    const size_t place = json.find(kKey);
    if (place == std::string::npos) return;
    json.insert(place + kKey.size(), " ");
    std::vector<uint8_t> buffer = buffer_of(octets.size());
    const ast_json_result_t result = ast_datarecord_from_json(buffer.data(), buffer.size(), json.data(), json.size());
    require(result.valid && result.size == octets.size(), "the ways of reading differ");
    require(same_octets(buffer.data(), octets.data(), octets.size()), "the ways of reading differ in octets");
}

std::vector<uint8_t> octets_of(const std::string &json) {
    const ast_json_result_t needed = ast_datarecord_from_json(nullptr, 0, json.data(), json.size());
    std::vector<uint8_t> buffer = buffer_of(needed.size);
    const ast_json_result_t result = ast_datarecord_from_json(buffer.data(), buffer.size(), json.data(), json.size());
    require(result.valid, "what was written as JSON is not read");
    require_untouched_behind(buffer, result.size);
    buffer.resize(result.size);
    require_same_with_a_blank(json, buffer);
    return buffer;
}

void require_back(const ast_datarecord_t &record, bool with_texts) {
    const std::vector<uint8_t> back = octets_of(json_of(record, with_texts));
    require(back.size() == record.size && same_octets(back.data(), record.data, record.size),
            "a record does not come back from its JSON");
}

const ast_uap_t &profile_at(uint8_t place) { return *profiles()[place % profiles().size()]; }

// A profile that announces a type twice: which one it is cannot be told when the first is missing.
bool is_unclear(const ast_datarecord_t &record) {
    constexpr ast_dataitem_type_t kCustomFields[] = {1951, 2951};
    uint64_t count = 0;
    for (uint64_t i = 0; i < record.item_count; ++i)
        count += std::count(std::begin(kCustomFields), std::end(kCustomFields), record.items[i].type) != 0;
    return count == 1;
}

void check_record(const ast_uap_t &uap, uint32_t category, Octets octets, bool with_texts) {
    const ast_datarecord_t record = ast_datarecord_decode(octets.data(), octets.size(), category, uap);
    if (record.valid && !is_unclear(record)) require_back(record, with_texts);
}

// One item of any published type, by its published size.
void check_item(const ast_uap_t &uap, uint32_t category, uint32_t frn, Octets octets, bool with_texts) {
    const ast_dataitem_type_t type = uap.get_dataitem(category, frn);
    const uint64_t size = ast_dataitem_get_published_size(octets.data(), octets.size(), type, uap);
    require(size <= octets.size(), "an item is longer than what is available");
    if (size == 0) return;
    ast_datarecord_t record{};
    record.category = category;
    record.uap = uap;
    record.items[0] = {octets.data(), size, type, true, 0};
    record.item_count = 1;
    const std::vector<uint8_t> back = octets_of(json_of(record, with_texts));
    require(back.size() > size && same_octets(back.data() + (back.size() - size), octets.data(), size),
            "an item does not come back from its JSON");
    const auto nothing = [](void *, const ast_field_value_t *value) {
        require(value->field && value->field->path && value->text, "a value has no path or no text");
    };
    ast_dataitem_walk(&record.items[0], uap, 0, nothing, nullptr);
}

// What is read is read again from what it came to.
void check_text(Octets text) {
    std::vector<uint8_t> buffer = buffer_of(1 << 12);
    const auto *const chars = reinterpret_cast<const char *>(text.data());
    const ast_json_result_t result = ast_datarecord_from_json(buffer.data(), buffer.size(), chars, text.size());
    require(result.valid == (result.error == nullptr), "what is wrong is not said");
    require(result.position <= text.size(), "a fault is behind the text");
    // Octets that stand beside values are looked at in the buffer: behind the result it may be written.
    if (!result.valid || result.is_data) return;
    const ast_datarecord_t record = ast_datarecord_decode(buffer.data(), result.size, result.category, result.uap);
    if (record.valid && record.size == result.size) require_back(record, false);
}

} // namespace

void run(Input input) {
    const uint8_t what = input.octet();
    const bool with_texts = (what & 4) != 0;
    if (what % 4 == 0) return check_text(input.rest());
    const uint32_t category = input.octet();
    const uint8_t profile = input.octet();
    if (what % 4 == 1) return check_record(profile_at(profile), category, input.rest(), with_texts);
    const ast_uap_t &uap = profile % 2 ? AST_UAP_PUBLISHED : AST_UAP_PUBLISHED_OTHER;
    check_item(what % 4 == 2 ? uap : profile_at(profile), category, input.octet() % 64U, input.rest(), with_texts);
}

} // namespace ast_fuzz
