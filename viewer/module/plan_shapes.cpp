#include "module/plan_shapes.hpp"

#include <algorithm>
#include <bit>
#include <initializer_list>

namespace ast::recording::astdump {

namespace {

constexpr uint32_t kWeather = 8;
constexpr uint32_t kVideo = 240;

enum Shape : uint32_t { picture, scale, polar, directed, pairs, contour, cells };

// The words of a shape; values that follow are counted.
class Writer {
public:
    Writer(std::vector<uint32_t> &words, uint32_t row) : words_(words), row_(row) {}

    void put(Shape shape, std::initializer_list<uint32_t> members) {
        words_.insert(words_.end(), {row_, shape});
        words_.insert(words_.end(), members);
    }

    void put(int32_t value) { words_.push_back(static_cast<uint32_t>(value)); }
    void put(uint32_t value) { words_.push_back(value); }

private:
    std::vector<uint32_t> &words_;
    uint32_t row_;
};

const ast_dataitem_t *find_item(const ast_datarecord_t &record, uint32_t number) {
    const ast_dataitem_type_t type = AST_DATAITEM_TYPE(record.category, number);
    const auto *const end = record.items + record.item_count;
    const auto *const found = std::find_if(record.items, end, [&](const auto &item) { return item.type == type; });
    return found == end ? nullptr : found;
}

// ---- weather, category 008 ----

void put_polar_vectors(Writer &out, const ast_dataitem_t &item, uint32_t intensity) {
    const auto value = ast_dataitem_008_034_decode(&item);
    if (!value.valid) return;
    out.put(polar, {intensity, value.count});
    for (uint32_t i = 0; i < value.count; ++i) {
        out.put(value.vectors[i].start_range);
        out.put(value.vectors[i].end_range);
        out.put(value.vectors[i].azimuth_raw);
    }
}

void put_directed_vectors(Writer &out, const ast_dataitem_t &item, uint32_t intensity, uint32_t direction) {
    const auto value = ast_dataitem_008_036_decode(&item);
    if (!value.valid) return;
    out.put(directed, {intensity, direction, value.count});
    for (uint32_t i = 0; i < value.count; ++i) {
        out.put(value.vectors[i].x);
        out.put(value.vectors[i].y);
        out.put(value.vectors[i].length);
    }
}

void put_vector_pairs(Writer &out, const ast_dataitem_t &item, uint32_t intensity) {
    const auto value = ast_dataitem_008_038_decode(&item);
    if (!value.valid) return;
    out.put(pairs, {intensity, value.count});
    for (uint32_t i = 0; i < value.count; ++i)
        for (const int32_t coordinate :
             {value.vectors[i].x1, value.vectors[i].y1, value.vectors[i].x2, value.vectors[i].y2})
            out.put(coordinate);
}

void put_contour(Writer &out, const ast_dataitem_t &item, const ast_dataitem_008_040_t &identifier) {
    const auto value = ast_dataitem_008_050_decode(&item);
    if (!value.valid) return;
    out.put(contour, {identifier.intensity, identifier.fst_lst, identifier.csn, value.count});
    for (uint32_t i = 0; i < value.count; ++i) {
        out.put(value.points[i].x);
        out.put(value.points[i].y);
    }
}

void put_weather(Writer out, const ast_datarecord_t &record) {
    constexpr uint32_t kStartOfPicture = 254;
    const auto type = ast_dataitem_message_type_decode(find_item(record, 0));
    if (type.valid && type.value == kStartOfPicture) out.put(picture, {});
    const auto status = ast_dataitem_008_100_decode(find_item(record, 100));
    if (status.valid) out.put(scale, {static_cast<uint32_t>(status.f)});
    const auto qualifier = ast_dataitem_008_020_decode(find_item(record, 20));
    const auto identifier = ast_dataitem_008_040_decode(find_item(record, 40));
    if (const auto *const item = find_item(record, 34)) put_polar_vectors(out, *item, qualifier.intensity);
    if (const auto *const item = find_item(record, 36))
        put_directed_vectors(out, *item, qualifier.intensity, qualifier.dir_raw);
    if (const auto *const item = find_item(record, 38)) put_vector_pairs(out, *item, qualifier.intensity);
    if (const auto *const item = find_item(record, 50)) put_contour(out, *item, identifier);
}

// ---- radar video, category 240 ----

struct Cells {
    const uint8_t *octets;
    uint64_t octet_count;
    uint32_t bits; // of a cell

    uint64_t count() const { return octet_count * 8 / bits; }

    // In parts of 255 of the full scale. Cells of several octets count by their first.
    uint32_t amplitude(uint64_t cell) const {
        if (bits >= 8) return octets[cell * (bits / 8)];
        const uint64_t bit = cell * bits;
        const uint32_t full = (uint32_t{1} << bits) - 1;
        return (octets[bit / 8] >> (8 - bits - bit % 8) & full) * 255 / full;
    }
};

// The block of cells of a record, without what I240/049 says is only there to fill it; nothing where they are
// compressed, in a way that is the application's.
Cells find_cells(const ast_datarecord_t &record) {
    const auto resolution = ast_dataitem_240_048_decode(find_item(record, 48));
    const ast_dataitem_t *item = nullptr;
    for (const uint32_t number : {50U, 51U, 52U})
        if (!item) item = find_item(record, number);
    if (!item || item->size == 0 || !resolution.valid || resolution.dci) return {nullptr, 0, 8};
    Cells cells{item->data + 1, item->size - 1, ast_video_resolution_get_bits(resolution.res)};
    const auto counters = ast_dataitem_240_049_decode(find_item(record, 49));
    if (counters.valid) cells.octet_count = std::min<uint64_t>(cells.octet_count, counters.valid_octets);
    return cells;
}

ast_dataitem_240_040_t find_header(const ast_datarecord_t &record) {
    const auto header = ast_dataitem_240_040_decode(find_item(record, 40));
    return header.valid ? header : ast_dataitem_240_041_decode(find_item(record, 41));
}

void put_video(Writer out, const ast_datarecord_t &record) {
    constexpr double kMetresPerSecond = 299792458.0; // there and back
    const auto header = find_header(record);
    const Cells found = find_cells(record);
    const auto count = static_cast<uint32_t>(found.count());
    if (!header.valid || count == 0) return;
    const auto length_m = static_cast<float>(header.cell_duration_s * kMetresPerSecond / 2);
    out.put(cells, {header.start_azimuth_raw, header.end_azimuth_raw, header.start_range,
                    std::bit_cast<uint32_t>(length_m), count});
    for (uint32_t cell = 0; cell < count; cell += 4) {
        uint32_t word = 0;
        for (uint32_t i = 0; i < 4 && cell + i < count; ++i) word |= found.amplitude(cell + i) << (8 * i);
        out.put(word);
    }
}

} // namespace

void put_shapes(std::vector<uint32_t> &words, uint32_t row, const ast_datarecord_t &record) {
    if (record.category == kWeather) put_weather({words, row}, record);
    if (record.category == kVideo) put_video({words, row}, record);
}

} // namespace ast::recording::astdump
