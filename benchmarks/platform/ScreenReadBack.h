#pragma once

#include <memory>

#include <OstrelLib/Geometry.h>

/// The barest way to the screen's pixels that the window system offers, to measure a capture by: what can be prepared
/// is, and nothing is converted.
class ScreenReadBack {
public:
    /// @throws std::runtime_error if the window system offers none
    explicit ScreenReadBack(const Ostrel::Bucket& region);
    ~ScreenReadBack();

    /// Reads the region once, into memory of its own.
    void read();

private:
    struct Impl;
    std::unique_ptr<Impl> _impl;
};
