// Encoding, and decoding what was written. The input chooses items and fills their value records.

#include <algorithm>
#include <array>

#include "harness.hpp"
#include "value_decoders.hpp"

namespace ast_fuzz {

namespace {

struct Encodable {
    ast_dataitem_type_t type;
    const ValueFunctions *value;
};

std::vector<Encodable> find_encodable() {
    std::vector<Encodable> found;
    for (const ast_dataitem_type_t type : registered_items()) {
        const Encoder encode = ast_dataitem_get_func(type).encode;
        if (!encode) continue;
        const auto value = std::ranges::find(kValues, encode, &ValueFunctions::encode);
        require(value != std::end(kValues), "an encoder is not listed");
        found.push_back({type, value});
    }
    return found;
}

std::span<const Encodable> encodable() {
    static const std::vector<Encodable> found = find_encodable();
    return found;
}

std::span<const Encodable> encodable_of(uint32_t category) {
    const auto is_before = [](uint32_t limit) { return [=](const Encodable &item) { return item.type < limit; }; };
    const auto all = encodable();
    const auto first = std::ranges::partition_point(all, is_before(AST_DATAITEM_TYPE(category, 0)));
    return {first, std::ranges::partition_point(all, is_before(AST_DATAITEM_TYPE(category + 1, 0)))};
}

// Encodes one value into buffers of every length up to a few octets more than it needs.
void check_item(Input input) {
    const Encodable &item = encodable()[input.below(encodable().size())];
    AnyValue filled;
    item.value->fill(filled, input);
    for (uint64_t length = 0; length <= 16; ++length) {
        AnyValue value = filled;
        const ast_dataitem_src_t source{item.type, &value};
        std::vector<uint8_t> buffer = buffer_of(length);
        const ast_dataitem_t written = ast_dataitem_encode(buffer.data(), length, &source);
        if (!written.valid) {
            require_untouched_behind(buffer, 0);
            continue;
        }
        require_untouched_behind(buffer, written.size);
        const ast_dataitem_t decoded = ast_dataitem_decode(buffer.data(), written.size, item.type);
        require(decoded.valid && decoded.size == written.size, "an encoded item does not decode");
        require(item.value->decodes(&decoded), "an encoded item has no value");
    }
}

constexpr size_t kMaxItems = 8;

struct Values {
    std::array<AnyValue, kMaxItems> storage;
    ast_datarecord_src_t source{};
};

// A record of some items of the category that can be encoded, which may occur more than once.
void fill_record(Values &values, Input &input, uint32_t category, ast_uap_t uap) {
    const std::span<const Encodable> choice = encodable_of(category);
    values.source.category = category;
    values.source.uap = uap;
    if (choice.empty()) return;
    values.source.item_count = input.below(kMaxItems + 1);
    for (uint64_t i = 0; i < values.source.item_count; ++i) {
        const Encodable &item = choice[input.below(choice.size())];
        item.value->fill(values.storage[i], input);
        values.source.items[i] = {item.type, &values.storage[i]};
    }
}

uint64_t announced(const ast_datarecord_t &record, const ast_datarecord_src_t &source) {
    return static_cast<uint64_t>(std::count_if(record.items, record.items + record.item_count, [&](const auto &item) {
        return std::any_of(source.items, source.items + source.item_count,
                           [&](const auto &given) { return given.type == item.type; });
    }));
}

void check_record(Input input) {
    const uint32_t category = categories()[input.below(categories().size())];
    const ast_uap_t uap = take_profile(input);
    const uint64_t length = input.octet();
    Values values;
    fill_record(values, input, category, uap);
    std::vector<uint8_t> buffer = buffer_of(length);
    const ast_datarecord_t written = ast_datarecord_encode(buffer.data(), length, &values.source);
    if (!written.valid) return;
    require_untouched_behind(buffer, written.size);
    const ast_datarecord_t decoded = ast_datarecord_decode(buffer.data(), written.size, category, uap);
    require(decoded.valid && decoded.size == written.size, "an encoded record does not decode");
    require(announced(decoded, values.source) == decoded.item_count, "an encoded record holds items of its own");
}

void check_block(Input input) {
    static ast_datablock_src_t source; // large, as is the block
    static ast_datablock_t block;
    static std::array<Values, 3> values;
    source = {};
    source.category = categories()[input.below(categories().size())];
    source.uap = take_profile(input);
    const uint64_t length = input.octet();
    source.record_count = input.below(values.size() + 1);
    for (uint64_t i = 0; i < source.record_count; ++i) {
        fill_record(values[i], input, source.category, source.uap);
        source.records[i] = values[i].source;
    }
    std::vector<uint8_t> buffer = buffer_of(length);
    block = ast_datablock_encode(buffer.data(), length, &source);
    if (!block.valid) return;
    require_untouched_behind(buffer, block.length);
    block = ast_datablock_decode(buffer.data(), block.length, source.uap);
    require(block.valid && block.record_count == source.record_count, "an encoded block does not decode");
}

// Whether an item announces a subfield that the record is too short for: the octets that come to stand behind it may
// complete that.
bool has_cut_subfield(const ast_dataitem_t &item) {
    const ast_subfields_t decoded = ast_dataitem_subfields_decode(&item);
    return std::any_of(decoded.subfields, decoded.subfields + decoded.subfield_count,
                       [](const ast_subfield_t &subfield) { return subfield.present && subfield.size == 0; });
}

// New values for items that a decoded record may or may not have.
void check_modified(Input input) {
    const uint32_t category = categories()[input.below(categories().size())];
    const ast_uap_t uap = take_profile(input);
    const uint64_t length = input.octet();
    Values values;
    fill_record(values, input, category, uap);
    ast_dataitem_src_list_t replacements{};
    std::ranges::copy(values.source.items, replacements.items);
    replacements.item_count = values.source.item_count;
    const Octets octets = input.rest();
    const ast_datarecord_t first = ast_datarecord_decode(octets.data(), octets.size(), category, uap);
    // Without what follows it: an extended item may owe its size to that.
    const ast_datarecord_t record = ast_datarecord_decode(octets.data(), first.size, category, uap);
    if (std::any_of(record.items, record.items + record.item_count, has_cut_subfield)) return;
    std::vector<uint8_t> buffer = buffer_of(length);
    const ast_datarecord_t modified = ast_datarecord_modify(buffer.data(), length, &record, &replacements);
    if (!modified.valid) return;
    require_untouched_behind(buffer, modified.size);
    const ast_datarecord_t decoded = ast_datarecord_decode(buffer.data(), modified.size, category, uap);
    require(decoded.valid && decoded.size == modified.size && decoded.item_count == record.item_count,
            "a modified record does not decode");
}

void check_flat(Input input) {
    const FlatRecord &flat = kFlatRecords[input.below(std::size(kFlatRecords))];
    const ast_uap_t uap = take_profile(input);
    std::vector<uint8_t> buffer = buffer_of(input.octet());
    const ast_datarecord_t written = flat.assemble(input, buffer.data(), buffer.size(), uap);
    if (!written.valid) return;
    require_untouched_behind(buffer, written.size);
    const ast_datarecord_t decoded = ast_datarecord_decode(buffer.data(), written.size, written.category, uap);
    require(decoded.valid && decoded.size == written.size, "an assembled record does not decode");
}

constexpr void (*kSubjects[])(Input input) = {check_item, check_record, check_block, check_modified, check_flat};

} // namespace

void run(Input input) {
    const auto subject = kSubjects[input.octet() % std::size(kSubjects)];
    subject(input);
}

} // namespace ast_fuzz
