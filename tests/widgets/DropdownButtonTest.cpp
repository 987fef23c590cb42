#include <OstrelLibWx/widgets/DropdownButton.h>

#include "support/WidgetTest.h"

#include <wx/dialog.h>
#include <wx/scrolwin.h>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr PixelColour FRAME_UNDER_MOUSE{0, 114, 188};
constexpr PixelColour TOGGLED{39, 147, 255};
constexpr PixelColour TEXT{200, 200, 200};

class DropdownButtonTest : public WidgetTest {
protected:
    /// A button at (40, 30) with the entries "Reset" and "Reset All", of the ids 101 and 102.
    void make(wxWindow& parent) {
        const auto called = [this](const char* name) {
            return [this, name] {
                log.push_back(name);
                onChosen();
            };
        };
        button = new DropdownButton(&parent, GuiSkin(), 100, "Reset",
                                    {{101, "Reset", called("reset")}, {102, "Reset All", called("reset all")}});
        button->SetPosition(wxPoint(40, 30));
        button->SetSize(button->GetMinSize());
        parent.Bind(Button::clickEventType(), [this](wxMouseEvent& event) {
            EXPECT_EQ(event.GetEventObject(), button.get());
            log.push_back(std::to_string(event.GetId()));
            onEvent(event.GetId());
        });
        showAll();
    }

    /// The window with the row, while it is there.
    static wxWindow* popup() {
        for (wxWindow* const window : wxTopLevelWindows) {
            if (window->GetName() == "DropdownButtonPopup" && window->IsShown()) {
                return window;
            }
        }
        return nullptr;
    }
    static wxWindow* entry(std::size_t index) {
        return popup()->GetChildren().GetFirst()->GetData()->GetChildren().Item(index)->GetData();
    }
    static bool isCurrent(std::size_t index) {
        return pixelAt(pictureOf(*static_cast<Button*>(entry(index))), 1, 1) == FRAME_UNDER_MOUSE;
    }

    void openByClick() {
        waitForRest(*button);
        click(*button, middle(*button));
        EXPECT_TRUE(pumpUntil([] { return popup() != nullptr && static_cast<wxTopLevelWindow*>(popup())->IsActive(); }))
            << "the row did not come up";
        EXPECT_TRUE(button->isOpen());
        // Until keys reach the row.
        EXPECT_TRUE(pumpUntil([] { return wxGetTopLevelParent(wxWindow::FindFocus()) == popup(); }));
        if (popup() != nullptr) {
            waitForRest(*popup());
        }
        log.clear();
    }
    bool isClosed() {
        return pumpUntil([this] { return !button->isOpen() && popup() == nullptr; });
    }

    wxWeakRef<DropdownButton> button;
    std::vector<std::string> log;
    std::function<void()> onChosen = [] {};
    std::function<void(int)> onEvent = [](int) {};
};

using DropdownRowOnScreen = DropdownButtonTest;
using DropdownChoice = DropdownButtonTest;
using DropdownClosingByItself = DropdownButtonTest;

TEST_F(DropdownRowOnScreen, IsUnderTheButtonAndItsEntriesHaveTheirSize) {
    make(panel());
    EXPECT_GE(button->GetSize().x, scaleByDpi(73));
    openByClick();
    const wxRect row = popup()->GetScreenRect();
    EXPECT_EQ(row.GetTopLeft(), button->GetScreenRect().GetBottomLeft() + wxPoint(0, 1));
    for (const std::size_t index : {0u, 1u}) {
        EXPECT_EQ(entry(index)->GetSize(), scaleByDpi(wxSize(73, 24)));
        EXPECT_TRUE(row.Contains(entry(index)->GetScreenRect()));
    }
    EXPECT_LT(entry(0)->GetScreenRect().GetRight(), entry(1)->GetScreenRect().GetLeft());
    EXPECT_TRUE(pumpUntil([] {
        return pixelAt(capture(*entry(1)), 0, 0) == (PixelColour{54, 54, 54});
    })) << "the row is on the screen";
    EXPECT_TRUE(pumpUntil([this] { return pixelAt(capture(*button), 6, 6) == TOGGLED; })) << "and the button shows it";

    button->close();
    const Bucket workArea = getMonitorRegionByWindow(&frame(), MonitorRegionType::WORK_AREA);
    const wxPoint button0 = button->GetScreenPosition();
    frame().Move(frame().GetPosition() + wxPoint(workArea.max.x - 30, workArea.max.y - 30) - button0);
    EXPECT_TRUE(pumpUntil([&] { return button->GetScreenPosition() != button0; }));
    waitForRest(*button);
    button->open();
    settle();
    ASSERT_NE(popup(), nullptr);
    const wxRect moved = popup()->GetScreenRect();
    EXPECT_LE(moved.GetRight(), workArea.max.x - 1) << "at the bottom right of the screen";
    EXPECT_EQ(moved.GetBottom(), button->GetScreenRect().GetTop() - 1) << "above, for want of room";
}

