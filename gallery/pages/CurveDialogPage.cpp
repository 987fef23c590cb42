#include "EventLog.h"
#include "Page.h"
#include "Picture.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/CurveDialog.h>

#include <wx/weakref.h>

namespace Ostrel::Gallery {

namespace {

constexpr const char* CHANNELS[] = {"Master", "Red", "Green", "Blue"};
static_assert(std::size(CHANNELS) == CURVE_CHANNEL_COUNT);

using Report = Function<void(const wxString&)>;

/// The gallery's picture, to the panel and to the dialog around it.
class DialogCallbacks : public Wx::ICurveDialogCallbacks, public Wx::ICurvePanelCallbacks {
public:
    DialogCallbacks(const Picture& picture, bool hasExtras, Report report)
        : _picture(picture)
        , _hasExtras(hasExtras)
        , _report(std::move(report)) {}

    /// Itself. To be called before the dialog is built.
    void setPanelCallbacks(const SharedPtr<DialogCallbacks>& self) { _self = self; }

    SharedPtr<Wx::ICurvePanelCallbacks> getPanelCallbacks() override { return _self.lock(); }
    Wx::CurveDialogFileRow getFileRow() override {
        if (!_hasExtras) {
            return {};
        }
        return {"contrast.acv", {{"Report", [this] { _report("the host's own button"); }}}};
    }
    bool isPickWanted() override { return _hasExtras; }
    bool isEqualizeWanted() override { return _hasExtras; }
    void onDropdownShown(wxWindow*) override { _report("onDropdownShown"); }
    void onDropdownHidden(wxWindow*) override { _report("onDropdownHidden"); }

    Histogram getHistogram(std::pair<float, float> range, CurveChannel channel, int binCount) override {
        return Histogram::compute(_picture.image, channel, range.first, range.second, binCount);
    }
    Optional<int> getHistogramRefreshInterval() override { return {}; }
    Optional<Rgb> getPixelColor(Pixel) override { return {}; }
    void onCurveChanged(CurveChannel channel, const Curve& curve) override {
        _report(wxString::Format("onCurveChanged(%s, %zu points)", CHANNELS[static_cast<int>(channel)],
                                 curve.getPoints().size()));
    }
    std::int64_t getChangeDelay() override { return 0; }

private:
    const Picture& _picture;
    bool _hasExtras;
    Report _report;
    std::weak_ptr<DialogCallbacks> _self;
};

class CurveDialogPage : public Page {
public:
    explicit CurveDialogPage(const PageContext& context)
        : Page(context, "Curve dialog",
               "CurveDialog is a window around a curve panel, with all that is done to its curves. It can be enlarged.")
        , _picture(context.picture) {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        addToRow(*row, makeButton("All of it", [this] { open({}, true); }), GRID);
        addToRow(*row, makeButton("The least", [this] { open({}, false); }), GRID);
        addToRow(*row, makeButton("Close them", [this] { closeAll(); }), GRID);
        addSection("Open",
                   "With all that a host can have in it, or without. The picture is that of the page \"Picture\".")
            ->Add(row);
        _stage = new wxPanel(this, wxID_ANY, wxDefaultPosition, Wx::scaleByDpi(wxSize(CONTENT_WIDTH, STAGE_HEIGHT)),
                             wxBORDER_NONE);
        afterSkin([this] { _stage->SetBackgroundColour(Wx::toWxColour(Wx::GuiSkin().darkGrey)); });
        content().AddSpacer(Wx::scaleByDpi(2 * GRID));
        content().Add(_stage);
    }

    ~CurveDialogPage() override { closeAll(); }

    void onPageShown(bool shown) override {
        if (!shown) {
            closeAll();
        }
    }

    void arrangeForPicture() override {
        closeAll();
        ColorCurve curves;
        curves[CurveChannel::MASTER] = Curve({{0.0f, 0.0f}, {0.25f, 0.15f}, {0.7f, 0.84f}, {1.0f, 1.0f}});
        curves[CurveChannel::BLUE] =
            Curve({{0.0f, 0.1f}, {0.4f, 0.28f}, {0.75f, 0.8f}, {1.0f, 0.9f}}, CurveInterpolation::LINEAR);
        moveToStage(*open(curves, true), 0);
        moveToStage(*open({}, false), 1);
    }

private:
    static constexpr int STAGE_HEIGHT = 436;
    static constexpr int STAGE_MARGIN = 4;

    Wx::CurveDialog* open(const ColorCurve& curves, bool hasExtras) {
        const auto callbacks = std::make_shared<DialogCallbacks>(
            _picture, hasExtras, [this](const wxString& what) { log().report("CurveDialog", what); });
        callbacks->setPanelCallbacks(callbacks);
        auto* const dialog = new Wx::CurveDialog(wxGetTopLevelParent(this), Wx::GuiSkin(),
                                                 hasExtras ? "Tone curves" : "Curves alone", curves, callbacks);
        _dialogs.emplace_back(dialog);
        return dialog;
    }

    /// The stage has two columns.
    void moveToStage(Wx::CurveDialog& dialog, int column) {
        const int width = _stage->GetClientSize().x / 2;
        const int left = column * width + (width - dialog.GetSize().x) / 2;
        dialog.Move(_stage->ClientToScreen(wxPoint(left, Wx::scaleByDpi(STAGE_MARGIN))));
    }

    void closeAll() {
        for (const wxWeakRef<Wx::CurveDialog>& dialog : std::exchange(_dialogs, {})) {
            if (dialog) {
                dialog->Close();
            }
        }
    }

    const Picture& _picture;
    wxPanel* _stage{};
    Array<wxWeakRef<Wx::CurveDialog>> _dialogs;
};

const PageRegistration registration = registerPage<CurveDialogPage>(710, "Curve dialog");

} // namespace

} // namespace Ostrel::Gallery
