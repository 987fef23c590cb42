#include "support/WidgetTest.h"

#include <algorithm>

#include <wx/bitmap.h>
#include <wx/display.h>
#include <wx/icon.h>
#include <wx/textctrl.h>

#include <OstrelLibWx/WindowUtils.h>

namespace Ostrel {
std::ostream& operator<<(std::ostream& stream, const Bucket& bucket) {
    return stream << '(' << bucket.min.x << ", " << bucket.min.y << ")-(" << bucket.max.x << ", " << bucket.max.y
                  << ')';
}
} // namespace Ostrel

namespace {

using namespace Ostrel;
using Wx::FindWindowFlag;
using Wx::MonitorRegionType;
using Wx::MoveFocusDirection;
using Wx::TextFlag;

class WindowUtils : public WidgetTest {};

Bucket toBucket(const wxRect& r) {
    return {{r.x, r.y}, {r.x + r.width, r.y + r.height}};
}

Pixel toPixel(wxPoint point) {
    return {point.x, point.y};
}

// Sizes and fonts

/// What the sizes are at one scale of the system.
struct Scale {
    double factor;
    int one, three, ten, twelve, hundred, wholeFactor, smallText;
};
constexpr Scale SCALES[] = {
    {1.0, 1, 3, 10, 12, 100, 1, 10},
    {1.25, 1, 4, 13, 15, 125, 1, 13},
    {1.5, 2, 5, 15, 18, 150, 2, 16},
    {2.0, 2, 6, 20, 24, 200, 2, 21},
};

class ScaledByDpi : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        const auto found = std::ranges::find(SCALES, frame().GetDPIScaleFactor(), &Scale::factor);
        ASSERT_NE(found, std::end(SCALES)) << "no numbers for the scale " << frame().GetDPIScaleFactor();
        scale = *found;
    }
    Scale scale{};
};

TEST_F(ScaledByDpi, SizesAreRoundedOneByOne) {
    EXPECT_EQ(Wx::scaleByDpi(0), 0);
    EXPECT_EQ(Wx::scaleByDpi(1), scale.one);
    EXPECT_EQ(Wx::scaleByDpi(12), scale.twelve);
    EXPECT_EQ(Wx::scaleByDpi(-12), -scale.twelve);
    EXPECT_EQ(Wx::scaleByDpi(Pixel{3, -100}), (Pixel{Wx::scaleByDpi(3), -scale.hundred}));
    EXPECT_EQ(Wx::scaleByDpi(wxSize(10, -1)), wxSize(scale.ten, -1));
    EXPECT_EQ(Wx::scaleByDpi(wxPoint(-1, 3)), wxPoint(-1, scale.three));
}

TEST_F(ScaledByDpi, BitmapsGrowByWholeNumbers) {
    wxImage image(3, 2);
    image.SetRGB(2, 0, 250, 128, 4);
    const wxBitmap bitmap(image);
    const wxBitmap scaled = Wx::scaleByDpi(bitmap);
    const int k = scale.wholeFactor;
    EXPECT_EQ(scaled.GetSize(), wxSize(3 * k, 2 * k));
    EXPECT_EQ(scaled.IsSameAs(bitmap), k == 1);
    const wxImage result = scaled.ConvertToImage();
    for (int y = 0; y < 2 * k; ++y) {
        for (int x = 0; x < 3 * k; ++x) {
            EXPECT_EQ(pixelAt(result, x, y), pixelAt(image, x / k, y / k)) << x << ", " << y;
        }
    }
    EXPECT_FALSE(Wx::scaleByDpi(wxBitmap()).IsOk());
}

TEST_F(ScaledByDpi, FontsHaveTheTextHeight) {
    wxFont expected = *wxNORMAL_FONT;
    expected.SetPixelSize(wxSize(0, scale.smallText));
    EXPECT_EQ(Wx::setDefaultFontSize(*wxNORMAL_FONT, 0.9F).GetPixelSize(), expected.GetPixelSize());
    expected.SetPixelSize(wxSize(0, scale.twelve));
    const wxFont fancy = wxFont(*wxNORMAL_FONT).Bold().Underlined();
    const wxFont plain = Wx::setupStaticTextFont(fancy, {});
    EXPECT_EQ(plain.GetPixelSize(), expected.GetPixelSize());
    EXPECT_EQ(plain.GetWeight(), wxFONTWEIGHT_NORMAL);
    EXPECT_EQ(plain.GetStyle(), wxFONTSTYLE_NORMAL);
    EXPECT_FALSE(plain.GetUnderlined());
    EXPECT_TRUE(fancy.GetUnderlined()) << "the caller's font was changed";

    const wxFont both = Wx::setupStaticTextFont(*wxNORMAL_FONT, TextFlag::BOLD | TextFlag::ITALIC);
    EXPECT_EQ(both.GetWeight(), wxFONTWEIGHT_BOLD);
    EXPECT_EQ(both.GetStyle(), wxFONTSTYLE_ITALIC);
    EXPECT_EQ(Wx::setupStaticTextFont(fancy, TextFlag::ITALIC).GetWeight(), wxFONTWEIGHT_NORMAL);
}

