#include "EventLog.h"
#include "LabCallbacks.h"
#include "Page.h"
#include "PickedColors.h"
#include "Picture.h"
#include "PictureView.h"
#include "lab/PictureFile.h"
#include "lab/Rendering.h"
#include "lab/Tones.h"

#include <OstrelLibWx/FileDialogs.h>
#include <OstrelLibWx/MessageDialog.h>
#include <OstrelLibWx/TaskbarProgress.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/ColorPicker.h>
#include <OstrelLibWx/widgets/ColorPickerButton.h>
#include <OstrelLibWx/widgets/ImageSaveSettingsDialog.h>
#include <OstrelLibWx/widgets/PixelProbe.h>
#include <OstrelLibWx/widgets/Tooltip.h>

#include <wx/timer.h>
#include <wx/weakref.h>

#include <map>
#include <utility>

namespace Ostrel::Gallery {

namespace {

constexpr Pixel RENDER_SIZE{720, 640};
constexpr int PASS_LIMIT = 400;
constexpr int PASSES_FOR_PICTURE = 16;
constexpr int LOOK_INTERVAL_MS = 50;

constexpr const char* CHANNELS[] = {"Master", "Red", "Green", "Blue"};
static_assert(std::size(CHANNELS) == CURVE_CHANNEL_COUNT);
constexpr const char* HISTOGRAM_TYPES[] = {"Linear", "Logarithmic", "Cumulative"};

/// What the view shows.
enum class Shown : int { PICTURE, LUMINANCE, DEPTH };
constexpr const char* SHOWS[] = {"Picture", "Luminance...", "Depth..."};

// What false colours begin with: the usual light, and the distances of the spheres, fill the gradient.
constexpr float LUMINANCE_SCALE = 1.0F;
constexpr float DEPTH_SCALE = 0.08F;

/// A picture, and what is done with it: rendered, corrected, probed, shown in false colours, and saved.
class LabPage : public Page {
public:
    explicit LabPage(const PageContext& context)
        : Page(context, "Lab",
               "What it is all for: a picture, rendered as you look or given with --picture FILE. The wheel zooms and "
               "a drag moves it. Curves correct it, from within the picture too while Pick is on, and its colours are "
               "behind the swatches.")
        , _isRendered(!context.picture.isFromFile)
        , _name(context.picture.name)
        , _values(_isRendered ? PictureValues::LIGHT : PictureValues::STORED) {
        if (!context.picture.error.empty()) {
            addSection(_name)->Add(makeText(TextRole::BODY, context.picture.error, CONTENT_WIDTH));
            return;
        }
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        row->Add(makePictureColumn(), wxSizerFlags(1).Expand());
        row->AddSpacer(Wx::scaleByDpi(2 * GRID));
        row->Add(makeControlColumn());
        content().AddSpacer(Wx::scaleByDpi(2 * GRID));
        content().Add(row, wxSizerFlags(1).Expand());

        if (_isRendered) {
            _timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { takeRendering(); });
            _rendering.emplace(RENDER_SIZE, getChosenColors(), [this](Optional<float> progress) {
                progress ? _progress->setProgress(*progress) : _progress->setIdle(); // on the renderer's thread
            });
            startRendering(PASS_LIMIT);
        } else {
            _original = std::make_shared<const BitmapImpl<Rgb>>(context.picture.image);
            setPicture(std::make_shared<const BitmapImpl<Rgb>>(putOnChequers(context.picture)));
            updateHistograms();
        }
    }

    ~LabPage() override {
        _controller.reset();
        delete _curveDialog.get();
        delete _falseColorDialog.get();
        DestroyChildren(); // while there is what they call back
    }

    void onPageShown(bool shown) override {
        if (!shown) {
            for (wxTopLevelWindow* const dialog :
                 {static_cast<wxTopLevelWindow*>(_curveDialog), static_cast<wxTopLevelWindow*>(_falseColorDialog)}) {
                if (dialog != nullptr) {
                    dialog->Close();
                }
            }
            hideProbe();
        }
        if (_rendering) {
            _rendering->setPaused(!shown);
            shown ? awaitRendering() : _timer.Stop();
        }
    }

