#pragma once

#include "PictureView.h"
#include "lab/FalseColors.h"

#include <OstrelLib/Histogram.h>
#include <OstrelLibWx/widgets/CurveDialog.h>
#include <OstrelLibWx/widgets/CurvePanel.h>
#include <OstrelLibWx/widgets/VolumeGridMappingDialog.h>

#include <utility>

/// What the Lab's page answers the controls that ask it.
namespace Ostrel::Gallery {

/// What the curve panel is told of the picture. The last histogram is kept: the panel asks at intervals, also while the
/// picture does not change.
class PictureCurves : public Wx::ICurvePanelCallbacks {
public:
    PictureCurves(bool isRendered, Function<void(CurveChannel, const Curve&)> onChanged)
        : _isRendered(isRendered)
        , _onChanged(std::move(onChanged)) {}

    void setPicture(SharedPtr<const BitmapImpl<Rgb>> picture) { _picture = std::move(picture); }

    /// Where the panel's colours come from, once it is there. It shows pictures of that size.
    void setView(const PictureView& view) { _view = &view; }

    Histogram getHistogram(std::pair<float, float> range, CurveChannel channel, int binCount) override {
        const Request request{_picture, range, channel, binCount};
        if (_picture && request != _lastRequest) {
            _lastHistogram = Histogram::compute(*_picture, channel, range.first, range.second, binCount);
            _lastRequest = request;
        }
        return _lastHistogram;
    }

    Optional<int> getHistogramRefreshInterval() override {
        constexpr int INTERVAL_MS = 500;
        return _isRendered ? Optional<int>(INTERVAL_MS) : Optional<int>();
    }

    Optional<Rgb> getPixelColor(Pixel position) override {
        const Optional<Pixel> pixel = _view != nullptr && _picture ? _view->getPixel(position) : Optional<Pixel>();
        return pixel ? Optional<Rgb>((*_picture)(pixel->x, pixel->y)) : Optional<Rgb>();
    }

    void onCurveChanged(CurveChannel channel, const Curve& curve) override { _onChanged(channel, curve); }

    std::int64_t getChangeDelay() override { return 0; } // the picture follows each step of a drag

private:
    struct Request {
        SharedPtr<const BitmapImpl<Rgb>> picture;
        std::pair<float, float> range;
        CurveChannel channel = CurveChannel::MASTER;
        int binCount = 0;

        friend bool operator==(const Request&, const Request&) = default;
    };

    bool _isRendered;
    Function<void(CurveChannel, const Curve&)> _onChanged;
    SharedPtr<const BitmapImpl<Rgb>> _picture;
    const PictureView* _view = nullptr;
    Request _lastRequest;
    Histogram _lastHistogram;
};

/// The same in a window of its own.
class DialogCurves : public Wx::ICurveDialogCallbacks {
public:
    explicit DialogCurves(SharedPtr<PictureCurves> curves)
        : _curves(std::move(curves)) {}

    SharedPtr<Wx::ICurvePanelCallbacks> getPanelCallbacks() override { return _curves; }
    Wx::CurveDialogFileRow getFileRow() override { return {}; }
    bool isPickWanted() override { return true; }
    bool isEqualizeWanted() override { return true; }
    void onDropdownShown(wxWindow*) override {}
    void onDropdownHidden(wxWindow*) override {}

private:
    SharedPtr<PictureCurves> _curves;
};

/// What the dialog for false colours is told.
class FalseColorCallbacks : public Wx::VolumeGridMappingDialogCallbacks {
public:
    struct Host {
        Function<void(const VolumeGridMapping&)> onChanged;
        Function<float()> getScaleToFit;
        Function<void(wxPoint)> onClosed;
        const VolumeGridMapping& mapping; ///< as it was told last
    };

    explicit FalseColorCallbacks(Host host)
        : _host(std::move(host)) {}

    void onMappingChanged(const VolumeGridMapping& mapping) override { _host.onChanged(mapping); }
    float computeAutoScale() override { return _host.getScaleToFit(); }
    void onDialogClosed(wxPoint position) override { _host.onClosed(position); }
    Rgb mapValueToColor(float t, float) override { return getFalseColor(_host.mapping, t); }

private:
    Host _host;
};

} // namespace Ostrel::Gallery
