#include "system/Process.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

constexpr std::chrono::seconds DEADLINE{60};

std::string readText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path << " cannot be read";
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The text of the first block of that language; empty if there is none.
std::string codeBlock(const std::string& markdown, const std::string& language) {
    const std::string opening = "```" + language + "\n";
    const std::size_t start = markdown.find(opening);
    const std::size_t end = markdown.find("\n```", start);
    if (start == std::string::npos || end == std::string::npos) {
        return {};
    }
    return markdown.substr(start + opening.size(), end + 1 - start - opening.size());
}

} // namespace

TEST(Examples, WxHostIsToldOfTheClickTwiceAndEndsCleanly) {
    const ProcessResult result = runProcess(programBesideThisOne("wx-host"), {"--quit-after-shown"}, DEADLINE);
    // The host's application object stays what it was; the event comes before the call.
    EXPECT_EQ(result.output, "started in WxHost\n"
                             "shown\n"
                             "event from the button\n"
                             "pressed 1\n"
                             "stopped\n");
    EXPECT_EQ(result.exitCode, 0);
}

TEST(Examples, NativeHostOwnsTheLibrarysWindowAndItsLoopBringsTheClick) {
    const ProcessResult result = runProcess(programBesideThisOne("native-host"), {"--quit-after-shown"}, DEADLINE);
    EXPECT_EQ(result.output, "started\n"
                             "owned by the host's window\n"
                             "pressed 1\n"
                             "stopped, windows left 0\n");
    EXPECT_EQ(result.exitCode, 0);
}

TEST(Examples, ReadmeShowsTheHostThatIsBuilt) {
    const std::filesystem::path root = OSTREL_SOURCE_DIR;
    const std::string built = readText(root / "examples" / "twenty-lines" / "main.cpp");
    EXPECT_EQ(codeBlock(readText(root / "README.md"), "cpp"), built);
    EXPECT_LE(std::count(built.begin(), built.end(), '\n'), 20);
}
