#include <OstrelLibWx/widgets/ColorPicker.h>

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/Button.h>
#include <OstrelLibWx/widgets/CheckBox.h>
#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/StaticText.h>
#include <OstrelLibWx/widgets/Tooltip.h>

#include "assets/EyeDropper.h"
#include "assets/EyeDropperInverse.h"
#include "models/ColorState.h"
#include "painting/EmbeddedBitmaps.h"
#include "painting/ToolkitTypes.h"
#include "platform/ChoiceNative.h"
#include "widgets/ColorDisplay.h"
#include "widgets/ColorSlider.h"
#include "widgets/ColorSliderWithSpinner.h"
#include "widgets/EyeDropperButton.h"
#include "widgets/HexColorEdit.h"
#include "widgets/HwbSlice.h"

#include <wx/app.h>
#include <wx/choice.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>
#include <wx/weakref.h>

#include <algorithm>
#include <array>
#include <type_traits>
#include <utility>

namespace Ostrel::Wx {

namespace {

const GuiSkin SKIN{
    .text = {218, 218, 193}, .grey = {110, 110, 110}, .background = {68, 68, 68}, .darkGrey = {37, 37, 37}};

// Design pixels. The field is as high as the rows beside it.
constexpr int FIELD_SIZE = 215;
constexpr int FIELD_SIZE_WITH_ALPHA = 234;
constexpr int WHITENESS_WIDTH = 23;
constexpr int WHITENESS_HEIGHT = 194;
constexpr int BUTTON_WIDTH = 120;
constexpr int RESET_WIDTH = 40;
constexpr int BUTTON_HEIGHT = 24;
constexpr int GAP = 5;
constexpr int ROW_GAP = 1;
constexpr int GROUP_GAP = 4;
constexpr int SWATCH_GAP = 10;
constexpr int PICKER_GAP = 3;
/// How far the word over the whiteness strip may overhang it on either side.
constexpr int WHITENESS_OVERHANG = 20;
constexpr int HEX_TEXT_WIDTH = 60;
/// What the swatches need at least; they take what the rows leave.
constexpr int SWATCH_SIZE = 16;
/// What the averaging choice needs at least; it takes what the eye droppers and "Reset" leave.
constexpr int CHOICE_WIDTH = 60;

struct Row {
    ColorStrip strip;
    const char* label;
};

constexpr Row ROWS[] = {
    {ColorStrip::RED, "Red:"},     {ColorStrip::GREEN, "Green:"},
    {ColorStrip::BLUE, "Blue:"},   {ColorStrip::ALPHA, "Alpha:"},
    {ColorStrip::HUE, "Hue:"},     {ColorStrip::SATURATION, "Sat:"},
    {ColorStrip::VALUE, "Value:"}, {ColorStrip::TEMPERATURE, "Temp. [K]:"},
};
constexpr std::size_t ROW_COUNT = std::size(ROWS);

/// The strips whose numbers the space changes.
constexpr ColorStrip MAPPED_STRIPS[] = {ColorStrip::RED, ColorStrip::GREEN, ColorStrip::BLUE};

struct RangeOption {
    ColorPickerRange range;
    const char* label;
};

constexpr RangeOption RANGE_OPTIONS[] = {
    {ColorPickerRange::UP_TO_255, "0-255"},
    {ColorPickerRange::UP_TO_1, "0-1"},
    {ColorPickerRange::PERCENT, "0-100%"},
};

constexpr float FIRST_KELVIN = 6500.0F;

constexpr const char* BLACKNESS_LABEL = "B\nl\na\nc\nk\nn\ne\ns\ns";
constexpr const char* PICK_TOOLTIP =
    "Pick Color\n\nPicks pixel color from anywhere on the screen.\n\nTo use this picker, just drag the button to "
    "anywhere on the screen. While in this pick mode, the sampled color will be displayed in the button.";
constexpr const char* PICK_INVERSE_TOOLTIP =
    "Pick Inverse\n\nPicks inverse of a pixel color from anywhere on the screen.\n\nThe inverse color is useful for "
    "example to select a color tint for the image.\n\nTo use this picker, just drag the button to anywhere on the "
    "screen. While in this pick mode, the sampled color will be displayed in the button.";
constexpr const char* RANGE_TOOLTIP =
    "Sets the range of the color spinner values to the specified value.\n\nModifies just the value display/input. Does "
    "not in any way influence internal color representation or renderer behavior.";
constexpr const char* SPACE_TOOLTIP =
    "Selects whether the color values will be displayed/entered in sRGB (checked) or linear (unchecked) color "
    "space.\n\nThis option modifies only the actual numbers displayed in the spinners, it does not in any way "
    "influence "
    "internal color representation or renderer behavior.\n\nWith linear color space, the color picker dialog behaves "
    "the same way as the default 3ds Max color picker.\n\nWith sRGB color space you can transfer numerical color "
    "values "
    "directly from 2D image editing software.";

/// Keeps both for the life of the process.
class DefaultGlobalStateAccessor : public ColorPicker::IGlobalStateAccessor {
public:
    void setSpace(ColorPickerSpace space) override { _space = space; }
    ColorPickerSpace getSpace() override { return _space; }
    void setRange(ColorPickerRange range) override { _range = range; }
    ColorPickerRange getRange() override { return _range; }

private:
    ColorPickerSpace _space = ColorPickerSpace::SRGB;
    ColorPickerRange _range = ColorPickerRange::UP_TO_255;
};

AutoPtr<ColorPicker::IGlobalStateAccessor>& installedAccessor() {
    static AutoPtr<ColorPicker::IGlobalStateAccessor> accessor;
    return accessor;
}

} // namespace

ColorPicker::IGlobalStateAccessor::~IGlobalStateAccessor() = default;

ColorPicker::IGlobalStateAccessor& getAccessor() {
    static DefaultGlobalStateAccessor fallback;
    ColorPicker::IGlobalStateAccessor* const installed = installedAccessor().get();
    return installed == nullptr ? fallback : *installed;
}

void ColorPicker::setGlobalStateAccessor(AutoPtr<IGlobalStateAccessor>&& accessor) {
    installedAccessor() = std::move(accessor);
}

struct ColorPicker::Impl {
    Impl(ColorPicker& owner, bool withAlpha, const Rgb& color)
        : dialog(owner)
        , state(withAlpha) {
        state.setReference(color);
    }

