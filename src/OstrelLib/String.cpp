#include <OstrelLib/String.h>

#include <cstdint>
#include <utility>

namespace Ostrel {

namespace {

constexpr char32_t REPLACEMENT_CHARACTER = 0xFFFD;
constexpr char32_t LAST_CODE_POINT = 0x10FFFF;
constexpr char32_t FIRST_BEYOND_BMP = 0x10000;
constexpr char32_t FIRST_HIGH_SURROGATE = 0xD800;
constexpr char32_t FIRST_LOW_SURROGATE = 0xDC00;
constexpr char32_t LAST_SURROGATE = 0xDFFF;
constexpr bool IS_WIDE_UTF16 = sizeof(wchar_t) == 2;

/// A row of table 3-7 "Well-Formed UTF-8 Byte Sequences" of the Unicode Standard. The third and fourth byte, where
/// there are, lie in 0x80 to 0xBF. The narrowed ranges of the second byte are what excludes overlong forms,
/// surrogates and values above U+10FFFF.
struct Utf8Form {
    std::uint8_t firstMin, firstMax;
    std::uint8_t secondMin, secondMax;
    int continuationCount;
    std::uint8_t firstBits; ///< which bits of the first byte belong to the code point
};

constexpr Utf8Form UTF8_FORMS[] = {
    {0x00, 0x7F, 0x00, 0x00, 0, 0x7F}, {0xC2, 0xDF, 0x80, 0xBF, 1, 0x1F}, {0xE0, 0xE0, 0xA0, 0xBF, 2, 0x0F},
    {0xE1, 0xEC, 0x80, 0xBF, 2, 0x0F}, {0xED, 0xED, 0x80, 0x9F, 2, 0x0F}, {0xEE, 0xEF, 0x80, 0xBF, 2, 0x0F},
    {0xF0, 0xF0, 0x90, 0xBF, 3, 0x07}, {0xF1, 0xF3, 0x80, 0xBF, 3, 0x07}, {0xF4, 0xF4, 0x80, 0x8F, 3, 0x07},
};

/// Takes one code point, or the longest beginning of one, off the front of `rest`, which is not empty.
char32_t takeCodePoint(std::string_view& rest) {
    const auto byteAt = [&rest](std::size_t i) { return static_cast<std::uint8_t>(rest[i]); };
    const std::uint8_t first = byteAt(0);
    for (const Utf8Form& form : UTF8_FORMS) {
        if (first < form.firstMin || first > form.firstMax) {
            continue;
        }
        char32_t codePoint = first & form.firstBits;
        std::size_t used = 1;
        for (int i = 0; i < form.continuationCount; ++i, ++used) {
            const std::uint8_t min = i == 0 ? form.secondMin : std::uint8_t{0x80};
            const std::uint8_t max = i == 0 ? form.secondMax : std::uint8_t{0xBF};
            if (used == rest.size() || byteAt(used) < min || byteAt(used) > max) {
                rest.remove_prefix(used);
                return REPLACEMENT_CHARACTER;
            }
            codePoint = codePoint << 6 | (byteAt(used) & 0x3Fu);
        }
        rest.remove_prefix(used);
        return codePoint;
    }
    rest.remove_prefix(1);
    return REPLACEMENT_CHARACTER;
}

void appendWide(std::wstring& text, char32_t codePoint) {
    if (IS_WIDE_UTF16 && codePoint >= FIRST_BEYOND_BMP) {
        const char32_t offset = codePoint - FIRST_BEYOND_BMP;
        text += static_cast<wchar_t>(FIRST_HIGH_SURROGATE + (offset >> 10));
        text += static_cast<wchar_t>(FIRST_LOW_SURROGATE + (offset & 0x3FF));
    } else {
        text += static_cast<wchar_t>(codePoint);
    }
}

/// Takes one code point off the front of `rest`, which is not empty.
char32_t takeCodePoint(std::wstring_view& rest) {
    const auto unitAt = [&rest](std::size_t i) { return static_cast<char32_t>(rest[i]); };
    const char32_t first = unitAt(0);
    if (IS_WIDE_UTF16 && first >= FIRST_HIGH_SURROGATE && first < FIRST_LOW_SURROGATE && rest.size() > 1 &&
        unitAt(1) >= FIRST_LOW_SURROGATE && unitAt(1) <= LAST_SURROGATE) {
        const char32_t second = unitAt(1);
        rest.remove_prefix(2);
        return FIRST_BEYOND_BMP + ((first - FIRST_HIGH_SURROGATE) << 10) + (second - FIRST_LOW_SURROGATE);
    }
    rest.remove_prefix(1);
    const bool isSurrogate = first >= FIRST_HIGH_SURROGATE && first <= LAST_SURROGATE;
    return isSurrogate || first > LAST_CODE_POINT ? REPLACEMENT_CHARACTER : first;
}

void appendUtf8(std::string& text, char32_t codePoint) {
    const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (codePoint < 0x80) {
        append(codePoint);
        return;
    }
    if (codePoint < 0x800) {
        append(0xC0 | codePoint >> 6);
    } else {
        if (codePoint < FIRST_BEYOND_BMP) {
            append(0xE0 | codePoint >> 12);
        } else {
            append(0xF0 | codePoint >> 18);
            append(0x80 | (codePoint >> 12 & 0x3F));
        }
        append(0x80 | (codePoint >> 6 & 0x3F));
    }
    append(0x80 | (codePoint & 0x3F));
}

} // namespace

String::String(const wchar_t* text)
    : _text(text == nullptr ? L"" : text) {}

String::String(std::wstring text) noexcept
    : _text(std::move(text)) {}

String::String(std::wstring_view text)
    : _text(text) {}

String::String(const char* text)
    : String(text == nullptr ? String() : fromUtf8(text)) {}

String String::fromUtf8(std::string_view utf8) {
    String result;
    result._text.reserve(utf8.size());
    while (!utf8.empty()) {
        appendWide(result._text, takeCodePoint(utf8));
    }
    return result;
}

std::string String::toUtf8() const {
    std::string result;
    result.reserve(_text.size());
    for (std::wstring_view rest = _text; !rest.empty();) {
        appendUtf8(result, takeCodePoint(rest));
    }
    return result;
}

const wchar_t* String::c_str() const noexcept {
    return _text.c_str();
}

const std::wstring& String::toWide() const noexcept {
    return _text;
}

std::size_t String::size() const noexcept {
    return _text.size();
}

std::size_t String::length() const noexcept {
    return _text.size();
}

bool String::isEmpty() const noexcept {
    return _text.empty();
}

wchar_t String::operator[](std::size_t position) const noexcept {
    return position < _text.size() ? _text[position] : L'\0';
}

std::wstring::const_iterator String::begin() const noexcept {
    return _text.begin();
}

std::wstring::const_iterator String::end() const noexcept {
    return _text.end();
}

String& String::operator+=(const String& other) {
    _text += other._text;
    return *this;
}

String& String::operator+=(wchar_t character) {
    _text += character;
    return *this;
}

std::size_t String::find(const String& what, std::size_t from) const noexcept {
    return _text.find(what._text, from);
}

String& String::replaceAll(const String& from, const String& to) {
    if (from.isEmpty()) {
        return *this;
    }
    std::wstring result;
    std::size_t done = 0;
    for (std::size_t hit = find(from); hit != npos; hit = find(from, done)) {
        result.append(_text, done, hit - done).append(to._text);
        done = hit + from.size();
    }
    result.append(_text, done);
    _text = std::move(result);
    return *this;
}

String& String::erase(std::size_t position, std::size_t count) noexcept {
    if (position < _text.size()) {
        _text.erase(position, count);
    }
    return *this;
}

String String::getSubstr(std::size_t position, std::size_t count) const {
    return position < _text.size() ? String(_text.substr(position, count)) : String();
}

bool String::startsWith(const String& what) const noexcept {
    return _text.starts_with(what._text);
}

bool String::endsWith(const String& what) const noexcept {
    return _text.ends_with(what._text);
}

} // namespace Ostrel
