#include "support/WheelInput.h"

#include <gtest/gtest.h>
#include <windows.h>

void turnWheelNotch(bool towardsUser) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = MOUSEEVENTF_WHEEL;
    input.mi.mouseData = static_cast<DWORD>(towardsUser ? -WHEEL_DELTA : WHEEL_DELTA);
    EXPECT_EQ(SendInput(1, &input, sizeof input), 1U);
}
