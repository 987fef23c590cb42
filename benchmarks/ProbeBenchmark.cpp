#include <OstrelLibWx/TaskbarProgress.h>
#include <OstrelLibWx/widgets/ColorPickerButton.h>
#include <OstrelLibWx/widgets/PixelProbe.h>

#include "LibraryUp.h"

#include <benchmark/benchmark.h>

#include <wx/dcmemory.h>
#include <wx/frame.h>

namespace {

using namespace Ostrel;

/// A move of the mouse over a picture whose every pixel is another one, with the probe on the screen.
void pixelProbeUpdate(benchmark::State& state) {
    const LibraryUp library;
    auto* const frame = new wxFrame(nullptr, wxID_ANY, "Probe");
    float level = 0.0F;
    auto* const probe = new Wx::PixelProbe(
        frame,
        [&level](const Pixel& cursor) {
            level = level < 0.9F ? level + 0.00417F : 0.0F;
            return Wx::PixelProbe::ProbedPixel{
                .original = {level, 0.5F, 0.25F}, .tonemapped = {level, 0.5F, 0.25F}, .position = cursor};
        },
        "Invalid");
    frame->Show();
    probe->Show();
    LibWx::processAllPendingEvents();
    int x = 100;
    for (auto _ : state) {
        x = x < 999 ? x + 1 : 100;
        probe->updatePosition({x, 200});
        probe->Update();
    }
    frame->Destroy();
    LibWx::processAllPendingEvents();
}
BENCHMARK(pixelProbeUpdate)->UseRealTime();

/// A report of progress that changes nothing, or the display.
void taskbarProgress(benchmark::State& state) {
    const LibraryUp library;
    Wx::TaskbarProgress progress{WindowHandle(1)};
    const bool changes = state.range(0) != 0;
    float fraction = 0.25F;
    for (auto _ : state) {
        if (changes) {
            fraction = fraction < 1.0F ? fraction + 0.00125F : 0.0F;
        }
        progress.setProgress(fraction);
    }
}
BENCHMARK(taskbarProgress)->ArgName("changes")->Arg(0)->Arg(1)->UseRealTime();

/// A swatch is painted into a bitmap, enabled or with its stripes.
void swatchPaint(benchmark::State& state) {
    const LibraryUp library;
    auto* const frame = new wxFrame(nullptr, wxID_ANY, "Swatch");
    auto* const button = new Wx::ColorPickerButton(frame, "Sky", wxSize(60, 24), state.range(0) != 0);
    wxBitmap target(button->GetClientSize(), 24);
    wxMemoryDC dc(target);
    for (auto _ : state) {
        button->paint(dc);
    }
    frame->Destroy();
    LibWx::processAllPendingEvents();
}
BENCHMARK(swatchPaint)->ArgName("enabled")->Arg(1)->Arg(0);

} // namespace
