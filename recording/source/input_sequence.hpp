// The inputs of a run, one after the other or merged.
#pragma once

#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "base/unreadable_input.hpp"
#include "block/measuring_sources.hpp"
#include "block/station_learner.hpp"
#include "source/input.hpp"
#include "source/pipeline.hpp"

namespace ast::recording {

// Why an input cannot be read.
struct InputFailure {
    std::string path; // of the input; empty where several do not go together
    std::string reason;
    std::error_code code; // of the system; none for an input of a kind that cannot be read
};

class InputObserver {
public:
    virtual ~InputObserver() = default;

    // Of several that are merged, each is opened.
    virtual void opened(const std::string &name, const Input &input) = 0;
    virtual void failed(const InputFailure &failure) = 0;

    // "listening on 0.0.0.0:8600"
    virtual void announced(const std::string &what) = 0;
};

class InputSequence {
public:
    // `interruption` is null where nobody can end the reading.
    InputSequence(std::vector<Origin> origins, const ReadOptions &options, Interruption *interruption,
                  InputObserver &observer);

    // Opens the next input, or, to be merged, all of them; those that cannot be opened are left out. False when there
    // is none.
    bool open_next();

    // The next input is the first once more.
    void restart() {
        close();
        next_ = 0;
    }

    // Fills a job with what comes next of the input at hand; false at its end. Throws what attempt() catches.
    bool fill(Job &job);

    // Does something with the input at hand, which may turn out to be unreadable. Whether it did not.
    template <typename Act>
    bool attempt(const Act &act) {
        return attempt(path_, act);
    }

    const Input &input() const { return *input_; }

    // The place among all of the input at hand, and of one that is merged, by the string that datagrams name it by.
    size_t place() const { return next_ == 0 ? 0 : next_ - 1; }
    size_t place_of(const std::string &name) const;

    // Of several that are merged, their number.
    const std::string &name() const { return name_; }

    // How the places are known, by now, from which the sources of the input at hand measure, where positions are asked
    // for.
    PlaceCounts places() const { return measuring_.places(known_.sites); }

    // Those of the sources of the input at hand whose places are worked out.
    std::vector<ast_site_t> worked_out() const { return measuring_.worked_out(known_.sites); }

    // Closes the input at hand.
    void close() { input_.reset(); }

private:
    template <typename Act>
    bool attempt(const std::string &path, const Act &act) {
        try {
            act();
            return true;
        } catch (const std::system_error &error) {
            observer_.failed({path, error.code().message(), error.code()});
        } catch (const UnreadableInput &error) {
            observer_.failed({path, error.what(), {}});
        }
        return false;
    }
    void learn(Job &job, Octets block);
    void open_one(const Origin &origin);
    void open_merged();

    std::vector<Origin> origins_;
    ReadOptions options_;
    Interruption *interruption_;
    InputObserver &observer_;
    size_t next_ = 0; // origin
    std::unique_ptr<Input> input_;
    std::string name_;
    std::string path_; // empty for several
    Known known_;      // in front of what is read next
    BlockLearner learner_;
    MeasuringSources measuring_; // of the input at hand
    StationLearner stations_;
};

} // namespace ast::recording
