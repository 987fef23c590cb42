#pragma once

#include <OstrelLib/Geometry.h>

/// What the system has to do for the owner of a modal dialog. One implementation per platform.
namespace Ostrel::Detail {

/// Gives the keyboard back to the host's window once it is enabled again. On Windows the system passes a disabled owner
/// by when a dialog goes, and activates whatever window comes next; it decides itself whether the host may have the
/// foreground. On Linux the window manager has returned to the owner already.
void reactivateOwner(WindowHandle window);

} // namespace Ostrel::Detail
