#include "GalleryFrame.h"
#include "GalleryOptions.h"
#include "Picture.h"
#include "ScreenshotRun.h"
#include "platform/Process.h"

#include <OstrelLib/Exceptions.h>
#include <OstrelLibWx/OstrelLibWx.h>

#include <cstdio>
#include <numeric>

namespace Ostrel::Gallery {

namespace {

constexpr int EXIT_DONE = 0;
constexpr int EXIT_FAILED = 1;
constexpr int EXIT_WRONG_USAGE = 2;

constexpr const char* PICTURE_PAGE = "Picture";

void print(std::FILE* stream, const String& text) {
    std::fprintf(stream, "%s\n", text.toUtf8().c_str());
    std::fflush(stream);
}

/// A failed assertion of the toolkit is told where the program was started, and stops nothing.
void reportAssertion(const wxString& file, int line, const wxString& function, const wxString& condition,
                     const wxString& message) {
    if (const Optional<String> text = Wx::formatWxAssertFailure(file, line, function, condition, message)) {
        print(stderr, *text);
    }
}

String getUsageOfAllPages() {
    Array<String> titles;
    for (const PageEntry& entry : getPages()) {
        titles.push_back(entry.title);
    }
    return getUsage(titles);
}

int refuse(const String& reason) {
    print(stderr, "gallery: " + reason + "\n" + getUsageOfAllPages());
    return EXIT_WRONG_USAGE;
}

/// Shows the gallery until its window is closed, or the pages are saved.
int showGallery(const GalleryOptions& options, Optional<std::size_t> only) {
    const Picture picture = options.picture ? loadPicture(*options.picture) : makeColourField();
    if (!picture.error.empty()) {
        print(stderr, picture.error.ToStdWstring());
    }
    int result = EXIT_DONE;
    auto* const frame = new GalleryFrame(picture);
    frame->showPage(only.value_or(options.picture ? findPage(PICTURE_PAGE).value_or(0) : 0));
    frame->Show();
    AutoPtr<ScreenshotRun> run;
    if (options.screenshots) {
        Array<std::size_t> pages(only ? 1 : getPages().size());
        std::iota(pages.begin(), pages.end(), only.value_or(0));
        run.reset(new ScreenshotRun(*frame, *options.screenshots, pages, [&result, frame](const String& error) {
            if (!error.isEmpty()) {
                print(stderr, error);
                result = EXIT_FAILED;
            }
            frame->Close(true);
        }));
        run->start();
        result = picture.error.empty() ? EXIT_DONE : EXIT_FAILED;
    }
    LibWx::runEventLoop();
    return result;
}

int runGallery(ArrayView<const String> arguments) {
    const Expected<GalleryOptions, String> options = parseGalleryOptions(arguments);
    if (!options) {
        return refuse(options.error());
    }
    if (options->help) {
        print(stdout, getUsageOfAllPages());
        return EXIT_DONE;
    }
    const Optional<std::size_t> only = options->only ? findPage(*options->only) : Optional<std::size_t>();
    if (options->only && !only) {
        return refuse("there is no page \"" + *options->only + "\"");
    }
    wxSetAssertHandler(reportAssertion);
    LibWx::startup(LibWx::ApplicationType::STANDALONE);
    const int result = showGallery(*options, only);
    LibWx::shutdown();
    return result;
}

} // namespace

} // namespace Ostrel::Gallery

int main(int argc, char** argv) {
    using namespace Ostrel;
    Gallery::connectToTerminal();
    try {
        return Gallery::runGallery(Gallery::getArguments(argc, argv));
    } catch (...) {
        Gallery::print(stderr, ostrelExceptionToString(std::current_exception()));
        return Gallery::EXIT_FAILED;
    }
}
