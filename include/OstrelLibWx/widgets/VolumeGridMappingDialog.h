#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>
#include <OstrelLib/VolumeGridMapping.h>
#include <OstrelLibWx/Export.h>

#include <wx/frame.h>

namespace Ostrel::Wx {

/// What a `VolumeGridMappingDialog` asks and tells its host. All of it is called on the GUI thread. Each operation but
/// `mapValueToColor` may call back into the dialog and may destroy it.
class OSTREL_WX_API VolumeGridMappingDialogCallbacks : public Polymorphic {
public:
    ~VolumeGridMappingDialogCallbacks() override;

    /// The user has changed the mapping, or taken all changes back.
    virtual void onMappingChanged(const VolumeGridMapping& mapping) = 0;

    /// The scale with which all values of the channel lie from 0 to 1. What is no finite number is ignored, and what is
    /// below `VOLUME_GRID_MINIMUM_SCALE` counts as that.
    virtual float computeAutoScale() = 0;

    /// The dialog closes, and is destroyed after that. `position` is its top left corner on the screen, for the next
    /// time.
    virtual void onDialogClosed(wxPoint position) = 0;

    /// The colour that the mapping told last gives to the value `t`, in [0, 1], for the preview. Called while the
    /// dialog is painted, once for each column of pixels after a change.
    /// @param inputScale the mapping's
    virtual Rgb mapValueToColor(float t, float inputScale) = 0;
};

/// Edits how the values of a volume grid's channel become colours: the gradient, the curve before it, its
/// interpolation, and the scale of the values before that. A strip shows the outcome.
///
/// Each change is told at once; those of a curve that is dragged once they pause for 200 ms. "OK" keeps what there is,
/// with a change that has not been told yet told first. "Cancel" and the title bar's close box take everything back:
/// what was there when the dialog opened is told once more. Either way the dialog then destroys itself: it is made with
/// `new`. Its parent, in front of which it stays, destroys it without any report.
///
/// A value outside [0, 1] after scaling has the colour of the nearer end. The scale is shown with up to three decimals;
/// one that the host gives has as many as it has until it is edited.
class OSTREL_WX_API VolumeGridMappingDialog : public wxFrame {
public:
    /// Builds the dialog and shows it.
    /// @param parent may be null
    /// @param current what is edited, and comes back when the dialog is cancelled
    /// @param initial what "Reset" brings back
    /// @param callbacks kept as long as the dialog lives; stop exception ("widgets/VolumeGridMappingDialog") if null
    /// @param position of the top left corner on the screen, moved as far as it takes to lie on it;
    ///     `wxDefaultPosition`: over the middle of the parent
    VolumeGridMappingDialog(wxWindow* parent, const String& title, const VolumeGridMapping& current,
                            const VolumeGridMapping& initial, SharedPtr<VolumeGridMappingDialogCallbacks> callbacks,
                            wxPoint position);
    ~VolumeGridMappingDialog() override;

    /// Replaces what is edited, in all controls; tells nobody. A scale below `VOLUME_GRID_MINIMUM_SCALE`, or a NaN,
    /// becomes that one, infinity the largest float, as in the constructor.
    void setCurrentMapping(const VolumeGridMapping& mapping);

    /// What is edited, as it was told last.
    [[nodiscard]] const VolumeGridMapping& getCurrentMapping() const;

    /// `wxOK` once the dialog has been ended by "OK", else `wxCANCEL`.
    [[nodiscard]] int getResult() const;

private:
    class CurveCallbacksImpl;
    struct Impl;

    void addGradient(wxSizer& rows);
    void addCurve(wxSizer& rows);
    void addInput(wxSizer& rows);
    void addButtons(wxSizer& rows);

    void selectInterpolation(int interpolation);
    void setScale(float scale);
    void autoScale();
    void reset();
    void end(int result);
    void onClose(wxCloseEvent& event);

    // These tell the host, which may destroy the dialog.
    void takeCurve(const Curve& curve);
    void edit(const Function<void(VolumeGridMapping&)>& change);
    void reportMapping();

    AutoPtr<Impl> _impl;
};

} // namespace Ostrel::Wx
