#include <OstrelLibWx/MessageDialog.h>

#include <OstrelLib/Exceptions.h>
#include <OstrelLibWx/widgets/AutoSizedButton.h>
#include <OstrelLibWx/widgets/StaticBitmap.h>
#include <OstrelLibWx/widgets/StaticText.h>

#include "painting/ToolkitTypes.h"
#include "support/WidgetTest.h"
#include "widgets/ModalDriver.h"

#include <utility>

#include <wx/modalhook.h>
#include <wx/msgdlg.h>

#include <future>
#include <thread>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Controls = Stack<const MessageDialogControl*>;
using Step = ModalDriver::Step;

template <class Widget>
std::vector<Widget*> findChildren(const wxWindow& window) {
    std::vector<Widget*> found;
    for (wxWindow* const child : window.GetChildren()) {
        if (auto* const widget = dynamic_cast<Widget*>(child)) {
            found.push_back(widget);
        }
    }
    return found;
}

class MessageDialogTest : public WidgetTest {
protected:
    WindowHandle owner() { return getWindowNativeHandle(&frame()); }

    /// Presses keys one right after the other, as soon as the dialog waits for input.
    Step press(std::vector<int> keys) {
        return [this, keys] {
            if (ModalDriver::findActive<MessageDialog>() == nullptr) {
                return false;
            }
            for (const int key : keys) {
                input().Char(key);
            }
            return true;
        };
    }
    /// Clicks the button with this label, as soon as the dialog waits for input and stays where it is.
    Step clickButton(const wxString& label) {
        return [this, label, last = wxRect(), looks = 0]() mutable {
            constexpr int LOOKS_AT_REST = 20;
            const auto* const dialog = ModalDriver::findActive<MessageDialog>();
            for (const AutoSizedButton* const button :
                 dialog == nullptr ? std::vector<AutoSizedButton*>() : findChildren<AutoSizedButton>(*dialog)) {
                if (button->GetLabel() == label) {
                    input().MouseMove(onScreen(*button, middle(*button)));
                    looks = std::exchange(last, button->GetScreenRect()) == last ? looks + 1 : 0;
                    return looks == LOOKS_AT_REST && input().MouseClick();
                }
            }
            return false;
        };
    }
    static Step close() {
        return [] {
            auto* const dialog = ModalDriver::findActive<MessageDialog>();
            return dialog != nullptr && dialog->Close();
        };
    }
    /// Runs a dialog modally, takes the steps, and returns its result.
    int run(const Controls& controls, std::vector<Step> steps) {
        const ModalDriver driver(std::move(steps));
        const std::size_t windows = wxTopLevelWindows.size();
        const int result =
            Detail::showMessageDialogImpl(owner(), "Title", "Message", MessageDialogIcon::QUESTION, controls);
        EXPECT_EQ(wxTopLevelWindows.size(), windows) << "something is left behind";
        EXPECT_TRUE(frame().IsEnabled());
        return result;
    }
    bool runHelper(bool (*show)(WindowHandle, const String&, const String&, MessageDialogIcon), Step step) {
        const ModalDriver driver({std::move(step)});
        return show(owner(), "Title", "Message", MessageDialogIcon::INFORMATION);
    }
};

using MessageDialogControls = MessageDialogTest;
using MessageDialogEnd = MessageDialogTest;
using MessageDialogLayout = MessageDialogTest;
using MessageDialogWithoutWaiting = MessageDialogTest;
using MessageDialogOffTheMainThread = MessageDialogTest;

