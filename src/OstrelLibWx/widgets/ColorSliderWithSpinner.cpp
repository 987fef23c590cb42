#include "widgets/ColorSliderWithSpinner.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/Spinner.h>

#include <wx/sizer.h>

#include <utility>

namespace Ostrel::Wx {

namespace {

// Design pixels.
constexpr int SLIDER_WIDTH = 200;
constexpr int SLIDER_HEIGHT = 15;
constexpr int SPINNER_TEXT_WIDTH = 50;
constexpr int GAP = 5;

constexpr float FIRST_STEP = 1.0F;

} // namespace

ColorSliderWithSpinner::ColorSliderWithSpinner(StripColorFunction colors, wxWindow* parent, float firstPosition)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_NONE) {
    _slider = new ColorSlider(std::move(colors), this, wxSize(SLIDER_WIDTH, SLIDER_HEIGHT));
    _slider->setPosition(firstPosition);
    _shownNumber = getNumber();
    _spinner = new Spinner(this, wxID_ANY, SPINNER_TEXT_WIDTH, static_cast<float>(_range.min),
                           static_cast<float>(_range.max), _shownNumber, 0, FIRST_STEP);
    _spinner->configure(static_cast<float>(_range.min), static_cast<float>(_range.max), static_cast<float>(_range.min),
                        0, FIRST_STEP, false); // a right click goes to the lowest number
    auto* const sizer = new wxBoxSizer(wxHORIZONTAL);
    sizer->Add(_slider, 1, wxALIGN_CENTER_VERTICAL | wxRIGHT, scaleByDpi(GAP));
    sizer->Add(_spinner, 0, wxALIGN_CENTER_VERTICAL);
    SetSizerAndFit(sizer);
    _slider->onPositionChanged = [this](float position) { onSliderMoved(position); };
    _spinner->callOnValueChange([this](float number) { onNumberChanged(number); });
}

void ColorSliderWithSpinner::setChannelRange(int min, int max, int digits, float increment) {
    _range = {min, max};
    _spinner->configure(static_cast<float>(min), static_cast<float>(max), static_cast<float>(min), digits, increment,
                        false);
    _shownNumber = getNumber();
    _spinner->setValue(_shownNumber, false);
}

void ColorSliderWithSpinner::setPositionValueMap(PositionValueFunction map) {
    _map = std::move(map);
}

void ColorSliderWithSpinner::setPosition(float position) {
    _slider->setPosition(position);
    showNumber();
}

float ColorSliderWithSpinner::getNumber() const {
    return computeSliderNumber(_slider->getPosition(), _range, _map);
}

void ColorSliderWithSpinner::showNumber() {
    const float number = getNumber();
    if (std::exchange(_shownNumber, number) != number) {
        _spinner->setValue(number, false);
    }
}

void ColorSliderWithSpinner::onSliderMoved(float position) {
    showNumber();
    if (const auto callback = onValueChanged) { // the control, and with it its own, may be destroyed
        callback(position, _shownNumber);
    }
}

void ColorSliderWithSpinner::onNumberChanged(float number) {
    _slider->setPosition(computeSliderPosition(number, _range, _map));
    // As the way back will have it, so that the spinner is not set again to the number that it has already.
    _shownNumber = getNumber();
    if (const auto callback = onValueChanged) {
        callback(_slider->getPosition(), number);
    }
}

} // namespace Ostrel::Wx
