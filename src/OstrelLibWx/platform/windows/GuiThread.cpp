#include "platform/GuiThread.h"

namespace Ostrel::Detail {

int callForOtherThread(const Function<int()>& show) {
    return show();
}

} // namespace Ostrel::Detail