TEST_F(MessageDialogControls, OfTheHostHaveIdsOfTheirOwnAndNoKeysWhileDisabled) {
    MessageDialogButton first("First", Stack<int>{'A', 'B'});
    const MessageDialogButton second("Second", 'C');
    EXPECT_GE(first.id, 16006);
    EXPECT_EQ(second.id, first.id + 1);
    first.enabled = false;
    EXPECT_THAT(first.keyCodesToBind(), ElementsAre());
    EXPECT_THAT(first.keyCodes, ElementsAre('A', 'B'));
    EXPECT_THAT(MessageDialogButton::CANCEL.keyCodesToBind(), ElementsAre());
    EXPECT_EQ(MessageDialogControl::OUTSIDE_CLOSE.id, 15999);
    EXPECT_EQ(MessageDialogControl::FRAME_ICON.id, 16001);
    EXPECT_EQ(MessageDialogButton::YES.label, "Yes");
}

TEST_F(MessageDialogEnd, ComesByTheKeysOfTheControls) {
    const auto& ok = MessageDialogButton::OK;
    const auto& cancel = MessageDialogButton::CANCEL;
    const auto& yes = MessageDialogButton::YES;
    const auto& no = MessageDialogButton::NO;
    const MessageDialogControl late({'Y', WXK_F5});
    using Case = std::tuple<Controls, std::vector<int>, int>;
    const Case cases[] = {
        {{&ok}, {WXK_RETURN}, 16002},
        {{&ok, &cancel}, {WXK_ESCAPE}, 16000},
        {{&yes, &no}, {'Y'}, 16004},
        {{&yes, &no}, {WXK_ESCAPE, WXK_RETURN, WXK_SPACE, 'N'}, 16005}, // only the last one is bound
        {{&yes, &late}, {'Y'}, late.id},
        {{&late, &yes}, {'Y'}, 16004},
        {{&late}, {WXK_F5}, late.id},
        {{&ok, &cancel}, {WXK_RETURN, WXK_ESCAPE, WXK_ESCAPE}, 16002}, // the first one counts
    };
    for (const auto& [controls, keys, result] : cases) {
        EXPECT_EQ(run(controls, {press(keys)}), result) << testing::PrintToString(keys);
        EXPECT_TRUE(pumpUntil([this] { return frame().IsActive(); })) << "the owner is not active again";
    }
    // A key that arrives as an event is told from Return by its code alone.
    const ModalDriver driver({[] {
        auto* const dialog = ModalDriver::findActive<MessageDialog>();
        if (dialog != nullptr) {
            wxKeyEvent event(wxEVT_CHAR_HOOK);
            event.m_keyCode = WXK_NUMPAD_ENTER;
            dialog->ProcessWindowEvent(event);
        }
        return dialog != nullptr;
    }});
    EXPECT_TRUE(showOkDialog(owner(), "", "", MessageDialogIcon::NO_ICON));
}

TEST_F(MessageDialogEnd, ComesByAClickOrARequestToClose) {
    MessageDialogButton disabled("Disabled", 'D');
    disabled.enabled = false;
    const MessageDialogButton apply("Apply & go", Stack<int>());
    const Controls controls{&disabled, &apply, &MessageDialogButton::NO};
    EXPECT_EQ(run(controls, {clickButton("Apply & go")}), apply.id);
    EXPECT_EQ(run(controls, {clickButton("Disabled"), press({'D'}), clickButton("No")}), 16005);
    EXPECT_EQ(run(controls, {close()}), 16000) << "FRAME_CLOSE, although it is not there";
    EXPECT_EQ(run({}, {close()}), 16000);
}

TEST_F(MessageDialogEnd, IsTheAnswerOfTheHelpers) {
    EXPECT_TRUE(runHelper(showOkDialog, press({WXK_RETURN})));
    EXPECT_FALSE(runHelper(showOkDialog, press({WXK_ESCAPE})));
    EXPECT_FALSE(runHelper(showOkDialog, close()));
    EXPECT_TRUE(runHelper(showOkCancelDialog, clickButton("OK")));
    EXPECT_FALSE(runHelper(showOkCancelDialog, clickButton("Cancel")));
    EXPECT_FALSE(runHelper(showOkCancelDialog, press({WXK_ESCAPE})));
    EXPECT_TRUE(runHelper(showYesNoDialog, press({'Y'})));
    EXPECT_FALSE(runHelper(showYesNoDialog, press({'N'})));
    EXPECT_FALSE(runHelper(showYesNoDialog, close()));
}

