#include <OstrelLib/Path.h>

#include "core/Printing.h"

#include <gtest/gtest.h>

#include <string>

using Ostrel::Path;
using Ostrel::String;

namespace {

TEST(PathParts, AreSplitAtTheLastSeparatorAndDot) {
    struct Case {
        const char *path, *fileName, *parent, *extension;
    };
    const Case cases[] = {
        {"a/b/c.txt", "c.txt", "a/b", ".txt"},
        {"a/b/", "", "a/b", ""},
        {"c.tar.TXT", "c.tar.TXT", "", ".TXT"},
        {"", "", "", ""},
        {".acv", ".acv", "", ""},
        {"dir.d/file", "file", "dir.d", ""},
        {"/", "", "/", ""},
        {"a/..", "..", "a", ""},
        {"\xC3\xA4/\xE5\x90\x8D.\xC3\xB6", "\xE5\x90\x8D.\xC3\xB6", "\xC3\xA4", ".\xC3\xB6"},
    };
    for (const Case& c : cases) {
        const Path path(c.path);
        EXPECT_EQ(path.nativeStr(), c.path);
        EXPECT_EQ(path.fileName(), c.fileName) << c.path;
        EXPECT_EQ(path.parentDirectory(), Path(c.parent)) << c.path;
        EXPECT_EQ(path.extension(), c.extension) << c.path;
        EXPECT_EQ(path.isEmpty(), *c.path == '\0') << c.path;
    }
}

TEST(PathParts, JoinAndCompare) {
    EXPECT_EQ(Path("a") / "b.txt", Path("a/b.txt"));
    EXPECT_EQ(Path("a/") / "b.txt", Path("a//b.txt"));
    EXPECT_EQ(Path("a") / Path("/b"), Path("/b"));
    EXPECT_NE(Path("a"), Path("A"));
    EXPECT_EQ((Path() / "a").nativeStr(), "a");
}

TEST(PathOnDisk, ExistsNeverThrows) {
    EXPECT_TRUE(Path(std::filesystem::temp_directory_path()).exists());
    EXPECT_FALSE(Path().exists());
    EXPECT_FALSE(Path("no/such/file").exists());
    EXPECT_FALSE(Path(String(std::wstring(100000, L'a'))).exists());
    // Text that is no Unicode is a name as well.
    const Path odd(String(std::wstring(1, static_cast<wchar_t>(0xD800))));
    EXPECT_EQ(odd.nativeStr().size(), 1u);
    EXPECT_FALSE(odd.exists());
}

} // namespace
