#include "EventLog.h"
#include "Page.h"

#include <OstrelLib/Bitmap.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/VolumeGridMappingDialog.h>

#include <wx/dcclient.h>
#include <wx/weakref.h>

#include <cmath>

namespace Ostrel::Gallery {

namespace {

/// Of a slice through a plume, in thousands of kelvin.
constexpr float HOTTEST = 1.8f;

BitmapImpl<float> makeSlice(Pixel size) {
    BitmapImpl<float> slice(size.x, size.y);
    for (int y = 0; y < size.y; ++y) {
        const float height = 1.0f - static_cast<float>(y) / static_cast<float>(size.y);
        for (int x = 0; x < size.x; ++x) {
            const float across = static_cast<float>(x) / static_cast<float>(size.x) - 0.5f;
            const float sway = 0.06f * std::sin(11.0f * height) + 0.03f * std::sin(29.0f * height + 9.0f * across);
            const float width = 0.07f + 0.2f * height;
            const float distance = (across - sway) / width;
            slice(x, y) = HOTTEST * std::exp(-distance * distance) * (1.0f - 0.75f * height);
        }
    }
    return slice;
}

VolumeGridMapping makeMapping() {
    VolumeGridMapping mapping;
    mapping.gradient = ColorGradient({{{240.0f, 0.6f, 0.08f}, 0.0f},
                                      {{280.0f, 0.85f, 0.4f}, 0.25f},
                                      {{14.0f, 0.95f, 0.9f}, 0.6f},
                                      {{48.0f, 0.5f, 1.0f}, 1.0f}});
    mapping.curve = Curve({{0.0f, 0.0f}, {0.35f, 0.22f}, {1.0f, 1.0f}});
    mapping.inputScale = 0.8f;
    return mapping;
}

Rgb mapColor(const VolumeGridMapping& mapping, float scaled) {
    return hsvToRgb(mapping.gradient.getColorAt(mapping.curve(scaled)));
}

class PageCallbacks : public Wx::VolumeGridMappingDialogCallbacks {
public:
    struct Host {
        Function<void(const VolumeGridMapping&)> onChanged;
        Function<void(wxPoint)> onClosed;
        const VolumeGridMapping& mapping;
    };

    explicit PageCallbacks(Host host)
        : _host(std::move(host)) {}

    void onMappingChanged(const VolumeGridMapping& mapping) override { _host.onChanged(mapping); }
    float computeAutoScale() override { return 1.0f / HOTTEST; }
    void onDialogClosed(wxPoint position) override { _host.onClosed(position); }
    Rgb mapValueToColor(float t, float) override { return mapColor(_host.mapping, t); }

private:
    Host _host;
};

class VolumeGridMappingDialogPage : public Page {
public:
    explicit VolumeGridMappingDialogPage(const PageContext& context)
        : Page(context, "Volume grid mapping",
               "VolumeGridMappingDialog edits how the values of a volume's channel become colours, "
               "here temperatures in a plume.")
        , _slice(makeSlice(Wx::scaleByDpi(SLICE_SIZE))) {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        addToRow(*row, makeButton("Edit", [this] { open(); }), GRID);
        addToRow(*row, makeButton("From the start", [this] { startAgain(); }), GRID);
        addSection("Open", "The slice follows each change; Cancel takes them back.")->Add(row);
        _view = new wxPanel(this, wxID_ANY, wxDefaultPosition, wxSize(_slice.getWidth(), _slice.getHeight()),
                            wxBORDER_NONE);
        _view->SetMinSize(_view->GetSize());
        _view->Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
            wxPaintDC dc(_view);
            dc.DrawBitmap(_shown, 0, 0);
        });
        content().AddSpacer(Wx::scaleByDpi(2 * GRID));
        content().Add(_view);
        setMapping(makeMapping());
    }

    ~VolumeGridMappingDialogPage() override { delete _dialog.get(); }

    void onPageShown(bool shown) override {
        if (!shown && _dialog) {
            _dialog->Close();
        }
    }

    void arrangeForPicture() override {
        open();
        _dialog->Move(
            _view->ClientToScreen(wxPoint(_slice.getWidth() + Wx::scaleByDpi(3 * GRID), -Wx::scaleByDpi(60))));
    }

private:
    static constexpr Pixel SLICE_SIZE{400, 410}; // design pixels

    void open() {
        if (_dialog) {
            _dialog->Raise();
            return;
        }
        const auto onChanged = [this](const VolumeGridMapping& mapping) {
            log().report("VolumeGridMappingDialog",
                         wxString::Format("onMappingChanged(%zu colors, %zu points, scale %g)",
                                          mapping.gradient.getPoints().size(), mapping.curve.getPoints().size(),
                                          static_cast<double>(mapping.inputScale)));
            setMapping(mapping);
        };
        const auto onClosed = [this](wxPoint position) {
            log().report("VolumeGridMappingDialog",
                         wxString::Format("onDialogClosed(%d, %d), %s", position.x, position.y,
                                          _dialog->getResult() == wxOK ? "OK" : "Cancel"));
            _position = position;
        };
        const auto callbacks = std::make_shared<PageCallbacks>(PageCallbacks::Host{onChanged, onClosed, _mapping});
        _dialog = new Wx::VolumeGridMappingDialog(wxGetTopLevelParent(this), "Temperature", _mapping, _mapping,
                                                  callbacks, _position);
    }

    void startAgain() {
        setMapping(makeMapping());
        if (_dialog) {
            _dialog->setCurrentMapping(_mapping);
        }
    }

    void setMapping(const VolumeGridMapping& mapping) {
        _mapping = mapping;
        wxImage image(_slice.getWidth(), _slice.getHeight(), false);
        unsigned char* pixel = image.GetData();
        for (std::size_t i = 0; i < _slice.size(); ++i, pixel += 3) {
            const RgbBytes color = toRgbBytes(mapColor(mapping, _slice.data()[i] * mapping.inputScale));
            pixel[0] = color.red;
            pixel[1] = color.green;
            pixel[2] = color.blue;
        }
        _shown = wxBitmap(image);
        _view->Refresh();
    }

    BitmapImpl<float> _slice;
    VolumeGridMapping _mapping;
    wxPanel* _view{};
    wxBitmap _shown;
    wxWeakRef<Wx::VolumeGridMappingDialog> _dialog;
    wxPoint _position = wxDefaultPosition;
};

const PageRegistration registration = registerPage<VolumeGridMappingDialogPage>(720, "Volume grid mapping");

} // namespace

} // namespace Ostrel::Gallery