    ColorPicker& dialog;
    ColorState state;
    int closeResult = wxCANCEL;
    /// The dialog is not open any more: a number that was being typed is set when its field goes, and comes too late.
    bool closed = false;
    bool closing = false; ///< the owner is being told of it
    bool inModalLoop = false;
    bool destroyed = false; ///< to be, when the modal loop is over
    std::array<wxRadioButton*, std::size(RANGE_OPTIONS)> ranges{};
    CheckBox* srgb = nullptr;
    std::array<ColorSliderWithSpinner*, ROW_COUNT> rows{}; ///< as in `ROWS`; no alpha: null
    HwbSlice* field = nullptr;
    ColorSlider* whiteness = nullptr;
    HexColorEdit* hex = nullptr;
    ColorDisplay* reference = nullptr;
    ColorDisplay* current = nullptr;
    std::array<EyeDropperButton*, 2> eyeDroppers{};
    wxChoice* averaging = nullptr;
    Button* reset = nullptr;
    Button* confirm = nullptr;

    // Building

    void createField() {
        const int size = state.hasAlpha() ? FIELD_SIZE_WITH_ALPHA : FIELD_SIZE;
        field = new HwbSlice(&dialog, wxSize(size, size));
        field->onChanged = [this](float hue, float blackness) {
            edit([=](ColorState& edited) { edited.editField({hue, blackness}); });
        };
        whiteness = new ColorSlider(makeStripColors(ColorStrip::WHITE_SHARE), &dialog,
                                    wxSize(WHITENESS_WIDTH, WHITENESS_HEIGHT), true);
        whiteness->onPositionChanged = [this](float position) {
            edit([=](ColorState& edited) { edited.editStrip(ColorStrip::WHITE_SHARE, position, position); });
        };
    }

