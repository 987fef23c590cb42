#include "platform/PopupNative.h"

namespace Ostrel::Detail {

void letTakeInputBesideModalDialog(wxTopLevelWindow&) {}

} // namespace Ostrel::Detail
