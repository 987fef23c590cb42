#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/widgets/PaintedPanel.h>

namespace Ostrel::Wx {

/// A plain area of one colour. It takes no focus.
///
/// Exported for the library's own tests alone.
class OSTREL_WX_API ColorDisplay : public PaintedPanel {
public:
    /// @param size in design pixels
    ColorDisplay(wxWindow* parent, wxSize size);

    /// Keeps the colour, its alpha too, and repaints if another one is to be seen.
    void setColor(const Rgb& color);
    [[nodiscard]] const Rgb& getColor() const { return _color; }

    void paint(wxDC& dc) const override;

    [[nodiscard]] bool AcceptsFocus() const override { return false; }

private:
    Rgb _color;
};

} // namespace Ostrel::Wx
