#pragma once

#include <OstrelLib/Types.h>

#include "models/TaskbarProgressModel.h"

/// The system's taskbar. One implementation per platform.
namespace Ostrel::Detail {

/// Null where the system gives none. On Linux it is the launcher interface that docks listen to on the session's
/// message bus (com.canonical.Unity.LauncherEntry): it speaks of the application and not of a window, and knows of no
/// busy indicator, which shows as an empty bar.
[[nodiscard]] AutoPtr<Wx::ITaskbar> createTaskbar();

} // namespace Ostrel::Detail