TEST_F(DropdownRowOnScreen, IsThereOnlyIfThereAreEntries) {
    auto* const empty = new DropdownButton(&panel(), GuiSkin(), 100, "A label that is wider than an entry", {});
    EXPECT_GE(empty->GetMinSize().x, empty->GetTextExtent(empty->GetLabel()).x + 2 * scaleByDpi(15));
    empty->open();
    EXPECT_FALSE(empty->isOpen());
    empty->SetSize(empty->GetMinSize());
    const wxImage picture = pictureOf(*empty);
    EXPECT_EQ(pixelAt(picture, picture.GetWidth() - scaleByDpi(11), picture.GetHeight() / 2), TEXT) << "the triangle";
}

TEST_F(DropdownChoice, ByTheMouseIsToldToParentAndCallbackOnceTheRowIsClosed) {
    make(panel());
    onEvent = [this](int id) { EXPECT_TRUE(id == 100 || !button->isOpen()); };
    openByClick();
    movePointer(*entry(1), middle(*entry(1)));
    EXPECT_TRUE(pumpUntil([] { return isCurrent(1) && !isCurrent(0); }));
    pressButton();
    releaseButton();
    EXPECT_TRUE(isClosed());
    EXPECT_THAT(log, ElementsAre("102", "reset all"));
    EXPECT_FALSE(button->isToggled());
    EXPECT_TRUE(pumpUntil([this] { return frame().IsActive(); })) << "the owner has the focus again";
}

TEST_F(DropdownChoice, ByKeys) {
    make(panel());
    openByClick();
    pressKey(WXK_RETURN);
    settle();
    EXPECT_TRUE(button->isOpen()) << "nothing is current yet";
    for (const auto& [key, current] : {std::pair<int, std::size_t>{WXK_RIGHT, 0},
                                       {WXK_DOWN, 1},
                                       {WXK_UP, 0},
                                       {WXK_END, 1},
                                       {WXK_HOME, 0},
                                       {WXK_LEFT, 0},
                                       {WXK_END, 1}}) {
        pressKey(key);
        EXPECT_TRUE(pumpUntil([index = current] { return isCurrent(index) && !isCurrent(1 - index); })) << key;
    }
    pressKey(WXK_RETURN);
    EXPECT_TRUE(isClosed());
    EXPECT_THAT(log, ElementsAre("102", "reset all"));
    openByClick();
    pressKey(WXK_RIGHT);
    pressKey(WXK_SPACE);
    EXPECT_TRUE(isClosed());
    EXPECT_THAT(log, ElementsAre("101", "reset"));
}

TEST_F(DropdownChoice, WorksInAModalDialog) {
    wxDialog dialog(&frame(), wxID_ANY, "Dialog", wxPoint(200, 200));
    auto* const host = new wxPanel(&dialog);
    dialog.SetClientSize(300, 200);
    make(*host);
    bool worked = false;
    dialog.CallAfter([&] {
        EXPECT_TRUE(pumpUntil([&dialog] { return dialog.IsActive(); }));
        settle();
        openByClick();
        if (popup() != nullptr) {
            click(*entry(1), middle(*entry(1)));
            worked = isClosed();
        }
        dialog.EndModal(wxID_OK);
    });
    dialog.ShowModal();
    EXPECT_TRUE(worked);
    EXPECT_THAT(log, ElementsAre("102", "reset all"));
}

TEST_F(DropdownChoice, MayDestroyTheButton) {
    for (const bool byKey : {false, true}) {
        for (const bool inEvent : {false, true}) {
            log.clear();
            auto* const parent = new wxPanel(&panel(), wxID_ANY, wxPoint(0, 0), wxSize(300, 100));
            make(*parent);
            openByClick();
            onEvent = [parent, inEvent](int) { inEvent && parent->Destroy(); };
            onChosen = [this] { button->Destroy(); };
            if (byKey) {
                pressKey(WXK_RIGHT);
                pressKey(WXK_RETURN);
            } else {
                click(*entry(0), middle(*entry(0)));
            }
            EXPECT_TRUE(pumpUntil([this] { return !button && popup() == nullptr; }));
            EXPECT_EQ(log.size(), inEvent ? 1u : 2u) << "what is gone is not called";
            onEvent = [](int) {};
            panel().DestroyChildren();
        }
    }
}

