#include "models/TooltipLayout.h"

#include <gmock/gmock.h>

namespace Ostrel::Wx {
namespace {

TEST(TooltipLines, BreakAtLineFeedsAndAtTheLastSpaceThatFits) {
    using Case = std::pair<const char*, Array<String>>;
    const Case cases[] = {
        {"", {}},
        {"aaaa bbbb cc", {"aaaa bbbb cc"}}, // the last word is not measured
        {"aaaa bbbb cc d", {"aaaa bbbb", "cc d"}},
        {"aaaa bbbbb cc d", {"aaaa bbbbb", "cc d"}}, // 10 wide: still fits
        {"withoutanyspaces a b", {"withoutanyspaces", "a b"}},
        {"a withoutanyspaces b", {"a", "withoutanyspaces b"}},
        {"a\n\nb\n", {"a", "", "b", ""}},
        {"aaaa bbb\ncccc ddd e", {"aaaa bbb", "cccc ddd e"}}, // a space before the line feed is no place to break
        {"aaaaaaaaaa  b", {"aaaaaaaaaa", " b"}},              // of two spaces one is dropped
    };
    const auto countCharacters = [](const String& text) { return static_cast<int>(text.size()); };
    for (const auto& [text, lines] : cases) {
        EXPECT_EQ(breakTooltipLines(text, 10, countCharacters), lines) << '"' << text << '"';
    }
}

} // namespace
} // namespace Ostrel::Wx
