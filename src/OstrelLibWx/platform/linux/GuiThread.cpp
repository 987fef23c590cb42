#include "platform/GuiThread.h"

#include <future>
#include <memory>

#include <wx/app.h>

namespace Ostrel::Detail {

int callForOtherThread(const Function<int()>& show) {
    if (wxTheApp == nullptr) {
        throw std::future_error(std::future_errc::broken_promise);
    }
    // Owned by the event alone: when that is deleted unprocessed, the promise is broken and the wait ends.
    auto task = std::make_shared<std::packaged_task<int()>>(show);
    std::future<int> result = task->get_future();
    wxTheApp->CallAfter([task = std::move(task)] { (*task)(); });
    return result.get();
}

} // namespace Ostrel::Detail
