#include "lab/Rows.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>

namespace Ostrel::Gallery {

void forEachRow(int rowCount, unsigned threadCount, const std::stop_token& stop, const Function<void(int)>& action) {
    // Rows take different times, so each thread takes the next few when it has done its own.
    constexpr int ROWS_AT_ONCE = 8;
    std::atomic<int> next = 0;
    const auto work = [&]() noexcept {
        for (int first = 0; (first = next.fetch_add(ROWS_AT_ONCE)) < rowCount;) {
            for (int row = first; row < std::min(first + ROWS_AT_ONCE, rowCount); ++row) {
                if (stop.stop_requested()) {
                    return;
                }
                action(row);
            }
        }
    };
    const unsigned wanted = threadCount > 0 ? threadCount : std::max(std::thread::hardware_concurrency(), 1U);
    Array<std::jthread> threads;
    threads.reserve(wanted);
    try {
        while (threads.size() + 1 < wanted) {
            threads.emplace_back(work);
        }
    } catch (const std::system_error&) {
        // The system gives no more threads; the others do the work.
    }
    work();
}

} // namespace Ostrel::Gallery
