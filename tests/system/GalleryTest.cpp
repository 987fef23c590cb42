#include "system/Process.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/image.h>
#include <wx/imagpng.h>
#include <wx/log.h>
#include <wx/wfstream.h>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr std::chrono::seconds DEADLINE{120};
/// On no page but in the test's picture.
constexpr std::array<unsigned char, 3> STRANGE_GREEN{13, 201, 57};

class GalleryTest : public testing::Test {
protected:
    void SetUp() override {
        const testing::TestInfo* const info = testing::UnitTest::GetInstance()->current_test_info();
        _folder = fs::temp_directory_path() / (std::string("ostrel-gallery-") + info->name());
        fs::remove_all(_folder);
        fs::create_directories(_folder);
    }
    void TearDown() override { fs::remove_all(_folder); }

    [[nodiscard]] const fs::path& folder() const { return _folder; }

    static ProcessResult runGallery(const std::vector<std::string>& arguments) {
        return runProcess(programBesideThisOne("gallery"), arguments, DEADLINE);
    }

    /// The files in a folder, sorted by name; none if it is not there.
    static std::vector<fs::path> list(const fs::path& folder) {
        std::vector<fs::path> files;
        if (fs::exists(folder)) {
            std::copy(fs::directory_iterator(folder), fs::directory_iterator(), std::back_inserter(files));
        }
        std::sort(files.begin(), files.end());
        return files;
    }

    static wxImage readPng(const fs::path& file) {
        const wxLogNull silence;
        wxImage image;
        wxFileInputStream stream(wxString(file.wstring()));
        EXPECT_TRUE(wxPNGHandler().LoadFile(&image, stream, false)) << file << " is no PNG";
        return image;
    }

    static bool isUniform(const wxImage& image) {
        const unsigned char* const data = image.GetData();
        const int size = image.GetWidth() * image.GetHeight() * 3;
        return std::equal(data + 3, data + size, data);
    }

    static bool showsStrangeGreen(const wxImage& image) {
        const unsigned char* const data = image.GetData();
        for (int i = 0; i < image.GetWidth() * image.GetHeight(); ++i) {
            if (std::equal(STRANGE_GREEN.begin(), STRANGE_GREEN.end(), data + 3 * i)) {
                return true;
            }
        }
        return false;
    }

private:
    fs::path _folder;
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
    const ProcessResult help = runGallery({"--help"});
    ASSERT_EQ(help.exitCode, 0);
    const std::vector<std::string> pages = getPages(help.output);
    ASSERT_THAT(pages, testing::IsSupersetOf({"Welcome", "Skin", "Border", "Button", "Tooltip", "Picture"}));

    const ProcessResult run = runGallery({"--screenshots", (folder() / "made" / "new").string()});
    EXPECT_EQ(run.exitCode, 0) << run.output;
    const std::vector<fs::path> files = list(folder() / "made" / "new");
    ASSERT_EQ(files.size(), pages.size());
    std::set<std::string> contents;
    wxSize size;
    for (std::size_t i = 0; i < files.size(); ++i) {
        SCOPED_TRACE(files[i].string());
        EXPECT_EQ(std::stoul(files[i].filename().string()), i + 1);
        const wxImage image = readPng(files[i]);
        ASSERT_TRUE(image.IsOk());
        EXPECT_FALSE(isUniform(image));
        size = i == 0 ? image.GetSize() : size;
        EXPECT_EQ(image.GetSize(), size);
        const char* const data = reinterpret_cast<const char*>(image.GetData());
        contents.emplace(data, data + image.GetWidth() * image.GetHeight() * 3);
    }
    EXPECT_EQ(contents.size(), files.size()) << "two pages look the same";
}

TEST_F(GalleryTest, SavesOnePageAloneWhicheverTheCaseOfItsName) {
    const ProcessResult run = runGallery({"--only", "windows AND screens", "--screenshots", folder().string()});
    EXPECT_EQ(run.exitCode, 0) << run.output;
    const std::vector<fs::path> files = list(folder());
    ASSERT_EQ(files.size(), 1U);
    EXPECT_THAT(files[0].filename().string(), testing::EndsWith("-windows-and-screens.png"));
}

TEST_F(GalleryTest, OpensAPictureAndSaysWhenItCannot) {
    const fs::path good = folder() / "good.png";
    wxImage picture(37, 21);
    picture.SetRGB(wxRect(0, 0, 37, 21), STRANGE_GREEN[0], STRANGE_GREEN[1], STRANGE_GREEN[2]);
    {
        wxFileOutputStream stream(wxString(good.wstring()));
        ASSERT_TRUE(wxPNGHandler().SaveFile(&picture, stream, false));
    }
    const fs::path truncated = folder() / "truncated.png";
    fs::copy_file(good, truncated);
    fs::resize_file(truncated, fs::file_size(good) / 2);
    const fs::path empty = folder() / "empty.png";
    std::ofstream(empty).close();

    struct Case {
        fs::path picture;
        int exitCode;
        std::string message;
    };
    for (const Case& expected : {Case{good, 0, ""},
                                 {truncated, 1, "damaged"},
                                 {empty, 1, "damaged"},
                                 {folder() / "missing.png", 1, "no such file"},
                                 {folder(), 1, "no such file"}}) {
        SCOPED_TRACE(expected.picture.string());
        const fs::path shots = folder() / "shots";
        fs::remove_all(shots);
        const ProcessResult run =
            runGallery({"--picture", expected.picture.string(), "--only", "picture", "--screenshots", shots.string()});
        EXPECT_EQ(run.exitCode, expected.exitCode);
        EXPECT_THAT(run.output, HasSubstr(expected.message));
        EXPECT_EQ(run.output.empty(), expected.exitCode == 0) << run.output;
        // The page is saved in either case, and tells of it.
        const std::vector<fs::path> files = list(shots);
        ASSERT_EQ(files.size(), 1U);
        EXPECT_EQ(showsStrangeGreen(readPng(files[0])), expected.exitCode == 0);
    }
}

TEST_F(GalleryTest, SaysWhenPicturesCannotBeSaved) {
    const fs::path file = folder() / "file";
    std::ofstream(file).close();
    const ProcessResult run = runGallery({"--only", "welcome", "--screenshots", (file / "inside").string()});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.output, HasSubstr("could not be made"));
}

TEST_F(GalleryTest, RefusesACommandLineThatItDoesNotUnderstand) {
    const std::vector<std::vector<std::string>> refused{{"--only", "Nowhere"},
                                                        {"--only", ""},
                                                        {"--only"},
                                                        {"--picture"},
                                                        {"--frobnicate"},
                                                        {"stray"},
                                                        {"--only", "Skin", "--only", "Button"}};
    for (const std::vector<std::string>& arguments : refused) {
        const ProcessResult run = runGallery(arguments);
        SCOPED_TRACE(testing::PrintToString(arguments));
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_THAT(run.output, HasSubstr("Usage: gallery"));
    }
}
