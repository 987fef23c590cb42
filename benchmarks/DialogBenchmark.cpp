#include <benchmark/benchmark.h>
#include <wx/dcmemory.h>
#include <wx/image.h>

#include <OstrelLibWx/widgets/CurveDialog.h>
#include <OstrelLibWx/widgets/CustomGradient.h>

#include "Screen.h"

namespace {

using namespace Ostrel;

class PanelHost : public Wx::ICurvePanelCallbacks {
public:
    Histogram getHistogram(std::pair<float, float> range, CurveChannel, int bins) override {
        return {Array<std::uint64_t>(static_cast<std::size_t>(bins), 1), range.first, range.second};
    }
    Optional<int> getHistogramRefreshInterval() override { return {}; }
    Optional<Rgb> getPixelColor(Pixel) override { return {}; }
    void onCurveChanged(CurveChannel, const Curve&) override {}
    std::int64_t getChangeDelay() override { return 0; }
};

class DialogHost : public Wx::ICurveDialogCallbacks {
public:
    SharedPtr<Wx::ICurvePanelCallbacks> getPanelCallbacks() override { return std::make_shared<PanelHost>(); }
    Wx::CurveDialogFileRow getFileRow() override { return {}; }
    bool isPickWanted() override { return true; }
    bool isEqualizeWanted() override { return true; }
    void onDropdownShown(wxWindow*) override {}
    void onDropdownHidden(wxWindow*) override {}
};

/// Built, shown, and painted for the first time.
void curveDialogOpen(benchmark::State& state) {
    const Screen screen;
    for (auto _ : state) {
        auto* const dialog =
            new Wx::CurveDialog(screen.frame, Wx::GuiSkin(), "Curves", {}, std::make_shared<DialogHost>());
        Screen::awaitPaint(*dialog->getPanel());
        state.PauseTiming();
        delete dialog;
        LibWx::processAllPendingEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(curveDialogOpen)->Iterations(50)->Unit(benchmark::kMillisecond);

/// What the same toolkit takes for a window with nothing in it.
void emptyFrameOpen(benchmark::State& state) {
    const Screen screen;
    for (auto _ : state) {
        auto* const frame = new wxFrame(screen.frame, wxID_ANY, "Curves", wxDefaultPosition, wxSize(328, 450));
        frame->Show();
        Screen::awaitPaint(*frame);
        state.PauseTiming();
        delete frame;
        LibWx::processAllPendingEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(emptyFrameOpen)->Iterations(50)->Unit(benchmark::kMillisecond);

Rgb mapValue(float t) {
    return {t, 1.0F - t, 0.5F};
}

/// The preview of a mapping, that many pixels wide: as it was (0), or with other colours (1).
void mappingPreviewPaint(benchmark::State& state) {
    const Screen screen;
    const wxSize size(static_cast<int>(state.range(0)), 24);
    auto* const preview = new Wx::CustomGradient(screen.frame, size, mapValue);
    preview->SetSize(size);
    wxBitmap bitmap(size, 24);
    wxMemoryDC dc(bitmap);
    for (auto _ : state) {
        if (state.range(1) != 0) {
            preview->refreshColors();
        }
        preview->paint(dc);
    }
}
BENCHMARK(mappingPreviewPaint)
    ->ArgNames({"width", "changed"})
    ->Args({320, 0})
    ->Args({320, 1})
    ->Args({1920, 0})
    ->Args({1920, 1})
    ->Unit(benchmark::kMicrosecond);

/// A line for each column, as plain toolkit code would paint it.
void linesPaint(benchmark::State& state) {
    const Screen screen;
    const wxSize size(static_cast<int>(state.range(0)), 24);
    wxBitmap bitmap(size, 24);
    wxMemoryDC dc(bitmap);
    for (auto _ : state) {
        for (int x = 0; x < size.x; ++x) {
            const RgbBytes color = toRgbBytes(mapValue(static_cast<float>(x) / static_cast<float>(size.x)));
            dc.SetPen(wxPen(wxColour(color.red, color.green, color.blue)));
            dc.DrawLine(x, 0, x, size.y);
        }
    }
}
BENCHMARK(linesPaint)->ArgName("width")->Arg(320)->Arg(1920)->Unit(benchmark::kMicrosecond);

} // namespace
