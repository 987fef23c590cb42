#include <OstrelLibWx/widgets/CheckBox.h>

#include "support/WidgetTest.h"
#include "widgets/ModalDriver.h"

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr PixelColour NORMAL{68, 68, 68};
constexpr PixelColour ON{39, 147, 255};
constexpr PixelColour PRESSED{0, 73, 112};
constexpr PixelColour FRAME{37, 37, 37};
constexpr PixelColour FRAME_UNDER_MOUSE{0, 114, 188};
constexpr PixelColour TEXT{200, 200, 200};
constexpr PixelColour GREYED_TEXT{110, 110, 110};
constexpr PixelColour TICK{0, 0, 0};

class CheckBoxTest : public WidgetTest {
protected:
    void make(wxWindow& parent, bool value = false) {
        box = new CheckBox(&parent, 4711, "HHHH", wxPoint(20, 20), wxDefaultSize, value, [this](bool on) {
            log.push_back(on);
            onToggle();
        });
        showAll();
    }

    wxImage picture() { return pictureOf(*box); }
    /// The top left corner of the box with the tick, in the control.
    wxPoint corner() { return {scaleByDpi(2), (box->GetSize().y - scaleByDpi(15)) / 2}; }
    PixelColour inside() { return pixelAt(picture(), corner().x + 3, corner().y + 3); }
    PixelColour innerFrame() { return pixelAt(picture(), corner().x + 1, corner().y + 1); }
    void press() {
        pressOn(*box, middle(*box));
        EXPECT_EQ(inside(), PRESSED);
    }
    void pressSpace() {
        giveFocus(*box);
        input().KeyDown(WXK_SPACE);
        EXPECT_TRUE(pumpUntil([this] { return inside() == PRESSED; })) << "the key did not arrive";
    }
    bool isToldOf(std::size_t changes) {
        return pumpUntil([this, changes] { return log.size() == changes; });
    }

    wxWeakRef<CheckBox> box;
    std::vector<bool> log;
    std::function<void()> onToggle = [] {};
};

using CheckBoxClick = CheckBoxTest;
using CheckBoxFocus = CheckBoxTest;
using CheckBoxLook = CheckBoxTest;

TEST_F(CheckBoxClick, OfMouseAndSpaceTellsTheNewValue) {
    make(panel());
    press();
    EXPECT_THAT(log, IsEmpty());
    releaseButton();
    EXPECT_TRUE(isToldOf(1));
    EXPECT_TRUE(box->getValue());
    EXPECT_FALSE(box->HasCapture());
    pressSpace();
    EXPECT_THAT(log, ElementsAre(true)) << "the key has yet to come up";
    input().KeyUp(WXK_SPACE);
    EXPECT_TRUE(isToldOf(2));
    input().MouseDblClick();
    EXPECT_TRUE(isToldOf(4)) << "a double-click is two clicks";
    EXPECT_THAT(log, ElementsAre(true, false, true, false));

    box->setValue(true, false);
    EXPECT_TRUE(box->getValue());
    box->setValue(true, true);
    EXPECT_EQ(log.size(), 4u) << "neither without notice nor without a change";
    box->setValue(false, true);
    EXPECT_EQ(log.size(), 5u);
    box->setToggleCallback({});
    box->setValue(true, true);
    EXPECT_EQ(log.size(), 5u);
}

