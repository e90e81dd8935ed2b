#include "core/text.hpp"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstring>

namespace ast {

TextWriter::TextWriter(char *text, uint64_t capacity)
    : cursor_(capacity ? text : nullptr), room_(cursor_ ? capacity - 1 : 0) {
    if (cursor_) *cursor_ = '\0';
}

void TextWriter::append(std::string_view piece) {
    if (!room_ || piece.empty()) return;
    const uint64_t count = std::min<uint64_t>(piece.size(), room_);
    std::memcpy(cursor_, piece.data(), count);
    advance(count);
    *cursor_ = '\0';
}

void TextWriter::print(const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    print_list(format, arguments);
    va_end(arguments);
}

void TextWriter::print_list(const char *format, va_list arguments) {
    if (!room_) return;
    const uint64_t window = std::min<uint64_t>(room_ + 1, INT_MAX);
    const int wanted = std::vsnprintf(cursor_, window, format, arguments);
    if (wanted > 0) advance(std::min<uint64_t>(static_cast<uint64_t>(wanted), window - 1));
}

void TextWriter::advance(uint64_t count) {
    cursor_ += count;
    room_ -= count;
    length_ += count;
}

} // namespace ast
