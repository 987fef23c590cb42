#include "models/MessageDialogModel.h"

#include <OstrelLib/Exceptions.h>

#include <gmock/gmock.h>

namespace Ostrel::Wx {
namespace {

using Ids = Array<int>;
constexpr int OUTSIDE_CLOSE = 15999, FRAME_CLOSE = 16000, FRAME_ICON = 16001, OK = 16002, CANCEL = 16003, YES = 16004,
              NO = 16005;

TEST(MessageDialogControls, DecideTheWindowStyle) {
    using Case = std::tuple<Ids, bool, long>;
    const Case cases[] = {
        {{OK, FRAME_CLOSE, FRAME_ICON}, true, 0x20001800},
        {{FRAME_ICON, YES, NO}, true, 0x20000800},
        {{OK, FRAME_CLOSE}, true, 0x20001000},
        {{OK}, true, 0x20000000},
        {{OK, OUTSIDE_CLOSE}, false, 0},
        {{}, false, 0},
        {{FRAME_CLOSE}, false, 0x20001000},
        {{FRAME_ICON}, false, 0x20000800},
    };
    for (const auto& [ids, hasTitle, style] : cases) {
        EXPECT_EQ(computeMessageDialogStyle(ids, hasTitle), style) << testing::PrintToString(ids);
    }
    EXPECT_TRUE(needsFrameClose(Ids{OK, CANCEL}));
    EXPECT_FALSE(needsFrameClose(Ids{FRAME_CLOSE, CANCEL}));
    EXPECT_FALSE(needsFrameClose(Ids{OK, YES, NO, FRAME_ICON, OUTSIDE_CLOSE}));
}

TEST(MessageKeys, BelongToTheControlBoundLast) {
    MessageKeyTable keys;
    EXPECT_EQ(keys.find(0), std::nullopt);
    for (const int key : {370, 13, 27, -1, 89}) {
        keys.bind(key, key + 1000);
    }
    keys.bind(27, NO);
    for (const int key : {370, 13, -1, 89}) {
        EXPECT_EQ(keys.find(key), key + 1000);
    }
    EXPECT_EQ(keys.find(27), NO);
    for (const int key : {-2, 0, 14, 371}) {
        EXPECT_EQ(keys.find(key), std::nullopt);
    }
}

TEST(MessagePlacement, CentresAndSurvivesAnySize) {
    EXPECT_EQ(centreInRegion({{100, 50}, {300, 151}}, {60, 41}), (Pixel{170, 80}));
    EXPECT_EQ(centreInRegion({{-300, -100}, {-100, 0}}, {401, 301}), (Pixel{-400, -200}));
    EXPECT_EQ(centreInRegion({}, {10, 10}), (Pixel{-5, -5}));
}

TEST(MessageText, BreaksOnlyWordsThatAreTooWide) {
    const auto width = [](const String& text) { return static_cast<int>(10 * text.size()); };
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"", L""},
        {L" a  bc\n\nabcde ", L" a  bc\n\nabcde "},
        {L"abcdef", L"abcde\nf"},
        {L"one abcdefghijk two", L"one abcde\nfghij\nk two"},
        {L"abcdefghij\nx", L"abcde\nfghij\nx"},
    };
    for (const auto& [message, broken] : cases) {
        EXPECT_EQ(breakWideWords(message, 50, width).toUtf8(), String(broken).toUtf8());
    }
    EXPECT_EQ(breakWideWords("abc", 0, width).toUtf8(), "a\nb\nc") << "one character at least";
    EXPECT_EQ(expandMessageTabs("\ta\t\tb").toUtf8(), "    a        b");
}

TEST(MessageText, KeepsBothHalvesOfACharacterTogether) {
    const std::wstring pair{wchar_t(0xD83D), wchar_t(0xDE00)};
    const auto width = [](const String& text) { return static_cast<int>(10 * text.size()); };
    EXPECT_EQ(breakWideWords(pair + pair + L"a", 30, width).toWide(), pair + L"\n" + pair + L"a");
    EXPECT_EQ(breakWideWords(L"x" + pair + pair, 20, width).toWide(), L"x\n" + pair + L"\n" + pair);
    EXPECT_EQ(breakWideWords(pair + L"x", 10, width).toWide(), pair + L"\nx") << "wider than fits";
}

TEST(MessageText, OfOneHugeWordIsBrokenInTimeProportionalToIt) {
    std::size_t measured = 0;
    const auto width = [&measured](const String& text) {
        measured += text.size();
        return static_cast<int>(text.size());
    };
    const std::size_t size = 200'000;
    const String broken = breakWideWords(std::wstring(size, L'w'), 75, width);
    EXPECT_EQ(broken.size(), size + (size - 1) / 75);
    EXPECT_LT(measured, 20 * size);
}

TEST(NativeMessage, TakesItsStyleFromTheControls) {
    constexpr long ALWAYS = 0x8001;
    const std::pair<Ids, long> cases[] = {{{OK, FRAME_CLOSE, FRAME_ICON}, 0x4},
                                          {{CANCEL, OK}, 0x14},
                                          {{NO, YES}, 0xa},
                                          {{YES, OK}, 0x4},
                                          {{NO, CANCEL}, 0x10},
                                          {{16006}, 0},
                                          {{YES, NO, OK}, 0xe}};
    for (const auto& [ids, style] : cases) {
        EXPECT_EQ(computeNativeMessageStyle(ids, 0), style | ALWAYS | 0x40000) << testing::PrintToString(ids);
    }
    const long icons[] = {0x40000, 0x200, 0x100, 0x800, 0x400};
    for (int icon = 0; icon < 5; ++icon) {
        EXPECT_EQ(computeNativeMessageStyle(Ids{}, icon), icons[icon] | ALWAYS);
    }
    EXPECT_THROW((void)computeNativeMessageStyle(Ids{OK}, -1), Detail::StopException);
}

} // namespace
} // namespace Ostrel::Wx