    void createRows() {
        for (std::size_t i = 0; i < ROW_COUNT; ++i) {
            const ColorStrip strip = ROWS[i].strip;
            if (strip == ColorStrip::ALPHA && !state.hasAlpha()) {
                continue;
            }
            rows[i] = new ColorSliderWithSpinner(makeStripColors(strip), &dialog, state.getPosition(strip));
            rows[i]->onValueChanged = [this, strip](float position, float number) {
                edit([=](ColorState& edited) { edited.editStrip(strip, position, number); });
            };
        }
        ColorSliderWithSpinner& temperature = *findRow(ColorStrip::TEMPERATURE);
        temperature.setChannelRange(TEMPERATURE_RANGE_KELVIN.min, TEMPERATURE_RANGE_KELVIN.max, 0, 1.0F);
        temperature.setPosition(computeSliderPosition(FIRST_KELVIN, TEMPERATURE_RANGE_KELVIN, {}));
    }

    void createEyeDroppers() {
        using namespace Detail::Assets;
        const auto create = [this](const wxBitmap& icon, const char* tooltip, void (ColorState::*change)(const Rgb&)) {
            auto* const eyeDropper = new EyeDropperButton(&dialog, icon);
            eyeDropper->setTooltip(tooltip);
            applySkinRecursive(eyeDropper, SKIN);
            eyeDropper->onPicked = [this, change](const Rgb& sample) {
                edit([&](ColorState& edited) { (edited.*change)(sample); });
            };
            return eyeDropper;
        };
        eyeDroppers = {create(getAsset(EYE_DROPPER, EYE_DROPPER_SIZE), PICK_TOOLTIP, &ColorState::edit),
                       create(getAsset(EYE_DROPPER_INVERSE, EYE_DROPPER_INVERSE_SIZE), PICK_INVERSE_TOOLTIP,
                              &ColorState::editNeutralizing)};
        averaging = new wxChoice(&dialog, wxID_ANY, wxDefaultPosition, wxSize(1, 1)); // not measured before it is whole
        for (const EyeDropperAveraging& row : EYE_DROPPER_AVERAGING_TABLE) {
            averaging->Append(row.label);
        }
        averaging->SetSelection(0);
        averaging->SetFont(setupStaticTextFont({}, {}));
        applySkinRecursive(averaging, SKIN);
        Detail::dressChoice(*averaging, SKIN);
        averaging->SetMinSize(scaleByDpi(wxSize(CHOICE_WIDTH, -1)));
        averaging->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
            setAveraging(static_cast<std::size_t>(std::max(event.GetSelection(), 0)));
        });
    }

    void createOptions() {
        for (std::size_t i = 0; i < ranges.size(); ++i) {
            const RangeOption& option = RANGE_OPTIONS[i];
            ranges[i] = new wxRadioButton(&dialog, wxID_ANY, option.label, wxDefaultPosition, wxSize(1, 1),
                                          i == 0 ? wxRB_GROUP : 0);
            ranges[i]->SetFont(setupStaticTextFont({}, {}));
            Detail::dressRadioButton(*ranges[i], SKIN);
            ranges[i]->SetMinSize(wxDefaultSize);
            new Tooltip(ranges[i], RANGE_TOOLTIP);
            ranges[i]->Bind(wxEVT_RADIOBUTTON, [this, &option](wxCommandEvent&) { dialog.setRange(option.range); });
        }
        srgb = new CheckBox(&dialog, wxID_ANY, "sRGB", wxDefaultPosition, wxDefaultSize, false, [this](bool checked) {
            dialog.setSpace(checked ? ColorPickerSpace::SRGB : ColorPickerSpace::LINEAR);
        });
        srgb->applySkin(SKIN);
        srgb->setTooltip(SPACE_TOOLTIP);
    }

    void createHexField() {
        hex = new HexColorEdit(&dialog, HEX_TEXT_WIDTH);
        hex->onChanged = [this](const Rgb& color) { edit([&](ColorState& edited) { edited.edit(color); }); };
        hex->onFocusGained = [this] { tell(dialog.onHexFocusGained); };
        hex->onFocusLost = [this] { tell(dialog.onHexFocusLost); };
    }

    void createSwatches() {
        reference = new ColorDisplay(&dialog, wxSize(SWATCH_SIZE, SWATCH_SIZE));
        current = new ColorDisplay(&dialog, wxSize(SWATCH_SIZE, SWATCH_SIZE));
    }

    StaticText* makeLabel(const char* text, unsigned style = 0) {
        return new StaticText(&dialog, wxID_ANY, text, style, {}, wxDefaultSize);
    }

    Button* makeButton(const char* label, int width, Function<void()> onClick) {
        auto* const button = new Button(&dialog, SKIN, wxID_ANY, label, wxNullBitmap, wxNullBitmap, std::move(onClick),
                                        Button::PUSH, true, RawaBorderState::ENABLED);
        button->SetMinSize(scaleByDpi(wxSize(width, BUTTON_HEIGHT)));
        return button;
    }

    wxSizer* makeSwatchRow() {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        row->Add(reference, 1, wxEXPAND);
        row->Add(current, 1, wxEXPAND);
        return row;
    }

    wxSizer* makeChannelGrid() {
        auto* const grid = new wxFlexGridSizer(2, scaleByDpi(wxSize(GAP, ROW_GAP)));
        const auto addRow = [this, grid](const char* label, wxWindow* control, int flags) {
            grid->Add(makeLabel(label), 1, wxALIGN_RIGHT | wxALIGN_CENTER_VERTICAL);
            grid->Add(control, 0, flags);
        };
        const auto addGap = [grid](int left, int right) {
            grid->AddSpacer(scaleByDpi(left));
            grid->AddSpacer(scaleByDpi(right));
        };
        for (std::size_t i = 0; i < ROW_COUNT; ++i) {
            if (ROWS[i].strip == ColorStrip::HUE || ROWS[i].strip == ColorStrip::TEMPERATURE) {
                addGap(GROUP_GAP, GROUP_GAP);
            }
            if (rows[i] != nullptr) {
                addRow(ROWS[i].label, rows[i], wxEXPAND);
            }
        }
        addRow("Hex color:", hex, wxEXPAND);
        addGap(0, SWATCH_GAP);
        grid->AddSpacer(0);
        grid->Add(makeSwatchRow(), 1, wxEXPAND);
        grid->AddGrowableCol(1);
        grid->AddGrowableRow(grid->GetItemCount() / 2 - 1);
        return grid;
    }

    wxSizer* makePickerRow() {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        for (EyeDropperButton* const eyeDropper : eyeDroppers) {
            row->Add(eyeDropper, 0, wxEXPAND | wxRIGHT, scaleByDpi(PICKER_GAP));
        }
        row->Add(averaging, 1, wxEXPAND | wxRIGHT, scaleByDpi(PICKER_GAP));
        reset = makeButton("Reset", RESET_WIDTH, [this] { resetColor(); });
        row->Add(reset, 0, wxEXPAND);
        return row;
    }

    wxSizer* makeButtonRow(DialogType type) {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        confirm = type == DialogType::CONFIRM ? makeButton("OK", BUTTON_WIDTH, [this] { accept(true); })
                                              : makeButton("Add color", BUTTON_WIDTH, [this] { accept(false); });
        row->Add(confirm, 0, wxRIGHT, scaleByDpi(GAP));
        row->Add(makeButton("Cancel", BUTTON_WIDTH, [this] { close(wxCANCEL); }));
        return row;
    }

    wxSizer* makeOptionRow() {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        row->Add(srgb, 0, wxALIGN_CENTER_VERTICAL);
        for (wxRadioButton* const range : ranges) {
            row->Add(range, 0, wxALIGN_CENTER_VERTICAL | wxLEFT, scaleByDpi(GAP));
        }
        return row;
    }

    void layOut(DialogType type) {
        auto* const grid = new wxFlexGridSizer(4, scaleByDpi(wxSize(GAP, GAP)));
        grid->AddSpacer(0);
        grid->Add(makeLabel("Hue"), 0, wxALIGN_CENTER);
        grid->Add(makeLabel("Whiteness"), 0, wxALIGN_CENTER | wxLEFT | wxRIGHT, scaleByDpi(-WHITENESS_OVERHANG));
        grid->Add(makeOptionRow(), 0, wxALIGN_RIGHT | wxALIGN_CENTER_VERTICAL);
        grid->Add(makeLabel(BLACKNESS_LABEL, wxALIGN_CENTER_HORIZONTAL), 0, wxALIGN_CENTER_VERTICAL);
        grid->Add(field, 0, wxEXPAND);
        grid->Add(whiteness, 1, wxEXPAND);
        grid->Add(makeChannelGrid(), 1, wxEXPAND);
        grid->AddSpacer(0);
        grid->Add(makePickerRow(), 1, wxEXPAND);
        grid->AddSpacer(0);
        grid->Add(makeButtonRow(type), 0, wxALIGN_RIGHT);
        auto* const border = new wxBoxSizer(wxHORIZONTAL);
        border->Add(grid, 0, wxALL, scaleByDpi(GAP));
        // Not by `SetSizerAndFit`, after which GTK's toolkit lays all of it out once more when the dialog is shown.
        dialog.SetSizer(border);
        dialog.SetClientSize(border->ComputeFittingClientSize(&dialog));
    }

    // The views

    ColorSliderWithSpinner* findRow(ColorStrip strip) {
        for (std::size_t i = 0; i < ROW_COUNT; ++i) {
            if (ROWS[i].strip == strip) {
                return rows[i];
            }
        }
        return nullptr;
    }

    StripColorFunction makeStripColors(ColorStrip strip) {
        return [this, strip](float position) { return state.getStripColor(strip, position); };
    }

    void moveRow(ColorStrip strip) {
        if (ColorSliderWithSpinner* const row = findRow(strip)) {
            row->setPosition(state.getPosition(strip));
        }
    }

    /// Shows the state everywhere. What a view shows already is not painted again.
    void refreshViews(const ColorState& before) {
        for (const ColorStrip strip : {ColorStrip::RED, ColorStrip::GREEN, ColorStrip::BLUE, ColorStrip::HUE,
                                       ColorStrip::SATURATION, ColorStrip::VALUE}) {
            moveRow(strip);
        }
        field->setPosition(state.getFieldPosition());
        whiteness->setPosition(state.getPosition(ColorStrip::WHITE_SHARE));
        hex->setColor(state.getColor());
        current->setColor(state.getColor());
        moveRow(ColorStrip::ALPHA);
        for (std::size_t i = 0; i < ROW_COUNT; ++i) {
            if (rows[i] != nullptr && !state.hasSameStrip(ROWS[i].strip, before)) {
                rows[i]->refreshStrip();
            }
        }
        if (!state.hasSameStrip(ColorStrip::WHITE_SHARE, before)) {
            whiteness->refreshStrip();
        }
    }

    void setAveraging(std::size_t row) {
        for (EyeDropperButton* const eyeDropper : eyeDroppers) {
            eyeDropper->averagingRadius = EYE_DROPPER_AVERAGING_TABLE[row].radius;
        }
    }

    // What the user does

    [[nodiscard]] bool isGoing() const {
        return destroyed || dialog.IsBeingDeleted() || wxTheApp->IsScheduledForDestruction(&dialog);
    }

    /// Calls a callback of the owner, if there is one. False if the dialog was destroyed by it, or is about to be; once
    /// it is, nothing is called.
    template <class... Arguments>
    bool tell(const Function<void(Arguments...)>& slot, std::type_identity_t<Arguments>... arguments) {
        if (isGoing()) {
            return false;
        }
        const wxWeakRef<ColorPicker> self(&dialog);
        if (slot) {
            const Function<void(Arguments...)> callback = slot; // may be replaced meanwhile
            callback(arguments...);
        }
        return self && !isGoing();
    }

    bool tellColor(const Function<void(const Rgb&)>& slot, Rgb color) { return tell(slot, color); }

    template <class Change>
    bool edit(const Change& change) {
        if (isGoing()) {
            return false;
        }
        const ColorState before = state;
        if (!closed) {
            change(state);
        }
        refreshViews(before);
        return closed || tellColor(dialog.onColorChanged, state.getColor());
    }

    /// Gives a button that was pressed the focus, by which a number that is being typed is set. False if that has
    /// destroyed the dialog.
    bool focusPressed(Button& button) {
        const wxWeakRef<ColorPicker> self(&dialog);
        button.SetFocus();
        return self && !isGoing();
    }

    void resetColor() {
        if (focusPressed(*reset) && tell(dialog.onReset) &&
            edit([](ColorState& edited) { edited.edit(edited.getReference()); }) &&
            edit([](ColorState& edited) { edited.editAlpha(edited.getReference().alpha); })) {
            tell(dialog.onAfterReset);
        }
    }

    void accept(bool andClose) {
        if (focusPressed(*confirm) && tellColor(dialog.onColorAccepted, state.getColor()) && andClose) {
            close(wxOK);
        }
    }

    void close(int result) {
        closeResult = result;
        dialog.Close();
    }

    void endPicking() {
        for (EyeDropperButton* const eyeDropper : eyeDroppers) {
            eyeDropper->endPicking();
        }
    }

    void onShow(wxShowEvent& event) {
        if (event.IsShown()) {
            closeResult = wxCANCEL;
            closed = false;
        }
        event.Skip();
    }

    void onClosing(wxCloseEvent& event) {
        if (std::exchange(closing, true)) {
            return; // what is told of it closes the dialog once more
        }
        endPicking();
        if (closeResult == wxCANCEL &&
            !(tellColor(dialog.onColorChanged, state.getReference()) && tell(dialog.onCancel))) {
            return;
        }
        if (tell(dialog.onClose)) {
            getAccessor().setSpace(state.getSpace());
            getAccessor().setRange(state.getRange());
            closed = true;
            closing = false;
            event.Skip();
        }
    }

    void onKey(wxKeyEvent& event) {
        const int key = event.GetKeyCode();
        const bool isEnter = key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
        const bool isTyping = dynamic_cast<wxTextCtrl*>(wxWindow::FindFocus()) != nullptr;
        if (key == WXK_ESCAPE && !event.HasAnyModifiers()) {
            close(wxCANCEL);
        } else if (isEnter && (event.GetModifiers() == wxMOD_CONTROL || (!event.HasAnyModifiers() && !isTyping))) {
            confirm->doClick(wxPoint(0, 0));
        } else {
            event.Skip();
        }
    }
};

