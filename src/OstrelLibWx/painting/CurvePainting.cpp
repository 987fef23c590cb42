#include "painting/CurvePainting.h"

#include "models/HistogramColumns.h"
#include "painting/PixelDrawing.h"
#include "painting/SmoothDrawing.h"

#include <wx/dcmemory.h>

#include <algorithm>
#include <array>

namespace Ostrel::Wx {

namespace {

constexpr RgbBytes PLOT_COLOUR{60, 60, 60};
constexpr RgbBytes GRID_COLOUR{120, 120, 120};

struct ChannelColours {
    RgbBytes histogram;
    RgbBytes curve;
};

/// By the channel's number.
constexpr std::array<ChannelColours, CURVE_CHANNEL_COUNT> CHANNEL_COLOURS{{
    {.histogram = {170, 170, 170}, .curve = {0, 0, 0}},
    {.histogram = {220, 100, 100}, .curve = {255, 0, 0}},
    {.histogram = {100, 220, 100}, .curve = {0, 255, 0}},
    {.histogram = {100, 100, 220}, .curve = {0, 0, 255}},
}};

// Lines of the grid at the values 0 and 1.
constexpr int GRID_LINE_OF_0 = 0;
constexpr int GRID_LINE_OF_1 = 8;

/// How far a curve is followed beyond the plot, in pixels: graphics libraries have no use for more.
constexpr double LINE_LIMIT = 1e5;

const ChannelColours& getColours(CurveChannel channel) {
    return CHANNEL_COLOURS[static_cast<std::size_t>(channel)];
}

wxPen makeDashedPen(int width) {
    return {*wxBLACK, width, wxPENSTYLE_SHORT_DASH};
}

void paintHistogram(wxDC& dc, const CurveEditing& editing) {
    const CurvePlot& plot = editing.getPlot();
    const Array<int> columns = computeHistogramColumns(editing.getHistogram(), editing.getHistogramType(), plot.size);
    const wxColour colour = toWxColour(getColours(editing.getSelectedChannel()).histogram);
    const Pixel origin{plot.margin, plot.margin + plot.size.y};
    const int count = static_cast<int>(columns.size());
    // Columns of equal height are one rectangle.
    for (int first = 0, last = 0; first < count; first = last) {
        const int height = columns[static_cast<std::size_t>(first)];
        while (last < count && columns[static_cast<std::size_t>(last)] == height) {
            ++last;
        }
        fillPixels(dc, {origin + Pixel{first, -height}, origin + Pixel{last, 0}}, colour);
    }
}

void paintGrid(wxDC& dc, const CurvePlot& plot, int lineWidth) {
    const wxColour colour = toWxColour(GRID_COLOUR);
    const Bucket area = plot.getArea();
    const auto drawLine = [&](Pixel from, Pixel to) { fillPixels(dc, Bucket{from, to}.intersect(area), colour); };
    for (int i = 0; i <= plot.getLastGridLine(); ++i) {
        const int width = i == GRID_LINE_OF_0 || i == GRID_LINE_OF_1 ? 3 * lineWidth : lineWidth;
        const int x = area.min.x + plot.getGridDistance(i, plot.size.x) - width / 2;
        const int y = area.max.y - plot.getGridDistance(i, plot.size.y) - width / 2;
        drawLine({x, area.min.y}, {x + width, area.max.y});
        drawLine({area.min.x, y}, {area.max.x, y + width});
    }
}

void paintLine(wxGraphicsContext& context, const CurveLine& line, CurveChannel channel, int width) {
    const ArrayView<const wxPoint2DDouble> vertices = line.getVertices();
    if (vertices.size() > 1) {
        context.SetPen(wxPen(toWxColour(getColours(channel).curve), width));
        context.StrokeLines(vertices.size(), vertices.data());
    }
}

void paintOtherCurves(wxGraphicsContext& context, const CurveEditing& editing, int lineWidth) {
    CurveLine line;
    for (int i = 0; i < CURVE_CHANNEL_COUNT; ++i) {
        const auto channel = static_cast<CurveChannel>(i);
        const Curve& curve = editing.getCurves()[channel];
        if (channel != editing.getSelectedChannel() && !curve.isIdentity()) {
            line.trace(curve, editing.getPlot());
            paintLine(context, line, channel, lineWidth);
        }
    }
}

/// A circle around the point, unless it would be cut off at the panel's edge.
void paintCircle(wxGraphicsContext& context, const CurvePlot& plot, const CurvePoint& point, int radius) {
    const Pixel middle = plot.toPixel(point);
    const Bucket inside{{radius, radius}, plot.getClientSize() - Pixel{radius, radius}};
    if (inside.contains(middle)) {
        context.DrawEllipse(middle.x - radius, middle.y - radius, 2 * radius, 2 * radius);
    }
}

Bucket getClientArea(const CurvePlot& plot) {
    return {{0, 0}, plot.getClientSize()};
}

} // namespace

void CurveLine::trace(const Curve& curve, const CurvePlot& plot) {
    const auto count = static_cast<std::size_t>(std::max(plot.size.x, 0));
    _positions.resize(count);
    _values.resize(count);
    _vertices.resize(count);
    if (count == 0) {
        return;
    }
    // From the panel's left edge straight to the second column of the plot, then column by column.
    const auto getOffset = [&plot](std::size_t i) { return i == 0 ? -plot.margin : static_cast<int>(i); };
    const double pixelsPerUnit = double{plot.zoom} * plot.size.x;
    for (std::size_t i = 0; i < count; ++i) {
        _positions[i] = static_cast<float>(getOffset(i) / pixelsPerUnit);
    }
    curve.evaluate(_positions, _values);
    const Pixel origin{plot.margin, plot.margin + plot.size.y};
    const double pixelsPerValue = double{plot.zoom} * plot.size.y;
    for (std::size_t i = 0; i < count; ++i) {
        const double height = std::clamp(double{_values[i]} * pixelsPerValue, 0.0, LINE_LIMIT);
        _vertices[i] = wxPoint2DDouble(origin.x + getOffset(i), origin.y - height);
    }
}

void paintCurveGround(wxDC& dc, const CurveEditing& editing, const GuiSkin& skin, const CurveMarkSizes& sizes) {
    const CurvePlot& plot = editing.getPlot();
    const Bucket area = plot.getArea();
    fillPixels(dc, getClientArea(plot), toWxColour(skin.background));
    if (area.isEmpty()) {
        return;
    }
    fillPixels(dc, area, toWxColour(PLOT_COLOUR));
    paintHistogram(dc, editing);
    paintGrid(dc, plot, sizes.line);

    const SmoothDrawing smooth(dc, area);
    if (!smooth) {
        return;
    }
    smooth->SetPen(makeDashedPen(sizes.line));
    // From corner to corner: at any zoom, that is where the diagonal crosses the plot.
    smooth->StrokeLine(area.max.x, area.min.y, area.min.x, area.max.y);
    paintOtherCurves(*smooth, editing, sizes.line);
}

bool paintSelectedCurve(wxDC& dc, const CurveEditing& editing, const CurveLine& line, const CurveMarkSizes& sizes) {
    const CurvePlot& plot = editing.getPlot();
    const SmoothDrawing smooth(dc, getClientArea(plot));
    if (!smooth) {
        return false;
    }
    if (const Bucket area = plot.getArea(); !area.isEmpty()) {
        smooth->PushState();
        smooth->Clip(area.min.x, area.min.y, area.width(), area.height());
        paintLine(*smooth, line, editing.getSelectedChannel(), 2 * sizes.line);
        smooth->PopState();
    }
    smooth->SetPen(makeDashedPen(sizes.line));
    smooth->SetBrush(*wxWHITE_BRUSH);
    for (const CurvePoint& point : editing.getCurve().getPoints()) {
        paintCircle(*smooth, plot, point, sizes.pointRadius);
    }
    if (const Optional<CurvePoint> mark = editing.getHoverPoint()) {
        smooth->SetPen(wxPen(*wxWHITE, sizes.line));
        smooth->SetBrush(*wxTRANSPARENT_BRUSH);
        paintCircle(*smooth, plot, *mark, sizes.pointRadius);
    }
    return true;
}

void CurvePanelPainting::paint(wxDC& dc, const CurveEditing& editing, const GuiSkin& skin) {
    const Pixel size = editing.getPlot().getClientSize();
    if (size.x <= 0 || size.y <= 0) {
        return;
    }
    const double scale = dc.GetContentScaleFactor();
    if (!_groundKept || _ground.GetScaleFactor() != scale) {
        makeGround(editing, skin, scale);
    }
    if (!_lineKept) {
        _line.trace(editing.getCurve(), editing.getPlot());
        _lineKept = true;
    }
    dc.DrawBitmap(_ground, 0, 0);
    if (!paintSelectedCurve(dc, editing, _line, _sizes)) {
        paintThroughBitmap(dc, editing);
    }
}

void CurvePanelPainting::paintThroughBitmap(wxDC& dc, const CurveEditing& editing) const {
    wxBitmap picture;
    picture.CreateWithDIPSize(_ground.GetLogicalSize(), _ground.GetScaleFactor());
    wxMemoryDC memory(picture);
    memory.DrawBitmap(_ground, 0, 0);
    if (paintSelectedCurve(memory, editing, _line, _sizes)) {
        memory.SelectObject(wxNullBitmap);
        dc.DrawBitmap(picture, 0, 0);
    }
}

void CurvePanelPainting::makeGround(const CurveEditing& editing, const GuiSkin& skin, double scale) {
    const Pixel size = editing.getPlot().getClientSize();
    const wxSize pixels(size.x, size.y);
    if (!_ground.IsOk() || _ground.GetScaleFactor() != scale || _ground.GetLogicalSize() != pixels) {
        _ground.CreateWithDIPSize(pixels, scale);
    }
    wxMemoryDC dc(_ground);
    paintCurveGround(dc, editing, skin, _sizes);
    _groundKept = true;
}

} // namespace Ostrel::Wx
