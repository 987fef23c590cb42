#pragma once

#include <OstrelLib/String.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/Tooltip.h>

#include <wx/stattext.h>

namespace Ostrel::Wx {

/// A label. It remembers its text as it was before any wrapping, so that it can be wrapped anew to any width.
///
/// The text is shown as it stands: '&' is an ordinary character, and a line feed begins a line. The label is as large
/// as its text unless its style has `wxST_NO_AUTORESIZE`. While it is disabled it is grey, (110, 110, 110).
/// On Linux GTK draws the label, in the window's colours and font; no paint event arrives there.
class OSTREL_WX_API StaticText : public wxStaticText, public TooltipWindow {
public:
    /// `style` is a set of wxStaticText's and wxALIGN_… bits; the latter, vertical ones too, say where the text lies in
    /// a label larger than it. `flags` make the font, see `setupStaticTextFont`. `size` is in design pixels; a
    /// component of -1 is left to the text.
    StaticText(wxWindow* parent, int id, const String& text, unsigned int style, Flags<TextFlag> flags, wxSize size);

    /// Sets the text, which is shown unwrapped until `Wrap` is called again.
    void SetLabel(const wxString& label) override;

    bool SetForegroundColour(const wxColour& colour) override;
    bool SetFont(const wxFont& font) override;

    /// Breaks the text that was set last at spaces, so that no line is wider than `width` pixels of the screen. From a
    /// word that is wider, the text runs on unbroken up to its next line feed. Line feeds in the text stay. A width
    /// below 0 means no limit. What an earlier call did is undone: only the last width counts.
    void Wrap(int width);

    /// Draws what the window shows. Where GTK draws the label, for off-screen pictures alone.
    virtual void paint(wxDC& dc) const;

    /// On Linux a label notices the mouse's coming and going from the first handler on that is bound to it by `Bind`.
    bool OnDynamicBind(wxDynamicEventTableEntry& entry) override;

protected:
    [[nodiscard]] wxSize DoGetBestClientSize() const override;

private:
    void onPaint(wxPaintEvent& event);
    void showText();

    /// What the text takes, and for which text and font.
    struct Measured {
        wxString label;
        wxFont font;
        wxSize size;
    };

    String _label; ///< as set last, before wrapping
    mutable Measured _measured;
};

} // namespace Ostrel::Wx
