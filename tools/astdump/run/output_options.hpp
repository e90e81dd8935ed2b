// What is said on the command line of files that are written and of what is sent.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/octet_range.hpp"
#include "show/rotating_file.hpp"

namespace ast::recording::astdump {

// Each throws std::invalid_argument.

// "10", "0.5", or "max".
double read_speed(const std::string &text);

// "100M", "500k", "1200"
uint64_t read_rate(const std::string &text);

// From 1 to 255.
uint8_t read_ttl(const std::string &text);

// "10s", "1m"
std::chrono::seconds read_interval(const std::string &text);

// "0.1s" or "100ms", in seconds; nothing for any other text.
std::optional<double> find_tolerance(std::string_view text);
double read_tolerance(const std::string &text);

// "1h", "30m", "100M"; how many stay is left open.
Rotation read_rotation(const std::string &text);

// "1000000-2000000", "1M-2M", "1M-" and "-1M", the octet behind the last one not included.
OctetRange read_octet_range(const std::string &text);

} // namespace ast::recording::astdump
