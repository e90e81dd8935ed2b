#include "report/facts.hpp"

#include <algorithm>
#include <iterator>

#include "base/time.hpp"
#include "report/detection.hpp"
#include "show/field_text.hpp"

namespace ast::recording::astdump {

namespace {

constexpr Family kFamilies[] = {
    {"radar", {1, 2, 8, 34, 48, 240}, true},
    {"multilateration", {10, 19, 20}, false},
    {"ADS-B", {21, 23}, false},
    {"tracker", {62, 63, 65}, false},
};

constexpr struct {
    std::string_view path;
    std::array<uint8_t, 8> by_code;
} kWith[] = {
    {"001/I020/SSRPSR", {0, kPrimary, kSecondary, kPrimary | kSecondary}},
    {"048/I020/TYP",
     {0, kPrimary, kSecondary, kPrimary | kSecondary, kModeS, kModeS, kModeS | kPrimary, kModeS | kPrimary}},
};

constexpr std::string_view kWarningPaths[] = {"001/I030", "048/I030"};
constexpr std::string_view kSectorPaths[] = {"002/I020", "034/I020"};

FieldPath known_path(std::string_view path) { return *FieldPath::read(path); }

// FNV-1a.
uint64_t digest_of(Octets octets) {
    uint64_t digest = 0xCBF29CE484222325;
    for (const uint8_t octet : octets) digest = (digest ^ octet) * 0x100000001B3;
    return digest;
}

} // namespace

const Family &family_of(uint32_t category) {
    static const auto alone = [] {
        std::array<Family, 256> families{};
        for (uint32_t each = 0; each < families.size(); ++each) families[each].categories[0] = each;
        return families;
    }();
    for (const Family &family : kFamilies)
        if (category != 0 && std::ranges::find(family.categories, category) != family.categories.end()) return family;
    return alone[category % alone.size()];
}

FactReader::FactReader() {
    for (const auto &[path, by_code] : kWith) with_.push_back({known_path(path), {by_code.begin(), by_code.end()}});
    for (const std::string_view path : kWarningPaths) warnings_.push_back(known_path(path));
    for (const std::string_view path : kSectorPaths) sectors_.push_back(known_path(path));
}

FamilySource FactReader::source_of(const ast_answers_t &answers) {
    const bool has_source = (answers.present & AST_ANSWER_SAC) != 0 && (answers.present & AST_ANSWER_SIC) != 0;
    return {.family = family_of(answers.category).categories[0],
            .sac = has_source ? answers.sac : 0,
            .sic = has_source ? answers.sic : 0,
            .has_source = has_source};
}

Fact FactReader::read(Answerer &answerer, const DecodedBlock &decoded) const {
    const ast_datarecord_t &record = answerer.record();
    const ast_answers_t &answers = answerer.answers();
    const auto &time = decoded.datagram->time;
    const auto reception_ns = time ? nanoseconds_of(*time) : std::nullopt;
    Fact fact{.source = source_of(answers),
              .category = record.category,
              .present = answers.present,
              .time_of_day_s = answers.time_of_day_s,
              .range_nm = answers.range_nm,
              .reception_ns = reception_ns.value_or(0),
              .octets = digest_of({record.data, static_cast<size_t>(record.size)}),
              .type = answers.type,
              .track_number = answers.track_number,
              .squawk = answers.squawk,
              .icao24 = answers.icao24,
              .has_reception = reception_ns.has_value(),
              .is_code_validated = answers.squawk_validated,
              .is_code_garbled = answers.squawk_garbled,
              .is_code_smoothed = answers.squawk_smoothed,
              .is_emergency = answers.emergency,
              .is_extrapolated = answers.coasted,
              .is_last = answers.ended,
              .is_implausible = ast_datarecord_is_implausible(&record)};
    for (const With &with : with_)
        with.path.each_value(record, [&](const ast_field_value_t &value) {
            if (value.raw < with.by_code.size()) fact.with = with.by_code[static_cast<size_t>(value.raw)];
        });
    for (const FieldPath &path : warnings_)
        path.each_value(record, [&](const ast_field_value_t &value) {
            if (value.raw < kWarnings) fact.warnings[value.raw / 64] |= uint64_t{1} << value.raw % 64;
        });
    for (const FieldPath &path : sectors_)
        path.each_value(record,
                        [&](const ast_field_value_t &value) { fact.sector = static_cast<uint32_t>(value.raw); });
    return fact;
}

std::string warning_text(uint32_t category, uint32_t code) {
    constexpr uint32_t kWarningItem = 30;
    struct Search {
        uint64_t code;
        TextBuffer found;
    } search{code, {}};
    const auto take = [](void *context, const ast_field_t *field) {
        auto &[wanted, found] = *static_cast<Search *>(context);
        if (field->kind != AST_FIELD_CODE || found.size() != 0) return;
        char text[256];
        ast_field_get_text(text, sizeof text, field, wanted);
        put_plain(found, text);
    };
    ast_dataitem_describe(AST_DATAITEM_TYPE(category, kWarningItem), AST_UAP_PUBLISHED, take, &search);
    return std::string(search.found.text());
}

} // namespace ast::recording::astdump
