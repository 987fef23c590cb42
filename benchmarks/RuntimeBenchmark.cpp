#include <benchmark/benchmark.h>
#include <wx/frame.h>
#include <wx/panel.h>

#include <OstrelLibWx/BitmapUtils.h>
#include <OstrelLibWx/OstrelLibWx.h>
#include <OstrelLibWx/WindowUtils.h>

namespace {

using namespace Ostrel;

void startAndStop(benchmark::State& state) {
    for (auto _ : state) {
        LibWx::startup(LibWx::ApplicationType::STANDALONE);
        LibWx::shutdown();
    }
}
BENCHMARK(startAndStop)->Unit(benchmark::kMillisecond);

/// 10,000 windows: 250 siblings, each the outermost of 40 that lie inside one another.
void findWindowAmongTenThousand(benchmark::State& state) {
    LibWx::startup(LibWx::ApplicationType::STANDALONE);
    wxFrame* const frame = new wxFrame(nullptr, wxID_ANY, "Tree", wxPoint(0, 0), wxSize(1000, 800));
    for (int i = 0; i < 250; ++i) {
        wxWindow* parent = frame;
        for (int depth = 0; depth < 40; ++depth) {
            const wxPoint place = depth == 0 ? wxPoint(i % 25 * 40, i / 25 * 70) : wxPoint(0, 1);
            parent = new wxWindow(parent, wxID_ANY, place, wxSize(40, 60 - depth));
        }
    }
    frame->Show();
    LibWx::processAllPendingEvents();
    const wxPoint origin = frame->ClientToScreen(wxPoint(5, 5));
    for (auto _ : state) {
        benchmark::DoNotOptimize(Wx::findWindowByPosition(frame, {origin.x, origin.y}, {}));
    }
    frame->Destroy();
    LibWx::shutdown();
}
BENCHMARK(findWindowAmongTenThousand)->Unit(benchmark::kMillisecond);

} // namespace
