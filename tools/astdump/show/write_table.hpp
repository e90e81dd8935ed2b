// What is chosen, as a table: Parquet, Arrow or CSV.
#pragma once

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
    // To a file. Throws std::runtime_error when it cannot be written, or is one of the inputs; as do the others.
    WriteTable(const std::string &path, const std::vector<std::string> &inputs, std::shared_ptr<const Table> table);

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
    std::shared_ptr<const Table> table_;
    std::optional<OutputFile> file_; // none for a stream
    RowGroups groups_;
    mutable TablePieces pieces_;
    std::string input_;
};

} // namespace ast::recording::astdump
