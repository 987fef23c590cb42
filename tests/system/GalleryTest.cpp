#include "system/Process.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/imagbmp.h>
#include <wx/image.h>
#include <wx/imagpng.h>
#include <wx/log.h>
#include <wx/wfstream.h>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// On no page but in the test's picture.
const std::string STRANGE_GREEN = "\x0D\xC9\x39";

class GalleryTest : public testing::Test {
protected:
    GalleryTest() {
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    ~GalleryTest() override { fs::remove_all(folder); }

    static ProcessResult runGallery(const std::vector<std::string>& arguments) {
        return runProcess(programBesideThisOne("gallery"), arguments, std::chrono::seconds(120));
    }

    /// The files in a folder, sorted by name.
    static std::vector<fs::path> list(const fs::path& folder) {
        std::vector<fs::path> files{fs::directory_iterator(folder), fs::directory_iterator()};
        std::sort(files.begin(), files.end());
        return files;
    }

    /// The bytes of a picture, three for each pixel, and its size.
    static std::pair<std::string, wxSize> readPng(const fs::path& file) {
        const wxLogNull silence;
        wxImage image;
        wxFileInputStream stream(wxString(file.wstring()));
        if (!wxPNGHandler().LoadFile(&image, stream, false)) {
            ADD_FAILURE() << file << " is no PNG";
            return {};
        }
        const std::size_t size =
            static_cast<std::size_t>(image.GetWidth()) * static_cast<std::size_t>(image.GetHeight());
        return {std::string(reinterpret_cast<const char*>(image.GetData()), size * 3), image.GetSize()};
    }

    const fs::path folder = fs::temp_directory_path() / testing::UnitTest::GetInstance()->current_test_info()->name();
};

/// The pages that `--help` names.
std::vector<std::string> getPages(const std::string& help) {
    std::vector<std::string> pages;
    std::istringstream lines(help.substr(std::min(help.size(), help.find("Pages:\n"))));
    std::string line;
    std::getline(lines, line);
    while (std::getline(lines, line) && line.starts_with("  ")) {
        pages.push_back(line.substr(2));
    }
    return pages;
}

} // namespace

TEST_F(GalleryTest, SavesEveryPageAsThePictureOfAWindow) {
    const std::vector<std::string> pages = getPages(runGallery({"--help"}).output);
    ASSERT_THAT(pages, testing::IsSupersetOf({"Welcome", "Skin", "Border", "Button", "Tooltip", "Picture"}));
    const ProcessResult run = runGallery({"--screenshots", (folder / "made" / "new").string()});
    ASSERT_EQ(run.exitCode, 0) << run.output;
    const std::vector<fs::path> files = list(folder / "made" / "new");
    ASSERT_EQ(files.size(), pages.size());
    const wxSize size = readPng(files[0]).second;
    std::set<std::string> contents;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const auto& [bytes, pageSize] = readPng(files[i]);
        EXPECT_EQ(std::stoul(files[i].filename().string()), i + 1);
        EXPECT_EQ(pageSize, size) << files[i];
        EXPECT_FALSE(bytes.substr(3) == bytes.substr(0, bytes.size() - 3)) << files[i] << " shows one colour";
        EXPECT_TRUE(contents.insert(bytes).second) << files[i] << " shows what another page shows";
    }
}

TEST_F(GalleryTest, SavesOnePageAloneWhicheverTheCaseOfItsName) {
    const ProcessResult run = runGallery({"--only", "windows AND screens", "--screenshots", folder.string()});
    EXPECT_EQ(run.exitCode, 0) << run.output;
    const std::vector<fs::path> files = list(folder);
    ASSERT_EQ(files.size(), 1U);
    EXPECT_THAT(files[0].filename().string(), testing::EndsWith("-windows-and-screens.png"));
}

TEST_F(GalleryTest, OpensAPictureAndSaysWhenItCannot) {
    const fs::path good = folder / "good.png";
    wxImage picture(37, 21);
    for (std::size_t i = 0; i < 37 * 21; ++i) {
        std::copy(STRANGE_GREEN.begin(), STRANGE_GREEN.end(), picture.GetData() + 3 * i);
    }
    {
        wxFileOutputStream stream(wxString(good.wstring()));
        ASSERT_TRUE(wxPNGHandler().SaveFile(&picture, stream, false));
    }
    const fs::path truncated = folder / "truncated.png";
    fs::copy_file(good, truncated);
    fs::resize_file(truncated, fs::file_size(good) / 2);
    const fs::path empty = folder / "empty.png";
    std::ofstream(empty).close();

    // An icon has both a mask and an alpha channel.
    const fs::path icon = folder / "icon.ico";
    {
        wxImage image = picture.Scale(32, 32);
        image.SetAlpha();
        std::fill_n(image.GetAlpha(), 32 * 32, static_cast<unsigned char>(255));
        wxFileOutputStream stream(wxString(icon.wstring()));
        ASSERT_TRUE(wxICOHandler().SaveFile(&image, stream, false));
    }

    const std::pair<fs::path, std::string> cases[] = {{good, ""},
                                                      {icon, ""},
                                                      {truncated, "damaged"},
                                                      {empty, "damaged"},
                                                      {folder / "missing.png", "no such file"},
                                                      {folder, "no such file"}};
    for (const auto& [path, message] : cases) {
        SCOPED_TRACE(path.string());
        const fs::path shots = folder / "shots";
        const ProcessResult run =
            runGallery({"--picture", path.string(), "--only", "picture", "--screenshots", shots.string()});
        EXPECT_EQ(run.exitCode, message.empty() ? 0 : 1);
        EXPECT_THAT(run.output, HasSubstr(message));
        EXPECT_EQ(run.output.empty(), message.empty()) << run.output;
        // The page is saved in either case, and tells of it.
        const std::vector<fs::path> files = list(shots);
        ASSERT_EQ(files.size(), 1U);
        EXPECT_EQ(readPng(files[0]).first.find(STRANGE_GREEN) != std::string::npos, message.empty());
        fs::remove_all(shots);
    }
    const ProcessResult unsaved = runGallery({"--only", "welcome", "--screenshots", (empty / "inside").string()});
    EXPECT_EQ(unsaved.exitCode, 1);
    EXPECT_THAT(unsaved.output, HasSubstr("could not be made"));
}

TEST_F(GalleryTest, RefusesACommandLineThatItDoesNotUnderstand) {
    const std::vector<std::string> refused[] = {
        {"--only", "Nowhere"}, {"--only"}, {"--frobnicate"}, {"stray"}, {"--only", "Skin", "--only", "Button"}};
    for (const std::vector<std::string>& arguments : refused) {
        const ProcessResult run = runGallery(arguments);
        EXPECT_EQ(run.exitCode, 2) << testing::PrintToString(arguments);
        EXPECT_THAT(run.output, HasSubstr("Usage: gallery"));
    }
}
