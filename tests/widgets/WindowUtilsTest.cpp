#include "painting/ToolkitTypes.h"
#include "support/WidgetTest.h"

#include <algorithm>

#include <wx/bitmap.h>
#include <wx/display.h>
#include <wx/icon.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

#include <OstrelLibWx/WindowUtils.h>

namespace {

using namespace Ostrel;
using Wx::FindWindowFlag;
using Wx::TextFlag;
using Wx::toBucket;
using Wx::toPixel;
using enum Wx::MonitorRegionType;
using enum Wx::MoveFocusDirection;

class WindowUtils : public WidgetTest {};

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

TEST_F(ScaledByDpi, IsTheScaleThatTheRunAskedFor) {
    wxString dpi;
    if (!wxGetEnv("OSTREL_WINE_DPI", &dpi)) {
        GTEST_SKIP() << "no scale was asked for";
    }
    EXPECT_EQ(wxString::Format("%.0f", scale.factor * 96), dpi);
}

TEST_F(ScaledByDpi, SizesAreRoundedOneByOne) {
    EXPECT_EQ(Wx::scaleByDpi(1), scale.one);
    EXPECT_EQ(Wx::scaleByDpi(-12), -scale.twelve);
    EXPECT_EQ(Wx::scaleByDpi(Pixel{12, -100}), (Pixel{scale.twelve, -scale.hundred}));
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
    for (int x = 0; x < 3 * k; ++x) {
        EXPECT_EQ(pixelAt(result, x, 0), pixelAt(image, x / k, 0)) << x;
    }
    EXPECT_FALSE(Wx::scaleByDpi(wxBitmap()).IsOk());
}

TEST_F(ScaledByDpi, FontsHaveTheTextHeight) {
    wxFont expected = *wxNORMAL_FONT;
    expected.SetPixelSize(wxSize(0, scale.smallText));
    EXPECT_EQ(Wx::setDefaultFontSize(*wxNORMAL_FONT, 0.9F).GetPixelSize(), expected.GetPixelSize());
    expected.SetPixelSize(wxSize(0, scale.twelve));
    const wxFont fancy = wxFont(*wxNORMAL_FONT).Bold().Underlined();
    for (const bool bold : {false, true}) {
        for (const bool italic : {false, true}) {
            Flags<TextFlag> flags;
            flags.set(TextFlag::BOLD, bold);
            flags.set(TextFlag::ITALIC, italic);
            const wxFont font = Wx::setupStaticTextFont(fancy, flags);
            EXPECT_EQ(font.GetPixelSize().y, expected.GetPixelSize().y);
            EXPECT_EQ(font.GetWeight(), bold ? wxFONTWEIGHT_BOLD : wxFONTWEIGHT_NORMAL);
            EXPECT_EQ(font.GetStyle(), italic ? wxFONTSTYLE_ITALIC : wxFONTSTYLE_NORMAL);
            EXPECT_FALSE(font.GetUnderlined());
        }
    }
    EXPECT_TRUE(fancy.GetUnderlined()) << "the caller's font was changed";
}

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

TEST_F(WindowUtils, NativeHandlesLeadBackToTheirWindows) {
    wxPanel* const child = new wxPanel(&panel(), wxID_ANY, wxPoint(10, 10), wxSize(50, 50));
    showAll();
    const WindowHandle top = Wx::getWindowNativeHandle(&frame());
    const WindowHandle inner = Wx::getWindowNativeHandle(child);
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle(top), &frame());
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle(inner), nullptr);
    EXPECT_EQ(Wx::findTopLevelWxWindowForNativeHandle({}), nullptr);
    EXPECT_EQ(Wx::findWindowByNativeHandle(&frame(), top), &frame());
    EXPECT_EQ(Wx::findWindowByNativeHandle(&frame(), inner), child);
    EXPECT_EQ(Wx::findWindowByNativeHandle(&frame(), {}), nullptr);
    EXPECT_EQ(Wx::findWindowByNativeHandle(nullptr, top), nullptr);
    EXPECT_TRUE(pumpUntil([&] { return Wx::getScreenRegion(inner) == toBucket(child->GetScreenRect()); }));
    EXPECT_EQ(Wx::getScreenRegion(top), toBucket(frame().GetScreenRect()));
    EXPECT_GT(Wx::getScreenRegion(top).height(), frame().GetClientSize().y) << "no title bar";
    EXPECT_EQ(Wx::getScreenRegion({}), Bucket{});
}

TEST_F(WindowUtils, OwnersAreSetAndTakenAway) {
    wxFrame owned(nullptr, wxID_ANY, "Owned");
    const WindowHandle top = Wx::getWindowNativeHandle(&frame());
    const WindowHandle handle = Wx::getWindowNativeHandle(&owned);
    EXPECT_TRUE(Wx::getOwnerAsNativeHandle(handle).isNull());
    EXPECT_EQ(Wx::setOwnerFromNativeHandle(handle, top), handle);
    owned.Show();
    settle();
    EXPECT_EQ(Wx::getOwnerAsNativeHandle(handle), top);
    EXPECT_EQ(Wx::setOwnerFromNativeHandle(handle, {}), handle);
    EXPECT_TRUE(Wx::getOwnerAsNativeHandle(handle).isNull());
    EXPECT_TRUE(Wx::getOwnerAsNativeHandle({}).isNull());
    EXPECT_TRUE(Wx::setOwnerFromNativeHandle({}, top).isNull());
}

