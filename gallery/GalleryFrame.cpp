#include "GalleryFrame.h"

#include "EventLog.h"

#include <OstrelLibWx/MessageDialog.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/StaticBitmap.h>
#include <OstrelLibWx/widgets/StaticLine.h>

#include <wx/display.h>

namespace Ostrel::Gallery {

namespace {

// Design pixels.
const wxSize CLIENT_SIZE{1060, 760};
const wxSize MINIMUM_SIZE{960, 720};
constexpr int LIST_WIDTH = 152;
constexpr int LIST_ENTRY_HEIGHT = 22;

/// Whether a control that takes keys of its own has the focus.
bool isFocusInControl() {
    for (wxWindow* window = wxWindow::FindFocus(); window != nullptr; window = window->GetParent()) {
        if (dynamic_cast<Wx::Focusable*>(window) != nullptr) {
            return true;
        }
    }
    return false;
}

} // namespace

GalleryFrame::GalleryFrame(const Picture& picture)
    : wxFrame(nullptr, wxID_ANY, "OstrelLibWx Gallery")
    , _picture(picture)
    , _ground(new wxPanel(this))
    , _pages(getPages().size(), nullptr) {
    Wx::setNimbraIcon(this);
    auto* const list = new wxBoxSizer(wxVERTICAL);
    buildList(*list);
    auto* const line = new Wx::StaticLine(_ground, wxVERTICAL);
    _place = new wxPanel(_ground, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE);
    _place->SetSizer(new wxBoxSizer(wxVERTICAL));
    // The last child, so that it is destroyed after the pages, which report to it to their end.
    _log = new EventLog(_ground);

    auto* const right = new wxBoxSizer(wxVERTICAL);
    right->Add(_place, wxSizerFlags(1).Expand());
    right->Add(_log, wxSizerFlags().Expand());
    auto* const all = new wxBoxSizer(wxHORIZONTAL);
    all->Add(list, wxSizerFlags().Expand());
    all->Add(line, wxSizerFlags().Expand());
    all->Add(right, wxSizerFlags(1).Expand());
    _ground->SetSizer(all);
    Wx::applySkinRecursive(this, Wx::GuiSkin());

    Bind(wxEVT_CHAR_HOOK, &GalleryFrame::onKey, this);

    const wxSize room = wxDisplay(this).GetClientArea().GetSize();
    wxSize minimum = Wx::scaleByDpi(MINIMUM_SIZE);
    minimum.DecTo(room);
    SetMinSize(minimum);
    SetClientSize(Wx::scaleByDpi(CLIENT_SIZE));
    wxSize size = GetSize();
    size.DecTo(room);
    SetSize(size);
    Centre();
    const wxPoint centred = GetPosition();
    Wx::smartPositionWindow(this, {centred.x, centred.y});
}

void GalleryFrame::buildList(wxSizer& list) {
    list.AddSpacer(Wx::scaleByDpi(2 * GRID));
    const ArrayView<const PageEntry> pages = getPages();
    for (std::size_t i = 0; i < pages.size(); ++i) {
        auto* const button = new Wx::Button(
            _ground, Wx::GuiSkin(), wxID_ANY, wxString(pages[i].title.toWide()), wxNullBitmap, wxNullBitmap,
            [this, i] { showPage(i); }, Wx::Button::TOGGLE, true,
            Flags<RawaBorderState>(RawaBorderState::ENABLED) | RawaBorderState::FLAT);
        button->SetMinSize(Wx::scaleByDpi(wxSize(LIST_WIDTH, LIST_ENTRY_HEIGHT)));
        list.Add(button, wxSizerFlags().Border(wxLEFT | wxRIGHT, Wx::scaleByDpi(2 * GRID)));
        list.AddSpacer(Wx::scaleByDpi(GRID / 4));
        _buttons.push_back(button);
    }
    list.AddStretchSpacer();
    auto* const about = new Wx::Button(
        _ground, Wx::GuiSkin(), wxID_ABOUT, "About...", wxNullBitmap, wxNullBitmap, [this] { showAbout(); },
        Wx::Button::PUSH, true, Flags<RawaBorderState>(RawaBorderState::ENABLED) | RawaBorderState::FLAT);
    about->SetMinSize(Wx::scaleByDpi(wxSize(LIST_WIDTH, LIST_ENTRY_HEIGHT)));
    list.Add(about, wxSizerFlags().Border(wxLEFT | wxRIGHT, Wx::scaleByDpi(2 * GRID)));
    list.AddSpacer(Wx::scaleByDpi(2 * GRID));
}

void GalleryFrame::showAbout() {
    Wx::showOkDialog(Wx::getWindowNativeHandle(this), "About",
                     String("OstrelLibWx ") + OSTREL_VERSION +
                         "\nControls and dialogs for the tools of a renderer, in one dark look.\n\n"
                         "This gallery shows each of them; what they report stands in the strip at the bottom.",
                     Wx::MessageDialogIcon::INFORMATION);
}

void GalleryFrame::showPage(std::size_t index) {
    const Wx::ScopedWindowFreezer freezer(_place);
    Page*& page = _pages[index];
    if (page == nullptr) {
        page = getPages()[index].create({_place, *_log, _picture});
        page->dress();
        _place->GetSizer()->Add(page, wxSizerFlags(1).Expand());
    }
    if (Page* const before = _pages[_current]; before != nullptr && before != page && before->IsShown()) {
        before->Hide();
        before->onPageShown(false);
    }
    const bool shownAnew = !page->IsShown();
    page->Show();
    _place->Layout();
    _current = index;
    // Clicking the page that is there already must not untoggle its entry.
    for (std::size_t i = 0; i < _buttons.size(); ++i) {
        _buttons[i]->setToggled(i == index);
    }
    if (shownAnew) {
        page->onPageShown(true);
        _log->SetFocus();
    }
}

void GalleryFrame::onKey(wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    if (key == WXK_TAB && event.ControlDown()) {
        showNextPage(!event.ShiftDown());
        return;
    }
    if (event.HasAnyModifiers() || isFocusInControl()) {
        event.Skip();
        return;
    }
    if (getCurrentPage().onKey(key)) {
        return;
    }
    switch (key) {
    case WXK_UP:
    case WXK_DOWN:
        showNextPage(key == WXK_DOWN);
        return;
    case WXK_PAGEUP:
    case WXK_PAGEDOWN:
        // A page that is too high is read to its end before the next one comes.
        if (!scrollPage(key == WXK_PAGEDOWN)) {
            showNextPage(key == WXK_PAGEDOWN);
        }
        return;
    default:
        event.Skip();
    }
}

void GalleryFrame::showNextPage(bool forward) {
    const std::size_t count = _pages.size();
    showPage((_current + (forward ? 1 : count - 1)) % count);
}

bool GalleryFrame::scrollPage(bool down) {
    Page& page = getCurrentPage();
    int unit = 0;
    page.GetScrollPixelsPerUnit(nullptr, &unit);
    const int before = page.GetViewStart().y;
    const int step = std::max(1, page.GetClientSize().y / unit - 1);
    page.Scroll(-1, std::max(0, down ? before + step : before - step));
    return page.GetViewStart().y != before;
}

} // namespace Ostrel::Gallery
