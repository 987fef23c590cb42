#pragma once

#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/widgets/Button.h>

namespace Ostrel::Wx {

/// Blank space on each side of the label, design pixels.
constexpr int AUTO_SIZED_BUTTON_PADDING = 14;
/// Design pixels; wide enough that a row of short labels looks even and is hit easily.
constexpr int AUTO_SIZED_BUTTON_MINIMUM_WIDTH = 80;

/// A push button in the default skin, without bitmaps and callable, that is as large as its label asks. Listen to its
/// event in the parent: see `Button`.
class OSTREL_WX_API AutoSizedButton : public Button {
public:
    /// Both numbers are design pixels and are kept: the button is as wide as its label with `horizontalPadding` on each
    /// side of it, but at least `minimumWidth`; it is as high as its label with 3 design pixels above and below it, but
    /// at least 24. That is its minimum size and its size; it is found again whenever the label or the enabled state is
    /// set. The parent's layout is left to the caller.
    AutoSizedButton(wxWindow* parent, const wxString& label, int horizontalPadding = AUTO_SIZED_BUTTON_PADDING,
                    int minimumWidth = AUTO_SIZED_BUTTON_MINIMUM_WIDTH);

    void SetLabel(const wxString& label) override;
    bool Enable(bool enable = true) override;

private:
    void fitToLabel();

    int _horizontalPadding;
    int _minimumWidth;
};

} // namespace Ostrel::Wx
