#include <windows.h>

#include "models/PixelKernels.h"

namespace Ostrel::Detail {

bool hasAvx2() {
    return IsProcessorFeaturePresent(PF_AVX2_INSTRUCTIONS_AVAILABLE) != FALSE;
}

} // namespace Ostrel::Detail
