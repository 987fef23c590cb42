#include "widgets/DialogParts.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/Spinner.h>

#include "models/MessageDialogModel.h"
#include "painting/ToolkitTypes.h"

#include <wx/toplevel.h>
#include <wx/weakref.h>

#include <algorithm>

namespace Ostrel::Wx {

namespace {

// Design pixels; an entry of a dropdown button has the same size.
constexpr int BUTTON_WIDTH = 73;
constexpr int BUTTON_HEIGHT = 24;
constexpr int BUTTON_PADDING = 8;

} // namespace

void placeOverOwner(wxTopLevelWindow* window, WindowHandle owner) {
    const Bucket region =
        owner ? getScreenRegion(owner) : getMonitorRegionByWindow(window, MonitorRegionType::WORK_AREA);
    const wxSize size = window->GetSize();
    smartPositionWindow(window, centreInRegion(region, {size.x, size.y}));
}

void placeOverParent(wxTopLevelWindow* window) {
    wxWindow* const parent = window->GetParent();
    placeOverOwner(window, parent != nullptr ? getWindowNativeHandle(wxGetTopLevelParent(parent)) : WindowHandle());
}

Button* makeDialogButton(wxWindow* parent, const GuiSkin& skin, const String& label, Function<void()> onClick,
                         Button::Behavior behavior) {
    auto* const button =
        new Button(parent, skin, wxID_ANY, toWx(label), wxBitmap(), wxBitmap(), std::move(onClick), behavior, true, {});
    const int width = button->GetTextExtent(toWx(label)).x + 2 * scaleByDpi(BUTTON_PADDING);
    button->SetMinSize(wxSize(std::max(scaleByDpi(BUTTON_WIDTH), width), scaleByDpi(BUTTON_HEIGHT)));
    return button;
}

StaticText* makeDialogLabel(wxWindow* parent, const String& text) {
    return new StaticText(parent, wxID_ANY, text, 0, {}, wxDefaultSize);
}

bool commitFocusedSpinner(wxWindow* dialog) {
    const wxWeakRef<wxWindow> self(dialog);
    for (wxWindow* window = wxWindow::FindFocus(); window != nullptr && window != dialog;
         window = window->GetParent()) {
        if (auto* const spinner = dynamic_cast<Spinner*>(window)) {
            spinner->commitText();
            break;
        }
    }
    return self != nullptr;
}

void moveFocusOnTab(wxTopLevelWindow* frame) {
    frame->Bind(wxEVT_CHAR_HOOK, [frame](wxKeyEvent& event) {
        wxWindow* child = wxWindow::FindFocus();
        while (child != nullptr && child->GetParent() != frame) {
            child = child->GetParent();
        }
        if (event.GetKeyCode() != WXK_TAB || event.ControlDown() || event.AltDown() || child == nullptr) {
            event.Skip();
            return;
        }
        moveFocus(child, event.ShiftDown() ? MoveFocusDirection::BACKWARD : MoveFocusDirection::FORWARD);
    });
}

void setChoices(ComboBox& box, ArrayView<const char* const> texts, int selected) {
    Array<ComboBox::Item> items;
    for (const char* const text : texts) {
        items.push_back({text, static_cast<int>(items.size())});
    }
    box.setData(items);
    box.selectIndex(selected, false);
}

} // namespace Ostrel::Wx
