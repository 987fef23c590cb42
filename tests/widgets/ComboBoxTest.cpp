#include <OstrelLibWx/widgets/ComboBox.h>

#include "support/WheelInput.h"
#include "support/WidgetTest.h"

#include <wx/scrolwin.h>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;

constexpr PixelColour HIGHLIGHT_FRAME{0, 114, 188};

class ComboBoxTest : public WidgetTest {
protected:
    /// Rows named "0" and so on, with the ids 1000 and so on.
    static Array<ComboBox::Item> makeRows(int count) {
        Array<ComboBox::Item> items;
        for (int i = 0; i < count; ++i) {
            items.push_back({String::fromUtf8(std::to_string(i)), 1000 + i});
        }
        return items;
    }
    void tell(const std::string& what) {
        log.push_back(what);
        if (!destroyAt.empty() && what.starts_with(destroyAt)) {
            box->Destroy();
        }
    }
    /// A box between two others. The log is what its grandparent and its callbacks hear.
    void make(wxWindow& host, int count, int selected) {
        auto* const parent = new wxPanel(&host, wxID_ANY, wxPoint(0, 0), wxSize(500, 100));
        before = new ComboBox(parent, wxID_ANY, 60, {}, {}, true);
        box = new ComboBox(
            parent, 4711, 150, [this](int id) { tell("callback " + std::to_string(id)); },
            [this](wxWindow* window, ComboBox::WindowEvent event) {
                EXPECT_EQ(window->IsShown(), event == ComboBox::WindowEvent::SHOWN);
                tell(window->IsShown() ? "shown" : "hidden");
            },
            true);
        after = new ComboBox(parent, wxID_ANY, 60, {}, {}, true);
        box->SetPosition(wxPoint(100, 30));
        after->SetPosition(wxPoint(300, 30));
        host.Bind(wxEVT_COMBOBOX, [this](wxCommandEvent& event) {
            EXPECT_EQ(event.GetId(), 4711);
            EXPECT_EQ(event.GetInt() - 1000, event.GetExtraLong());
            tell("event " + event.GetString().ToStdString());
        });
        box->setData(makeRows(count));
        box->selectIndex(selected, false);
        showAll();
    }
    static wxWindow* list() {
        for (wxWindow* const window : wxTopLevelWindows) {
            if (window->GetName() == "ComboBoxDropdown" && window->IsShown()) {
                return window;
            }
        }
        return nullptr;
    }
    static wxScrolledWindow& canvas() {
        return *static_cast<wxScrolledWindow*>(list()->GetChildren().GetFirst()->GetData());
    }
    static int rowHeight() { return (scaleByDpi(18) + scaleByDpi(6) - 1) / scaleByDpi(6) * scaleByDpi(6); }
    static int top(int row) { return 2 + row * rowHeight() - canvas().GetViewStart().y * scaleByDpi(6); }
    static wxPoint inRow(int row) { return {20, top(row) + rowHeight() / 2}; }
    static bool isHighlighted(int row) {
        return pumpUntil([row] { return pixelAt(capture(canvas()), 3, top(row)) == HIGHLIGHT_FRAME; });
    }
    void openByPress() {
        wxGetTopLevelParent(box)->Raise();
        waitForRest(*box);
        click(*box, middle(*box));
        const auto isUp = [] { return list() != nullptr && wxGetTopLevelParent(wxWindow::FindFocus()) == list(); };
        EXPECT_TRUE(pumpUntil(isUp)) << "the list did not come up";
        if (list() != nullptr) {
            waitForRest(*list());
        }
        log.clear();
    }
    bool isClosed() {
        return pumpUntil([this] { return list() == nullptr && (!box || !box->isOpen()); });
    }
    void turnWheel(wxWindow& window, int rotation) {
        wxMouseEvent event(wxEVT_MOUSEWHEEL);
        event.m_wheelRotation = rotation;
        window.ProcessWindowEvent(event);
    }

    wxWeakRef<ComboBox> box;
    ComboBox* before{};
    ComboBox* after{};
    std::vector<std::string> log;
    std::string destroyAt;
};

using ComboBoxList = ComboBoxTest;
using ComboBoxKeys = ComboBoxTest;

