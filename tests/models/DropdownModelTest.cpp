#include "models/DropdownModel.h"

#include <gtest/gtest.h>

#include <tuple>

namespace Ostrel::Wx {
namespace {

TEST(DropdownPlace, IsUnderTheButtonOrElseWhereThereIsRoom) {
    constexpr Bucket WORK_AREA{{100, 50}, {1000, 800}};
    using Case = std::tuple<const char*, Bucket, Pixel, Pixel>;
    const Case cases[] = {
        {"below", {{200, 300}, {280, 324}}, {150, 28}, {200, 324}},
        {"below, to the last pixel", {{200, 748}, {280, 772}}, {150, 28}, {200, 772}},
        {"above", {{200, 749}, {280, 773}}, {150, 28}, {200, 721}},
        {"moved left", {{900, 300}, {980, 324}}, {150, 28}, {850, 324}},
        {"moved right: the button is half outside", {{60, 300}, {140, 324}}, {150, 28}, {100, 324}},
        {"wider than the work area", {{200, 300}, {280, 324}}, {950, 28}, {100, 324}},
        {"no room above either", {{200, 60}, {280, 790}}, {150, 28}, {200, 772}},
    };
    for (const auto& [name, button, size, expected] : cases) {
        EXPECT_EQ(placeDropdown(button, size, WORK_AREA), expected) << name;
    }
}

TEST(DropdownSelection, IsWhatTheMouseOrTheKeysWereAtLast) {
    DropdownSelection selection(3);
    EXPECT_FALSE(selection.getCurrent());
    EXPECT_TRUE(selection.move(DropdownMove::NEXT));
    EXPECT_EQ(selection.getCurrent(), 0);
    EXPECT_FALSE(selection.move(DropdownMove::PREVIOUS)) << "stops at the ends";
    EXPECT_TRUE(selection.enter(2));
    EXPECT_FALSE(selection.move(DropdownMove::NEXT));
    EXPECT_TRUE(selection.move(DropdownMove::PREVIOUS));
    EXPECT_EQ(selection.getCurrent(), 1);
    EXPECT_FALSE(selection.leave(2)) << "the keys have moved on since";
    EXPECT_TRUE(selection.leave(1));
    EXPECT_TRUE(selection.move(DropdownMove::PREVIOUS));
    EXPECT_EQ(selection.getCurrent(), 2) << "from none to the last";
    EXPECT_TRUE(selection.move(DropdownMove::FIRST));
    EXPECT_FALSE(DropdownSelection(0).move(DropdownMove::LAST)) << "there is none";
}

/// How many checks it takes to close; 0 if a second's worth does not.
int checksUntilClosed(DropdownClosing& closing, bool pressed) {
    for (int i = 1; i <= 1000 / DROPDOWN_CHECK_MS; ++i) {
        if (closing.check(false, pressed)) {
            return i;
        }
    }
    return 0;
}

TEST(DropdownClosing, WaitsForThePressThatTookTheFocus) {
    constexpr int CHECKS = DropdownClosing::PRESS_WAIT_MS / DROPDOWN_CHECK_MS;
    DropdownClosing closing;
    EXPECT_EQ(checksUntilClosed(closing, false), 0) << "it has the focus";
    EXPECT_TRUE(closing.check(true, false)) << "its button is gone";
    EXPECT_TRUE(closing.focusLost(false));

    DropdownClosing pressed;
    EXPECT_FALSE(pressed.focusLost(true));
    EXPECT_EQ(checksUntilClosed(pressed, true), 0) << "the click decides";
    EXPECT_EQ(checksUntilClosed(pressed, false), CHECKS) << "there was none";

    DropdownClosing regained;
    EXPECT_FALSE(regained.focusLost(true));
    regained.focusGained();
    EXPECT_EQ(checksUntilClosed(regained, false), 0);
}

} // namespace
} // namespace Ostrel::Wx
