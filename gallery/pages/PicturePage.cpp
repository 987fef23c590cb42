#include "EventLog.h"
#include "Page.h"
#include "Picture.h"
#include "Plots.h"

#include <OstrelLibWx/BitmapUtils.h>
#include <OstrelLibWx/FileDialogs.h>
#include <OstrelLibWx/MessageDialog.h>
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
class FittedPicture : public wxPanel {
public:
    explicit FittedPicture(wxWindow* parent)
        : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE) {
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
            event.Skip();
            fitPicture();
        });
        Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
            wxAutoBufferedPaintDC dc(this);
            dc.SetBackground(GetBackgroundColour());
            dc.Clear();
            if (_fitted.IsOk()) {
                dc.DrawBitmap(_fitted, 0, 0);
            }
        });
    }

    void showPicture(const wxBitmap& bitmap) {
        _image = bitmap.ConvertToImage();
        _fitted = wxBitmap();
        fitPicture();
    }

private:
    void fitPicture() {
        if (!_image.IsOk()) {
            return;
        }
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

constexpr const char* OPENED = "Pictures|*.png;*.jpg;*.jpeg;*.tif;*.tiff;*.tga;*.bmp;*.gif|All files|*";
constexpr const char* SAVED = "PNG|*.png|TIFF|*.tif|JPEG|*.jpg|BMP|*.bmp";

/// A picture that has gone through the library's float image, and how often its values occur.
class PicturePage : public Page {
public:
    explicit PicturePage(const PageContext& context)
        : Page(context, "Picture",
               "A picture, turned into the library's float image (toRgbBitmap) and back (toWxBitmap), beside the "
               "histograms of its channels, from 0 to 1; their outermost bins may be cut off. --picture FILE opens "
               "another picture.") {
        auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
        addToRow(*buttons, makeButton("Open picture...", [this] { open(); }));
        _save = makeButton("Save picture...", [this] { save(); });
        addToRow(*buttons, _save, GRID);
        _name = makeText(TextRole::SECTION, {});
        buttons->AddSpacer(Wx::scaleByDpi(2 * GRID));
        buttons->Add(_name, wxSizerFlags().CenterVertical());
        content().AddSpacer(Wx::scaleByDpi(3 * GRID));
        content().Add(buttons);
        content().AddSpacer(Wx::scaleByDpi(GRID + GRID / 2));

        _view = new FittedPicture(this);
        _view->SetMinSize(Wx::scaleByDpi(VIEW));
        _row = new wxBoxSizer(wxHORIZONTAL);
        _row->Add(_view, wxSizerFlags(1).Expand());
        _row->AddSpacer(Wx::scaleByDpi(CONTENT_WIDTH - VIEW.x - HISTOGRAM.x));
        _row->Add(makeHistograms());
        content().Add(_row, wxSizerFlags(1).Expand());
        if (context.picture.error.empty()) {
            showPicture(context.picture);
        } else {
            content().Hide(_row);
            _name->SetLabelText("No picture");
            _error = makeText(TextRole::BODY, context.picture.error, CONTENT_WIDTH);
            content().Add(_error);
            afterSkin([this] { _save->Enable(false); });
        }
    }

private:
    static inline const wxSize VIEW{528, 400};
    static inline const wxSize HISTOGRAM{256, 80};
    static constexpr int BINS = 256;

    wxSizer* makeHistograms() {
        auto* const column = new wxBoxSizer(wxVERTICAL);
        for (const ChannelLook& look : CHANNELS) {
            auto* const plot = new Wx::StaticBitmap(this, wxID_ANY, wxBitmap(Wx::scaleByDpi(HISTOGRAM)));
            _histograms.push_back(plot);
            if (!column->IsEmpty()) {
                column->AddSpacer(Wx::scaleByDpi(GRID));
            }
            column->Add(captioned(plot, look.name));
        }
        return column;
    }

    void showPicture(Picture picture) {
        _picture = std::move(picture);
        _view->showPicture(Wx::toWxBitmap(putOnChequers(_picture), false));
        for (std::size_t i = 0; i < std::size(CHANNELS); ++i) {
            const Histogram histogram = Histogram::compute(_picture.image, CHANNELS[i].channel, 0.0f, 1.0f, BINS);
            _histograms[i]->setBitmap(
                plotHistogram(Wx::scaleByDpi(HISTOGRAM), histogram, Wx::toWxColour(CHANNELS[i].colour)));
        }
        _name->SetLabelText(wxString::Format(L"%s, %d \u00d7 %d%s", _picture.name, _picture.image.getWidth(),
                                             _picture.image.getHeight(), _picture.hasAlpha ? L", with alpha" : L""));
    }

    void open() {
        const Path path = Wx::filenameOpenDlg(owner(), "Open picture", OPENED, _last);
        if (path.isEmpty()) {
            return;
        }
        _last = path;
        Picture picture = loadPicture(path);
        log().report("Open picture", picture.error.empty() ? picture.name : picture.error);
        if (!picture.error.empty()) {
            complain(picture.error);
            return;
        }
        if (_error != nullptr) {
            content().Show(_row);
            _error->Destroy();
            _error = nullptr;
        }
        _save->Enable(true);
        showPicture(std::move(picture));
        Layout();
    }

    void save() {
        const Path proposed = _last.parentDirectory() / "picture.png";
        const Path path =
            Wx::filenameSaveDlg(owner(), "Save picture", SAVED, Wx::FileSelect::CONFIRM_OVERWRITE, proposed);
        if (path.isEmpty()) {
            return;
        }
        const wxString error = savePicture(_picture, path);
        log().report("Save picture", error.empty() ? wxString(path.nativeStr().toWide()) : error);
        if (!error.empty()) {
            complain(error);
        }
    }

    void complain(const wxString& message) {
        Wx::showOkDialog(owner(), "OstrelLibWx Gallery", message.ToStdWstring(), Wx::MessageDialogIcon::ERROR_ICON);
    }

    WindowHandle owner() { return Wx::getWindowNativeHandle(wxGetTopLevelParent(this)); }

    Picture _picture;
    Path _last; ///< the file opened before
    Wx::Button* _save{};
    wxStaticText* _name{};
    wxBoxSizer* _row{};
    FittedPicture* _view{};
    Array<Wx::StaticBitmap*> _histograms; ///< one for each of `CHANNELS`
    wxStaticText* _error{};               ///< why there is no picture; null if there is one
};

const PageRegistration registration = registerPage<PicturePage>(900, "Picture");

} // namespace

} // namespace Ostrel::Gallery