TEST_F(ComboBoxList, OpensUnderTheBoxWithTheSelectionInView) {
    make(panel(), 0, 0);
    for (const auto& [count, selected, rows] : {std::tuple{20, 19, 17}, {3, 1, 3}}) {
        box->setData(makeRows(count));
        box->selectIndex(selected, false);
        openByPress();
        EXPECT_EQ(list()->GetScreenRect().GetTopLeft(), box->GetScreenRect().GetBottomLeft() + wxPoint(0, 1));
        EXPECT_EQ(list()->GetSize().x, box->GetSize().x);
        EXPECT_EQ(canvas().GetClientSize().y, rows * rowHeight() + 2);
        EXPECT_EQ(top(0), 2 - (count - rows) * rowHeight());
        EXPECT_TRUE(isHighlighted(selected));
        const wxPoint inList = list()->GetScreenPosition();
        EXPECT_TRUE(box->isInside(box->GetScreenPosition()) && box->isInside(inList));
        box->close();
        EXPECT_FALSE(box->isInside(inList));
        EXPECT_TRUE(isClosed() && hasFocus(*box));
    }
}

TEST_F(ComboBoxList, FollowsAMouseThatMovesAndChoosesTheRowThatIsClicked) {
    make(panel(), 40, -1);
    openByPress();
    EXPECT_FALSE(hasColour(capture(canvas()), HIGHLIGHT_FRAME)) << "nothing is selected";
    for (const int row : {4, 5}) {
        movePointer(canvas(), inRow(row));
        EXPECT_TRUE(isHighlighted(row));
    }
    turnWheel(canvas(), -120);
    EXPECT_THAT(log, ElementsAre("event 6", "callback 1006"));
    for (int i = 0; i < 12; ++i) {
        turnWheel(*list(), -120);
    }
    settle();
    EXPECT_EQ(box->getSelectedIndex(), 18) << "rows that scroll under a still mouse do not take the highlight";
    EXPECT_TRUE(isHighlighted(18));
    log.clear();
    click(canvas(), inRow(7));
    EXPECT_TRUE(isClosed());
    EXPECT_THAT(log, ElementsAre("event 7", "callback 1007", "hidden"));
    EXPECT_EQ(box->getSelectedId(), 1007);
}

TEST_F(ComboBoxList, ClosesWithoutAChoice) {
    make(panel(), 5, 2);
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"Escape", [this] { pressKey(WXK_ESCAPE); }},
        {"a press of the box", [this] { click(*box, middle(*box)); }},
        {"a click elsewhere", [this] { click(panel(), wxPoint(500, 400)); }},
        {"the window moves", [this] { frame().Move(frame().GetPosition() + wxPoint(7, 5)); }},
        {"it is disabled", [this] { box->Enable(false), box->Enable(true); }},
        {"the window is hidden", [this] { frame().Hide(), frame().Show(); }},
        {"F4", [this] { pressKey(WXK_F4); }},
        {"it is closed as a window", [] { list()->Close(); }},
    };
    for (const auto& [name, takeAway] : ways) {
        SCOPED_TRACE(name);
        openByPress();
        takeAway();
        EXPECT_TRUE(isClosed());
        settle();
        EXPECT_FALSE(box->isOpen()) << "it does not open again";
        EXPECT_THAT(log, ElementsAre("hidden"));
        EXPECT_EQ(box->getSelectedIndex(), 2);
    }
    box->Enable(false);
    click(*box, middle(*box));
    turnWheel(*box, -120);
    EXPECT_FALSE(box->isOpen());
    EXPECT_EQ(box->getSelectedIndex(), 2);
}

TEST_F(ComboBoxList, GoesAboveTheBoxWhenItsNewRowsNeedTheRoom) {
    make(panel(), 3, 0);
    const int bottom = getMonitorRegionByWindow(&frame(), MonitorRegionType::WORK_AREA).max.y;
    frame().Move(frame().GetPosition() + wxPoint(0, bottom - 5 * rowHeight() - box->GetScreenRect().GetBottom()));
    openByPress();
    const int boxTop = box->GetScreenRect().GetTop();
    EXPECT_GT(list()->GetScreenRect().GetTop(), boxTop);
    box->setData(makeRows(17));
    waitForRest(*list());
    EXPECT_EQ(list()->GetScreenRect().GetBottom() + 1, boxTop);
    box->setData(makeRows(3));
    waitForRest(*list());
    EXPECT_GT(list()->GetScreenRect().GetTop(), boxTop);
}

