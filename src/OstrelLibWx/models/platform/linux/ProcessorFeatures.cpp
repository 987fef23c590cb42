#include "models/PixelKernels.h"

namespace Ostrel::Detail {

bool hasAvx2() {
    return __builtin_cpu_supports("avx2") != 0; // asks the system too, whether it keeps the wide registers
}

} // namespace Ostrel::Detail
