#pragma once

#include <OstrelLib/ColorGradient.h>
#include <OstrelLib/Types.h>

#include "models/GradientTrack.h"

#include <cstddef>

namespace Ostrel::Wx {

/// A gradient that is edited with the mouse: what is under it, which point is selected and dragged, what a press, a
/// click and a double-click change. Pixels are client coordinates.
class GradientEditing {
public:
    explicit GradientEditing(int handleRadius) { _track.radius = handleRadius; }

    /// Ends a drag and selects nothing: the former points are gone.
    void setGradient(ColorGradient gradient);
    [[nodiscard]] const ColorGradient& getGradient() const noexcept { return _gradient; }

    void setRange(float min, float max) noexcept;
    void setSize(Pixel size) noexcept { _track.size = size; }
    [[nodiscard]] const GradientTrack& getTrack() const noexcept { return _track; }

    /// Of handles that lie on each other, the one of the lowest index.
    [[nodiscard]] Optional<std::size_t> findHandle(Pixel mouse) const noexcept;

    /// The point that was pressed, added or edited last.
    [[nodiscard]] Optional<std::size_t> getSelected() const noexcept { return _selected; }
    [[nodiscard]] bool isDragging() const noexcept { return _dragging; }

    /// On a handle, selects its point and begins to drag it.
    /// @return whether it did
    bool press(Pixel mouse);

    /// Moves the point that is dragged; its number stays until `release`, even past its neighbours.
    /// @return whether there is one
    bool drag(Pixel mouse);

    /// Ends a drag and sorts the points; the selected one stays selected.
    void release();

    /// Removes the point of the handle under the mouse.
    /// @return whether there is one
    bool remove(Pixel mouse);

    /// A double-click: selects the point under the mouse, or adds one in the gradient's own colour there. Ends a drag.
    /// @return the point whose colour is to be edited; nothing outside the control
    Optional<std::size_t> edit(Pixel mouse);

    /// Changes the selected point's colour.
    /// @return false when nothing is selected any more
    bool recolor(const Hsv& color);

private:
    ColorGradient _gradient;
    GradientTrack _track;
    Optional<std::size_t> _selected;
    bool _dragging = false;
};

} // namespace Ostrel::Wx
