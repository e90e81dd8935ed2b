#include "source/given_sites.hpp"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <system_error>

#include "base/letters.hpp"
#include "base/numbers.hpp"

namespace ast::recording {

namespace {

// Takes what stands in front of the first separator, which goes, too; all where there is none.
std::string_view take_field(std::string_view &text, char separator) {
    const size_t size = text.find(separator);
    const std::string_view field = text.substr(0, size);
    text.remove_prefix(size == std::string_view::npos ? text.size() : size + 1);
    return trimmed(field);
}

std::optional<ast_site_t> make_site(std::string_view sac_text, std::string_view sic_text, std::string_view place) {
    const auto sac = read_number<uint32_t>(sac_text);
    const auto sic = read_number<uint32_t>(sic_text);
    const auto latitude_deg = read_number<double>(take_field(place, ','));
    const auto longitude_deg = read_number<double>(take_field(place, ','));
    const std::string_view height = take_field(place, ',');
    const auto height_m = height.empty() ? 0.0 : read_number<double>(height);
    if (!sac || !sic || !latitude_deg || !longitude_deg || !height_m) return std::nullopt;
    const ast_site_t site{.sac = *sac,
                          .sic = *sic,
                          .known = AST_SITE_GIVEN,
                          .place = {*latitude_deg, *longitude_deg, *height_m},
                          .standard_error_m = 0};
    ast_site_t room;
    ast_sites_t table{.sites = &room, .room = 1, .count = 0};
    return ast_sites_add(&table, &site) ? std::optional(site) : std::nullopt;
}

} // namespace

ast_site_t read_site(std::string_view text) {
    std::string_view rest = text;
    const std::string_view sac = take_field(rest, '/');
    const std::string_view sic = take_field(rest, '=');
    constexpr auto kMostCommas = 2;
    const auto site = std::ranges::count(rest, ',') <= kMostCommas ? make_site(sac, sic, rest) : std::nullopt;
    if (!site) throw std::invalid_argument("'" + std::string(text) + "' is no site such as 25/12=43.57,16.41,780");
    return *site;
}

std::vector<ast_site_t> read_site_file(const std::string &path) {
    std::ifstream file(path);
    std::vector<ast_site_t> sites;
    std::string text;
    for (size_t number = 1; std::getline(file, text); ++number) {
        const std::string_view line = trimmed(std::string_view(text).substr(0, text.find('#')));
        if (line.empty()) continue;
        std::string_view rest = line;
        const std::string_view sac = take_field(rest, ',');
        const std::string_view sic = take_field(rest, ',');
        const auto site = make_site(sac, sic, rest);
        if (!site)
            throw std::invalid_argument(path + ", line " + std::to_string(number) + ": '" + std::string(line) +
                                        "' is no site such as 25,12,43.57,16.41,780,name");
        sites.push_back(*site);
    }
    if (!file.eof()) throw std::invalid_argument(path + ": " + std::generic_category().message(errno));
    return sites;
}

} // namespace ast::recording
