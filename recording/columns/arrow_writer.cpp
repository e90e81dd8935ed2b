#include "columns/arrow_writer.hpp"

#include <utility>

#include "columns/little_endian.hpp"

namespace ast::recording {

namespace {

constexpr std::string_view kMagic = "ARROW1";
constexpr size_t kAlignment = 64; // of buffers, and of what they stand in
constexpr size_t kMessageAlignment = 8;
constexpr uint32_t kContinuation = 0xFFFF'FFFF; // in front of each message

constexpr int16_t kVersion5 = 4;

// Kinds of messages.
constexpr uint8_t kSchema = 1;
constexpr uint8_t kDictionaryBatch = 2;
constexpr uint8_t kRecordBatch = 3;

// Types, and what they are told by.
constexpr uint8_t kInt = 2;
constexpr uint8_t kFloatingPoint = 3;
constexpr uint8_t kUtf8 = 5;
constexpr uint8_t kBool = 6;
constexpr uint8_t kTimestamp = 10;
constexpr uint8_t kList = 12;
constexpr uint8_t kStruct = 13;
constexpr int16_t kDouble = 2;
constexpr int16_t kNanoseconds = 3;
constexpr bool kSigned = true;

FlatBuffer::Place put_int(FlatBuffer &schema, int32_t bits) {
    schema.begin();
    schema.set(0, bits);
    schema.set(1, kSigned);
    return schema.end();
}

uint8_t kind_of(ColumnType type) {
    switch (type) {
    case ColumnType::boolean:
        return kBool;
    case ColumnType::int32:
    case ColumnType::int64:
        return kInt;
    case ColumnType::float64:
        return kFloatingPoint;
    case ColumnType::time:
        return kTimestamp;
    case ColumnType::text:
        return kUtf8;
    case ColumnType::structure:
        return kStruct;
    case ColumnType::list:
        return kList;
    }
    return 0;
}

FlatBuffer::Place put_type(FlatBuffer &schema, ColumnType type) {
    constexpr int32_t kBitsPerOctet = 8;
    if (kind_of(type) == kInt) return put_int(schema, static_cast<int32_t>(width_of(type)) * kBitsPerOctet);
    const FlatBuffer::Place zone = type == ColumnType::time ? schema.text("UTC") : 0;
    schema.begin();
    if (type == ColumnType::float64) schema.set(0, kDouble);
    if (type == ColumnType::time) {
        schema.set(0, kNanoseconds);
        schema.refer(1, zone);
    }
    return schema.end();
}

FlatBuffer::Place put_metadata(FlatBuffer &schema, const ColumnHead &head) {
    std::vector<FlatBuffer::Place> pairs;
    for (const auto &[key, value] : told_of(head)) {
        const FlatBuffer::Place key_place = schema.text(key);
        const FlatBuffer::Place value_place = schema.text(value);
        schema.begin();
        schema.refer(0, key_place);
        schema.refer(1, value_place);
        pairs.push_back(schema.end());
    }
    return pairs.empty() ? 0 : schema.tables(pairs);
}

// Dictionaries are numbered in the order of their columns, parents first.
FlatBuffer::Place put_field(FlatBuffer &schema, const ColumnHead &head, int64_t &dictionary) {
    constexpr int32_t kCodeBits = 32;
    const int64_t id = dictionary;
    if (head.type == ColumnType::text) ++dictionary;
    std::vector<FlatBuffer::Place> children;
    for (const ColumnHead &child : head.children) children.push_back(put_field(schema, child, dictionary));
    const FlatBuffer::Place children_place = schema.tables(children);
    const FlatBuffer::Place metadata = put_metadata(schema, head);
    const FlatBuffer::Place name = schema.text(head.name);
    const FlatBuffer::Place type = put_type(schema, head.type);
    FlatBuffer::Place encoding = 0;
    if (head.type == ColumnType::text) {
        const FlatBuffer::Place code = put_int(schema, kCodeBits);
        schema.begin();
        schema.set(0, id);
        schema.refer(1, code);
        encoding = schema.end();
    }
    schema.begin();
    schema.refer(0, name);
    schema.set(1, true); // nullable
    schema.set(2, kind_of(head.type));
    schema.refer(3, type);
    if (encoding != 0) schema.refer(4, encoding);
    schema.refer(5, children_place);
    if (metadata != 0) schema.refer(6, metadata);
    return schema.end();
}

FlatBuffer::Place put_schema(FlatBuffer &buffer, std::span<const ColumnHead> heads) {
    constexpr int16_t kLittleEndian = 0;
    std::vector<FlatBuffer::Place> fields;
    int64_t dictionary = 0;
    for (const ColumnHead &head : heads) fields.push_back(put_field(buffer, head, dictionary));
    const FlatBuffer::Place fields_place = buffer.tables(fields);
    buffer.begin();
    buffer.set(0, kLittleEndian);
    buffer.refer(1, fields_place);
    return buffer.end();
}

std::string finish_message(FlatBuffer &message, uint8_t kind, FlatBuffer::Place header, int64_t octets_behind) {
    message.begin();
    message.set(3, octets_behind);
    message.refer(2, header);
    message.set(0, kVersion5);
    message.set(1, kind);
    return message.finish(message.end());
}

constexpr size_t padding(size_t octets, size_t alignment) { return (alignment - octets % alignment) % alignment; }

} // namespace

std::string arrow_schema(std::span<const ColumnHead> heads) {
    FlatBuffer message;
    const FlatBuffer::Place schema = put_schema(message, heads);
    return finish_message(message, kSchema, schema, 0);
}

ArrowWriter::ArrowWriter(std::span<const ColumnHead> heads, bool is_file, PutOctets put)
    : heads_(heads), is_file_(is_file), put_(std::move(put)) {
    if (is_file) {
        this->put(kMagic);
        this->put({"\0\0", kMessageAlignment - kMagic.size()});
    }
    put_message(arrow_schema(heads));
}

void ArrowWriter::put(std::string_view octets) {
    put_(octets);
    written_ += static_cast<int64_t>(octets.size());
}

// Returns the octets that it takes with its frame.
int64_t ArrowWriter::put_message(const std::string &message) {
    std::string frame;
    put_little(frame, kContinuation);
    const size_t pad = padding(message.size() + 2 * sizeof kContinuation, kAlignment);
    put_little(frame, static_cast<uint32_t>(message.size() + pad));
    put(frame);
    put(message);
    put(std::string(pad, '\0'));
    return static_cast<int64_t>(frame.size() + message.size() + pad);
}

void ArrowWriter::Rows::add(const void *buffer, size_t size, size_t width) {
    places.push_back(octets);
    places.push_back(static_cast<int64_t>(size));
    pieces.push_back({buffer, size, width});
    octets += static_cast<int64_t>(size + padding(size, kAlignment));
}

// Of a column without values, all buffers are zeros.
void ArrowWriter::Rows::add(const Column &column) {
    const auto size = static_cast<size_t>(column.size());
    const ColumnType type = column.head().type;
    const size_t bits = (size + 7) / 8;
    const bool is_void = column.is_void();
    nodes.push_back(static_cast<int64_t>(column.size()));
    nodes.push_back(static_cast<int64_t>(column.nulls()));
    add(is_void ? nullptr : column.validity().octets().data(), column.nulls() == 0 ? 0 : bits, 1);
    if (type == ColumnType::boolean) {
        add(is_void ? nullptr : column.flags().octets().data(), bits, 1);
    } else if (type != ColumnType::structure) {
        const size_t values = size + (type == ColumnType::list ? 1 : 0);
        add(is_void ? nullptr : column.values().data(), values * width_of(type), width_of(type));
    }
    for (const Column &child : column.children()) add(child);
}

FlatBuffer::Place ArrowWriter::Rows::put(FlatBuffer &message) const {
    const FlatBuffer::Place buffers = message.structs(places, 2);
    const FlatBuffer::Place columns = message.structs(nodes, 2);
    message.begin();
    message.set(0, count);
    message.refer(1, columns);
    message.refer(2, buffers);
    return message.end();
}

void ArrowWriter::write_rows(const Rows &rows, FlatBuffer &message, uint8_t kind, FlatBuffer::Place header,
                             std::vector<int64_t> &directory) {
    static constexpr char kZeros[4096] = {};
    directory.push_back(written_);
    directory.push_back(put_message(finish_message(message, kind, header, rows.octets)));
    directory.push_back(rows.octets);
    std::string turned;
    for (const Piece &piece : rows.pieces) {
        size_t zeros = padding(piece.count, kAlignment);
        if (!piece.octets) {
            zeros += piece.count;
        } else if (std::endian::native == std::endian::little) {
            put(as_text(piece.octets, piece.count));
        } else {
            turned.clear();
            put_little(turned, as_text(piece.octets, piece.count), piece.width);
            put(turned);
        }
        for (size_t now = 0; zeros != 0; zeros -= now) {
            now = std::min(zeros, sizeof kZeros);
            put({kZeros, now});
        }
    }
}

void ArrowWriter::write(const Batch &batch) {
    int64_t id = 0;
    if (!is_file_)
        for (const Column &column : batch.columns) write_dictionaries(column, id);
    Rows rows{.count = static_cast<int64_t>(batch.rows)};
    for (const Column &column : batch.columns) rows.add(column);
    FlatBuffer message;
    const FlatBuffer::Place header = rows.put(message);
    write_rows(rows, message, kRecordBatch, header, batches_);
}

void ArrowWriter::write_dictionaries(const Column &column, int64_t &id) {
    if (column.head().type == ColumnType::text) {
        const Dictionary &dictionary = column.dictionary();
        Rows texts{.count = dictionary.size(), .nodes = {dictionary.size(), 0}};
        texts.add(nullptr, 0, 1);
        texts.add(dictionary.ends().data(), dictionary.ends().size() * sizeof(int32_t), sizeof(int32_t));
        texts.add(dictionary.characters().data(), dictionary.characters().size(), 1);
        FlatBuffer message;
        const FlatBuffer::Place data = texts.put(message);
        message.begin();
        message.set(0, id++);
        message.refer(1, data);
        const FlatBuffer::Place header = message.end();
        write_rows(texts, message, kDictionaryBatch, header, dictionaries_);
    }
    for (const Column &child : column.children()) write_dictionaries(child, id);
}

void ArrowWriter::finish(const Batch &last) {
    int64_t id = 0;
    if (is_file_)
        for (const Column &column : last.columns) write_dictionaries(column, id);
    std::string end;
    put_little(end, kContinuation);
    put_little(end, uint32_t{0});
    if (!is_file_) return put(end);
    constexpr size_t kWordsOfBlock = 3;
    FlatBuffer footer;
    const FlatBuffer::Place schema = put_schema(footer, heads_);
    const FlatBuffer::Place dictionaries = footer.structs(dictionaries_, kWordsOfBlock);
    const FlatBuffer::Place batches = footer.structs(batches_, kWordsOfBlock);
    footer.begin();
    footer.set(0, kVersion5);
    footer.refer(1, schema);
    footer.refer(2, dictionaries);
    footer.refer(3, batches);
    const std::string directory = footer.finish(footer.end());
    end += directory;
    put_little(end, static_cast<int32_t>(directory.size()));
    end += kMagic;
    put(end);
}

} // namespace ast::recording
