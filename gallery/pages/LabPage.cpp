#include "EventLog.h"
#include "Page.h"
#include "Picture.h"
#include "PictureView.h"
#include "lab/Renderer.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/CurveDialog.h>
#include <OstrelLibWx/widgets/CurvePanel.h>

#include <wx/timer.h>
#include <wx/weakref.h>

namespace Ostrel::Gallery {

namespace {

constexpr Pixel RENDER_SIZE{720, 640};
constexpr int PASS_LIMIT = 400;
constexpr int PASSES_FOR_PICTURE = 16;
constexpr int LOOK_INTERVAL_MS = 100;
constexpr int HISTOGRAM_INTERVAL_MS = 500;

constexpr const char* CHANNELS[] = {"Master", "Red", "Green", "Blue"};
static_assert(std::size(CHANNELS) == CURVE_CHANNEL_COUNT);
constexpr const char* HISTOGRAM_TYPES[] = {"Linear", "Logarithmic", "Cumulative"};

/// What the curve panel is told of the picture. The last histogram is kept: the panel asks at intervals, also while the
/// picture does not change.
class PictureCurves : public Wx::ICurvePanelCallbacks {
public:
    PictureCurves(bool isRendered, Function<void(CurveChannel, const Curve&)> onChanged)
        : _isRendered(isRendered)
        , _onChanged(std::move(onChanged)) {}

    void setPicture(SharedPtr<const BitmapImpl<Rgb>> picture) { _picture = std::move(picture); }

    /// Where the panel's colours come from, once it is there.
    void setView(const PictureView& view) { _view = &view; }

    Histogram getHistogram(std::pair<float, float> range, CurveChannel channel, int binCount) override {
        const Request request{_picture, range, channel, binCount};
        if (_picture && request != _lastRequest) {
            _lastHistogram = Histogram::compute(*_picture, channel, range.first, range.second, binCount);
            _lastRequest = request;
        }
        return _lastHistogram;
    }

    Optional<int> getHistogramRefreshInterval() override {
        return _isRendered ? Optional<int>(HISTOGRAM_INTERVAL_MS) : Optional<int>();
    }

    Optional<Rgb> getPixelColor(Pixel pixel) override {
        return _view != nullptr ? _view->getColor(pixel) : Optional<Rgb>();
    }

    void onCurveChanged(CurveChannel channel, const Curve& curve) override { _onChanged(channel, curve); }

    std::int64_t getChangeDelay() override { return 0; } // the picture follows each step of a drag

private:
    struct Request {
        SharedPtr<const BitmapImpl<Rgb>> picture;
        std::pair<float, float> range;
        CurveChannel channel = CurveChannel::MASTER;
        int binCount = 0;

        friend bool operator==(const Request&, const Request&) = default;
    };

    bool _isRendered;
    Function<void(CurveChannel, const Curve&)> _onChanged;
    SharedPtr<const BitmapImpl<Rgb>> _picture;
    const PictureView* _view = nullptr;
    Request _lastRequest;
    Histogram _lastHistogram;
};

/// The same in a window of its own.
class DialogCurves : public Wx::ICurveDialogCallbacks {
public:
    explicit DialogCurves(SharedPtr<PictureCurves> curves)
        : _curves(std::move(curves)) {}

    SharedPtr<Wx::ICurvePanelCallbacks> getPanelCallbacks() override { return _curves; }
    Wx::CurveDialogFileRow getFileRow() override { return {}; }
    bool isPickWanted() override { return true; }
    bool isEqualizeWanted() override { return true; }
    void onDropdownShown(wxWindow*) override {}
    void onDropdownHidden(wxWindow*) override {}

private:
    SharedPtr<PictureCurves> _curves;
};

/// A picture, and the curves that correct it.
class LabPage : public Page {
public:
    explicit LabPage(const PageContext& context)
        : Page(context, "Lab",
               "What it is all for: a picture, rendered as you look or given with --picture FILE, and the curves that "
               "correct it (CurvePanel). The wheel zooms in the picture and a drag moves it (ZoomableScrollable); "
               "while Pick is on, a press in it takes the curve's point of that value, to be moved up and down.")
        , _isRendered(!context.picture.isFromFile)
        , _name(context.picture.name) {
        if (!context.picture.error.empty()) {
            addSection(_name)->Add(makeText(TextRole::BODY, context.picture.error, CONTENT_WIDTH));
            return;
        }
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        row->Add(makePictureColumn(), wxSizerFlags(1).Expand());
        row->AddSpacer(Wx::scaleByDpi(2 * GRID));
        row->Add(makeCurveColumn());
        content().AddSpacer(Wx::scaleByDpi(2 * GRID));
        content().Add(row, wxSizerFlags(1).Expand());

        if (_isRendered) {
            _timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { takeRendering(); });
            startRendering(PASS_LIMIT);
        } else {
            setPicture(std::make_shared<const BitmapImpl<Rgb>>(putOnChequers(context.picture)));
            _panel->updateHistogram();
        }
    }

