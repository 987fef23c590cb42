#pragma once

#include <OstrelLib/String.h>

namespace Ostrel::Wx {

/// A row of a combo box.
struct ComboBoxItem {
    String text; ///< what is shown, on one line
    int id;      ///< the caller's own; several rows may have the same
};

} // namespace Ostrel::Wx
