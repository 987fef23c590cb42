#include <sys/platform/x86.h>

#include "models/PixelKernels.h"

namespace Ostrel::Detail {

bool hasAvx2() {
    return CPU_FEATURE_ACTIVE(AVX2);
}

} // namespace Ostrel::Detail
