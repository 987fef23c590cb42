#pragma once

/// Turns the mouse's wheel by one notch, as the user would, where the pointer is. The toolkit's simulator has no wheel.
/// @param towardsUser what scrolls down, and is told as a rotation of -120
void turnWheelNotch(bool towardsUser);
