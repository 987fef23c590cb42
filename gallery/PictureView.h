#pragma once

#include "lab/Placement.h"
#include "lab/Shading.h"

#include <OstrelLib/Bitmap.h>
#include <OstrelLib/Color.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/widgets/ZoomableScrollable.h>

#include <wx/bitmap.h>
#include <wx/panel.h>

namespace Ostrel::Gallery {

/// Shows a float picture through tone curves, or in false colours. The wheel and pinches zoom about the pointer, and a
/// drag pans; while the view picks, the left button is the host's instead.
///
/// What is shown is computed anew after a change, for the visible part alone, once the program has nothing else to do:
/// however fast changes come, none waits for the ones before.
class PictureView : public wxPanel, public ZoomableScrollable {
public:
    /// What the left button does while the view picks. Positions are client coordinates.
    struct Picks {
        Function<void(Pixel)> begin;
        Function<void(Pixel)> move;
        Function<void()> end; ///< also when the button is taken away
    };

    /// @param onShown is called after what is shown has changed
    PictureView(wxWindow* parent, Picks picks, Function<void()> onShown);
    ~PictureView() override;

    /// Null shows nothing. A picture of the same size takes the place of the one before; any other is fitted.
    void setPicture(SharedPtr<const BitmapImpl<Rgb>> picture);
    void setShading(SharedPtr<const Shading> shading);

    void setPicking(bool picking);
    void fit();
    void showUnscaled();

    [[nodiscard]] double getScale() const { return _placement.getScale(); }

    /// The picture's pixel at a position in client coordinates; nothing beside the picture.
    [[nodiscard]] Optional<Pixel> getPixel(Pixel position) const;

    /// What is shown of a pixel of the picture, not clamped.
    [[nodiscard]] Rgb getShownColor(Pixel pixel) const;

    /// Whether everything that was set is shown.
    [[nodiscard]] bool isUpToDate() const { return !_isStale; }

private:
    enum class Drag { NONE, PAN, PICK };

    void onScrollOrZoom(const wxMouseEvent& event, int amount) override;
    void onButtonDown(wxMouseEvent& event);
    void onButtonUp(wxMouseEvent& event);
    void onMotion(wxMouseEvent& event);
    void onPinch(wxZoomGestureEvent& event);
    void onIdle(wxIdleEvent& event);
    void onPaint(wxPaintEvent& event);
    void beginDrag(Drag drag, Pixel position);
    void endDrag();
    void updatePlacement();
    void updateCursor();

    Picks _picks;
    Function<void()> _onShown;
    SharedPtr<const BitmapImpl<Rgb>> _picture;
    SharedPtr<const Shading> _shading;
    Placement _placement;
    bool _isPicking = false;
    Drag _drag = Drag::NONE;
    Pixel _lastPosition;       ///< of a drag
    double _pinchFactor = 1.0; ///< of the pinch in progress, as it was last told
    bool _isStale = true;
    BitmapImpl<Rgb> _shown;
    wxBitmap _bitmap; ///< the same, for the screen
};

} // namespace Ostrel::Gallery
