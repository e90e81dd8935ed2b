#include <clocale>
#include <cmath>
#include <cstdio>
#include <string>

#include "support/items.hpp"

using namespace ast_test;

namespace {

// The one place where a caller's double is shown as it is.
std::string shown_number(double value) {
    const std::string link = text_from(ast_map_get_link_url_osm, value, 0.0);
    const size_t first = link.find('=') + 1;
    return link.substr(first, link.find('&') - first);
}

TEST(Numbers, AreRoundedAsPrintfDoes) {
    for (const double value : {0.0,
                               -0.0,
                               1.0,
                               0.5,
                               1e-7,
                               5e-7,
                               1.5e-6,
                               2.5e-6,
                               0.1,
                               0.999999,
                               0.9999995,
                               0.9999996,
                               9.9999999,
                               123456.789,
                               4503599627370497.5,
                               9007199254740993.0,
                               18446744073709551616.0,
                               1e22,
                               1e300,
                               -1e-300,
                               4.9e-324,
                               HUGE_VAL,
                               -HUGE_VAL,
                               std::nan("")}) {
        char expected[400];
        std::snprintf(expected, sizeof expected, "%f", value);
        EXPECT_EQ(shown_number(value), expected);
    }
    uint64_t state = 1;
    for (int i = 0; i < 20000; ++i) {
        state = state * 6364136223846793005U + 1442695040888963407U;
        const double value =
            std::ldexp(static_cast<double>(static_cast<int64_t>(state)), -static_cast<int>(state >> 58));
        char expected[400];
        std::snprintf(expected, sizeof expected, "%f", value);
        ASSERT_EQ(shown_number(value), expected);
    }
}

TEST(Numbers, DoNotDependOnTheLocale) {
    const char *const locale = std::setlocale(LC_ALL, "de_DE.UTF-8");
    if (!locale) GTEST_SKIP() << "this machine has no locale with a decimal comma";
    EXPECT_EQ(summary_of(48040, "00 80 40 00"), "RHO:0.5 THETA:90.0");
    EXPECT_EQ(shown_number(48.5), "48.500000");
    std::setlocale(LC_ALL, "C");
}

} // namespace
