// Counting blocks without taking their records apart: of records whose FSPECs announce the same, the octets of items of
// fixed sizes are added up once.

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "reader/choice.hpp"
#include "reader/sources.hpp"

namespace {

using namespace ast;
using namespace ast::reader;

using Group = ast_census_group_t;
using Shape = ast_census_shape_t;
using Step = ast_census_step_t;

// ---- Shapes ----

constexpr unsigned kPlaceBits = 10;
static_assert(size_t{1} << kPlaceBits == AST_CENSUS_SHAPES);
constexpr size_t kMostShapes = AST_CENSUS_SHAPES * 3 / 4; // so that an empty place is near
constexpr size_t kMostSteps = AST_DATARECORD_MAX_ITEMS;   // of one shape

size_t place_of(const SlotsByBit &layout, uint64_t fspec) {
    constexpr uint64_t kGoldenRatio = 0x9E3779B97F4A7C15;
    return static_cast<size_t>((fspec ^ reinterpret_cast<uintptr_t>(&layout)) * kGoldenRatio >> (64 - kPlaceBits));
}

Step step_of(const Reading &reading, unsigned bit) {
    const Slot &slot = reading.slots->slots[bit];
    const Compound *const compound = reading.own->rows[slot.place].compound;
    const bool has_sums = slot.kind == SizeRule::Kind::Subfields;
    return {.sums = has_sums ? compound->sums : nullptr,
            .octets = static_cast<uint16_t>(has_sums ? compound->sums_count : slot.other_octets()),
            .kind = static_cast<uint8_t>(slot.kind),
            .bit = static_cast<uint8_t>(bit)};
}

void lay_out(ast_census_t &census, Shape &shape, const Reading &reading, uint64_t fspec) {
    shape = {.layout = reading.slots, .fspec = fspec, .first_step = static_cast<uint16_t>(census.step_count)};
    for (uint64_t announced = announced_by(fspec); announced != 0; announced &= announced - 1) {
        const auto bit = static_cast<unsigned>(std::countr_zero(announced));
        const int16_t octets = reading.slots->slots[bit].octets;
        ++shape.item_count;
        if (octets >= 0) {
            shape.fixed_octets = static_cast<uint16_t>(shape.fixed_octets + octets);
            continue;
        }
        Step &step = census.steps[census.step_count++];
        step = step_of(reading, bit);
        step.fixed_octets = std::exchange(shape.fixed_octets, uint16_t{0});
        ++shape.step_count;
    }
}

// Null for what cannot be a shape, or has no room.
[[gnu::noinline]] Shape *add_shape(ast_census_t &census, Shape &shape, const Reading &reading, uint64_t fspec) {
    const uint64_t announced = announced_by(fspec);
    const bool is_known = announced != 0 && (announced & reading.slots->unknown) == 0;
    if (!is_known || std::popcount(announced) > AST_DATARECORD_MAX_ITEMS) return nullptr;
    if (census.shape_count == kMostShapes || census.step_count + kMostSteps > AST_CENSUS_STEPS) return nullptr;
    ++census.shape_count;
    lay_out(census, shape, reading, fspec);
    return &shape;
}

// That of a record, new unless it is known. Null as above.
Shape *find_shape(ast_census_t &census, const Reading &reading, uint64_t fspec) {
    for (size_t place = place_of(*reading.slots, fspec);; ++place) {
        Shape &shape = census.shapes[place % AST_CENSUS_SHAPES];
        if (shape.fspec == fspec && shape.layout == reading.slots) [[likely]]
            return &shape;
        if (!shape.layout) return add_shape(census, shape, reading, fspec);
    }
}

// ---- Records ----

// Whoever splits the record is told why it breaks off.
struct Nobody {
    static void break_off(uint32_t, const uint8_t *, uint32_t, ast_dataitem_type_t) {}
};

uint64_t plain_size(const Step &step, const uint8_t *data, uint64_t left) {
    if (left == 0) return 0;
    const auto *const sums = static_cast<const SubfieldSums *>(step.sums);
    if (sums) return summed_size(sums, step.octets, data, left);
    return plain_size(static_cast<SizeRule::Kind>(step.kind), step.octets, data, left);
}

// 0 where the record breaks off.
uint64_t size_of(const Step &step, const Reading &reading, const uint8_t *data, uint64_t left) {
    const uint64_t size = plain_size(step, data, left);
    if (size - 1 < left) [[likely]] // neither 0 nor more than there is
        return size;
    Nobody nobody;
    return reported_size(reading, step.bit, data, left, nobody);
}

// The end of the items of a record, or null when it breaks off.
const uint8_t *behind_items(const ast_census_t &census, const Shape &shape, const Reading &reading, const uint8_t *data,
                            uint64_t left) {
    const Step *const first = census.steps + shape.first_step;
    for (const Step *step = first; step != first + shape.step_count; ++step) {
        if (step->fixed_octets > left) return nullptr;
        data += step->fixed_octets;
        left -= step->fixed_octets;
        const uint64_t size = size_of(*step, reading, data, left);
        if (size == 0) return nullptr;
        data += size;
        left -= size;
    }
    return shape.fixed_octets <= left ? data + shape.fixed_octets : nullptr;
}

struct Counts {
    uint64_t records = 0;
    uint64_t items = 0;
};

// Adds the records of a block to their shapes, `by` for each, up to an offset or to the first one that cannot be
// counted, and returns where that stands.
template <typename Choose>
uint64_t add_records(ast_census_t &census, const Block &block, uint64_t end, Choose choose, uint64_t by,
                     Counts &counts) {
    const auto take = [&](const uint8_t *data, uint64_t left, const Reading &reading) -> uint64_t {
        const FspecOctets fspec = read_fspec_octets(data, left);
        Shape *const shape = find_shape(census, reading, fspec.word);
        if (!shape) return 0;
        const uint8_t *const behind = behind_items(census, *shape, reading, data + fspec.count, left - fspec.count);
        if (!behind) return 0;
        shape->records += by;
        ++counts.records;
        counts.items += shape->item_count;
        return static_cast<uint64_t>(behind - data);
    };
    return walk_records(block.data, end, block.available, choose, take);
}

// Whether a block could be counted; if not, it is as if nothing of it had been.
bool add_block(ast_census_t &census, Group &group, const Block &block, const auto &choice) {
    Counts counts;
    const uint64_t end = add_records(census, block, block.length, chooser(choice), 1, counts);
    if (end != block.length) {
        constexpr uint64_t kOneLess = UINT64_MAX;
        add_records(census, block, std::min(end, block.length), chooser(choice), kOneLess, counts);
        return false;
    }
    ++group.blocks;
    group.records += counts.records;
    group.items += counts.items;
    group.octets += block.length;
    return true;
}

// ---- Blocks ----

// Null where there is no room.
Group *find_group(ast_census_t &census, uint32_t category, const Candidate &candidate, bool is_ambiguous) {
    const Description description = description_of(candidate, category);
    for (uint64_t i = 0; i < census.group_count; ++i) {
        Group &group = census.groups[i];
        if (group.category == category && group.uap == description.uap && group.ambiguous == is_ambiguous)
            return &group;
    }
    if (census.group_count == AST_CENSUS_GROUPS) return nullptr;
    return &(census.groups[census.group_count++] = {.category = category,
                                                    .ambiguous = is_ambiguous,
                                                    .uap = description.uap,
                                                    .profile = description.profile,
                                                    .edition = description.edition});
}

// How the blocks of a source are read, or those of any source of a category of which none is known.
struct Way {
    uint32_t category;
    Mask leading;               // none where nothing fitted
    const Candidate *candidate; // null where that is not settled
    Group *group;               // null where there is no room
    Reading reading;            // of a candidate that is not mixed
};

// What the blocks of one call have in common is looked up once.
class Counter {
public:
    Counter(const ast_reader_t &reader, ast_census_t &census) : reader_(reader), census_(census) {}

