#include "models/SpinnerModel.h"

#include <OstrelLib/TextSerializer.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <locale>
#include <sstream>

namespace Ostrel::Wx {

namespace {

constexpr float LARGEST = std::numeric_limits<float>::max();

constexpr double ADAPTIVE_STEP = 0.004;
constexpr int MAX_DECIMALS = 100;
/// The shortest text that zeros are taken from is longer than this.
constexpr std::size_t SHORTEST_TRIMMED = 3;

constexpr std::uint64_t powerOfTen(int exponent) {
    constexpr int MAX_EXPONENT = 19; // what 64 bits hold; a float has no such decimals anyway
    std::uint64_t power = 1;
    for (int i = 0; i < std::min(exponent, MAX_EXPONENT); ++i) {
        power *= 10;
    }
    return power;
}

String formatFixed(float value, int decimals) {
    return SimpleTextSerializer().writeFixed(static_cast<double>(value), decimals).getText();
}

float limitOr(float limit, float none) {
    return std::isfinite(limit) ? limit : std::isnan(limit) ? none : std::copysign(LARGEST, limit);
}

} // namespace

String formatSpinnerNumber(float value, int decimals, wchar_t decimalPoint) {
    std::wstring text = formatFixed(value, decimals).toWide();
    std::replace(text.begin(), text.end(), L'.', decimalPoint);
    while (decimals > 0 && text.size() > SHORTEST_TRIMMED && text.ends_with(L"00")) {
        text.pop_back();
    }
    return text;
}

void SpinnerNumber::configure(const SpinnerLimits& limits) {
    _limits = limits;
    _limits.min = limitOr(limits.min, -LARGEST);
    _limits.max = limitOr(limits.max, LARGEST);
}

void SpinnerNumber::setValue(float value) {
    const auto clampFloat = [this](float number) { return static_cast<float>(clamp(static_cast<double>(number))); };
    const int decimals = getPrecision();
    _residue = 0.0;
    _value = clampFloat(value);
    _text = formatSpinnerNumber(_value, decimals, decimalPointCharacter());
    const std::string shown = formatFixed(_value, decimals).toUtf8();
    std::from_chars(shown.data(), shown.data() + shown.size(), _value);
    _value = clampFloat(_value);
}

void SpinnerNumber::change(double amount) {
    const double wanted = clamp(static_cast<double>(_value) + amount + _residue);
    setValue(static_cast<float>(wanted));
    _residue = wanted - static_cast<double>(_value);
}

void SpinnerNumber::stepOnce(bool up, Optional<float> stepOverride) {
    const float step = stepOverride && std::isfinite(*stepOverride) ? *stepOverride : getStep();
    const float direction = up ? 1.0F : -1.0F;
    const float unit = 1.0F / static_cast<float>(powerOfTen(getPrecision()));
    if (!(step < unit)) {
        change(static_cast<double>(direction) * static_cast<double>(step));
        return;
    }
    const float next = _value + direction * unit;
    setValue(next == _value ? std::nextafter(_value, direction * LARGEST) : next);
}

float SpinnerNumber::getStep() const {
    if (_limits.step > 0.0F && std::isfinite(_limits.step)) {
        return _limits.step;
    }
    return static_cast<float>(std::max(std::abs(static_cast<double>(_value)), 1.0) * ADAPTIVE_STEP);
}

SpinnerEntry SpinnerNumber::read(const String& typed) const {
    if (typed == _text) {
        return {SpinnerEntry::Kind::SAME, _value}; // even where a limit has more decimals than are shown
    }
    std::wistringstream stream(String(typed).replaceAll(",", ".").toWide());
    stream.imbue(std::locale::classic());
    float number = _value;
    if (!(stream >> number)) {
        return {SpinnerEntry::Kind::NOTHING, _value};
    }
    return {number == _value ? SpinnerEntry::Kind::SAME : SpinnerEntry::Kind::OTHER, number};
}

double SpinnerNumber::clamp(double value) const {
    const double max = static_cast<double>(_limits.max);
    return std::max(static_cast<double>(_limits.min), value <= max ? value : max);
}

int SpinnerNumber::getPrecision() const {
    return _precision ? std::clamp(_precision(), 0, MAX_DECIMALS) : 0;
}

Optional<int> findSpinnerWrap(int mouseY, int distance, const Bucket& region) {
    if (mouseY <= region.min.y && distance < 0) {
        return region.max.y - 2;
    }
    if (mouseY >= region.max.y - 1 && distance > 0) {
        return region.min.y + 1;
    }
    return {};
}

void SpinnerPress::begin(bool up, float value, Pixel mouse) {
    _pressed = true;
    _dragging = false;
    _up = up;
    _valueBefore = value;
    _mouse = mouse;
    _warpedFrom.reset();
}

Optional<int> SpinnerPress::move(Pixel mouse) {
    if (!_pressed || mouse == _mouse) {
        return {};
    }
    if (_warpedFrom && std::abs(mouse.y - *_warpedFrom) < std::abs(mouse.y - _mouse.y)) {
        return {};
    }
    _warpedFrom.reset();
    _dragging = true;
    const int distance = mouse.y - _mouse.y;
    _mouse = mouse;
    return distance;
}

void SpinnerPress::warp(int y) {
    _warpedFrom = _mouse.y;
    _mouse.y = y;
}

} // namespace Ostrel::Wx
