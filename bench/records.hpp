// The records that the measurements decode: each as one sensor sends it in regular traffic, every octet written by
// hand, one item to a line in FRN order.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "ast.h"

namespace bench {

// clang-format off

// A Mode S roll-call plot with its local track: 14 items.
constexpr uint8_t kRecord048[] = {
    0xFF, 0xF7, 0x02,                               // FSPEC
    0x19, 0x0C,                                     // I048/010 Data Source Identifier
    0x35, 0x2A, 0x80,                               // I048/140 Time of Day
    0xA0,                                           // I048/020 Target Report Descriptor
    0x2D, 0x80, 0x60, 0x00,                         // I048/040 Measured Position: 45.5 NM, 135 degrees
    0x0A, 0x53,                                     // I048/070 Mode 3/A: 5123
    0x05, 0x78,                                     // I048/090 Flight Level: 350
    0xE0, 0x12, 0x04, 0xC8,                         // I048/130 Radar Plot Characteristics: SRL, SRR, SAM
    0x4B, 0xA9, 0xD1,                               // I048/220 Aircraft Address
    0x50, 0x86, 0x71, 0x04, 0x28, 0x20,             // I048/240 Aircraft Identification
    0x02,                                           // I048/250 Mode S MB Data: two registers
    0x80, 0x1F, 0x1D, 0x37, 0x40, 0x04, 0xB4, 0x50,
    0xC8, 0x48, 0x00, 0x30, 0xA8, 0x00, 0x00, 0x40,
    0x01, 0x2F,                                     // I048/161 Track Number
    0x07, 0xA5, 0x5B, 0x06,                         // I048/200 Calculated Track Velocity
    0x40,                                           // I048/170 Track Status
    0x20, 0xFD,                                     // I048/230 Communications / ACAS Capability
};

// A system track with Mode S data and a flight plan: 22 items, six of them compound.
constexpr uint8_t kRecord062[] = {
    0xBF, 0xFF, 0xFF, 0x06,                         // FSPEC
    0x19, 0x64,                                     // I062/010 Data Source Identifier
    0x01,                                           // I062/015 Service Identification
    0x35, 0x2A, 0x80,                               // I062/070 Time of Track Information
    0x00, 0x74, 0x9F, 0x4A, 0x00, 0x52, 0x7D, 0x28, // I062/105 Calculated Position: 41 N, 29 E
    0x00, 0x4E, 0x20, 0xFF, 0xD8, 0xF0,             // I062/100 Calculated Track Position: 10 km, -5 km
    0x03, 0x20, 0xFE, 0x70,                         // I062/185 Calculated Track Velocity
    0x00, 0x00,                                     // I062/210 Calculated Acceleration
    0x0A, 0x53,                                     // I062/060 Track Mode 3/A Code
    0x00, 0x50, 0x86, 0x71, 0x04, 0x28, 0x20,       // I062/245 Target Identification
    0xE5, 0x25, 0xB1, 0x0C,                         // I062/380 Aircraft Derived Data
    0x4B, 0xA9, 0xD1,                               //     ADR
    0x50, 0x86, 0x71, 0x04, 0x28, 0x20,             //     ID
    0x5B, 0x06,                                     //     MHG
    0x65, 0x78,                                     //     SAL
    0x20, 0xFD,                                     //     COM
    0x00, 0x00,                                     //     BVR
    0x00, 0x12,                                     //     RAN
    0x5A, 0xE0,                                     //     TAN
    0x07, 0xA5,                                     //     GSP
    0x01, 0x18,                                     //     IAR
    0x00, 0x64,                                     //     MAC
    0x01, 0x2F,                                     // I062/040 Track Number
    0x01, 0x01, 0x00,                               // I062/080 Track Status
    0xB0, 0x04, 0x04, 0x04,                         // I062/290 System Track Update Ages: TRK, SSR, MDS
    0x00,                                           // I062/200 Mode of Movement
    0x93, 0x25, 0x57, 0x01, 0xC0,                   // I062/295 Track Data Ages: eleven of them
    0x04, 0x04, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08,
    0x05, 0x78,                                     // I062/136 Measured Flight Level
    0x16, 0x30,                                     // I062/130 Calculated Track Geometric Altitude
    0x05, 0x78,                                     // I062/135 Calculated Track Barometric Altitude
    0x00, 0x00,                                     // I062/220 Calculated Rate of Climb/Descent
    0xCF, 0xA0,                                     // I062/390 Flight Plan Related Data
    0x19, 0x64,                                     //     TAG
    0x54, 0x48, 0x59, 0x31, 0x41, 0x42, 0x20,       //     CSN
    0x42, 0x37, 0x33, 0x38,                         //     TAC
    0x4D,                                           //     WTC
    0x4C, 0x54, 0x46, 0x4D,                         //     DEP
    0x45, 0x44, 0x44, 0x46,                         //     DST
    0x05, 0x78,                                     //     CFL
    0x84, 0x00, 0x32, 0x00, 0x32, 0x04, 0x04,       // I062/500 Estimated Accuracies: APC, ATV
    0xDC,                                           // I062/340 Measured Information
    0x19, 0x0C,                                     //     SID
    0x2D, 0x80, 0x60, 0x00,                         //     POS
    0x05, 0x78,                                     //     MDC
    0x0A, 0x53,                                     //     MDA
    0xA0,                                           //     TYP
};

// An ADS-B report in the layout of edition 2.4: 19 items.
constexpr uint8_t kRecord021[] = {
    0xEB, 0x1B, 0x7B, 0x6B, 0xC0,                   // FSPEC
    0x19, 0x0C,                                     // I021/010 Data Source Identification
    0x00,                                           // I021/040 Target Report Descriptor
    0x01, 0x2F,                                     // I021/161 Track Number
    0x35, 0x2A, 0x80,                               // I021/071 Time of Applicability for Position
    0x0E, 0x93, 0xE9, 0x3E, 0x0A, 0x4F, 0xA4, 0xFA, // I021/131 High-Resolution Position: 41 N, 29 E
    0x4B, 0xA9, 0xD1,                               // I021/080 Target Address
    0x35, 0x2A, 0x80,                               // I021/073 Time of Message Reception of Position
    0x35, 0x2A, 0x80,                               // I021/075 Time of Message Reception of Velocity
    0x16, 0x30,                                     // I021/140 Geometric Height
    0x31, 0xF2,                                     // I021/090 Quality Indicators
    0x12,                                           // I021/210 MOPS Version
    0x0A, 0x53,                                     // I021/070 Mode 3/A Code
    0x05, 0x78,                                     // I021/145 Flight Level
    0x00,                                           // I021/200 Target Status
    0x00, 0x00,                                     // I021/155 Barometric Vertical Rate
    0x07, 0xA5, 0x5B, 0x06,                         // I021/160 Airborne Ground Vector
    0x35, 0x2A, 0x80,                               // I021/077 Time of Report Transmission
    0x50, 0x86, 0x71, 0x04, 0x28, 0x20,             // I021/170 Target Identification
    0x05,                                           // I021/020 Emitter Category
};

// clang-format on

// A record, the profile that its sender uses, and how many items it holds.
struct Sample {
    const char *name;
    std::span<const uint8_t> octets;
    uint8_t category;
    const ast_uap_t *uap;
    uint64_t item_count;
};

inline const std::array<Sample, 3> kSamples = {{
    {"048", kRecord048, 48, &AST_UAP_STANDARD, 14},
    {"062", kRecord062, 62, &AST_UAP_STANDARD, 22},
    {"021", kRecord021, 21, &AST_UAP_CAT021_VER24, 19},
}};

constexpr size_t kHeaderOctets = 3; // CAT, LEN

inline size_t block_length(const uint8_t *block) { return static_cast<size_t>(block[1]) << 8 | block[2]; }

// A block of the same record again and again.
inline std::vector<uint8_t> block_of(const Sample &sample, size_t count) {
    const size_t length = kHeaderOctets + count * sample.octets.size();
    std::vector<uint8_t> block = {sample.category, static_cast<uint8_t>(length >> 8), static_cast<uint8_t>(length)};
    for (size_t i = 0; i < count; ++i) block.insert(block.end(), sample.octets.begin(), sample.octets.end());
    return block;
}

} // namespace bench
