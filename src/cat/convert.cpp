// Target reports and service messages of radars, from the categories of today to those of old displays, and back.

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <iterator>

#include "core/bits.hpp"
#include "items/octet_chain.hpp"
#include "items/units.hpp"
#include "query/find.hpp"

using namespace ast;

namespace {

// ---- The record that is made ----

// Collects items in any order, and puts them together by their profile. What does not become an item is left out.
class Draft {
public:
    Draft(uint32_t category, const ast_uap_t &uap) {
        record_.category = category;
        record_.uap = uap;
    }

    // Takes over the octets of an item of the source as an item of another type, when they are just that.
    void copy(const ast_dataitem_t *item, ast_dataitem_type_t type) {
        if (!is_readable(item)) return;
        const ast_dataitem_t same = ast_dataitem_decode(item->data, item->size, type);
        if (same.valid && same.size == item->size) add(same);
    }

    template <typename Value>
    void encode(ast_dataitem_type_t type, Value value) {
        const ast_dataitem_src_t source{type, &value};
        made(ast_dataitem_encode(octets_ + used_, sizeof octets_ - used_, &source));
    }

    void write(ast_dataitem_type_t type, const uint8_t *octets, uint64_t size) {
        const ast_dataitem_t item{.data = octets, .size = size, .type = type, .valid = true};
        made(ast_dataitem_copy(octets_ + used_, sizeof octets_ - used_, &item));
    }

    ast_datarecord_t put(uint8_t *buffer, uint64_t length) {
        uint8_t fspec[kMostFspecOctets];
        const uint64_t fspec_octets = sort(fspec);
        if (record_.item_count == 0) {
            record_.data = buffer;
            return record_;
        }
        record_.fspec = ast_fspec_decode(fspec, fspec_octets);
        record_.size = fspec_octets;
        for (uint64_t i = 0; i < record_.item_count; ++i) record_.size += record_.items[i].size;
        record_.valid = true;
        const ast_datarecord_t copy = ast_datarecord_copy(buffer, length, &record_);
        return copy.valid ? ast_datarecord_decode(buffer, copy.size, copy.category, copy.uap) : copy;
    }

private:
    static constexpr uint64_t kMostFspecOctets = 5;
    static constexpr uint32_t kFrnsOfAnOctet = 7;
    static constexpr uint64_t kMostMadeOctets = 64;

    void add(const ast_dataitem_t &item) {
        if (count_ < std::size(items_)) items_[count_++] = item;
    }

    void made(const ast_dataitem_t &item) {
        if (!item.valid) return;
        used_ += item.size;
        add(item);
    }

    // Enters the items into the record in the order of their FRNs, and announces them. Returns the octets of that.
    uint64_t sort(uint8_t (&fspec)[kMostFspecOctets]) {
        constexpr uint32_t kMostFrns = kMostFspecOctets * kFrnsOfAnOctet;
        const uint32_t max_frn = std::min(ast_uap_max_frn(&record_.uap, record_.category), kMostFrns);
        uint64_t octets = 0;
        for (uint32_t frn = 1; frn <= max_frn; ++frn) {
            const ast_dataitem_type_t type = ast_uap_get_dataitem(&record_.uap, record_.category, frn);
            const auto *const item =
                std::find_if(items_, items_ + count_, [&](const ast_dataitem_t &each) { return each.type == type; });
            if (item == items_ + count_) continue;
            while (octets < (frn - 1) / kFrnsOfAnOctet + 1) fspec[octets++] = kFx;
            ast_fspec_set(fspec, octets, frn, true);
            record_.items[record_.item_count++] = *item;
        }
        if (octets) fspec[octets - 1] = static_cast<uint8_t>(fspec[octets - 1] & ~kFx);
        return octets;
    }

