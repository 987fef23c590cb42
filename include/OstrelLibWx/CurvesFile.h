#pragma once

#include <OstrelLib/Curve.h>
#include <OstrelLib/Path.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>

/// Tone curves in files (".acv"), which other programs read and write too. A file holds the points of four curves, in
/// steps of 1/255, and not how a curve runs between them. No display is needed, and any thread may call.
namespace Ostrel::Wx {

/// The kinds of files for a file dialog (`filenameOpenDlg`, `filenameSaveDlg`).
constexpr const char* CURVES_FILE_WILDCARD = "Photoshop curve files (*.acv)|*.acv";

/// Reads curves, all of them cubic. Each runs over the whole of [0, 1], extended flat from its outermost points. One of
/// which the file has no record, or a record without points, is the identity; records after the fourth are not read.
/// @return the curves; or why not, in which case nothing of the file counts: it cannot be opened, it ends early ("Could
///     not load object from the stream."), or its version is not 4 ("Version 1 of acv file is not supported.",
///     whichever it is)
[[nodiscard]] OSTREL_WX_API Expected<ColorCurve, String> loadCurves(const Path& path);

/// Writes the points of the curves, in the order of their lists, to a file that is created or replaced. Coordinates are
/// truncated to steps; one outside of [0, 257) wraps round, as the file has 16 bits for it. What was loaded from steps
/// up to 255 comes out as it was.
/// @return false if the file could not be opened or written; what has been written by then stays
[[nodiscard]] OSTREL_WX_API bool saveCurves(const ColorCurve& curves, const Path& path) noexcept;

} // namespace Ostrel::Wx
