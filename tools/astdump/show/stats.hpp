// Tables of what a run has met: by category, and by item type.
#pragma once

#include "show/sink.hpp"
#include "show/terminal.hpp"
#include "write/output.hpp"

namespace ast::recording::astdump {

class Stats : public Sink {
public:
    Stats(Output &out, bool color) : out_(out), style_(color) {}

    std::unique_ptr<Renderer> renderer() const override { return nullptr; }
    size_t chunk_octets() const override { return size_t{256} * 1024; }
    bool counts() const override { return true; }
    void file(const std::string &name) override { files_.push_back({name, {}}); }
    void framing(const std::string &name) override { files_.back().framing = name; }
    void take(std::string_view) override {}
    void count(const Tally &tally) override;
    void doubt(const JudgedSource &source, const Judgement &judgement) override {
        doubts_.push_back({source, judgement, files_.size() - 1});
    }
    void finish(uint64_t octets_read) override;

private:
    void categories();
    void row(const char *title, const Counts &counts);
    void items();
    void profiles();
    void profile(unsigned category, const Profile &profile, uint64_t blocks);
    void doubts();
    void files();
    void headline(std::string_view text);
    void item(ast_dataitem_type_t type, uint64_t count);

    Output &out_;
    Style style_;
    TextBuffer text_;
    std::array<Counts, 256> counts_{}; // by category
    ByType<uint64_t> items_;
    Losses losses_;
    struct File {
        std::string name;
        std::string framing;
    };
    std::vector<File> files_;
    struct Doubt {
        JudgedSource source;
        Judgement judgement;
        size_t file;
    };
    std::vector<Doubt> doubts_;
};

} // namespace ast::recording::astdump
