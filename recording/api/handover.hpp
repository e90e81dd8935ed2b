// What a thread that reads hands over, a piece at a time, to a caller who can be interrupted.
#pragma once

#include <condition_variable>
#include <mutex>

#include "api/delivery.hpp"
#include "base/interruption.hpp"
#include "system/waiting.hpp"

namespace ast::recording {

class Handover {
public:
    Handover() = default;
    Handover(const Handover &) = delete;
    Handover &operator=(const Handover &) = delete;

    // For the thread that reads: offers a piece, and returns when the caller is done with it; false when he wants no
    // more.
    bool give(const Delivery &delivery);

    // For the caller: the piece that is offered; null when there is none after a time, which may be negative for no
    // limit, and after an interruption. It is the caller's until he is done with it.
    const Delivery *take(int limit_ms, Interruption &interruption);
    void done();

    // For the caller, who wants no more.
    void close();

private:
    system::Event event_; // set as long as a piece is offered
    std::mutex mutex_;
    std::condition_variable changed_;
    const Delivery *delivery_ = nullptr;
    bool is_closed_ = false;
};

} // namespace ast::recording
