#include "columns/row_writer.hpp"

#include <algorithm>
#include <type_traits>

#include "base/letters.hpp"

namespace ast::recording {

namespace {

constexpr uint32_t kItems = 1000; // numbers of a category

// What is text in an answer, as a number.
uint64_t number_of_text(const Quantity &quantity, const ast_answers_t &answers) {
    if (const auto *const member = std::get_if<uint32_t ast_answers_t::*>(&quantity.member)) return answers.**member;
    uint64_t characters = 0;
    static_assert(sizeof characters + 1 == sizeof answers.callsign);
    std::memcpy(&characters, answers.callsign, sizeof characters);
    return characters;
}

// Puts what stands beside a record into a row.
void put_beside(Column &column, uint64_t row, Beside what, const DecodedBlock &decoded, uint64_t record,
                const std::string &file) {
    const Datagram &datagram = *decoded.datagram;
    switch (what) {
    case Beside::file:
        return column.set_text(row, datagram.file ? *datagram.file : file);
    case Beside::block:
        return column.set(row, static_cast<int64_t>(decoded.number));
    case Beside::record:
        return column.set(row, static_cast<int32_t>(record));
    case Beside::received:
        if (!datagram.time || !has_date(*datagram.time)) return;
        if (const auto time_ns = nanoseconds_of(*datagram.time)) column.set(row, *time_ns);
    }
}

} // namespace

RowWriter::RowWriter(const Table &table) : table_(table), items_(kItems, -1), texts_(table.sources.size()) {
    for (size_t i = 0; i < table.sources.size(); ++i) {
        if (std::holds_alternative<QuantityColumn>(table.sources[i])) quantities_.push_back(i);
        if (std::holds_alternative<PathColumn>(table.sources[i])) paths_.push_back(i);
        if (std::holds_alternative<Beside>(table.sources[i])) besides_.push_back(i);
        const auto *const item = std::get_if<ItemFields>(&table.sources[i]);
        if (!item) continue;
        has_items_ = true;
        for (const ast_dataitem_type_t type : item->types()) items_[type % kItems] = static_cast<int>(i);
    }
}

void RowWriter::begin(Batch &batch) {
    batch_ = &batch;
    for (Texts &texts : texts_) {
        texts.numbers.clear();
        texts.codes.clear();
    }
}

void RowWriter::add(const DecodedBlock &decoded, const std::string &file) {
    answerer_.set_block(decoded);
    for (uint64_t i = 0; i < decoded.block->record_count; ++i) {
        if (!decoded.shown[i]) continue;
        for (const size_t place : besides_)
            put_beside(batch_->columns[place], batch_->rows, std::get<Beside>(table_.sources[place]), decoded, i + 1,
                       file);
        add_record(decoded.block->records[i]);
        ++batch_->rows;
    }
}

void RowWriter::add_record(const ast_datarecord_t &record) {
    for (const size_t place : paths_)
        put_path(batch_->columns[place], std::get<PathColumn>(table_.sources[place]), record);
    if (has_items_)
        for (uint64_t i = 0; i < record.item_count; ++i) {
            const int place = items_[record.items[i].type % kItems];
            if (place < 0) continue;
            const auto column = static_cast<size_t>(place);
            std::get<ItemFields>(table_.sources[column])
                .set(batch_->columns[column], batch_->rows, record.items[i], record);
        }
    if (quantities_.empty()) return;
    answerer_.set_record(record);
    answers_[answer_count_++] = answerer_.answers();
    if (answer_count_ == kMostAnswers) put_answers();
}

void RowWriter::put_path(Column &column, const PathColumn &source, const ast_datarecord_t &record) {
    uint64_t element = 0;
    source.path.each_value(record, [&](const ast_field_value_t &value) {
        if (source.is_list)
            set_value(column.child(0), column.place_of(batch_->rows, element++), value);
        else
            set_value(column, batch_->rows, value);
    });
}

// One column after the other, which is far faster than one record after the other.
void RowWriter::put_answers() {
    uint64_t any = 0; // answers that some give, and that all do
    uint64_t all = ~uint64_t{0};
    for (unsigned i = 0; i < answer_count_; ++i) {
        any |= answers_[i].present;
        all &= answers_[i].present;
    }
    for (const size_t place : quantities_) {
        Column &column = batch_->columns[place];
        const auto &source = std::get<QuantityColumn>(table_.sources[place]);
        const uint64_t answer = source.quantity->answer;
        if ((any & answer) == 0)
            column.add_nulls(answer_count_);
        else
            put(column, texts_[place], source, (all & answer) != 0 ? ~uint64_t{0} : rows_with(answer));
    }
    answer_count_ = 0;
}

uint64_t RowWriter::rows_with(uint64_t answer) const {
    uint64_t rows = 0;
    for (unsigned i = 0; i < answer_count_; ++i) rows |= uint64_t{(answers_[i].present & answer) != 0} << i;
    return rows;
}

void RowWriter::put(Column &column, Texts &texts, const QuantityColumn &source, uint64_t there) const {
    switch (column.head().type) {
    case ColumnType::boolean:
        return put_flags(column, source, there);
    case ColumnType::int32:
        return put_numbers<uint32_t>(column, source, there);
    case ColumnType::float64:
        return put_numbers<double>(column, source, there);
    case ColumnType::time:
        return put_numbers<int64_t>(column, source, there);
    default:
        return put_texts(column, texts, source, there);
    }
}

template <typename Value>
void RowWriter::put_numbers(Column &column, const QuantityColumn &source, uint64_t there) const {
    const auto member = std::get<Value ast_answers_t::*>(source.quantity->member);
    column.add_rows<Value>(answer_count_, there, [&](unsigned i) {
        const Value value = answers_[i].*member;
        if constexpr (std::is_floating_point_v<Value>) return value * source.factor;
        return value;
    });
}

void RowWriter::put_flags(Column &column, const QuantityColumn &source, uint64_t there) const {
    const auto member = std::get<bool ast_answers_t::*>(source.quantity->member);
    uint64_t flags = 0;
    for (unsigned i = 0; i < answer_count_; ++i) flags |= uint64_t{answers_[i].*member} << i;
    column.add_flags(answer_count_, there, flags);
}

void RowWriter::put_texts(Column &column, Texts &texts, const QuantityColumn &source, uint64_t there) const {
    const auto write = [&](const ast_answers_t &answers) {
        char room[kQuantityRoom];
        CellWriter writer(room);
        source.quantity->write(writer, answers);
        if (source.has_small_letters) std::transform(room, room + writer.size(), room, to_small);
        return column.dictionary().code_of({room, writer.size()});
    };
    column.add_rows<uint32_t>(answer_count_, there, [&](unsigned i) {
        if ((there >> i & 1) == 0) return uint32_t{0};
        const auto [number, is_new] = texts.numbers.code_of(number_of_text(*source.quantity, answers_[i]));
        if (is_new) texts.codes.push_back(write(answers_[i]));
        return texts.codes[number];
    });
}

void RowWriter::finish() {
    if (answer_count_ != 0) put_answers();
    batch_->complete();
}

} // namespace ast::recording