TEST_F(MessageDialogLayout, FollowsTheControls) {
    using Case = std::tuple<Controls, const char*, long, std::vector<wxString>>;
    const auto& close = MessageDialogControl::FRAME_CLOSE;
    const auto& icon = MessageDialogControl::FRAME_ICON;
    const auto& ok = MessageDialogButton::OK;
    const auto& cancel = MessageDialogButton::CANCEL;
    const Case cases[] = {
        {{&icon, &ok, &cancel}, "T", 0x20001800, {"OK", "Cancel"}},
        {{&cancel, &ok}, "", 0x20001000, {"Cancel", "OK"}},
        {{&icon, &ok}, "", 0x20000800, {"OK"}},
        {{&ok}, "", 0, {"OK"}},
        {{&close}, "T", 0x20001000, {}},
    };
    constexpr long MASK = wxCAPTION | wxSYSTEM_MENU | wxCLOSE_BOX;
    for (const auto& [controls, title, style, expected] : cases) {
        const MessageDialog dialog(owner(), title, "Message", MessageDialogIcon::ERROR_ICON, controls);
        SCOPED_TRACE(wxString::Format("%lx", style));
        EXPECT_EQ(dialog.GetWindowStyle() & MASK, style);
        EXPECT_EQ(dialog.GetTitle(), title);
        EXPECT_EQ(!dialog.GetIcons().IsEmpty(), std::ranges::find(controls, &icon) != controls.end());
        std::vector<wxString> labels;
        int right = 0;
        for (const AutoSizedButton* const button : findChildren<AutoSizedButton>(dialog)) {
            labels.push_back(button->GetLabel());
            EXPECT_TRUE(right == 0 || button->GetRect().x == right) << "a gap between buttons";
            right = button->GetRect().x + button->GetRect().width;
        }
        EXPECT_EQ(labels, expected);
        const int border = wxSizerFlags::GetDefaultBorder();
        EXPECT_TRUE(right == 0 || right == dialog.GetClientSize().x - border) << "not flush right";
    }
}

TEST_F(MessageDialogLayout, ShowsTheIconBesideTheMessage) {
    const int border = wxSizerFlags::GetDefaultBorder();
    const wxSize size = wxSize(32, 32) * scaleByDpi(1);
    std::vector<std::string> pictures;
    for (int icon = -1; icon <= 5; ++icon) {
        const MessageDialog dialog({}, "T", "Message", MessageDialogIcon(icon), {&MessageDialogButton::OK});
        const auto icons = findChildren<StaticBitmap>(dialog);
        const auto texts = findChildren<StaticText>(dialog);
        ASSERT_EQ(icons.size(), icon >= 1 && icon <= 4 ? 1u : 0u) << icon;
        ASSERT_EQ(texts.size(), 1u);
        if (icons.empty()) {
            EXPECT_EQ(texts[0]->GetRect().x, border);
            continue;
        }
        EXPECT_EQ(icons[0]->GetRect(), wxRect(wxPoint(border, border), size));
        EXPECT_EQ(texts[0]->GetRect().x, border + size.x + border);
        const wxImage image = icons[0]->getBitmap().ConvertToImage();
        const std::string bytes(reinterpret_cast<const char*>(image.GetData()),
                                static_cast<std::size_t>(3 * size.x * size.y));
        EXPECT_THAT(pictures, testing::Not(testing::Contains(bytes))) << "the same icon twice";
        pictures.push_back(bytes);
        EXPECT_EQ(texts[0]->GetForegroundColour(), wxColour(200, 200, 200));
        EXPECT_EQ(dialog.GetBackgroundColour(), wxColour(68, 68, 68));
    }
}

