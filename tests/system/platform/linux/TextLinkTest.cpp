#include "system/Process.h"

#include <OstrelLibWx/OstrelLibWx.h>
#include <OstrelLibWx/widgets/TextButton.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

#include <glib.h>
#include <wx/frame.h>

// What a link opens, with a browser of this test's own. Linux: the registry says what Windows opens, for all programs.

namespace {

using namespace Ostrel;
namespace fs = std::filesystem;

constexpr const char* OPENED_VARIABLE = "OSTREL_TEST_OPENED"; ///< set for the program that clicks
constexpr const char* FIRST = "http://one.example/a?b=c&d=e%20f#g";
constexpr const char* SECOND = "http://two.example/";

void write(const fs::path& file, const std::string& text) {
    fs::create_directories(file.parent_path());
    std::ofstream(file) << text;
}

std::string read(const fs::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void click(Wx::TextButton& link) {
    wxMouseEvent event(wxEVT_LEFT_UP);
    link.ProcessWindowEvent(event);
}

void clickLinks() {
    LibWx::startup(LibWx::ApplicationType::STANDALONE);
    auto* const frame = new wxFrame(nullptr, wxID_ANY, "Links");
    auto* const link = new Wx::TextButton(frame, wxID_ANY, "A link", String(FIRST));
    click(*link);
    link->setHyperlink(SECOND);
    click(*link);
    frame->Destroy();
    LibWx::processAllPendingEvents();
    LibWx::shutdown();
}

TEST(TextLink, OpensItsAddressInTheUsersBrowser) {
    // The desktop's settings are read once by each program: another one clicks.
    if (std::getenv(OPENED_VARIABLE) != nullptr) {
        clickLinks();
        return;
    }
    const fs::path folder = fs::temp_directory_path() / "ostrel-text-link";
    fs::remove_all(folder);
    const fs::path opened = folder / "opened";
    const fs::path browser = folder / "bin" / "xdg-open"; // asked where there is no desktop
    write(browser, "#!/bin/sh\necho \"$1\" >>\"$" + std::string(OPENED_VARIABLE) + "\"\n");
    fs::permissions(browser, fs::perms::owner_all);
    write(folder / "data" / "applications" / "browser.desktop",
          "[Desktop Entry]\nType=Application\nName=Browser\nExec=" + browser.string() +
              " %u\nMimeType=x-scheme-handler/http;\n");
    write(folder / "config" / "mimeapps.list", "[Default Applications]\nx-scheme-handler/http=browser.desktop\n");
    const std::string path = std::getenv("PATH");
    g_setenv("XDG_DATA_HOME", (folder / "data").c_str(), TRUE);
    g_setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), TRUE);
    g_setenv("PATH", (browser.parent_path().string() + ":" + path).c_str(), TRUE);
    g_setenv(OPENED_VARIABLE, opened.c_str(), TRUE);
    const ProcessResult clicked =
        runProcess(fs::read_symlink("/proc/self/exe"), {"--gtest_filter=TextLink.*"}, std::chrono::seconds(60));
    g_setenv("PATH", path.c_str(), TRUE);
    for (const char* const name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", OPENED_VARIABLE}) {
        g_unsetenv(name);
    }
    EXPECT_EQ(clicked.exitCode, 0) << clicked.output;

    // The browsers run on their own, in any order.
    const std::string first = std::string(FIRST) + '\n';
    const std::string second = std::string(SECOND) + '\n';
    const auto isOpened = [&] {
        const std::string addresses = read(opened);
        return addresses == first + second || addresses == second + first;
    };
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!isOpened() && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::yield();
    }
    EXPECT_TRUE(isOpened()) << read(opened);
    fs::remove_all(folder);
}

} // namespace
