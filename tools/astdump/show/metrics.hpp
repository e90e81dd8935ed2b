// Figures of a run in the text format of Prometheus.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "show/counts.hpp"
#include "write/sender.hpp"

namespace ast::recording::astdump {

// To one destination.
struct SentTo {
    std::string url;
    Sent sent;
};

// What has gone through by now.
struct Flow {
    std::array<Counts, 256> categories{};
    Losses losses;
    std::vector<SentTo> sent;
};

std::string metrics_text(const Flow &flow);

} // namespace ast::recording::astdump
