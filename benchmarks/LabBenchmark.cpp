// Tone curves on a picture of 1920 × 1080 floats, the way the gallery's Lab does it and the plain way, and curves
// files.

#include <OstrelLib/Bitmap.h>
#include <OstrelLib/Curve.h>
#include <OstrelLibWx/BitmapUtils.h>
#include <OstrelLibWx/CurvesFile.h>

#include <benchmark/benchmark.h>
#include <wx/dcclient.h>
#include <wx/panel.h>

#include <cmath>
#include <cstdint>
#include <filesystem>

#include "ShownWindow.h"
#include "lab/Placement.h"
#include "lab/Tones.h"

namespace {

using namespace Ostrel;
using namespace Ostrel::Gallery;

constexpr Pixel FULL_HD{1920, 1080};

/// Values in no order, some of them above 1.
BitmapImpl<Rgb> makePicture() {
    BitmapImpl<Rgb> picture(FULL_HD.x, FULL_HD.y);
    std::uint32_t random = 1;
    const auto next = [&random] {
        random = random * 1664525U + 1013904223U;
        return static_cast<float>(random >> 8U) * 0x1.2p-24F;
    };
    for (std::size_t i = 0; i < picture.size(); ++i) {
        const float red = next();
        const float green = next();
        picture.data()[i] = {red, green, next()};
    }
    return picture;
}

/// Four curves of 16 points.
ColorCurve makeCurves() {
    ColorCurve curves;
    float power = 0.7F;
    for (Curve& curve : curves.curves) {
        Array<CurvePoint> points;
        for (int i = 0; i < 16; ++i) {
            const float x = static_cast<float>(i) / 15.0F;
            points.push_back({x, std::pow(x, power)});
        }
        curve.setPoints(points);
        power += 0.25F;
    }
    return curves;
}

Placement placeUnscaled() {
    Placement placement;
    placement.setSizes(FULL_HD, FULL_HD);
    return placement;
}

/// The baseline: each pixel through the splines themselves, one after the other.
void applyCurvesPlain(benchmark::State& state) {
    const BitmapImpl<Rgb> picture = makePicture();
    const ColorCurve curves = makeCurves();
    BitmapImpl<Rgb> shown(FULL_HD.x, FULL_HD.y);
    const Curve& master = curves[CurveChannel::MASTER];
    for (auto _ : state) {
        for (std::size_t i = 0; i < picture.size(); ++i) {
            const Rgb& pixel = picture.data()[i];
            shown.data()[i] = {master(curves[CurveChannel::RED](pixel.red)),
                               master(curves[CurveChannel::GREEN](pixel.green)),
                               master(curves[CurveChannel::BLUE](pixel.blue)), 1.0F};
        }
        benchmark::DoNotOptimize(shown.data());
    }
}
BENCHMARK(applyCurvesPlain)->Unit(benchmark::kMillisecond)->UseRealTime();

/// A change of a curve: the tables anew, and all pixels through them.
void applyCurvesByTables(benchmark::State& state) {
    const BitmapImpl<Rgb> picture = makePicture();
    const ColorCurve curves = makeCurves();
    const Placement placement = placeUnscaled();
    BitmapImpl<Rgb> shown;
    for (auto _ : state) {
        showPicture(picture, ToneTables(curves, PictureValues::STORED), placement, {}, shown);
        benchmark::DoNotOptimize(shown.data());
    }
}
BENCHMARK(applyCurvesByTables)->Unit(benchmark::kMillisecond)->UseRealTime();

void makeToneTables(benchmark::State& state) {
    const ColorCurve curves = makeCurves();
    for (auto _ : state) {
        benchmark::DoNotOptimize(ToneTables(curves, static_cast<PictureValues>(state.range(0))));
    }
}
BENCHMARK(makeToneTables)->ArgName("light")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

/// The whole way of a change to the screen, in a view of the size that is asked for.
void applyCurvesAndShow(benchmark::State& state) {
    const LibraryUp library;
    const BitmapImpl<Rgb> picture = makePicture();
    const ColorCurve curves = makeCurves();
    const wxSize size(static_cast<int>(state.range(0)), static_cast<int>(state.range(0)) * FULL_HD.y / FULL_HD.x);
    wxBitmap bitmap;
    ShownWindow<wxPanel> view(size, [&bitmap](wxWindow* parent) {
        auto* const panel = new wxPanel(parent);
        panel->SetBackgroundStyle(wxBG_STYLE_PAINT);
        panel->Bind(wxEVT_PAINT, [panel, &bitmap](wxPaintEvent&) {
            wxPaintDC dc(panel);
            if (bitmap.IsOk()) {
                dc.DrawBitmap(bitmap, 0, 0);
            }
        });
        return panel;
    });
    Placement placement;
    placement.setSizes(FULL_HD, {size.x, size.y});
    BitmapImpl<Rgb> shown;
    for (auto _ : state) {
        showPicture(picture, ToneTables(curves, PictureValues::LIGHT), placement, {}, shown);
        bitmap = Wx::toWxBitmap(shown, false);
        view.window().Refresh();
        view.paintOnScreen();
    }
}
BENCHMARK(applyCurvesAndShow)->ArgName("width")->Arg(544)->Arg(1920)->Unit(benchmark::kMillisecond)->UseRealTime();

const Path& getCurvesFile() {
    static const Path path(std::filesystem::temp_directory_path() / "ostrel-benchmark.acv");
    return path;
}

void saveCurvesFile(benchmark::State& state) {
    const ColorCurve curves = makeCurves();
    for (auto _ : state) {
        benchmark::DoNotOptimize(Wx::saveCurves(curves, getCurvesFile()));
    }
    std::filesystem::remove(getCurvesFile().native());
}
BENCHMARK(saveCurvesFile)->Unit(benchmark::kMicrosecond);

void loadCurvesFile(benchmark::State& state) {
    const bool isSaved = Wx::saveCurves(makeCurves(), getCurvesFile());
    for (auto _ : state) {
        if (!isSaved || !Wx::loadCurves(getCurvesFile())) {
            state.SkipWithError("the file does not load");
            break;
        }
    }
    std::filesystem::remove(getCurvesFile().native());
}
BENCHMARK(loadCurvesFile)->Unit(benchmark::kMicrosecond);

} // namespace