TEST_F(ComboBoxKeys, ChangeTheSelectionOfTheBoxAndOfTheList) {
    make(panel(), 30, 0);
    for (const bool open : {false, true}) {
        box->selectIndex(0, false);
        giveFocus(*box);
        log.clear();
        if (open) {
            openByPress();
        }
        const std::pair<int, int> keys[] = {{WXK_UP, 0},    {WXK_HOME, 0}, {WXK_DOWN, 1}, {WXK_END, 29},
                                            {WXK_DOWN, 29}, {WXK_UP, 28},  {'7', 7}};
        for (const auto& [key, row] : keys) {
            pressKey(key);
            EXPECT_TRUE(pumpUntil([this, wanted = row] { return box->getSelectedIndex() == wanted; })) << key;
            EXPECT_TRUE(!open || isHighlighted(row)) << key;
        }
        pressKey(WXK_DOWN, wxMOD_CONTROL);
        wxKeyEvent leave(wxEVT_CHAR_HOOK); // Alt+F4 is the system's, and would close the frame
        leave.m_keyCode = WXK_F4;
        leave.m_altDown = true;
        box->GetEventHandler()->ProcessEvent(leave);
        EXPECT_TRUE(leave.GetSkipped() && box->isOpen() == open);
        pressKey(WXK_HOME, wxMOD_ALT);
        EXPECT_TRUE(pumpUntil([this] { return box->getSelectedIndex() == 0; })) << "with Alt";
        EXPECT_THAT(log, ElementsAre("event 1", "callback 1001", "event 29", "callback 1029", "event 28",
                                     "callback 1028", "event 7", "callback 1007", "event 0", "callback 1000"));
    }
    movePointer(canvas(), inRow(9));
    EXPECT_TRUE(isHighlighted(9));
    pressKey(WXK_RETURN);
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(box->getSelectedIndex(), 9);
}

TEST_F(ComboBoxTest, ShowsItsSelectionItsFocusAndThatItIsDisabled) {
    make(panel(), 3, 1);
    const auto brightest = [this](int from, int to) {
        const wxImage picture = pictureOf(*box);
        int value = 0;
        for (int x = from; x < to; ++x) {
            for (int y = scaleByDpi(4); y < picture.GetHeight() - scaleByDpi(4); ++y) {
                value = std::max(value, static_cast<int>(pixelAt(picture, x, y).green));
            }
        }
        return value;
    };
    const int arrow = box->GetClientSize().x - scaleByDpi(20);
    const auto text = [&] { return brightest(scaleByDpi(5), arrow); };
    const auto mark = [&] { return brightest(arrow, box->GetClientSize().x - scaleByDpi(4)); };
    const int bright = text();
    const int brightMark = mark();
    EXPECT_GT(bright, 150);
    giveFocus(*box);
    EXPECT_EQ(pixelAt(pictureOf(*box), 1, 1), HIGHLIGHT_FRAME);
    box->Enable(false);
    EXPECT_LT(text(), bright);
    EXPECT_LT(mark(), brightMark);
    box->selectId(99, false);
    EXPECT_EQ(text(), 68) << "no row has this id";
}

TEST_F(ComboBoxList, IsMadeAnewWhenItsWindowWentWithoutTheBox) {
    auto* const first = new wxFrame(&frame(), wxID_ANY, "First");
    make(*first, 3, 1);
    box->GetParent()->Reparent(&panel());
    first->Destroy();
    pump();
    showAll();
    openByPress();
    EXPECT_TRUE(isHighlighted(1));
}

