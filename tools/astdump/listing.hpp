// The listing: a line per block, a line per record, and the items with their names, sizes, summaries
// and octets.
#pragma once

#include <cstdio>
#include <string>

#include "detail.hpp"
#include "sink.hpp"
#include "terminal.hpp"

namespace astdump {

class Listing : public Sink {
public:
    struct Form {
        unsigned columns; // that lines are laid out for, at least 60
        bool color;
        bool name_files; // when there are several
        bool detail;     // the fields of each item below it
    };
    Listing(std::FILE *out, const Form &form);

    void file(const std::string &name) override;
    void block(const DecodedBlock &decoded) override;
    void finish() override {}

private:
    void block_line(const DecodedBlock &decoded);
    void record(const ast_datarecord_t &record, uint64_t number, const ast_uap_t &block_uap);
    void items(const ast_datarecord_t &record);
    void item(const ast_dataitem_t &item);
    void octets(const ast_dataitem_t &item, int indent);
    void fault(const DecodedBlock &decoded);

    std::FILE *out_;
    Style style_;
    bool name_files_;
    int octets_per_line_;
    int summary_width_;
    int name_width_;
    int summary_column_; // where the summary starts
    int hex_column_;     // where the octets start
    Views views_;
    std::string hex_;
    std::optional<Detail> detail_;
};

} // namespace astdump