TEST_F(MessageDialogLayout, WrapsExpandsAndBreaksTheMessage) {
    const int limit = scaleByDpi(450);
    const auto shown = [this, limit](const String& message) {
        const MessageDialog dialog(owner(), "T", message, MessageDialogIcon::WARNING, {&MessageDialogButton::OK});
        const StaticText* const text = findChildren<StaticText>(dialog).at(0);
        const AutoSizedButton* const button = findChildren<AutoSizedButton>(dialog).at(0);
        EXPECT_LE(text->GetSize().x, limit);
        EXPECT_TRUE(wxRect(dialog.GetClientSize()).Contains(button->GetRect())) << "the button is not seen";
        const Bucket work = getMonitorRegionByWindow(&frame(), MonitorRegionType::WORK_AREA);
        EXPECT_EQ(toBucket(dialog.GetRect()).intersect(work), toBucket(dialog.GetRect())) << "not on the screen";
        int widest = 0;
        for (const wxString& line : wxSplit(text->GetLabel(), '\n', '\0')) {
            widest = std::max(widest, text->GetTextExtent(line).x);
        }
        EXPECT_LE(widest, limit);
        return text->GetLabel();
    };
    EXPECT_EQ(shown("a\tb & c\nd"), "a    b & c\nd");
    EXPECT_EQ(shown(""), "");
    wxString words, word, lines;
    for (int i = 0; i < 300; ++i) {
        words += "word ";
        word += "Wide";
        lines += "line\n";
    }
    words.Trim();
    wxString label = shown(String(words.ToStdWstring()));
    EXPECT_GT(label.Freq('\n'), 2);
    label.Replace("\n", " ");
    EXPECT_EQ(label, words);
    label = shown(String(("The file " + word).ToStdWstring()));
    label.Replace("\n", "");
    label.Replace(" ", "");
    EXPECT_EQ(label, "Thefile" + word) << "all of it is there";
    shown(String((lines + lines).ToStdWstring()));
}

TEST_F(MessageDialogLayout, LiesOverTheOwnerOrOnTheMonitor) {
    const auto place = [](WindowHandle handle) {
        const MessageDialog dialog(handle, "T", "Message", MessageDialogIcon::WARNING, {&MessageDialogButton::OK});
        EXPECT_EQ(getOwnerAsNativeHandle(getWindowNativeHandle(const_cast<MessageDialog*>(&dialog))), handle);
        return dialog.GetRect();
    };
    const auto centre = [](const Bucket& region, wxSize size) {
        return wxPoint(region.min.x + region.width() / 2 - size.x / 2, region.min.y + region.height() / 2 - size.y / 2);
    };
    const Bucket work = getMonitorRegionByWindow(&frame(), MonitorRegionType::WORK_AREA);
    wxRect rect = place(owner());
    EXPECT_EQ(rect.GetTopLeft(), centre(getScreenRegion(owner()), rect.GetSize()));
    rect = place({});
    EXPECT_EQ(rect.GetTopLeft(), centre(work, rect.GetSize()));

    wxFrame* const corner = new wxFrame(nullptr, wxID_ANY, "", wxDefaultPosition, wxSize(60, 60), wxBORDER_NONE);
    corner->Move(work.max.x - 60, work.max.y - 60);
    corner->Show();
    settle();
    rect = place(getWindowNativeHandle(corner));
    EXPECT_EQ(rect.GetBottomRight(), wxPoint(work.max.x - 1, work.max.y - 1));
    corner->Destroy();
    pump();
}