// Icons

TEST_F(WindowUtils, IconsAreSetAndInvalidOnesAreNot) {
    Wx::setIcon(&frame(), wxBitmap());
    EXPECT_EQ(frame().GetIcons().GetIconCount(), 0U);
    Wx::setNimbraIcon(&frame());
    ASSERT_EQ(frame().GetIcons().GetIconCount(), 1U);
    EXPECT_EQ(frame().GetIcons().GetIconByIndex(0).GetSize(), wxSize(64, 64));
    Wx::setIcon(&frame(), wxBitmap(16, 16));
    ASSERT_EQ(frame().GetIcons().GetIconCount(), 1U);
    EXPECT_EQ(frame().GetIcons().GetIconByIndex(0).GetSize(), wxSize(16, 16));
}

// Native handles

TEST_F(WindowUtils, NativeHandlesLeadBackToTheirWindows) {
    wxPanel* const child = new wxPanel(&panel(), wxID_ANY, wxPoint(10, 10), wxSize(50, 50));
    showAll();
    const WindowHandle top = Wx::getWindowNativeHandle(&frame());
    const WindowHandle inner = Wx::getWindowNativeHandle(child);
    ASSERT_TRUE(top);
    ASSERT_TRUE(inner);
    EXPECT_NE(top, inner);
    EXPECT_EQ(Wx::getWindowNativeHandle(child), inner);
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle(top), &frame());
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle(inner), nullptr);
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle({}), nullptr);
    EXPECT_EQ(Wx::findWindowByNativeHandle(&frame(), top), &frame());
    EXPECT_EQ(Wx::findWindowByNativeHandle(&frame(), inner), child);
    EXPECT_EQ(Wx::findWindowByNativeHandle(&frame(), {}), nullptr);
    EXPECT_EQ(Wx::findWindowByNativeHandle(nullptr, top), nullptr);
    EXPECT_TRUE(pumpUntil([&] { return Wx::getScreenRegion(inner) == toBucket(child->GetScreenRect()); }))
        << Wx::getScreenRegion(inner);
}

TEST_F(WindowUtils, ScreenRegionHasTheFrame) {
    settle();
    const Bucket region = Wx::getScreenRegion(Wx::getWindowNativeHandle(&frame()));
    EXPECT_EQ(region, toBucket(frame().GetScreenRect()));
    EXPECT_GT(region.height(), frame().GetClientSize().y) << "no title bar";
    EXPECT_EQ(Wx::getScreenRegion({}), Bucket{});
}

TEST_F(WindowUtils, OwnersAreSetAndTakenAway) {
    wxFrame* const owned = new wxFrame(nullptr, wxID_ANY, "Owned");
    const WindowHandle top = Wx::getWindowNativeHandle(&frame());
    const WindowHandle handle = Wx::getWindowNativeHandle(owned);
    EXPECT_TRUE(Wx::getOwnerAsNativeHandle(handle).isNull());
    EXPECT_EQ(Wx::setOwnerFromNativeHandle(handle, top), handle);
    owned->Show();
    settle();
    EXPECT_EQ(Wx::getOwnerAsNativeHandle(handle), top);
    EXPECT_EQ(Wx::setOwnerFromNativeHandle(handle, {}), handle);
    EXPECT_TRUE(Wx::getOwnerAsNativeHandle(handle).isNull());
    EXPECT_TRUE(Wx::getOwnerAsNativeHandle({}).isNull());
    EXPECT_TRUE(Wx::setOwnerFromNativeHandle({}, top).isNull());
    owned->Destroy();
}

// Finding windows by position