TEST_F(CheckBoxClick, IsNoneWhenThePressIsTakenAway) {
    auto* const group = new wxPanel(&panel(), wxID_ANY, wxPoint(0, 0), wxSize(300, 100));
    auto* const other = new CheckBox(&panel(), wxID_ANY, "Other", wxPoint(20, 200));
    make(*group);
    const std::tuple<const char*, bool, std::function<void()>> ways[] = {
        {"released outside", false, [this] { movePointer(panel(), wxPoint(300, 300)); }},
        {"capture lost", true, [this] { loseCapture(*box); }},
        {"disabled while pressed", true, [this] { box->Enable(false); }},
    };
    for (const auto& [name, atOnce, takeAway] : ways) {
        SCOPED_TRACE(name);
        press();
        takeAway();
        EXPECT_FALSE(atOnce && box->HasCapture());
        box->Enable(true);
        releaseButton();
        EXPECT_TRUE(pumpUntil([this] { return !box->HasCapture() && inside() == NORMAL; }));
    }
    press();
    group->Enable(false);
    wxMouseEvent up(wxEVT_LEFT_UP);
    up.SetPosition(middle(*box));
    box->ProcessWindowEvent(up); // some systems would keep it from a disabled window
    EXPECT_FALSE(box->HasCapture());
    releaseButton();
    group->Enable(true);

    pressSpace();
    other->SetFocus();
    EXPECT_TRUE(pumpUntil([this] { return inside() == NORMAL; }));
    input().KeyUp(WXK_SPACE);
    settle();
    EXPECT_THAT(log, IsEmpty());
    EXPECT_FALSE(other->getValue());
}

