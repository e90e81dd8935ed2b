// Writes Thrift's compact protocol, as much of it as Parquet needs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ast::recording {

// A number, seven bits an octet, the least significant first.
inline void put_varint(std::string &out, uint64_t number) {
    constexpr uint64_t kMore = 0x80;
    for (; number >= kMore; number >>= 7) out += static_cast<char>(number | kMore);
    out += static_cast<char>(number);
}

// Structs are written field by field, in the order of their ids.
class Thrift {
public:
    enum class Type : uint8_t { is_true = 1, is_false = 2, int32 = 5, int64 = 6, text = 8, list = 9, structure = 12 };

    const std::string &text() const { return out_; }

    // A struct that is the whole, or an element of a list.
    template <typename Fields>
    void structure(Fields fields) {
        ids_.push_back(0);
        fields();
        ids_.pop_back();
        out_ += '\0';
    }
    template <typename Fields>
    void structure(int16_t id, Fields fields) {
        field(id, Type::structure);
        structure(fields);
    }
    void empty_structure(int16_t id) {
        structure(id, [] {});
    }

    void int32(int16_t id, int64_t value) {
        field(id, Type::int32);
        number(value);
    }
    void int64(int16_t id, int64_t value) {
        field(id, Type::int64);
        number(value);
    }
    void flag(int16_t id, bool value) { field(id, value ? Type::is_true : Type::is_false); }
    void text(int16_t id, std::string_view value) {
        field(id, Type::text);
        text(value);
    }

    // The elements follow.
    void list(int16_t id, Type type, size_t count) {
        constexpr size_t kShort = 15;
        field(id, Type::list);
        out_ += static_cast<char>((count < kShort ? count : kShort) << 4 | static_cast<size_t>(type));
        if (count >= kShort) put_varint(out_, count);
    }
    void number(int64_t value) {
        const auto raw = static_cast<uint64_t>(value);
        put_varint(out_, raw << 1 ^ (value < 0 ? ~uint64_t{0} : 0));
    }
    void text(std::string_view value) {
        put_varint(out_, value.size());
        out_ += value;
    }

private:
    void field(int16_t id, Type type) {
        constexpr int kMostBehind = 15; // ids that one octet tells
        const int behind = id - ids_.back();
        const bool is_short = behind > 0 && behind <= kMostBehind;
        out_ += static_cast<char>((is_short ? behind << 4 : 0) | static_cast<int>(type));
        if (!is_short) number(id);
        ids_.back() = id;
    }

    std::string out_;
    std::vector<int16_t> ids_; // of the last field of each open struct
};

} // namespace ast::recording
