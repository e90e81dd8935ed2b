// Which datagrams are read: by where they come from or go to, and by when they came.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "datagram/datagram.hpp"

namespace ast::recording {

struct PortRange {
    uint16_t first;
    uint16_t last;
};

struct HostRange {
    Address first;
    Address last;
};

// What is asked for on the command line.
struct DatagramChoice {
    std::vector<PortRange> ports; // any, when there is none
    std::vector<HostRange> hosts;
    std::optional<Moment> from;
    std::optional<Moment> to;

    bool is_all() const { return ports.empty() && hosts.empty() && !from && !to; }
};

// "8600-8620,9000", and "10.1.0.0/16,10.2.3.4-10.2.3.9,2001:db8::/32". Both throw std::invalid_argument.
std::vector<PortRange> read_ports(std::string_view list);
std::vector<HostRange> read_hosts(std::string_view list);

// For one recording, whose datagrams pass in their order.
class DatagramFilter {
public:
    explicit DatagramFilter(DatagramChoice choice) : choice_(std::move(choice)) {}

    // Whether all pass.
    bool is_idle() const { return choice_.is_all(); }
    bool passes(const Datagram &datagram);

    // Why datagrams were left out that say nothing of what is asked for, or that all were; empty else.
    std::string complaint() const;

private:
    bool has_endpoint(const Datagram &datagram);
    bool is_in_time(const Datagram &datagram);
    void set_limits(const Time &first);

    DatagramChoice choice_;
    bool has_limits_ = false;
    std::optional<Time> from_; // on the days of this recording
    std::optional<Time> to_;
    bool has_passed_any_ = false;
    bool has_refused_any_ = false;
    bool lacks_times_ = false;
    bool lacks_dates_ = false;
    bool lacks_addresses_ = false;
};

} // namespace ast::recording
