#include "system/Process.h"
#include "system/platform/linux/Environment.h"

#include <OstrelLibWx/OstrelLibWx.h>
#include <OstrelLibWx/widgets/TextButton.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

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
    if (g_getenv(OPENED_VARIABLE) != nullptr) {
        clickLinks();
        return;
    }
    const fs::path folder = fs::temp_directory_path() / ("ostrel-text-link-" + std::to_string(g_random_int()));
    const fs::path opened = folder / "opened";
    const fs::path browser = folder / "bin" / "xdg-open"; // asked where there is no desktop
    write(browser, "#!/bin/sh\necho \"$1\" >>\"$" + std::string(OPENED_VARIABLE) + "\"\n");
    fs::permissions(browser, fs::perms::owner_all);
    write(folder / "data" / "applications" / "browser.desktop",
          "[Desktop Entry]\nType=Application\nName=Browser\nExec=" + browser.string() +
              " %u\nMimeType=x-scheme-handler/http;\n");
    write(folder / "config" / "mimeapps.list", "[Default Applications]\nx-scheme-handler/http=browser.desktop\n");
    ProcessResult clicked;
    {
        const ScopedVariable data("XDG_DATA_HOME", folder / "data");
        const ScopedVariable config("XDG_CONFIG_HOME", folder / "config");
        const ScopedVariable path("PATH", browser.parent_path().string() + ":" + g_getenv("PATH"));
        const ScopedVariable target(OPENED_VARIABLE, opened);
        clicked =
            runProcess(fs::read_symlink("/proc/self/exe"), {"--gtest_filter=TextLink.*"}, std::chrono::seconds(60));
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
        g_main_context_iteration(nullptr, FALSE);
    }
    EXPECT_TRUE(isOpened()) << read(opened);
    fs::remove_all(folder);
}

} // namespace
