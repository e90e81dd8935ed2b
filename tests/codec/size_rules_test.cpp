#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/log_capture.hpp"
#include "support/octets.hpp"

namespace {

using namespace ast_test;

struct Rule {
    uint64_t (*size)(const uint8_t *data, uint64_t available);
    uint64_t octets;
};

// clang-format off
#define FIXED(n) {ast_dataitem_get_size_fixed_##n##_byte, n}
#define VARIABLE(n) {ast_dataitem_get_size_var_##n##_byte, n}
#define REPEATED(n) {ast_dataitem_get_size_rep_##n##_byte, n}
constexpr Rule kFixed[] = {FIXED(1), FIXED(2), FIXED(3), FIXED(4), FIXED(5), FIXED(6), FIXED(7), FIXED(8), FIXED(9), FIXED(12)};
constexpr Rule kVariable[] = {VARIABLE(1), VARIABLE(2), VARIABLE(3), VARIABLE(4), VARIABLE(5), VARIABLE(6), VARIABLE(11),
                              VARIABLE(12), VARIABLE(16), VARIABLE(23)};
constexpr Rule kRepeated[] = {REPEATED(1), REPEATED(2), REPEATED(3), REPEATED(4), REPEATED(5), REPEATED(6), REPEATED(8),
                              REPEATED(12), REPEATED(15), REPEATED(21), REPEATED(64), REPEATED(256)};
// clang-format on

TEST(SizeRule, FixedNeedsAllOctets) {
    for (const Rule &rule : kFixed) {
        const auto data = repeated("FF", rule.octets + 1);
        EXPECT_EQ(rule.size(data.data(), rule.octets + 1), rule.octets);
        EXPECT_EQ(rule.size(data.data(), rule.octets), rule.octets);
        EXPECT_EQ(rule.size(data.data(), rule.octets - 1), 0U);
        EXPECT_EQ(ast_dataitem_get_size_fixed(data.data(), rule.octets, rule.octets), rule.octets);
        EXPECT_EQ(ast_dataitem_get_size_fixed(data.data(), rule.octets, rule.octets + 1), 0U);
    }
}

TEST(SizeRule, VariableFollowsFxUpToItsMaximum) {
    LogCapture log;
    for (const Rule &rule : kVariable) {
        SCOPED_TRACE(rule.octets);
        EXPECT_EQ(rule.size(nullptr, 9), 0U);
        const auto chain = repeated("01", rule.octets + 1);
        for (uint64_t available = 0; available <= rule.octets; ++available)
            EXPECT_EQ(rule.size(chain.data(), available), 0U) << "a chain that ends with the data is incomplete";
        for (uint64_t length = 1; length <= rule.octets; ++length) {
            auto ended = chain;
            ended[length - 1] = 0xFE;
            EXPECT_EQ(rule.size(ended.data(), ended.size()), length);
            EXPECT_EQ(rule.size(ended.data(), length), length);
            EXPECT_EQ(ast_dataitem_get_size_variable(ended.data(), length, rule.octets), length);
        }
        EXPECT_EQ(log.take(), LogLines{});
        EXPECT_EQ(rule.size(chain.data(), chain.size()), rule.octets);
        EXPECT_EQ(log.take(), (LogLines{{3, "Dataitem length exceed max: " + std::to_string(rule.octets)}}));
    }
}

TEST(SizeRule, UnlimitedVariableEndsAt999) {
    LogCapture log;
    auto chain = repeated("01", 1000);
    EXPECT_EQ(ast_dataitem_get_size_var_unlimited(chain.data(), 999), 0U);
    EXPECT_EQ(ast_dataitem_get_size_var_unlimited(chain.data(), 1000), 999U);
    EXPECT_EQ(log.take(), (LogLines{{3, "Dataitem length exceed max: 999"}}));
    chain[998] = 0;
    EXPECT_EQ(ast_dataitem_get_size_var_unlimited(chain.data(), 1000), 999U);
    EXPECT_EQ(ast_dataitem_get_size_variable(chain.data(), 1000, 0), 0U);
    EXPECT_EQ(log.take(), LogLines{});
}

TEST(SizeRule, RepetitiveMultipliesByItsFirstOctet) {
    for (const Rule &rule : kRepeated) {
        SCOPED_TRACE(rule.octets);
        EXPECT_EQ(rule.size(nullptr, 9), 0U);
        for (const uint64_t times : {UINT64_C(0), UINT64_C(1), UINT64_C(3), UINT64_C(255)}) {
            const uint8_t rep = static_cast<uint8_t>(times);
            const uint64_t size = 1 + times * rule.octets;
            EXPECT_EQ(rule.size(&rep, size), size);
            EXPECT_EQ(rule.size(&rep, size + 1), size);
            EXPECT_EQ(rule.size(&rep, size - 1), 0U);
            EXPECT_EQ(ast_dataitem_get_size_repeat(&rep, size, rule.octets), size);
        }
    }
    EXPECT_EQ(ast_dataitem_get_size_rep_64_byte(octets("02").data(), 129), 129U);
    EXPECT_EQ(ast_dataitem_get_size_repeat(octets("03").data(), 100, 0), 0U);
}

TEST(SizeRule, ExplicitLengthIsTakenAtItsWord) {
    for (const auto size : {ast_dataitem_reserved_expansion_field_get_size, ast_dataitem_special_purpose_field_get_size,
                            ast_dataitem_random_field_sequencing_get_size}) {
        EXPECT_EQ(size(octets("05 00").data(), 2), 5U);
        EXPECT_EQ(size(octets("FF").data(), 1), 255U);
        EXPECT_EQ(size(octets("00").data(), 1), 0U);
        EXPECT_EQ(size(octets("05").data(), 0), 0U);
        EXPECT_EQ(size(nullptr, 9), 0U);
    }
}

TEST(SizeRule, OfSubfieldsReportsUnderItsOwnName) {
    LogCapture log;
    EXPECT_EQ(ast_subfield_get_size_variable(octets("01 01 00").data(), 3, 2), 2U);
    EXPECT_EQ(log.take(), (LogLines{{3, "Subfield length exceed max: 2"}}));
    EXPECT_EQ(ast_subfield_get_size_variable(octets("01 00").data(), 2, 2), 2U);
    EXPECT_EQ(ast_subfield_get_size_variable(nullptr, 9, 2) + ast_subfield_get_size_repeated(nullptr, 9, 2), 0U);
    EXPECT_EQ(ast_subfield_get_size_variable(octets("01 01").data(), 2, 2), 0U);
    EXPECT_EQ(ast_subfield_get_size_variable(octets("00").data(), 1, 0), 0U);
    EXPECT_EQ(ast_subfield_get_size_repeated(octets("02").data(), 31, 15), 31U);
    EXPECT_EQ(ast_subfield_get_size_repeated(octets("02").data(), 30, 15), 0U);
    EXPECT_EQ(ast_subfield_get_size_repeated(octets("00").data(), 1, 0), 0U);
    EXPECT_EQ(log.take(), LogLines{});
}

} // namespace