    // Whether a block could be counted.
    bool count(const Block &block) {
        const Way &way = way_of(block);
        if (!way.group) return false;
        if (!way.candidate->is_mixed) return add_block(census_, *way.group, block, way.reading);
        return with_choice(*way.candidate, way.category,
                           [&](const auto &choice) { return add_block(census_, *way.group, block, choice); });
    }

private:
    static constexpr size_t kWays = 8;

    Way find_way(uint32_t category, const Source *known, Mask leading) const {
        static constexpr Source kUnknown{};
        const Candidates candidates = candidates_for(&reader_, category).candidates;
        const auto [tried, is_settled] = first_tried(known ? *known : kUnknown, candidates, false);
        const Candidate &candidate = candidates[first_of(tried)];
        const bool is_ambiguous = !std::has_single_bit(tried);
        return {.category = category,
                .leading = leading,
                .candidate = is_settled ? &candidate : nullptr,
                .group = is_settled ? find_group(census_, category, candidate, is_ambiguous) : nullptr,
                .reading = reading_of(candidate, category)};
    }

    const Way &way_of(const Block &block) {
        const Source *const known = find_known(reader_, block);
        const Mask leading = known && known->blocks != 0 ? leading_of(*known) : 0;
        std::optional<Way> &way = ways_[block.category() % kWays];
        if (!way || way->category != block.category() || way->leading != leading)
            way.emplace(find_way(block.category(), known, leading));
        return *way;
    }

    const ast_reader_t &reader_;
    ast_census_t &census_;
    std::array<std::optional<Way>, kWays> ways_; // by category
};

} // namespace

// The shapes are kept as long as they leave room for others.
void ast_census_clear(ast_census_t *census) {
    if (!census) return;
    census->group_count = 0;
    const bool is_crowded = census->shape_count > kMostShapes / 2 || census->step_count > AST_CENSUS_STEPS / 2;
    if (is_crowded) census->shape_count = census->step_count = 0;
    for (Shape &shape : census->shapes)
        if (is_crowded)
            shape = {};
        else
            shape.records = 0;
}

uint64_t ast_reader_count(const ast_reader_t *reader, ast_census_t *census, const uint8_t *data, uint64_t available) {
    if (!reader || !reader->frozen || !census || !data) return 0;
    Counter counter(*reader, *census);
    uint64_t offset = 0;
    while (available - offset >= kBlockHeaderOctets) {
        const uint64_t length = read_u16(data + offset + 1);
        if (length < kBlockHeaderOctets || length > available - offset) break;
        if (!counter.count({data + offset, length, length})) break;
        offset += length;
    }
    return offset;
}

void ast_census_get_items(const ast_census_t *census, ast_census_visitor_t visit, void *context) {
    if (!census || !visit) return;
    for (const Shape &shape : census->shapes) {
        if (shape.records == 0) continue;
        const auto &layout = *static_cast<const SlotsByBit *>(shape.layout);
        for (uint64_t announced = announced_by(shape.fspec); announced != 0; announced &= announced - 1)
            visit(context, layout.slots[static_cast<size_t>(std::countr_zero(announced))].type, shape.records);
    }
}
