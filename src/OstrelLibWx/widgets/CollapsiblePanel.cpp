#include <OstrelLibWx/widgets/CollapsiblePanel.h>

#include <OstrelLibWx/WindowUtils.h>

#include "models/CollapsibleHeaderLayout.h"
#include "painting/CollapsibleHeaderPainting.h"
#include "painting/TextPainting.h"
#include "painting/ToolkitTypes.h"
#include "widgets/ToggleInput.h"

#include <wx/control.h>
#include <wx/dcbuffer.h>
#include <wx/scrolwin.h>
#include <wx/sizer.h>

namespace Ostrel::Wx {

namespace {

// Design pixels.
constexpr int MINIMUM_HEIGHT = 24;
constexpr int TRIANGLE_DEPTH = 4;
constexpr int GAP = 8;
constexpr int FOCUS_INSET = 3;

constexpr int CLICK_KEYS[] = {WXK_SPACE, WXK_RETURN, WXK_NUMPAD_ENTER};

CollapsibleHeaderMetrics makeMetrics() {
    return {scaleByDpi(MINIMUM_HEIGHT), scaleByDpi(TRIANGLE_DEPTH), scaleByDpi(GAP), scaleByDpi(FOCUS_INSET)};
}

bool isInside(const wxWindow& ancestor, const wxWindow* window) {
    while (window != nullptr && window != &ancestor && !window->IsTopLevel()) {
        window = window->GetParent();
    }
    return window == &ancestor;
}

} // namespace

class CollapsiblePanel::Header : public wxControl {
public:
    Header(wxWindow* parent, const GuiSkin& skin, const wxString& title, bool expanded, Function<void()> onClick)
        : wxControl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE)
        , _skin(skin)
        , _title(title)
        , _input(*this, CLICK_KEYS, std::move(onClick)) {
        _input.setOn(expanded);
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        SetBackgroundColour(toWxColour(skin.background));
        SetForegroundColour(toWxColour(skin.text));
        Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
            wxAutoBufferedPaintDC dc(this);
            paint(dc);
        });
        Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
            updateLayout();
            event.Skip();
        });
        Bind(wxEVT_DPI_CHANGED, [this](wxDPIChangedEvent& event) {
            measureTitle();
            event.Skip();
        });
        SetFont(setupStaticTextFont(m_font, TextFlag::BOLD));
    }

    bool SetFont(const wxFont& font) override {
        const bool changed = wxControl::SetFont(font);
        measureTitle();
        return changed;
    }

    void setTitle(const wxString& title) {
        _title = title;
        measureTitle();
    }
    [[nodiscard]] const wxString& getTitle() const { return _title; }

    [[nodiscard]] ToggleInput& input() { return _input; }

    [[nodiscard]] bool AcceptsFocus() const override { return true; }

    void paint(wxDC& dc) const {
        dc.SetFont(GetFont());
        paintCollapsibleHeader(dc, {.size = GetClientSize(),
                                    .layout = _layout,
                                    .triangleDepth = scaleByDpi(TRIANGLE_DEPTH),
                                    .state = _input.getState(),
                                    .background = GetBackgroundColour(),
                                    .foreground = GetForegroundColour(),
                                    .title = _title,
                                    .skin = _skin});
    }

protected:
    [[nodiscard]] wxSize DoGetBestSize() const override {
        const Pixel size = computeCollapsibleHeaderSize(makeMetrics(), _titleExtent);
        return {size.x, size.y};
    }

private:
    void measureTitle() {
        _titleExtent = toPixel(measureText(*this, _title));
        InvalidateBestSize();
        updateLayout();
    }

    void updateLayout() {
        _layout = layOutCollapsibleHeader(makeMetrics(), toPixel(GetClientSize()), _titleExtent);
        Refresh();
    }

    GuiSkin _skin;
    wxString _title;
    ToggleInput _input;
    Pixel _titleExtent{0, 0};          ///< kept since the title or the font changed last
    CollapsibleHeaderLayout _layout{}; ///< kept since the size or the title changed last
};

struct CollapsiblePanel::Impl {
    Function<void(bool)> onToggle;
    Header* header = nullptr;
    wxPanel* content = nullptr;
};

CollapsiblePanel::CollapsiblePanel(wxWindow* parent, const GuiSkin& skin, int id, const String& title, bool expanded,
                                   Function<void(bool)> onToggle)
    : wxPanel(parent, id, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_NONE, "CollapsiblePanel")
    , _impl(new Impl{std::move(onToggle)}) {
    SetBackgroundColour(toWxColour(skin.background));
    SetForegroundColour(toWxColour(skin.text));
    _impl->header = new Header(this, skin, toWx(title), expanded, [this] { setExpanded(!isExpanded(), true); });
    _impl->content = new wxPanel(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_NONE);
    _impl->content->SetBackgroundColour(toWxColour(skin.background));
    _impl->content->SetForegroundColour(toWxColour(skin.text));
    _impl->content->Show(expanded);
    auto* const column = new wxBoxSizer(wxVERTICAL);
    column->Add(_impl->header, wxSizerFlags().Expand());
    column->Add(_impl->content, wxSizerFlags(1).Expand());
    SetSizer(column);
    SetSize(GetBestSize());
}

CollapsiblePanel::~CollapsiblePanel() = default;

wxPanel* CollapsiblePanel::getContent() const {
    return _impl->content;
}

void CollapsiblePanel::setExpanded(bool expanded, bool notify) {
    if (!_impl->header->input().setOn(expanded)) {
        return;
    }
    if (!expanded && isInside(*_impl->content, FindFocus())) {
        _impl->header->SetFocus();
    }
    _impl->content->Show(expanded);
    _impl->content->InvalidateBestSize(); // of the windows around it as well
    layOutAround();
    if (notify && _impl->onToggle) {
        const Function<void(bool)> onToggle = _impl->onToggle; // the panel, and with it its own, may be destroyed
        onToggle(expanded);
    }
}

bool CollapsiblePanel::isExpanded() const {
    return _impl->header->input().isOn();
}

void CollapsiblePanel::setToggleCallback(Function<void(bool)> onToggle) {
    _impl->onToggle = std::move(onToggle);
}

void CollapsiblePanel::SetLabel(const wxString& title) {
    _impl->header->setTitle(title);
}

wxString CollapsiblePanel::GetLabel() const {
    return _impl->header->getTitle();
}

bool CollapsiblePanel::Enable(bool enable) {
    const bool changed = wxPanel::Enable(enable);
    _impl->header->input().followEnabled();
    return changed;
}

wxRect CollapsiblePanel::getHeaderRect() const {
    return _impl->header->GetRect();
}

void CollapsiblePanel::paintHeader(wxDC& dc) const {
    _impl->header->paint(dc);
}

void CollapsiblePanel::layOutAround() {
    if (GetContainingSizer() == nullptr) {
        SetSize(GetSize().x, GetBestSize().y);
    }
    Array<wxWindow*> windows{this};
    wxScrollHelper* scrolled = nullptr;
    while (scrolled == nullptr && !windows.back()->IsTopLevel() && windows.back()->GetParent() != nullptr) {
        windows.push_back(windows.back()->GetParent());
        scrolled = dynamic_cast<wxScrollHelper*>(windows.back());
    }
    if (scrolled != nullptr) {
        windows.back()->FitInside();
    }
    // The outer windows give the inner ones their sizes.
    for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
        (*window)->Layout();
    }
}

} // namespace Ostrel::Wx
