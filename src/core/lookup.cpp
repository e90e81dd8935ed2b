#include "core/lookup.hpp"

#include <algorithm>
#include <atomic>

namespace {

std::atomic<ast_sac_get_info_t *> sac_lookup{nullptr};
std::atomic<ast_sacsic_get_sensor_t *> sensor_lookup{nullptr};
std::atomic<ast_icao_addr_get_country_t *> country_lookup{nullptr};
std::atomic<ast_get_national_flag_t *> flag_lookup{nullptr};

template <typename List>
void clamp_count(List &list) {
    list.count = std::min<uint64_t>(list.count, AST_LOOKUP_MAX_ENTRIES);
}

// A lookup may leave a text out; views print it, so it reads as the empty text.
template <typename... Text>
void fill_missing(Text *&...texts) {
    ((texts = texts ? texts : ""), ...);
}

} // namespace

void ast_reg_callback_sac_get_info(ast_sac_get_info_t *lookup) { sac_lookup.store(lookup, std::memory_order_relaxed); }

void ast_reg_callback_sacsic_get_sensor(ast_sacsic_get_sensor_t *lookup) {
    sensor_lookup.store(lookup, std::memory_order_relaxed);
}

void ast_reg_callback_icao_addr_get_country(ast_icao_addr_get_country_t *lookup) {
    country_lookup.store(lookup, std::memory_order_relaxed);
}

void ast_reg_callback_get_national_flag(ast_get_national_flag_t *lookup) {
    flag_lookup.store(lookup, std::memory_order_relaxed);
}

namespace ast {

ast_sac_info_list_t sac_info(uint32_t sac) {
    ast_sac_info_list_t list{};
    if (auto *const lookup = sac_lookup.load(std::memory_order_relaxed)) lookup(&list, sac);
    clamp_count(list);
    for (ast_sac_info_t &entry : list.entries) fill_missing(entry.region, entry.country_code, entry.country);
    return list;
}

ast_sensor_list_t sensors(uint32_t sac, uint32_t sic) {
    ast_sensor_list_t list{};
    if (auto *const lookup = sensor_lookup.load(std::memory_order_relaxed)) lookup(&list, sac, sic);
    clamp_count(list);
    for (ast_sensor_t &entry : list.entries)
        fill_missing(entry.system, entry.country_code, entry.country, entry.type, entry.manufacturer, entry.model,
                     entry.description);
    return list;
}

bool has_country_lookup() { return country_lookup.load(std::memory_order_relaxed) != nullptr; }

ast_country_t aircraft_country(uint32_t address, const ast_dataitem_t *item) {
    ast_country_t country{};
    if (auto *const lookup = country_lookup.load(std::memory_order_relaxed)) lookup(&country, address, item);
    fill_missing(country.code, country.name);
    auto *const flag = flag_lookup.load(std::memory_order_relaxed);
    if (country.found && flag) flag(country.code);
    return country;
}

} // namespace ast
