#include "models/TooltipLayout.h"

#include <gmock/gmock.h>

namespace Ostrel::Wx {
namespace {

/// Every character is one pixel wide.
int countCharacters(const String& text) {
    return static_cast<int>(text.size());
}

TEST(TooltipLines, BreakAtLineFeedsAndAtTheLastSpaceThatFits) {
    struct Case {
        const char* text;
        Array<String> lines;
    };
    const Case cases[] = {
        {"", {}},
        {"one", {"one"}},
        {"aaaa bbbb cc", {"aaaa bbbb cc"}}, // the last word is not measured
        {"aaaa bbbb cc d", {"aaaa bbbb", "cc d"}},
        {"aaaa bbbbb cc d", {"aaaa bbbbb", "cc d"}}, // 10 wide: still fits
        {"aaaa bbbbbb cc", {"aaaa", "bbbbbb cc"}},
        {"withoutanyspaces", {"withoutanyspaces"}},
        {"withoutanyspaces a b", {"withoutanyspaces", "a b"}},
        {"a withoutanyspaces b", {"a", "withoutanyspaces b"}},
        {"a\nb", {"a", "b"}},
        {"a\n\nb\n", {"a", "", "b", ""}},
        {"aaaa bbb\ncccc ddd e", {"aaaa bbb", "cccc ddd e"}}, // a space before the line feed is no place to break
        {"  a", {"  a"}},
        {"aaaaaaaaaa  b", {"aaaaaaaaaa", " b"}}, // of two spaces one is dropped
    };
    for (const Case& c : cases) {
        EXPECT_EQ(breakTooltipLines(c.text, 10, countCharacters), c.lines) << '"' << c.text << '"';
    }
}

TEST(TooltipSize, IsTheWidestLineAndAllHeightsWithAMargin) {
    EXPECT_EQ(computeTooltipSize({}), (Pixel{6, 6}));
    const Array<Pixel> extents{{40, 14}, {70, 15}, {0, 14}};
    EXPECT_EQ(computeTooltipSize(extents), (Pixel{76, 49}));
}

} // namespace
} // namespace Ostrel::Wx
