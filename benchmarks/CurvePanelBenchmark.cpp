#include <OstrelLibWx/widgets/CurvePanel.h>

#include "ShownWindow.h"

#include <benchmark/benchmark.h>

#include <wx/dcbuffer.h>
#include <wx/dcmemory.h>
#include <wx/graphics.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace Ostrel;

constexpr int MARGIN = 5;

/// Four curves of 16 points.
ColorCurve makeCurves() {
    ColorCurve curves;
    for (int channel = 0; channel < CURVE_CHANNEL_COUNT; ++channel) {
        Array<CurvePoint> points;
        for (int i = 0; i < 16; ++i) {
            const float x = static_cast<float>(i) / 15.0F;
            points.push_back({x, std::pow(x, 0.5F + 0.3F * static_cast<float>(channel))});
        }
        curves.curves[static_cast<std::size_t>(channel)] = Curve(std::move(points));
    }
    return curves;
}

/// A hump with grain, so that hardly two columns are equally high.
Histogram makeHistogram(int binCount, std::uint32_t grain = 1) {
    Array<std::uint64_t> bins;
    for (int i = 0; i < binCount; ++i) {
        grain = grain * 1664525U + 1013904223U;
        const double x = static_cast<double>(i) / binCount;
        bins.push_back(static_cast<std::uint64_t>(1e6 * x * (1.0 - x)) + (grain >> 16U));
    }
    return Histogram(std::move(bins), 0.0F, 1.0F);
}

class Host : public Wx::ICurvePanelCallbacks {
public:
    Histogram getHistogram(std::pair<float, float>, CurveChannel, int binCount) override {
        return makeHistogram(binCount, ++_grain); // another one each time
    }
    Optional<int> getHistogramRefreshInterval() override { return {}; }
    Optional<Rgb> getPixelColor(Pixel) override { return {}; }
    void onCurveChanged(CurveChannel, const Curve&) override {}
    std::int64_t getChangeDelay() override { return 0; }

private:
    std::uint32_t _grain = 0;
};

/// The baseline: the same picture in the toolkit's plainest code, all of it at every painting.
class PlainPanel : public wxPanel {
public:
    PlainPanel(wxWindow* parent, wxSize size)
        : wxPanel(parent, wxID_ANY, wxDefaultPosition, size)
        , _plot(size - wxSize(2 * MARGIN, 2 * MARGIN))
        , _curves(makeCurves())
        , _histogram(makeHistogram(_plot.x)) {
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
            wxAutoBufferedPaintDC dc(this);
            paint(dc);
        });
    }

    void drag(CurvePoint point) {
        _curves[CurveChannel::MASTER].setPoint(7, point);
        Refresh();
    }

    void paint(wxDC& dc) const {
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(wxColour(68, 68, 68));
        dc.DrawRectangle(GetClientSize());
        dc.SetBrush(wxColour(60, 60, 60));
        dc.DrawRectangle(wxPoint(MARGIN, MARGIN), _plot);
        dc.SetClippingRegion(wxPoint(MARGIN, MARGIN), _plot);
        paintHistogram(dc);
        paintGrid(dc);
        const AutoPtr<wxGraphicsContext> own(dc.GetGraphicsContext() ? nullptr
                                                                     : wxGraphicsContext::CreateFromUnknownDC(dc));
        wxGraphicsContext& context = own ? *own : *dc.GetGraphicsContext();
        for (const auto& [channel, pen] : {std::pair{CurveChannel::RED, wxPen(*wxRED)},
                                           {CurveChannel::GREEN, wxPen(*wxGREEN)},
                                           {CurveChannel::BLUE, wxPen(*wxBLUE)},
                                           {CurveChannel::MASTER, wxPen(*wxBLACK, 2)}}) {
            wxGraphicsPath path = context.CreatePath();
            for (int i = 0; i < _plot.x; ++i) {
                const float x = static_cast<float>(i) / static_cast<float>(_plot.x);
                path.AddLineToPoint(MARGIN + i, getY(_curves[channel](x)));
            }
            context.SetPen(pen);
            context.StrokePath(path);
        }
        dc.DestroyClippingRegion();
        dc.SetPen(wxPen(*wxBLACK, 1, wxPENSTYLE_SHORT_DASH));
        dc.SetBrush(*wxWHITE_BRUSH);
        for (const CurvePoint& point : _curves[CurveChannel::MASTER].getPoints()) {
            dc.DrawCircle(MARGIN + static_cast<int>(point.x * static_cast<float>(_plot.x)), getY(point.y), 4);
        }
    }

