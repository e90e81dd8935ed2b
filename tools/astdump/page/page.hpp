// A self-contained HTML page: the viewer, with a recording in it.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "page/base85.hpp"
#include "page/carried_datagrams.hpp"
#include "show/sink.hpp"
#include "write/output_file.hpp"

namespace ast::recording::astdump {

// Is written as the blocks come; what is to be known about them stands behind them.
class Page : public Sink {
public:
    struct Form {
        bool remainders = true; // whether what is no record is carried along
    };

    // Throws std::runtime_error when the file cannot be written, as do the others, or is one of the inputs, or where
    // there is no viewer.
    Page(const std::string &path, std::span<const std::string> inputs, Form form);

    std::unique_ptr<Renderer> renderer() const override;
    size_t chunk_octets() const override { return size_t{256} * 1024; }
    bool counts() const override { return true; }
    void file(const std::string &name) override;
    void take(std::string_view rendered) override;
    void count(const Tally &tally) override { losses_ += tally.losses; }
    void report(const Report &report) override;
    void doubt(const JudgedSource &source, const Judgement &judgement) override;

    // Puts the page in place, and says on standard error how large it has become.
    void finish(uint64_t octets_read) override;

    // Leaves what was there before, and says so.
    void give_up() override;
    void break_off() override;

private:
    void note(std::string_view kind, std::string_view text);
    void end();
    std::string about() const;
    void tell_size(uint64_t octets_read) const;

    std::string path_;
    std::span<const std::string> inputs_;
    Form form_;
    OutputFile file_;
    Base85 base85_;
    std::string digits_;
    mutable SitesSeen sites_; // which renderers set
    std::vector<std::string> files_;
    TextBuffer reports_; // as members of a list
    uint64_t report_count_ = 0;
    Losses losses_;
};

// Writes the viewer alone, and says so on standard error.
void write_viewer(const std::string &path);

} // namespace ast::recording::astdump