TEST_F(ComboBoxTest, FollowsTheWheelFromEndToEnd) {
    make(panel(), 3, 0);
    int turns = 0;
    const auto count = [&turns](wxMouseEvent& event) {
        ++turns;
        event.Skip();
    };
    for (const bool open : {false, true}) {
        box->selectIndex(0, false);
        open ? openByPress() : log.clear();
        wxWindow& turned = open ? static_cast<wxWindow&>(canvas()) : *box;
        movePointer(turned, open ? inRow(0) : middle(*box));
        EXPECT_TRUE(!open || isHighlighted(0));
        turned.Bind(wxEVT_MOUSEWHEEL, count);
        for (const auto& [towardsUser, row] : {std::pair{false, 0}, {true, 1}, {true, 2}, {true, 2}, {false, 1}}) {
            const int turnsBefore = turns;
            turnWheelNotch(towardsUser);
            EXPECT_TRUE(pumpUntil([&] { return turns > turnsBefore; })) << "the wheel did not arrive";
            EXPECT_EQ(box->getSelectedIndex(), row) << open;
            EXPECT_TRUE(!open || isHighlighted(row));
        }
        EXPECT_THAT(log,
                    ElementsAre("event 1", "callback 1001", "event 2", "callback 1002", "event 1", "callback 1001"))
            << "no end is told";
    }
}

TEST_F(ComboBoxKeys, TabGoesOnFromTheBoxAndFromTheList) {
    make(panel(), 5, 0);
    for (const bool open : {false, true}) {
        for (const bool backwards : {false, true}) {
            giveFocus(*box);
            if (open) {
                openByPress();
            }
            pressKey(WXK_TAB, backwards ? wxMOD_SHIFT : wxMOD_NONE);
            EXPECT_TRUE(hasFocus(backwards ? *before : *after)) << open << backwards;
            EXPECT_TRUE(isClosed());
        }
    }
}

TEST_F(ComboBoxTest, TellsOfRowsAloneAndReplacesThemWhileItIsOpen) {
    make(panel(), 5, 3);
    box->selectId(4321, true);
    box->selectIndex(5, true);
    EXPECT_FALSE(box->getSelectedIndex());
    box->selectIndex(4, true);
    EXPECT_THAT(log, ElementsAre("event 4", "callback 1004"));
    openByPress();
    box->setData(makeRows(2));
    EXPECT_TRUE(pumpUntil([] { return canvas().GetClientSize().y == 2 * rowHeight() + 2; }));
    EXPECT_FALSE(box->getSelectedId());
    box->setData({});
    EXPECT_TRUE(isClosed());
    box->open();
    EXPECT_FALSE(box->isOpen()) << "there is nothing to open";
}

TEST_F(ComboBoxTest, MayBeDestroyedInAnyOfItsReports) {
    const auto choose = [this] { click(canvas(), inRow(1)); };
    const std::tuple<const char*, bool, std::function<void()>> ways[] = {
        {"event", true, choose},
        {"callback", true, choose},
        {"hidden", true, choose},
        {"hidden", true, [this] { pressKey(WXK_TAB); }},
        {"event", true, [this] { pressKey(WXK_DOWN); }},
        {"callback", true, [this] { turnWheel(canvas(), -120); }},
        {"shown", false, [this] { click(*box, middle(*box)); }},
        {"hidden", true, [this] { box->Enable(false); }},
        {"", true, [this] { box->Destroy(); }},
        {"", true, [this] { box->GetGrandParent()->Destroy(); }},
    };
    for (const auto& [event, open, act] : ways) {
        SCOPED_TRACE(event);
        panel().DestroyChildren();
        make(*new wxPanel(&panel(), wxID_ANY, wxPoint(0, 0), wxSize(500, 300)), 5, 0);
        if (open) {
            openByPress();
        }
        destroyAt = event;
        act();
        EXPECT_TRUE(pumpUntil([this] { return !box; }));
        EXPECT_TRUE(isClosed());
        destroyAt.clear();
    }
}

TEST_F(ComboBoxList, GoesWithTheWindowThatItBelongsTo) {
    auto* const owner = new wxFrame(&frame(), wxID_ANY, "Owner", wxPoint(200, 150), wxSize(600, 300));
    make(*new wxPanel(owner), 5, 0);
    owner->Show();
    openByPress();
    EXPECT_TRUE(list() != nullptr && owner->Close());
    EXPECT_TRUE(pumpUntil([this] { return !box; }));
    EXPECT_EQ(list(), nullptr);
}

} // namespace
} // namespace Ostrel::Wx
