#include "page/base85.hpp"

#include <algorithm>

namespace ast::recording::astdump {

namespace {

constexpr size_t kGroupOctets = 4;
constexpr size_t kGroupDigits = 5;
constexpr uint32_t kBase = 85;

char digit_of(uint32_t value) {
    const auto character = static_cast<char>('#' + value);
    return static_cast<char>(character + (character >= '<' ? 1 : 0));
}

void put_group(char *to, const char *octets) {
    uint32_t group = 0;
    for (size_t i = 0; i < kGroupOctets; ++i) group = group << 8 | static_cast<uint8_t>(octets[i]);
    for (size_t i = kGroupDigits; i-- > 0; group /= kBase) to[i] = digit_of(group % kBase);
}

} // namespace

void Base85::put(std::string &text, std::string_view octets) {
    if (!left_.empty()) {
        const size_t missing = std::min(kGroupOctets - left_.size(), octets.size());
        left_ += octets.substr(0, missing);
        octets.remove_prefix(missing);
        if (left_.size() < kGroupOctets) return;
        char digits[kGroupDigits];
        put_group(digits, left_.data());
        text.append(digits, kGroupDigits);
    }
    const size_t groups = octets.size() / kGroupOctets;
    const size_t begin = text.size();
    text.resize(begin + groups * kGroupDigits);
    for (size_t i = 0; i < groups; ++i)
        put_group(text.data() + begin + i * kGroupDigits, octets.data() + i * kGroupOctets);
    left_ = octets.substr(groups * kGroupOctets);
}

void Base85::end(std::string &text) {
    if (left_.empty()) return;
    const size_t padding = kGroupOctets - left_.size();
    left_.resize(kGroupOctets);
    char digits[kGroupDigits];
    put_group(digits, left_.data());
    text.append(digits, kGroupDigits - padding);
    left_.clear();
}

} // namespace ast::recording::astdump
