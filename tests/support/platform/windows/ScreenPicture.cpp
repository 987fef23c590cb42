#include "support/ScreenPicture.h"

void dropKeptScreenPicture(const wxDC&) {}
