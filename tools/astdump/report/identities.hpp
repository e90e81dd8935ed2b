// Who was seen: codes and addresses, emergencies, and what is doubted of codes and of targets.
#pragma once

#include <bitset>
#include <map>
#include <set>
#include <utility>

#include "report/facts.hpp"

namespace ast::recording::astdump {

// Of what declares an emergency.
struct Emergency {
    uint64_t reports = 0;
    std::set<uint64_t> targets; // by address, track or code
};

class Identities {
public:
    static constexpr uint32_t kOtherEmergency = UINT32_MAX; // said by a field, without a code

    void add(const Fact &fact);

    uint64_t codes() const { return codes_.count(); }
    uint64_t addresses() const { return addresses_.size(); }
    uint64_t track_numbers() const { return tracks_.size(); }
    const std::map<uint32_t, Emergency> &emergencies() const { return emergencies_; } // by code

    uint64_t coded() const { return coded_; } // reports with a code; of these
    uint64_t not_validated() const { return not_validated_; }
    uint64_t garbled() const { return garbled_; }
    uint64_t smoothed() const { return smoothed_; }
    const std::map<std::pair<uint32_t, uint32_t>, uint64_t> &warnings() const { return warnings_; } // category and code

private:
    void add_code(const Fact &fact);
    void add_emergency(const Fact &fact);

    std::bitset<4096> codes_;
    std::set<uint32_t> addresses_;
    std::set<uint32_t> tracks_;
    std::map<uint32_t, Emergency> emergencies_;
    uint64_t coded_ = 0;
    uint64_t not_validated_ = 0;
    uint64_t garbled_ = 0;
    uint64_t smoothed_ = 0;
    std::map<std::pair<uint32_t, uint32_t>, uint64_t> warnings_;
};

// "unlawful interference" of 7500.
std::string_view emergency_name(uint32_t code);

} // namespace ast::recording::astdump
