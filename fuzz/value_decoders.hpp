// Every function that reads or writes a value record of its own type. The registry does not lead to them; a test holds
// these lists against the header.
#pragma once

#include <cstddef>

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
    value<ast_dataitem_subfields_decode>(),
    value<ast_dataitem_message_type_decode, ast_dataitem_message_type_encode>(),
    value<ast_dataitem_data_source_identifier_decode, ast_dataitem_data_source_identifier_encode>(),
    value<ast_dataitem_service_id_decode, ast_dataitem_service_id_encode>(),
    value<ast_dataitem_sector_number_decode, ast_dataitem_sector_number_encode>(),
    value<ast_dataitem_time_of_day_decode, ast_dataitem_time_of_day_encode>(),
    value<ast_dataitem_time_of_day_high_decode>(),
    value<ast_dataitem_position_wgs84_low_decode, ast_dataitem_position_wgs84_low_encode>(),
    value<ast_dataitem_position_wgs84_decode, ast_dataitem_position_wgs84_encode>(),
    value<ast_dataitem_position_cartesian_decode>(),
    value<ast_dataitem_velocity_cartesian_decode>(),
    value<ast_dataitem_mode_3a_code_decode, ast_dataitem_mode_3a_code_encode>(),
    value<ast_dataitem_mode_3a_confidence_decode, ast_dataitem_mode_3a_confidence_encode>(),
    value<ast_dataitem_mode_c_code_decode, ast_dataitem_mode_c_code_encode>(),
    value<ast_dataitem_mode_c_confidence_decode, ast_dataitem_mode_c_confidence_encode>(),
    value<ast_dataitem_height_decode>(),
    value<ast_dataitem_vertical_rate_decode, ast_dataitem_vertical_rate_encode>(),
    value<ast_dataitem_antenna_rotation_period_decode, ast_dataitem_antenna_rotation_period_encode>(),
    value<ast_dataitem_track_number_decode, ast_dataitem_track_number_encode>(),
    value<ast_dataitem_velocity_polar_decode, ast_dataitem_velocity_polar_encode>(),
    value<ast_dataitem_target_address_decode, ast_dataitem_target_address_encode>(),
    value<ast_dataitem_aircraft_id_decode, ast_dataitem_aircraft_id_encode>(),
    value<ast_dataitem_target_id_decode>(),
    value<ast_dataitem_signal_amplitude_decode, ast_dataitem_signal_amplitude_encode>(),
    value<ast_dataitem_modes_mb_decode>(),
    value<ast_dataitem_034_050_decode>(),
    value<ast_dataitem_034_060_decode>(),
    value<ast_dataitem_034_070_decode>(),
    value<ast_dataitem_034_120_decode>(),
    value<ast_dataitem_048_020_decode, ast_dataitem_048_020_encode>(),
    value<ast_dataitem_048_030_decode>(),
    value<ast_dataitem_048_040_decode, ast_dataitem_048_040_encode>(),
    value<ast_dataitem_048_042_decode>(),
    value<ast_dataitem_048_050_decode, ast_dataitem_048_050_encode>(),
    value<ast_dataitem_048_110_decode>(),
    value<ast_dataitem_048_130_decode>(),
    value<ast_dataitem_048_170_decode>(),
    value<ast_dataitem_048_210_decode>(),
    value<ast_dataitem_048_230_decode>(),
    value<ast_dataitem_048_260_decode>(),
};

using RegisterDecoder = bool (*)(const ast_bds_t *bds); // whether the register is valid

template <auto Decode>
bool decodes_register(const ast_bds_t *bds) {
    return Decode(bds).valid;
}

constexpr RegisterDecoder kRegisterDecoders[] = {
    decodes_register<ast_bds_05_decode>, decodes_register<ast_bds_08_decode>, decodes_register<ast_bds_09_decode>,
    decodes_register<ast_bds_10_decode>, decodes_register<ast_bds_20_decode>, decodes_register<ast_bds_30_decode>,
    decodes_register<ast_bds_40_decode>, decodes_register<ast_bds_50_decode>, decodes_register<ast_bds_60_decode>,
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
                return Assemble(buffer, length, &flat, record.uap);
            },
            [](Input &input, uint8_t *buffer, uint64_t length, ast_uap_t uap) {
                using Flat = decltype(disassembled(Disassemble, ast_datarecord_t{}));
                auto flat = value_from<Flat>(input);
                return Assemble(buffer, length, &flat, uap);
            }};
}

constexpr FlatRecord kFlatRecords[] = {
    flat_record<ast_datarecord_034_disassemble, ast_datarecord_034_assemble>(),
    flat_record<ast_datarecord_048_disassemble, ast_datarecord_048_assemble>(),
};

} // namespace ast_fuzz
