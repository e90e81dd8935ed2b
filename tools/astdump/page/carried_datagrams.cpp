#include "page/carried_datagrams.hpp"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <zlib.h>

#include "columns/little_endian.hpp"

namespace ast::recording::astdump {

namespace {

// Of 1 to 9. Above it, twice the time saves less than a hundredth.
constexpr int kLevel = 5;

// Deflate without a wrapping, whose blocks are not the last ones.
class Deflate {
public:
    Deflate() {
        constexpr int kRaw = -15;
        constexpr int kMemory = 9;
        if (deflateInit2(&state_, kLevel, Z_DEFLATED, kRaw, kMemory, Z_DEFAULT_STRATEGY) != Z_OK)
            throw std::runtime_error("cannot compress");
    }
    ~Deflate() { deflateEnd(&state_); }
    Deflate(const Deflate &) = delete;
    Deflate &operator=(const Deflate &) = delete;

    void put(TextBuffer &out, std::string_view octets) {
        constexpr size_t kOfFlush = 16;
        deflateReset(&state_);
        state_.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(octets.data())); // which zlib leaves alone
        state_.avail_in = static_cast<uInt>(octets.size());
        const size_t room = deflateBound(&state_, state_.avail_in) + kOfFlush;
        out.put_with(room, [&](char *to) {
            state_.next_out = reinterpret_cast<Bytef *>(to);
            state_.avail_out = static_cast<uInt>(room);
            deflate(&state_, Z_SYNC_FLUSH);
            return room - state_.avail_out;
        });
    }

private:
    z_stream state_{};
};

std::string head(std::string_view name, size_t datagrams, size_t routes) {
    std::string octets(name);
    put_little(octets, static_cast<uint32_t>(datagrams));
    put_little(octets, static_cast<uint32_t>(routes));
    put_little(octets, uint32_t{0});
    return octets;
}

void put_address(std::string &out, const Address &address) {
    for (const uint8_t octet : address.octets) out.push_back(static_cast<char>(octet));
}

std::string_view characters(Octets octets) { return as_text(octets.data(), octets.size()); }

} // namespace

void SitesSeen::set(const SiteMemory &sites, uint64_t block) {
    const std::lock_guard lock(mutex_);
    if (block < block_) return;
    block_ = block;
    sites_ = sites;
}

CarriedDatagrams::CarriedDatagrams(bool remainders, std::span<const std::string> inputs, SitesSeen &sites)
    : DatagramRenderer(remainders, Behind::trailers), inputs_(inputs), sites_(sites) {}

void CarriedDatagrams::block(const DecodedBlock &decoded, TextBuffer &out) {
    if (decoded.sites) last_sites_ = *decoded.sites;
    last_block_ = decoded.number;
    DatagramRenderer::block(decoded, out);
}

void CarriedDatagrams::put(TextBuffer &, const Datagram &datagram, Octets payload) {
    constexpr auto kUnknown = std::numeric_limits<int64_t>::min();
    const std::optional<int64_t> time_ns = datagram.time ? nanoseconds_of(*datagram.time) : std::nullopt;
    const auto time = static_cast<uint64_t>(time_ns.value_or(kUnknown));
    put_little(times_, time - std::exchange(time_before_, time));
    put_little(route_places_, route_of(datagram));
    put_little(sizes_, static_cast<uint32_t>(payload.size()));
    octets_ += characters(payload);
}

uint8_t CarriedDatagrams::input_of(const Datagram &datagram) const {
    constexpr uint8_t kAtHand = 255;
    if (!datagram.file) return kAtHand;
    const auto input = std::ranges::find(inputs_, *datagram.file) - inputs_.begin();
    return static_cast<uint8_t>(std::min<ptrdiff_t>(input, kAtHand));
}

// Of more than there is room for, the first: a chunk has fewer.
uint16_t CarriedDatagrams::route_of(const Datagram &datagram) {
    std::string route;
    const Endpoints endpoints = datagram.endpoints.value_or(Endpoints{});
    const auto version = static_cast<uint8_t>(endpoints.source.address.is_ipv6 ? 6 : 4);
    put_little(route, datagram.endpoints ? version : uint8_t{0});
    put_little(route, input_of(datagram));
    put_little(route, endpoints.source.port);
    put_little(route, endpoints.destination.port);
    put_little(route, uint16_t{0});
    put_address(route, endpoints.source.address);
    put_address(route, endpoints.destination.address);
    const size_t count = known_routes_.size();
    if (count > std::numeric_limits<uint16_t>::max()) return 0;
    const auto [known, is_new] = known_routes_.try_emplace(route, static_cast<uint16_t>(count));
    if (is_new) routes_ += route;
    return known->second;
}

void CarriedDatagrams::end(TextBuffer &out) {
    DatagramRenderer::end(out);
    if (last_block_ != 0) sites_.set(last_sites_, last_block_);
    if (octets_.empty()) return;
    std::string part = head("PART", sizes_.size() / sizeof(uint32_t), known_routes_.size());
    for (const std::string *const column : {&routes_, &times_, &route_places_, &sizes_, &octets_}) part += *column;
    thread_local Deflate deflate;
    deflate.put(out, part);
    known_routes_.clear();
    for (std::string *const column : {&routes_, &times_, &route_places_, &sizes_, &octets_}) column->clear();
    time_before_ = 0;
    last_block_ = 0;
}

std::string carried_file() {
    TextBuffer out;
    Deflate().put(out, head("FILE", 0, 0));
    return std::string(out.text());
}

// An empty block, the last one.
std::string carried_end() { return {'\x03', '\0'}; }

} // namespace ast::recording::astdump
