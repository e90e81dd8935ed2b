#include "api/column_stream.hpp"

#include <cerrno>
#include <new>
#include <utility>

#include "columns/arrow_export.hpp"

namespace ast::recording {

ColumnStream::ColumnStream(std::weak_ptr<Recording> recording, std::shared_ptr<const Table> table, Choice choice)
    : recording_(std::move(recording)),
      table_(std::move(table)),
      choice_(std::move(choice)),
      sites_(choice_.sites),
      rows_(*table_),
      piece_(table_->heads),
      group_(table_->heads, choice_.rows) {}

void ColumnStream::put(std::unique_ptr<ColumnStream> columns, ArrowArrayStream &stream) {
    stream = {.get_schema = get_schema,
              .get_next = get_next,
              .get_last_error = get_last_error,
              .release = release,
              .private_data = columns.release()};
}

template <typename Act>
int ColumnStream::attempt(Act act) {
    try {
        error_.clear();
        return act();
    } catch (const std::bad_alloc &) {
        error_ = "no memory"; // which needs none
        return ENOMEM;
    } catch (const std::exception &error) {
        error_ = error.what();
        return EIO;
    }
}

int ColumnStream::get_schema(ArrowArrayStream *stream, ArrowSchema *schema) {
    auto &columns = *static_cast<ColumnStream *>(stream->private_data);
    return columns.attempt([&] {
        export_schema(columns.table_, *schema);
        return 0;
    });
}

int ColumnStream::get_next(ArrowArrayStream *stream, ArrowArray *array) {
    auto &columns = *static_cast<ColumnStream *>(stream->private_data);
    const int failure = columns.attempt([&] { return columns.next(*array); });
    if (failure == 0) return 0;
    columns.piece_.clear(); // which may not be whole
    columns.group_.clear();
    columns.taken_ = 0;
    return failure;
}

const char *ColumnStream::get_last_error(ArrowArrayStream *stream) {
    const auto &columns = *static_cast<const ColumnStream *>(stream->private_data);
    return columns.error_.empty() ? nullptr : columns.error_.c_str();
}

void ColumnStream::release(ArrowArrayStream *stream) {
    delete static_cast<ColumnStream *>(stream->private_data);
    stream->release = nullptr;
}

int ColumnStream::next(ArrowArray &array) {
    array = {}; // released, which is the end
    const std::shared_ptr<Recording> recording = recording_.lock();
    if (!recording) {
        error_ = "the recording is closed";
        return ECANCELED;
    }
    while (!group_.is_full()) {
        if (taken_ == piece_.rows && !read_piece(*recording)) break;
        taken_ = group_.add(piece_, taken_);
    }
    if (group_.batch().rows == 0) return end(*recording);
    export_batch(table_, std::exchange(group_.batch(), Batch(table_->heads)), array);
    group_.clear();
    return 0;
}

// False when there is nothing left.
bool ColumnStream::read_piece(Recording &recording) {
    constexpr uint64_t kRows = 2048;
    constexpr int kNoLimit = -1;
    ast_recording_block_t block;
    piece_.clear();
    taken_ = 0;
    rows_.begin(piece_);
    while (piece_.rows < kRows && recording.next(block, kNoLimit)) add(recording, block);
    rows_.finish();
    return piece_.rows != 0;
}

// A block that is not asked for tells where its source stands all the same.
void ColumnStream::add(Recording &recording, const ast_recording_block_t &block) {
    DecodedBlock decoded = recording.split_block();
    if (sites_.learns_from(decoded.octets)) sites_.learn(*decoded.block);
    if (!choice_.categories.test(decoded.octets[0])) return;
    decoded.sites = &sites_;
    select_records(decoded, choice_.filter);
    rows_.add(decoded, block.file);
}

int ColumnStream::end(const Recording &recording) {
    ast_recording_state_t state;
    switch (recording.get_state(state)) {
    case AST_RECORDING_INTERRUPTED:
        error_ = "interrupted";
        return ECANCELED;
    case AST_RECORDING_FAILED:
        error_ = state.error.text;
        return state.error.code == AST_RECORDING_ERROR_MEMORY ? ENOMEM : EIO;
    default:
        return 0;
    }
}

} // namespace ast::recording
