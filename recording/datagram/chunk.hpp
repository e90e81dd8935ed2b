// Datagrams that are read together, with what is to be told about them.
#pragma once

#include <memory>
#include <vector>

#include "base/patience.hpp"
#include "datagram/datagram_filter.hpp"
#include "datagram/report.hpp"

namespace ast::recording {

class Chunk {
public:
    // Is full when it holds so many octets; the datagram or packet that fills it may exceed that.
    explicit Chunk(size_t octets);

    void clear();

    // The octets of a file, which are read to the room behind them, before anything is kept.
    Octets octets() const { return {storage_.get(), read_}; }
    std::span<uint8_t> room() { return {storage_.get() + used_, capacity_ - used_}; }
    void add_read(size_t count) { read_ = used_ += count; }
    size_t limit() const { return limit_; }
    bool is_full() const { return used_ >= limit_; }

    // Nothing has been added or reported; what is read stays.
    void forget();

    // A copy of octets that lie elsewhere, as good as the chunk.
    Octets keep(Octets octets);

    // The same, apart from the octets that are read in their order.
    Octets keep_apart(Octets octets);

    void add(const Datagram &datagram) {
        met_any_ = true;
        datagrams_.push_back(datagram);
        reports_.place = datagrams_.size();
    }
    // What stands behind the blocks of the last datagram.
    void set_trailer(Octets octets) { datagrams_.back().trailer = octets; }
    const std::vector<Datagram> &datagrams() const { return datagrams_; }

    // Gives all datagrams the time and route of what brought them.
    void stamp(const Time &time, const Endpoints &endpoints);

    // What is read from now on passes through a filter, which may be null. A source that asks it saves itself the work
    // on what is left out; whatever else is left out goes when the chunk has been filled.
    void set_filter(DatagramFilter *filter) { filter_ = filter; }
    bool is_wanted(const Datagram &datagram) {
        met_any_ = met_any_ || !datagram.octets.empty();
        return !filter_ || filter_->passes(datagram);
    }
    void leave_out();

    // Long searches in what is read from now on end by an interruption, which may be null. What is in doubt then is
    // neither added nor reported.
    void set_interruption(const Interruption *interruption) { interruption_ = interruption; }
    Patience patience() const { return Patience(interruption_); }

    // Counts the blocks of all datagrams, from a number on.
    void number_blocks(uint64_t first);

    // Whether there has been anything before the filter.
    bool has_met_any() const { return met_any_; }

    // Takes reports on what comes between the datagrams: the place of a report is the number of datagrams before it.
    Reports &reports() { return reports_; }
    const Reports &reports() const { return reports_; }

    uint64_t first_number = 0; // of its blocks in their file, counted from 1
    uint64_t end_number = 0;   // of the block behind its last one
    uint64_t consumed = 0;     // octets of the file, up to its end

private:
    size_t limit_;
    size_t capacity_;
    std::unique_ptr<uint8_t[]> storage_;
    size_t read_ = 0;
    size_t used_ = 0;                        // read and kept
    std::vector<std::vector<uint8_t>> kept_; // what the storage has no room for
    std::vector<Datagram> datagrams_;
    Reports reports_;
    DatagramFilter *filter_ = nullptr;
    const Interruption *interruption_ = nullptr;
    bool met_any_ = false;
};

} // namespace ast::recording