    ast_datarecord_t record_{};
    ast_dataitem_t items_[AST_DATARECORD_MAX_ITEMS];
    uint64_t count_ = 0;
    uint8_t octets_[kMostMadeOctets];
    uint64_t used_ = 0;
};

// A conversion from records of one category to those of another, whose items `Fill` enters.
template <typename Fill>
ast_datarecord_t convert(uint8_t *buffer, uint64_t length, const ast_datarecord_t *source, uint32_t from, uint32_t to,
                         const ast_uap_t &uap, Fill fill) {
    Draft draft(to, uap);
    if (source && source->valid && source->category == from) fill(draft, source);
    return draft.put(buffer, length);
}

// ---- What both categories have ----

// Two items of one layout, of the newer category and of the older one.
struct SameLayout {
    ast_dataitem_type_t newer;
    ast_dataitem_type_t older;
};

constexpr SameLayout kSameInReports[] = {
    {48010, 1010}, {48050, 1050}, {48070, 1070}, {48080, 1080}, {48090, 1090}, {48100, 1100}, {48200, 1200},
};

constexpr SameLayout kSameInServices[] = {{34010, 2010}, {34020, 2020}, {34030, 2030}, {34041, 2041}};

template <size_t N>
void copy_same(Draft &draft, const ast_datarecord_t *source, const SameLayout (&pairs)[N],
               ast_dataitem_type_t SameLayout::*from, ast_dataitem_type_t SameLayout::*to) {
    for (const SameLayout &pair : pairs) draft.copy(first_item(source, pair.*from), pair.*to);
}

// One condition in I048/030 and in I001/030.
struct SameWarning {
    uint32_t newer;
    uint32_t older;
};

constexpr SameWarning kSameWarnings[] = {
    {1, 2},   // reflection
    {2, 3},   // side lobe
    {3, 4},   // split plot
    {4, 5},   // second time around
    {5, 6},   // angel
    {6, 7},   // road traffic
    {7, 80},  // fixed PSR plot
    {8, 81},  // slow PSR plot
    {9, 82},  // low quality PSR plot
    {10, 66}, // phantom SSR plot
    {11, 64}, // Mode 3/A code
    {12, 65}, // Mode C code
};

// Both decoders give the same record.
void convert_warnings(Draft &draft, const ast_dataitem_048_030_t &warnings, uint32_t SameWarning::*from,
                      uint32_t SameWarning::*to, ast_dataitem_type_t type) {
    uint32_t codes[AST_048_030_MAX_CODES];
    uint8_t octets[AST_048_030_MAX_CODES];
    uint64_t count = 0;
    for (uint32_t i = 0; warnings.valid && i < warnings.count; ++i)
        for (const SameWarning &warning : kSameWarnings)
            if (warning.*from == warnings.codes[i]) codes[count++] = warning.*to;
    if (count) draft.write(type, octets, write_chain(octets, codes, count));
}

constexpr double kKnotsPerMPerS = 3600 / kMetresPerNm;

// ---- I001/020 SSR/PSR, and I048/020 TYP below the Mode S reports ----

constexpr uint32_t kPsr = 1;
constexpr uint32_t kSsr = 2;
constexpr uint32_t kCombined = 3;

// ---- From 048 to 001 ----

// The special codes that a display of category 001 is told of in I001/020.
uint32_t special_code(const ast_datarecord_t *source) {
    constexpr uint32_t kUnlawfulInterference = 07500;
    constexpr uint32_t kCommunicationFailure = 07600;
    constexpr uint32_t kEmergency = 07700;
    const auto mode_3a = ast_dataitem_mode_3a_code_decode(first_item(source, 48070));
    if (!mode_3a.valid || mode_3a.not_validated || mode_3a.garbled) return 0;
    if (mode_3a.code == kUnlawfulInterference) return 1;
    if (mode_3a.code == kCommunicationFailure) return 2;
    return mode_3a.code == kEmergency ? 3 : 0;
}

void add_descriptor_001(Draft &draft, const ast_datarecord_t *source, bool is_track) {
    static constexpr uint32_t kDetections[] = {0, kPsr, kSsr, kCombined, kSsr, kSsr, kCombined, kCombined}; // by TYP
    const auto report = ast_dataitem_048_020_decode(first_item(source, 48020));
    draft.encode(1020, ast_dataitem_001_020_t{.valid = report.valid,
                                              .typ = is_track,
                                              .sim = report.sim,
                                              .ssr_psr = kDetections[report.typ],
                                              .ant = 1,
                                              .spi = report.spi,
                                              .rab = report.rab,
                                              .tst = report.tst,
                                              .ds1_ds2 = special_code(source),
                                              .me = report.me,
                                              .mi = report.mi});
}

void add_positions_001(Draft &draft, const ast_datarecord_t *source) {
    const auto polar = ast_dataitem_048_040_decode(first_item(source, 48040));
    draft.encode(
        1040, ast_dataitem_001_040_t{.valid = polar.valid, .rho_raw = polar.rho_raw / 2, .theta_raw = polar.theta_raw});
    const ast_dataitem_t *const item = first_item(source, 48042);
    if (!ast_dataitem_048_042_decode(item).valid) return;
    draft.encode(1042, ast_value_pair_t{.valid = true,
                                        .raw_1 = twos_complement(read_u16(item->data), 16) / 2,
                                        .raw_2 = twos_complement(read_u16(item->data + 2), 16) / 2});
}

// The first octet of a subfield, null without it.
const uint8_t *octets_of(const ast_datarecord_t *source, ast_dataitem_type_t type, uint64_t number) {
    const ast_dataitem_t *const item = first_item(source, type);
    if (!is_readable(item)) return nullptr;
    const ast_subfields_t subfields = ast_dataitem_subfields_decode(item);
    if (!subfields.valid || number > subfields.subfield_count) return nullptr;
    const ast_subfield_t &subfield = subfields.subfields[number - 1];
    return subfield.present && subfield.size > 0 ? subfield.data : nullptr;
}

constexpr unsigned kCalBits = 10; // I048/120 CAL, in metres per second
constexpr uint64_t kCal = 1;
constexpr uint64_t kSam = 3; // in I048/130, as PAM
constexpr uint64_t kPam = 5;

void add_signal_001(Draft &draft, const ast_datarecord_t *source) {
    const uint8_t *const cal = octets_of(source, 48120, kCal);
    if (cal && !bit(cal[0], 8))
        draft.encode(1120, ast_scaled_value_t{.valid = true,
                                              .value = twos_complement(read_u16(cal), kCalBits) * kKnotsPerMPerS});
    const uint8_t *const sam = octets_of(source, 48130, kSam);
    const uint8_t *const amplitude = sam ? sam : octets_of(source, 48130, kPam);
    if (amplitude) draft.write(1131, amplitude, 1);
}

void add_track_001(Draft &draft, const ast_datarecord_t *source, const ast_uint_value_t &number) {
    draft.encode(1161, number);
    const ast_dataitem_t *const item = first_item(source, 48170);
    const auto status = ast_dataitem_048_170_decode(item);
    if (!status.valid) return;
    const uint8_t second = item->size >= 2 ? item->data[1] : uint8_t{0};
    draft.encode(1170, ast_dataitem_001_170_t{.valid = true,
                                              .con = status.cnf,
                                              .rad = status.rad != kPsr,
                                              .man = status.man,
                                              .dou = status.dou,
                                              .rdpc = ast_dataitem_048_020_decode(first_item(source, 48020)).rdp,
                                              .gho = bit(second, 7),
                                              .tre = bit(second, 8)});
}

// ---- From 001 to 048 ----

// In the octets of the document, whose ME and MI the encoder of I048/020 puts elsewhere.
void add_descriptor_048(Draft &draft, const ast_dataitem_001_020_t &report, const ast_dataitem_001_170_t &status) {
    if (!report.valid) return;
    uint8_t octets[] = {
        static_cast<uint8_t>(placed(report.ssr_psr, 8, 6) | placed(report.sim, 5) | placed(status.rdpc == 2, 4) |
                             placed(report.spi, 3) | placed(report.rab, 2)),
        static_cast<uint8_t>(placed(report.tst, 8) | placed(report.me, 5) | placed(report.mi, 4)),
    };
    draft.write(48020, octets, chain_to_last(octets, std::size(octets)));
}

void add_positions_048(Draft &draft, const ast_datarecord_t *source) {
    constexpr unsigned kBits = 16;
    uint8_t octets[4];
    const auto polar = ast_dataitem_001_040_decode(first_item(source, 1040));
    write_u16(octets, polar.rho_raw * 2);
    write_u16(octets + 2, polar.theta_raw);
    if (polar.valid && fits(polar.rho_raw * 2, kBits)) draft.write(48040, octets, sizeof octets);
    const auto cartesian = ast_dataitem_001_042_decode(first_item(source, 1042));
    write_u16(octets, static_cast<uint32_t>(cartesian.raw_1 * 2));
    write_u16(octets + 2, static_cast<uint32_t>(cartesian.raw_2 * 2));
    if (cartesian.valid && fits_signed(cartesian.raw_1 * 2, kBits) && fits_signed(cartesian.raw_2 * 2, kBits))
        draft.write(48042, octets, sizeof octets);
}

void add_signal_048(Draft &draft, const ast_datarecord_t *source, const ast_dataitem_001_020_t &report) {
    constexpr int32_t kLeastCal = -512;
    constexpr int32_t kMostCal = 511;
    constexpr int32_t kRoundedBy = 4; // half a unit of I001/120, in metres per second
    const auto doppler = ast_dataitem_001_120_decode(first_item(source, 1120));
    const int32_t speed = rounded_units(doppler.value / kKnotsPerMPerS);
    const int32_t cal = std::clamp(speed, kLeastCal, kMostCal);
    if (doppler.valid && std::abs(speed - cal) <= kRoundedBy) {
        uint8_t octets[] = {placed(true, 8), 0, 0}; // CAL alone
        write_u16(octets + 1, bits(static_cast<uint32_t>(cal), kCalBits, 1));
        draft.write(48120, octets, sizeof octets);
    }
    const ast_dataitem_t *const power = first_item(source, 1131);
    if (!ast_dataitem_001_131_decode(power).valid) return;
    const bool is_primary = report.ssr_psr == kPsr;
    const uint8_t octets[] = {placed(true, 9 - static_cast<unsigned>(is_primary ? kPam : kSam)), power->data[0]};
    draft.write(48130, octets, sizeof octets);
}

void add_track_048(Draft &draft, const ast_datarecord_t *source, const ast_dataitem_001_020_t &report,
                   const ast_dataitem_001_170_t &status) {
    constexpr unsigned kNumberBits = 12;
    constexpr uint32_t kVerticalUnknown = 3;
    const auto number = ast_dataitem_track_number_decode(first_item(source, 1161));
    const bool is_plot = report.valid && report.typ == 0;
    if (!is_plot && fits(number.value, kNumberBits)) draft.encode(48161, number);
    if (!status.valid) return;
    const uint32_t rad = status.rad == 0 ? kPsr : report.ssr_psr == kCombined ? 0 : kSsr;
    uint8_t octets[] = {
        static_cast<uint8_t>(placed(status.con, 8) | placed(rad, 7, 6) | placed(status.dou, 5) | placed(status.man, 4) |
                             placed(kVerticalUnknown, 3, 2)),
        static_cast<uint8_t>(placed(status.tre, 8) | placed(status.gho, 7)),
    };
    draft.write(48170, octets, chain_to_last(octets, std::size(octets)));
}

// North markers and sector crossings have the same numbers in both categories. False for any other message.
bool copy_message_type(Draft &draft, const ast_datarecord_t *source, ast_dataitem_type_t from, ast_dataitem_type_t to) {
    constexpr uint32_t kLastSame = 2;
    const auto type = ast_dataitem_message_type_decode(first_item(source, from));
    const bool is_same = type.value >= 1 && type.value <= kLastSame;
    if (is_same) draft.encode(to, type);
    return is_same;
}

} // namespace