class FindByPosition : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        outer = make(&panel(), wxRect(20, 20, 200, 200));
        inner = make(outer, wxRect(10, 10, 100, 100));
        innermost = make(inner, wxRect(10, 10, 50, 50));
        overlapping = make(outer, wxRect(60, 60, 120, 120));
        showAll();
    }

    static wxWindow* make(wxWindow* parent, const wxRect& r) {
        return new wxWindow(parent, wxID_ANY, r.GetPosition(), r.GetSize());
    }

    /// The window found under a point in client coordinates of `outer`.
    wxWindow* find(int x, int y, Flags<FindWindowFlag> flags = {}) {
        return Wx::findWindowByPosition(&frame(), toPixel(outer->ClientToScreen(wxPoint(x, y))), flags);
    }

    wxWindow* outer{};
    wxWindow* inner{};
    wxWindow* innermost{};
    wxWindow* overlapping{};
};

TEST_F(FindByPosition, FindsTheInnermostAndTheEarlierSibling) {
    EXPECT_EQ(find(25, 25), innermost);
    EXPECT_EQ(find(15, 15), inner);
    EXPECT_EQ(find(5, 5), outer);
    EXPECT_EQ(find(150, 150), overlapping);
    EXPECT_EQ(find(90, 90), inner) << "the sibling that comes first among the children";
    EXPECT_EQ(find(9, 10), outer);
    EXPECT_EQ(find(110, 100), overlapping) << "the right edge belongs to what comes after it";
    EXPECT_EQ(find(230, 230), &panel());
    EXPECT_EQ(find(-5000, 0), nullptr);
    wxWindow* const outsideOfItsParent = make(inner, wxRect(0, 150, 40, 40));
    showAll();
    EXPECT_EQ(find(20, 170), outsideOfItsParent);
    EXPECT_EQ(Wx::findWindowByPosition(nullptr, {0, 0}, {}), nullptr);
}

TEST_F(FindByPosition, LeavesOutHiddenAndDisabledOnesWithTheirChildren) {
    constexpr Flags<FindWindowFlag> hidden = FindWindowFlag::INCLUDE_HIDDEN;
    constexpr Flags<FindWindowFlag> disabled = FindWindowFlag::INCLUDE_DISABLED;
    innermost->Hide();
    EXPECT_EQ(find(25, 25), inner);
    EXPECT_EQ(find(25, 25, hidden), innermost);
    EXPECT_EQ(find(25, 25, disabled), inner);
    innermost->Show();
    inner->Disable();
    EXPECT_EQ(find(25, 25), outer);
    EXPECT_EQ(find(90, 90), overlapping);
    EXPECT_EQ(find(25, 25, disabled), innermost);
    innermost->Hide();
    EXPECT_EQ(find(25, 25, disabled), inner);
    EXPECT_EQ(find(25, 25, disabled | hidden), innermost);
    EXPECT_EQ(find(25, 25, hidden), outer);
}

// Displays

TEST_F(WindowUtils, RegionsAreThoseOfTheDisplays) {
    const wxDisplay display(0u);
    const wxRect area = display.GetGeometry();
    const Pixel middle{area.x + area.width / 2, area.y + area.height / 2};
    EXPECT_EQ(Wx::getMonitorRegionByPoint(middle, MonitorRegionType::WHOLE_MONITOR), toBucket(area));
    EXPECT_EQ(Wx::getMonitorRegionByPoint(middle, static_cast<MonitorRegionType>(7)), toBucket(area));
    EXPECT_EQ(Wx::getMonitorRegionByPoint(middle, MonitorRegionType::WORK_AREA), toBucket(display.GetClientArea()));
    EXPECT_EQ(Wx::getMonitorRegionByPoint({area.x - 9999, area.y - 9999}, MonitorRegionType::WHOLE_MONITOR),
              toBucket(area));
    EXPECT_EQ(Wx::getMonitorRegionByWindow(&frame(), MonitorRegionType::WORK_AREA), toBucket(display.GetClientArea()));
}

TEST_F(WindowUtils, AWindowAcrossTwoDisplaysIsOnTheOneUnderItsMiddle) {
    if (wxDisplay::GetCount() < 2) {
        GTEST_SKIP() << "one display only";
    }
    const wxRect first = wxDisplay(0u).GetGeometry();
    const wxRect second = wxDisplay(1u).GetGeometry();
    ASSERT_EQ(second.GetTopLeft(), first.GetTopRight() + wxPoint(1, 0)) << "displays side by side";
    wxFrame across(nullptr, wxID_ANY, "Across", wxDefaultPosition, wxSize(200, 100), wxBORDER_NONE);
    across.Show();
    for (const int offset : {-101, -99}) { // the middle one pixel left of the seam, and right of it
        const wxPoint place(second.x + offset, 300);
        across.SetPosition(place);
        ASSERT_TRUE(pumpUntil([&] { return across.GetScreenPosition() == place; }));
        EXPECT_EQ(Wx::getMonitorRegionByWindow(&across, MonitorRegionType::WHOLE_MONITOR),
                  toBucket(offset == -101 ? first : second));
    }
    Wx::smartPositionWindow(&across, {second.x - 50, 300});
    ASSERT_TRUE(pumpUntil([&] { return across.GetScreenRect().GetRight() == first.GetRight(); }));
    Wx::smartPositionWindow(&across, {second.x + 9999, 300});
    ASSERT_TRUE(pumpUntil([&] { return across.GetScreenRect().GetRight() == second.GetRight(); }));
}

