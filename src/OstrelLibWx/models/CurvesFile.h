#pragma once

#include <OstrelLib/Curve.h>
#include <OstrelLib/Path.h>
#include <OstrelLib/Streams.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>

/// Curves files (".acv"): unsigned 16-bit numbers, the high byte first, without gaps.
///
///     version         4
///     record count    4 when written
///     records:        point count, then for each point its output and its input, 0 to 255
///
/// The records are those of Master, Red, Green and Blue.
namespace Ostrel::Detail {

/// Reads the curves from a stream. The memory that it takes is in proportion to what the stream holds, whatever the
/// counts in it promise.
/// @return the curves, or the text for a version that is not supported
/// @throws Io::StreamException when the stream ends early or fails
[[nodiscard]] Expected<ColorCurve, String> readCurves(Io::BinaryInputStream& stream);

/// The bytes of the file that holds the curves' points.
[[nodiscard]] Array<unsigned char> encodeCurves(const ColorCurve& curves);

/// As `Wx::loadCurves` and `Wx::saveCurves`.
[[nodiscard]] Expected<ColorCurve, String> loadCurves(const Path& path);
[[nodiscard]] bool saveCurves(const ColorCurve& curves, const Path& path) noexcept;

} // namespace Ostrel::Detail