ColorPicker::ColorPicker(wxWindow* parent, const String& title, wxPoint position, const Rgb& initialColor,
                         DialogType type, ColorFormat format)
    : wxDialog(parent, wxID_ANY, toWx(title), position, wxDefaultSize, wxCAPTION | wxSYSTEM_MENU | wxCLOSE_BOX)
    , _impl(new Impl(*this, format == ColorFormat::WITH_ALPHA, initialColor)) {
    SetForegroundColour(toWxColour(SKIN.text)); // which the labels inherit
    SetBackgroundColour(toWxColour(SKIN.background));
    setNimbraIcon(this);
    _impl->createField();
    _impl->createRows();
    _impl->createEyeDroppers();
    _impl->createOptions();
    _impl->createHexField();
    _impl->createSwatches();
    _impl->layOut(type);
    setSpace(getAccessor().getSpace());
    setRange(getAccessor().getRange());
    setReferenceColor(initialColor);
    if (position != wxDefaultPosition) {
        Move(position); // GTK overlooks the position that a dialog is made with
    }
    Bind(wxEVT_SHOW, [this](wxShowEvent& event) { _impl->onShow(event); });
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) { _impl->onClosing(event); });
    Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) { _impl->onKey(event); });
}

ColorPicker::~ColorPicker() {
    wxPendingDelete.DeleteObject(this); // it may stand on the stack, and go before its turn comes
    DestroyChildren();                  // while what their callbacks reach is there
}

