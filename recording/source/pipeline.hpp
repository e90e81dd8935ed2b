// Chunks on several threads: one thread at a time reads, all of them work on what they have read, and what has been
// made of it is taken in the order in which it was read.
#pragma once

#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <vector>

#include "block/block_learner.hpp"
#include "datagram/chunk.hpp"

namespace ast::recording {

// A chunk, and, in classes derived from this, what has been made of it.
struct Job {
    explicit Job(size_t chunk_octets) : chunk(chunk_octets) {}
    virtual ~Job() = default;
    Job(const Job &) = delete;
    Job &operator=(const Job &) = delete;

    Chunk chunk;
    Known known;                  // in front of its first block
    std::vector<SitesFrom> later; // what is worked out further on, in that order
};

// What is done with a chunk. `worker` counts the threads from 0.
class Steps {
public:
    virtual ~Steps() = default;

    virtual std::unique_ptr<Job> make_job(size_t chunk_octets) = 0;

    // One at a time, in order. False when nothing is left.
    virtual bool read(Job &job) = 0;

    // Several at a time, in any order.
    virtual void work(Job &job, size_t worker) = 0;

    // One at a time, in order. False when no more is wanted.
    virtual bool take(Job &job) = 0;
};

class Pipeline {
public:
    // Holds a few chunks for each thread, and never more.
    Pipeline(Steps &steps, size_t threads, size_t chunk_octets);

    // Reads to the end, or until no more is wanted. The first chunk goes alone: it may be all that there is. Throws
    // what a step throws, after the chunks before it are taken.
    void run();

private:
    static constexpr size_t kJobsPerThread = 3;

    struct Place {
        std::unique_ptr<Job> job;
        bool is_worked_on = false; // to the end
    };

    bool step();
    void start();
    void work(size_t worker);
    Place *read_next(std::unique_lock<std::mutex> &lock);
    void take_finished(std::unique_lock<std::mutex> &lock);
    template <typename Step>
    bool attempt(std::unique_lock<std::mutex> &lock, Step step);

    Steps &steps_;
    size_t threads_;
    std::vector<Place> places_;

    std::mutex mutex_; // guards what follows
    std::condition_variable changed_;
    std::vector<Place *> idle_;
    std::vector<Place *> finished_; // a ring: the place of a chunk is its number
    size_t read_ = 0;               // chunks so far
    size_t taken_ = 0;
    bool reading_ = false;
    bool taking_ = false;
    bool at_end_ = false;
    bool enough_ = false;
    std::exception_ptr failure_;
};

} // namespace ast::recording