ast_datarecord_t ast_datarecord_convert_048_001(uint8_t *buffer, uint64_t length, const ast_datarecord_t *source) {
    const auto number = ast_dataitem_track_number_decode(first_item(source, 48161));
    const ast_uap_t &uap = number.valid ? AST_UAP_STANDARD : AST_UAP_CAT001_PLOT;
    return convert(buffer, length, source, 48, 1, uap, [&](Draft &draft, const ast_datarecord_t *from) {
        // Without a descriptor a reader takes a plot for a track: its range would be a track number.
        if (!ast_dataitem_048_020_decode(first_item(from, 48020)).valid) return;
        copy_same(draft, from, kSameInReports, &SameLayout::newer, &SameLayout::older);
        add_descriptor_001(draft, from, number.valid);
        convert_warnings(draft, ast_dataitem_048_030_decode(first_item(from, 48030)), &SameWarning::newer,
                         &SameWarning::older, 1030);
        add_positions_001(draft, from);
        add_signal_001(draft, from);
        const auto time = ast_dataitem_time_of_day_decode(first_item(from, 48140));
        draft.encode(1141, ast_scaled_value_t{.valid = time.valid, .raw = static_cast<int32_t>(bits(time.raw, 16, 1))});
        add_track_001(draft, from, number);
    });
}

