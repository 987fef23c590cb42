#include <OstrelLibWx/widgets/GradientControl.h>

#include "LibraryUp.h"

#include <benchmark/benchmark.h>

#include <wx/dcmemory.h>
#include <wx/frame.h>

namespace {

using namespace Ostrel;

const wxSize SIZE(600, 48);

ColorGradient makeGradient(int count) {
    Array<ColorGradientPoint> points;
    for (int i = 0; i < count; ++i) {
        const float share = static_cast<float>(i) / static_cast<float>(count - 1);
        points.push_back({{share * 300.0F, 0.8F, 0.9F}, share});
    }
    return ColorGradient(std::move(points));
}

/// The control is painted into a bitmap: again as it is, or with a gradient that has changed.
void gradientPaint(benchmark::State& state) {
    const LibraryUp library;
    auto* const frame = new wxFrame(nullptr, wxID_ANY, "Gradient");
    auto* const control = new Wx::GradientControl(frame, SIZE, 0.0F, 1.0F);
    const ColorGradient gradient = makeGradient(static_cast<int>(state.range(0)));
    control->setGradient(gradient);
    wxBitmap target(control->GetClientSize(), 24);
    wxMemoryDC dc(target);
    for (auto _ : state) {
        if (state.range(1) != 0) {
            control->setGradient(gradient);
        }
        control->paint(dc);
    }
    frame->Destroy();
    LibWx::processAllPendingEvents();
}
BENCHMARK(gradientPaint)->ArgNames({"points", "changed"})->ArgsProduct({{2, 64}, {0, 1}});

} // namespace
