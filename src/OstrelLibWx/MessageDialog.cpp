#include <OstrelLibWx/MessageDialog.h>

#include <OstrelLib/Application.h>
#include <OstrelLibWx/BitmapUtils.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/AutoSizedButton.h>
#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/StaticBitmap.h>
#include <OstrelLibWx/widgets/StaticText.h>

#include "DialogParentWrapper.h"
#include "assets/MessageError.h"
#include "assets/MessageInformation.h"
#include "assets/MessageQuestion.h"
#include "assets/MessageWarning.h"
#include "models/MessageDialogModel.h"
#include "painting/ToolkitTypes.h"
#include "platform/DialogOwner.h"
#include "platform/GuiThread.h"

#include <wx/msgdlg.h>
#include <wx/sizer.h>

namespace Ostrel::Wx {

static_assert(MessageDialogStyle::SYSTEM_MENU == wxSYSTEM_MENU && MessageDialogStyle::CLOSE_BOX == wxCLOSE_BOX &&
              MessageDialogStyle::CAPTION == wxCAPTION);
static_assert(NativeMessageStyle::YES_NO == wxYES_NO && NativeMessageStyle::OK == wxOK &&
              NativeMessageStyle::CANCEL == wxCANCEL && NativeMessageStyle::CENTRE == wxCENTRE &&
              NativeMessageStyle::STAY_ON_TOP == wxSTAY_ON_TOP);
static_assert(NativeMessageStyle::ICON_NONE == wxICON_NONE && NativeMessageStyle::ICON_ERROR == wxICON_ERROR &&
              NativeMessageStyle::ICON_WARNING == wxICON_WARNING &&
              NativeMessageStyle::ICON_INFORMATION == wxICON_INFORMATION &&
              NativeMessageStyle::ICON_QUESTION == wxICON_QUESTION);
static_assert(NativeMessageResult::OK == wxID_OK && NativeMessageResult::CANCEL == wxID_CANCEL &&
              NativeMessageResult::YES == wxID_YES && NativeMessageResult::NO == wxID_NO);

namespace {

/// Lines of the message are at most this wide, design pixels.
constexpr int MAXIMUM_MESSAGE_WIDTH = 450;

int nextControlId = MessageControlId::OUTSIDE_CLOSE; // the first that is constructed

struct IconAsset {
    const unsigned char* data;
    std::size_t size;
};

/// Invalid for a value that has no icon.
wxBitmap loadIcon(MessageDialogIcon icon) {
    using namespace Detail::Assets;
    const IconAsset icons[] = {
        {MESSAGE_ERROR, MESSAGE_ERROR_SIZE},
        {MESSAGE_WARNING, MESSAGE_WARNING_SIZE},
        {MESSAGE_INFORMATION, MESSAGE_INFORMATION_SIZE},
        {MESSAGE_QUESTION, MESSAGE_QUESTION_SIZE},
    };
    const auto index = static_cast<std::size_t>(icon) - static_cast<std::size_t>(MessageDialogIcon::ERROR_ICON);
    if (index >= std::size(icons)) {
        return {};
    }
    return scaleByDpi(convertMemoryToBitmap(reinterpret_cast<const unsigned*>(icons[index].data),
                                            static_cast<int>(icons[index].size), wxBITMAP_TYPE_ANY));
}

Array<int> getIds(ArrayView<const MessageDialogControl* const> controls) {
    Array<int> ids;
    ids.reserve(controls.size());
    for (const MessageDialogControl* const control : controls) {
        ids.push_back(control->id);
    }
    return ids;
}

/// The toolkit's own message box. With a null parent it has none, where the toolkit would look for one.
int showNativeMessage(WindowHandle parent, const String& title, const String& message, long style) {
    if (!parent) {
        wxMessageDialog dialog(nullptr, toWx(message), toWx(title), style | wxDIALOG_NO_PARENT);
        dialog.SetMessageDialogStyle(style);
        dialog.SetWindowStyleFlag(wxDIALOG_NO_PARENT);
        return dialog.ShowModal();
    }
    Fallback::DialogParentWrapper wrapper(parent);
    wxMessageDialog dialog(&wrapper, toWx(message), toWx(title), style);
    int answer = wxID_CANCEL;
    {
        const WindowDisabler disabler(parent);
        answer = dialog.ShowModal();
    }
    Detail::reactivateOwner(parent);
    return answer;
}

/// Whether the first of the two controls ended the dialog.
bool isEndedByFirst(WindowHandle parent, const String& title, const String& message, MessageDialogIcon icon,
                    const MessageDialogControl& first, const MessageDialogControl& second) {
    const MessageDialogControl* const controls[] = {&first, &second};
    return Detail::showMessageDialogImpl(parent, title, message, icon, controls) == first.id;
}

} // namespace

// Constructed in this order, which gives them their ids.
const MessageDialogControl MessageDialogControl::OUTSIDE_CLOSE;
const MessageDialogControl MessageDialogControl::FRAME_CLOSE({WXK_ESCAPE});
const MessageDialogControl MessageDialogControl::FRAME_ICON;
const MessageDialogButton MessageDialogButton::OK("OK", {WXK_RETURN, WXK_NUMPAD_ENTER});
const MessageDialogButton MessageDialogButton::CANCEL("Cancel", Stack<int>());
const MessageDialogButton MessageDialogButton::YES("Yes", 'Y');
const MessageDialogButton MessageDialogButton::NO("No", 'N');

MessageDialogControl::MessageDialogControl(Stack<int> codes)
    : id(nextControlId++)
    , keyCodes(std::move(codes)) {}

MessageDialogControl::~MessageDialogControl() = default;

Stack<int> MessageDialogControl::keyCodesToBind() const {
    return keyCodes;
}

MessageDialogButton::MessageDialogButton(String buttonLabel, int keyCode)
    : MessageDialogButton(std::move(buttonLabel), Stack<int>{keyCode}) {}

MessageDialogButton::MessageDialogButton(String buttonLabel, Stack<int> buttonKeyCodes)
    : MessageDialogControl(std::move(buttonKeyCodes))
    , label(std::move(buttonLabel)) {}

MessageDialogButton::~MessageDialogButton() = default;

Stack<int> MessageDialogButton::keyCodesToBind() const {
    return enabled ? keyCodes : Stack<int>();
}

struct MessageDialog::Impl {
    StaticText* message = nullptr;
    StaticBitmap* icon = nullptr; ///< null without one
    Array<AutoSizedButton*> buttons;
    MessageKeyTable keys;
    bool ended = false; ///< what still arrives after the end changes nothing
};

MessageDialog::MessageDialog(WindowHandle parent, const String& title, String message, MessageDialogIcon icon,
                             Stack<const MessageDialogControl*> controls)
    : _impl(new Impl) {
    create(parent, title, std::move(message), icon, std::move(controls));
}

MessageDialog::~MessageDialog() = default;

void MessageDialog::create(WindowHandle parent, const String& title, String message, MessageDialogIcon icon,
                           Stack<const MessageDialogControl*> controls) {
    if (needsFrameClose(getIds(controls))) {
        controls.push_back(&MessageDialogControl::FRAME_CLOSE);
    }
    const Array<int> ids = getIds(controls);
    // The toolkit would otherwise make one of its own windows the owner.
    const long style = computeMessageDialogStyle(ids, !title.isEmpty()) | wxDIALOG_NO_PARENT;
    wxDialog::Create(nullptr, wxID_ANY, toWx(title), wxDefaultPosition, wxDefaultSize, style);
    setOwnerFromNativeHandle(getWindowNativeHandle(this), parent);

    addRows(expandMessageTabs(std::move(message)), icon, controls);
    for (const MessageDialogControl* const control : controls) {
        for (const int keyCode : control->keyCodesToBind()) {
            _impl->keys.bind(keyCode, control->id);
        }
    }
    Bind(wxEVT_CHAR_HOOK, &MessageDialog::onKey, this);
    // Also where FRAME_CLOSE is not among the controls: a request to close may come from elsewhere than the close box.
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { end(MessageDialogControl::FRAME_CLOSE.id); });
    if (std::ranges::find(ids, MessageDialogControl::FRAME_ICON.id) != ids.end()) {
        setNimbraIcon(this);
    }
    applySkinRecursive(this, GuiSkin());
    Fit();
    place();
}

