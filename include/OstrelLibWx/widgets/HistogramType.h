#pragma once

namespace Ostrel::Wx {

/// How the bins of a histogram become heights. The numbers are those of the choices that users see.
enum class HistogramType : int {
    /// The bin's count over the largest one.
    LINEAR = 0,
    /// The same of the logarithms, ln(count + 1), which shows what is rare beside what is frequent.
    LOGARITHMIC = 1,
    /// The share of all that was counted that lies in the bin or before it.
    CUMULATIVE = 2,
};

} // namespace Ostrel::Wx
