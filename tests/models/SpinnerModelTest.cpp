#include "models/SpinnerModel.h"

#include <OstrelLib/TextSerializer.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

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

/// What is shown, with the point of the tests' own language.
std::string shown(const SpinnerNumber& number) {
    return String(number.getText()).replaceAll(String(std::wstring(1, decimalPointCharacter())), ".").toUtf8();
}

TEST(SpinnerFormat, KeepsOneOfSeveralZeros) {
    struct Case {
        float value;
        int decimals;
        wchar_t point;
        const char* expected;
    };
    for (const Case& c : {Case{2.5F, 3, L'.', "2.50"},
                          {1.0F, 3, L'.', "1.0"},
                          {10.0F, 3, L'.', "10.0"},
                          {0.0F, 1, L'.', "0.0"},
                          {-1.0F, 5, L',', "-1,0"},
                          {1.25F, 2, L',', "1,25"},
                          {100.0F, 0, L'.', "100"},
                          {100.0F, 2, L'.', "100.0"},
                          {1e-6F, 7, L'.', "0.0000010"},
                          {1e-6F, 8, L'.', "0.0000010"}}) {
        EXPECT_EQ(formatSpinnerNumber(c.value, c.decimals, c.point).toUtf8(), c.expected);
    }
}

TEST(SpinnerValue, IsWithinItsLimitsAndTheOneThatIsShown) {
    struct Case {
        float min, max;
        int precision;
        float set, value;
        const char* text;
    };
    for (const Case& c : {Case{0, 10, 2, 11, 10, "10.0"},
                          {0, 10, 2, -1, 0, "0.0"},
                          {0, 10, 2, 1.23456F, 1.23F, "1.23"},
                          {0, 10, 2, NOT_A_NUMBER, 10, "10.0"},
                          {0, 10, 0, 2.5F, 2, "2"},
                          {0, 10, -3, 2.7F, 3, "3"},
                          {3, 3, 1, 7, 3, "3.0"},
                          {5, 4, 1, 7, 5, "5.0"}, // the minimum wins
                          {0, 1, 7, 1e-6F, 1e-6F, "0.0000010"},
                          {0, 1, 2, 1e-6F, 0, "0.0"},
                          {-INF, INF, 1, 1e9F, 1e9F, "1000000000.0"},
                          {-INF, INF, 0, INF, LARGEST, "340282346638528859811704183484516925440"},
                          {NOT_A_NUMBER, NOT_A_NUMBER, 0, -INF, -LARGEST, "-340282346638528859811704183484516925440"},
                          {0, 0.999F, 2, 5, 0.999F, "1.0"}}) {
        const SpinnerNumber number = makeNumber({c.min, c.max, 0, 0}, c.precision, c.set);
        EXPECT_EQ(number.getValue(), c.value) << c.text;
        EXPECT_EQ(shown(number), c.text);
        EXPECT_EQ(number.read(number.getText()).kind, SpinnerEntry::Kind::SAME) << "what is shown is no change";
    }
}

TEST(SpinnerChange, LosesNothingToRounding) {
    struct Case {
        float start, step;
        int precision;
        double amount; ///< of each of a thousand changes
        double expected;
    };
    for (const Case& c : {Case{0.3F, 0, 2, 0.004, 4.3},
                          {500, 0, 0, 0.001, 501},
                          {1e9F, 1, 0, 1, 1e9 + 1000},
                          {2, 1, 1, -0.0015, 0.5}}) {
        SpinnerNumber number = makeNumber({0, 2e9F, 0, c.step}, c.precision, c.start);
        for (int i = 0; i < 1000; ++i) {
            number.change(c.amount);
        }
        EXPECT_EQ(number.getValue(), static_cast<float>(c.expected)) << c.start;
    }
    SpinnerNumber number = makeNumber({0, 1, 0, 0}, 1, 0.9F);
    number.change(100);
    number.change(-0.1);
    EXPECT_EQ(number.getValue(), 0.9F) << "nothing winds up behind a limit";
    number.change(0.04);
    EXPECT_EQ(number.getValue(), 0.9F);
    number.setPrecision([] { return 3; });
    number.reapply();
    EXPECT_EQ(number.getValue(), 0.94F) << "another precision brings back what was swallowed";
    number.setValue(0.9F);
    number.change(0.0004);
    number.setValue(0.9F);
    number.change(0.0004);
    EXPECT_EQ(number.getValue(), 0.9F) << "a value that is set drops the residue";
}

