// What is chosen, as a table: Parquet, Arrow or CSV, in one file or in one for each day and category.
#pragma once

#include <compare>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "columns/row_writer.hpp"
#include "columns/table_formats.hpp"
#include "show/sink.hpp"
#include "write/output_file.hpp"

namespace ast::recording::astdump {

// By the extension of a name; nothing for other ones.
std::optional<TableFormat> find_table_format(std::string_view path);

// Which rows stand in one file; where all do, nothing is set.
struct Partition {
    std::optional<int64_t> day{}; // since 1970-01-01, UTC; nothing where no date is known
    uint32_t category = 0;

    auto operator<=>(const Partition &) const = default;
};

// Pieces of a table on their way from the threads that fill them, in whatever order, to who takes them in theirs.
class TablePieces {
public:
    explicit TablePieces(const Table &table) : table_(table) {}

    size_t make(); // the number of an empty one
    Batch &operator[](size_t number);
    void give_back(size_t number);

private:
    const Table &table_;
    std::mutex mutex_; // guards what follows
    std::vector<std::unique_ptr<Batch>> all_;
    std::vector<size_t> free_;
};

class WriteTable : public Sink {
public:
    // To a file, or, partitioned, to files of that name in folders beside it: "date=2024-06-01/category=48". Throws
    // std::runtime_error when one cannot be written, or is one of the inputs; as do the others.
    WriteTable(const std::string &path, const std::vector<std::string> &inputs, std::shared_ptr<const Table> table,
               bool is_partitioned);

    // As a stream of Arrow.
    WriteTable(Output &out, std::shared_ptr<const Table> table);

    std::unique_ptr<Renderer> renderer() const override;
    size_t chunk_octets() const override { return size_t{256} * 1024; }
    uint64_t shows(const DecodedBlock &decoded) const override;
    void file(const std::string &name) override { input_ = name; }
    void take(std::string_view rendered) override;
    void report(const Report &report) override;
    void finish(uint64_t) override;
    void give_up() override {}
    void break_off() override;

private:
    struct File {
        File(const std::string &path, const std::vector<std::string> &inputs, const Table &table);

        OutputFile file;
        RowGroups groups;
    };

    RowGroups &groups_of(const Partition &partition);
    std::string path_of(const Partition &partition) const;

    std::shared_ptr<const Table> table_;
    std::string path_;
    std::vector<std::string> inputs_;
    bool is_partitioned_ = false;
    std::map<Partition, File> files_;
    std::optional<RowGroups> stream_; // in place of files
    mutable TablePieces pieces_;
    std::string input_;
};

} // namespace ast::recording::astdump
