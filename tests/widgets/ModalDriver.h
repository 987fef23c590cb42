#pragma once

#include "support/WidgetTest.h"

#include <vector>

#include <wx/dialog.h>
#include <wx/stopwatch.h>
#include <wx/timer.h>

/// Works modal dialogs from inside their own event loops: takes one step after the other, each again and again until it
/// says that it is done. A step that never is fails the test; the dialogs are ended then.
class ModalDriver : private wxTimer {
public:
    using Step = std::function<bool()>;

    /// @param end ends what is shown, after the deadline; without it the dialogs that the toolkit knows of are ended
    explicit ModalDriver(std::vector<Step> steps, std::function<void()> end = endDialogs)
        : _steps(std::move(steps))
        , _end(std::move(end)) {
        constexpr int INTERVAL_MS = 5;
        Start(INTERVAL_MS);
    }
    ModalDriver(const ModalDriver&) = delete;
    ModalDriver& operator=(const ModalDriver&) = delete;
    ~ModalDriver() override { EXPECT_EQ(_next, _steps.size()) << "the dialog ended before all steps were taken"; }

    /// The dialog that is shown; null if there is none.
    template <class Dialog>
    static Dialog* findShown() {
        for (wxWindow* const window : wxTopLevelWindows) {
            auto* const dialog = dynamic_cast<Dialog*>(window);
            if (dialog != nullptr && dialog->IsShown() && !dialog->IsBeingDeleted()) {
                return dialog;
            }
        }
        return nullptr;
    }

    /// The same once it waits for input.
    template <class Dialog>
    static Dialog* findActive() {
        auto* const dialog = findShown<Dialog>();
        return dialog != nullptr && WidgetTest::isUp(*dialog) ? dialog : nullptr;
    }

private:
    static void endDialogs() {
        for (wxWindow* const window : wxTopLevelWindows) {
            if (auto* const dialog = dynamic_cast<wxDialog*>(window); dialog != nullptr && dialog->IsModal()) {
                dialog->EndModal(-1);
            }
        }
    }

    void Notify() override {
        if (_next < _steps.size() && _steps[_next]()) {
            ++_next;
            _watch.Start();
        } else if (_watch.Time() > WidgetTest::DEADLINE_MS) {
            Stop();
            _end();
        }
    }

    std::vector<Step> _steps;
    std::function<void()> _end;
    std::size_t _next = 0;
    wxStopWatch _watch;
};
