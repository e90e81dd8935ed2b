#include "source/pipeline.hpp"

#include <exception>
#include <future>
#include <utility>

namespace ast::recording {

Pipeline::Pipeline(Steps &steps, size_t threads, size_t chunk_octets) : steps_(steps), threads_(threads) {
    const size_t count = threads == 1 ? 1 : threads * kJobsPerThread;
    for (size_t i = 0; i < count; ++i) places_.push_back({.job = steps.make_job(chunk_octets)});
    finished_.resize(count);
}

void Pipeline::run() {
    if (!step()) return;
    if (threads_ == 1) {
        while (step()) {
        }
        return;
    }
    start();
    if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

// One chunk, from its reading to its taking.
bool Pipeline::step() {
    Job &job = *places_.front().job;
    if (!steps_.read(job)) return false;
    steps_.work(job, 0);
    return steps_.take(job);
}

void Pipeline::start() {
    idle_.clear();
    for (Place &place : places_) idle_.push_back(&place);
    read_ = taken_ = 0;
    at_end_ = enough_ = false;
    std::vector<std::future<void>> others; // which are waited for
    try {
        for (size_t worker = 1; worker < threads_; ++worker)
            others.push_back(std::async(std::launch::async, [this, worker] { work(worker); }));
    } catch (const std::exception &) {
        // Those that the system and the memory grant will do.
    }
    work(0);
}

void Pipeline::work(size_t worker) {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [&] { return at_end_ || (!reading_ && !idle_.empty()); });
        Place *const place = at_end_ ? nullptr : read_next(lock);
        if (!place) return;
        const size_t turn = read_++ % finished_.size();
        place->is_worked_on = attempt(lock, [&] {
            steps_.work(*place->job, worker);
            return true;
        });
        finished_[turn] = place;
        take_finished(lock);
    }
}

// Null at the end, and when no more is wanted.
Pipeline::Place *Pipeline::read_next(std::unique_lock<std::mutex> &lock) {
    Place *const place = idle_.back();
    idle_.pop_back();
    reading_ = true;
    const bool more = attempt(lock, [&] { return steps_.read(*place->job); });
    reading_ = false;
    at_end_ = at_end_ || !more;
    changed_.notify_all();
    return more ? place : nullptr;
}

// Whoever finishes the chunk that is next takes it, and those behind it that are finished by then.
void Pipeline::take_finished(std::unique_lock<std::mutex> &lock) {
    if (taking_) return;
    taking_ = true;
    for (;;) {
        Place *const place = std::exchange(finished_[taken_ % finished_.size()], nullptr);
        if (!place) break;
        const auto take = [&] { return place->is_worked_on && steps_.take(*place->job); };
        if (!enough_ && !attempt(lock, take)) at_end_ = enough_ = true;
        ++taken_;
        idle_.push_back(place);
        changed_.notify_all();
    }
    taking_ = false;
}

// Takes a step without holding the lock. What it throws ends the run.
template <typename Step>
bool Pipeline::attempt(std::unique_lock<std::mutex> &lock, Step step) {
    lock.unlock();
    std::exception_ptr failure;
    bool result = false;
    try {
        result = step();
    } catch (...) {
        failure = std::current_exception();
    }
    lock.lock();
    if (failure && !failure_) failure_ = failure;
    return result;
}

} // namespace ast::recording
