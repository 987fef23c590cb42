#include <OstrelLibWx/widgets/CurvePanel.h>

#include <OstrelLib/Exceptions.h>
#include <OstrelLibWx/WindowUtils.h>

#include "support/WidgetTest.h"

#include <gmock/gmock.h>
#include <wx/weakref.h>

#include <algorithm>
#include <limits>

namespace Ostrel::Wx {
namespace {

using enum CurveChannel;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr PixelColour PLOT_GROUND{60, 60, 60};
constexpr PixelColour GRID{120, 120, 120};
constexpr PixelColour MARGIN_GROUND{68, 68, 68};
constexpr PixelColour BARS{170, 170, 170};
constexpr PixelColour RED_BARS{220, 100, 100};
constexpr PixelColour RED_LINE{255, 0, 0};
constexpr PixelColour BLACK{0, 0, 0};
constexpr PixelColour WHITE{255, 255, 255};
constexpr int PLOT = 200;

/// Answers, notes what it is asked and told, and does something in the middle of it.
class Host : public ICurvePanelCallbacks {
public:
    Histogram getHistogram(std::pair<float, float> range, CurveChannel channel, int binCount) override {
        call(wxString::Format("histogram %g %d %d", static_cast<double>(range.second), static_cast<int>(channel),
                              binCount));
        return histogram;
    }
    Optional<int> getHistogramRefreshInterval() override { return interval; }
    Optional<Rgb> getPixelColor(Pixel pixel) override {
        call(wxString::Format("pixel %d %d", pixel.x, pixel.y));
        return colour;
    }
    void onCurveChanged(CurveChannel channel, const Curve& curve) override {
        call(wxString::Format("changed %d %d", static_cast<int>(channel), static_cast<int>(curve.getPoints().size())));
    }
    std::int64_t getChangeDelay() override { return onCall("delay"), delay; }

    void call(const wxString& what) {
        log.push_back(what.ToStdString());
        onCall(log.back());
    }
    std::vector<std::string> takeLog() { return std::exchange(log, {}); }

    Histogram histogram;
    Optional<int> interval;
    Optional<Rgb> colour;
    std::int64_t delay = 0;
    std::function<void(std::string)> onCall = [](const std::string&) {};
    std::vector<std::string> log;
};

class CurvePanelTest : public WidgetTest {
protected:
    static wxSize withMargins(int width, int height) { return wxSize(width, height) + wxSize(2, 2) * scaleByDpi(5); }
    CurvePanel* makePanel() {
        auto* const made = new CurvePanel(&panel(), GuiSkin(), withMargins(PLOT, PLOT), ColorCurve(), host);
        showAll();
        return made;
    }
    void make() {
        host = std::make_shared<Host>();
        curves = makePanel();
        host->log.clear();
    }
    /// That many pixels from the lower left corner of the plot.
    static wxPoint at(int right, int up) { return wxPoint(right, PLOT - up) + wxPoint(1, 1) * scaleByDpi(5); }
    static void send(CurvePanel& to, wxEventType type, wxPoint point, int rotation = 0) {
        wxMouseEvent event(type);
        event.SetPosition(point);
        event.m_wheelRotation = rotation;
        to.ProcessWindowEvent(event);
    }
    void turnWheel(int steps) {
        for (int i = 0; i < std::abs(steps); ++i) {
            send(*curves, wxEVT_MOUSEWHEEL, {}, steps);
        }
    }
    void drag(wxPoint from, wxPoint to) {
        movePointer(*curves, from);
        pressButton();
        EXPECT_TRUE(pumpUntil([this] { return curves->HasCapture(); })) << "the press did not arrive";
        movePointer(*curves, to);
    }
    static wxImage picture(const CurvePanel& of) {
        return paintOffScreen(
            of.GetSize(), [&of](wxDC& dc) { of.paint(dc); }, *wxCYAN);
    }
    PixelColour colourAt(wxPoint point) { return pixelAt(picture(*curves), point.x, point.y); }
    Array<CurvePoint> points() { return curves->getCurrentCurves()[curves->getSelectedCurveChannel()].getPoints(); }

