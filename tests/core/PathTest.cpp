#include <OstrelLib/Path.h>

#include "core/Printing.h"

#include <gtest/gtest.h>

#include <string>

using Ostrel::Path;
using Ostrel::String;

namespace {

TEST(PathParts, KeepTheirUnicode) {
    const Path path("a/\xC3\xA4/\xE5\x90\x8D.tar.\xC3\xB6");
    EXPECT_EQ(path.nativeStr(), L"a/\xE4/\x540D.tar.\xF6");
    EXPECT_EQ(path.fileName(), L"\x540D.tar.\xF6");
    EXPECT_EQ(path.parentDirectory(), Path(L"a/\xE4"));
    EXPECT_EQ(path.extension(), L".\xF6");
    EXPECT_EQ(Path(".acv").extension(), "") << "a hidden file";
    EXPECT_EQ(Path("a/") / "b", Path("a//b"));
    EXPECT_NE(Path("a"), Path("A"));
}

TEST(PathOnDisk, ExistsNeverThrows) {
    EXPECT_TRUE(Path(std::filesystem::temp_directory_path()).exists());
    EXPECT_FALSE(Path().exists());
    EXPECT_FALSE(Path(String(std::wstring(100000, L'a'))).exists());
    // Text that is no Unicode is a name as well.
    const Path odd(String(std::wstring(1, static_cast<wchar_t>(0xD800))));
    EXPECT_EQ(odd.nativeStr().size(), 1u);
    EXPECT_FALSE(odd.exists());
}

} // namespace
