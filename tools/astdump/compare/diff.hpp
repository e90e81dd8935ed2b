// What differs between two recordings, record by record and field by field.
#pragma once

#include <array>
#include <string>

#include "compare/kept_records.hpp"
#include "compare/matching.hpp"
#include "show/sink.hpp"
#include "write/output.hpp"

namespace ast::recording::astdump {

// Shown when both have been read, which are kept until then.
class Diff : public Sink {
public:
    struct Form {
        double within_s = 0; // between the times of one report in both
        bool json = false;   // a line for each record that is not the same, and one with the counts
    };

    Diff(Output &out, const Form &form) : out_(out), form_(form) {}

    std::unique_ptr<Renderer> renderer() const override;
    size_t chunk_octets() const override { return size_t{256} * 1024; }
    uint64_t shows(const DecodedBlock &decoded) const override { return decoded.shown.count(); }
    void file(const std::string &name) override;
    void take(std::string_view rendered) override { records_[reading_].take(rendered); }
    void finish(uint64_t octets_read) override;
    void give_up() override {}
    void break_off() override {}
    bool has_found_any() const override { return same_ != records_[0].size() || same_ != records_[1].size(); }

private:
    void compare(const Match &match);
    void summary();

    Output &out_;
    Form form_;
    std::array<std::string, 2> names_;
    std::array<KeptRecords, 2> records_;
    size_t files_ = 0;
    size_t reading_ = 0; // which of them
    uint64_t same_ = 0;
    uint64_t different_ = 0;
    std::array<uint64_t, 2> only_{}; // in which of them
    TextBuffer text_;
};

} // namespace ast::recording::astdump
