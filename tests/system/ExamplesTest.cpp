#include "system/Process.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

std::string readText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path << " cannot be read";
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

TEST(Examples, RunToTheirEndAndTellWhatTheySaw) {
    const std::pair<std::string, std::string> cases[] = {
        // The host's application object stays what it was; the event comes before the call.
        {"wx-host", "started in WxHost\nshown\nevent from the button\npressed 1\nstopped\n"},
        {"native-host", "started\nowned by the host's window\npressed 1\nstopped, windows left 0\n"},
    };
    for (const auto& [name, output] : cases) {
        const ProcessResult run =
            runProcess(programBesideThisOne(name), {"--quit-after-shown"}, std::chrono::seconds(60));
        EXPECT_EQ(run.output, output);
        EXPECT_EQ(run.exitCode, 0) << name;
    }
}

TEST(Examples, ReadmeShowsTheHostThatIsBuilt) {
    const std::filesystem::path root = OSTREL_SOURCE_DIR;
    const std::string built = readText(root / "examples" / "twenty-lines" / "main.cpp");
    EXPECT_THAT(readText(root / "README.md"), testing::HasSubstr("```cpp\n" + built + "```\n"));
    EXPECT_LE(std::count(built.begin(), built.end(), '\n'), 20);
}