TEST_F(DropdownClosingByItself, OnAClickOnTheButtonWithoutOpeningAgain) {
    make(panel());
    for (int round = 0; round < 3; ++round) {
        openByClick();
        click(*button, middle(*button));
        EXPECT_TRUE(isClosed());
        settle();
        EXPECT_FALSE(button->isOpen());
        EXPECT_THAT(log, ElementsAre("100")) << "a click of the button, and no choice";
    }
    openByClick();
    pressButton();
    EXPECT_TRUE(pumpUntil([this] { return button->HasCapture(); }));
    movePointer(panel(), wxPoint(400, 400));
    releaseButton();
    EXPECT_TRUE(isClosed()) << "the focus is gone, and the press did not become a click";
}

TEST_F(DropdownClosingByItself, OnEverythingThatTakesItsPlaceAway) {
    auto* const scrolled = new wxScrolledWindow(&panel(), wxID_ANY, wxPoint(0, 0), wxSize(300, 200));
    scrolled->SetScrollRate(5, 5);
    scrolled->SetVirtualSize(300, 1000);
    make(*scrolled);
    auto* const other = new wxFrame(nullptr, wxID_ANY, "Other", wxPoint(900, 100), wxSize(200, 200));
    other->Show();
    EXPECT_TRUE(pumpUntil([other] { return other->IsActive(); }));
    const std::function<void()> nothing = [] {};
    const std::tuple<const char*, std::function<void()>, std::function<void()>> ways[] = {
        {"Escape", [this] { pressKey(WXK_ESCAPE); }, nothing},
        {"a click elsewhere in the window", [this] { click(panel(), wxPoint(500, 400)); }, nothing},
        {"a click in another window", [this, other] { click(*other, middle(*other)); }, nothing},
        {"another window gets the focus", [other] { other->Raise(); }, nothing},
        {"the window moves", [this] { frame().Move(frame().GetPosition() + wxPoint(7, 5)); }, nothing},
        {"the window is hidden", [this] { frame().Hide(); }, [this] { frame().Show(); }},
        {"its parent is hidden", [scrolled] { scrolled->Hide(); }, [scrolled] { scrolled->Show(); }},
        {"its parent scrolls", [scrolled] { scrolled->Scroll(0, 2); }, [scrolled] { scrolled->Scroll(0, 0); }},
        {"its parent is disabled", [scrolled] { scrolled->Disable(); }, [scrolled] { scrolled->Enable(); }},
        {"it is disabled", [this] { button->Disable(); }, [this] { button->Enable(); }},
        {"its own function", [this] { button->close(); }, nothing},
        {"it is closed as a window", [] { popup()->Close(); }, nothing},
    };
    for (const auto& [name, takeAway, giveBack] : ways) {
        SCOPED_TRACE(name);
        frame().Raise();
        EXPECT_TRUE(pumpUntil([this] { return frame().IsActive(); }));
        settle();
        openByClick();
        takeAway();
        EXPECT_TRUE(isClosed());
        EXPECT_THAT(log, IsEmpty());
        EXPECT_FALSE(button->isToggled());
        giveBack();
    }
    other->Destroy();
}

TEST_F(DropdownClosingByItself, WithTheButtonOrItsWindow) {
    make(panel());
    openByClick();
    button->Destroy();
    EXPECT_TRUE(pumpUntil([] { return popup() == nullptr; }));

    for (const bool atOnce : {false, true}) {
        auto* const owner = new wxFrame(nullptr, wxID_ANY, "Owner", wxPoint(300, 300), wxSize(300, 200));
        make(*new wxPanel(owner));
        owner->Show();
        EXPECT_TRUE(pumpUntil([owner] { return owner->IsActive(); }));
        settle();
        openByClick();
        if (atOnce) {
            delete owner;
        } else {
            owner->Destroy();
        }
        EXPECT_TRUE(pumpUntil([this] { return !button && popup() == nullptr; }));
    }
}

} // namespace
} // namespace Ostrel::Wx
