#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/log_capture.hpp"
#include "support/octets.hpp"

namespace {

using namespace ast_test;

TEST(Library, NamesItself) {
    EXPECT_EQ(ast_library_version_major(), 1U);
    EXPECT_EQ(ast_library_version_minor(), 23U);
    EXPECT_EQ(ast_library_version_patch(), 0U);
    EXPECT_STREQ(ast_library_version(), "1.23.0");
    EXPECT_STREQ(ast_library_revision(), "f8e6515");
    EXPECT_STREQ(ast_library_build(), "Aug 20 2026");
    EXPECT_STRNE(ast_library_about(), "");
    EXPECT_EQ(std::string(ast_library_contact()).find("http"), 0U);
}

TEST(Library, OptionsAreBitsOfTheirOwn) {
    ast_library_reset_option();
    EXPECT_TRUE(ast_library_test_option(0));
    EXPECT_FALSE(ast_library_test_option(UINT32_MAX));

    ast_library_set_option(1);
    ast_library_set_option(2 | UINT32_C(0x80000000));
    EXPECT_FALSE(ast_library_test_option(0));
    EXPECT_TRUE(ast_library_test_option(1 | 4)) << "any of the bits counts";
    EXPECT_FALSE(ast_library_test_option(4));

    ast_library_unset_option(1 | 8);
    EXPECT_FALSE(ast_library_test_option(1));
    EXPECT_TRUE(ast_library_test_option(2));
    EXPECT_TRUE(ast_library_test_option(UINT32_C(0x80000000)));
    ast_library_reset_option();
    EXPECT_TRUE(ast_library_test_option(0));
}

TEST(Library, InitClearsOptionsAndKeepsTheSink) {
    LogCapture log;
    ast_library_set_option(AST_OPTION_ALLOW_EMPTY_FSPEC);
    EXPECT_TRUE(ast_library_init());
    EXPECT_TRUE(ast_library_test_option(0));
    ast_log(AST_LOG_INFO, "still here");
    EXPECT_EQ(log.take(), (LogLines{{1, "still here"}}));
}

TEST(Log, HandsFormattedLinesToTheSinkAndCutsThemAt511Characters) {
    LogCapture log;
    ast_log(77, "%s %d%%", "level", 100);
    for (const int length : {510, 511, 512, 600})
        ast_log(0, "%s", std::string(static_cast<size_t>(length), 'x').c_str());
    const std::string longest(511, 'x');
    EXPECT_EQ(log.take(),
              (LogLines{{77, "level 100%"}, {0, std::string(510, 'x')}, {0, longest}, {0, longest}, {0, longest}}));
}

TEST(Log, IsOffWithoutASink) {
    LogCapture log;
    testing::internal::CaptureStdout();
    ast_log_handler_reg(nullptr);
    ast_log(4, "nobody listens");
    ast_log_binary_data(4, octets("AB").data(), 1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(log.take(), LogLines{});
}

TEST(Log, StandardOutputShowsALabelOfTenCharacters) {
    constexpr struct {
        uint32_t level;
        const char *line;
    } kCases[] = {
        {0, "[DEBUG   ] x\n"}, {1, "[INFO    ] x\n"}, {2, "[WARNING ] x\n"},          {3, "[CRITICAL] x\n"},
        {4, "[PANIC   ] x\n"}, {7, "[UNKNOWN ] x\n"}, {UINT32_MAX, "[UNKNOWN ] x\n"},
    };
    for (const auto &c : kCases) {
        testing::internal::CaptureStdout();
        EXPECT_EQ(ast_log_stdout(c.level, "x"), 3) << "what printing \" x\\n\" returns";
        EXPECT_EQ(testing::internal::GetCapturedStdout(), c.line);
    }
}

// "0xNN, 0xNN, ..." of consecutive values.
std::string hex_line(unsigned first, unsigned last) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string line;
    for (unsigned value = first; value <= last; ++value)
        line += std::string("0x") + kDigits[value / 16] + kDigits[value % 16] + (value == last ? "" : ", ");
    return line;
}

TEST(Log, BinaryDataHas17OctetsOnItsFirstLineAnd16OnOthers) {
    std::vector<uint8_t> data(256);
    for (unsigned i = 0; i < data.size(); ++i) data[i] = static_cast<uint8_t>(i);
    LogCapture log;

    ast_log_binary_data(2, data.data() + 0xAB, 1);
    EXPECT_EQ(log.take(), (LogLines{{2, "Binary data size: 1"}, {2, "0xAB"}}));
    ast_log_binary_data(0, data.data(), 0);
    EXPECT_EQ(log.take(), (LogLines{{0, "Binary data size: 0"}}));
    ast_log_binary_data(0, data.data(), 17);
    EXPECT_EQ(log.take(), (LogLines{{0, "Binary data size: 17"}, {0, hex_line(0, 16)}}));
    ast_log_binary_data(0, data.data(), 18);
    EXPECT_EQ(log.take(), (LogLines{{0, "Binary data size: 18"}, {0, hex_line(0, 16)}, {0, "0x11"}}));
    ast_log_binary_data(3, data.data(), 34);
    EXPECT_EQ(log.take(),
              (LogLines{{3, "Binary data size: 34"}, {3, hex_line(0, 16)}, {3, hex_line(17, 32)}, {3, "0x21"}}));
    ast_log_binary_data(3, data.data(), 256);
    EXPECT_EQ(log.take().size(), 1U + 1 + 15) << "17 octets, 14 lines of 16, and the 15 left";
    ast_log_binary_data(0, nullptr, 5);
    EXPECT_EQ(log.take(), (LogLines{{0, "Binary data size: 5"}}));
}

} // namespace