TEST_F(CheckBoxClick, MayDestroyTheCheckBox) {
    for (const bool byKey : {false, true}) {
        auto* const parent = new wxPanel(&panel(), wxID_ANY, wxPoint(0, 0), wxSize(300, 100));
        make(*parent);
        onToggle = [this, parent, byKey] { byKey ? parent->Destroy() : box->Destroy(); };
        byKey ? pressSpace() : press();
        byKey ? input().KeyUp(WXK_SPACE) : input().MouseUp();
        EXPECT_TRUE(pumpUntil([this] { return !box; }));
        panel().DestroyChildren();
    }
    make(panel());
    press();
    box->Destroy();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

TEST_F(CheckBoxFocus, ComesByTabByMoveFocusAndByAPress) {
    make(panel());
    auto* const second = new CheckBox(&panel(), wxID_ANY, "Second", wxPoint(20, 80));
    auto* const disabled = new CheckBox(&panel(), wxID_ANY, "Disabled", wxPoint(20, 120));
    disabled->Enable(false);
    auto* const fourth = new CheckBox(&panel(), wxID_ANY, "Fourth", wxPoint(20, 160));
    showAll();
    click(*box, middle(*box));
    EXPECT_TRUE(hasFocus(*box));
    const wxPoint dot(corner().x + scaleByDpi(15) + scaleByDpi(3), (box->GetSize().y - box->GetCharHeight()) / 2);
    EXPECT_EQ(pixelAt(picture(), dot.x, dot.y), TEXT);
    EXPECT_EQ(pixelAt(picture(), dot.x + 1, dot.y), NORMAL) << "every other pixel";
    pressKey(WXK_TAB);
    EXPECT_TRUE(hasFocus(*second));
    pressKey(WXK_TAB);
    EXPECT_TRUE(hasFocus(*fourth));
    moveFocus(fourth, MoveFocusDirection::BACKWARD);
    EXPECT_TRUE(hasFocus(*second));
    pressKey(WXK_SPACE);
    EXPECT_TRUE(pumpUntil([second] { return second->getValue(); }));
}

TEST_F(CheckBoxLook, IsAsEverBehindADialogAndAfterIt) {
    make(panel());
    PixelColour behind{};
    bool answered = false;
    onToggle = [&] {
        wxDialog dialog(&frame(), wxID_ANY, "Question", wxPoint(500, 500));
        const ModalDriver driver({[&] {
            if (ModalDriver::findActive<wxDialog>() == nullptr) {
                return false;
            }
            behind = inside();
            input().MouseMove(dialog.GetScreenRect().GetBottomRight() - wxPoint(20, 20));
            dialog.EndModal(wxID_OK);
            return true;
        }});
        dialog.ShowModal();
        answered = true;
    };
    press();
    releaseButton();
    EXPECT_TRUE(pumpUntil([&] { return answered; }));
    EXPECT_EQ(behind, ON) << "not greyed with its window";
    EXPECT_TRUE(pumpUntil([this] { return innerFrame() == FRAME; })) << "the mouse has gone";
    EXPECT_EQ(inside(), ON);
}

TEST_F(CheckBoxLook, SaysWhetherItIsOnUnderTheMouseFocusedAndEnabled) {
    make(panel());
    EXPECT_EQ(inside(), NORMAL);
    EXPECT_EQ(innerFrame(), FRAME);
    EXPECT_FALSE(hasColour(picture(), TICK));
    box->setValue(true, false);
    EXPECT_EQ(inside(), ON);
    EXPECT_TRUE(hasColour(picture(), TICK));
    movePointer(*box, middle(*box));
    EXPECT_TRUE(pumpUntil([this] { return innerFrame() == FRAME_UNDER_MOUSE; }));

    box->Enable(false);
    EXPECT_EQ(inside(), NORMAL);
    EXPECT_EQ(innerFrame(), FRAME);
    EXPECT_FALSE(hasColour(picture(), TEXT));
    EXPECT_TRUE(hasColour(picture(), GREYED_TEXT));
    click(*box, middle(*box));
    settle();
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(CheckBoxLook, IsTheSkinsAndFitsTheLabel) {
    make(panel(), true);
    GuiSkin skin;
    skin.background = {10, 20, 30};
    skin.toggledBackground = {1, 2, 3};
    box->applySkin(skin);
    EXPECT_EQ(pixelAt(picture(), 0, 0), (PixelColour{10, 20, 30}));
    EXPECT_EQ(inside(), (PixelColour{1, 2, 3}));

    const wxSize before = box->GetBestSize();
    EXPECT_EQ(box->GetSize(), before);
    box->SetLabel("HHHHHHHH");
    EXPECT_EQ(box->GetBestSize().x - before.x, box->GetTextExtent("HHHH").x);
    EXPECT_EQ(box->GetSize(), before) << "the size is the layout's affair";
    box->SetLabel("&");
    EXPECT_EQ(box->GetLabel(), "&");
    box->SetLabel("");
    EXPECT_EQ(box->GetBestSize().x, scaleByDpi(15) + 2 * scaleByDpi(2));
    for (const wxSize size : {wxSize(1, 1), wxSize(5, 3)}) {
        box->SetSize(size);
        EXPECT_EQ(picture().GetSize(), size) << "painting survives it";
    }
}

TEST_F(CheckBoxLook, OnTheScreenIsTheOneOffTheScreen) {
    make(panel(), true);
    press();
    EXPECT_TRUE(pumpUntil([this] { return pixelAt(capture(*box), corner().x + 3, corner().y + 3) == PRESSED; }));
    const wxImage screen = capture(*box);
    const wxImage offScreen = picture();
    const int last = scaleByDpi(15) - 1;
    for (const wxPoint at : {wxPoint(0, 0), {1, 1}, {2, 2}, {last, last}, {last / 2, last / 2}, {1, last}}) {
        const wxPoint place = corner() + at;
        EXPECT_EQ(pixelAt(screen, place.x, place.y), pixelAt(offScreen, place.x, place.y)) << at.x << ", " << at.y;
    }
}

TEST_F(CheckBoxLook, HasATooltipThatAClickHides) {
    make(panel());
    box->setTooltip("Shown in sRGB");
    box->getTooltip()->setDelay(1);
    movePointer(*box, middle(*box));
    EXPECT_TRUE(pumpUntil([this] { return box->getTooltip()->IsShown(); }));
    pressButton();
    releaseButton();
    EXPECT_TRUE(pumpUntil([this] { return !box->getTooltip()->IsShown(); }));
    EXPECT_TRUE(isToldOf(1));
}

} // namespace
} // namespace Ostrel::Wx