    ~LabPage() override { delete _dialog.get(); }

    void onPageShown(bool shown) override {
        if (!shown && _dialog) {
            _dialog->Close();
        }
        if (_renderer) {
            _renderer->setPaused(!shown);
            const bool isMissingPasses = _passCount < _renderer->getPassLimit();
            shown&& isMissingPasses ? static_cast<void>(_timer.Start(LOOK_INTERVAL_MS)) : _timer.Stop();
        }
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
    }

    bool isArrangedForPicture() const override {
        return _view == nullptr || (_view->isUpToDate() && _passCount == (_renderer ? _renderer->getPassLimit() : 0));
    }

private:
    static constexpr int PANEL_SIZE = 266; // a plot of 256 and its margins
    static constexpr int BUTTON_WIDTH = 64;
    static constexpr int GAP = GRID / 2;

    // The picture

    wxSizer* makePictureColumn() {
        _view = new PictureView(this,
                                {[this](Pixel position) { getController().beginPick(position); },
                                 [this](Pixel position) { getController().movePick(position); },
                                 [this] { getController().endPick(); }},
                                [this] { updateStatus(); });
        _view->SetMinSize(Wx::scaleByDpi(wxSize(CONTENT_WIDTH - PANEL_SIZE - 2 * GRID, 352)));
        _status = makeText(TextRole::CAPTION, " ");
        auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
        const auto fit = [this] { _view->fit(); };
        const auto showUnscaled = [this] { _view->showUnscaled(); };
        const auto pick = [this] { updatePicking(); };
        _pick = makeButton("Pick", pick, Wx::Button::TOGGLE, BUTTON_WIDTH);
        addToRow(*buttons, makeButton("Fit", fit, Wx::Button::PUSH, BUTTON_WIDTH), GAP);
        addToRow(*buttons, makeButton("1 : 1", showUnscaled, Wx::Button::PUSH, BUTTON_WIDTH), GAP);
        addToRow(*buttons, _pick, GAP);
        buttons->AddSpacer(Wx::scaleByDpi(2 * GRID));
        buttons->Add(_status, wxSizerFlags().CenterVertical());

        auto* const column = new wxBoxSizer(wxVERTICAL);
        column->Add(_view, wxSizerFlags(1).Expand());
        column->AddSpacer(Wx::scaleByDpi(GRID));
        column->Add(buttons);
        return column;
    }

    void startRendering(int passLimit) {
        _renderer.reset(); // the one before ends first
        _passCount = 0;
        _renderer = std::make_unique<Renderer>(RENDER_SIZE, passLimit);
        _timer.Start(LOOK_INTERVAL_MS);
    }

    void takeRendering() {
        const Renderer::Result result = _renderer->getResult();
        if (result.passCount == _passCount) {
            return;
        }
        const bool isFirst = _passCount == 0;
        _passCount = result.passCount;
        setPicture(result.picture);
        const bool isLast = _passCount == _renderer->getPassLimit();
        if (isFirst || isLast) {
            _panel->updateHistogram(); // otherwise the panel asks by itself
            if (_dialog) {
                _dialog->updateHistogram();
            }
        }
        if (isLast) {
            _timer.Stop();
        }
    }

    void setPicture(const SharedPtr<const BitmapImpl<Rgb>>& picture) {
        _picture = picture;
        _curves->setPicture(picture);
        if (_dialogCurves) {
            _dialogCurves->setPicture(picture);
        }
        _view->setPicture(picture);
    }

    void updateStatus() {
        wxString text = wxString::Format(L"%.0f %%", 100.0 * _view->getScale());
        if (_renderer) {
            text += wxString::Format(", pass %d of %d", _passCount, _renderer->getPassLimit());
        } else {
            text += ", " + _name;
        }
        _status->SetLabelText(text);
    }

    // The curves

    wxSizer* makeCurveColumn() {
        _curves = std::make_shared<PictureCurves>(_isRendered, [this](CurveChannel channel, const Curve& curve) {
            log().report("CurvePanel", wxString::Format("onCurveChanged(%s), %zu points",
                                                        CHANNELS[static_cast<int>(channel)], curve.getPoints().size()));
            if (_dialog && _dialog->getPanel()->getCurrentCurves()[channel] != curve) {
                _dialog->getPanel()->setCurve(curve, channel, false);
            }
            applyCurves();
        });
        _curves->setView(*_view);
        _panel = new Wx::CurvePanel(this, Wx::GuiSkin(), Wx::scaleByDpi(wxSize(PANEL_SIZE, PANEL_SIZE)), ColorCurve(),
                                    _curves);
        _panel->SetMinSize(_panel->GetSize());
        _controller = _panel->getController();
        applyCurves();

        auto* const column = new wxBoxSizer(wxVERTICAL);
        column->Add(_panel);
        addChoice(*column, "Channel", CHANNELS, [this](int channel) {
            _panel->setSelectedCurve(static_cast<CurveChannel>(channel));
            _panel->updateHistogram();
        });
        addChoice(*column, "Histogram", HISTOGRAM_TYPES,
                  [this](int type) { _panel->setHistogramType(static_cast<Wx::HistogramType>(type)); });
        addRow(
            *column, "Curves",
            {makeSmallButton("Reset", [this] { _panel->setCurve(Curve(), _panel->getSelectedCurveChannel(), true); }),
             makeSmallButton("Reset all", [this] { _panel->setCurves(ColorCurve()); }),
             makeSmallButton("Dialog...", [this] { openDialog(); })});
        return column;
    }

