#include <OstrelLibWx/widgets/VolumeGridMappingDialog.h>

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/ComboBox.h>
#include <OstrelLibWx/widgets/CurvePanel.h>
#include <OstrelLibWx/widgets/CustomGradient.h>
#include <OstrelLibWx/widgets/GradientControl.h>
#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/Spinner.h>
#include <OstrelLibWx/widgets/Tooltip.h>

#include "painting/ToolkitTypes.h"
#include "widgets/DialogParts.h"
#include "widgets/Require.h"

#include <wx/sizer.h>
#include <wx/weakref.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace Ostrel::Wx {

namespace {

// Design pixels.
constexpr int BORDER = 8;
constexpr int GRID_GAP = 4;
constexpr int STRIP_WIDTH = 320;
constexpr int GRADIENT_HEIGHT = 40;
constexpr int PREVIEW_HEIGHT = 24;
constexpr int SPINNER_WIDTH = 90;

constexpr std::int64_t CURVE_CHANGE_DELAY_MS = 200;
constexpr int SCALE_DECIMALS = 3;
constexpr float ADAPTIVE_STEP = 0.0F;

constexpr const char* SCALE_TOOLTIP =
    "In order to properly map channel values to colors, the channel values should be in [0,1] range. The values "
    "outside of this range will have constant value (equal to the first or the last color in the gradient). One should "
    "therefore scale the channel values first so they fit in [0,1]. After they are mapped to colors they are scaled "
    "back.";
constexpr const char* AUTO_SCALE_TOOLTIP =
    "Automatically computes scaling of channel values, such that all channel values fit into [0,1] after scaling and "
    "can be properly mapped by the color gradient.";
constexpr const char* RESET_TOOLTIP =
    "Resets the channel mapping controls to the state in which they were when this dialog was opened.";

/// What a spinner shows of it: a NaN or what is below the limit is the limit, infinity the largest number.
float clampScale(float scale) {
    return scale > VOLUME_GRID_MINIMUM_SCALE ? std::min(scale, std::numeric_limits<float>::max())
                                             : VOLUME_GRID_MINIMUM_SCALE;
}

VolumeGridMapping clampScale(VolumeGridMapping mapping) {
    mapping.inputScale = clampScale(mapping.inputScale);
    return mapping;
}

/// Over the window and all that it is made of, which has the mouse in its place.
void addTooltip(wxWindow* window, const String& text) {
    const wxWindowList children = window->GetChildren(); // the tooltip will be one of them
    for (wxWindow* const child : children) {
        if (!child->IsTopLevel() && dynamic_cast<wxPopupWindow*>(child) == nullptr) {
            addTooltip(child, text);
        }
    }
    new Tooltip(window, text);
}

} // namespace

VolumeGridMappingDialogCallbacks::~VolumeGridMappingDialogCallbacks() = default;

struct VolumeGridMappingDialog::Impl {
    VolumeGridMapping mapping;
    const VolumeGridMapping onCancel;
    const VolumeGridMapping onReset;
    SharedPtr<VolumeGridMappingDialogCallbacks> callbacks;
    int result = wxCANCEL;
    bool isClosed = false;
    CurvePanel* panel = nullptr;
    GradientControl* gradient = nullptr;
    ComboBox* interpolations = nullptr;
    Spinner* scale = nullptr;
    CustomGradient* preview = nullptr;
};

/// The panel's: there is no picture behind it.
class VolumeGridMappingDialog::CurveCallbacksImpl : public ICurvePanelCallbacks {
public:
    /// The panel is the dialog's, and so does not outlive it.
    explicit CurveCallbacksImpl(VolumeGridMappingDialog* dialog)
        : _dialog(dialog) {}

    Histogram getHistogram(std::pair<float, float>, CurveChannel, int) override { return {}; }
    Optional<int> getHistogramRefreshInterval() override { return {}; }
    Optional<Rgb> getPixelColor(Pixel) override { return {}; }
    void onCurveChanged(CurveChannel, const Curve& curve) override {
        // Known already, where the panel had held back its report and another control was quicker.
        if (curve != _dialog->getCurrentMapping().curve) {
            _dialog->takeCurve(curve);
        }
    }
    std::int64_t getChangeDelay() override { return CURVE_CHANGE_DELAY_MS; }

private:
    VolumeGridMappingDialog* _dialog;
};

