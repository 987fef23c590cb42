#pragma once

#include <OstrelLib/Export.h>
#include <OstrelLib/String.h>

namespace Ostrel {

/// Builds a text from numbers and texts. Numbers are written the same everywhere: digits, "." and "-", no grouping,
/// whatever the user's language.
class OSTREL_API SimpleTextSerializer {
public:
    SimpleTextSerializer& write(int value);
    SimpleTextSerializer& write(unsigned int value);
    SimpleTextSerializer& write(long value);
    SimpleTextSerializer& write(unsigned long value);
    SimpleTextSerializer& write(long long value);
    SimpleTextSerializer& write(unsigned long long value);

    /// The shortest text that reads back as exactly `value`; "inf", "-inf", "nan" or "-nan" if it is no number.
    SimpleTextSerializer& write(float value);
    SimpleTextSerializer& write(double value);

    /// With exactly `decimals` digits after the point (0 to 100, clamped), correctly rounded, never with an exponent.
    SimpleTextSerializer& writeFixed(double value, int decimals);

    SimpleTextSerializer& write(const String& text);

    /// All that was written so far.
    [[nodiscard]] const String& getText() const noexcept;

private:
    String _text;
};

/// The decimal separator of the user's language: on Windows the one of the user's regional settings, on Linux the one
/// of the C locale that the host has chosen with `setlocale`, hence "." where it has chosen none.
[[nodiscard]] OSTREL_API wchar_t decimalPointCharacter();

} // namespace Ostrel
