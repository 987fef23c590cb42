#include <OstrelLibWx/widgets/PixelProbe.h>

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/StaticBitmap.h>
#include <OstrelLibWx/widgets/StaticText.h>

#include "models/ProbeTexts.h"

#include <wx/image.h>
#include <wx/sizer.h>
#include <wx/weakref.h>

#include <string>
#include <utility>

namespace Ostrel::Wx {

namespace {

// Design pixels.
constexpr Pixel SWATCH_SIZE{45, 27};
constexpr int SWATCH_BORDER = 3;
constexpr int POSITION_BORDER = 1;
constexpr int BORDER = 7;

/// From the cursor to the window, in screen pixels: the size of a pointer does not follow the DPI.
constexpr Pixel OFFSET_FROM_CURSOR_PX{20, 20};

constexpr RgbBytes WARNING_COLOUR{144, 20, 20};

/// A `ScopedWindowFreezer` whose window may go meanwhile.
class WeakFreezer {
public:
    explicit WeakFreezer(wxWindow* window)
        : _window(window) {
        window->Freeze();
    }
    ~WeakFreezer() {
        if (_window) {
            _window->Thaw();
        }
    }
    WeakFreezer(const WeakFreezer&) = delete;
    WeakFreezer& operator=(const WeakFreezer&) = delete;

    [[nodiscard]] bool hasWindow() const { return _window != nullptr; }

private:
    wxWeakRef<wxWindow> _window;
};

} // namespace

struct PixelProbe::Impl {
    SharedPtr<const Probe> probe; ///< shared with a call of it, which may destroy the window; null if there is none
    StaticText* position{};
    StaticText* original{};
    StaticText* tonemapped{};
    StaticText* bytes{};
    StaticText* warning{};
    StaticBitmap* swatch{};
    wxImage swatchImage{};
    RgbBytes swatchColor{};
};

PixelProbe::PixelProbe(wxWindow* parent, Probe probe, const String& warningText)
    : wxPopupWindow(parent, wxBORDER_NONE)
    , _impl(new Impl{.probe = probe ? std::make_shared<const Probe>(std::move(probe)) : nullptr}) {
    SetDoubleBuffered(true); // its texts change with each move of the mouse
    const ProbedPixel nothing;
    const auto makeText = [this](const String& text) {
        return new StaticText(this, wxID_ANY, text, 0, {}, wxDefaultSize);
    };
    _impl->position = makeText(String::fromUtf8(formatProbedPosition(nothing.position)));
    _impl->original = makeText(String::fromUtf8(formatProbedOriginal(nothing.original, nothing.alpha)));
    _impl->tonemapped = makeText(String::fromUtf8(formatProbedTonemapped(nothing.tonemapped, nothing.alpha)));
    _impl->bytes = makeText(String::fromUtf8(formatProbedBytes(nothing.tonemapped, nothing.alpha)));
    const Pixel size = scaleByDpi(SWATCH_SIZE);
    _impl->swatchImage = wxImage(size.x, size.y); // black, as the colour is at first
    _impl->swatch = new StaticBitmap(this, wxID_ANY, wxBitmap(_impl->swatchImage));
    _impl->warning = makeText(warningText);

    auto* const column = new wxBoxSizer(wxVERTICAL);
    column->Add(_impl->swatch, wxSizerFlags().Border(wxTOP, scaleByDpi(SWATCH_BORDER)));
    column->Add(_impl->position, wxSizerFlags().Border(wxTOP, scaleByDpi(POSITION_BORDER)));
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    const wxSizerFlags inRow = wxSizerFlags().Border(wxALL, scaleByDpi(BORDER));
    row->Add(column, inRow);
    row->Add(_impl->original, inRow);
    row->Add(_impl->tonemapped, inRow);
    row->Add(_impl->bytes, inRow);
    auto* const all = new wxBoxSizer(wxVERTICAL);
    all->Add(row);
    all->Add(_impl->warning, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, scaleByDpi(BORDER)));
    SetSizer(all);

    applySkinRecursive(this, GuiSkin());
    _impl->warning->SetForegroundColour(toWxColour(WARNING_COLOUR));
    _impl->warning->Hide();
    Fit();
    Layout();
}

PixelProbe::~PixelProbe() = default;

void PixelProbe::updatePosition(Pixel cursor) {
    const Pixel corner = cursor + OFFSET_FROM_CURSOR_PX;
    const WeakFreezer freezer(this);
    Move(corner.x, corner.y, wxSIZE_ALLOW_MINUS_ONE);
    if (_impl->probe == nullptr) {
        Refresh();
        return;
    }
    const SharedPtr<const Probe> probe = _impl->probe;
    const ProbedPixel pixel = (*probe)(cursor);
    if (freezer.hasWindow()) {
        showPixel(pixel);
        Refresh();
    }
}

void PixelProbe::showPixel(const ProbedPixel& pixel) {
    // Laid out anew only where a text needs another room: a window that is laid out at each move of the mouse flickers.
    bool needsLayout = false;
    const auto show = [&needsLayout](StaticText& text, const std::string& label) {
        const wxString shown = wxString::FromUTF8(label);
        if (text.GetLabel() != shown) {
            const wxSize before = text.GetBestSize();
            text.SetLabel(shown);
            needsLayout = needsLayout || text.GetBestSize() != before;
        }
    };
    show(*_impl->position, formatProbedPosition(pixel.position));
    show(*_impl->original, formatProbedOriginal(pixel.original, pixel.alpha));
    show(*_impl->tonemapped, formatProbedTonemapped(pixel.tonemapped, pixel.alpha));
    show(*_impl->bytes, formatProbedBytes(pixel.tonemapped, pixel.alpha));

    const RgbBytes color = toRgbBytes(pixel.tonemapped);
    if (color != std::exchange(_impl->swatchColor, color)) {
        _impl->swatchImage.SetRGB(wxRect(_impl->swatchImage.GetSize()), color.red, color.green, color.blue);
        _impl->swatch->setBitmap(wxBitmap(_impl->swatchImage));
    }
    // Again and again: a skin, this window's or that of a parent, gives every text its own colour.
    _impl->warning->SetForegroundColour(toWxColour(WARNING_COLOUR));
    if (_impl->warning->Show(isProbedInvalid(pixel.original, pixel.tonemapped)) || needsLayout) {
        Fit();
        Layout();
    }
}

} // namespace Ostrel::Wx
