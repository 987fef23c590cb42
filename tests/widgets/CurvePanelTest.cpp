#include <OstrelLibWx/widgets/CurvePanel.h>

#include <OstrelLib/Exceptions.h>

#include "support/WidgetTest.h"

#include <wx/dcscreen.h>

#include <cstring>
#include <limits>
#include <map>

namespace Ostrel::Wx {
namespace {

using enum CurveChannel;
using testing::ElementsAre;

constexpr int PLOT = 200;

/// Notes what it is asked and told, and then does something.
class Host : public ICurvePanelCallbacks {
public:
    Histogram getHistogram(std::pair<float, float> range, CurveChannel channel, int bins) override {
        return call(wxString::Format("histogram %.2f %d %d", double{range.second}, int(channel), bins)), histogram;
    }
    Optional<int> getHistogramRefreshInterval() override { return interval; }
    Optional<Rgb> getPixelColor(Pixel pixel) override { return call(wxString::Format("pixel %d", pixel.x)), colour; }
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

class CurvePanelWindow : public WidgetTest {
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
    void send(wxEventType type, wxPoint point, int rotation = 0) {
        wxMouseEvent event(type);
        event.SetPosition(point);
        event.m_wheelRotation = rotation;
        curves->ProcessWindowEvent(event);
    }
    void turnWheel(int steps) {
        for (int i = 0; i < std::abs(steps); ++i) {
            send(wxEVT_MOUSEWHEEL, {}, steps);
        }
    }
    void drag(wxPoint from, wxPoint to) {
        pressOn(*curves, from);
        movePointer(*curves, to);
    }
    /// The panel's picture, which keeps to the panel's place in a larger bitmap and is the same when painted anew.
    wxImage picture() {
        const wxRect place({20, 20}, curves->GetSize());
        const auto paint = [&](wxDC& dc) { dc.SetDeviceOrigin(place.x, place.y), curves->paint(dc); };
        wxImage seen = paintOffScreen(place.GetSize() + wxSize(40, 40), paint, *wxCYAN);
        curves->setSelectedCurve(curves->getSelectedCurveChannel()); // forgets all that is kept
        const wxImage fresh = paintOffScreen(seen.GetSize(), paint, *wxCYAN);
        const auto size = static_cast<std::size_t>(3 * seen.GetWidth() * seen.GetHeight());
        EXPECT_EQ(std::memcmp(seen.GetData(), fresh.GetData(), size), 0);
        seen.SetRGB(place, 0, 255, 255);
        EXPECT_EQ(std::memcmp(seen.GetData(), seen.GetData() + 3, size - 3), 0) << "not all beside it is as it was";
        return fresh.GetSubImage(place);
    }
    /// What the picture shows at these places, counted as for `at`: a letter for each, '?' for no colour that is known.
    std::string look(const std::vector<std::pair<int, int>>& places) { return look(places, picture()); }
    static std::string look(const std::vector<std::pair<int, int>>& places, const wxImage& image) {
        const std::pair<char, PixelColour> known[] = {
            {'m', {68, 68, 68}},    {'p', {60, 60, 60}}, {'#', {120, 120, 120}}, {'b', {170, 170, 170}},
            {'r', {220, 100, 100}}, {'K', {0, 0, 0}},    {'R', {255, 0, 0}},     {'W', {255, 255, 255}}};
        std::string seen;
        for (const auto& [right, up] : places) {
            const auto [red, green, blue] = pixelAt(image, at(right, up).x, at(right, up).y);
            std::map<int, char> byDistance{{45, '?'}}; // lines are smoothed, a little
            for (const auto& [letter, colour] : known) {
                byDistance[abs(red - colour.red) + abs(green - colour.green) + abs(blue - colour.blue)] = letter;
            }
            seen += byDistance.begin()->second;
        }
        return seen;
    }
    Array<CurvePoint> points() { return curves->getCurrentCurves()[curves->getSelectedCurveChannel()].getPoints(); }

