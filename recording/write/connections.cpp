#include "write/connections.hpp"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace ast::recording {

namespace {

constexpr auto kPatience = std::chrono::seconds(1);
constexpr auto kLook = std::chrono::milliseconds(20); // after which an interruption shows

class SlowCategory : public std::error_category {
    const char *name() const noexcept override { return "slow"; }
    std::string message(int) const override { return "taken too slowly"; }
};

// Of a connection that takes less than is sent.
std::error_code too_slow() {
    static const SlowCategory category;
    return {ENOBUFS, category};
}

} // namespace

void Connections::end() {
    const std::lock_guard lock(mutex_);
    ended_ = true;
    wake_.set();
}

size_t Connections::count() const {
    const std::lock_guard lock(mutex_);
    return list_.size();
}

void Connections::add(system::Descriptor descriptor, const Endpoint &other, bool is_told) {
    auto connection = std::make_unique<Connection>(descriptor, other);
    const std::lock_guard lock(mutex_);
    list_.push_back(std::move(connection));
    const Lost lost = std::exchange(lost_meanwhile_, {});
    if (is_told) put({OutletEvent::Kind::connected, other, lost});
    ++moves_;
    wake_.set();
    moved_.notify_all();
}

void Connections::tell(const OutletEvent &event) {
    const std::lock_guard lock(mutex_);
    put(event);
}

// What nobody asks for does not fill the memory.
void Connections::put(const OutletEvent &event) {
    constexpr size_t kMostEvents = 1000;
    if (events_.size() < kMostEvents) events_.push_back(event);
}

std::vector<OutletEvent> Connections::take_events() {
    const std::lock_guard lock(mutex_);
    return std::exchange(events_, {});
}

// The thread that serves looks after those that have failed, and those that something waits for from now on.
std::error_code Connections::send(Octets octets) {
    const std::lock_guard lock(mutex_);
    std::error_code failure;
    bool is_changed = false;
    for (const auto &connection : list_) {
        const bool waited = connection->waits(), had_lost = connection->lost().octets != 0;
        const bool is_sent = connection->offer(octets), has_failed = static_cast<bool>(connection->failure());
        if (has_failed && role_ == Role::server) {
            failure = connection->failure();
            lost_meanwhile_ += all_of(octets);
        } else if (!is_sent && !has_failed) {
            failure = too_slow();
            if (!had_lost) put({OutletEvent::Kind::slow, connection->other()});
        }
        is_changed = is_changed || has_failed || connection->waits() != waited;
    }
    if (is_changed) wake_.set();
    if (!list_.empty() || role_ == Role::client) return failure;
    lost_meanwhile_ += all_of(octets);
    return failure_;
}

// `done` is asked with the lock held.
template <typename Done>
void Connections::wait(Done done, Interruption &interruption) {
    std::unique_lock lock(mutex_);
    uint64_t moves = moves_;
    auto end = Clock::now() + kPatience;
    const bool was_ended = interruption.ended();
    while (!done() && stuck_ != moves_ && interruption.ended() == was_ended) {
        if (moves != moves_ && !was_ended) end = Clock::now() + kPatience;
        moves = moves_;
        if (Clock::now() >= end) stuck_ = moves_;
        moved_.wait_for(lock, kLook);
    }
}

void Connections::wait_for_room(size_t octets, Interruption &interruption) {
    if (interruption.ended()) return;
    wait(
        [&] {
            if (list_.empty()) return role_ == Role::client;
            return std::ranges::all_of(list_, [&](const auto &each) { return each->has_room(octets); });
        },
        interruption);
}

void Connections::wait_for_all(Interruption &interruption) {
    wait([&] { return std::ranges::none_of(list_, [](const auto &each) { return each->waits(); }); }, interruption);
}

void Connections::close() {
    const std::lock_guard lock(mutex_);
    for (const auto &connection : list_) {
        connection->give_up();
        if (connection->lost().octets != 0) put({OutletEvent::Kind::gone, connection->other(), connection->lost()});
    }
    list_.clear();
    if (lost_meanwhile_.octets != 0) put({OutletEvent::Kind::gone, {}, std::exchange(lost_meanwhile_, {}), failure_});
}

// Those that have failed go. What waits for a client that has gone by itself is no loss.
void Connections::sweep() {
    const auto has_gone = [&](const auto &connection) {
        return connection->failure() || (role_ == Role::server && connection->has_input_ended());
    };
    for (const auto &connection : list_) {
        if (!has_gone(connection)) continue;
        if (role_ == Role::server) connection->give_up();
        failure_ = connection->failure() ? connection->failure() : std::make_error_code(std::errc::connection_reset);
        put({OutletEvent::Kind::gone, connection->other(), connection->lost(), failure_});
        ++moves_;
    }
    std::erase_if(list_, has_gone);
}

Connections::Turn Connections::serve(system::Descriptor listener) {
    using system::Awaited;
    std::vector<Awaited> awaited = {{.descriptor = wake_.descriptor()}, {.descriptor = listener}};
    const size_t first = awaited.size();
    constexpr size_t kOfEach = 2;
    {
        const std::lock_guard lock(mutex_);
        if (ended_) return Turn::end;
        for (const auto &connection : list_) {
            const system::Descriptor descriptor = connection->descriptor();
            awaited.push_back({.descriptor = descriptor,
                               .what = connection->has_input_ended() ? Awaited::For::failure : Awaited::For::input});
            awaited.push_back(
                {.descriptor = connection->waits() ? descriptor : system::Descriptor(), .what = Awaited::For::output});
        }
    }
    system::wait(awaited, system::kNoLimit);
    wake_.reset();
    const std::lock_guard lock(mutex_);
    if (ended_) return Turn::end;
    for (size_t i = 0; i < list_.size() && first + kOfEach * i < awaited.size(); ++i) {
        if (awaited[first + kOfEach * i].is_ready) list_[i]->pass_over_input();
        moves_ += list_[i]->flush();
    }
    sweep();
    moved_.notify_all();
    return awaited[1].is_ready ? Turn::client : Turn::served;
}

} // namespace ast::recording
