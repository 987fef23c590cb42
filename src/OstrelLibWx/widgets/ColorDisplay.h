#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLibWx/Export.h>

#include <wx/panel.h>

namespace Ostrel::Wx {

/// A plain area of one colour. It takes no focus.
///
/// Exported for the library's own tests alone.
class OSTREL_WX_API ColorDisplay : public wxPanel {
public:
    /// @param size in design pixels
    ColorDisplay(wxWindow* parent, wxSize size);

    /// Keeps the colour, its alpha too, and repaints if another one is to be seen.
    void setColor(const Rgb& color);
    [[nodiscard]] const Rgb& getColor() const { return _color; }

    /// Draws all that the control shows onto a screen's or a bitmap's device context.
    void paint(wxDC& dc) const;

    [[nodiscard]] bool AcceptsFocus() const override { return false; }

private:
    Rgb _color;
};

} // namespace Ostrel::Wx
