#include <OstrelLibWx/CurvesFile.h>

#include "models/CurvesFile.h"

namespace Ostrel::Wx {

Expected<ColorCurve, String> loadCurves(const Path& path) {
    return Detail::loadCurves(path);
}

bool saveCurves(const ColorCurve& curves, const Path& path) noexcept {
    return Detail::saveCurves(curves, path);
}

} // namespace Ostrel::Wx
