#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>

#include <wx/window.h>

namespace Ostrel::Wx {

/// A strip of the colours that a function gives to the values from 0 to 1, for a gradient that is not made of points:
/// the preview of a mapping.
///
/// Right and left of it are 6 design pixels of the window's background colour, (68, 68, 68) at first. The value of a
/// column is its distance from the window's left edge less twice that margin, over the strip's width less 1, limited to
/// [0, 1]: the first columns show the colour of 0, and the last one that of a value a little below 1.
class OSTREL_WX_API CustomGradient : public wxWindow {
public:
    /// @param size in design pixels
    /// @param toColor asked for each column when the strip is painted for the first time and after `refreshColors` or a
    ///     change of width; it must not destroy the window. Channels are limited to [0, 1], NaN counts as 0. Empty:
    ///     there is only the ground
    CustomGradient(wxWindow* parent, wxSize size, Function<Rgb(float)> toColor);
    ~CustomGradient() override;

    /// The function gives other colours now.
    void refreshColors();

    [[nodiscard]] bool AcceptsFocus() const override { return false; }

    /// Draws the window as it is now, at its present size, onto a screen's or a bitmap's device context.
    void paint(wxDC& dc) const;

private:
    struct Impl;

    void updateStrip(wxSize size) const;

    AutoPtr<Impl> _impl;
};

} // namespace Ostrel::Wx
