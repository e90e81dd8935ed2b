// The listing: a line per block, a line per record, and the items with their names, sizes and octets.
#pragma once

#include <cstdio>
#include <string>

#include "sink.hpp"
#include "terminal.hpp"

namespace astdump {

class Listing : public Sink {
public:
    // Names the files when there are several. Octets in hexadecimal are wrapped so that lines fit `width` columns, at
    // least 60.
    Listing(std::FILE *out, bool color, unsigned width, bool name_files);

    void file(const std::string &name) override;
    void block(const DecodedBlock &decoded) override;
    void finish() override {}

private:
    void block_line(const DecodedBlock &decoded);
    void record(const ast_datarecord_t &record, uint64_t number, const ast_uap_t &block_uap);
    void items(const ast_datarecord_t &record);
    void item(const ast_dataitem_t &item);
    void octets(const ast_dataitem_t &item);
    void fault(const DecodedBlock &decoded);

    std::FILE *out_;
    Style style_;
    int name_width_;
    int hex_column_; // where the octets start
    unsigned octets_per_line_;
    bool name_files_;
    std::string hex_;
};

} // namespace astdump