TEST(SpinnerStep, MovesByTheStepButAtLeastByTheLastDecimal) {
    struct Case {
        float value, step;
        Optional<float> stepOverride;
        int precision;
        float up;
    };
    for (const Case& c : {Case{1, 0.001F, {}, 2, 1.01F},
                          {1, 0.01F, {}, 2, 1.01F},
                          {1, 0.25F, {}, 2, 1.25F},
                          {500, 0, {}, 2, 502},
                          {0.3F, -1, {}, 3, 0.304F},
                          {0.3F, NOT_A_NUMBER, {}, 3, 0.304F},
                          {1, 0.25F, 3.0F, 2, 4},
                          {1, 0.25F, -3.0F, 2, 1.01F},
                          {1, 0.25F, NOT_A_NUMBER, 2, 1.25F},
                          {7, 0.5F, {}, 0, 8},
                          {2, 1e-9F, {}, 7, std::nextafter(2.0F, 3.0F)},
                          {1e9F, 0.5F, {}, 0, std::nextafter(1e9F, 2e9F)},
                          {2e9F, 1, {}, 0, 2e9F}}) {
        SpinnerNumber number = makeNumber({-2e9F, 2e9F, 0, c.step}, c.precision, c.value);
        number.stepOnce(true, c.stepOverride);
        EXPECT_EQ(number.getValue(), c.up) << c.value << " by " << c.step;
    }
    SpinnerNumber number = makeNumber({0, 10, 0, 0.015F}, 2, 1);
    for (int i = 0; i < 4; ++i) {
        number.stepOnce(false, {});
    }
    EXPECT_EQ(number.getValue(), 0.94F);
}

TEST(SpinnerTyping, IsReadAsAStreamReadsIt) {
    using enum SpinnerEntry::Kind;
    struct Case {
        const char* typed;
        SpinnerEntry::Kind kind;
        float number;
    };
    const SpinnerNumber number = makeNumber({0, 10, 0, 0}, 2, 1.5F);
    for (const Case& c :
         {Case{"1,5", SAME, 0},
          {"1.5000", SAME, 0},
          {"1.50", SAME, 0},
          {"2,25", OTHER, 2.25F},
          {"1.501", OTHER, 1.501F},
          {"99999999999", OTHER, 99999999999.0F},
          {" \n3\n4", OTHER, 3},
          {"1,234.5", OTHER, 1.234F}, // both separators are the same one, and the second ends the number
          {"7 px", OTHER, 7},
          {"2e1", OTHER, 20},
          {"1e-60", OTHER, 0},
          {"", NOTHING, 0},
          {"abc", NOTHING, 0},
          {"1e99", NOTHING, 0},
          {"inf", NOTHING, 0},
          {"nan", NOTHING, 0},
          {"-", NOTHING, 0},
          {"\xE2\x82\xAC"
           "5",
           NOTHING, 0}}) {
        const SpinnerEntry entry = number.read(c.typed);
        EXPECT_EQ(entry.kind, c.kind) << c.typed;
        if (entry.kind == OTHER) {
            EXPECT_EQ(entry.number, c.number) << c.typed;
        }
    }
}

TEST(SpinnerDrag, GoesRoundTheScreen) {
    constexpr Bucket REGION{{0, 30}, {800, 600}};
    struct Case {
        int mouse, distance;
        Optional<int> row;
    };
    for (const Case& c : {Case{30, -3, 598},
                          {30, 0, {}},
                          {30, 2, {}},
                          {31, -9, {}},
                          {10, -1, 598}, // on the desktop's panel
                          {599, 1, 31},
                          {598, 1, {}},
                          {599, -1, {}}}) {
        EXPECT_EQ(findSpinnerWrap(c.mouse, c.distance, REGION), c.row) << c.mouse << ", " << c.distance;
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
    EXPECT_EQ(press.move({6, 500}), Optional<int>());
    EXPECT_EQ(press.move({6, 490}), -10);
    EXPECT_EQ(press.move({6, -20}), -510) << "now it really is there";
}

} // namespace
} // namespace Ostrel::Wx
