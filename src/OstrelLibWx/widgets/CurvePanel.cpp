#include <OstrelLibWx/widgets/CurvePanel.h>

#include <OstrelLib/Exceptions.h>
#include <OstrelLibWx/WindowUtils.h>

#include "models/CurveEditing.h"
#include "painting/CurvePainting.h"
#include "painting/ToolkitTypes.h"
#include "widgets/Require.h"

#include <wx/cursor.h>
#include <wx/timer.h>
#include <wx/weakref.h>

#include <algorithm>
#include <array>
#include <chrono>

namespace Ostrel::Wx {

namespace {

// Design pixels.
constexpr int MARGIN = 5;
constexpr int HIT_RADIUS = 12;
constexpr int POINT_RADIUS = 4;
constexpr int LINE_WIDTH = 1;

constexpr int CHANGE_TIMER_ID = 0;
constexpr int HISTOGRAM_TIMER_ID = 1;

constexpr std::array<CurveChannel, CURVE_CHANNEL_COUNT> ALL_CHANNELS{CurveChannel::MASTER, CurveChannel::RED,
                                                                     CurveChannel::GREEN, CurveChannel::BLUE};

std::int64_t getMilliseconds() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

ICurvePanelCallbacks::~ICurvePanelCallbacks() = default;

ICurvePanelController::~ICurvePanelController() = default;

struct CurvePanel::Impl {
    CurveEditing editing;
    wxTimer histogramTimer{};
    SharedPtr<ICurvePanelCallbacks> callbacks;
    wxTimer changeTimer{};
    GuiSkin skin;
    CurvePanelPainting painting;
    const wxCursor onPoint{wxCURSOR_SIZING};
    const wxCursor elsewhere{wxCURSOR_CROSS};
    bool isResizing = false;
};

CurvePanel::CurvePanel(wxWindow* parent, const GuiSkin& skin, wxSize size, ColorCurve curves,
                       SharedPtr<ICurvePanelCallbacks> callbacks)
    : PaintedPanel(parent, wxID_ANY, wxDefaultPosition, size, wxNO_BORDER | wxTAB_TRAVERSAL, "CurvePanel")
    , _impl(new Impl{
          .editing = CurveEditing(std::move(curves), scaleByDpi(MARGIN), scaleByDpi(HIT_RADIUS)),
          .callbacks = require(std::move(callbacks), "widgets/CurvePanel", __LINE__),
          .skin = skin,
          .painting = CurvePanelPainting({.line = scaleByDpi(LINE_WIDTH), .pointRadius = scaleByDpi(POINT_RADIUS)})}) {
    Bind(wxEVT_LEFT_DOWN, &CurvePanel::onMouseDown, this);
    // The second press of a double-click is a press like any other.
    Bind(wxEVT_LEFT_DCLICK, &CurvePanel::onMouseDown, this);
    Bind(wxEVT_LEFT_UP, &CurvePanel::onMouseUp, this);
    Bind(wxEVT_RIGHT_UP, &CurvePanel::onRightUp, this);
    Bind(wxEVT_MOTION, &CurvePanel::onMouseMove, this);
    Bind(wxEVT_TIMER, &CurvePanel::onTimer, this);
    Bind(wxEVT_MOUSEWHEEL, &CurvePanel::onMouseWheel, this);
    _impl->changeTimer.SetOwner(this, CHANGE_TIMER_ID);
    _impl->histogramTimer.SetOwner(this, HISTOGRAM_TIMER_ID);
    if (const Optional<int> interval = _impl->callbacks->getHistogramRefreshInterval()) {
        _impl->histogramTimer.Start(std::max(*interval, 1));
    }
    resize(size);
    Bind(wxEVT_SIZE, &CurvePanel::onSize, this);
    Bind(wxEVT_ERASE_BACKGROUND, [](wxEraseEvent&) {});
    Bind(wxEVT_MOUSE_CAPTURE_LOST, &CurvePanel::onCaptureLost, this);
}

CurvePanel::~CurvePanel() {
    if (HasCapture()) {
        ReleaseMouse();
    }
    _impl->changeTimer.Stop();
    _impl->histogramTimer.Stop();
}

void CurvePanel::resize(wxSize size) {
    // Not within the toolkit's event, where the callbacks could not destroy the panel.
    _impl->isResizing = true;
    SetSize(size);
    _impl->isResizing = false;
    followSize();
    updateHistogram();
}

void CurvePanel::setCurve(Curve curve, CurveChannel channel, bool notify) {
    _impl->editing.setCurve(std::move(curve), channel);
    refreshAll();
    if (notify) {
        reportChanges({&channel, 1});
    }
}

void CurvePanel::setCurves(ColorCurve curves) {
    _impl->editing.setCurves(std::move(curves));
    refreshAll();
    reportChanges(ALL_CHANNELS);
}

ColorCurve CurvePanel::getCurrentCurves() const {
    return _impl->editing.getCurves();
}

void CurvePanel::setSelectedCurve(CurveChannel channel) {
    _impl->editing.selectChannel(channel);
    refreshAll();
}

CurveChannel CurvePanel::getSelectedCurveChannel() const {
    return _impl->editing.getSelectedChannel();
}

void CurvePanel::setHistogramType(HistogramType type) {
    _impl->editing.setHistogramType(type);
    refreshAll();
    updateHistogram();
}

void CurvePanel::updateHistogram() {
    const CurveEditing& editing = _impl->editing;
    const CurvePlot& plot = editing.getPlot();
    const wxWeakRef<CurvePanel> self(this);
    const SharedPtr<ICurvePanelCallbacks> callbacks = _impl->callbacks; // outlives the panel during the call
    Histogram histogram =
        callbacks->getHistogram({0.0F, 1.0F / plot.zoom}, editing.getSelectedChannel(), std::max(plot.size.x, 0));
    if (self) {
        if (_impl->editing.setHistogram(std::move(histogram))) {
            _impl->painting.forgetAll();
        }
        Refresh();
    }
}

AutoPtr<ICurvePanelController> CurvePanel::getController() {
    class CurvePanelController : public ICurvePanelController {
    public:
        explicit CurvePanelController(CurvePanel* panel)
            : _panel(panel) {}

        void beginPick(Pixel pixel) override {
            const wxWeakRef<CurvePanel> panel(_panel);
            const SharedPtr<ICurvePanelCallbacks> callbacks = _panel->_impl->callbacks;
            const Optional<Rgb> colour = callbacks->getPixelColor(pixel);
            if (panel && colour) {
                _lastPixel = pixel;
                _panel->applyEdit(_panel->_impl->editing.pick(*colour));
            }
        }

        void endPick() override {
            _panel->_impl->editing.release();
            _panel->Refresh();
        }

        void movePick(Pixel pixel) override {
            CurveEditing& editing = _panel->_impl->editing;
            if (editing.isDragging()) {
                const int distance = (pixel - _lastPixel).y;
                _lastPixel = pixel;
                _panel->applyEdit(editing.dragVertically(distance));
            }
        }

    private:
        CurvePanel* _panel;
        Pixel _lastPixel;
    };
    return AutoPtr<ICurvePanelController>(new CurvePanelController(this));
}

Pixel CurvePanel::getPlotSize() const {
    return _impl->editing.getPlot().size;
}

float CurvePanel::getZoom() const {
    return _impl->editing.getPlot().zoom;
}

bool CurvePanel::Enable(bool enable) {
    if (!enable) {
        endDrag(); // a disabled window hears of no release, and would keep the mouse
    }
    return PaintedPanel::Enable(enable);
}

void CurvePanel::paint(wxDC& dc) const {
    _impl->painting.paint(dc, _impl->editing, _impl->skin);
}

void CurvePanel::onMouseDown(wxMouseEvent& event) {
    const wxWeakRef<CurvePanel> self(this);
    CurveEditing& editing = _impl->editing;
    applyEdit(editing.press(editing.getPlot().clamp(toPixel(event.GetPosition()))));
    if (self && editing.isDragging() && !HasCapture()) { // what was told of the press may have ended it
        CaptureMouse();
    }
}

void CurvePanel::onMouseUp(wxMouseEvent&) {
    endDrag();
}

void CurvePanel::onRightUp(wxMouseEvent& event) {
    applyEdit(_impl->editing.removePoint(toPixel(event.GetPosition())));
}

void CurvePanel::onMouseMove(wxMouseEvent& event) {
    event.Skip();
    const Pixel pixel = toPixel(event.GetPosition());
    CurveEditing& editing = _impl->editing;
    if (editing.isDragging()) {
        const wxWeakRef<CurvePanel> self(this);
        editing.stopHovering();
        SetCursor(_impl->elsewhere);
        applyEdit(editing.drag(pixel));
        event.Skip(static_cast<bool>(self)); // else the toolkit would go on with a window that is gone
        return;
    }
    refreshMark();
    editing.hover(pixel);
    refreshMark();
    SetCursor(editing.findPoint(pixel) ? _impl->onPoint : _impl->elsewhere);
}

void CurvePanel::onTimer(wxTimerEvent& event) {
    if (event.GetId() == CHANGE_TIMER_ID) {
        reportWhenDue();
    } else if (event.GetId() == HISTOGRAM_TIMER_ID) {
        updateHistogram();
    }
}

void CurvePanel::onMouseWheel(wxMouseEvent& event) {
    _impl->editing.zoom(event.GetWheelRotation());
    refreshAll();
    updateHistogram();
}

void CurvePanel::onSize(wxSizeEvent& event) {
    event.Skip();
    if (!_impl->isResizing && followSize()) {
        updateHistogram();
    }
}

void CurvePanel::onCaptureLost(wxMouseCaptureLostEvent&) {
    endDrag();
}

bool CurvePanel::followSize() {
    const wxSize size = GetClientSize();
    const bool isAnother = _impl->editing.setClientSize({size.x, size.y});
    if (isAnother) {
        refreshAll();
    }
    return isAnother;
}

void CurvePanel::endDrag() {
    if (HasCapture()) {
        ReleaseMouse();
    }
    _impl->editing.release();
    Refresh();
}

void CurvePanel::refreshMark() {
    if (const Optional<CurvePoint> mark = _impl->editing.getHoverPoint()) {
        const Pixel middle = _impl->editing.getPlot().toPixel(*mark);
        const int reach = scaleByDpi(POINT_RADIUS) + scaleByDpi(LINE_WIDTH);
        RefreshRect(wxRect(middle.x - reach, middle.y - reach, 2 * reach + 1, 2 * reach + 1));
    }
}

void CurvePanel::refreshAll() {
    _impl->painting.forgetAll();
    Refresh();
}

void CurvePanel::applyEdit(bool changed) {
    _impl->painting.forgetSelectedCurve();
    Refresh();
    if (changed) {
        const CurveChannel channel = _impl->editing.getSelectedChannel();
        reportChanges({&channel, 1});
    }
}

void CurvePanel::reportChanges(ArrayView<const CurveChannel> channels) {
    const wxWeakRef<CurvePanel> self(this);
    const SharedPtr<ICurvePanelCallbacks> callbacks = _impl->callbacks;
    const std::int64_t delay = callbacks->getChangeDelay();
    if (self) {
        _impl->editing.mergeChanges(channels, delay, getMilliseconds());
        reportWhenDue();
    }
}

void CurvePanel::reportWhenDue() {
    const Optional<int> wait = _impl->editing.getWait(getMilliseconds());
    if (!wait) {
        return;
    }
    if (*wait > 0) {
        _impl->changeTimer.StartOnce(*wait);
    } else {
        reportPendingChanges();
    }
}

void CurvePanel::reportPendingChanges() {
    const wxWeakRef<CurvePanel> self(this);
    const SharedPtr<ICurvePanelCallbacks> callbacks = _impl->callbacks;
    while (self) {
        const Optional<CurveChannel> channel = _impl->editing.takePendingChannel();
        if (!channel) {
            return;
        }
        callbacks->onCurveChanged(*channel, _impl->editing.getCurves()[*channel]);
    }
}

} // namespace Ostrel::Wx
