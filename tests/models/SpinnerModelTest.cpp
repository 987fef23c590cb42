#include "models/SpinnerModel.h"

#include <OstrelLib/TextSerializer.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <tuple>

namespace Ostrel::Wx {
namespace {

constexpr float INF = std::numeric_limits<float>::infinity();
constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float LARGEST = std::numeric_limits<float>::max();

SpinnerNumber makeNumber(const SpinnerLimits& limits, int precision, float value) {
    SpinnerNumber number;
    number.configure(limits);
    number.setPrecision([precision] { return precision; });
    number.setValue(value);
    return number;
}

TEST(SpinnerValue, IsWithinItsLimitsAndTheOneThatIsShown) {
    using Case = std::tuple<float, float, int, float, float, const char*>;
    const Case cases[] = {{0, 10, 3, 11, 10, "10.0"},
                          {0, 10, 3, 2.5F, 2.5F, "2.50"},
                          {0, 100, 0, 100, 100, "100"},
                          {0, 10, 2, -1, 0, "0.0"},
                          {0, 10, 2, 1.23456F, 1.23F, "1.23"},
                          {0, 10, 0, 2.5F, 2, "2"},
                          {0, 10, 2, NOT_A_NUMBER, 10, "10.0"},
                          {0, 10, -3, 2.7F, 3, "3"},
                          {3, 3, 1, 7, 3, "3.0"},
                          {5, 4, 1, 7, 5, "5.0"},
                          {0, 1, 7, 1e-6F, 1e-6F, "0.0000010"},
                          {0, 1, 2, 1e-6F, 0, "0.0"},
                          {-INF, INF, 1, 1e9F, 1e9F, "1000000000.0"},
                          {-INF, INF, 0, INF, LARGEST, "340282346638528859811704183484516925440"},
                          {NOT_A_NUMBER, NOT_A_NUMBER, 0, -INF, -LARGEST, "-340282346638528859811704183484516925440"},
                          {0, 0.999F, 2, 5, 0.999F, "1.0"}};
    EXPECT_EQ(formatSpinnerNumber(-1.25F, 5, L',').toUtf8(), "-1,250");
    for (const auto& [min, max, precision, set, value, text] : cases) {
        const SpinnerNumber number = makeNumber({min, max, 0, 0}, precision, set);
        EXPECT_EQ(number.getValue(), value) << text;
        const String point(std::wstring(1, decimalPointCharacter()));
        EXPECT_EQ(String(number.getText()).replaceAll(point, "."), text);
        EXPECT_EQ(number.read(number.getText()).kind, SpinnerEntry::Kind::SAME) << "what is shown is no change";
    }
}

TEST(SpinnerValue, IsWhatIsShownWhateverThePrecisionAnswers) {
    SpinnerNumber number = makeNumber({0, 10, 0, 0.0625F}, 5, 1.0F / 3);
    int asked = 0;
    number.setPrecision([&asked] { return ++asked % 4; });
    const std::function<void()> changes[] = {[&] { number.reapply(); }, [&] { number.setValue(2.0F / 3); },
                                             [&] { number.stepOnce(true, {}); }, [&] { number.change(0.111); },
                                             [&] { number.stepOnce(false, 0.0F); }};
    for (int i = 0; i < 40; ++i) {
        changes[i % 5]();
        std::string text = number.getText().toUtf8();
        std::replace(text.begin(), text.end(), ',', '.');
        ASSERT_EQ(std::stof(text), number.getValue()) << "after change " << i;
    }
}

TEST(SpinnerChange, LosesNothingToRounding) {
    using Case = std::tuple<float, int, double, float>; // the amount is that of each of a thousand changes
    const Case cases[] = {
        {0.3F, 2, 0.004, 4.3F}, {500, 0, 0.001, 501}, {1e9F, 0, 1, 1e9F + 1000}, {2, 1, -0.0015, 0.5F}};
    for (const auto& [start, precision, amount, expected] : cases) {
        SpinnerNumber number = makeNumber({0, 2e9F, 0, 0}, precision, start);
        for (int i = 0; i < 1000; ++i) {
            number.change(amount);
        }
        EXPECT_EQ(number.getValue(), expected);
    }
    SpinnerNumber number = makeNumber({0, 1, 0, 0}, 1, 0.9F);
    number.change(100);
    number.change(-0.1);
    EXPECT_EQ(number.getValue(), 0.9F) << "nothing winds up behind a limit";
    number.change(0.04);
    number.setPrecision([] { return 3; });
    number.reapply();
    EXPECT_EQ(number.getValue(), 0.94F) << "another precision brings back what was swallowed";
}

TEST(SpinnerStep, MovesByTheStepButAtLeastByTheLastDecimal) {
    using Case = std::tuple<float, float, Optional<float>, int, float>;
    const Case cases[] = {{1, 0.001F, {}, 2, 1.01F},
                          {1, 0.01F, {}, 2, 1.01F},
                          {1, 0.25F, {}, 2, 1.25F},
                          {500, 0, {}, 2, 502},
                          {0.3F, -1, {}, 3, 0.304F},
                          {0.3F, NOT_A_NUMBER, {}, 3, 0.304F},
                          {1, 0.25F, 3, 2, 4},
                          {1, 0.25F, -3, 2, 1.01F},
                          {1, 0.25F, NOT_A_NUMBER, 2, 1.25F},
                          {7, 0.5F, {}, 0, 8},
                          {2, 1e-9F, {}, 7, std::nextafter(2.0F, 3.0F)},
                          {1e9F, 0.5F, {}, 0, std::nextafter(1e9F, 2e9F)},
                          {2e9F, 1, {}, 0, 2e9F}};
    for (const auto& [value, step, stepOverride, precision, expected] : cases) {
        SpinnerNumber number = makeNumber({-2e9F, 2e9F, 0, step}, precision, value);
        number.stepOnce(true, stepOverride);
        EXPECT_EQ(number.getValue(), expected) << value << " by " << step;
    }
    SpinnerNumber number = makeNumber({0, 10, 0, 0.015F}, 2, 1);
    number.stepOnce(false, {});
    number.stepOnce(false, {});
    EXPECT_EQ(number.getValue(), 0.97F) << "the halves add up";
}

TEST(SpinnerTyping, IsReadAsAStreamReadsIt) {
    const SpinnerNumber number = makeNumber({0, 10, 0, 0}, 2, 1.5F);
    for (const char* const typed : {"1,5", "1.5000", "1.50", " 1.5 px"}) {
        EXPECT_EQ(number.read(typed).kind, SpinnerEntry::Kind::SAME) << typed;
    }
    for (const char* const typed : {"", "abc", "1e99", "inf", "nan", "-", "\xE2\x82\xAC"}) {
        EXPECT_EQ(number.read(typed).kind, SpinnerEntry::Kind::NOTHING) << typed;
    }
    // Both separators are the same one, and the second ends the number.
    const std::tuple<const char*, float> others[] = {{"2,25", 2.25F}, {"1.501", 1.501F},   {"99999999999", 1e11F},
                                                     {" \n3\n4", 3},  {"1,234.5", 1.234F}, {"2e1", 20},
                                                     {"1e-60", 0}};
    for (const auto& [typed, expected] : others) {
        EXPECT_EQ(number.read(typed).kind, SpinnerEntry::Kind::OTHER) << typed;
        EXPECT_EQ(number.read(typed).number, expected);
    }
}

TEST(SpinnerDrag, GoesRoundTheScreen) {
    constexpr Bucket REGION{{0, 30}, {800, 600}};
    using Case = std::tuple<int, int, Optional<int>>;
    const Case cases[] = {{30, -3, 598}, {30, 0, {}},  {30, 2, {}},  {31, -9, {}},
                          {10, -1, 598}, {599, 1, 31}, {598, 1, {}}, {599, -1, {}}};
    for (const auto& [mouse, distance, row] : cases) {
        EXPECT_EQ(findSpinnerWrap(mouse, distance, REGION), row) << mouse << ", " << distance;
    }
    SpinnerPress press;
    EXPECT_EQ(press.move({5, 5}), Optional<int>()) << "no press";
    press.begin(true, 1, {5, 5});
    EXPECT_EQ(press.move({5, 5}), Optional<int>());
    EXPECT_FALSE(press.isDragging()) << "it did not move";
    EXPECT_EQ(press.move({6, 5}), 0);
    EXPECT_TRUE(press.isDragging());
    EXPECT_EQ(press.move({6, -20}), -25);
    press.warp(500);
    EXPECT_EQ(press.move({6, -22}), Optional<int>()) << "sent before the pointer was";
    EXPECT_EQ(press.move({6, 490}), -10);
    EXPECT_EQ(press.move({6, -20}), -510) << "now it really is there";
}

} // namespace
} // namespace Ostrel::Wx
