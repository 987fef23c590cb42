#pragma once

class wxDC;

/// Makes the next copy from a device context of the screen show what is there now. On Linux the graphics library keeps
/// a picture of the screen once it has read it, and does not notice what others draw; on Windows there is none to drop.
void dropKeptScreenPicture(const wxDC& screen);
