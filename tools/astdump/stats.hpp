// Tables of what a run has met: by category, and by item type.
#pragma once

#include <array>
#include <cstdio>
#include <map>

#include "counts.hpp"
#include "sink.hpp"
#include "terminal.hpp"

namespace astdump {

class Stats : public Sink {
public:
    Stats(std::FILE *out, bool color) : out_(out), style_(color) {}

    void file(const std::string &) override {}
    void block(const DecodedBlock &decoded) override;
    void finish() override;

private:
    void categories();
    void row(const char *title, const Counts &counts);
    void items();

    std::FILE *out_;
    Style style_;
    std::array<Counts, 256> counts_{}; // by category
    std::map<ast_dataitem_type_t, uint64_t> items_;
};

} // namespace astdump