void MessageDialog::addRows(const String& message, MessageDialogIcon icon,
                            ArrayView<const MessageDialogControl* const> controls) {
    const int border = wxSizerFlags::GetDefaultBorder();
    auto* const messageRow = new wxBoxSizer(wxHORIZONTAL);
    if (const wxBitmap bitmap = loadIcon(icon); bitmap.IsOk()) {
        _impl->icon = new StaticBitmap(this, wxID_ANY, bitmap);
        messageRow->Add(_impl->icon, wxSizerFlags().Border(wxRIGHT, border));
    }
    auto* const text = new StaticText(this, wxID_ANY, message, 0, {}, wxDefaultSize);
    text->SetMaxSize(wxSize(scaleByDpi(MAXIMUM_MESSAGE_WIDTH), text->GetMaxHeight()));
    const String broken = breakWideWords(message, text->GetMaxWidth(),
                                         [text](const String& piece) { return text->GetTextExtent(toWx(piece)).x; });
    if (broken != message) {
        text->SetLabel(toWx(broken));
    }
    text->Wrap(text->GetMaxWidth());
    _impl->message = text;
    // A short message stands beside the middle of the icon, a long one begins at its top.
    messageRow->Add(text, wxSizerFlags(1).CenterVertical());

    auto* const rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(messageRow, wxSizerFlags(1).Expand().Border(wxALL, border));
    auto* const buttonRow = new wxBoxSizer(wxHORIZONTAL);
    buttonRow->AddStretchSpacer();
    for (const MessageDialogControl* const control : controls) {
        const auto* const description = dynamic_cast<const MessageDialogButton*>(control);
        if (description == nullptr) {
            continue;
        }
        auto* const button = new AutoSizedButton(this, toWx(description->label));
        button->Enable(description->enabled);
        Bind(
            Button::clickEventType(), [this, id = control->id](wxMouseEvent&) { end(id); }, button->GetId());
        buttonRow->Add(button);
        _impl->buttons.push_back(button);
    }
    if (_impl->buttons.empty()) {
        delete buttonRow;
    } else {
        rows->Add(buttonRow, wxSizerFlags().Expand().Border(wxALL, border));
    }
    SetSizer(rows);
}

