#pragma once

#include <OstrelLib/Bitmap.h>
#include <OstrelLib/Color.h>
#include <OstrelLib/Path.h>
#include <OstrelLib/Types.h>

#include <wx/bitmap.h>
#include <wx/string.h>

namespace Ostrel::Gallery {

/// The picture that the gallery was given, or one of its own, in the library's own form: stored bytes over 255, without
/// any transfer curve.
struct Picture {
    wxString name;
    BitmapImpl<Rgb> image; ///< empty if there was an error
    bool hasAlpha = false;
    bool isFromFile = false;
    wxString error; ///< why the file could not be read, as a sentence for the user; empty if it could
};

/// Reads a picture of a format that the toolkit knows; the file's content decides which, not its name.
Picture loadPicture(const Path& path);

/// Writes the picture with 8 bits a channel, in the format that the name's extension says: png and tif keep alpha, jpg
/// and bmp do not. Gives why it could not, as a sentence for the user; empty if it could.
wxString savePicture(const Picture& picture, const Path& path);

/// A field of colours: hue from left to right, paler downwards, in slanting waves of brightness.
Picture makeColourField();

/// The picture without transparency: what is transparent shows a chequered ground.
BitmapImpl<Rgb> putOnChequers(const Picture& picture);

} // namespace Ostrel::Gallery