TEST_F(WindowUtils, TheWindowAtAPositionIsTheInnermostAndTheEarlierSibling) {
    const auto make = [](wxWindow* parent, const wxRect& r) {
        return new wxWindow(parent, wxID_ANY, r.GetPosition(), r.GetSize());
    };
    wxWindow* const outer = make(&panel(), wxRect(20, 20, 200, 200));
    wxWindow* const inner = make(outer, wxRect(10, 10, 100, 100));
    wxWindow* const innermost = make(inner, wxRect(10, 10, 50, 50));
    wxWindow* const overlapping = make(outer, wxRect(60, 60, 120, 120));
    wxWindow* const outsideOfItsParent = make(inner, wxRect(0, 150, 40, 40));
    showAll();
    const auto find = [&](int x, int y, Flags<FindWindowFlag> flags = {}) {
        return Wx::findWindowByPosition(&frame(), toPixel(outer->ClientToScreen(wxPoint(x, y))), flags);
    };
    EXPECT_EQ(find(25, 25), innermost);
    EXPECT_EQ(find(9, 10), outer);
    EXPECT_EQ(find(90, 90), inner) << "the sibling that comes first among the children";
    EXPECT_EQ(find(110, 100), overlapping) << "the right edge belongs to what comes after it";
    EXPECT_EQ(find(-5000, 0), nullptr);
    EXPECT_EQ(find(20, 170), outsideOfItsParent);
    EXPECT_EQ(Wx::findWindowByPosition(nullptr, {0, 0}, {}), nullptr);

    // Hidden and disabled ones are left out with their children.
    constexpr Flags<FindWindowFlag> hidden = FindWindowFlag::INCLUDE_HIDDEN;
    constexpr Flags<FindWindowFlag> disabled = FindWindowFlag::INCLUDE_DISABLED;
    innermost->Hide();
    EXPECT_EQ(find(25, 25), inner);
    EXPECT_EQ(find(25, 25, hidden), innermost);
    inner->Disable();
    EXPECT_EQ(find(25, 25, hidden), outer);
    EXPECT_EQ(find(90, 90), overlapping);
    EXPECT_EQ(find(25, 25, disabled), inner);
    EXPECT_EQ(find(25, 25, disabled | hidden), innermost);
}

TEST_F(WindowUtils, RegionsAreThoseOfTheDisplays) {
    const wxRect area = wxDisplay(0u).GetGeometry();
    const Bucket workArea = toBucket(wxDisplay(0u).GetClientArea());
    const Pixel outside{area.x - 9999, area.y - 9999};
    EXPECT_EQ(Wx::getMonitorRegionByPoint(outside, WHOLE_MONITOR), toBucket(area));
    EXPECT_EQ(Wx::getMonitorRegionByPoint(outside, static_cast<Wx::MonitorRegionType>(7)), toBucket(area));
    EXPECT_EQ(Wx::getMonitorRegionByPoint(outside, WORK_AREA), workArea);
    EXPECT_EQ(Wx::getMonitorRegionByWindow(&frame(), WORK_AREA), workArea);
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
        EXPECT_EQ(Wx::getMonitorRegionByWindow(&across, WHOLE_MONITOR), toBucket(offset == -101 ? first : second));
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
    Wx::smartPositionWindow(&popup, toPixel(area.GetBottomRight() - wxPoint(20, 40)));
    EXPECT_TRUE(pumpUntil([&] { return popup.GetScreenRect().GetBottomRight() == area.GetBottomRight(); }));
    Wx::smartPositionWindow(&popup, {area.x + 50, area.y + 60});
    EXPECT_TRUE(pumpUntil([&] { return popup.GetScreenPosition() == area.GetPosition() + wxPoint(50, 60); }));
}

struct FocusableText : wxTextCtrl, Wx::Focusable {
    explicit FocusableText(wxWindow* parent)
        : wxTextCtrl(parent, wxID_ANY) {}
};

TEST_F(WindowUtils, FocusMovesAmongFocusableSiblings) {
    wxWindow* const first = new FocusableText(&panel());
    new wxTextCtrl(&panel(), wxID_ANY); // takes the focus, but is none of the library's
    (new FocusableText(&panel()))->Disable();
    showAll();
    const auto moves = [](wxWindow* from, Wx::MoveFocusDirection direction, wxWindow* to) {
        giveFocus(*from);
        Wx::moveFocus(from, direction);
        settle();
        return hasFocus(*to);
    };
    EXPECT_TRUE(moves(first, FORWARD, first)) << "no sibling takes it";
    Wx::moveFocus(&frame(), FORWARD); // without a parent

    wxWindow* const second = new FocusableText(&panel());
    wxWindow* const third = new FocusableText(&panel());
    (new FocusableText(&panel()))->Hide();
    showAll();
    EXPECT_TRUE(moves(first, FORWARD, second));
    EXPECT_TRUE(moves(third, FORWARD, first));
    EXPECT_TRUE(moves(first, BACKWARD, third));
    EXPECT_TRUE(moves(third, static_cast<Wx::MoveFocusDirection>(5), second));
}

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
    {
        const Wx::ScopedWindowFreezer freezer(&panel());
        EXPECT_TRUE(panel().IsFrozen());
    }
    EXPECT_FALSE(panel().IsFrozen());
}

} // namespace
