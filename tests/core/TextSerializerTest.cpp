#include <OstrelLib/TextSerializer.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <string>

using Ostrel::SimpleTextSerializer;

namespace {

constexpr double LOWEST = std::numeric_limits<double>::lowest();

template <class T>
std::string textOf(T value) {
    return SimpleTextSerializer().write(value).getText().toUtf8();
}

std::string fixedTextOf(double value, int decimals) {
    return SimpleTextSerializer().writeFixed(value, decimals).getText().toUtf8();
}

TEST(TextSerializer, WritesNumbersInTheClassicForm) {
    EXPECT_EQ(textOf(std::numeric_limits<long long>::min()), "-9223372036854775808");
    EXPECT_EQ(textOf(std::numeric_limits<unsigned long long>::max()), "18446744073709551615");
    EXPECT_EQ(textOf(0.1f), "0.1");
    EXPECT_EQ(textOf(1234567.0), "1234567");
    for (const double value : {1.0 / 3, LOWEST, std::numeric_limits<double>::denorm_min()}) {
        EXPECT_EQ(std::strtod(textOf(value).c_str(), nullptr), value);
    }
    EXPECT_EQ(fixedTextOf(0.125, 2), "0.12") << "ties go to the even digit";
    EXPECT_EQ(fixedTextOf(-1e-9, 2), "-0.00");
    EXPECT_EQ(fixedTextOf(7.25, -5), "7");
    EXPECT_EQ(fixedTextOf(-std::numeric_limits<double>::infinity(), 2), "-inf");
    // The longest there is: a sign, 309 digits, the point, 100 decimals.
    const std::string longest = fixedTextOf(LOWEST, std::numeric_limits<int>::max());
    EXPECT_EQ(longest.size(), 411u);
    EXPECT_EQ(std::strtod(longest.c_str(), nullptr), LOWEST);
}

} // namespace