    bool onKey(int key) override {
        const auto found = _keys.find(key);
        if (found == _keys.end()) {
            return false;
        }
        hideProbe();
        const Function<void()> press = found->second; // may show a dialog, behind which the page may go
        press();
        return true;
    }

    void arrangeForPicture() override {
        if (_panel == nullptr) {
            return;
        }
        ColorCurve curves;
        curves[CurveChannel::MASTER].setPoints({{0.0f, 0.0f}, {0.18f, 0.11f}, {0.62f, 0.74f}, {1.0f, 0.97f}});
        curves[CurveChannel::RED].setPoints({{0.0f, 0.03f}, {0.45f, 0.5f}, {1.0f, 1.0f}});
        curves[CurveChannel::BLUE].setPoints({{0.0f, 0.0f}, {0.5f, 0.43f}, {1.0f, 0.94f}});
        _panel->setCurves(curves);
        if (_isRendered) {
            startRendering(PASSES_FOR_PICTURE);
        }
        const wxSize size = _view->GetClientSize();
        probe(wxPoint(size.x * 3 / 10, size.y / 20)); // the sky, where it hides least
    }

    bool isArrangedForPicture() const override {
        return _view == nullptr || (_view->isUpToDate() && !(_rendering && _rendering->isAwaited()));
    }

private:
    static constexpr int PANEL_SIZE = 266; // a plot of 256 and its margins
    static constexpr int BUTTON_WIDTH = 56;
    static constexpr int SWATCH_HEIGHT = 24;
    static constexpr int GAP = GRID / 2;

    // The picture

