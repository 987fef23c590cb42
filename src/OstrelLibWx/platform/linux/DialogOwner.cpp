#include "platform/DialogOwner.h"

namespace Ostrel::Detail {

void reactivateOwner(WindowHandle) {}

} // namespace Ostrel::Detail