private:
    [[nodiscard]] int getY(float y) const {
        return MARGIN + _plot.y - static_cast<int>(y * static_cast<float>(_plot.y));
    }

    void paintHistogram(wxDC& dc) const {
        dc.SetPen(wxPen(wxColour(170, 170, 170)));
        const Array<std::uint64_t>& bins = _histogram.getBins();
        for (int i = 0; i < _plot.x; ++i) {
            const float share =
                static_cast<float>(bins[static_cast<std::size_t>(i)]) / static_cast<float>(_histogram.getLargestBin());
            dc.DrawLine(MARGIN + i, MARGIN + _plot.y, MARGIN + i, getY(share));
        }
    }

    void paintGrid(wxDC& dc) const {
        for (int i = 0; i <= 8; ++i) {
            dc.SetPen(wxPen(wxColour(120, 120, 120), i % 8 == 0 ? 3 : 1));
            dc.DrawLine(MARGIN + i * _plot.x / 8, MARGIN, MARGIN + i * _plot.x / 8, MARGIN + _plot.y);
            dc.DrawLine(MARGIN, MARGIN + i * _plot.y / 8, MARGIN + _plot.x, MARGIN + i * _plot.y / 8);
        }
        dc.SetPen(wxPen(*wxBLACK, 1, wxPENSTYLE_SHORT_DASH));
        dc.DrawLine(MARGIN + _plot.x, MARGIN, MARGIN, MARGIN + _plot.y);
    }

    wxSize _plot;
    ColorCurve _curves;
    Histogram _histogram;
};

/// The library's panel, and steps of a drag of one of its points.
class LibraryPanel : public Wx::CurvePanel {
public:
    LibraryPanel(wxWindow* parent, wxSize size)
        : CurvePanel(parent, Wx::GuiSkin(), size, makeCurves(), std::make_shared<Host>()) {}

    void drag(CurvePoint point) {
        const Pixel plot = getPlotSize();
        const int x = MARGIN + static_cast<int>(point.x * static_cast<float>(plot.x));
        const int y = MARGIN + plot.y - static_cast<int>(point.y * static_cast<float>(plot.y));
        if (!std::exchange(_pressed, true)) {
            const CurvePoint start = getCurrentCurves()[CurveChannel::MASTER].getPoints()[7];
            send(wxEVT_LEFT_DOWN, x, MARGIN + plot.y - static_cast<int>(start.y * static_cast<float>(plot.y)));
            ReleaseMouse();
        }
        send(wxEVT_MOTION, x, y);
    }

private:
    void send(wxEventType type, int x, int y) {
        wxMouseEvent event(type);
        event.SetPosition({x, y});
        ProcessWindowEvent(event);
    }

    bool _pressed = false;
};

/// The panel on the screen, and steps of a drag in it.
template <class Panel>
class Shown : public ShownWindow<Panel> {
public:
    explicit Shown(int size)
        : ShownWindow<Panel>(wxSize(size, size),
                             [size](wxWindow* parent) { return new Panel(parent, wxSize(size, size)); }) {}

    /// Up and down in steps of a pixel or two.
    void dragOn() {
        _y = _y < 0.9F ? _y + 0.0041F : 0.1F;
        this->window().drag({7.0F / 15.0F, _y});
    }

private:
    float _y = 0.5F;
};

/// Painting the panel as it is, into a bitmap.
template <class Panel>
void curvePanelPaint(benchmark::State& state) {
    Shown<Panel> shown(static_cast<int>(state.range(0)));
    wxBitmap target(shown.window().GetClientSize(), 24);
    wxMemoryDC dc(target);
    for (auto _ : state) {
        shown.window().paint(dc);
    }
}

/// A step of a drag and its painting into a bitmap.
template <class Panel>
void curvePanelDrag(benchmark::State& state) {
    Shown<Panel> shown(static_cast<int>(state.range(0)));
    wxBitmap target(shown.window().GetClientSize(), 24);
    wxMemoryDC dc(target);
    for (auto _ : state) {
        shown.dragOn();
        shown.window().paint(dc);
    }
}

/// A step of a drag, and the window made to show it at once.
template <class Panel>
void curvePanelDragOnScreen(benchmark::State& state) {
    Shown<Panel> shown(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        shown.dragOn();
        shown.paintOnScreen();
    }
}

constexpr auto SIZES = [](auto* benchmark) { benchmark->Arg(266)->Arg(512)->Arg(1024)->UseRealTime(); };
BENCHMARK_TEMPLATE(curvePanelPaint, PlainPanel)->Apply(SIZES);
BENCHMARK_TEMPLATE(curvePanelPaint, LibraryPanel)->Apply(SIZES);
BENCHMARK_TEMPLATE(curvePanelDrag, PlainPanel)->Apply(SIZES);
BENCHMARK_TEMPLATE(curvePanelDrag, LibraryPanel)->Apply(SIZES);
BENCHMARK_TEMPLATE(curvePanelDragOnScreen, PlainPanel)->Apply(SIZES);
BENCHMARK_TEMPLATE(curvePanelDragOnScreen, LibraryPanel)->Apply(SIZES);

/// The histogram has come anew: all is painted anew.
void curvePanelNewHistogram(benchmark::State& state) {
    Shown<LibraryPanel> shown(static_cast<int>(state.range(0)));
    wxBitmap target(shown.window().GetClientSize(), 24);
    wxMemoryDC dc(target);
    for (auto _ : state) {
        shown.window().updateHistogram();
        shown.window().paint(dc);
    }
}
BENCHMARK(curvePanelNewHistogram)->Apply(SIZES);

} // namespace
