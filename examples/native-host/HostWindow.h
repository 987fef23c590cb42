#pragma once

#include <functional>
#include <memory>
#include <string>

#include <OstrelLib/Geometry.h>

/// The window and the message loop of a program that knows no toolkit: Win32 on Windows, Xlib and GLib on Linux.
class HostWindow {
public:
    /// Shown at once. `title` is ASCII; sizes are in screen pixels.
    HostWindow(const std::string& title, int width, int height);
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    [[nodiscard]] Ostrel::WindowHandle handle() const;

    /// Runs the loop until `quit`, which closing the window calls too, and calls `tick` every `intervalMs`
    /// milliseconds, though not while one is under way. The window is there until it is destroyed, closed or not.
    void run(int intervalMs, std::function<void()> tick);

    void quit();

private:
    struct Impl;
    std::unique_ptr<Impl> _impl;
};
