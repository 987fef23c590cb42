#pragma once

#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

#include <wx/panel.h>

namespace Ostrel::Wx {

/// A titled header over a content that it opens and closes. While it is closed the panel is as high as its header.
///
/// A click on the header inverts the state: the left button's going down and coming up over it, or Space or Enter
/// pressed and released while it has the focus, which a press and Tab give it. What ends a press without a click is as
/// for the check box.
///
/// Each change of state, by whatever means, lays out anew all windows around the panel, from its parent up to the next
/// scrolled window, whose range is fitted as well, or else up to the top-level window, whose own size stays. If the
/// focus was in a content that closes, the header gets it. Where no sizer holds the panel, it sets its own height.
class OSTREL_WX_API CollapsiblePanel : public wxPanel {
public:
    /// Header and content wear the skin.
    /// @param title shown as it stands, on one line, in bold: '&' is an ordinary character
    /// @param onToggle see `setToggleCallback`
    CollapsiblePanel(wxWindow* parent, const GuiSkin& skin, int id, const String& title, bool expanded = true,
                     Function<void(bool)> onToggle = {});
    ~CollapsiblePanel() override;

    /// The panel to be filled: it is empty at first, and takes a sizer and children as any other. It is hidden while
    /// the panel is closed. The panel owns it, and has a sizer of its own for header and content.
    [[nodiscard]] wxPanel* getContent() const;

    /// A state that is no change does nothing. With `notify`, a change calls the callback as a click does.
    void setExpanded(bool expanded, bool notify);
    [[nodiscard]] bool isExpanded() const;

    /// Replaces what is told of changes: called with the new state after everything has been laid out. It may destroy
    /// the panel. An empty callable: nobody.
    void setToggleCallback(Function<void(bool)> onToggle);

    /// The title.
    void SetLabel(const wxString& title) override;
    [[nodiscard]] wxString GetLabel() const override;

    /// Enables or disables header and content. Disabling cancels a press.
    bool Enable(bool enable = true) override;

    /// The header's rectangle in this panel's client coordinates.
    [[nodiscard]] wxRect getHeaderRect() const;

    /// Draws the header as it is now, at its present size and at the origin, onto a screen's or a bitmap's device
    /// context.
    void paintHeader(wxDC& dc) const;

private:
    class Header;
    struct Impl;

    void layOutAround();

    AutoPtr<Impl> _impl;
};

} // namespace Ostrel::Wx