    Wx::Button* makeSmallButton(const wxString& label, Function<void()> onClick,
                                Wx::Button::Behavior behavior = Wx::Button::PUSH) {
        return makeButton(label, std::move(onClick), behavior, 0);
    }

    /// Buttons of equal width below their caption, as wide as the panel.
    void addRow(wxBoxSizer& column, const wxString& caption, const Array<Wx::Button*>& buttons) {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        const int count = static_cast<int>(buttons.size());
        const int width = (PANEL_SIZE - (count - 1) * GAP) / count;
        for (Wx::Button* const button : buttons) {
            button->SetMinSize(wxSize(Wx::scaleByDpi(width), button->GetMinHeight()));
            addToRow(*row, button, GAP);
        }
        column.AddSpacer(Wx::scaleByDpi(GRID));
        column.Add(makeText(TextRole::CAPTION, caption));
        column.AddSpacer(Wx::scaleByDpi(GAP));
        column.Add(row);
    }

    /// A row of buttons of which one is toggled, first the first.
    void addChoice(wxBoxSizer& column, const wxString& caption, ArrayView<const char* const> labels,
                   const Function<void(int)>& onChosen) {
        const std::size_t choice = _choices.size();
        Array<Wx::Button*> buttons;
        for (std::size_t i = 0; i < labels.size(); ++i) {
            const auto choose = [this, choice, i, onChosen] {
                for (std::size_t other = 0; other < _choices[choice].size(); ++other) {
                    _choices[choice][other]->setToggled(other == i);
                }
                onChosen(static_cast<int>(i));
            };
            buttons.push_back(makeSmallButton(labels[i], choose, Wx::Button::TOGGLE));
        }
        afterSkin([first = buttons.front()] { first->setToggled(true); });
        addRow(column, caption, buttons);
        _choices.push_back(std::move(buttons));
    }

    void applyCurves() {
        const PictureValues values = _isRendered ? PictureValues::LIGHT : PictureValues::STORED;
        _view->setTones(ToneTables(_panel->getCurrentCurves(), values));
    }

    /// The same curves in a window: what is changed in one of the two is changed in the other.
    void openDialog() {
        if (_dialog) {
            _dialog->Raise();
            return;
        }
        _dialogCurves = std::make_shared<PictureCurves>(
            _isRendered, [this](CurveChannel channel, const Curve& curve) { _panel->setCurve(curve, channel, true); });
        _dialogCurves->setView(*_view);
        _dialogCurves->setPicture(_picture);
        _dialog = new Wx::CurveDialog(wxGetTopLevelParent(this), Wx::GuiSkin(), "Tone curves",
                                      _panel->getCurrentCurves(), std::make_shared<DialogCurves>(_dialogCurves));
        _dialogController = _dialog->getController();
        _dialog->Bind(Wx::Button::clickEventType(), [this](wxMouseEvent& event) {
            updatePicking();
            event.Skip();
        });
        _dialog->Bind(wxEVT_DESTROY, [this](wxWindowDestroyEvent& event) {
            event.Skip();
            if (event.GetEventObject() == _dialog.get()) {
                CallAfter([this] { updatePicking(); });
            }
        });
    }

    [[nodiscard]] bool isDialogPicking() const { return _dialog && _dialog->isPicking(); }

    Wx::ICurvePanelController& getController() { return isDialogPicking() ? *_dialogController : *_controller; }

    void updatePicking() { _view->setPicking(_pick->isToggled() || isDialogPicking()); }

    const bool _isRendered;
    const wxString _name;
    PictureView* _view = nullptr; ///< null if there is no picture, as the others are
    wxStaticText* _status = nullptr;
    Wx::Button* _pick = nullptr;
    SharedPtr<PictureCurves> _curves;
    Wx::CurvePanel* _panel = nullptr;
    AutoPtr<Wx::ICurvePanelController> _controller;
    Array<Array<Wx::Button*>> _choices;
    SharedPtr<const BitmapImpl<Rgb>> _picture;
    wxWeakRef<Wx::CurveDialog> _dialog;
    SharedPtr<PictureCurves> _dialogCurves;
    AutoPtr<Wx::ICurvePanelController> _dialogController; ///< of that dialog
    AutoPtr<Renderer> _renderer;                          ///< null if the picture is a file's
    int _passCount = 0;
    wxTimer _timer;
};

const PageRegistration registration = registerPage<LabPage>(150, "Lab");

} // namespace

} // namespace Ostrel::Gallery
