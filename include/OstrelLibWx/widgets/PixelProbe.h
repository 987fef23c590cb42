#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>

#include <wx/popupwin.h>

namespace Ostrel::Wx {

/// A small window that follows the mouse over a picture and tells of the pixel below it: where it is, its value before
/// and after tonemapping as numbers, the latter as 8-bit numbers too, and its colour. It begins hidden; a host shows it
/// with `Show` when the mouse enters the picture, calls `updatePosition` as it moves, and hides it when it leaves. It
/// takes no focus, and is not cut off at the edges of its parent.
class OSTREL_WX_API PixelProbe : public wxPopupWindow {
public:
    /// What is known of a pixel. The alpha of the two colours is not used.
    struct ProbedPixel {
        Rgb original;   ///< linear, before tonemapping
        Rgb tonemapped; ///< sRGB, after it; nominally 0 to 1
        float alpha = 1.0F;
        Pixel position; ///< in the picture
    };
    using Probe = Function<ProbedPixel(const Pixel&)>;

    /// @param probe asked for the pixel at each position that `updatePosition` is given; may be empty
    /// @param warningText shown below the values while one of them, alpha aside, is infinite or no number
    PixelProbe(wxWindow* parent, Probe probe, const String& warningText);
    ~PixelProbe() override;

    /// Moves the window so that its upper left corner is 20 screen pixels right of and below `cursor`, wherever that
    /// is, and shows the values of the pixel there. Without a probing function it only moves.
    /// @param cursor in screen coordinates; handed to the probing function, which may destroy the window
    void updatePosition(Pixel cursor);

private:
    struct Impl;

    void showPixel(const ProbedPixel& pixel);

    AutoPtr<Impl> _impl;
};

} // namespace Ostrel::Wx
