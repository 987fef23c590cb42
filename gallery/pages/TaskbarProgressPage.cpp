#include "EventLog.h"
#include "Page.h"

#include <OstrelLibWx/TaskbarProgress.h>
#include <OstrelLibWx/WindowUtils.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <thread>

namespace Ostrel::Gallery {

namespace {

constexpr int WORK_STEPS = 100;
constexpr std::chrono::milliseconds WORK_STEP{50};

class TaskbarProgressPage : public Page {
public:
    explicit TaskbarProgressPage(const PageContext& context)
        : Page(context, "Taskbar progress",
               "TaskbarProgress shows how far a long operation is on the taskbar button of a window: here on the "
               "gallery's own. Any thread may drive it.") {
        auto* const values = new wxBoxSizer(wxHORIZONTAL);
        for (const int percent : {0, 25, 50, 75, 100}) {
            const wxString label = wxString::Format("%d %%", percent);
            addToRow(*values,
                     makeButton(label,
                                [this, label, percent] {
                                    _worker = {};
                                    get().setProgress(static_cast<float>(percent) / 100.0F);
                                    log().report("Taskbar progress", "setProgress: " + label);
                                }),
                     GRID);
        }
        addSection("A value", "What does not change it in whole thousandths is not sent to the taskbar.")->Add(values);

        auto* const modes = new wxBoxSizer(wxHORIZONTAL);
        addToRow(*modes,
                 makeButton("Busy",
                            [this] {
                                _worker = {};
                                get().setIndeterminate();
                                log().report("Taskbar progress", "setIndeterminate");
                            }),
                 GRID);
        addToRow(*modes,
                 makeButton("None",
                            [this] {
                                _worker = {};
                                get().setIdle();
                                log().report("Taskbar progress", "setIdle");
                            }),
                 GRID);
        addSection("No value", "Something is going on, or nothing is.")->Add(modes);

        auto* const work = new wxBoxSizer(wxHORIZONTAL);
        addToRow(*work, makeButton("Work", [this] { startWork(); }), GRID);
        addToRow(*work,
                 makeButton("Stop",
                            [this] {
                                _worker = {};
                                get().setIdle();
                            }),
                 GRID);
        addSection("From another thread", "Five seconds of work that reports its progress itself.")->Add(work);
    }

private:
    /// Made at the first use, when the window is there.
    Wx::TaskbarProgress& get() {
        if (!_progress) {
            _progress.emplace(Wx::getWindowNativeHandle(wxGetTopLevelParent(this)));
        }
        return *_progress;
    }

    void startWork() {
        _worker = {};
        log().report("Taskbar progress", "driven by another thread");
        _worker = std::jthread([&progress = get()](const std::stop_token& stop) {
            std::mutex mutex;
            std::condition_variable_any wakeUp;
            std::unique_lock lock(mutex);
            for (int step = 0; step <= WORK_STEPS && !stop.stop_requested(); ++step) {
                progress.setProgress(static_cast<float>(step) / WORK_STEPS);
                wakeUp.wait_for(lock, stop, WORK_STEP, [] { return false; });
            }
            progress.setIdle();
        });
    }

    Optional<Wx::TaskbarProgress> _progress;
    std::jthread _worker; ///< ends before what it drives
};

const PageRegistration registration = registerPage<TaskbarProgressPage>(920, "Taskbar progress");

} // namespace

} // namespace Ostrel::Gallery
