#include "Page.h"
#include "Picture.h"
#include "Plots.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/StaticBitmap.h>

#include <wx/dcbuffer.h>

#include <algorithm>

namespace Ostrel::Gallery {

namespace {

/// Magnified at least so much, a picture shows its pixels as squares.
constexpr int SQUARES_FROM = 4;

/// The largest size of the same proportions that fits into `room`.
wxSize fit(wxSize picture, wxSize room) {
    const double scale = std::min(static_cast<double>(room.x) / picture.x, static_cast<double>(room.y) / picture.y);
    return {std::clamp(static_cast<int>(picture.x * scale), 1, std::max(1, room.x)),
            std::clamp(static_cast<int>(picture.y * scale), 1, std::max(1, room.y))};
}

/// A bitmap as large as the panel lets it be, at the top left.
class PictureView : public wxPanel {
public:
    PictureView(wxWindow* parent, const wxBitmap& bitmap)
        : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE)
        , _image(bitmap.ConvertToImage()) {
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        Bind(wxEVT_SIZE, &PictureView::onSize, this);
        Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
            wxAutoBufferedPaintDC dc(this);
            dc.SetBackground(GetBackgroundColour());
            dc.Clear();
            if (_fitted.IsOk()) {
                dc.DrawBitmap(_fitted, 0, 0);
            }
        });
    }

private:
    void onSize(wxSizeEvent& event) {
        event.Skip();
        const wxSize size = fit(_image.GetSize(), GetClientSize());
        if (!_fitted.IsOk() || _fitted.GetSize() != size) {
            const bool squares = size.x >= SQUARES_FROM * _image.GetWidth();
            _fitted = _image.Scale(size.x, size.y, squares ? wxIMAGE_QUALITY_NEAREST : wxIMAGE_QUALITY_HIGH);
        }
        Refresh();
    }

    wxImage _image;
    wxBitmap _fitted;
};

struct ChannelLook {
    CurveChannel channel;
    const char* name;
    RgbBytes colour;
};

constexpr ChannelLook CHANNELS[] = {
    {CurveChannel::MASTER, "Master: the mean of the three", {200, 200, 200}},
    {CurveChannel::RED, "Red", {226, 84, 76}},
    {CurveChannel::GREEN, "Green", {96, 190, 92}},
    {CurveChannel::BLUE, "Blue", {84, 142, 240}},
};

/// A picture that has gone through the library's float image, and how often its values occur.
class PicturePage : public Page {
public:
    explicit PicturePage(const PageContext& context)
        : Page(context, "Picture",
               "A picture, turned into the library's float image (toRgbBitmap) and back (toWxBitmap), beside the "
               "histograms of its channels, from 0 to 1; their outermost bins may be cut off. --picture FILE opens "
               "another picture.") {
        const Picture& picture = context.picture;
        if (!picture.error.empty()) {
            addSection(picture.name.empty() ? wxString("No picture") : picture.name)
                ->Add(makeText(TextRole::BODY, picture.error, CONTENT_WIDTH));
            return;
        }
        const wxSize VIEW{528, 400};
        auto* const view = new PictureView(this, showOnChequers(picture));
        view->SetMinSize(Wx::scaleByDpi(VIEW));
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        row->Add(view, wxSizerFlags(1).Expand());
        row->AddSpacer(Wx::scaleByDpi(CONTENT_WIDTH - VIEW.x - HISTOGRAM.x));
        row->Add(makeHistograms(picture));
        content().AddSpacer(Wx::scaleByDpi(3 * GRID));
        content().Add(makeText(TextRole::SECTION,
                               wxString::Format(L"%s, %d \u00d7 %d%s", picture.name, picture.image.getWidth(),
                                                picture.image.getHeight(), picture.hasAlpha ? L", with alpha" : L"")));
        content().AddSpacer(Wx::scaleByDpi(GRID + GRID / 2));
        content().Add(row, wxSizerFlags(1).Expand());
    }

private:
    static inline const wxSize HISTOGRAM{256, 80};

    wxSizer* makeHistograms(const Picture& picture) {
        constexpr int BINS = 256;
        auto* const column = new wxBoxSizer(wxVERTICAL);
        for (const ChannelLook& look : CHANNELS) {
            const Histogram histogram = Histogram::compute(picture.image, look.channel, 0.0f, 1.0f, BINS);
            const wxBitmap plot = plotHistogram(Wx::scaleByDpi(HISTOGRAM), histogram, Wx::toWxColour(look.colour));
            if (!column->IsEmpty()) {
                column->AddSpacer(Wx::scaleByDpi(GRID));
            }
            column->Add(captioned(new Wx::StaticBitmap(this, wxID_ANY, plot), look.name));
        }
        return column;
    }
};

const PageRegistration registration = registerPage<PicturePage>(900, "Picture");

} // namespace

} // namespace Ostrel::Gallery