    std::shared_ptr<Host> host;
    wxWeakRef<CurvePanel> curves;
};

TEST_F(CurvePanelWindow, AddsDragsAndDeletesPointsUntilItIsTakenAway) {
    make();
    click(*curves, at(50, 150));
    click(*curves, at(0, 0), wxMOUSE_BTN_RIGHT);
    settle();
    EXPECT_THAT(host->log, ElementsAre()) << "nothing is there, and the ends stay";
    drag(at(100, 100), at(140, 60));
    EXPECT_TRUE(pumpUntil([this] { return points()[1] == CurvePoint{0.7F, 0.3F}; }));
    EXPECT_TRUE(pumpUntil([this] { return pixelAt(capture(*curves), at(140, 60).x, at(140, 60).y).green == 255; }));
    releaseButton();
    click(*curves, at(140, 60), wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(pumpUntil([this] { return points().size() == 2; }));
    drag(at(100, 100), at(100, 150));
    EXPECT_TRUE(pumpUntil([this] { return points()[1] == CurvePoint{0.5F, 0.75F}; }));
    loseCapture(*curves);
    EXPECT_FALSE(curves->HasCapture());
    movePointer(*curves, at(100, 40));
    releaseButton();
    drag(at(100, 150), at(110, 130));
    EXPECT_TRUE(pumpUntil([this] { return points()[1] == CurvePoint{0.55F, 0.65F}; })) << "not moved since";
    curves->Enable(false);
    EXPECT_FALSE(curves->HasCapture());
}

TEST_F(CurvePanelWindow, IsDrivenThroughItsController) {
    make();
    const AutoPtr<ICurvePanelController> controller = curves->getController();
    controller->beginPick({7, 300}); // there is no colour
    controller->movePick({7, 200});
    host->colour = Rgb{0.25F, 0.5F, 0.75F};
    curves->setSelectedCurve(BLUE);
    controller->beginPick({8, 300});
    controller->movePick({90, 280});
    controller->movePick({-90, 270});
    controller->endPick();
    controller->movePick({0, 0});
    EXPECT_THAT(host->takeLog(), ElementsAre("pixel 7", "pixel 8", "changed 3 3", "changed 3 3", "changed 3 3"));
    EXPECT_EQ(points()[1], (CurvePoint{0.75F, 0.9F}));
}

TEST_F(CurvePanelWindow, AsksForTheHistogramOfWhatIsShown) {
    make();
    const std::pair<std::function<void()>, std::string> steps[] = {
        {[this] { curves->resize(withMargins(100, 50)); }, "histogram 1.00 0 100"},
        {[this] { curves->SetSize(withMargins(60, 50)); }, "histogram 1.00 0 60"},
        {[this] { curves->setSelectedCurve(GREEN), curves->updateHistogram(); }, "histogram 1.00 2 60"},
        {[this] { curves->setHistogramType(HistogramType::CUMULATIVE); }, "histogram 1.00 2 60"},
        {[this] { turnWheel(1); }, "histogram 0.67 2 60"},
        {[this] { curves->resize(withMargins(-9, -1)); }, "histogram 0.67 2 0"}};
    for (const auto& [step, asked] : steps) {
        step();
        pump(), picture(); // nothing is kept too long
        EXPECT_THAT(host->takeLog(), ElementsAre(asked));
    }
    EXPECT_THROW(curves->setSelectedCurve(CurveChannel(4)), Detail::StopException);
    EXPECT_THROW(new CurvePanel(&panel(), GuiSkin(), {9, 9}, ColorCurve(), nullptr), Detail::StopException);
    host->interval = 1, makePanel();
    EXPECT_TRUE(pumpUntil([this] { return host->log.size() > 3; })) << "again and again";
}

TEST_F(CurvePanelWindow, TellsOfABurstWhenItPauses) {
    make();
    host->delay = 20;
    for (const CurveChannel channel : {BLUE, GREEN, BLUE}) {
        curves->setCurve(Curve(), channel, true);
    }
    EXPECT_THAT(host->log, ElementsAre());
    EXPECT_TRUE(pumpUntil([this] { return !host->log.empty(); }));
    EXPECT_THAT(host->takeLog(), ElementsAre("changed 2 2", "changed 3 2"));

    curves->setCurve(Curve(), BLUE, true);
    curves->Destroy(); // what it has not told is never told
    curves = makePanel();
    host->log.clear();
    curves->setCurve(Curve(), GREEN, true); // when this is told, the other's time is past
    EXPECT_TRUE(pumpUntil([this] { return !host->log.empty(); }));
    EXPECT_THAT(host->log, ElementsAre("changed 2 2"));
}

TEST_F(CurvePanelWindow, MayBeCalledBackInto) {
    make();
    host->onCall = [this](const std::string& what) {
        if (what == "changed 0 2") {
            curves->setCurve(Curve({{0, 1}, {0.5F, 0.5F}, {1, 0}}), BLUE, true);
            curves->setSelectedCurve(GREEN);
        } else if (what == "changed 2 3") {
            curves->setCurve(Curve(), GREEN, false); // while its point is being dragged
        }
    };
    curves->setCurves(ColorCurve());
    EXPECT_THAT(host->log, ElementsAre("changed 0 2", "changed 1 2", "changed 2 2", "changed 3 3")) << "once each";
    send(wxEVT_LEFT_DOWN, at(150, 150));
    send(wxEVT_MOTION, at(150, 50));
    EXPECT_EQ(points().size(), 2u);
}

TEST_F(CurvePanelWindow, MayBeDestroyedInAnyCall) {
    const std::pair<std::string, std::function<void()>> cases[] = {
        {"delay", [this] { send(wxEVT_LEFT_DOWN, at(100, 100)); }},
        {"changed", [this] { send(wxEVT_RIGHT_UP, at(60, 100)); }},
        {"changed", [this] { host->delay = 1, curves->setCurves(ColorCurve()); }},
        {"pixel", [this] { curves->getController()->beginPick({}); }},
        {"changed", [this] { curves->getController()->beginPick({}); }},
        {"histogram", [this] { turnWheel(1); }},
        {"histogram", [this] { curves->resize(withMargins(9, 9)); }},
        {"changed", [this] { movePointer(*curves, at(100, 100)), pressButton(); }}, // real input, that goes on
        {"changed", [this] { drag(at(60, 100), at(100, 60)); }}};
    for (const auto& [call, cause] : cases) {
        SCOPED_TRACE(call);
        make();
        host->colour = Rgb{0.5F, 0.5F, 0.5F};
        curves->setCurve(Curve({{0, 0.5F}, {0.3F, 0.5F}, {1, 0.5F}}), MASTER, false);
        host->onCall = [this, expected = call](const std::string& now) {
            if (now.starts_with(expected)) {
                curves->Destroy();
                host.reset(); // the panel had the only other reference
            }
        };
        cause();
        EXPECT_TRUE(pumpUntil([this] { return !curves; }));
        EXPECT_EQ(wxWindow::GetCapture(), nullptr);
        releaseButton();
    }
}

TEST_F(CurvePanelWindow, ShowsGridHistogramCurvesAndPoints) {
    make();
    Array<std::uint64_t> bins(PLOT, 0);
    bins[30] = 1;
    bins[60] = 99;
    host->histogram = Histogram(bins, 0, 1);
    const auto diagonal = {std::pair{80, 80}, {83, 83}, {85, 85}, {87, 87}, {90, 90}, {93, 93}, {96, 96}};
    curves->setCurve(Curve({{0, 0.25F}, {1, 0.25F}}), RED, false);
    curves->setHistogramType(HistogramType::LINEAR);
    EXPECT_EQ(look({{-4, 204}, {40, 10}, {60, 190}, {30, 10}, {0, 0}, {0, 53}}), "mpbpW#");
    EXPECT_EQ(look(diagonal), "KKKKKKK") << "the identity is selected";
    EXPECT_EQ(look({{49, 50}, {49, 49}}), "KK") << "and lies on top";
    EXPECT_THAT(look({{30, 50}, {30, 49}}), testing::HasSubstr("R")) << "of the other, which is there";
    curves->setHistogramType(HistogramType::LOGARITHMIC);
    EXPECT_EQ(look({{30, 10}, {30, 35}}), "bp");
    curves->setSelectedCurve(RED);
    curves->setHistogramType(HistogramType::CUMULATIVE);
    EXPECT_EQ(look({{65, 190}, {30, 10}, {55, 50}, {0, 50}, {-4, 100}}), "rpRWm");
    EXPECT_NE(look(diagonal).find('r'), std::string::npos) << "dashes alone: the identity is not selected";

    send(wxEVT_MOTION, at(60, 3));
    EXPECT_THAT(look({{60, 53}, {60, 54}, {60, 55}, {60, 56}, {60, 57}}), testing::HasSubstr("W"));
    EXPECT_EQ(look({{60, 50}}), "R") << "the mark is not filled";
    curves->setCurves({{Curve(), Curve({{-0.015F, 0.02F}, {1.015F, 0.02F}}), Curve(), Curve()}});
    EXPECT_EQ(look({{-3, 5}, {203, 5}}), "mm") << "circles that would be cut off";
    host->histogram = {};
    turnWheel(-1); // the value 1 lies at 133 of the 200 pixels
    EXPECT_EQ(look({{1, 190}, {116, 190}, {117, 190}, {190, 116}, {133, 190}, {134, 190}, {190, 134}}), "##p####");
    turnWheel(-4);
    send(wxEVT_LEFT_DOWN, at(13, 1));
    send(wxEVT_MOTION, at(20, 120));
    EXPECT_EQ(look({{20, 120}}), "W");
    turnWheel(10);
    EXPECT_EQ(look({{189, 10}, {100, 189}, {100, 10}}), "##p");
}

TEST_F(CurvePanelWindow, PaintsOnTheScreenToo) {
    make();
    const wxSize size = curves->GetSize();
    wxScreenDC screen;
    const wxPoint besideFrame = onScreen(frame(), {660, 20}); // GTK leaves the program's own windows out
    screen.SetDeviceOrigin(besideFrame.x, besideFrame.y);
    const auto read = [&](wxDC& copy) { copy.Blit({}, size, &screen, {}); };
    const wxImage former = paintOffScreen(size, read);
    curves->paint(screen);
    EXPECT_EQ(look({{-4, 204}, {0, 0}, {200, 200}, {80, 80}, {30, 10}, {0, 53}}, paintOffScreen(size, read)), "mWWKp#");
    screen.DrawBitmap(wxBitmap(former), 0, 0);
}

TEST_F(CurvePanelWindow, SurvivesAnySizeAndAnyNumbers) {
    make();
    for (const wxSize size : {wxSize(1, 1), wxSize(9, 300), wxSize(300, 10), wxSize(11, 11), wxSize(300, 200)}) {
        curves->resize(size);
        for (const float odd :
             {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(), 3e38F}) {
            const Curve curve({{0, -odd}, {odd, 0.5F}, {1, odd}}, CurveInterpolation::LINEAR);
            curves->setCurves({{curve, Curve({{-odd, -odd}}), Curve(Array<CurvePoint>()), curve}});
            for (const CurveChannel channel : {MASTER, RED, GREEN, BLUE}) {
                curves->setSelectedCurve(channel);
                for (const wxEventType type :
                     {wxEVT_MOTION, wxEVT_LEFT_DOWN, wxEVT_MOTION, wxEVT_RIGHT_UP, wxEVT_LEFT_UP}) {
                    send(type, {3, 3});
                    EXPECT_EQ(pixelAt(picture(), 0, size.y - 1), (PixelColour{68, 68, 68})) << size.x;
                }
            }
        }
    }
}

} // namespace
} // namespace Ostrel::Wx
