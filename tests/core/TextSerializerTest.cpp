#include <OstrelLib/TextSerializer.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <string>

using Ostrel::SimpleTextSerializer;
using Ostrel::String;

namespace {

template <class T>
std::string textOf(T value) {
    return SimpleTextSerializer().write(value).getText().toUtf8();
}

template <class T>
using Limits = std::numeric_limits<T>;

TEST(TextSerializer, WritesNumbersInTheClassicForm) {
    EXPECT_EQ(textOf(Limits<int>::min()), "-2147483648");
    EXPECT_EQ(textOf(Limits<unsigned>::max()), "4294967295");
    EXPECT_EQ(textOf(Limits<long long>::min()), "-9223372036854775808");
    EXPECT_EQ(textOf(Limits<unsigned long long>::max()), "18446744073709551615");
    EXPECT_EQ(textOf(0.1), "0.1");
    EXPECT_EQ(textOf(0.1f), "0.1");
    EXPECT_EQ(textOf(-0.0), "-0");
    EXPECT_EQ(textOf(1234567.0), "1234567");
    EXPECT_EQ(textOf(Limits<double>::infinity()), "inf");
    EXPECT_EQ(textOf(Limits<double>::quiet_NaN()), "nan");
    for (const double value : {1.0 / 3, Limits<double>::max(), Limits<double>::denorm_min(), -1e-7}) {
        EXPECT_EQ(std::strtod(textOf(value).c_str(), nullptr), value);
    }
}

TEST(TextSerializer, WritesFixedDecimals) {
    struct Case {
        double value;
        int decimals;
        const char* expected;
    };
    const Case cases[] = {
        {2.5, 3, "2.500"},   {0.5, 0, "0"},   {1.5, 0, "2"},      {1e21, 1, "1000000000000000000000.0"},
        {-1e-9, 2, "-0.00"}, {7.25, -5, "7"}, {0.125, 2, "0.12"}, {-Limits<double>::infinity(), 2, "-inf"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(SimpleTextSerializer().writeFixed(c.value, c.decimals).getText().toUtf8(), c.expected);
    }
    // The longest there is: a sign, 309 digits, the point, 100 decimals.
    const auto longest = SimpleTextSerializer().writeFixed(Limits<double>::lowest(), Limits<int>::max()).getText();
    EXPECT_EQ(longest.size(), 411u);
    EXPECT_EQ(std::strtod(longest.toUtf8().c_str(), nullptr), Limits<double>::lowest());
}

} // namespace
