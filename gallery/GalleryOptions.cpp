#include "GalleryOptions.h"

namespace Ostrel::Gallery {

namespace {

/// Keeps the value of an option that may be given once.
template <class T>
Expected<void, String> keepValue(Optional<T>& target, ArrayView<const String> arguments, std::size_t& position) {
    const String& option = arguments[position];
    if (target) {
        return Unexpected<String>(option + " is given twice");
    }
    if (position + 1 == arguments.size() || arguments[position + 1].isEmpty()) {
        return Unexpected<String>(option + " needs a name after it");
    }
    target = T(arguments[++position]);
    return {};
}

} // namespace

Expected<GalleryOptions, String> parseGalleryOptions(ArrayView<const String> arguments) {
    GalleryOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const String& argument = arguments[i];
        Expected<void, String> kept;
        if (argument == "--picture") {
            kept = keepValue(options.picture, arguments, i);
        } else if (argument == "--screenshots") {
            kept = keepValue(options.screenshots, arguments, i);
        } else if (argument == "--only") {
            kept = keepValue(options.only, arguments, i);
        } else if (argument == "--help") {
            options.help = true;
        } else {
            return Unexpected<String>("unknown option \"" + argument + "\"");
        }
        if (!kept) {
            return Unexpected<String>(kept.error());
        }
    }
    return options;
}

String getUsage(ArrayView<const String> pages) {
    String usage =
        "Usage: gallery [--picture FILE] [--screenshots DIR] [--only PAGE] [--help]\n"
        "  --picture FILE     open a picture (PNG, JPEG, BMP, GIF, TIFF, TGA or ICO) on \"Picture\" and \"Lab\"\n"
        "  --screenshots DIR  save every page to DIR/NN-name.png as the screen shows it, and end\n"
        "  --only PAGE        open at that page, or save that page alone\n"
        "  --help             print this and end\n"
        "Pages:\n";
    for (const String& page : pages) {
        usage += "  " + page + "\n";
    }
    return usage;
}

} // namespace Ostrel::Gallery
