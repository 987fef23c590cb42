#pragma once

#include <wx/dcscreen.h>

namespace Ostrel::Gallery {

/// Makes the next reading from `screen` see what the screen shows by then, and nothing that was read before.
void discardScreenCache(wxScreenDC& screen);

} // namespace Ostrel::Gallery