    std::shared_ptr<Host> host;
    wxWeakRef<CurvePanel> curves;
};

using CurvePanelMouse = CurvePanelTest;
using CurvePanelHost = CurvePanelTest;
using CurvePanelLook = CurvePanelTest;

TEST_F(CurvePanelMouse, AddsDragsAndDeletesPoints) {
    make();
    click(*curves, at(50, 150));
    settle();
    EXPECT_THAT(host->log, IsEmpty()) << "neither a point nor the curve is there";
    drag(at(100, 100), at(140, 60));
    EXPECT_TRUE(pumpUntil([this] { return points()[1] == CurvePoint{0.7F, 0.3F}; }));
    EXPECT_GE(host->takeLog().size(), 2u);
    releaseButton();
    EXPECT_TRUE(pumpUntil([this] { return !curves->HasCapture(); }));
    click(*curves, at(0, 0), wxMOUSE_BTN_RIGHT);
    settle();
    EXPECT_THAT(host->log, IsEmpty()) << "the drag is over, and the ends stay";
    click(*curves, at(140, 60), wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(pumpUntil([this] { return !host->log.empty(); }));
    EXPECT_THAT(host->log, ElementsAre("changed 0 2"));
}

TEST_F(CurvePanelMouse, EndsADragWhenItIsTakenAway) {
    make();
    for (const bool disabled : {false, true}) {
        curves->setCurves(ColorCurve());
        drag(at(100, 100), at(100, 150));
        EXPECT_TRUE(pumpUntil([this] { return points()[1] == CurvePoint{0.5F, 0.75F}; }));
        wxMouseCaptureLostEvent lost;
        disabled ? curves->Enable(false) : curves->ProcessWindowEvent(lost);
        EXPECT_FALSE(curves->HasCapture());
        curves->Enable(true);
        movePointer(*curves, at(100, 40));
        releaseButton();
        settle();
        EXPECT_EQ(points()[1], (CurvePoint{0.5F, 0.75F})) << disabled;
    }
}

TEST_F(CurvePanelHost, PicksAPointAndMovesItUpAndDown) {
    make();
    const AutoPtr<ICurvePanelController> controller = curves->getController();
    controller->beginPick({7, 300});
    controller->movePick({7, 200});
    EXPECT_THAT(host->takeLog(), ElementsAre("pixel 7 300")) << "there is no colour";
    host->colour = Rgb{0.25F, 0.5F, 0.75F};
    curves->setSelectedCurve(BLUE);
    controller->beginPick({8, 300});
    EXPECT_FALSE(curves->HasCapture());
    controller->movePick({90, 280});
    controller->movePick({-90, 270});
    controller->endPick();
    controller->movePick({0, 0});
    EXPECT_THAT(host->takeLog(), ElementsAre("pixel 8 300", "changed 3 3", "changed 3 3", "changed 3 3"));
    EXPECT_EQ(points()[1], (CurvePoint{0.75F, 0.9F}));
}

TEST_F(CurvePanelHost, IsAskedForTheHistogramOfWhatIsShown) {
    make();
    const std::pair<std::function<void()>, std::string> steps[] = {
        {[this] { curves->resize(withMargins(100, 50)); }, "histogram 1 0 100"},
        {[this] { curves->SetSize(withMargins(60, 50)); }, "histogram 1 0 60"},
        {[this] { curves->setSelectedCurve(GREEN), curves->updateHistogram(); }, "histogram 1 2 60"},
        {[this] { curves->setHistogramType(HistogramType::CUMULATIVE); }, "histogram 1 2 60"},
        {[this] { turnWheel(1); }, "histogram 0.666667 2 60"},
        {[this] {
             curves->resize({1, 1});
         },
         "histogram 0.666667 2 0"}};
    for (const auto& [step, asked] : steps) {
        step();
        pump();
        EXPECT_THAT(host->takeLog(), ElementsAre(asked));
    }
    EXPECT_THROW(curves->setHistogramType(HistogramType(-1)), Detail::StopException);
    EXPECT_THROW(new CurvePanel(&panel(), GuiSkin(), {9, 9}, ColorCurve(), nullptr), Detail::StopException);
    host->interval = 1;
    makePanel();
    EXPECT_TRUE(pumpUntil([this] { return host->log.size() > 3; })) << "again and again";
}

TEST_F(CurvePanelHost, IsToldOfABurstWhenItPauses) {
    make();
    curves->setCurves(ColorCurve());
    curves->setCurve(Curve(), RED, false);
    EXPECT_THAT(host->takeLog(), ElementsAre("changed 0 2", "changed 1 2", "changed 2 2", "changed 3 2"));
    CurvePanel* const other = makePanel();
    host->log.clear();
    host->delay = 20;
    for (int i = 0; i < 5; ++i) {
        curves->setCurve(Curve(), BLUE, true);
        send(*curves, wxEVT_LEFT_DOWN, at(100, 100));
        send(*curves, wxEVT_LEFT_UP, at(100, 100));
    }
    EXPECT_THAT(host->log, IsEmpty());
    EXPECT_TRUE(pumpUntil([this] { return !host->log.empty(); }));
    EXPECT_THAT(host->takeLog(), ElementsAre("changed 0 3", "changed 3 2"));
    curves->setCurve(Curve(), BLUE, true);
    curves->Destroy();
    other->setCurve(Curve(), GREEN, true); // when this is told, the other timer's time is past
    EXPECT_TRUE(pumpUntil([this] { return !host->log.empty(); }));
    EXPECT_THAT(host->log, ElementsAre("changed 2 2"));
}

TEST_F(CurvePanelHost, MayCallBackIntoThePanel) {
    make();
    host->onCall = [this](const std::string& what) {
        if (what == "changed 0 2") {
            curves->setCurve(Curve({{0, 1}, {0.5F, 0.5F}, {1, 0}}), BLUE, true);
            curves->setSelectedCurve(GREEN);
            turnWheel(1);
        } else if (what == "changed 2 3") {
            curves->setCurve(Curve(), GREEN, false); // while its point is being dragged
        }
    };
    curves->setCurves(ColorCurve());
    EXPECT_THAT(host->takeLog(),
                ElementsAre("changed 0 2", "changed 1 2", "changed 2 2", "changed 3 3", "histogram 0.666667 2 200"));
    send(*curves, wxEVT_LEFT_DOWN, at(150, 150));
    EXPECT_TRUE(curves->HasCapture());
    send(*curves, wxEVT_MOTION, at(150, 50));
    EXPECT_EQ(points().size(), 2u);
}

TEST_F(CurvePanelHost, MayDestroyThePanelInAnyCall) {
    const auto press = [this] { send(*curves, wxEVT_LEFT_DOWN, at(100, 100)); };
    const auto setCurves = [this] { curves->setCurves(ColorCurve()); };
    const auto pick = [this] { curves->getController()->beginPick({}); };
    const std::tuple<std::string, std::function<void()>, int> cases[] = {{"delay", press, 0},
                                                                         {"changed", press, 0},
                                                                         {"changed", setCurves, 0},
                                                                         {"changed", setCurves, 1},
                                                                         {"pixel", pick, 0},
                                                                         {"changed", pick, 0},
                                                                         {"histogram", [this] { turnWheel(1); }, 0},
                                                                         {"histogram",
                                                                          [this] {
                                                                              curves->resize({99, 99});
                                                                          },
                                                                          0}};
    for (const auto& [call, cause, delay] : cases) {
        SCOPED_TRACE(call);
        make();
        host->colour = Rgb{0.5F, 0.5F, 0.5F};
        host->delay = delay;
        host->onCall = [this, expected = call](const std::string& now) {
            if (now.starts_with(expected)) {
                curves->Destroy();
                host.reset(); // the panel had the only other reference
            }
        };
        cause();
        EXPECT_TRUE(pumpUntil([this] { return !curves; }));
    }
    for (const bool moving : {false, true}) { // real input, which the window system goes on with
        make();
        movePointer(*curves, at(100, 100));
        moving ? pressButton() : pump();
        EXPECT_TRUE(pumpUntil([this, moving] { return curves->HasCapture() == moving; }));
        host->onCall = [this](const std::string&) { curves->Destroy(); };
        moving ? input().MouseMove(onScreen(*curves, at(100, 60))) : input().MouseDown();
        EXPECT_TRUE(pumpUntil([this] { return !curves; }));
        EXPECT_EQ(wxWindow::GetCapture(), nullptr);
        releaseButton();
    }
}

TEST_F(CurvePanelLook, HasGridHistogramCurvesAndPoints) {
    make();
    Array<std::uint64_t> bins(PLOT, 0);
    bins[30] = 1;
    bins[60] = 99;
    host->histogram = Histogram(bins, 0, 1);
    const int line = scaleByDpi(1);
    const int radius = scaleByDpi(4);
    const auto look = [this](std::initializer_list<std::pair<wxPoint, PixelColour>> expected) {
        const wxImage image = picture(*curves);
        for (const auto& [place, colour] : expected) {
            EXPECT_EQ(pixelAt(image, place.x, place.y), colour) << "pixel " << place.x << ", " << place.y;
        }
        EXPECT_FALSE(hasColour(image, {0, 255, 255})) << "all is painted over";
    };
    curves->setCurve(Curve({{0, 0.25F}, {1, 0.25F}}), RED, false);
    curves->setHistogramType(HistogramType::LINEAR);
    look({{{1, 1}, MARGIN_GROUND},
          {at(40, 10), PLOT_GROUND},
          {at(60, 190), BARS},
          {at(30, 10), PLOT_GROUND},
          {at(99, 100), BLACK},
          {at(101, 101), BLACK},
          {at(0, 0), WHITE},
          {at(0, 50), GRID}});
    curves->setHistogramType(HistogramType::LOGARITHMIC);
    look({{at(30, 10), BARS}, {at(30, 35), PLOT_GROUND}});
    curves->setSelectedCurve(RED);
    curves->setHistogramType(HistogramType::CUMULATIVE);
    look({{at(65, 190), RED_BARS},
          {at(30, 10), PLOT_GROUND},
          {at(55, 50), RED_LINE},
          {at(0, 50), WHITE},
          {at(-radius, 100), MARGIN_GROUND},
          {at(175, 172), RED_BARS}}); // no curve beside the dashes of the diagonal

    curves->setCurves({{Curve(), Curve({{-0.01F, 0.02F}, {1.01F, 0.02F}}), Curve(), Curve()}});
    look({{at(-2, 5), MARGIN_GROUND}, {at(202, 5), MARGIN_GROUND}}); // circles that would be cut off
    host->histogram = {};
    turnWheel(-1); // the value 1 lies at 133 of the 200 pixels
    look({{at(line, 190), GRID},
          {at(116, 190), GRID},
          {at(116 + line, 190), PLOT_GROUND},
          {at(190, 116), GRID},
          {at(133, 190), GRID},
          {at(133 + line, 190), GRID},
          {at(190, 133 + line), GRID}});
    turnWheel(-4); // lines at every third or fourth pixel
    look({{at(26, 190), GRID}, {at(26 + line, 190), GRID}, {at(29, 190), GRID}});
    turnWheel(10);
    look({{at(189, 10), GRID}, {at(100, 189), GRID}, {at(100, 10), PLOT_GROUND}});
}

TEST_F(CurvePanelLook, MarksTheCurveUnderTheMouse) {
    make();
    curves->setCurve(Curve({{0, 0.5F}, {1, 0.5F}}), MASTER, false);
    const wxPoint circle = at(70, 100 + scaleByDpi(4));
    movePointer(*curves, at(60, 20));
    movePointer(*curves, at(70, 20));
    EXPECT_TRUE(pumpUntil([&] { return colourAt(circle).red > 150; }));
    EXPECT_NE(colourAt(at(70, 100)), WHITE) << "not filled";
    drag(at(70, 100), at(90, 20));
    EXPECT_TRUE(pumpUntil([&] { return colourAt(circle) == PLOT_GROUND; }));
    releaseButton();
    EXPECT_TRUE(pumpUntil([this] { return pixelAt(capture(*curves), at(90, 20).x, at(90, 20).y) == WHITE; }));
}

TEST_F(CurvePanelLook, IsThatOfANewPanelAfterEveryChange) {
    make();
    host->histogram = Histogram(Array<std::uint64_t>(PLOT, 1), 0, 1);
    const std::function<void(CurvePanel&)> steps[] = {
        [](CurvePanel& of) { of.updateHistogram(); },
        [](CurvePanel& of) {
            of.setCurve(Curve({{0, 0.3F}, {1, 0.6F}}), BLUE, false);
        },
        [](CurvePanel& of) {
            of.setCurve(Curve({{0, 0.9F}, {1, 0.1F}}), MASTER, false);
        },
        [](CurvePanel& of) { send(of, wxEVT_LEFT_DOWN, at(100, 100)), send(of, wxEVT_MOTION, at(80, 140)); },
        [](CurvePanel& of) { send(of, wxEVT_LEFT_UP, at(80, 140)), send(of, wxEVT_RIGHT_UP, at(80, 140)); },
        [](CurvePanel& of) { of.setSelectedCurve(BLUE); },
        [](CurvePanel& of) { of.setHistogramType(HistogramType::CUMULATIVE); },
        [](CurvePanel& of) { of.resize(withMargins(180, 160)); },
        [](CurvePanel& of) { of.setCurves(ColorCurve()); }};
    for (std::size_t count = 1; count <= std::size(steps); ++count) {
        steps[count - 1](*curves);
        CurvePanel* const fresh = makePanel();
        std::for_each_n(std::begin(steps), count, [fresh](const auto& step) { step(*fresh); });
        const wxImage seen = picture(*curves);
        const wxImage expected = picture(*fresh);
        const auto size = static_cast<std::size_t>(seen.GetWidth()) * static_cast<std::size_t>(seen.GetHeight()) * 3;
        EXPECT_TRUE(std::equal(seen.GetData(), seen.GetData() + size, expected.GetData())) << "after step " << count;
        fresh->Destroy();
    }
}

TEST_F(CurvePanelLook, SurvivesAnySizeAndAnyNumbers) {
    make();
    for (const wxSize size : {wxSize(1, 1), wxSize(9, 300), wxSize(300, 10), wxSize(11, 11), wxSize(300, 200)}) {
        curves->resize(size);
        for (const float odd :
             {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(), 3e38F}) {
            curves->setCurves({{Curve({{0, odd}, {odd, 0.5F}, {1, odd}}), Curve({{-odd, -odd}}),
                                Curve(Array<CurvePoint>()), Curve({{0, -odd}, {1, odd}}, CurveInterpolation::LINEAR)}});
            send(*curves, wxEVT_MOTION, {3, 3});
            EXPECT_EQ(colourAt({size.x / 2, size.y - 1}), MARGIN_GROUND) << size.x << ", " << odd;
        }
    }
}

} // namespace
} // namespace Ostrel::Wx
