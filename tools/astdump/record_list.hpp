// The list: a line per record with the common quantities in columns.
#pragma once

#include <array>
#include <cstdio>
#include <string>

#include "sink.hpp"
#include "terminal.hpp"

namespace astdump {

constexpr size_t kRecordListColumns = 16;

class RecordList : public Sink {
public:
    // Names the files when there are several.
    RecordList(std::FILE *out, bool color, bool name_files);

    void file(const std::string &name) override;
    void block(const DecodedBlock &decoded) override;
    void finish() override {}

private:
    void header();
    void record(const ast_datarecord_t &record);

    std::FILE *out_;
    Style style_;
    bool name_files_;
    bool headed_ = false;
    std::array<size_t, kRecordListColumns> widths_; // grow when a value takes more, so that later lines stay aligned
};

} // namespace astdump
