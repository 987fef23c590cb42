// Puts something on the clipboard and keeps it there, for another program to read: tools/check-clipboard.
// Usage: clipboard-source CASE END-FILE. Writes "ready" when it is on the clipboard, and ends when END-FILE exists.

#include <cstdio>
#include <string>

#include <wx/app.h>
#include <wx/filename.h>
#include <wx/frame.h>
#include <wx/timer.h>

#include <OstrelLibWx/BitmapUtils.h>
#include <OstrelLibWx/OstrelLibWx.h>

namespace {

using namespace Ostrel;

constexpr int LOOK_AGAIN_MS = 20;

/// Rows whose every byte tells its place.
BitmapImpl<Rgb> makePattern(int width, int height) {
    BitmapImpl<Rgb> image(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const auto level = [](int value) { return static_cast<float>(value % 256) / 255.0F; };
            image(x, y) = {level(x), level(y), level(x + 2 * y + 7)};
        }
    }
    return image;
}

bool put(const std::string& name) {
    const BitmapImpl<Rgb> grey(1, 1, {0.5F, 0.5F, 0.5F});
    if (name == "text") {
        return Wx::setClipboardData(String(L"caf\u00E9 \u2192 \u4F60\u597D"));
    }
    if (name == "grey") {
        return Wx::setClipboardData(grey);
    }
    if (name == "not-quite-grey") {
        return Wx::setClipboardData(grey, Wx::SetClipboardData::NOT_QUITE_GREY);
    }
    int width = 0;
    int height = 0;
    return std::sscanf(name.c_str(), "%dx%d", &width, &height) == 2 && Wx::setClipboardData(makePattern(width, height));
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        return 2;
    }
    LibWx::startup(LibWx::ApplicationType::STANDALONE);
    auto* const frame = new wxFrame(nullptr, wxID_ANY, "clipboard-source");
    frame->Show();
    LibWx::processAllPendingEvents();
    const bool done = put(argv[1]);
    if (done) {
        std::puts("ready");
        std::fflush(stdout);
        wxTimer timer;
        timer.Bind(wxEVT_TIMER, [end = wxString::FromUTF8(argv[2])](wxTimerEvent&) {
            if (wxFileName::FileExists(end)) {
                LibWx::stopEventLoop();
            }
        });
        timer.Start(LOOK_AGAIN_MS);
        LibWx::runEventLoop();
    }
    frame->Destroy();
    LibWx::processAllPendingEvents();
    LibWx::shutdown();
    return done ? 0 : 1;
}
