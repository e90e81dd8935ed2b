// Comma-separated values, a line a record, quoted as RFC 4180 describes.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "ask/field_path.hpp"
#include "ask/quantities.hpp"
#include "show/sink.hpp"
#include "write/output.hpp"

namespace ast::recording::astdump {

struct CsvColumn {
    std::string title;
    std::variant<const Quantity *, FieldPath> what;
};

// Whether a text is meant as a list of columns: one of its words is a quantity or has the form of a path.
bool is_csv_columns(const std::string &list);

// Reads names and paths, "time,I010/SIC,I040/RHO"; all quantities for an empty text. What is named again, or is shown
// of every record, adds no column. Throws std::invalid_argument for a column that there is not.
std::vector<CsvColumn> read_csv_columns(const std::string &list);

// Whether it needs to be known where on the earth targets are.
bool asks_position(const CsvColumn &column);

class Csv : public Sink {
public:
    // Names the files in a column of their own when there are several, also where they are merged.
    Csv(Output &out, std::vector<CsvColumn> columns, bool name_files, bool merged)
        : out_(out), columns_(std::move(columns)), name_files_(name_files), merged_(merged) {}

    std::unique_ptr<Renderer> renderer() const override;
    size_t chunk_octets() const override { return size_t{64} * 1024; }
    uint64_t shows(const DecodedBlock &decoded) const override { return decoded.shown.count(); }
    void file(const std::string &name) override;
    void take(std::string_view rendered) override;
    void finish(uint64_t) override {}

private:
    void header();

    Output &out_;
    std::vector<CsvColumn> columns_;
    bool name_files_;
    bool merged_;
    bool headed_ = false;
    TextBuffer lines_;
    TextBuffer name_; // of the file, as it stands in its column
};

} // namespace ast::recording::astdump
