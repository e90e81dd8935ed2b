#include "pipeline.hpp"

#include <system_error>
#include <thread>

namespace astdump {

Pipeline::Pipeline(Steps &steps, size_t threads, size_t chunk_octets) : steps_(steps), threads_(threads) {
    const size_t count = threads == 1 ? 1 : threads * kJobsPerThread;
    jobs_.reserve(count);
    for (size_t i = 0; i < count; ++i) jobs_.emplace_back(chunk_octets);
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

// One chunk, from its reading to its writing.
bool Pipeline::step() {
    Job &job = jobs_.front();
    if (!steps_.read(job.chunk)) return false;
    steps_.render(job, 0);
    return steps_.write(job);
}

void Pipeline::start() {
    idle_.clear();
    for (Job &job : jobs_) idle_.push_back(&job);
    read_ = written_ = 0;
    at_end_ = enough_ = false;
    std::vector<std::jthread> others;
    try {
        for (size_t worker = 1; worker < threads_; ++worker) others.emplace_back([this, worker] { work(worker); });
    } catch (const std::system_error &) {
        // Those that the system grants will do.
    }
    work(0);
}

void Pipeline::work(size_t worker) {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [&] { return at_end_ || (!reading_ && !idle_.empty()); });
        Job *const job = at_end_ ? nullptr : read_next(lock);
        if (!job) return;
        const size_t place = read_++ % finished_.size();
        job->is_rendered = attempt(lock, [&] {
            steps_.render(*job, worker);
            return true;
        });
        finished_[place] = job;
        write_finished(lock);
    }
}

// Null at the end, and when no more is wanted.
Job *Pipeline::read_next(std::unique_lock<std::mutex> &lock) {
    Job *const job = idle_.back();
    idle_.pop_back();
    reading_ = true;
    const bool more = attempt(lock, [&] { return steps_.read(job->chunk); });
    reading_ = false;
    at_end_ = at_end_ || !more;
    changed_.notify_all();
    return more ? job : nullptr;
}

// Whoever finishes the chunk that is next writes it, and those behind it that are finished by then.
void Pipeline::write_finished(std::unique_lock<std::mutex> &lock) {
    if (writing_) return;
    writing_ = true;
    for (;;) {
        Job *const job = std::exchange(finished_[written_ % finished_.size()], nullptr);
        if (!job) break;
        const auto write = [&] { return job->is_rendered && steps_.write(*job); };
        if (!enough_ && !attempt(lock, write)) at_end_ = enough_ = true;
        ++written_;
        idle_.push_back(job);
        changed_.notify_all();
    }
    writing_ = false;
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

} // namespace astdump