VolumeGridMappingDialog::VolumeGridMappingDialog(wxWindow* parent, const String& title,
                                                 const VolumeGridMapping& current, const VolumeGridMapping& initial,
                                                 SharedPtr<VolumeGridMappingDialogCallbacks> callbacks,
                                                 wxPoint position)
    : wxFrame(parent, wxID_ANY, toWx(title), wxDefaultPosition, wxDefaultSize,
              (wxDEFAULT_FRAME_STYLE & ~(wxMAXIMIZE_BOX | wxMINIMIZE_BOX)) | wxFRAME_NO_TASKBAR |
                  (parent != nullptr ? wxFRAME_FLOAT_ON_PARENT : 0))
    , _impl(new Impl{.mapping = clampScale(current),
                     .onCancel = clampScale(current),
                     .onReset = clampScale(initial),
                     .callbacks = require(std::move(callbacks), "widgets/VolumeGridMappingDialog", __LINE__)}) {
    auto* const rows = new wxBoxSizer(wxVERTICAL);
    addGradient(*rows);
    addCurve(*rows);
    addInput(*rows);
    addButtons(*rows);
    applySkinRecursive(this, GuiSkin());
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(rows, wxSizerFlags(1).Expand().Border(wxALL, scaleByDpi(BORDER)));
    SetSizerAndFit(outer);
    setCurrentMapping(current);

    Bind(wxEVT_CLOSE_WINDOW, &VolumeGridMappingDialog::onClose, this);
    moveFocusOnTab(this);
    setNimbraIcon(this);
    if (position == wxDefaultPosition) {
        placeOverParent(this);
    } else {
        smartPositionWindow(this, {position.x, position.y});
    }
    Show();
}

VolumeGridMappingDialog::~VolumeGridMappingDialog() {
    _impl->isClosed = true; // nothing more is reported
    DestroyChildren();      // while what their callbacks reach is there
}

void VolumeGridMappingDialog::addGradient(wxSizer& rows) {
    _impl->gradient = new GradientControl(this, wxSize(STRIP_WIDTH, GRADIENT_HEIGHT), 0.0F, 1.0F);
    _impl->gradient->setOnChangeCallback([this](const ColorGradient& gradient) {
        edit([&gradient](VolumeGridMapping& mapping) { mapping.gradient = gradient; });
    });
    _impl->preview = new CustomGradient(this, wxSize(STRIP_WIDTH, PREVIEW_HEIGHT), [this](float t) {
        return _impl->callbacks->mapValueToColor(t, _impl->mapping.inputScale);
    });
    rows.Add(_impl->gradient, wxSizerFlags().Expand());
    rows.AddSpacer(scaleByDpi(BORDER));
    rows.Add(_impl->preview, wxSizerFlags().Expand());
}

void VolumeGridMappingDialog::addCurve(wxSizer& rows) {
    const int side = scaleByDpi(DIALOG_PLOT_SIZE) + 2 * scaleByDpi(DIALOG_PLOT_MARGIN);
    const wxSize size(std::max(side, scaleByDpi(STRIP_WIDTH)), side);
    _impl->panel = new CurvePanel(this, GuiSkin(), size, ColorCurve(),
                                  SharedPtr<ICurvePanelCallbacks>(new CurveCallbacksImpl(this)));
    _impl->panel->SetMinSize(size);
    rows.AddSpacer(scaleByDpi(BORDER));
    rows.Add(_impl->panel, wxSizerFlags(1).Expand());
}

void VolumeGridMappingDialog::addInput(wxSizer& rows) {
    _impl->interpolations = new ComboBox(
        this, wxID_ANY, DIALOG_COMBO_BOX_WIDTH, [this](int interpolation) { selectInterpolation(interpolation); }, {},
        true);
    setChoices(*_impl->interpolations, INTERPOLATION_LABELS, 0);

    constexpr float NO_END = std::numeric_limits<float>::infinity();
    _impl->scale = new Spinner(this, wxID_ANY, SPINNER_WIDTH, VOLUME_GRID_MINIMUM_SCALE, NO_END,
                               _impl->mapping.inputScale, SCALE_DECIMALS, ADAPTIVE_STEP);
    _impl->scale->Bind(wxEVT_SPINCTRLDOUBLE, [this](wxSpinDoubleEvent& event) {
        setScale(_impl->scale->getValue());
        event.StopPropagation(); // the dialog's own
    });
    addTooltip(_impl->scale, SCALE_TOOLTIP);
    Button* const automatic = makeDialogButton(this, GuiSkin(), "Auto-scale", [this] { autoScale(); });
    automatic->setTooltip(AUTO_SCALE_TOOLTIP);

    const int gap = scaleByDpi(GRID_GAP);
    auto* const grid = new wxFlexGridSizer(2, 3, gap, gap);
    const auto label = [&](const char* text) {
        grid->Add(makeDialogLabel(this, text), wxSizerFlags().CenterVertical());
    };
    label("Interpolation:");
    grid->Add(_impl->interpolations, wxSizerFlags().CenterVertical());
    grid->AddSpacer(0);
    label("Input scaling:");
    grid->Add(_impl->scale, wxSizerFlags().CenterVertical());
    grid->Add(automatic);
    rows.AddSpacer(scaleByDpi(BORDER));
    rows.Add(grid);
}

