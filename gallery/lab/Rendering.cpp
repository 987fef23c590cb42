#include "lab/Rendering.h"

#include <utility>

namespace Ostrel::Gallery {

namespace {

// Each is about a tenth of the picture's own passes.
constexpr int TRIAL_BLOCK_SIZE = 3;
constexpr int TRIAL_PASS_LIMIT = 32;

} // namespace

Rendering::Rendering(Pixel size, const SceneColors& colors, Renderer::Progress onProgress)
    : _size(size)
    , _colors(colors)
    , _onProgress(std::move(onProgress)) {}

void Rendering::start(int passLimit) {
    _renderer.reset(); // the one before ends first
    _last = {};
    _passLimit = passLimit;
    _renderer = std::make_unique<Renderer>(Renderer::Job{_size, passLimit, _colors}, _onProgress);
    updatePause();
}

void Rendering::stop() {
    if (_renderer) {
        if (Renderer::Result result = _renderer->getResult(); result.picture) {
            _last = std::move(result);
        }
        _renderer.reset();
    }
}

void Rendering::tryColors(const SceneColors& colors) {
    _wanted = colors;
    if (colors == _colors) {
        _trial.reset();
    } else if (!_trial) {
        beginTrial();
    }
    updatePause();
}

void Rendering::setColors(const SceneColors& colors) {
    _trial.reset();
    if (std::exchange(_colors, colors) != colors) {
        start(_passLimit);
    }
    updatePause();
}

void Rendering::setPaused(bool paused) {
    _isPaused = paused;
    updatePause();
}

Rendering::Picture Rendering::takePicture() {
    if (_renderer) {
        if (Renderer::Result result = _renderer->getResult(); result.picture) {
            _last = std::move(result);
        }
    }
    Picture newest = _trial ? _trial->getResult().picture : _last.picture;
    if (_trial && newest && _wanted != _tried) {
        beginTrial();
    }
    if (!newest || newest == _taken) {
        return nullptr;
    }
    _taken = newest;
    return newest;
}

bool Rendering::isAwaited() const {
    if (_trial) {
        return _wanted != _tried || _trial->getResult().passCount < TRIAL_PASS_LIMIT ||
               _trial->getResult().picture != _taken;
    }
    return isRunning() || (_last.picture && _last.picture != _taken);
}

void Rendering::beginTrial() {
    _trial.reset();
    _tried = _wanted;
    _trial = std::make_unique<Renderer>(Renderer::Job{_size, TRIAL_PASS_LIMIT, _tried, TRIAL_BLOCK_SIZE});
    updatePause();
}

void Rendering::updatePause() {
    if (_renderer) {
        _renderer->setPaused(_isPaused || _trial);
    }
    if (_trial) {
        _trial->setPaused(_isPaused);
    }
}

} // namespace Ostrel::Gallery
