#include <OstrelLib/Streams.h>

#include "core/Printing.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <random>
#include <string>

using Ostrel::Path;
using Ostrel::String;
using namespace Ostrel::Io;

namespace {

constexpr const char* LOAD_FAILURE = "Could not load object from the stream.";
constexpr std::size_t ALL = std::numeric_limits<std::size_t>::max();

/// The message of the stream exception that `action` throws, or a text that says that it threw none.
template <class Action>
std::string failureOf(Action action) {
    try {
        action();
    } catch (const StreamException& e) {
        return e.what();
    }
    return "(no exception)";
}

/// A folder of its own, with a name that needs Unicode.
class FileStreams : public testing::Test {
protected:
    FileStreams() { std::filesystem::create_directories(folder.native()); }
    ~FileStreams() override {
        std::error_code ignored;
        std::filesystem::remove_all(folder.native(), ignored);
    }

    Path save(const String& name, const std::string& bytes) const {
        Path path = folder / name;
        FileOutputStream stream(path);
        stream.write(bytes.data(), bytes.size());
        stream.close();
        stream.close(); // does nothing more
        EXPECT_EQ(failureOf([&] { stream.write("c", 1); }),
                  ("Cannot write to the file \"" + path.nativeStr() + "\".").toUtf8());
        return path;
    }

    const Path folder = Path(std::filesystem::temp_directory_path()) /
                        (L"ostrel \xE4\x540D\U0001F600 " + String(std::to_wstring(std::random_device()())));
};

TEST_F(FileStreams, ReadBackWhatWasWritten) {
    std::string large(2'500'007, '\0');
    for (std::size_t i = 0; i < large.size(); ++i) {
        large[i] = static_cast<char>(i * 31 >> 3);
    }
    // In this order: every file replaces a longer one.
    for (const std::string& bytes : {large, std::string("\r\n\0\x1A\n", 5), std::string()}) {
        FileInputStream stream(save(L"\x540D\U0001F600.acv", bytes));
        std::string found(std::size_t{4} << 20, '?');
        found.resize(stream.read(found.data(), ALL));
        EXPECT_TRUE(found == bytes) << bytes.size() << " bytes";
    }
}

TEST_F(FileStreams, ReadFewerBytesOnlyAtTheEnd) {
    FileInputStream stream(save("three", "abc"));
    char buffer[8] = "-------";
    EXPECT_EQ(stream.read(nullptr, 0), 0u);
    stream.readExactly(buffer, 2);
    EXPECT_EQ(stream.read(buffer + 2, 5), 1u);
    EXPECT_STREQ(buffer, "abc----");
    EXPECT_EQ(stream.read(buffer, 1), 0u);
    EXPECT_EQ(failureOf([&] { stream.readExactly(buffer, 1); }), LOAD_FAILURE);
    stream.close();
    stream.close();
    EXPECT_EQ(failureOf([&] { (void)stream.read(buffer, 1); }), LOAD_FAILURE);
    EXPECT_EQ(failureOf([&] { FileInputStream(save("short", "x")).readExactly(buffer, 2); }), LOAD_FAILURE);
}

TEST_F(FileStreams, SayWhatCannotBeOpened) {
    for (const Path& path : {folder, folder / "missing" / "file", Path()}) {
        const String message = "Cannot open the file \"" + path.nativeStr() + "\" for ";
        EXPECT_EQ(failureOf([&] { FileInputStream{path}; }), (message + "reading.").toUtf8());
        EXPECT_EQ(failureOf([&] { FileOutputStream{path}; }), (message + "writing.").toUtf8());
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.native()));
}

TEST(MemoryStream, EndsWithItsBytes) {
    const std::string bytes("abc");
    MemoryInputStream stream(std::as_bytes(std::span(bytes)));
    char buffer[4] = "--";
    EXPECT_EQ(stream.read(buffer, 1), 1u);
    EXPECT_EQ(stream.read(buffer + 1, ALL), 2u);
    EXPECT_EQ(std::string(buffer, 3), bytes);
    EXPECT_EQ(failureOf([&] { stream.readExactly(buffer, 1); }), LOAD_FAILURE);
    EXPECT_EQ(MemoryInputStream({}).read(nullptr, ALL), 0u);
}

} // namespace
