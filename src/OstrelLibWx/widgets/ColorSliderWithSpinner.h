#pragma once

#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>

#include "models/ColorSliderLayout.h"
#include "widgets/ColorSlider.h"

#include <wx/panel.h>

namespace Ostrel::Wx {

class Spinner;

/// A strip of colours and the number that belongs to its position, kept in step through a map that may be replaced.
/// What the spinner tells of its edits and of its focus goes up to the owner as the spinner's own events.
///
/// Exported for the library's own tests alone.
class OSTREL_WX_API ColorSliderWithSpinner : public wxPanel {
public:
    using PositionValueMap = Wx::PositionValueMap;

    /// The number runs from 0 to 255 in steps of 1, without decimals, and without a map.
    ColorSliderWithSpinner(StripColorFunction colors, wxWindow* parent, float firstPosition = 0.0F);

    /// Other numbers for the same positions. The marker and the colours stay as they are.
    /// @param digits behind the decimal separator
    /// @param increment of a step of the spinner
    void setChannelRange(int min, int max, int digits, float increment);

    /// Replaces the map; takes effect when the position or the range is set next. Empty: position and fraction of the
    /// range are the same.
    void setPositionValueMap(PositionValueFunction map);

    /// Moves the marker and shows the number. Calls nothing. A text that is being typed is left alone while the number
    /// stays as it is.
    void setPosition(float position);
    [[nodiscard]] float getPosition() const { return _slider->getPosition(); }

    /// The number at the present position, not rounded.
    [[nodiscard]] float getNumber() const;

    /// The colour function gives other colours now.
    void refreshStrip() { _slider->refreshStrip(); }

    [[nodiscard]] ColorSlider& getSlider() { return *_slider; }
    [[nodiscard]] Spinner& getSpinner() { return *_spinner; }

    /// The user has moved the marker or changed the number; takes the position and the number. May be empty.
    Function<void(float position, float number)> onValueChanged;

private:
    void showNumber();
    void onSliderMoved(float position);
    void onNumberChanged(float number);

    SliderRange _range;
    PositionValueFunction _map;
    ColorSlider* _slider;
    Spinner* _spinner;
    float _shownNumber; ///< before the spinner rounded it
};

} // namespace Ostrel::Wx
