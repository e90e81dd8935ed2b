// Shows reports on standard error: each by itself, or one line for those that have a reason in common.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "datagram/losses.hpp"
#include "datagram/report_words.hpp"

namespace ast::recording::astdump {

class ReportLog {
public:
    // With `each`, reports are shown as they come; else those of one reason are one line, at the end of their file.
    ReportLog(bool color, bool each) : color_(color), each_(each) {}
    bool shows_each() const { return each_; }

    // The file that the reports that follow are about. Of a live one, the first report of each reason is shown at once.
    void set_file(const std::string &name, bool is_live);
    void show(const Report &report);

    // Says something of the file itself.
    void tell_of_file(const std::string &text) const { line(file_, text); }

    // Shows what is left to the end of the file.
    void end_file();

    // A line for each kind on all that was met, if anything was.
    std::vector<std::string> totals() const;
    void summary() const;
    bool any_damage() const { return losses_.any_damage(); }

private:
    struct Group {
        ReportWords first;
        uint32_t kind = AST_REPORT_NOTE;
        uint64_t packet = 0; // of the first, where reports do not come in the order of packets
        std::string file;
        uint64_t reports = 0;
        uint64_t count = 0; // of what they are about
    };
    // File, kind, reason, category and detail, from which the words of the cause follow.
    using Cause = std::tuple<std::string, uint32_t, uint32_t, uint32_t, std::string>;
    using CauseView = std::tuple<std::string_view, uint32_t, uint32_t, uint32_t, std::string_view>;
    struct CauseOrder {
        using is_transparent = void;
        bool operator()(const CauseView &one, const CauseView &other) const { return one < other; }
    };
    using Key = std::tuple<std::string, uint32_t, std::string>; // file, kind and the words of the cause

    void collect(const Report &report);
    size_t new_cause(const Report &report, const std::string &file);
    static std::string text_of(const Group &group);
    void line(const std::string &file, const std::string &text) const;

    bool color_;
    bool each_;
    bool is_live_ = false;
    std::string file_;
    std::map<Cause, size_t, CauseOrder> causes_; // the places of their groups
    std::map<Key, size_t> places_;               // of the groups
    std::vector<Group> groups_;                  // in the order of their first reports
    Losses losses_;
};

} // namespace ast::recording::astdump
