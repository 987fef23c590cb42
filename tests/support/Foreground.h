#pragma once

class wxTopLevelWindow;

/// Whether keys that are typed now go to the window's program. On Windows a window is active for its own thread before
/// the system gives it the foreground; on Linux an active window has the keyboard.
bool hasForeground(const wxTopLevelWindow& window);
