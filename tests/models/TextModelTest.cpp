#include "models/TextModel.h"

#include <gtest/gtest.h>

#include <tuple>

namespace Ostrel::Wx {
namespace {

TEST(TextDrag, CountsTheNearestPixelInside) {
    using Case = std::tuple<Pixel, Pixel, Pixel>;
    const Case cases[] = {
        {{50, 20}, {200, 100}, {50, 20}},   {{0, 0}, {200, 100}, {0, 0}},
        {{-7, -9}, {200, 100}, {0, 0}},     {{50, -9}, {200, 100}, {50, 0}},
        {{-7, 20}, {200, 100}, {0, 20}},    {{199, 99}, {200, 100}, {199, 99}},
        {{200, 99}, {200, 100}, {199, 99}}, {{199, 100}, {200, 100}, {199, 99}},
        {{9999, -1}, {200, 100}, {199, 0}}, {{5, 5}, {1, 1}, {0, 0}},
        {{5, 5}, {0, 0}, {0, 0}},           {{-5, 5}, {0, 3}, {0, 2}},
    };
    for (const auto& [mouse, size, expected] : cases) {
        const Pixel result = clampDragPoint(mouse, size);
        EXPECT_TRUE(result == expected) << mouse.x << ", " << mouse.y << " in " << size.x << " x " << size.y;
    }
}

TEST(TextFollowing, NeedsAnUntouchedCaret) {
    using Case = std::tuple<bool, TextRange, bool>;
    for (const auto& [hasFocus, selection, follows] :
         {Case{false, {20, 20}, true}, Case{false, {3, 3}, true}, Case{false, {0, 0}, true}, Case{false, {3, 5}, false},
          Case{true, {20, 20}, true}, Case{true, {3, 3}, false}, Case{true, {3, 5}, false},
          Case{true, {0, 20}, false}}) {
        EXPECT_EQ(followsAppendedText(hasFocus, selection, 20), follows)
            << hasFocus << ": " << selection.from << " to " << selection.to;
    }
}

TEST(TextIndex, IsFoundBeyondSixteenBits) {
    for (const int floor : {0, 1, 0xFFFF, 0x10000, 0x12345, 0x7FFE0000}) {
        for (const int distance : {0, 1, 100, 0xFFFF}) {
            const int index = floor + distance;
            EXPECT_EQ(widenIndex(static_cast<unsigned>(index) & 0xFFFF, floor), index) << floor << " + " << distance;
        }
    }
}

TEST(TextForControls, HasNoNulAndNoHalfOfACharacter) {
    using namespace std::string_literals;
    EXPECT_EQ(replaceUnshowable(L""), L"");
    EXPECT_EQ(replaceUnshowable(L"M\u00e4rz \u6708\n"), L"M\u00e4rz \u6708\n");
    EXPECT_EQ(replaceUnshowable(L"\U0001F600"), L"\U0001F600") << "a pair, where characters are that short";
    EXPECT_EQ(replaceUnshowable(L"\0a\0"s), L"\uFFFDa\uFFFD");
    EXPECT_EQ(replaceUnshowable(L"a\xD800"), L"a\uFFFD");
    EXPECT_EQ(replaceUnshowable(L"\xDC00\xDBFF"
                                L"b"),
              L"\uFFFD\uFFFDb");
}

} // namespace
} // namespace Ostrel::Wx