ast_datarecord_t ast_datarecord_convert_001_048(uint8_t *buffer, uint64_t length, const ast_datarecord_t *source) {
    return convert(buffer, length, source, 1, 48, AST_UAP_STANDARD, [](Draft &draft, const ast_datarecord_t *from) {
        const auto report = ast_dataitem_001_020_decode(first_item(from, 1020));
        const auto status = ast_dataitem_001_170_decode(first_item(from, 1170));
        copy_same(draft, from, kSameInReports, &SameLayout::older, &SameLayout::newer);
        add_descriptor_048(draft, report, status);
        convert_warnings(draft, ast_dataitem_001_030_decode(first_item(from, 1030)), &SameWarning::older,
                         &SameWarning::newer, 48030);
        add_positions_048(draft, from);
        add_signal_048(draft, from, report);
        add_track_048(draft, from, report, status);
    });
}

ast_datarecord_t ast_datarecord_convert_034_002(uint8_t *buffer, uint64_t length, const ast_datarecord_t *source) {
    return convert(buffer, length, source, 34, 2, AST_UAP_STANDARD, [](Draft &draft, const ast_datarecord_t *from) {
        if (!copy_message_type(draft, from, 34000, 2000)) return;
        copy_same(draft, from, kSameInServices, &SameLayout::newer, &SameLayout::older);
    });
}

ast_datarecord_t ast_datarecord_convert_002_034(uint8_t *buffer, uint64_t length, const ast_datarecord_t *source) {
    return convert(buffer, length, source, 2, 34, AST_UAP_STANDARD, [](Draft &draft, const ast_datarecord_t *from) {
        copy_message_type(draft, from, 2000, 34000);
        copy_same(draft, from, kSameInServices, &SameLayout::older, &SameLayout::newer);
    });
}
