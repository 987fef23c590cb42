#include "support/WheelInput.h"

#include <gtest/gtest.h>

#include <cstdlib>

void turnWheelNotch(bool towardsUser) {
    EXPECT_EQ(std::system(towardsUser ? "xdotool click 5" : "xdotool click 4"), 0);
}
