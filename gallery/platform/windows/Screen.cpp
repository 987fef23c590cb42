#include "platform/Screen.h"

namespace Ostrel::Gallery {

void discardScreenCache(wxScreenDC&) {}

} // namespace Ostrel::Gallery
