#include "models/TextModel.h"

namespace Ostrel::Wx {

namespace {

constexpr wchar_t REPLACEMENT = L'\uFFFD';
/// Where a wide character is a UTF-16 unit, a pair of surrogates is one character; elsewhere none has a place.
constexpr bool HAS_PAIRS = sizeof(wchar_t) == 2;

constexpr bool isHighSurrogate(wchar_t character) {
    return character >= 0xD800 && character < 0xDC00;
}

constexpr bool isLowSurrogate(wchar_t character) {
    return character >= 0xDC00 && character < 0xE000;
}

} // namespace

std::wstring replaceUnshowable(std::wstring text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (HAS_PAIRS && isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            ++i;
        } else if (text[i] == L'\0' || isHighSurrogate(text[i]) || isLowSurrogate(text[i])) {
            text[i] = REPLACEMENT;
        }
    }
    return text;
}

} // namespace Ostrel::Wx