void VolumeGridMappingDialog::addButtons(wxSizer& rows) {
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    Button* const resetButton = makeDialogButton(this, GuiSkin(), "Reset", [this] { reset(); });
    resetButton->setTooltip(RESET_TOOLTIP);
    row->Add(resetButton);
    row->AddStretchSpacer();
    row->Add(makeDialogButton(this, GuiSkin(), "OK", [this] { end(wxOK); }));
    row->AddSpacer(scaleByDpi(DIALOG_GRID_GAP));
    row->Add(makeDialogButton(this, GuiSkin(), "Cancel", [this] { end(wxCANCEL); }));
    rows.AddSpacer(2 * scaleByDpi(BORDER));
    rows.Add(row, wxSizerFlags().Expand());
}

void VolumeGridMappingDialog::setCurrentMapping(const VolumeGridMapping& mapping) {
    _impl->mapping = clampScale(mapping);
    _impl->scale->setValue(_impl->mapping.inputScale, false);
    _impl->gradient->setGradient(_impl->mapping.gradient);
    _impl->preview->refreshColors();
    _impl->panel->setCurve(_impl->mapping.curve, CurveChannel::MASTER, false);
    _impl->interpolations->selectIndex(static_cast<int>(_impl->mapping.curve.getInterpolation()), false);
}

const VolumeGridMapping& VolumeGridMappingDialog::getCurrentMapping() const {
    return _impl->mapping;
}

int VolumeGridMappingDialog::getResult() const {
    return _impl->result;
}

void VolumeGridMappingDialog::selectInterpolation(int interpolation) {
    Curve curve = _impl->panel->getCurrentCurves()[CurveChannel::MASTER];
    curve.setInterpolation(static_cast<CurveInterpolation>(interpolation));
    _impl->panel->setCurve(curve, CurveChannel::MASTER, false);
    takeCurve(curve);
}

void VolumeGridMappingDialog::setScale(float scale) {
    edit([scale](VolumeGridMapping& mapping) { mapping.inputScale = scale; });
}

void VolumeGridMappingDialog::autoScale() {
    const wxWeakRef<VolumeGridMappingDialog> self(this);
    const SharedPtr<VolumeGridMappingDialogCallbacks> callbacks = _impl->callbacks; // outlives the dialog meanwhile
    const float computed = callbacks->computeAutoScale();
    if (!self || !std::isfinite(computed)) {
        return;
    }
    const float scale = clampScale(computed);
    _impl->scale->setValue(scale, false);
    setScale(scale);
}

void VolumeGridMappingDialog::reset() {
    setCurrentMapping(_impl->onReset);
    reportMapping();
}

void VolumeGridMappingDialog::end(int result) {
    const wxWeakRef<VolumeGridMappingDialog> self(this);
    if (result == wxOK && !commitFocusedSpinner(this)) {
        return;
    }
    _impl->result = result;
    const Curve shown = _impl->panel->getCurrentCurves()[CurveChannel::MASTER];
    if (result == wxOK && shown != _impl->mapping.curve) {
        takeCurve(shown); // the panel still holds it back
    }
    if (self) {
        Close();
    }
}

void VolumeGridMappingDialog::onClose(wxCloseEvent& event) {
    if (_impl->isClosed) {
        return;
    }
    _impl->isClosed = true; // from here on nothing is reported but what follows
    const wxWeakRef<VolumeGridMappingDialog> self(this);
    const SharedPtr<VolumeGridMappingDialogCallbacks> callbacks = _impl->callbacks;
    if (_impl->result == wxCANCEL) {
        _impl->mapping = _impl->onCancel;
        reportMapping();
    }
    if (self) {
        callbacks->onDialogClosed(GetPosition());
    }
    if (self) {
        Hide(); // at once: it is destroyed when the program is idle
        Destroy();
    }
    event.Skip(static_cast<bool>(self)); // else the toolkit would go on with a window that is gone
}

void VolumeGridMappingDialog::takeCurve(const Curve& curve) {
    edit([&curve](VolumeGridMapping& mapping) { mapping.curve = curve; });
}

void VolumeGridMappingDialog::edit(const Function<void(VolumeGridMapping&)>& change) {
    if (!_impl->isClosed) {
        change(_impl->mapping);
        reportMapping();
    }
}

void VolumeGridMappingDialog::reportMapping() {
    _impl->preview->refreshColors();
    const SharedPtr<VolumeGridMappingDialogCallbacks> callbacks = _impl->callbacks; // outlives the dialog meanwhile
    const VolumeGridMapping mapping = _impl->mapping;                               // and so does this
    callbacks->onMappingChanged(mapping);
}

} // namespace Ostrel::Wx
