#include <OstrelLibWx/widgets/CurveDialog.h>

#include <OstrelLibWx/CurvesFile.h>
#include <OstrelLibWx/FileDialogs.h>
#include <OstrelLibWx/MessageDialog.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/ComboBox.h>
#include <OstrelLibWx/widgets/DropdownButton.h>

#include "painting/ToolkitTypes.h"
#include "widgets/DialogParts.h"
#include "widgets/Require.h"

#include <wx/sizer.h>
#include <wx/weakref.h>

#include <algorithm>
#include <array>

namespace Ostrel::Wx {

namespace {

// Design pixels.
constexpr int OUTER_SPACE = 25;
constexpr int PANEL_BORDER = 5;

constexpr int EQUALIZING_POINT_COUNT = 16;
constexpr std::pair EQUALIZED_RANGE{0.0F, 2.0F};

/// By channel number. What the curves call Master is the picture's brightness to who edits it.
constexpr std::array<const char*, CURVE_CHANNEL_COUNT> CHANNEL_LABELS{"Brightness", "Red", "Green", "Blue"};
/// By number of `HistogramType`.
constexpr std::array HISTOGRAM_LABELS{"Linear", "Logarithmic", "Cumulative"};

constexpr const char* PATH = "widgets/CurveDialog"; ///< in stop exceptions

} // namespace

ICurveDialogCallbacks::~ICurveDialogCallbacks() = default;

struct CurveDialog::Impl {
    GuiSkin skin;
    SharedPtr<ICurveDialogCallbacks> callbacks;
    SharedPtr<ICurvePanelCallbacks> panelCallbacks{};
    CurvePanel* panel = nullptr;
    ComboBox* channels = nullptr;
    ComboBox* interpolations = nullptr;
    ComboBox* histograms = nullptr;
    DropdownButton* reset = nullptr;
    Button* equalize = nullptr; ///< null where it is not wanted, as the next
    Button* pick = nullptr;
    wxSize aroundPanel{}; ///< what the dialog is larger than the panel
    Path file{};          ///< proposed by the file dialogs
};

CurveDialog::CurveDialog(wxWindow* parent, const GuiSkin& skin, const String& title, const ColorCurve& curves,
                         SharedPtr<ICurveDialogCallbacks> callbacks)
    : wxFrame(parent, wxID_ANY, toWx(title), wxDefaultPosition, wxDefaultSize,
              (wxDEFAULT_FRAME_STYLE & ~wxMAXIMIZE_BOX) | wxFRAME_NO_TASKBAR)
    , _impl(new Impl{.skin = skin, .callbacks = require(std::move(callbacks), PATH, __LINE__)}) {
    _impl->panelCallbacks = require(_impl->callbacks->getPanelCallbacks(), PATH, __LINE__);
    SetBackgroundColour(toWxColour(skin.background));
    SetForegroundColour(toWxColour(skin.text));

    auto* const rows = new wxBoxSizer(wxVERTICAL);
    rows->AddSpacer(scaleByDpi(OUTER_SPACE));
    addFileRow(*rows, _impl->callbacks->getFileRow());
    addPanel(*rows, curves);
    addGrid(*rows);
    applySkinRecursive(this, skin);
    for (ComboBox* const box : {_impl->channels, _impl->interpolations, _impl->histograms}) {
        box->applySkin(skin); // the list as well, which keeps colours of its own
    }
    SetSizerAndFit(rows);
    Layout();
    // Of the client area: how wide the frame's border is may not be known before it is on the screen.
    _impl->aroundPanel = GetClientSize() - _impl->panel->GetSize();

    Bind(wxEVT_CLOSE_WINDOW, &CurveDialog::onClose, this);
    Bind(wxEVT_SIZE, &CurveDialog::onSize, this);
    moveFocusOnTab(this);
    setNimbraIcon(this);
    placeOverParent(this);
    Show();
}

CurveDialog::~CurveDialog() {
    DestroyChildren(); // while what their callbacks reach is there
}

void CurveDialog::addFileRow(wxSizer& rows, CurveDialogFileRow row) {
    _impl->file = std::move(row.initialFile);
    auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
    const auto add = [&](const String& label, Function<void()> onClick) {
        if (!buttons->IsEmpty()) {
            buttons->AddSpacer(scaleByDpi(DIALOG_GRID_GAP));
        }
        buttons->Add(makeDialogButton(this, _impl->skin, label, std::move(onClick)));
    };
    add("Load", [this] { load(); });
    add("Save", [this] { save(); });
    for (CurveDialogButton& button : row.buttons) {
        add(button.label, std::move(button.onClick));
    }
    rows.Add(buttons, wxSizerFlags().CenterHorizontal());
}

void CurveDialog::addPanel(wxSizer& rows, const ColorCurve& curves) {
    const int side = scaleByDpi(DIALOG_PLOT_SIZE) + 2 * scaleByDpi(DIALOG_PLOT_MARGIN);
    const wxSize size(side, side);
    _impl->panel = new CurvePanel(this, _impl->skin, size, curves, _impl->panelCallbacks);
    _impl->panel->SetMinSize(size);
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    row->AddSpacer(scaleByDpi(OUTER_SPACE));
    row->Add(_impl->panel, wxSizerFlags(1).Expand().Border(wxALL, scaleByDpi(PANEL_BORDER)));
    row->AddSpacer(scaleByDpi(OUTER_SPACE));
    rows.Add(row, wxSizerFlags(1).Expand());
}

void CurveDialog::addGrid(wxSizer& rows) {
    const auto onWindowEvent = [this](wxWindow* window, ComboBox::WindowEvent event) {
        const SharedPtr<ICurveDialogCallbacks> callbacks = _impl->callbacks; // outlives the dialog during the call
        if (event == ComboBox::WindowEvent::SHOWN) {
            callbacks->onDropdownShown(window);
        } else {
            callbacks->onDropdownHidden(window);
        }
    };
    const auto makeBox = [&](ArrayView<const char* const> labels, int selected, const Function<void(int)>& onSelect) {
        auto* const box = new ComboBox(this, wxID_ANY, DIALOG_COMBO_BOX_WIDTH, onSelect, onWindowEvent, true);
        setChoices(*box, labels, selected);
        return box;
    };
    _impl->channels = makeBox(CHANNEL_LABELS, 0, [this](int channel) { selectChannel(channel); });
    _impl->interpolations =
        makeBox(INTERPOLATION_LABELS, 0, [this](int interpolation) { selectInterpolation(interpolation); });
    showInterpolation();
    _impl->histograms = makeBox(HISTOGRAM_LABELS, 0,
                                [this](int type) { _impl->panel->setHistogramType(static_cast<HistogramType>(type)); });
    _impl->reset =
        new DropdownButton(this, _impl->skin, wxID_ANY, "Reset",
                           {{wxID_ANY, "Reset", [this] { reset(); }}, {wxID_ANY, "Reset All", [this] { resetAll(); }}});
    if (_impl->callbacks->isPickWanted()) {
        _impl->pick = makeDialogButton(this, _impl->skin, "Pick", {}, Button::TOGGLE);
    }
    if (_impl->callbacks->isEqualizeWanted()) {
        _impl->equalize = makeDialogButton(this, _impl->skin, "Equalize", [this] { equalize(); });
    }

    const int gap = scaleByDpi(DIALOG_GRID_GAP);
    auto* const grid = new wxFlexGridSizer(3, 3, gap, gap);
    const auto addRow = [&](const char* label, ComboBox* box, Button* button) {
        grid->Add(makeDialogLabel(this, label), wxSizerFlags().CenterVertical());
        grid->Add(box, wxSizerFlags().CenterVertical());
        if (button != nullptr) {
            grid->Add(button, wxSizerFlags().Expand());
        } else {
            grid->AddSpacer(0); // the cell stays empty
        }
    };
    addRow("Channel:", _impl->channels, _impl->reset);
    addRow("Interpolation:", _impl->interpolations, _impl->pick);
    addRow("Histogram:", _impl->histograms, _impl->equalize);
    rows.Add(grid, wxSizerFlags().CenterHorizontal());
}

void CurveDialog::setCurves(ColorCurve curves) {
    const wxWeakRef<CurveDialog> self(this);
    _impl->panel->setCurves(std::move(curves));
    if (self) {
        showInterpolation();
    }
}

void CurveDialog::updateHistogram() {
    _impl->panel->updateHistogram();
}

void CurveDialog::enableHistogramControls(bool enable) {
    _impl->histograms->Enable(enable);
    if (_impl->equalize != nullptr) {
        _impl->equalize->Enable(enable);
    }
    Refresh();
}

bool CurveDialog::isPicking() const {
    return _impl->pick != nullptr && _impl->pick->isToggled();
}

AutoPtr<ICurvePanelController> CurveDialog::getController() const {
    return _impl->panel->getController();
}

CurvePanel* CurveDialog::getPanel() const {
    return _impl->panel;
}

void CurveDialog::selectChannel(int channel) {
    _impl->panel->setSelectedCurve(static_cast<CurveChannel>(channel));
    showInterpolation();
    _impl->panel->updateHistogram(); // the panel leaves that to who selects
}

void CurveDialog::selectInterpolation(int interpolation) {
    const CurveChannel channel = _impl->panel->getSelectedCurveChannel();
    Curve curve = _impl->panel->getCurrentCurves()[channel];
    curve.setInterpolation(static_cast<CurveInterpolation>(interpolation));
    _impl->panel->setCurve(std::move(curve), channel, true);
}

void CurveDialog::reset() {
    const wxWeakRef<CurveDialog> self(this);
    _impl->panel->setCurve(Curve(), _impl->panel->getSelectedCurveChannel(), true);
    if (self) {
        showInterpolation();
    }
}

void CurveDialog::resetAll() {
    setCurves(ColorCurve());
}

void CurveDialog::equalize() {
    const wxWeakRef<CurveDialog> self(this);
    const SharedPtr<ICurvePanelCallbacks> callbacks = _impl->panelCallbacks; // outlives the dialog during the call
    const int binCount = std::max(_impl->panel->getPlotSize().x, 0);
    const Histogram histogram = callbacks->getHistogram(EQUALIZED_RANGE, CurveChannel::MASTER, binCount);
    if (self) {
        // Master, whichever channel is selected: the histogram is of the brightness.
        _impl->panel->setCurve(histogram.computeEqualizingCurve(EQUALIZING_POINT_COUNT), CurveChannel::MASTER, true);
    }
    if (self) {
        showInterpolation();
        _impl->histograms->selectId(static_cast<int>(HistogramType::CUMULATIVE), false);
        _impl->panel->setHistogramType(HistogramType::CUMULATIVE);
    }
}

void CurveDialog::load() {
    const wxWeakRef<CurveDialog> self(this);
    const Path path = filenameOpenDlg(getWindowNativeHandle(this), "Select file", CURVES_FILE_WILDCARD, _impl->file);
    if (!self || path.isEmpty()) {
        return;
    }
    _impl->file = path;
    const Expected<ColorCurve, String> loaded = loadCurves(path);
    if (!loaded) {
        showError("Cannot load curves from a file."); // whatever the reason
        return;
    }
    // A file has points alone.
    ColorCurve curves = _impl->panel->getCurrentCurves();
    for (std::size_t i = 0; i < curves.curves.size(); ++i) {
        curves.curves[i].setPoints(loaded->curves[i].getPoints());
    }
    setCurves(std::move(curves));
}

void CurveDialog::save() {
    const wxWeakRef<CurveDialog> self(this);
    const Path path = filenameSaveDlg(getWindowNativeHandle(this), "Save as", CURVES_FILE_WILDCARD,
                                      FileSelect::CONFIRM_OVERWRITE, _impl->file);
    if (!self || path.isEmpty()) {
        return;
    }
    _impl->file = path;
    if (!saveCurves(_impl->panel->getCurrentCurves(), path)) {
        showError("Cannot save curves into a file.");
    }
}

void CurveDialog::showError(const String& message) {
    showOkDialog(getWindowNativeHandle(this), ERROR_TITLE, message, MessageDialogIcon::ERROR_ICON);
}

void CurveDialog::showInterpolation() {
    const Curve curve = _impl->panel->getCurrentCurves()[_impl->panel->getSelectedCurveChannel()];
    _impl->interpolations->selectIndex(static_cast<int>(curve.getInterpolation()), false);
}

void CurveDialog::onSize(wxSizeEvent& event) {
    event.Skip();
    wxSize size = GetClientSize() - _impl->aroundPanel;
    size.IncTo(wxSize(0, 0));
    if (size == _impl->panel->GetSize()) {
        return;
    }
    const wxWeakRef<CurveDialog> self(this);
    _impl->panel->resize(size);
    if (self) {
        Layout();
    }
    event.Skip(static_cast<bool>(self)); // else the toolkit would go on with a window that is gone
}

void CurveDialog::onClose(wxCloseEvent&) {
    // An open list is closed first: its host hears of it, and may destroy the dialog.
    const wxWeakRef<CurveDialog> self(this);
    for (ComboBox* const box : {_impl->channels, _impl->interpolations, _impl->histograms}) {
        box->close();
        if (!self) {
            return;
        }
    }
    Show(false);
    Destroy();
}

} // namespace Ostrel::Wx
