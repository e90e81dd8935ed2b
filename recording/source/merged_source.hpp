// Several inputs as one, by the times of their datagrams.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "source/input.hpp"

namespace ast::recording {

class MergedSource : public DatagramSource {
public:
    // Takes an input of that name, which lives as long.
    void add(const std::string &name, std::unique_ptr<Input> input);

    // Throws UnreadableInput for an input whose datagrams have no times.
    bool fill(Chunk &chunk) override;

private:
    struct Part {
        const std::string &name;
        std::unique_ptr<Input> input;
        Chunk chunk;
        size_t next = 0;     // datagram of the chunk
        size_t reported = 0; // reports of it so far
        Time time{};         // of the next datagram: no less than those before
        int64_t days = 0;    // to be added to times without a date
        bool is_open = true;
        bool has_begun = false;
    };

    void start();
    static void advance(Part &part);
    static void read_time(Part &part);
    static void take(Part &part, Chunk &chunk);
    static void pass_reports(Part &part, size_t up_to, Chunk &chunk);
    Part *earliest();

    std::vector<std::unique_ptr<Part>> parts_;
    bool has_started_ = false;
};

} // namespace ast::recording