TEST_F(WindowUtils, SmartPositionKeepsAWindowInTheWorkArea) {
    const wxRect area = wxDisplay(0u).GetClientArea();
    wxFrame popup(nullptr, wxID_ANY, "Popup", wxDefaultPosition, wxSize(300, 200), wxBORDER_NONE);
    popup.Show();
    settle();
    for (const wxPoint outside : {wxPoint(0, 0), wxPoint(280, 160)}) { // how much of the popup would be cut off
        const wxPoint fitting(area.GetRight() + 1 - 300, area.GetBottom() + 1 - 200);
        Wx::smartPositionWindow(&popup, toPixel(fitting + outside));
        EXPECT_TRUE(pumpUntil([&] { return popup.GetScreenPosition() == fitting; }));
        Wx::smartPositionWindow(&popup, {area.x + 50, area.y + 60});
        EXPECT_TRUE(pumpUntil([&] { return popup.GetScreenPosition() == area.GetPosition() + wxPoint(50, 60); }));
    }
}

// Focus

struct FocusableText : wxTextCtrl, Wx::Focusable {
    explicit FocusableText(wxWindow* parent)
        : wxTextCtrl(parent, wxID_ANY) {}
};

TEST_F(WindowUtils, FocusMovesAmongFocusableSiblings) {
    wxWindow* const first = new FocusableText(&panel());
    new wxTextCtrl(&panel(), wxID_ANY); // takes the focus, but is none of the library's
    (new FocusableText(&panel()))->Disable();
    wxWindow* const second = new FocusableText(&panel());
    (new FocusableText(&panel()))->Hide();
    showAll();
    const struct {
        wxWindow* from;
        MoveFocusDirection direction;
        wxWindow* to;
    } cases[] = {
        {first, MoveFocusDirection::FORWARD, second},        {second, MoveFocusDirection::FORWARD, first},
        {first, MoveFocusDirection::BACKWARD, second},       {second, MoveFocusDirection::BACKWARD, first},
        {first, static_cast<MoveFocusDirection>(5), second},
    };
    for (const auto& c : cases) {
        c.from->SetFocus();
        ASSERT_TRUE(pumpUntil([&] { return c.from->HasFocus(); }));
        Wx::moveFocus(c.from, c.direction);
        EXPECT_TRUE(pumpUntil([&] { return c.to->HasFocus(); })) << &c - cases;
    }
}

TEST_F(WindowUtils, FocusStaysWhereNoSiblingTakesIt) {
    wxWindow* const only = new FocusableText(&panel());
    only->SetFocus();
    ASSERT_TRUE(pumpUntil([&] { return only->HasFocus(); }));
    Wx::moveFocus(only, MoveFocusDirection::FORWARD);
    new wxTextCtrl(&panel(), wxID_ANY);
    Wx::moveFocus(only, MoveFocusDirection::BACKWARD);
    Wx::moveFocus(&frame(), MoveFocusDirection::FORWARD); // without a parent
    settle();
    EXPECT_TRUE(only->HasFocus());
}

// Guards

TEST_F(WindowUtils, GuardsUndoWhatTheyDid) {
    wxBitmap bitmap(20, 20);
    wxMemoryDC dc(bitmap);
    wxRect clip;
    {
        const Wx::ScopedClippingRegion outer(dc, wxRect(2, 3, 10, 10));
        EXPECT_TRUE(dc.GetClippingBox(clip));
        EXPECT_EQ(clip, wxRect(2, 3, 10, 10));
        { const Wx::ScopedClippingRegion inner(dc, wxRect(4, 4, 2, 2)); }
        dc.GetClippingBox(clip);
        EXPECT_EQ(clip, wxRect(0, 0, 20, 20)) << "nothing is restored";
    }
    dc.GetClippingBox(clip);
    EXPECT_EQ(clip, wxRect(0, 0, 20, 20));
    {
        const Wx::ScopedWindowFreezer freezer(&panel());
        EXPECT_TRUE(panel().IsFrozen());
    }
    EXPECT_FALSE(panel().IsFrozen());
}

} // namespace
