#pragma once

#include "lab/Renderer.h"

namespace Ostrel::Gallery {

/// The Lab's rendering: the picture itself, and in its place quick, coarse ones while colours are being tried. For one
/// thread, which asks for pictures again and again; nothing here waits for a pass.
class Rendering {
public:
    using Picture = SharedPtr<const BitmapImpl<Rgb>>;

    /// Nothing is rendered yet.
    /// @param onProgress as for `Renderer`; told of the picture itself, not of the coarse ones
    Rendering(Pixel size, const SceneColors& colors, Renderer::Progress onProgress);

    /// Renders the picture anew, in so many passes.
    void start(int passLimit);

    /// Breaks the rendering off; what there is stays.
    void stop();

    /// Shows the scene in these colours, coarsely; in those that it has, the picture itself again. A change that comes
    /// before the one before has been seen takes its place once that is.
    void tryColors(const SceneColors& colors);

    /// Gives the scene these colours, and renders it anew if they are others.
    void setColors(const SceneColors& colors);

    void setPaused(bool paused);

    /// The newest picture; null if there is none, or it is the one that was taken last.
    [[nodiscard]] Picture takePicture();

    /// Whether a newer picture is to come; not while paused for long.
    [[nodiscard]] bool isAwaited() const;

    /// Whether passes of the picture itself are missing, and it has not been stopped.
    [[nodiscard]] bool isRunning() const { return _renderer && _last.passCount < _passLimit; }
    [[nodiscard]] int getPassCount() const { return _last.passCount; }
    [[nodiscard]] int getPassLimit() const { return _passLimit; }

private:
    void beginTrial();
    void updatePause();

    Pixel _size;
    SceneColors _colors;
    Renderer::Progress _onProgress;
    int _passLimit = 1;
    bool _isPaused = false;
    AutoPtr<Renderer> _renderer; ///< null before the start, and once it has been stopped
    Renderer::Result _last;      ///< of the picture itself
    AutoPtr<Renderer> _trial;    ///< null while no colours are tried
    SceneColors _tried;
    SceneColors _wanted; ///< to be tried next
    Picture _taken;
};

} // namespace Ostrel::Gallery
