#pragma once

#include <OstrelLib/Path.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>

namespace Ostrel::Gallery {

/// What the command line asks for.
struct GalleryOptions {
    /// The picture to open on the pages "Picture" and "Lab".
    Optional<Path> picture;
    /// The folder to which pages are saved; the program ends afterwards.
    Optional<Path> screenshots;
    /// The page to open at, or to save alone, as it was typed.
    Optional<String> only;
    /// Print the usage and end. The rest is not looked at.
    bool help = false;
};

/// Reads the arguments, without the program's own name.
/// @return a message for the user when an option is not known, given twice, or lacks its value
Expected<GalleryOptions, String> parseGalleryOptions(ArrayView<const String> arguments);

/// What `--help` prints and what follows a wrong command line. `pages` are the names that `--only` takes.
String getUsage(ArrayView<const String> pages);

} // namespace Ostrel::Gallery
