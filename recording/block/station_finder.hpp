// Where stations stand that do not tell it, by the aircraft that they and others have seen at the same time.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "block/site_memory.hpp"
#include "block/station_fit.hpp"

namespace ast::recording {

struct SplitBlock;

class StationFinder {
public:
    // Whether records of such a block may say where aircraft are.
    static bool looks_at(Octets block);

    // Keeps what the records of a block say of aircraft that have an address.
    void look(const SplitBlock &block);

    // Some minutes of busy skies are enough, and fit into some megabytes.
    bool is_full() const { return measured_.size() >= kMostOfEach || placed_.size() >= kMostOfEach; }

    // How much has been kept.
    size_t size() const { return measured_.size() + placed_.size(); }

    // Adds the stations that can be worked out by all that is kept, each of which may help to find others, or another
    // place of one that is known less well. Whether there are any.
    bool find(SiteMemory &sites) const;

private:
    static constexpr size_t kMostOfEach = size_t{1} << 15;

    // An aircraft as someone saw it.
    struct Seen {
        uint32_t address;
        double time_s;
        std::optional<double> height_m;
        std::optional<double> speed_nm_s; // over ground
        double track_deg;
    };

    // From a station.
    struct Measured : Seen {
        uint32_t source; // SAC × 256 + SIC
        double range_nm;
        double azimuth_deg;
    };

    // On the earth.
    struct Placed : Seen {
        ast_place_t place;
        double standard_error_m; // of the place of the station that saw it there
    };

    double running_time_s(double time_of_day_s);
    Seen seen_in(const ast_answers_t &answers);
    static bool find_measured(const ast_answers_t &answers, Measured &measured);
    void look(const ast_answers_t &answers);
    void place(const Measured &measured, const ast_site_t &site);
    std::vector<ast_site_t> find_all(SiteMemory known);
    bool place_those_of_known(const SiteMemory &known);
    std::vector<ast_site_t> find_next() const;
    std::vector<Meeting> meetings_of(std::span<const Measured> measured) const;
    std::optional<Meeting> meeting_of(const Measured &measured) const;
    static std::optional<Placed> between(const Placed &before, const Placed &after, double time_s);
    static std::optional<Placed> carried_on(const Placed &from, double time_s);
    std::optional<Placed> placed_at(uint32_t address, double time_s) const;

    std::optional<double> first_time_s_;
    std::vector<Measured> measured_; // by stations that have no place
    std::vector<Placed> placed_;
};

} // namespace ast::recording
