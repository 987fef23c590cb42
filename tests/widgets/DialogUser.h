#pragma once

#include "support/WidgetTest.h"
#include "widgets/FileDialogDriver.h"

#include <utility>

#include <wx/stopwatch.h>
#include <wx/timer.h>

/// What the user does of a modal dialog, from within the dialog's own event loop: each step waits for its condition and
/// then acts. All steps have to be done by its end.
class DialogUser : wxTimer {
public:
    struct Step {
        const char* awaited;
        Ostrel::Function<bool()> condition;
        Ostrel::Function<void()> act;
    };

    explicit DialogUser(Ostrel::Array<Step> steps)
        : _steps(std::move(steps)) {
        StartOnce(INTERVAL_MS);
    }
    ~DialogUser() override { EXPECT_EQ(_done, _steps.size()) << "the dialog did not wait for: " << awaited(); }

private:
    static constexpr int INTERVAL_MS = 10;

    void Notify() override {
        if (_done < _steps.size() && _steps[_done].condition()) {
            _steps[_done++].act();
            _watch.Start();
        } else if (_watch.Time() > WidgetTest::DEADLINE_MS) {
            ADD_FAILURE() << "waited in vain for: " << awaited();
            FileDialogDriver::closeAll();
        }
        StartOnce(INTERVAL_MS);
    }
    const char* awaited() const { return _done < _steps.size() ? _steps[_done].awaited : "the dialog's end"; }

    Ostrel::Array<Step> _steps;
    std::size_t _done = 0;
    wxStopWatch _watch; ///< since the last step
};
