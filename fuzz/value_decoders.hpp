// Every function that reads or writes a value record of its own type. The registry does not lead to them; the list is
// made from the header.
#pragma once

#include <cstddef>
#include <type_traits>

#include "harness.hpp"

namespace ast_fuzz {

constexpr uint64_t kMaxValueOctets = 512;

// Storage for any value record.
struct AnyValue {
    alignas(std::max_align_t) uint8_t octets[kMaxValueOctets];
};

using Encoder = void (*)(ast_dataitem_t *, uint8_t *, uint64_t, const ast_dataitem_src_t *);

struct ValueFunctions {
    bool (*decodes)(const ast_dataitem_t *item); // whether the value is valid
    Encoder encode;                              // null where there is none
    void (*fill)(AnyValue &value, Input &input); // makes a value to encode
};

template <typename Value>
void fill_value(AnyValue &value, Input &input) {
    static_assert(sizeof(Value) <= kMaxValueOctets && std::is_trivially_copyable_v<Value>);
    const Value filled = value_from<Value>(input);
    std::memcpy(value.octets, &filled, sizeof filled);
}

template <auto Decode>
bool decodes(const ast_dataitem_t *item) {
    return Decode(item).valid;
}

template <auto Decode>
constexpr ValueFunctions value() {
    return {decodes<Decode>, nullptr, nullptr};
}

template <auto Decode, Encoder Encode>
constexpr ValueFunctions value() {
    return {decodes<Decode>, Encode, fill_value<decltype(Decode(nullptr))>};
}

constexpr ValueFunctions kValues[] = {
#define AST_FUZZ_DECODER(decode) value<decode>(),
#define AST_FUZZ_CODEC(decode, encode) value<decode, encode>(),
#include "functions.inc"
};

using RegisterDecoder = bool (*)(const ast_bds_t *bds); // whether the register is valid

template <auto Decode>
bool decodes_register(const ast_bds_t *bds) {
    return Decode(bds).valid;
}

constexpr RegisterDecoder kRegisterDecoders[] = {
#define AST_FUZZ_REGISTER(decode) decodes_register<decode>,
#include "functions.inc"
};

// ---- Flat records ----

struct FlatRecord {
    // Takes a record apart and puts it together again in the buffer.
    ast_datarecord_t (*reassemble)(const ast_datarecord_t &record, uint8_t *buffer, uint64_t length);
    // Puts together a record of values from the input.
    ast_datarecord_t (*assemble)(Input &input, uint8_t *buffer, uint64_t length, ast_uap_t uap);
};

template <typename Flat>
Flat disassembled(Flat (*disassemble)(const ast_datarecord_t *), const ast_datarecord_t &record) {
    return disassemble(&record);
}

template <typename Flat>
Flat disassembled(Flat *(*disassemble)(Flat *, const ast_datarecord_t *), const ast_datarecord_t &record) {
    Flat flat;
    require(disassemble(&flat, &record) == &flat, "disassembling returns another record than it fills");
    return flat;
}

template <auto Disassemble, auto Assemble>
constexpr FlatRecord flat_record() {
    return {[](const ast_datarecord_t &record, uint8_t *buffer, uint64_t length) {
                auto flat = disassembled(Disassemble, record);
                if constexpr (std::is_null_pointer_v<decltype(Assemble)>)
                    return ast_datarecord_t{.data = buffer, .size = length & 0};
                else
                    return Assemble(buffer, length, &flat, record.uap);
            },
            []([[maybe_unused]] Input &input, uint8_t *buffer, uint64_t length, ast_uap_t uap) {
                if constexpr (std::is_null_pointer_v<decltype(Assemble)>) {
                    return ast_datarecord_t{.data = buffer, .size = length & 0, .uap = uap};
                } else {
                    auto flat = value_from<decltype(disassembled(Disassemble, ast_datarecord_t{}))>(input);
                    return Assemble(buffer, length, &flat, uap);
                }
            }};
}

constexpr FlatRecord kFlatRecords[] = {
#define AST_FUZZ_FLAT_RECORD(disassemble, assemble) flat_record<disassemble, assemble>(),
#define AST_FUZZ_FLAT_RECORD_READ(disassemble) flat_record<disassemble, nullptr>(),
#include "functions.inc"
};

} // namespace ast_fuzz
