#include "Look.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

#include <wx/dcmemory.h>
#include <wx/image.h>

namespace Ostrel::Gallery {

namespace {

// As parts of the library's text height.
constexpr float TITLE_FACTOR = 2.0f;
constexpr float SECTION_FACTOR = 1.17f;

} // namespace

wxFont makeFont(const wxWindow& window, TextRole role) {
    const wxFont base = Wx::setupStaticTextFont(window.GetFont(), {});
    switch (role) {
    case TextRole::TITLE:
        return Wx::setDefaultFontSize(base, TITLE_FACTOR);
    case TextRole::SECTION:
        return Wx::setDefaultFontSize(base, SECTION_FACTOR).Bold();
    case TextRole::BODY:
    case TextRole::CAPTION:
        break;
    }
    return base;
}

wxColour getTextColour(TextRole role) {
    switch (role) {
    case TextRole::TITLE:
    case TextRole::SECTION:
        return {238, 238, 238};
    case TextRole::CAPTION:
        return {178, 178, 178};
    case TextRole::BODY:
        break;
    }
    return Wx::toWxColour(Wx::GuiSkin().text);
}

wxBitmap paintBitmap(wxSize size, const wxColour& ground, const Function<void(wxDC&)>& paint) {
    wxBitmap bitmap(size, 24);
    wxMemoryDC dc(bitmap);
    dc.SetBackground(ground);
    dc.Clear();
    paint(dc);
    dc.SelectObject(wxNullBitmap);
    return bitmap;
}

wxBitmap magnify(const wxBitmap& bitmap, int factor) {
    return bitmap.ConvertToImage().Scale(bitmap.GetWidth() * factor, bitmap.GetHeight() * factor,
                                         wxIMAGE_QUALITY_NEAREST);
}

wxBitmap makeSampleBitmap(wxSize size) {
    return paintBitmap(size, wxColour(112, 170, 222), [size](wxDC& dc) {
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(wxColour(255, 214, 92));
        dc.DrawCircle(size.x * 7 / 10, size.y * 3 / 10, size.y / 6);
        dc.SetBrush(wxColour(74, 110, 84));
        const wxPoint hill[] = {{0, size.y * 7 / 10},
                                {size.x * 4 / 10, size.y * 4 / 10},
                                {size.x, size.y * 8 / 10},
                                {size.x, size.y},
                                {0, size.y}};
        dc.DrawPolygon(static_cast<int>(std::size(hill)), hill);
        dc.SetBrush(wxColour(52, 80, 62));
        dc.DrawRectangle(0, size.y * 8 / 10, size.x, size.y);
    });
}

wxBitmap makeDisabledSampleBitmap(wxSize size) {
    const RgbBytes ground = Wx::GuiSkin().background;
    wxImage image = makeSampleBitmap(size).ConvertToImage().ConvertToGreyscale();
    unsigned char* const data = image.GetData();
    for (int i = 0; i < size.x * size.y * 3; ++i) {
        data[i] = static_cast<unsigned char>((data[i] + 2 * ground.red) / 3);
    }
    return image;
}

} // namespace Ostrel::Gallery
