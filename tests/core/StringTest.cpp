#include <OstrelLib/String.h>

#include "core/Printing.h"

#include <gtest/gtest.h>

#include <string>

using Ostrel::String;

namespace {

using namespace std::string_view_literals;

TEST(StringUtf8, DecodesStrictly) {
    // Each with "?" for U+FFFD: well-formed; overlong; surrogates and above U+10FFFF; cut off, stray, interrupted. The
    // last is table 3-8 of the Unicode Standard.
    const std::pair<std::string_view, std::wstring> cases[] = {
        {"a\x7F\0b"sv, std::wstring(L"a\x7F\0b", 4)},
        {"\xC2\x80\xDF\xBF", L"\x80\x7FF"},
        {"\xE0\xA0\x80\xEF\xBF\xBF", L"\x800\xFFFF"},
        {"\xED\x9F\xBF\xEE\x80\x80", L"\xD7FF\xE000"},
        {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", L"\U00010000\U0010FFFF"},
        {"\xC0\x80", L"??"},
        {"\xE0\x9F\xBF", L"???"},
        {"\xF0\x8F\xBF\xBF", L"????"},
        {"\xED\xA0\x80", L"???"},
        {"\xF4\x90\x80\x80", L"????"},
        {"\xF5\x80\xFF", L"???"},
        {"\xE2\x82", L"?"},
        {"\x80\xBF", L"??"},
        {"\xE2\x82(", L"?("},
        {"\xF0\x9F\x98\xF0\x9F\x98\x80", L"?\U0001F600"},
        {"\x61\xF1\x80\x80\xE1\x80\xC2\x62\x80\x63\x80\xBF\x64", L"a???b?c??d"}};
    for (const auto& [bytes, expected] : cases) {
        const String decoded = String::fromUtf8(bytes);
        EXPECT_EQ(decoded, String(expected).replaceAll("?", L"\xFFFD")) << testing::PrintToString(std::string(bytes));
        if (expected.find(L'?') == std::wstring::npos) {
            EXPECT_EQ(decoded.toUtf8(), bytes);
        }
    }
}

TEST(StringUtf8, EncodesWhatIsNoCodePointAsReplacement) {
    const auto wide = [](char32_t value) { return std::wstring(1, static_cast<wchar_t>(value)); };
    const std::string replacement = "\xEF\xBF\xBD";
    EXPECT_EQ(String(L"a" + wide(0xD800) + L"b").toUtf8(), "a" + replacement + "b");
    EXPECT_EQ(String(wide(0xDC00) + wide(0xD800)).toUtf8(), replacement + replacement);
    if (sizeof(wchar_t) == 4) {
        EXPECT_EQ(String(wide(0x110000) + wide(0xFFFFFFFF)).toUtf8(), replacement + replacement);
    }
}

TEST(StringConstruction, TakesUtf8LiteralsAndNullPointers) {
    EXPECT_EQ(String("\xC3\xA4"), String(L"\xE4"));
    EXPECT_TRUE(String(static_cast<const char*>(nullptr)).isEmpty());
    EXPECT_TRUE(String(static_cast<const wchar_t*>(nullptr)).isEmpty());
}

TEST(StringEditing, ReplacesEveryOccurrenceOnce) {
    EXPECT_EQ(String("aaa").replaceAll("aa", "b"), "ba");
    EXPECT_EQ(String("aaaa").replaceAll("aa", ""), "");
    EXPECT_EQ(String("ab").replaceAll("a", "aa"), "aab") << "what was put in is not looked at";
    EXPECT_EQ(String("abc").replaceAll("", "x"), "abc");
    EXPECT_EQ(String("ab").replaceAll("abc", "x"), "ab");
    String same("ab");
    EXPECT_EQ(same.replaceAll(same, same + same), "abab") << "arguments that are the text itself";
}

TEST(StringEditing, TakesAnyPositionAndCount) {
    const String hello("hello");
    EXPECT_EQ(hello.getSubstr(4, 5), "o");
    for (const std::size_t beyond : {std::size_t{5}, std::size_t{6}, String::npos}) {
        EXPECT_EQ(hello.getSubstr(beyond, 1), "") << beyond;
        EXPECT_EQ(String(hello).erase(beyond, 1), hello) << beyond;
        EXPECT_EQ(hello[beyond], L'\0') << beyond;
        EXPECT_EQ(hello.find("h", beyond), String::npos) << beyond;
    }
    EXPECT_EQ(String(hello).erase(1, String::npos), "h");
}

} // namespace
