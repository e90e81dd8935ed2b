// What is left of a recording as batches of columns.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "api/recording.hpp"
#include "ask/filter.hpp"
#include "columns/row_group.hpp"
#include "columns/row_writer.hpp"

namespace ast::recording {

class ColumnStream {
public:
    struct Choice {
        CategorySet categories;
        Filter filter;
        std::vector<ast_site_t> sites;
        uint64_t rows;
    };

    ColumnStream(std::weak_ptr<Recording> recording, std::shared_ptr<const Table> table, Choice choice);

    // A stream that owns this one.
    static void put(std::unique_ptr<ColumnStream> columns, ArrowArrayStream &stream);

private:
    static int get_schema(ArrowArrayStream *stream, ArrowSchema *schema);
    static int get_next(ArrowArrayStream *stream, ArrowArray *array);
    static const char *get_last_error(ArrowArrayStream *stream);
    static void release(ArrowArrayStream *stream);

    // The error of what `act` does, as errno numbers it; 0 for none.
    template <typename Act>
    int attempt(Act act);

    int next(ArrowArray &array);
    bool read_piece(Recording &recording);
    void add(Recording &recording, const ast_recording_block_t &block);
    int end(const Recording &recording);

    std::weak_ptr<Recording> recording_;
    std::shared_ptr<const Table> table_;
    Choice choice_;
    SiteMemory sites_;
    RowWriter rows_;
    Batch piece_;        // some blocks
    uint64_t taken_ = 0; // rows of it
    RowGroup group_;
    std::string error_; // the last one
};

} // namespace ast::recording
