#include "lab/Renderer.h"

#include "lab/Rows.h"
#include "lab/Scene.h"

#include <algorithm>
#include <cstdint>

namespace Ostrel::Gallery {

Renderer::Renderer(Pixel size, int passLimit, unsigned threadCount)
    : _size(size)
    , _passLimit(passLimit)
    , _threadCount(threadCount > 0 ? threadCount : std::max(std::thread::hardware_concurrency(), 2U) - 1)
    , _sum(size.x, size.y, {0.0F, 0.0F, 0.0F, 0.0F})
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
    for (int pass = 0; pass < _passLimit; ++pass) {
        {
            std::unique_lock lock(_mutex);
            _resumed.wait(lock, stop, [this] { return !_isPaused; });
        }
        renderPass(pass, stop);
        if (stop.stop_requested()) {
            return;
        }
        Result result{getMean(pass + 1), pass + 1};
        const std::lock_guard lock(_mutex);
        std::swap(_result, result); // the one before is given back after the lock
    }
}

void Renderer::renderPass(int pass, const std::stop_token& stop) {
    forEachRow(_size.y, _threadCount, stop, [this, pass](int y) {
        // A seed for each row and pass, whichever thread has it.
        Random random(static_cast<std::uint64_t>(pass) << 32U | static_cast<std::uint32_t>(y));
        const ArrayView<Rgb> row = _sum.row(y);
        for (int x = 0; x < _size.x; ++x) {
            Rgb& pixel = row[static_cast<std::size_t>(x)];
            pixel = pixel + traceScene({x, y}, _size, random);
        }
    });
}

SharedPtr<const BitmapImpl<Rgb>> Renderer::getMean(int passCount) const {
    auto mean = std::make_shared<BitmapImpl<Rgb>>(_size.x, _size.y);
    std::transform(_sum.data(), _sum.data() + _sum.size(), mean->data(),
                   [count = static_cast<float>(passCount)](const Rgb& sum) { return sum / count; });
    return mean;
}

} // namespace Ostrel::Gallery
