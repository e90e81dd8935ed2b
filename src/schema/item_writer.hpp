// Writing items as JSON where there is room for sure.
#pragma once

#include "schema/write.hpp"

namespace ast::schema {

// The most octets behind an item that are read along with its last ones.
constexpr size_t kReadAlong = sizeof(uint64_t) - 1;

// Characters that may be written behind a limit.
constexpr size_t kBeyondLimit = 128;

class ItemWriter {
public:
    // Writes up to kBeyondLimit characters in front of the end.
    ItemWriter(char *end, const Context &context, bool texts) : limit_(end - kBeyondLimit), writing_{context, texts} {}

    // Writes items with a comma in front of each, up to the first one that is not as most are: that no edition
    // describes, that tells how to read others, whose octets end too early or would not be given back.
    [[gnu::always_inline]] const ast_dataitem_t *usual(char *&out, const Edition &edition, const ast_dataitem_t *item,
                                                       const ast_dataitem_t *end, ast_dataitem_type_t message_type) {
        writing_.is_lossy = false;
        for (; item != end; ++item) {
            const uint32_t number = item->type - message_type;
            if (number - 1 >= edition.places.size() - 1 || !item->valid || !item->data) break;
            const size_t place = edition.places[number];
            if (place == 0) break;
            const Writer &writer = edition.writers[place - 1];
            const uint8_t *const at = readable(out, writer, *item);
            if (!at) break;
            const Cursor cursor = writer.write(writing_, {out, at}, at + item->size);
            if (cursor.at != at + item->size || writing_.is_lossy) break;
            out = cursor.out;
        }
        return item;
    }

    // Writes an item with a comma in front, and returns its end. Null when its octets end too early, or it is given up.
    char *item(char *out, const Writer &writer, const ast_dataitem_t &item) {
        writing_.is_lossy = false;
        const uint8_t *const at = readable(out, writer, item);
        writing_.gives_up = !at;
        if (!at) return nullptr;
        const Cursor cursor = writer.write(writing_, {out, at}, at + item.size);
        writing_.is_lossy |= cursor.at != at + item.size;
        return cursor.out;
    }
    // Whether what was written does not give the octets back.
    bool is_lossy() const { return writing_.is_lossy; }
    // Whether there may be too little room, or nothing writes the item.
    bool gives_up() const { return writing_.gives_up; }

private:
    // The octets of an item where others may be read along; null where there may be too little room.
    [[gnu::always_inline]] const uint8_t *readable(const char *out, const Writer &writer, const ast_dataitem_t &item) {
        const uint64_t room = writer.room + item.size * writer.densities[writing_.texts_place];
        if (limit_ - out < static_cast<int64_t>(room)) return nullptr;
        return item.following >= writer.along[writing_.texts_place] ? item.data : copied(item);
    }
    // Null when there are too many.
    [[gnu::noinline]] const uint8_t *copied(const ast_dataitem_t &item) {
        if (item.size > sizeof copy_ - kReadAlong) return nullptr;
        char *const copy = reinterpret_cast<char *>(copy_);
        char *const end = copy_text(copy, reinterpret_cast<const char *>(item.data), static_cast<size_t>(item.size));
        std::memset(end, 0, kReadAlong);
        return copy_;
    }

    char *const limit_;
    Writing writing_;
    uint8_t copy_[512];
};

} // namespace ast::schema