    wxSizer* makePictureColumn() {
        _view = new PictureView(this,
                                {[this](Pixel position) { getController().beginPick(position); },
                                 [this](Pixel position) { getController().movePick(position); },
                                 [this] { getController().endPick(); }},
                                [this] { onShown(); });
        _view->SetMinSize(Wx::scaleByDpi(wxSize(CONTENT_WIDTH - PANEL_SIZE - 2 * GRID, 352)));
        _probe = new Wx::PixelProbe(
            this, [this](const Pixel& cursor) { return getProbedPixel(cursor); },
            "A value of this pixel is infinite or not a number.");
        _view->Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
            probe(event.GetPosition());
            event.Skip();
        });
        _view->Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent& event) {
            hideProbe();
            event.Skip();
        });
        _view->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
            hideProbe(); // until the drag is over
            event.Skip();
        });

        auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
        const auto add = [this, buttons](const char* label, const char* tooltip, char key, Function<void()> onClick,
                                         Wx::Button::Behavior behavior = Wx::Button::PUSH) {
            Wx::Button* const button = makeLabButton(label, tooltip, key, std::move(onClick), behavior);
            button->SetMinSize(wxSize(Wx::scaleByDpi(BUTTON_WIDTH), button->GetMinHeight()));
            addToRow(*buttons, button, GAP);
            return button;
        };
        add("Fit", "Shows the whole picture.", 'F', [this] { _view->fit(); });
        add("1 : 1", "Shows the picture pixel for pixel.", '1', [this] { _view->showUnscaled(); });
        _pick = add(
            "Pick", "A press in the picture takes the curve's point of that value; drag it up and down.", 'P',
            [this] { updatePicking(); }, Wx::Button::TOGGLE);
        _probing = add(
            "Values", "Shows the values of the pixel under the pointer.", 'V', [this] { hideProbe(); },
            Wx::Button::TOGGLE);
        afterSkin([this] { _probing->setToggled(true); });
        _save = add("Save...", "Saves the picture to a file: as it is shown, or its light as floats.", 'S',
                    [this] { save(); });
        if (_isRendered) {
            _save->Enable(false); // until there is a picture
            _render = add("Stop...", "Stops rendering, or begins anew.", 'R', [this] { stopOrStartRendering(); });
        }
        _status = makeText(TextRole::CAPTION, " ");
        buttons->AddSpacer(Wx::scaleByDpi(2 * GRID));
        buttons->Add(_status, wxSizerFlags().CenterVertical());

        auto* const column = new wxBoxSizer(wxVERTICAL);
        column->Add(_view, wxSizerFlags(1).Expand());
        column->AddSpacer(Wx::scaleByDpi(GRID));
        column->Add(buttons);
        return column;
    }

    /// A picture that has come: rendered, or the file's.
    void setPicture(SharedPtr<const BitmapImpl<Rgb>> picture) {
        _picture = std::move(picture);
        if (_isRendered) {
            _original = _picture;
        }
        updateBalance();
    }

    void updateBalance() {
        _balanced = balance(_picture, _balance);
        for (const SharedPtr<PictureCurves>& curves : {_curves, _dialogCurves}) {
            if (curves) {
                curves->setPicture(_balanced);
            }
        }
        updateView();
    }

    void updateView() { _view->setPicture(_show == Shown::DEPTH ? getDepth() : _balanced); }

    void updateShading() {
        _view->setShading(_show == Shown::PICTURE ? SharedPtr<const Shading>(std::make_shared<ToneTables>(
                                                        _panel->getCurrentCurves(), _values))
                                                  : std::make_shared<FalseColors>(getMapping()));
    }

    void updateHistograms() {
        _panel->updateHistogram();
        if (_curveDialog) {
            _curveDialog->updateHistogram();
        }
    }

    void onShown() {
        updateStatus();
        if (_probed) {
            probe(*_probed); // its pixel may have changed, or another may lie there now
        }
    }

    void updateStatus() {
        wxString text = wxString::Format(L"%.0f %%, ", 100.0 * _view->getScale());
        if (!_rendering) {
            text += _name;
        } else if (_rendering->isRunning() || _rendering->getPassCount() == _rendering->getPassLimit()) {
            text += wxString::Format("pass %d of %d", _rendering->getPassCount(), _rendering->getPassLimit());
        } else {
            text += wxString::Format("stopped at pass %d", _rendering->getPassCount());
        }
        _status->SetLabelText(text);
    }

    // Rendering

    void startRendering(int passLimit) {
        if (!_progress) {
            _progress.emplace(Wx::getWindowNativeHandle(wxGetTopLevelParent(this)));
        }
        _rendering->start(passLimit);
        awaitRendering();
    }

    void awaitRendering() {
        _timer.Start(LOOK_INTERVAL_MS);
        showProgress();
        takeRendering();
    }

    void showProgress() {
        _render->SetLabel(_rendering->isRunning() ? "Stop..." : "Render");
        updateStatus();
    }

    void takeRendering() {
        const bool isFirst = !_picture;
        const SharedPtr<const BitmapImpl<Rgb>> picture = _rendering->takePicture();
        if (picture) {
            setPicture(picture);
        }
        const bool isAwaited = _rendering->isAwaited();
        if (picture && (isFirst || !isAwaited)) {
            updateHistograms(); // otherwise the panel asks by itself
            _save->Enable(true);
        }
        if (!isAwaited) {
            _timer.Stop();
            showProgress();
        }
    }

    void stopOrStartRendering() {
        if (!_rendering->isRunning()) {
            startRendering(PASS_LIMIT);
            return;
        }
        const wxWeakRef<LabPage> self(this);
        const bool isStopped =
            Wx::showYesNoDialog(getOwner(), "Rendering", "Stop rendering? The picture stays as it is by now.",
                                Wx::MessageDialogIcon::QUESTION);
        if (self && isStopped) {
            _rendering->stop();
            log().report("Lab", wxString::Format("stopped at pass %d", _rendering->getPassCount()));
            awaitRendering();
        }
    }

    // The pixel under the pointer

    void probe(wxPoint position) {
        _probed = position;
        if (!_probing->isToggled() || !_original || _view->HasCapture() || !_view->getPixel({position.x, position.y})) {
            _probe->Hide();
            return;
        }
        const wxPoint onScreen = _view->ClientToScreen(position);
        _probe->updatePosition({onScreen.x, onScreen.y});
        _probe->Show();
    }

    void hideProbe() {
        _probed.reset();
        if (_probe != nullptr) {
            _probe->Hide();
        }
    }

    Wx::PixelProbe::ProbedPixel getProbedPixel(Pixel cursor) const {
        const wxPoint inView = _view->ScreenToClient(wxPoint(cursor.x, cursor.y));
        const Pixel pixel = _view->getPixel({inView.x, inView.y}).value_or(Pixel{});
        Rgb light = (*_original)(pixel.x, pixel.y);
        const float alpha = light.alpha;
        Light(_values).apply({&light, 1}, {&light, 1});
        return {light, _view->getShownColor(pixel), alpha, pixel};
    }

    // Saving

    void save() {
        const wxWeakRef<LabPage> self(this);
        const Optional<Wx::ImageSaveSettings> settings =
            Wx::ImageSaveSettingsDialog::requestSettingsFromUser(getOwner());
        if (!settings || !self) {
            return;
        }
        const Path chosen =
            Wx::filenameSaveDlg(getOwner(), "Save the picture", getWildcard(settings->colorFormat),
                                Wx::FileSelect::CONFIRM_OVERWRITE, fitExtension(_file, settings->colorFormat));
        if (chosen.isEmpty() || !self) {
            return;
        }
        const Path file = fitExtension(chosen, settings->colorFormat);
        const bool isAnother = file != chosen && file.exists(); // the dialog has not asked about this one
        if (isAnother && !Wx::showYesNoDialog(getOwner(), "Save the picture",
                                              "\"" + file.fileName() + "\" exists already. Replace it?",
                                              Wx::MessageDialogIcon::QUESTION)) {
            return;
        }
        if (self) {
            saveTo(file, *settings);
        }
    }

    void saveTo(const Path& file, const Wx::ImageSaveSettings& settings) {
        Expected<void, String> saved;
        {
            const wxBusyCursor busy;
            saved = writePicture(makeImage(settings), file);
        }
        if (!saved) {
            Wx::showOkDialog(getOwner(), "Save the picture", saved.error(), Wx::MessageDialogIcon::ERROR_ICON);
            return;
        }
        _file = file;
        log().report("Lab", "saved " + wxString(file.nativeStr().toWide()));
    }

    /// Integers hold what is shown, floats the light before everything that is done to it.
    Image makeImage(const Wx::ImageSaveSettings& settings) {
        using enum ImageColorFormat;
        SharedPtr<const BitmapImpl<Rgb>> values = _original;
        SharedPtr<const Shading> shading = std::make_shared<Light>(_values);
        if (settings.colorFormat == SRGB_8_BIT || settings.colorFormat == SRGB_16_BIT) {
            values = _show == Shown::DEPTH ? getDepth() : balance(_original, _balance);
            shading = _show == Shown::PICTURE
                          ? SharedPtr<const Shading>(std::make_shared<ExactTones>(_panel->getCurrentCurves(), _values))
                          : std::make_shared<FalseColors>(getMapping());
        }
        Image image(shade(*values, *shading, *_original));
        image.colorFormat = settings.colorFormat;
        image.hasAlpha = settings.includeAlpha;
        return image;
    }

    // What is beside the picture

    wxSizer* makeControlColumn() {
        auto* const column = new wxBoxSizer(wxVERTICAL);
        addCurvePanel(*column);
        addChoice(*column, "Channel", CHANNELS, {}, [this](int channel) {
            _panel->setSelectedCurve(static_cast<CurveChannel>(channel));
            _panel->updateHistogram();
        });
        addChoice(*column, "Histogram", HISTOGRAM_TYPES, {},
                  [this](int type) { _panel->setHistogramType(static_cast<Wx::HistogramType>(type)); });
        const auto reset = [this] { _panel->setCurve(Curve(), _panel->getSelectedCurveChannel(), true); };
        addRow(
            *column, "Curves",
            {makeLabButton("Reset", "Makes the channel's curve straight.", 0, reset),
             makeLabButton("Reset all", "Makes all curves straight.", 0, [this] { _panel->setCurves(ColorCurve()); }),
             makeLabButton("Dialog...", "The same curves in a window, which loads, saves and equalizes them.", 'C',
                           [this] { openCurveDialog(); })});
        constexpr Choice SHOW_CHOICES[] = {{"The picture itself.", 'B'},
                                           {"How bright each pixel is, in false colours, and which these are.", 'L'},
                                           {"How far away each pixel is, in false colours, and which these are.", 'D'}};
        _showChoice = addChoice(*column, "Show", ArrayView<const char* const>(SHOWS).first(_isRendered ? 3 : 2),
                                SHOW_CHOICES, [this](int show) { choose(static_cast<Shown>(show)); });
        addSwatches(*column);
        return column;
    }

    Wx::Button* makeLabButton(const wxString& label, const String& tooltip, char key, Function<void()> onClick,
                              Wx::Button::Behavior behavior = Wx::Button::PUSH) {
        Wx::Button* const button = makeButton(label, std::move(onClick), behavior, 0);
        if (!tooltip.isEmpty()) {
            button->setTooltip(describeKey(tooltip, key));
        }
        if (key != 0) {
            _keys[key] = [button] {
                if (button->IsEnabled()) {
                    button->doClick({});
                }
            };
        }
        return button;
    }

    static String describeKey(const String& tooltip, char key) {
        return key != 0 ? tooltip + " Key " + String(std::wstring(1, static_cast<wchar_t>(key))) + "." : tooltip;
    }

    /// Their widths, in the screen's pixels: together with the gaps exactly the panel's.
    static Array<int> getWidths(std::size_t count) {
        const int gap = Wx::scaleByDpi(GAP);
        const int room = Wx::scaleByDpi(PANEL_SIZE) - (static_cast<int>(count) - 1) * gap;
        Array<int> widths;
        for (int i = 0; i < static_cast<int>(count); ++i) {
            widths.push_back(room * (i + 1) / static_cast<int>(count) - room * i / static_cast<int>(count));
        }
        return widths;
    }

    /// Buttons of equal width below their caption, as wide as the panel.
    void addRow(wxBoxSizer& column, const wxString& caption, const Array<Wx::Button*>& buttons) {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        const Array<int> widths = getWidths(buttons.size());
        for (std::size_t i = 0; i < buttons.size(); ++i) {
            buttons[i]->SetMinSize(wxSize(widths[i], buttons[i]->GetMinHeight()));
            addToRow(*row, buttons[i], GAP);
        }
        column.AddSpacer(Wx::scaleByDpi(GRID));
        column.Add(makeText(TextRole::CAPTION, caption));
        column.AddSpacer(Wx::scaleByDpi(GAP));
        column.Add(row);
    }

    /// What one of several buttons says of itself.
    struct Choice {
        const char* tooltip;
        char key;
    };

    /// A row of buttons of which one is toggled, first the first. Gives its place in `_choices`.
    std::size_t addChoice(wxBoxSizer& column, const wxString& caption, ArrayView<const char* const> labels,
                          ArrayView<const Choice> choices, const Function<void(int)>& onChosen) {
        const std::size_t row = _choices.size();
        Array<Wx::Button*> buttons;
        for (std::size_t i = 0; i < labels.size(); ++i) {
            const auto choose = [this, row, i, onChosen] {
                toggleChoice(row, i);
                onChosen(static_cast<int>(i));
            };
            const Choice choice = choices.empty() ? Choice{"", 0} : choices[i];
            buttons.push_back(makeLabButton(labels[i], choice.tooltip, choice.key, choose, Wx::Button::TOGGLE));
        }
        afterSkin([first = buttons.front()] { first->setToggled(true); });
        addRow(column, caption, buttons);
        _choices.push_back(std::move(buttons));
        return row;
    }

    void toggleChoice(std::size_t row, std::size_t chosen) {
        for (std::size_t i = 0; i < _choices[row].size(); ++i) {
            _choices[row][i]->setToggled(i == chosen);
        }
    }

    // The curves

    void addCurvePanel(wxBoxSizer& column) {
        _curves = std::make_shared<PictureCurves>(_isRendered, [this](CurveChannel channel, const Curve& curve) {
            log().report("CurvePanel", wxString::Format("onCurveChanged(%s), %zu points",
                                                        CHANNELS[static_cast<int>(channel)], curve.getPoints().size()));
            if (_curveDialog && _curveDialog->getPanel()->getCurrentCurves()[channel] != curve) {
                _curveDialog->getPanel()->setCurve(curve, channel, false);
            }
            updateShading();
        });
        _curves->setView(*_view);
        _panel = new Wx::CurvePanel(this, Wx::GuiSkin(), Wx::scaleByDpi(wxSize(PANEL_SIZE, PANEL_SIZE)), ColorCurve(),
                                    _curves);
        _panel->SetMinSize(_panel->GetSize());
        _controller = _panel->getController();
        updateShading();
        column.Add(_panel);
    }

    /// The same curves in a window: what is changed in one of the two is changed in the other.
    void openCurveDialog() {
        if (_curveDialog) {
            _curveDialog->Raise();
            return;
        }
        _dialogCurves = std::make_shared<PictureCurves>(
            _isRendered, [this](CurveChannel channel, const Curve& curve) { _panel->setCurve(curve, channel, true); });
        _dialogCurves->setView(*_view);
        _dialogCurves->setPicture(_balanced);
        _curveDialog = new Wx::CurveDialog(wxGetTopLevelParent(this), Wx::GuiSkin(), "Tone curves",
                                           _panel->getCurrentCurves(), std::make_shared<DialogCurves>(_dialogCurves));
        const wxPoint beside = getPlaceBesideView();
        Wx::smartPositionWindow(_curveDialog, {beside.x, beside.y});
        _dialogController = _curveDialog->getController();
        _curveDialog->Bind(Wx::Button::clickEventType(), [this](wxMouseEvent& event) {
            updatePicking();
            event.Skip();
        });
        _curveDialog->Bind(wxEVT_DESTROY, [this](wxWindowDestroyEvent& event) {
            event.Skip();
            if (event.GetEventObject() == _curveDialog.get()) {
                _dialogController.reset();
                CallAfter([this] { updatePicking(); });
            }
        });
    }

    [[nodiscard]] bool isDialogPicking() const { return _dialogController && _curveDialog->isPicking(); }

    Wx::ICurvePanelController& getController() { return isDialogPicking() ? *_dialogController : *_controller; }

    void updatePicking() { _view->setPicking(_pick->isToggled() || isDialogPicking()); }

    // False colours

    /// The picture at once; another one with the dialog for its colours, whose Cancel brings back what was shown
    /// before.
    void choose(Shown chosen) {
        if (_falseColorDialog) {
            if (chosen == _show) {
                _falseColorDialog->Raise();
                return;
            }
            _falseColorDialog->Close();
        }
        const Shown before = std::exchange(_show, chosen);
        updateShow();
        if (chosen == Shown::PICTURE) {
            return;
        }
        const auto onChanged = [this](const VolumeGridMapping& mapping) {
            getMapping() = mapping;
            updateShading();
        };
        const auto onClosed = [this, before](wxPoint position) {
            if (_falseColorDialog->getResult() != wxOK) {
                _show = before;
                updateShow();
            }
            _falseColorPlace = position;
            _falseColorDialog = nullptr;
        };
        const auto getScale = [this] {
            const SharedPtr<const BitmapImpl<Rgb>>& channel = _show == Shown::DEPTH ? getDepth() : _balanced;
            return channel ? getScaleToFit(*channel) : 1.0F;
        };
        const auto callbacks = std::make_shared<FalseColorCallbacks>(
            FalseColorCallbacks::Host{onChanged, getScale, onClosed, getMapping()});
        _falseColorDialog = new Wx::VolumeGridMappingDialog(
            wxGetTopLevelParent(this), chosen == Shown::DEPTH ? "False colours: depth" : "False colours: luminance",
            getMapping(), getMapping(), callbacks, _falseColorPlace.value_or(getPlaceBesideView()));
    }

    void updateShow() {
        toggleChoice(_showChoice, static_cast<std::size_t>(_show));
        updateView();
        updateShading();
    }

    VolumeGridMapping& getMapping() { return _show == Shown::DEPTH ? _depthColors : _luminanceColors; }

    const SharedPtr<const BitmapImpl<Rgb>>& getDepth() {
        if (!_depth) {
            _depth = std::make_shared<const BitmapImpl<Rgb>>(renderDepth(RENDER_SIZE));
        }
        return _depth;
    }

    // The colours of the scene, and the white point

    void addSwatches(wxBoxSizer& column) {
        const SceneColors colors;
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        const Array<int> widths = getWidths(3);
        const auto add = [&, this](const char* name, const char* tooltip, char key, const Rgb& color) {
            auto* const swatch = new Wx::ColorPickerButton(this, name, wxSize(-1, SWATCH_HEIGHT), true);
            swatch->SetMinSize(
                wxSize(widths[static_cast<std::size_t>(row->GetItemCount()) / 2], Wx::scaleByDpi(SWATCH_HEIGHT)));
            swatch->setColor(color, false);
            new Wx::Tooltip(swatch, describeKey(tooltip, key));
            swatch->Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
                CallAfter([this] { placePicker(); });
                event.Skip();
            });
            _keys[key] = [swatch] { click(*swatch); };
            auto* const cell = new wxBoxSizer(wxVERTICAL);
            cell->Add(makeText(TextRole::CAPTION, name));
            cell->AddSpacer(Wx::scaleByDpi(GAP));
            cell->Add(swatch);
            addToRow(*row, cell, GAP);
            return swatch;
        };
        if (_isRendered) {
            _sky = add("Sky", "The colour of the sky. A click opens the colour picker.", 'K', encodeSrgb(colors.sky));
            _sphere = add("Sphere", "The colour of the sphere in front. A click opens the colour picker.", 'O',
                          encodeSrgb(colors.sphere));
            for (Wx::ColorPickerButton* const swatch : {_sky, _sphere}) {
                swatch->setPreviewCallback([this, swatch](const Rgb& color) { tryColor(*swatch, color); });
                swatch->setCommitCallback([this](const Rgb&) { setColors(); });
            }
        }
        _white = add("White point",
                     "The colour that is to be white. A click opens the colour picker; its eye dropper takes it from "
                     "the picture.",
                     'W', {1.0F, 1.0F, 1.0F});
        _white->setPreviewCallback([this](const Rgb& color) { setWhite(color); });
        _white->setCommitCallback([this](const Rgb& color) { setWhite(color); });
        column.AddSpacer(Wx::scaleByDpi(GRID));
        column.Add(row);
    }

    /// As the mouse does.
    static void click(wxWindow& window) {
        const wxWeakRef<wxWindow> self(&window);
        for (const auto& type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_UP}) {
            wxMouseEvent event(type);
            event.SetPosition(wxPoint(1, 1));
            event.SetEventObject(&window);
            if (self) {
                self->ProcessWindowEvent(event);
            }
        }
    }

    /// The first picker beside the picture, of which it shows a preview; the next ones are where the user left it.
    void placePicker() {
        for (wxWindow* const window : wxTopLevelWindows) {
            if (auto* const picker = dynamic_cast<Wx::ColorPicker*>(window);
                picker != nullptr && picker->IsModal() && !std::exchange(_isPickerPlaced, true)) {
                const wxPoint beside = getPlaceBesideView();
                Wx::smartPositionWindow(picker, {beside.x, beside.y});
            }
        }
    }

    [[nodiscard]] SceneColors getChosenColors() const { return getSceneColors(_sky->getColor(), _sphere->getColor()); }

    void tryColor(const Wx::ColorPickerButton& swatch, const Rgb& color) {
        _rendering->tryColors(getSceneColors(&swatch == _sky ? color : _sky->getColor(),
                                             &swatch == _sphere ? color : _sphere->getColor()));
        awaitRendering();
    }

    void setColors() {
        _rendering->setColors(getChosenColors());
        awaitRendering();
    }

    void setWhite(const Rgb& color) {
        const Optional<Rgb> picked = _picture ? _picked.find(color, *_view, *_picture) : Optional<Rgb>();
        const Rgb light = _values == PictureValues::LIGHT ? decodeSrgb(color) : color;
        _balance = getWhiteBalance(picked.value_or(light));
        updateBalance();
        updateHistograms();
    }

    WindowHandle getOwner() { return Wx::getWindowNativeHandle(wxGetTopLevelParent(this)); }

    wxPoint getPlaceBesideView() const {
        return _view->ClientToScreen(wxPoint(_view->GetClientSize().x + Wx::scaleByDpi(GRID), 0));
    }

    const bool _isRendered;
    const wxString _name;
    const PictureValues _values;
    PictureView* _view = nullptr; ///< null if there is no picture, as the others are
    wxStaticText* _status = nullptr;
    Wx::PixelProbe* _probe = nullptr;
    Optional<wxPoint> _probed; ///< where the pointer is, in the view; nothing beside it
    Wx::Button* _pick = nullptr;
    Wx::Button* _probing = nullptr;
    Wx::Button* _save = nullptr;
    Wx::Button* _render = nullptr;         ///< null if the picture is a file's
    Wx::ColorPickerButton* _sky = nullptr; ///< null likewise
    Wx::ColorPickerButton* _sphere = nullptr;
    Wx::ColorPickerButton* _white = nullptr;
    Array<Array<Wx::Button*>> _choices;
    std::size_t _showChoice = 0;
    std::map<int, Function<void()>> _keys;

    SharedPtr<const BitmapImpl<Rgb>> _original; ///< with its alpha
    SharedPtr<const BitmapImpl<Rgb>> _picture;  ///< the same without transparency
    SharedPtr<const BitmapImpl<Rgb>> _balanced; ///< that with its white point
    SharedPtr<const BitmapImpl<Rgb>> _depth;    ///< null until it is asked for
    Rgb _balance{1.0F, 1.0F, 1.0F};
    PickedColors _picked;
    bool _isPickerPlaced = false;
    Path _file = "picture";

    SharedPtr<PictureCurves> _curves;
    Wx::CurvePanel* _panel = nullptr;
    AutoPtr<Wx::ICurvePanelController> _controller;
    wxWeakRef<Wx::CurveDialog> _curveDialog;
    SharedPtr<PictureCurves> _dialogCurves;
    AutoPtr<Wx::ICurvePanelController> _dialogController; ///< of that dialog

    Shown _show = Shown::PICTURE;
    VolumeGridMapping _luminanceColors = makeFalseColors(LUMINANCE_SCALE);
    VolumeGridMapping _depthColors = makeFalseColors(DEPTH_SCALE);
    wxWeakRef<Wx::VolumeGridMappingDialog> _falseColorDialog;
    Optional<wxPoint> _falseColorPlace;

    Optional<Wx::TaskbarProgress> _progress; ///< outlives the thread that drives it
    Optional<Rendering> _rendering;          ///< nothing if the picture is a file's
    wxTimer _timer;
};

const PageRegistration registration = registerPage<LabPage>(150, "Lab");

} // namespace

} // namespace Ostrel::Gallery