int ColorPicker::ShowModal() {
    const wxWeakRef<wxWindow> parent(GetParent());
    if (parent) {
        parent->Bind(wxEVT_DESTROY, &ColorPicker::onParentDestroyed, this);
    }
    _impl->inModalLoop = true;
    const int result = wxDialog::ShowModal();
    _impl->inModalLoop = false;
    if (parent) {
        parent->Unbind(wxEVT_DESTROY, &ColorPicker::onParentDestroyed, this);
    }
    if (_impl->destroyed) {
        wxDialog::Destroy();
    }
    return result;
}

bool ColorPicker::Destroy() {
    if (!_impl->inModalLoop) {
        return wxDialog::Destroy();
    }
    // The loop goes on with the dialog when it ends.
    _impl->endPicking();
    _impl->destroyed = true;
    if (IsModal()) {
        EndModal(wxID_CANCEL);
    }
    return true;
}

void ColorPicker::onParentDestroyed(wxWindowDestroyEvent& event) {
    event.Skip();
    if (event.GetEventObject() != GetParent()) {
        return; // one of its other children
    }
    // Neither the toolkit nor the system may take the dialog away with its parent.
    setOwnerFromNativeHandle(getWindowNativeHandle(this), {});
    GetParent()->RemoveChild(this);
    Destroy();
}

