// A table of what each data source sends in each category, drawn anew every second.
#pragma once

#include <chrono>
#include <deque>

#include "show/report_log.hpp"
#include "show/source_counts.hpp"
#include "show/text_table.hpp"
#include "write/output.hpp"

namespace ast::recording::astdump {

struct Rate {
    double blocks; // per second
    double records;
};

// How much has come lately.
class RecentRates {
public:
    using Clock = std::chrono::steady_clock;

    // Rates are those since so many looks before the present one.
    explicit RecentRates(size_t looks) : looks_(looks) {}

    // Remembers what has been met by now.
    void look(const Sources &sources, Clock::time_point now);

    // Nothing before a second has passed.
    std::optional<Rate> rate(const SourceKey &key, const SourceCounts &counts, Clock::time_point now) const;

private:
    struct Look {
        Clock::time_point time;
        Sources sources;
    };
    size_t looks_;
    std::deque<Look> past_;
};

class Top : public Sink {
public:
    struct Form {
        bool color;
        bool is_drawn; // on a terminal, each table in place of the one before; else one after the other
        bool is_live;  // rates are those of the last seconds, not of the recording
    };
    // The totals of what is damaged so far, and so on, stand below the table.
    Top(Output &out, const Form &form, const ReportLog &reports);

    // To be called again and again while nothing comes.
    void refresh();

    std::unique_ptr<Renderer> renderer() const override { return make_source_counter(); }
    size_t chunk_octets() const override { return size_t{64} * 1024; }
    void file(const std::string &name) override;
    void take(std::string_view rendered) override;
    void finish(uint64_t) override;

private:
    using Clock = RecentRates::Clock;

    void show();
    std::string lines(size_t columns, size_t most_rows) const;
    std::string title() const;
    std::vector<SourceKey> busiest(size_t most) const;
    std::optional<Rate> rate(const SourceKey &key) const;
    std::pair<SourceCounts, std::optional<Rate>> sum() const;

    Output &out_;
    Form form_;
    const ReportLog &reports_;
    Drawing drawing_;
    std::string name_; // of the file at hand
    uint64_t files_ = 0;
    Sources sources_;
    std::optional<Span> span_;  // of the file at hand
    double seconds_before_ = 0; // in the files before it
    RecentRates rates_;
    Clock::time_point next_;
    bool is_changed_ = true; // since the table before
    bool was_changed_ = true;
    bool is_printed_ = false; // a table without being drawn
};

} // namespace ast::recording::astdump
