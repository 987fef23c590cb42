#include "lab/Renderer.h"

#include "lab/Rows.h"
#include <algorithm>
#include <cstdint>
#include <utility>

namespace Ostrel::Gallery {

Renderer::Renderer(const Job& job, Progress onProgress, unsigned threadCount)
    : _job(job)
    , _onProgress(std::move(onProgress))
    , _threadCount(threadCount > 0 ? threadCount : std::max(std::thread::hardware_concurrency(), 2U) - 1)
    , _sum((job.size.x + job.blockSize - 1) / job.blockSize, (job.size.y + job.blockSize - 1) / job.blockSize,
           {0.0F, 0.0F, 0.0F, 0.0F})
    , _thread([this](const std::stop_token& stop) { run(stop); }) {}

Renderer::~Renderer() = default;

Renderer::Result Renderer::getResult() const {
    const std::lock_guard lock(_mutex);
    return _result;
}

void Renderer::setPaused(bool paused) {
    {
        const std::lock_guard lock(_mutex);
        _isPaused = paused;
    }
    _resumed.notify_all();
}

void Renderer::run(const std::stop_token& stop) {
    for (int pass = 0; pass < _job.passLimit && !stop.stop_requested(); ++pass) {
        waitWhilePaused(stop);
        renderPass(pass, stop);
        if (stop.stop_requested()) {
            break;
        }
        Result result{getMean(pass + 1), pass + 1};
        {
            const std::lock_guard lock(_mutex);
            std::swap(_result, result); // the one before is given back after the lock
        }
        tell(static_cast<float>(pass + 1) / static_cast<float>(_job.passLimit));
    }
    tell({});
}

void Renderer::waitWhilePaused(const std::stop_token& stop) {
    std::unique_lock lock(_mutex);
    if (_isPaused) {
        lock.unlock();
        tell({});
        lock.lock();
        _resumed.wait(lock, stop, [this] { return !_isPaused; });
    }
}

void Renderer::tell(Optional<float> progress) const {
    if (_onProgress) {
        _onProgress(progress);
    }
}

void Renderer::renderPass(int pass, const std::stop_token& stop) {
    const Pixel size{_sum.getWidth(), _sum.getHeight()};
    forEachRow(size.y, _threadCount, stop, [this, pass, size](int y) {
        // A seed for each row and pass, whichever thread has it.
        Random random(static_cast<std::uint64_t>(pass) << 32U | static_cast<std::uint32_t>(y));
        const ArrayView<Rgb> row = _sum.row(y);
        for (int x = 0; x < size.x; ++x) {
            Rgb& pixel = row[static_cast<std::size_t>(x)];
            pixel = pixel + traceScene({x, y}, size, _job.colors, random);
        }
    });
}

SharedPtr<const BitmapImpl<Rgb>> Renderer::getMean(int passCount) const {
    auto mean = std::make_shared<BitmapImpl<Rgb>>(_job.size.x, _job.size.y);
    const auto count = static_cast<float>(passCount);
    for (int y = 0; y < _job.size.y; ++y) {
        const ArrayView<const Rgb> blocks = _sum.row(y / _job.blockSize);
        const ArrayView<Rgb> row = mean->row(y);
        for (int x = 0; x < _job.size.x; ++x) {
            row[static_cast<std::size_t>(x)] = blocks[static_cast<std::size_t>(x / _job.blockSize)] / count;
        }
    }
    return mean;
}

} // namespace Ostrel::Gallery