TEST_F(MessageDialogWithoutWaiting, StoresTheCodeAndDestroysItself) {
    wxWeakRef<MessageDialog> dialog;
    const std::function<void()> ways[] = {[&] {
                                              dialog->Close();
                                              ASSERT_TRUE(dialog) << "deleted while its event was handled";
                                              dialog->Close(); // once more, on a dialog that is about to go
                                              EXPECT_EQ(dialog->GetReturnCode(), 16000);
                                          },
                                          [&] { pressKey('Y'), pressKey('N'); },
                                          [&] {
                                              const auto* const button = findChildren<AutoSizedButton>(*dialog).at(1);
                                              click(*button, middle(*button));
                                          },
                                          [&] { dialog->Destroy(); }, // by the host, while it is shown
                                          [&] { delete dialog.get(); }};
    for (const std::function<void()>& end : ways) {
        dialog = new MessageDialog(owner(), "Title", "Message", MessageDialogIcon::WARNING,
                                   {&MessageDialogButton::YES, &MessageDialogButton::NO});
        dialog->Show();
        EXPECT_TRUE(pumpUntil([&] { return isUp(*dialog); }));
        EXPECT_TRUE(frame().IsEnabled());
        end();
        EXPECT_TRUE(pumpUntil([&] { return !dialog; })) << &end - ways;
    }
}

/// Answers in the place of the toolkit's own message boxes, and notes what they would have shown.
class BoxAnswer : public wxModalDialogHook {
public:
    explicit BoxAnswer(int answer)
        : _answer(answer) {
        Register();
    }
    ~BoxAnswer() override { Unregister(); }

    wxString message, caption;
    long style = 0;
    bool hasParent = false;
    std::thread::id thread;

protected:
    int Enter(wxDialog* dialog) override {
        const auto* const box = dynamic_cast<wxMessageDialog*>(dialog);
        if (box == nullptr) {
            return wxID_NONE;
        }
        message = box->GetMessage();
        caption = box->GetCaption();
        style = box->GetMessageDialogStyle();
        hasParent = box->GetParent() != nullptr;
        thread = std::this_thread::get_id();
        return _answer;
    }

private:
    int _answer;
};

TEST_F(MessageDialogOffTheMainThread, IsTheToolkitsOwn) {
    const auto& ok = MessageDialogButton::OK;
    const auto& cancel = MessageDialogButton::CANCEL;
    const auto& yes = MessageDialogButton::YES;
    const auto& no = MessageDialogButton::NO;
    // The last is the result, or the stop exception's line, negative.
    using Case = std::tuple<Controls, int, int, long, int>;
    const Case cases[] = {
        {{&ok}, 1, wxID_OK, wxOK | wxICON_ERROR, 16002},
        {{&ok, &cancel}, 2, wxID_CANCEL, wxOK | wxCANCEL | wxICON_WARNING, 16003},
        {{&yes, &no}, 4, wxID_YES, wxYES_NO | wxICON_QUESTION, 16004},
        {{&no, &yes, &cancel}, 3, wxID_NO, wxYES_NO | wxCANCEL | wxICON_INFORMATION, 16005},
        {{&ok}, 0, wxID_HELP, wxOK | wxICON_NONE, -367},
        {{&ok}, 5, wxID_OK, 0, -332},
    };
    for (const auto& [controls, icon, answer, style, expected] : cases) {
        for (const WindowHandle parent : {owner(), WindowHandle()}) {
            BoxAnswer box(answer);
            std::thread::id caller;
            std::future<int> result = std::async(std::launch::async, [&, &controls = controls, icon = icon] {
                caller = std::this_thread::get_id();
                try {
                    return Detail::showMessageDialogImpl(parent, "Title", "a\tb", MessageDialogIcon(icon), controls);
                } catch (const Detail::StopException& stop) {
                    EXPECT_EQ(stop.getPath(), "MessageDialog");
                    return -stop.getLine();
                }
            });
            ASSERT_TRUE(
                pumpUntil([&result] { return result.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
            EXPECT_EQ(result.get(), expected);
            if (style != 0) {
                EXPECT_EQ(box.style, style | wxSTAY_ON_TOP | wxCENTRE);
                EXPECT_EQ(box.message, "a    b");
                EXPECT_EQ(box.caption, "Title");
                EXPECT_EQ(box.hasParent, !parent.isNull());
            }
            EXPECT_TRUE(frame().IsEnabled());
        }
    }
}

} // namespace
} // namespace Ostrel::Wx
