// Chunks on several threads: one thread at a time reads, all of them render what they have read, and what has been
// rendered is written in the order in which it was read.
#pragma once

#include <condition_variable>
#include <exception>
#include <mutex>
#include <vector>

#include "rendered.hpp"

namespace astdump {

struct Job {
    explicit Job(size_t chunk_octets) : chunk(chunk_octets) {}
    Chunk chunk;
    Rendered rendered;
    bool is_rendered = false;
};

// What is done with a chunk. `worker` counts the threads from 0.
class Steps {
public:
    virtual ~Steps() = default;

    // One at a time, in order. False when nothing is left.
    virtual bool read(Chunk &chunk) = 0;

    // Several at a time, in any order.
    virtual void render(Job &job, size_t worker) = 0;

    // One at a time, in order. False when no more is wanted.
    virtual bool write(Job &job) = 0;
};

class Pipeline {
public:
    // Holds a few chunks for each thread, and never more.
    Pipeline(Steps &steps, size_t threads, size_t chunk_octets);

    // Reads to the end, or until no more is wanted. The first chunk goes alone: it may be all that there is. Throws
    // what a step throws, after the chunks before it are written.
    void run();

private:
    static constexpr size_t kJobsPerThread = 3;

    bool step();
    void start();
    void work(size_t worker);
    Job *read_next(std::unique_lock<std::mutex> &lock);
    void write_finished(std::unique_lock<std::mutex> &lock);
    template <typename Step>
    bool attempt(std::unique_lock<std::mutex> &lock, Step step);

    Steps &steps_;
    size_t threads_;
    std::vector<Job> jobs_;

    std::mutex mutex_; // guards what follows
    std::condition_variable changed_;
    std::vector<Job *> idle_;
    std::vector<Job *> finished_; // a ring: the place of a chunk is its number
    uint64_t read_ = 0;           // chunks so far
    uint64_t written_ = 0;
    bool reading_ = false;
    bool writing_ = false;
    bool at_end_ = false;
    bool enough_ = false;
    std::exception_ptr failure_;
};

} // namespace astdump
