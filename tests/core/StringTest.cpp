#include <OstrelLib/String.h>

#include "core/Printing.h"

#include <gtest/gtest.h>

#include <string>
#include <unordered_set>

using Ostrel::String;

namespace {

using namespace std::string_view_literals;

constexpr const char* REPLACEMENT = "\xEF\xBF\xBD";

TEST(StringUtf8, DecodesStrictly) {
    struct Case {
        std::string_view bytes;
        std::wstring expected; ///< with "?" for U+FFFD
    };
    const Case cases[] = {
        {"", L""},
        {"a\x7F", L"a\x7F"},
        {"a\0b"sv, std::wstring(L"a\0b", 3)},
        {"\xC2\x80\xDF\xBF", L"\x80\x7FF"},
        {"\xE0\xA0\x80\xEF\xBF\xBF", L"\x800\xFFFF"},
        {"\xED\x9F\xBF\xEE\x80\x80", L"\xD7FF\xE000"},
        {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", L"\U00010000\U0010FFFF"},
        // Overlong forms.
        {"\xC0\x80", L"??"},
        {"\xE0\x9F\xBF", L"???"},
        {"\xF0\x8F\xBF\xBF", L"????"},
        // Surrogates and values above U+10FFFF.
        {"\xED\xA0\x80", L"???"},
        {"\xF4\x90\x80\x80", L"????"},
        {"\xF5\x80\xFF", L"???"},
        // Cut off, stray, interrupted.
        {"\xE2\x82", L"?"},
        {"\xF0\x9F\x98", L"?"},
        {"\x80\xBF", L"??"},
        {"\xE2\x82(", L"?("},
        {"\xF0\x9F\x98\xF0\x9F\x98\x80", L"?\U0001F600"},
        // Table 3-8 of the Unicode Standard.
        {"\x61\xF1\x80\x80\xE1\x80\xC2\x62\x80\x63\x80\xBF\x64", L"a???b?c??d"},
    };
    for (const Case& c : cases) {
        const String decoded = String::fromUtf8(c.bytes);
        const String expected = String(c.expected).replaceAll("?", L"\xFFFD");
        EXPECT_EQ(decoded, expected) << testing::PrintToString(std::string(c.bytes));
        if (c.expected.find(L'?') == std::wstring::npos) {
            EXPECT_EQ(decoded.toUtf8(), c.bytes);
        }
    }
}

TEST(StringUtf8, EncodesWhatIsNoCodePointAsReplacement) {
    const auto wide = [](char32_t value) { return std::wstring(1, static_cast<wchar_t>(value)); };
    EXPECT_EQ(String(L"a" + wide(0xD800) + L"b").toUtf8(), std::string("a") + REPLACEMENT + "b");
    EXPECT_EQ(String(wide(0xD800)).toUtf8(), REPLACEMENT);
    EXPECT_EQ(String(wide(0xDC00) + wide(0xD800)).toUtf8(), std::string(REPLACEMENT) + REPLACEMENT);
    if (sizeof(wchar_t) == 4) {
        EXPECT_EQ(String(wide(0x110000) + wide(0xFFFFFFFF)).toUtf8(), std::string(REPLACEMENT) + REPLACEMENT);
    }
}

TEST(StringConstruction, TakesLiteralsAndNullPointers) {
    EXPECT_EQ(String("\xC3\xA4"), String(L"\xE4"));
    EXPECT_TRUE(String(static_cast<const char*>(nullptr)).isEmpty());
    EXPECT_TRUE(String(static_cast<const wchar_t*>(nullptr)).isEmpty());
}

TEST(StringEditing, ReplacesEveryOccurrenceOnce) {
    struct Case {
        const char *text, *from, *to, *expected;
    };
    const Case cases[] = {
        {"a.b.c", ".", ",", "a,b,c"}, {"aaa", "aa", "b", "ba"}, {"aaaa", "aa", "", ""},   {"ab", "a", "aa", "aab"},
        {"abc", "", "x", "abc"},      {"", "a", "b", ""},       {"ab", "abc", "x", "ab"}, {"x", "x", "xyx", "xyx"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(String(c.text).replaceAll(c.from, c.to), c.expected) << c.text << ", " << c.from << " by " << c.to;
    }
    String same("ab");
    EXPECT_EQ(same.replaceAll(same, same + same), "abab");
    EXPECT_EQ(same.replaceAll(same, same), "abab");
}

TEST(StringEditing, ClampsPositionsAndCounts) {
    struct Case {
        std::size_t position, count;
        const char *substring, *erased;
    };
    const Case cases[] = {
        {1, String::npos, "ello", "h"},
        {4, 5, "o", "hell"},
        {5, 1, "", "hello"},
        {6, 1, "", "hello"},
        {0, String::npos, "hello", ""},
        {String::npos, String::npos, "", "hello"},
    };
    const String hello("hello");
    for (const Case& c : cases) {
        EXPECT_EQ(hello.getSubstr(c.position, c.count), c.substring) << c.position << ", " << c.count;
        EXPECT_EQ(String(hello).erase(c.position, c.count), c.erased) << c.position << ", " << c.count;
    }
    EXPECT_EQ(hello[4], L'o');
    EXPECT_EQ(hello[5], L'\0');
    EXPECT_EQ(hello[String::npos], L'\0');
}

TEST(StringSearch, FindsAndCompares) {
    const String text("abcabc");
    EXPECT_EQ(text.find("bc"), 1u);
    EXPECT_EQ(text.find("bc", 2), 4u);
    EXPECT_EQ(text.find("bc", String::npos), String::npos);
    EXPECT_TRUE(text.startsWith("") && text.startsWith("abc") && !text.startsWith("bc"));
    EXPECT_TRUE(text.endsWith("abc") && !text.endsWith("abcabca"));
    EXPECT_LT(String("Z"), String("a"));
    EXPECT_LT(String("ab"), String("abc"));
    EXPECT_EQ(L"x" + String("y") + "z", "xyz");
    EXPECT_EQ(std::unordered_set<String>({"a", L"a", "b"}).size(), 2u);
}

} // namespace
