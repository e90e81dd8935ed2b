// What the fuzz targets share. A target is one source with one function, run(), which drives a part of the library over
// the octets of one input. Besides what the sanitizers find, a check that does not hold ends the run.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

#include "ast.h"

namespace ast_fuzz {

using Octets = std::span<const uint8_t>;

// By a fuzzing engine inputs are timed; where they are replayed as tests, nothing depends on how busy the machine is.
#ifdef AST_FUZZ_ENGINE
constexpr bool kIsTimed = true;
#else
constexpr bool kIsTimed = false;
#endif

// Ends the run, so that the engine keeps the input.
[[noreturn]] void fail(const char *what);

inline void require(bool holds, const char *what) {
    if (!holds) fail(what);
}

// Takes an input apart from its front. Behind its end everything is 0.
class Input {
public:
    explicit Input(Octets octets) : rest_(octets) {}

    template <typename Number>
    Number number() {
        Number result{};
        const size_t count = std::min(sizeof result, rest_.size());
        if (count > 0) std::memcpy(&result, rest_.data(), count);
        rest_ = rest_.subspan(count);
        return result;
    }

    uint8_t octet() { return number<uint8_t>(); }

    // A number from 0 to less than the limit, which is at most 65536.
    size_t below(size_t limit) { return number<uint16_t>() % limit; }

    // What is left, in the storage of the input, which ends where it ends.
    Octets rest() const { return rest_; }

private:
    Octets rest_;
};

// The target: drives its part of the library.
void run(Input input);

// Every item type that has a size rule, in ascending order.
std::span<const ast_dataitem_type_t> registered_items();

// Every category that has a registered item.
std::span<const uint32_t> categories();

// Every exported profile.
std::span<const ast_uap_t *const> profiles();

// An exported profile, or one whose FRNs announce registered items from all over the registry.
ast_uap_t take_profile(Input &input);

// The item at the rest of the input, of a type that the input chooses. Not valid, and empty, when it does not fit: the
// size of explicit-length items and of I062/510 is not compared with what is available.
ast_dataitem_t take_item(Input &input);

// Octets of one's own, which end where their storage ends, so that a sanitizer sees every access beyond them.
inline std::vector<uint8_t> buffer_of(uint64_t length) { return std::vector<uint8_t>(length, 0xA5); }

// Whether encoding into a buffer writes at most `size` octets.
inline void require_untouched_behind(const std::vector<uint8_t> &buffer, uint64_t size) {
    require(size <= buffer.size(), "what is written is longer than the buffer");
    for (uint64_t i = size; i < buffer.size(); ++i) require(buffer[i] == 0xA5, "octets behind the result are written");
}

// ---- Values ----

// A value record from the input: flags are 0 or 1, pointers null, numbers small, whole or anything at all.
template <typename Value>
Value value_from(Input &input);

struct AnyMember {
    Input *input;
    template <typename Member>
    operator Member() const {
        return value_from<Member>(*input);
    }
};

// Members are given one by one, those of arrays included, which leaves their braces out.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmissing-braces"

template <typename Value, size_t... I>
constexpr bool takes_members(std::index_sequence<I...>) {
    return requires { Value{(static_cast<void>(I), AnyMember{})...}; };
}

// How many members a record has, the elements of its arrays counted singly.
template <typename Value, size_t Count = 64>
constexpr size_t member_count() {
    static_assert(Count > 0);
    if constexpr (takes_members<Value>(std::make_index_sequence<Count>())) {
        static_assert(Count < 64, "more members than are looked for");
        return Count;
    } else {
        return member_count<Value, Count - 1>();
    }
}

template <typename Value, size_t... I>
Value record_from(Input &input, std::index_sequence<I...>) {
    return Value{(static_cast<void>(I), AnyMember{&input})...};
}

#pragma GCC diagnostic pop

template <typename Number>
Number number_from(Input &input) {
    switch (input.octet() % 3) {
    case 0:
        return static_cast<Number>(input.number<int8_t>());
    case 1:
        return static_cast<Number>(input.number<int16_t>());
    default:
        return input.number<Number>();
    }
}

template <typename Value>
Value value_from(Input &input) {
    if constexpr (std::is_same_v<Value, bool>)
        return (input.octet() & 1) != 0;
    else if constexpr (std::is_same_v<Value, char> || std::is_same_v<Value, uint8_t>)
        return static_cast<Value>(input.octet());
    else if constexpr (std::is_arithmetic_v<Value>)
        return number_from<Value>(input);
    else if constexpr (std::is_pointer_v<Value>)
        return nullptr;
    else
        return record_from<Value>(input, std::make_index_sequence<member_count<Value>()>());
}

} // namespace ast_fuzz
