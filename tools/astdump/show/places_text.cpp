#include "show/places_text.hpp"

#include <cstdio>
#include <string_view>

#include "base/counted.hpp"

namespace ast::recording::astdump {

std::string places_text(const PlaceCounts &counts) {
    constexpr struct {
        uint32_t known;
        std::string_view word;
    } kWords[] = {
        {AST_SITE_GIVEN, "given"}, {AST_SITE_LEARNT, "learnt"}, {AST_SITE_WORKED_OUT, "worked out"}, {0, "not known"}};
    std::string text = "places of " + counted(counts.sources(), "source") + ':';
    for (const auto &each : kWords) {
        const uint64_t count = counts.by_how[each.known];
        if (count == 0) continue;
        text.append(text.ends_with(':') ? " " : ", ").append(std::to_string(count)).append(" ").append(each.word);
    }
    return text;
}

std::string estimate_text(const ast_site_t &site) {
    char text[128];
    std::snprintf(text, sizeof text, "source %03u/%03u is at %.4f, %.4f as worked out, standard error %.0f m", site.sac,
                  site.sic, site.place.latitude_deg, site.place.longitude_deg, site.standard_error_m);
    return text;
}

} // namespace ast::recording::astdump
