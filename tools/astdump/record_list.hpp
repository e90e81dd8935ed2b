// The list: a line per record with the common quantities in columns.
#pragma once

#include <array>
#include <string>

#include "output.hpp"
#include "sink.hpp"
#include "terminal.hpp"

namespace astdump {

constexpr size_t kRecordListColumns = 16;

// What is rendered are the values alone. The lines are laid out as they are taken: columns grow when a value takes
// more, so that later lines stay aligned.
class RecordList : public Sink {
public:
    // Names the files when there are several: above their lines, or, where they are merged, at the end of each.
    RecordList(Output &out, bool color, bool name_files, bool merged);

    std::unique_ptr<Renderer> renderer() const override;
    size_t chunk_octets() const override { return size_t{64} * 1024; }
    uint64_t shows(const DecodedBlock &decoded) const override { return decoded.shown.count(); }
    void file(const std::string &name) override;
    void take(std::string_view rendered) override;
    void finish(uint64_t) override {}

private:
    void header();

    Output &out_;
    Style style_;
    bool name_files_;
    bool merged_;
    bool headed_ = false;
    TextBuffer lines_;
    std::array<size_t, kRecordListColumns> widths_;
};

} // namespace astdump
