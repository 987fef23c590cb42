#include "Plots.h"

#include "Look.h"
#include "lab/Tones.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

#include <wx/dcgraph.h>
#include <wx/dcmemory.h>

#include <algorithm>

namespace Ostrel::Gallery {

namespace {

constexpr RgbBytes GROUND{37, 37, 37};
constexpr RgbBytes GRID_LINE{58, 58, 58};
constexpr RgbBytes STRAIGHT{150, 150, 150};

/// The share of the way from the first of `count` places to the last.
float getShare(int index, int count) {
    return static_cast<float>(index) / static_cast<float>(std::max(1, count - 1));
}

/// Linear sRGB of a colour under its own white point, IEC 61966-2-1, annex F.
Rgb toLinearSrgb(const XYZ& c) {
    return {3.2406f * c.x - 1.5372f * c.y - 0.4986f * c.z, -0.9689f * c.x + 1.8758f * c.y + 0.0415f * c.z,
            0.0557f * c.x - 0.2040f * c.y + 1.0570f * c.z};
}

void drawColumns(wxDC& dc, wxSize size, const Function<wxColour(float)>& getColour) {
    for (int x = 0; x < size.x; ++x) {
        dc.SetPen(getColour(getShare(x, size.x)));
        dc.DrawLine(x, 0, x, size.y);
    }
}

} // namespace

wxColour toScreenColour(const Rgb& colour) {
    return Wx::toWxColour(toRgbBytes(colour));
}

wxBitmap plotCurve(wxSize size, const Array<CurvePoint>& points) {
    constexpr int GRID_CELLS = 4;
    // Room for the points at the ends.
    const wxRect area = wxRect(size).Deflate(Wx::scaleByDpi(GRID));
    const wxColour ground = Wx::toWxColour(GROUND);
    const wxColour accent = Wx::toWxColour(Wx::GuiSkin().toggledBackground);
    wxBitmap bitmap = paintBitmap(size, ground, [&](wxDC& dc) {
        dc.SetPen(Wx::toWxColour(GRID_LINE));
        for (int i = 0; i <= GRID_CELLS; ++i) {
            const int x = area.x + (area.width - 1) * i / GRID_CELLS;
            const int y = area.y + (area.height - 1) * i / GRID_CELLS;
            dc.DrawLine(x, area.y, x, area.GetBottom() + 1);
            dc.DrawLine(area.x, y, area.GetRight() + 1, y);
        }
    });
    wxMemoryDC memory(bitmap);
    wxGCDC dc(memory);
    const auto toPlot = [&area](float x, float y) {
        return wxPoint2DDouble(area.x + static_cast<double>(x) * (area.width - 1),
                               area.y + (1.0 - static_cast<double>(y)) * (area.height - 1));
    };
    wxGraphicsContext& context = *dc.GetGraphicsContext();
    for (const auto& [mode, colour] : {std::pair{CurveInterpolation::LINEAR, Wx::toWxColour(STRAIGHT)},
                                       {CurveInterpolation::CUBIC_SPLINE, accent}}) {
        const Curve curve(points, mode);
        Array<wxPoint2DDouble> line;
        for (int x = 0; x < area.width; ++x) {
            const float position = getShare(x, area.width);
            line.push_back(toPlot(position, curve(position)));
        }
        context.SetPen(wxPen(colour, Wx::scaleByDpi(2)));
        context.StrokeLines(line.size(), line.data());
    }
    const double radius = Wx::scaleByDpi(4);
    context.SetPen(wxPen(ground, Wx::scaleByDpi(1)));
    context.SetBrush(wxBrush(getTextColour(TextRole::SECTION)));
    for (const CurvePoint& point : points) {
        const wxPoint2DDouble middle = toPlot(point.x, point.y);
        context.DrawEllipse(middle.m_x - radius, middle.m_y - radius, 2 * radius, 2 * radius);
    }
    return bitmap;
}

wxBitmap plotBlackBodies(wxSize size, float fromKelvin, float toKelvin) {
    return paintBitmap(size, *wxBLACK, [&](wxDC& dc) {
        drawColumns(dc, size, [&](float share) {
            const Rgb light = toLinearSrgb(blackbodyColor(fromKelvin + (toKelvin - fromKelvin) * share));
            const float largest = std::max({light.red, light.green, light.blue});
            const auto encode = [largest](float channel) { return encodeSrgb(channel / largest); };
            return toScreenColour({encode(light.red), encode(light.green), encode(light.blue)});
        });
    });
}

wxBitmap plotGradient(wxSize size, const ColorGradient& gradient) {
    const int markHeight = Wx::scaleByDpi(GRID);
    const wxSize strip(size.x, size.y - markHeight);
    return paintBitmap(size, Wx::toWxColour(Wx::GuiSkin().background), [&](wxDC& dc) {
        drawColumns(dc, strip, [&](float share) { return toScreenColour(hsvToRgb(gradient.getColorAt(share))); });
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(getTextColour(TextRole::BODY));
        for (const ColorGradientPoint& point : gradient.getPoints()) {
            const int half = markHeight * 2 / 3;
            const int x =
                std::clamp(static_cast<int>(point.position * static_cast<float>(size.x - 1)), half, size.x - 1 - half);
            const wxPoint mark[] = {{x, strip.y + 1}, {x + half, size.y}, {x - half, size.y}};
            dc.DrawPolygon(static_cast<int>(std::size(mark)), mark);
        }
    });
}

wxBitmap plotHistogram(wxSize size, const Histogram& histogram, const wxColour& colour) {
    return paintBitmap(size, Wx::toWxColour(GROUND), [&](wxDC& dc) {
        const Array<std::uint64_t>& bins = histogram.getBins();
        if (histogram.getLargestBin() == 0) {
            return;
        }
        std::uint64_t full = bins.size() > 2 ? *std::max_element(bins.begin() + 1, bins.end() - 1) : 0;
        if (full == 0) {
            full = histogram.getLargestBin();
        }
        dc.SetPen(colour);
        for (int x = 0; x < size.x; ++x) {
            const std::size_t bin = static_cast<std::size_t>(x) * bins.size() / static_cast<std::size_t>(size.x);
            const double share = std::min(1.0, static_cast<double>(bins[bin]) / static_cast<double>(full));
            dc.DrawLine(x, size.y - static_cast<int>(std::ceil(share * size.y)), x, size.y);
        }
    });
}

} // namespace Ostrel::Gallery
