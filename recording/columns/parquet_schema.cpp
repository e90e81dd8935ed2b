#include "columns/parquet_schema.hpp"

#include "base/json_string.hpp"
#include "base/text_buffer.hpp"
#include "columns/arrow_writer.hpp"

namespace ast::recording {

namespace {

// Physical types.
constexpr int32_t kBoolean = 0;
constexpr int32_t kInt32 = 1;
constexpr int32_t kInt64 = 2;
constexpr int32_t kDouble = 5;
constexpr int32_t kByteArray = 6;

constexpr int32_t kOptional = 1;
constexpr int32_t kRepeated = 2;

// What a type means: by its number in older files, by the field of a union in newer ones.
constexpr int32_t kOldUtf8 = 0;
constexpr int32_t kOldList = 3;
constexpr int16_t kString = 1;
constexpr int16_t kList = 3;
constexpr int16_t kTimestamp = 8;
constexpr int16_t kNanoseconds = 3;

constexpr std::string_view kListStep = "list"; // between a list and its element

int32_t physical_type(ColumnType type) {
    switch (type) {
    case ColumnType::boolean:
        return kBoolean;
    case ColumnType::int32:
        return kInt32;
    case ColumnType::float64:
        return kDouble;
    case ColumnType::text:
        return kByteArray;
    default:
        return kInt64;
    }
}

void put_meaning(Thrift &out, ColumnType type) {
    if (type == ColumnType::text) out.int32(6, kOldUtf8);
    if (type == ColumnType::list) out.int32(6, kOldList);
    if (type == ColumnType::text) out.structure(10, [&] { out.empty_structure(kString); });
    if (type == ColumnType::list) out.structure(10, [&] { out.empty_structure(kList); });
    if (type == ColumnType::time)
        out.structure(10, [&] {
            out.structure(kTimestamp, [&] {
                out.flag(1, true); // in UTC
                out.structure(2, [&] { out.empty_structure(kNanoseconds); });
            });
        });
}

size_t elements_of(std::span<const ColumnHead> heads) {
    size_t count = heads.size();
    for (const ColumnHead &head : heads) count += elements_of(head.children) + (head.type == ColumnType::list);
    return count;
}

void put_elements(Thrift &out, std::span<const ColumnHead> heads) {
    for (const ColumnHead &head : heads) {
        out.structure([&] {
            if (head.children.empty()) out.int32(1, physical_type(head.type));
            out.int32(3, kOptional);
            out.text(4, head.name);
            if (!head.children.empty()) out.int32(5, static_cast<int64_t>(head.children.size()));
            put_meaning(out, head.type);
        });
        if (head.type == ColumnType::list)
            out.structure([&] {
                out.int32(3, kRepeated);
                out.text(4, kListStep);
                out.int32(5, 1);
            });
        put_elements(out, head.children);
    }
}

void add_leaves(std::vector<ParquetLeaf> &leaves, std::vector<std::string> &path, std::span<const ColumnHead> heads) {
    for (const ColumnHead &head : heads) {
        const size_t before = path.size();
        path.push_back(head.name);
        if (head.type == ColumnType::list) path.emplace_back(kListStep);
        if (head.children.empty()) leaves.push_back({physical_type(head.type), path});
        add_leaves(leaves, path, head.children);
        path.resize(before);
    }
}

std::string base64(std::string_view octets) {
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (size_t at = 0; at < octets.size(); at += 3) {
        const std::string_view piece = octets.substr(at, 3);
        uint32_t bits = 0;
        for (size_t i = 0; i < 3; ++i) bits = bits << 8 | (i < piece.size() ? static_cast<uint8_t>(piece[i]) : 0U);
        for (size_t i = 0; i < 4; ++i) text += i <= piece.size() ? kDigits[bits >> (18 - 6 * i) & 63] : '=';
    }
    return text;
}

// As messages of a stream are framed.
std::string framed(const std::string &message) {
    std::string text(4, '\xFF');
    for (unsigned i = 0; i < 4; ++i) text += static_cast<char>(message.size() >> 8 * i);
    return text + message;
}

// {"fl":{"unit":"FL","title":"Flight level"},"I048":{"TYP":{...}}}
void put_json(TextBuffer &json, std::span<const ColumnHead> heads) {
    json.put('{');
    for (const ColumnHead &head : heads) {
        if (&head != heads.data()) json.put(',');
        put_json_string(json, head.name);
        json.put(":{\"title\":");
        put_json_string(json, head.title);
        if (!head.unit.empty()) {
            json.put(",\"unit\":");
            put_json_string(json, head.unit);
        }
        if (!head.codes.empty()) {
            json.put(",\"codes\":");
            json.put(head.codes);
        }
        if (!head.children.empty()) {
            json.put(",\"columns\":");
            put_json(json, head.children);
        }
        json.put('}');
    }
    json.put('}');
}

} // namespace

std::vector<ParquetLeaf> parquet_leaves(std::span<const ColumnHead> heads) {
    std::vector<ParquetLeaf> leaves;
    std::vector<std::string> path;
    add_leaves(leaves, path, heads);
    return leaves;
}

void put_parquet_schema(Thrift &out, int16_t id, std::span<const ColumnHead> heads) {
    out.list(id, Thrift::Type::structure, elements_of(heads) + 1);
    out.structure([&] {
        out.text(4, "schema");
        out.int32(5, static_cast<int64_t>(heads.size()));
    });
    put_elements(out, heads);
}

void put_parquet_description(Thrift &out, int16_t id, std::span<const ColumnHead> heads) {
    TextBuffer json;
    put_json(json, heads);
    const auto put_pair = [&](std::string_view key, std::string_view value) {
        out.structure([&] {
            out.text(1, key);
            out.text(2, value);
        });
    };
    out.list(id, Thrift::Type::structure, 2);
    put_pair("ARROW:schema", base64(framed(arrow_schema(heads))));
    put_pair("columns", json.text());
}

} // namespace ast::recording