void ColorPicker::setColor(const Rgb& color) {
    const ColorState before = _impl->state;
    _impl->state.setColor(color);
    _impl->refreshViews(before);
}

const Rgb& ColorPicker::getColor() const {
    return _impl->state.getColor();
}

void ColorPicker::setReferenceColor(const Rgb& color) {
    const ColorState before = _impl->state;
    _impl->state.setReference(color);
    _impl->reference->setColor(_impl->state.getReference());
    _impl->refreshViews(before);
}

void ColorPicker::setRange(Range range) {
    _impl->state.setRange(range);
    const ChannelNumbers numbers = getChannelNumbers(range);
    for (std::size_t i = 0; i < _impl->ranges.size(); ++i) {
        if (RANGE_OPTIONS[i].range == range) {
            _impl->ranges[i]->SetValue(true);
        }
    }
    for (std::size_t i = 0; i < ROW_COUNT; ++i) {
        if (_impl->rows[i] != nullptr && ROWS[i].strip != ColorStrip::TEMPERATURE) {
            _impl->rows[i]->setChannelRange(numbers.range.min, numbers.range.max, numbers.digits, numbers.increment);
        }
    }
}

ColorPicker::Range ColorPicker::getRange() const {
    return _impl->state.getRange();
}

void ColorPicker::setSpace(Space space) {
    _impl->state.setSpace(space);
    _impl->srgb->setValue(space == Space::SRGB, false);
    for (const ColorStrip strip : MAPPED_STRIPS) {
        _impl->findRow(strip)->setPositionValueMap(getSpaceMap(space));
        _impl->moveRow(strip);
    }
}

ColorPicker::Space ColorPicker::getSpace() const {
    return _impl->state.getSpace();
}

void ColorPicker::setEyeDropperAveragingRadius(int radius) {
    const std::size_t row = findEyeDropperAveraging(radius);
    _impl->setAveraging(row);
    _impl->averaging->SetSelection(static_cast<int>(row));
}

int ColorPicker::getEyeDropperAveragingRadius() const {
    return _impl->eyeDroppers.front()->averagingRadius;
}

int ColorPicker::getCloseResult() const {
    return _impl->closeResult;
}

} // namespace Ostrel::Wx
