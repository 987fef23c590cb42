#include "painting/ColorPainting.h"

#include "models/ColorSliderLayout.h"
#include "painting/BitmapRows.h"
#include "painting/PixelDrawing.h"

#include <wx/dc.h>

#include <algorithm>
#include <cstring>

namespace Ostrel::Wx {

namespace {

constexpr int DEPTH = 24;
constexpr std::size_t PIXEL_SIZE = 3;
constexpr auto NATIVE_ORDER = Detail::getBitmapByteOrder<wxNativePixelFormat>();

/// @param write writes one row; takes its bytes and its number
template <class RowWriter>
void writeRows(wxBitmap& bitmap, const RowWriter& write) {
    wxNativePixelData data(bitmap);
    if (!data) {
        return;
    }
    for (int y = 0; y < data.GetHeight(); ++y) {
        write(Detail::getBitmapRow(data, y), y);
    }
}

} // namespace

void writeStrip(wxBitmap& bitmap, ArrayView<const Rgb> colors, int thickness, bool vertical) {
    const int length = static_cast<int>(colors.size());
    const wxSize size = vertical ? wxSize(thickness, length) : wxSize(length, thickness);
    if (!bitmap.IsOk() || bitmap.GetSize() != size) {
        bitmap.Create(size, DEPTH);
    }
    const unsigned char* first = nullptr;
    writeRows(bitmap, [&](unsigned char* row, int y) {
        if (vertical) {
            Detail::convertToBytes(colors.subspan(static_cast<std::size_t>(y), 1), NATIVE_ORDER, row);
            for (std::size_t x = 1; x < static_cast<std::size_t>(thickness); ++x) {
                std::memcpy(row + x * PIXEL_SIZE, row, PIXEL_SIZE);
            }
        } else if (first == nullptr) {
            Detail::convertToBytes(colors, NATIVE_ORDER, row);
            first = row;
        } else {
            std::memcpy(row, first, colors.size() * PIXEL_SIZE);
        }
    });
}

wxBitmap makeColorField(wxSize size) {
    size.IncTo(wxSize(1, 1));
    wxBitmap bitmap(size, DEPTH);
    const ColorField field({size.x, size.y}, NATIVE_ORDER);
    writeRows(bitmap, [&field](unsigned char* row, int y) { field.writeRow(y, row); });
    return bitmap;
}

void paintSliderMarker(wxDC& dc, const Bucket& marker) {
    fillPixels(dc, marker, *wxWHITE);
    drawPixelFrame(dc, marker, *wxBLACK);
}

Bucket getFieldMarkerArea(Pixel middle, int reach) {
    return {{middle.x - reach, middle.y - reach}, {middle.x + reach + 1, middle.y + reach + 1}};
}

void paintFieldMarker(wxDC& dc, const Bucket& area, int lineWidth, float hue) {
    constexpr float OPPOSITE = 180.0F;
    const RgbBytes bytes = toRgbBytes(hsvToRgb({hue + OPPOSITE, 1.0F, 1.0F}));
    for (int i = 0; i < lineWidth; ++i) {
        drawPixelFrame(dc, {{area.min.x + i, area.min.y + i}, {area.max.x - i, area.max.y - i}},
                       {bytes.red, bytes.green, bytes.blue});
    }
}

} // namespace Ostrel::Wx
