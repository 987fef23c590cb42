#pragma once

#include <OstrelLib/Export.h>

#include <compare>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace Ostrel {

namespace Detail {

/// A base of its own, because a constant of an exported class would have to be imported from the library.
struct StringPositions {
    /// No position: `find` found nothing; as a count, everything to the end.
    static constexpr std::size_t npos = std::wstring::npos;
};

} // namespace Detail

/// Wide text. One element is one UTF-16 unit where `wchar_t` has 16 bits (Windows) and one code point where it has
/// 32 (Linux); positions and counts are in elements.
class OSTREL_API String : public Detail::StringPositions {
public:
    String() = default;

    /// A null pointer makes an empty text.
    String(const wchar_t* text);
    String(std::wstring text) noexcept;
    explicit String(std::wstring_view text);

    /// From a 7-bit literal; bytes above 127 are taken as UTF-8. A null pointer makes an empty text.
    String(const char* text);
    String(std::nullptr_t) = delete;

    /// Decodes UTF-8. Every maximal part that is not well formed (a stray or missing continuation byte, an overlong
    /// form, a surrogate, a value above U+10FFFF) becomes one U+FFFD (the Unicode Standard, section 3.9,
    /// "U+FFFD Substitution of Maximal Subparts").
    [[nodiscard]] static String fromUtf8(std::string_view utf8);

    /// Encodes as UTF-8. What is no code point (a lone surrogate, a value above U+10FFFF) becomes U+FFFD.
    [[nodiscard]] std::string toUtf8() const;

    /// Terminated by a zero; valid until the text changes.
    [[nodiscard]] const wchar_t* c_str() const noexcept;
    [[nodiscard]] const std::wstring& toWide() const noexcept;

    [[nodiscard]] std::size_t size() const noexcept;
    [[nodiscard]] std::size_t length() const noexcept;
    [[nodiscard]] bool isEmpty() const noexcept;

    /// The element at `position`, or a zero at the end and beyond.
    [[nodiscard]] wchar_t operator[](std::size_t position) const noexcept;

    [[nodiscard]] std::wstring::const_iterator begin() const noexcept;
    [[nodiscard]] std::wstring::const_iterator end() const noexcept;

    String& operator+=(const String& other);
    String& operator+=(wchar_t character);

    /// Where `what` first occurs at `from` or later, or `npos`. The empty text occurs everywhere.
    [[nodiscard]] std::size_t find(const String& what, std::size_t from = 0) const noexcept;

    /// Replaces every occurrence of `from`, left to right; what was put in is not searched again. An empty `from`
    /// replaces nothing. Either text may be this one.
    String& replaceAll(const String& from, const String& to);

    /// Removes up to `count` elements from `position` on; what lies beyond the end is ignored.
    String& erase(std::size_t position, std::size_t count = npos) noexcept;

    /// Up to `count` elements from `position` on; what lies beyond the end is left out.
    [[nodiscard]] String getSubstr(std::size_t position, std::size_t count = npos) const;

    [[nodiscard]] bool startsWith(const String& what) const noexcept;
    [[nodiscard]] bool endsWith(const String& what) const noexcept;

    [[nodiscard]] friend String operator+(String left, const String& right) {
        left += right;
        return left;
    }

    /// Element by element, without regard to language.
    friend bool operator==(const String& left, const String& right) noexcept { return left._text == right._text; }
    friend std::strong_ordering operator<=>(const String& left, const String& right) noexcept {
        return left._text.compare(right._text) <=> 0;
    }

private:
    std::wstring _text;
};

} // namespace Ostrel

/// Texts as keys of the standard's unordered containers.
template <>
struct std::hash<Ostrel::String> {
    [[nodiscard]] std::size_t operator()(const Ostrel::String& text) const noexcept {
        return std::hash<std::wstring>()(text.toWide());
    }
};
