#include "PictureView.h"
#include "support/WidgetTest.h"

#include <OstrelLibWx/widgets/ZoomableScrollable.h>

#include <memory>
#include <vector>

namespace {

using Amounts = std::vector<int>;

class Viewer : public Ostrel::ZoomableScrollable {
public:
    explicit Viewer(wxWindow& window) { bindScrollAndZoomEvents(&window); }

    Amounts amounts;
    std::unique_ptr<Viewer>* owner = nullptr; ///< if set, it is destroyed by what it is told

private:
    void onScrollOrZoom(const wxMouseEvent& event, int amount) override {
        EXPECT_EQ(event.GetPosition(), wxPoint(33, 44));
        amounts.push_back(amount);
        if (owner != nullptr) {
            owner->reset();
        }
    }
};

class ZoomableScrollableTest : public WidgetTest {
protected:
    void send(wxEventType type, float magnification, int rotation) {
        wxMouseEvent event(type);
        event.m_magnification = magnification;
        event.m_wheelRotation = rotation;
        event.SetPosition({33, 44});
        EXPECT_TRUE(panel().ProcessWindowEvent(event)) << "goes no further";
    }
};

TEST_F(ZoomableScrollableTest, TakesAPinchAsOneStepAndTheWheelAsItIs) {
    Viewer viewer(panel());
    const struct {
        std::vector<float> magnifications;
        int step;
    } pinches[] = {
        {{0.01f, 0.02f, 0.5f, -0.1f}, 1}, {{-0.25f, 0.125f}, -1}, {{0.5f, -0.5f}, -1}, {{}, -1}, {{0.001f}, 1}};
    for (const auto& [magnifications, step] : pinches) {
        SCOPED_TRACE(testing::PrintToString(magnifications));
        viewer.amounts.clear();
        Amounts expected;
        for (const float magnification : magnifications) {
            send(wxEVT_MAGNIFY, magnification, 0);
            send(wxEVT_MOUSEWHEEL, 0.0f, -360); // of no account for the pinch
            expected.push_back(-360);
        }
        send(wxEVT_MAGNIFY, 0.0f, 0);
        expected.push_back(step);
        EXPECT_EQ(viewer.amounts, expected);
    }
}

TEST_F(ZoomableScrollableTest, MayBeDestroyedByWhatItReports) {
    auto viewer = std::make_unique<Viewer>(panel());
    viewer->owner = &viewer;
    send(wxEVT_MAGNIFY, 1.0f, 0);
    send(wxEVT_MAGNIFY, 0.0f, 0);
    EXPECT_EQ(viewer, nullptr);
}

TEST_F(ZoomableScrollableTest, HearsOfTheSystemsPinchesInThePictureView) {
    auto* const view = new Ostrel::Gallery::PictureView(&panel(), {}, [] {});
    view->SetSize(100, 100);
    view->setPicture(std::make_shared<const Ostrel::BitmapImpl<Ostrel::Rgb>>(200, 200));
    const auto pinch = [view](const std::vector<double>& factors) {
        wxZoomGestureEvent event;
        event.SetPosition({50, 50});
        for (std::size_t i = 0; i < factors.size(); ++i) {
            event.SetGestureStart(i == 0);
            event.SetGestureEnd(i + 1 == factors.size());
            event.SetZoomFactor(factors[i]);
            view->ProcessWindowEvent(event);
        }
        return view->getScale();
    };
    EXPECT_EQ(pinch({1.0, 1.5, 1.5, 1.2, 1.2}), 0.625) << "one step, though it went back a little";
    EXPECT_EQ(pinch({1.1, 1.3}), 0.78125) << "counted from its own start";
    EXPECT_EQ(pinch({1.0, 1.1, 0.9, 0.9}), 0.625);
}

} // namespace
