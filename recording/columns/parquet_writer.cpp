#include "columns/parquet_writer.hpp"

#include <algorithm>
#include <ast.h>
#include <limits>
#include <utility>

#include "columns/arrow_writer.hpp"
#include "columns/little_endian.hpp"
#include "columns/parquet_schema.hpp"
#include "columns/thrift.hpp"

namespace ast::recording {

namespace {

constexpr std::string_view kMagic = "PAR1";

// Encodings.
constexpr int32_t kPlain = 0;
constexpr int32_t kHybrid = 3;
constexpr int32_t kDictionaryCodes = 8;

int32_t codec_of(PackingKind kind) {
    constexpr int32_t kGzip = 2;
    constexpr int32_t kZstd = 6;
    return kind == PackingKind::zstd ? kZstd : kGzip;
}

template <typename Value>
std::string little(Value value) {
    std::string octets;
    put_little(octets, value);
    return octets;
}

void put_text(std::string &page, std::string_view text) {
    put_little(page, static_cast<uint32_t>(text.size()));
    page += text;
}

// The least and the greatest of what is taken. Of zeros, the sign is such that none is left out.
template <typename Value>
class Extremes {
public:
    void take(Value value) {
        least_ = std::min(least_, value);
        greatest_ = std::max(greatest_, value);
    }
    std::string least() const { return little(least_ == 0 ? -Value{0} : least_); }
    std::string greatest() const { return little(greatest_ == 0 ? Value{0} : greatest_); }

private:
    Value least_ = std::numeric_limits<Value>::max();
    Value greatest_ = std::numeric_limits<Value>::lowest();
};

} // namespace

ParquetWriter::ParquetWriter(std::span<const ColumnHead> heads, PutOctets put)
    : heads_(heads), put_(std::move(put)), packing_(make_packing()) {
    this->put(kMagic);
}

void ParquetWriter::put(std::string_view octets) {
    put_(octets);
    written_ += static_cast<int64_t>(octets.size());
}

// ---- Pages ----

void ParquetWriter::write_page(PageKind kind, uint64_t values, int32_t encoding, Chunk &chunk) {
    packing_->pack(page_, packed_);
    Thrift head;
    head.structure([&] {
        head.int32(1, static_cast<int32_t>(kind));
        head.int32(2, static_cast<int64_t>(page_.size()));
        head.int32(3, static_cast<int64_t>(packed_.size()));
        if (kind == PageKind::data)
            head.structure(5, [&] {
                head.int32(1, static_cast<int64_t>(values));
                head.int32(2, encoding);
                head.int32(3, kHybrid); // of definition levels
                head.int32(4, kHybrid); // of repetition levels
            });
        else
            head.structure(7, [&] {
                head.int32(1, static_cast<int64_t>(values));
                head.int32(2, encoding);
            });
    });
    (kind == PageKind::data ? chunk.data : chunk.dictionary.emplace()) = written_;
    put(head.text());
    put(packed_);
    chunk.octets += static_cast<int64_t>(head.text().size() + page_.size());
    chunk.packed_octets += static_cast<int64_t>(head.text().size() + packed_.size());
}

// The codes are those of the values of the page.
void ParquetWriter::write_codes(const Levels &levels, uint64_t count, Chunk &chunk) {
    const unsigned bits = bits_for(count - 1);
    page_.clear();
    levels.put(page_);
    page_ += static_cast<char>(bits);
    put_hybrid(page_, codes_, bits);
    write_page(PageKind::data, levels.size(), kDictionaryCodes, chunk);
}

void ParquetWriter::write_texts(const Column &leaf, const Levels &levels, Chunk &chunk) {
    const Dictionary &dictionary = leaf.dictionary();
    page_.clear();
    uint32_t least = 0, greatest = 0;
    for (uint32_t code = 0; code < dictionary.size(); ++code) {
        put_text(page_, dictionary[code]);
        if (dictionary[code] < dictionary[least]) least = code;
        if (dictionary[code] > dictionary[greatest]) greatest = code;
    }
    write_page(PageKind::dictionary, dictionary.size(), kPlain, chunk);
    codes_.resize(static_cast<size_t>(levels.size() - levels.nulls()));
    uint32_t *next = codes_.data();
    levels.each_value([&](uint64_t row) { *next++ = leaf.value<uint32_t>(row); });
    write_codes(levels, dictionary.size(), chunk);
    chunk.least = dictionary[least];
    chunk.greatest = dictionary[greatest];
}

void ParquetWriter::write_flags(const Column &leaf, const Levels &levels, Chunk &chunk) {
    page_.clear();
    levels.put(page_);
    uint64_t count = 0, set = 0;
    unsigned open = 0; // bits of an octet that is not full
    levels.each_value([&](uint64_t row) {
        const bool flag = leaf.flags()[row];
        set += flag;
        open |= unsigned{flag} << count++ % 8;
        if (count % 8 == 0) page_ += static_cast<char>(std::exchange(open, 0U));
    });
    if (count % 8 != 0) page_ += static_cast<char>(open);
    write_page(PageKind::data, levels.size(), kPlain, chunk);
    chunk.least = std::string(1, set == count ? '\1' : '\0');
    chunk.greatest = std::string(1, set != 0 ? '\1' : '\0');
}

// Few numbers that come again and again are told by codes, if they are few as soon as some have been looked at.
template <typename Value>
bool ParquetWriter::find_numbers(const Column &leaf, const Levels &levels) {
    constexpr uint32_t kSome = 2048;
    constexpr uint32_t kMost = 32768;
    constexpr uint64_t kTimes = 3; // that a number comes at least
    numbers_.clear();
    codes_.resize(static_cast<size_t>(levels.size() - levels.nulls()));
    uint32_t *next = codes_.data();
    bool are_few = true;
    uint64_t last = 0;          // which mostly comes again
    uint32_t last_code = kMost; // none so far
    levels.each_value([&](uint64_t row) {
        if (!are_few) return;
        uint64_t number = 0;
        const auto value = leaf.value<Value>(row);
        std::memcpy(&number, &value, sizeof value);
        if (number != last || last_code == kMost) {
            const auto [code, is_new] = numbers_.code_of(number);
            const auto seen = static_cast<uint64_t>(next - codes_.data());
            are_few = !is_new || code < kSome || (code < kMost && seen > kTimes * code);
            last = number;
            last_code = code;
        }
        *next++ = last_code;
    });
    return are_few;
}

template <typename Value>
void ParquetWriter::write_numbers(const Column &leaf, const Levels &levels, Chunk &chunk) {
    Extremes<Value> extremes;
    if (find_numbers<Value>(leaf, levels)) {
        page_.clear();
        for (const uint64_t number : numbers_.numbers()) {
            Value value;
            std::memcpy(&value, &number, sizeof value);
            extremes.take(value);
            put_little(page_, value);
        }
        write_page(PageKind::dictionary, numbers_.numbers().size(), kPlain, chunk);
        write_codes(levels, numbers_.numbers().size(), chunk);
    } else {
        page_.clear();
        levels.put(page_);
        const size_t before = page_.size();
        page_.resize(before + static_cast<size_t>(levels.size() - levels.nulls()) * sizeof(Value));
        char *at = page_.data() + before;
        levels.each_value([&](uint64_t row) {
            const auto value = leaf.value<Value>(row);
            extremes.take(value);
            std::memcpy(at, &value, sizeof value);
            at += sizeof value;
        });
        turn(page_.data() + before, page_.size() - before, sizeof(Value));
        write_page(PageKind::data, levels.size(), kPlain, chunk);
    }
    chunk.least = extremes.least();
    chunk.greatest = extremes.greatest();
}

// ---- Groups ----

ParquetWriter::Chunk ParquetWriter::write_chunk(const LeafPath &path) {
    const Levels levels(path);
    const Column &leaf = *path.back();
    Chunk chunk{.values = levels.size(), .nulls = levels.nulls()};
    if (levels.nulls() == levels.size()) {
        page_.clear();
        levels.put(page_);
        write_page(PageKind::data, levels.size(), kPlain, chunk);
        return chunk;
    }
    switch (leaf.head().type) {
    case ColumnType::boolean:
        write_flags(leaf, levels, chunk);
        break;
    case ColumnType::int32:
        write_numbers<int32_t>(leaf, levels, chunk);
        break;
    case ColumnType::float64:
        write_numbers<double>(leaf, levels, chunk);
        break;
    case ColumnType::text:
        write_texts(leaf, levels, chunk);
        break;
    default:
        write_numbers<int64_t>(leaf, levels, chunk);
    }
    return chunk;
}

void ParquetWriter::write_leaves(LeafPath &path, Group &group) {
    const Column &column = *path.back();
    if (column.children().empty()) group.chunks.push_back(write_chunk(path));
    for (const Column &child : column.children()) {
        path.push_back(&child);
        write_leaves(path, group);
        path.pop_back();
    }
}

void ParquetWriter::write(const Batch &batch) {
    Group group{.rows = batch.rows, .chunks = {}};
    for (const Column &column : batch.columns) {
        LeafPath path{&column};
        write_leaves(path, group);
    }
    groups_.push_back(std::move(group));
}

// The directory of all that is written, at the end of the file.
void ParquetWriter::finish(const Batch &) {
    const std::vector<ParquetLeaf> leaves = parquet_leaves(heads_);
    int64_t rows = 0;
    for (const Group &group : groups_) rows += static_cast<int64_t>(group.rows);
    Thrift all;
    const auto put_chunk = [&](const Chunk &chunk, const ParquetLeaf &leaf) {
        all.int32(1, leaf.type);
        all.list(2, Thrift::Type::int32, 3);
        for (const int32_t encoding : {kPlain, kHybrid, kDictionaryCodes}) all.number(encoding);
        all.list(3, Thrift::Type::text, leaf.path.size());
        for (const std::string &step : leaf.path) all.text(step);
        all.int32(4, codec_of(packing_->kind()));
        all.int64(5, static_cast<int64_t>(chunk.values));
        all.int64(6, chunk.octets);
        all.int64(7, chunk.packed_octets);
        all.int64(9, chunk.data);
        if (chunk.dictionary) all.int64(11, *chunk.dictionary);
        all.structure(12, [&] {
            all.int64(3, static_cast<int64_t>(chunk.nulls));
            if (chunk.nulls == chunk.values) return;
            all.text(5, chunk.greatest);
            all.text(6, chunk.least);
        });
    };
    const auto put_group = [&](const Group &group) {
        all.list(1, Thrift::Type::structure, group.chunks.size());
        int64_t octets = 0;
        for (size_t i = 0; i < group.chunks.size(); ++i) {
            const Chunk &chunk = group.chunks[i];
            octets += chunk.octets;
            all.structure([&] {
                all.int64(2, chunk.dictionary.value_or(chunk.data));
                all.structure(3, [&] { put_chunk(chunk, leaves[i]); });
            });
        }
        all.int64(2, octets);
        all.int64(3, static_cast<int64_t>(group.rows));
    };
    all.structure([&] {
        constexpr int32_t kVersion = 2;
        all.int32(1, kVersion);
        put_parquet_schema(all, 2, heads_);
        all.int64(3, rows);
        all.list(4, Thrift::Type::structure, groups_.size());
        for (const Group &group : groups_) all.structure([&] { put_group(group); });
        put_parquet_description(all, 5, heads_);
        all.text(6, "libast " + std::string(ast_library_version()));
        all.list(7, Thrift::Type::structure, leaves.size()); // each is ordered as its type is
        for (size_t i = 0; i < leaves.size(); ++i) all.structure([&] { all.empty_structure(1); });
    });
    std::string end = all.text();
    put_little(end, static_cast<uint32_t>(all.text().size()));
    end += kMagic;
    put(end);
}

} // namespace ast::recording
