#include "columns/row_writer.hpp"

#include <algorithm>

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
    for (const size_t place : quantities_)
        put(batch_->columns[place], texts_[place], std::get<QuantityColumn>(table_.sources[place]));
    answer_count_ = 0;
}

void RowWriter::put(Column &column, Texts &texts, const QuantityColumn &source) const {
    const Quantity &quantity = *source.quantity;
    uint64_t there = 0;
    for (unsigned i = 0; i < answer_count_; ++i) there |= uint64_t{(answers_[i].present & quantity.answer) != 0} << i;
    switch (column.head().type) {
    case ColumnType::float64:
        return column.add_rows<double>(answer_count_, there,
                                       [&, member = std::get<double ast_answers_t::*>(quantity.member)](unsigned i) {
                                           return answers_[i].*member * source.factor;
                                       });
    case ColumnType::int32:
        return column.add_rows<uint32_t>(
            answer_count_, there, [&, member = std::get<uint32_t ast_answers_t::*>(quantity.member)](unsigned i) {
                return answers_[i].*member;
            });
    case ColumnType::time:
        return column.add_rows<int64_t>(answer_count_, there,
                                        [&, member = std::get<int64_t ast_answers_t::*>(quantity.member)](unsigned i) {
                                            return answers_[i].*member;
                                        });
    case ColumnType::boolean: {
        uint64_t flags = 0;
        for (unsigned i = 0; i < answer_count_; ++i)
            flags |= uint64_t{answers_[i].*std::get<bool ast_answers_t::*>(quantity.member)} << i;
        return column.add_flags(answer_count_, there, flags);
    }
    default:
        return put_texts(column, texts, source, there);
    }
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
