#include <benchmark/benchmark.h>

#include <OstrelLibWx/widgets/Spinner.h>

#include "Screen.h"

namespace {

using namespace Ostrel;

/// A spinner from 0 to 1000 that shows 2 decimals.
struct SpinnerOnScreen {
    SpinnerOnScreen() { Screen::awaitPaint(*spinner); }

    Screen screen{};
    Wx::Spinner* spinner = new Wx::Spinner(new wxPanel(screen.frame), wxID_ANY, 60, 0, 1000, 500, 2, 0.1F);
};

void spinnerSetValue(benchmark::State& state) {
    const SpinnerOnScreen screen;
    float heard = 0;
    screen.spinner->callOnValueChange([&heard](float value) { heard += value; });
    float value = 0;
    for (auto _ : state) {
        value = value > 900 ? 0 : value + 0.37F;
        screen.spinner->setValue(value, state.range(0) != 0);
    }
    benchmark::DoNotOptimize(heard);
}
BENCHMARK(spinnerSetValue)->ArgName("notify")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

/// A press, 1,000 motions of a pixel, each followed by the repaint that it asks for, and the release.
void spinnerDragAThousandSteps(benchmark::State& state) {
    const SpinnerOnScreen screen;
    wxWindow* const arrow = screen.spinner->GetChildren().Item(1)->GetData();
    const auto send = [arrow](wxEventType type, int y) {
        wxMouseEvent event(type);
        event.SetEventObject(arrow);
        event.SetPosition(wxPoint(5, y));
        arrow->ProcessWindowEvent(event);
    };
    for (auto _ : state) {
        send(wxEVT_LEFT_DOWN, 0);
        for (int i = 1; i <= 1000; ++i) {
            send(wxEVT_MOTION, i <= 500 ? -i : i - 1000);
            screen.spinner->Update();
        }
        send(wxEVT_LEFT_UP, 0);
        LibWx::processAllPendingEvents();
    }
}
BENCHMARK(spinnerDragAThousandSteps)->Unit(benchmark::kMillisecond);

} // namespace
