#include "datagram/datagram_filter.hpp"

#include <algorithm>
#include <stdexcept>

#include "base/endpoint.hpp"
#include "base/numbers.hpp"

namespace ast::recording {

namespace {

// What reads one entry, for every entry between commas.
template <typename Range, typename Read>
std::vector<Range> read_list(std::string_view list, Read read) {
    std::vector<Range> ranges;
    for (size_t at = 0; at <= list.size();) {
        const size_t comma = std::min(list.find(',', at), list.size());
        ranges.push_back(read(list.substr(at, comma - at)));
        at = comma + 1;
    }
    return ranges;
}

[[noreturn]] void refuse(std::string_view entry, const char *what) {
    throw std::invalid_argument("'" + std::string(entry) + "' is no " + what);
}

PortRange read_port_range(std::string_view entry) {
    const size_t dash = entry.find('-');
    const auto first = read_number<uint16_t>(entry.substr(0, dash));
    const auto last = dash == std::string_view::npos ? first : read_number<uint16_t>(entry.substr(dash + 1));
    if (!first || !last || *first > *last) refuse(entry, "port, such as 8600, nor a range, such as 8600-8620");
    return {*first, *last};
}

size_t octets_of(const Address &address) { return address.is_ipv6 ? 16 : 4; }

// All addresses that share so many bits.
std::optional<HostRange> read_network(std::string_view address, std::string_view bits) {
    constexpr size_t kBitsPerOctet = 8;
    const auto any = read_address(address);
    const auto prefix = read_number<size_t>(bits);
    if (!any || !prefix || *prefix > octets_of(*any) * kBitsPerOctet) return std::nullopt;
    HostRange range{*any, *any};
    for (size_t i = 0; i < octets_of(*any); ++i) {
        const size_t shared = std::min(*prefix - std::min(*prefix, i * kBitsPerOctet), kBitsPerOctet);
        const auto others = static_cast<uint8_t>(0xFF >> shared);
        range.first.octets[i] = static_cast<uint8_t>(range.first.octets[i] & ~others);
        range.last.octets[i] |= others;
    }
    return range;
}

std::optional<HostRange> read_any_hosts(std::string_view entry) {
    const size_t slash = entry.find('/');
    if (slash != std::string_view::npos) return read_network(entry.substr(0, slash), entry.substr(slash + 1));
    const size_t dash = entry.find('-');
    const auto first = read_address(entry.substr(0, dash));
    const auto last = dash == std::string_view::npos ? first : read_address(entry.substr(dash + 1));
    if (!first || !last || first->is_ipv6 != last->is_ipv6 || first->octets > last->octets) return std::nullopt;
    return HostRange{*first, *last};
}

HostRange read_host_range(std::string_view entry) {
    const auto range = read_any_hosts(entry);
    if (!range) refuse(entry, "address, such as 10.1.2.3, nor a range, such as 10.1.0.0/16 or 10.1.2.3-10.1.2.9");
    return *range;
}

bool is_in(const Endpoint &endpoint, const PortRange &range) {
    return range.first <= endpoint.port && endpoint.port <= range.last;
}

bool is_in(const Endpoint &endpoint, const HostRange &range) {
    const Address &address = endpoint.address;
    return address.is_ipv6 == range.first.is_ipv6 && range.first.octets <= address.octets &&
           address.octets <= range.last.octets;
}

template <typename Range>
bool is_at_either_end(const Endpoints &endpoints, const std::vector<Range> &ranges) {
    return ranges.empty() || std::ranges::any_of(ranges, [&](const Range &range) {
               return is_in(endpoints.source, range) || is_in(endpoints.destination, range);
           });
}

// Those that are given: " --from --to".
std::string options_of(const DatagramChoice &choice) {
    std::string options;
    if (!choice.ports.empty()) options += " --port";
    if (!choice.hosts.empty()) options += " --host";
    if (choice.from) options += " --from";
    if (choice.to) options += " --to";
    return options;
}

Time on_day(int64_t day, const Moment &moment) {
    return {day * kSecondsPerDay + moment.time.seconds, moment.time.nanoseconds};
}

} // namespace

std::vector<PortRange> read_ports(std::string_view list) { return read_list<PortRange>(list, read_port_range); }
std::vector<HostRange> read_hosts(std::string_view list) { return read_list<HostRange>(list, read_host_range); }

// A time of day belongs to the day of the first datagram, or to the next day: a beginning that lies more than half a
// day before that datagram, and an end that lies before it or before the beginning.
void DatagramFilter::set_limits(const Time &first) {
    constexpr int64_t kHalfDay = kSecondsPerDay / 2;
    const int64_t day = first.seconds / kSecondsPerDay;
    if (choice_.from) {
        from_ = on_day(choice_.from->day.value_or(day), *choice_.from);
        if (!choice_.from->day && from_->seconds < first.seconds - kHalfDay) from_->seconds += kSecondsPerDay;
    }
    if (!choice_.to) return;
    to_ = on_day(choice_.to->day.value_or(day), *choice_.to);
    const Time begin = from_ ? std::max(*from_, first) : first;
    while (!choice_.to->day && *to_ < begin) to_->seconds += kSecondsPerDay;
}

bool DatagramFilter::is_in_time(const Datagram &datagram) {
    if (!choice_.from && !choice_.to) return true;
    const bool wants_date = (choice_.from && choice_.from->day) || (choice_.to && choice_.to->day);
    const bool lacks_date = datagram.time && wants_date && !has_date(*datagram.time);
    lacks_times_ = lacks_times_ || !datagram.time;
    lacks_dates_ = lacks_dates_ || lacks_date;
    if (!datagram.time || lacks_date) return false;
    if (!has_limits_) set_limits(*datagram.time);
    has_limits_ = true;
    return (!from_ || *from_ <= *datagram.time) && (!to_ || *datagram.time <= *to_);
}

bool DatagramFilter::has_endpoint(const Datagram &datagram) {
    if (choice_.ports.empty() && choice_.hosts.empty()) return true;
    lacks_addresses_ = lacks_addresses_ || !datagram.endpoints;
    if (!datagram.endpoints) return false;
    return is_at_either_end(*datagram.endpoints, choice_.ports) && is_at_either_end(*datagram.endpoints, choice_.hosts);
}

bool DatagramFilter::passes(const Datagram &datagram) {
    const bool passes = is_in_time(datagram) && has_endpoint(datagram);
    (passes ? has_passed_any_ : has_refused_any_) = true;
    return passes;
}

std::string DatagramFilter::complaint() const {
    if (lacks_times_) return "what has no time is left out by --from and --to";
    if (lacks_dates_) return "what has times of day without a date is left out by the dates of --from and --to";
    if (lacks_addresses_) return "what has no addresses is left out by --port and --host";
    if (has_refused_any_ && !has_passed_any_) return "holds nothing that is chosen by" + options_of(choice_);
    return {};
}

} // namespace ast::recording