void MessageDialog::place() {
    const WindowHandle owner = getOwnerAsNativeHandle(getWindowNativeHandle(this));
    const Bucket region = owner ? getScreenRegion(owner) : getMonitorRegionByWindow(this, MonitorRegionType::WORK_AREA);
    // What a long message has too much goes off its own end, and not off the buttons.
    const Bucket workArea = getMonitorRegionByPoint(centreInRegion(region, {}), MonitorRegionType::WORK_AREA);
    wxSize size = GetSize();
    size.DecTo(wxSize(workArea.width(), workArea.height()));
    if (size != GetSize()) {
        SetSize(size);
    }
    smartPositionWindow(this, centreInRegion(region, {size.x, size.y}));
}

int MessageDialog::ShowModal() {
    _impl->ended = false;
    return wxDialog::ShowModal();
}

void MessageDialog::EndModal(int returnCode) {
    _impl->ended = true;
    wxDialog::EndModal(returnCode);
}

void MessageDialog::end(int id) {
    if (_impl->ended) {
        return;
    }
    if (IsModal()) {
        EndModal(id);
        return;
    }
    _impl->ended = true;
    SetReturnCode(id);
    Destroy();
}

void MessageDialog::onKey(wxKeyEvent& event) {
    if (const Optional<int> id = _impl->keys.find(event.GetKeyCode())) {
        end(*id);
    } else {
        event.Skip();
    }
}

bool showOkDialog(WindowHandle parent, const String& title, const String& message, MessageDialogIcon icon) {
    return isEndedByFirst(parent, title, message, icon, MessageDialogButton::OK, MessageDialogControl::FRAME_CLOSE);
}

bool showOkCancelDialog(WindowHandle parent, const String& title, const String& message, MessageDialogIcon icon) {
    return isEndedByFirst(parent, title, message, icon, MessageDialogButton::OK, MessageDialogButton::CANCEL);
}

bool showYesNoDialog(WindowHandle parent, const String& title, const String& message, MessageDialogIcon icon) {
    return isEndedByFirst(parent, title, message, icon, MessageDialogButton::YES, MessageDialogButton::NO);
}

} // namespace Ostrel::Wx

int Ostrel::Detail::showMessageDialogImpl(WindowHandle parent, const String& title, const String& message,
                                          Wx::MessageDialogIcon icon,
                                          ArrayView<const Wx::MessageDialogControl* const> controls) {
    using namespace Wx;
    Stack<const MessageDialogControl*> all(controls.begin(), controls.end());
    all.push_back(&MessageDialogControl::FRAME_ICON);
    if (isMainThread()) {
        MessageDialog dialog(parent, title, message, icon, std::move(all));
        return dialog.ShowModal();
    }
    const long style = computeNativeMessageStyle(getIds(all), static_cast<int>(icon));
    const String text = expandMessageTabs(message);
    return mapNativeMessageResult(callForOtherThread([&] { return showNativeMessage(parent, title, text, style); }));
}
