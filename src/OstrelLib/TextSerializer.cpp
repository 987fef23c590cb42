#include <OstrelLib/TextSerializer.h>

#include "platform/Platform.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace Ostrel {

namespace {

constexpr int MAX_DECIMALS = 100;

/// Room for the longest text that is written here: the sign, the 309 digits of the largest double, the point, and
/// `MAX_DECIMALS` digits.
constexpr std::size_t MAX_NUMBER_LENGTH = 1 + 309 + 1 + MAX_DECIMALS;

template <class... Arguments>
String numberToText(Arguments... arguments) {
    std::array<char, MAX_NUMBER_LENGTH> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), arguments...);
    return String::fromUtf8(std::string_view(buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data())));
}

} // namespace

SimpleTextSerializer& SimpleTextSerializer::write(int value) {
    return write(numberToText(value));
}

SimpleTextSerializer& SimpleTextSerializer::write(unsigned int value) {
    return write(numberToText(value));
}

SimpleTextSerializer& SimpleTextSerializer::write(long value) {
    return write(numberToText(value));
}

SimpleTextSerializer& SimpleTextSerializer::write(unsigned long value) {
    return write(numberToText(value));
}

SimpleTextSerializer& SimpleTextSerializer::write(long long value) {
    return write(numberToText(value));
}

SimpleTextSerializer& SimpleTextSerializer::write(unsigned long long value) {
    return write(numberToText(value));
}

SimpleTextSerializer& SimpleTextSerializer::write(float value) {
    return write(numberToText(value));
}

SimpleTextSerializer& SimpleTextSerializer::write(double value) {
    return write(numberToText(value));
}

SimpleTextSerializer& SimpleTextSerializer::writeFixed(double value, int decimals) {
    return write(numberToText(value, std::chars_format::fixed, std::clamp(decimals, 0, MAX_DECIMALS)));
}

SimpleTextSerializer& SimpleTextSerializer::write(const String& text) {
    _text += text;
    return *this;
}

const String& SimpleTextSerializer::getText() const noexcept {
    return _text;
}

wchar_t decimalPointCharacter() {
    return Platform::decimalPointCharacter();
}

} // namespace Ostrel
