#pragma once

#include <OstrelLib/Bitmap.h>
#include <OstrelLib/Color.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>

#include "lab/Scene.h"

#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <thread>

namespace Ostrel::Gallery {

/// Renders the scene in passes, on threads of its own: each pass adds one path of light to every pixel, so that the
/// picture is there after the first and loses its noise with the others. What is rendered does not depend on the
/// number of threads. Any thread may call.
class Renderer {
public:
    struct Result {
        SharedPtr<const BitmapImpl<Rgb>> picture; ///< the mean of the passes; null before the first is done
        int passCount = 0;
    };

    struct Job {
        Pixel size;
        int passLimit = 1;
        SceneColors colors{};
        int blockSize = 1; ///< squares of so many pixels a side get one path of light together: coarser, and sooner
    };

    /// Told after each pass how much is done, from 0 to 1, and nothing when the rendering rests: paused,
    /// done, or broken off.
    using Progress = Function<void(Optional<float>)>;

    /// Begins at once, and rests when the job is done.
    /// @param onProgress called on a thread of the renderer's; may be empty
    /// @param threadCount 0: one less than the processor has, which is left to the window
    explicit Renderer(const Job& job, Progress onProgress = {}, unsigned threadCount = 0);

    /// Breaks the pass off.
    ~Renderer();
    Renderer(const Renderer&) = delete;
    Renderer& operator=(const Renderer&) = delete;

    [[nodiscard]] Result getResult() const;
    [[nodiscard]] int getPassLimit() const { return _job.passLimit; }

    /// While paused, no pass is begun.
    void setPaused(bool paused);

private:
    void run(const std::stop_token& stop);
    void waitWhilePaused(const std::stop_token& stop);
    void renderPass(int pass, const std::stop_token& stop);
    [[nodiscard]] SharedPtr<const BitmapImpl<Rgb>> getMean(int passCount) const;

    void tell(Optional<float> progress) const;

    const Job _job;
    const Progress _onProgress;
    const unsigned _threadCount;
    BitmapImpl<Rgb> _sum; ///< of the passes, a pixel for each block; the rendering threads' own

    mutable std::mutex _mutex; ///< guards what follows
    std::condition_variable_any _resumed;
    Result _result;
    bool _isPaused = false;

    std::jthread _thread; ///< the last member: it ends before the others do
};

} // namespace Ostrel::Gallery
