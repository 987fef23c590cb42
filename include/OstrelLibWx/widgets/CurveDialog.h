#pragma once

#include <OstrelLib/Curve.h>
#include <OstrelLib/Path.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/widgets/CurvePanel.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

#include <wx/frame.h>

namespace Ostrel::Wx {

/// A button of the host's own in a curve dialog.
struct CurveDialogButton {
    String label;
    Function<void()> onClick; ///< may be empty; may destroy the dialog
};

/// What stands in the row of a curve dialog that begins with "Load" and "Save".
struct CurveDialogFileRow {
    /// What both file dialogs propose at first, see `filenameOpenDlg`; later it is the file that was chosen last.
    Path initialFile;
    /// Further buttons, from left to right.
    Array<CurveDialogButton> buttons;
};

/// What a `CurveDialog` asks and tells its host, beside what its panel does. All of it is called on the GUI thread, and
/// may call back into the dialog. The first four are called in the dialog's constructor, each once; the others may
/// destroy the dialog.
class OSTREL_WX_API ICurveDialogCallbacks : public Polymorphic {
public:
    ~ICurveDialogCallbacks() override;

    /// What the dialog's panel asks and tells. Not null.
    virtual SharedPtr<ICurvePanelCallbacks> getPanelCallbacks() = 0;

    virtual CurveDialogFileRow getFileRow() = 0;

    /// Whether there is to be a button "Pick", for points that are taken from the picture: while it is pressed in,
    /// which `CurveDialog::isPicking` tells, the host drives the panel through `CurveDialog::getController`.
    virtual bool isPickWanted() = 0;

    /// Whether there is to be a button "Equalize".
    virtual bool isEqualizeWanted() = 0;

    /// The list of one of the combo boxes has come up. `window` is the list's; a host that has windows of its own in
    /// front of everything can put them in their places relative to it.
    virtual void onDropdownShown(wxWindow* window) = 0;

    /// That list is no longer on the screen.
    virtual void onDropdownHidden(wxWindow* window) = 0;
};

/// A frame of its own around a `CurvePanel`, with what chooses the channel, the interpolation and the histogram, resets
/// and equalizes curves, picks them from the picture, and loads and saves them (`CurvesFile.h`). What becomes of the
/// curves is told by the panel's callbacks; there is neither OK nor Cancel.
///
/// - "Channel:" selects the curve that is edited, and has its histogram fetched.
/// - "Interpolation:" is that of the selected curve, and shows it whenever the dialog changes curves.
/// - "Reset" makes the selected curve the identity, "Reset All" all four.
/// - "Equalize" replaces the Master curve, whichever is selected, by the one that spreads the values from 0 to 2 evenly
///   (`Histogram::computeEqualizingCurve` with 16 points), and shows the histogram cumulative. For that it asks the
///   panel's callbacks for the histogram of Master from 0 to 2, whatever the zoom.
/// - "Load" takes over the points of the file's curves; how each channel is interpolated stays. "Save" asks before it
///   replaces a file. What fails is told in a message, and changes no curve.
///
/// The panel takes what the dialog grows by; the dialog cannot be made smaller than it is at first. It lies over the
/// middle of its parent, and on the screen. It is closed by the title bar or `Close`, and then destroys itself: it is
/// made with `new`.
class OSTREL_WX_API CurveDialog : public wxFrame {
public:
    /// Builds the dialog and shows it.
    /// @param parent destroys the dialog with itself; null: there is none
    /// @param callbacks kept as long as the dialog lives; stop exception ("widgets/CurveDialog") if they, or the
    ///     panel's, are null
    CurveDialog(wxWindow* parent, const GuiSkin& skin, const String& title, const ColorCurve& curves,
                SharedPtr<ICurveDialogCallbacks> callbacks);
    ~CurveDialog() override;

    /// Replaces all four curves and reports them.
    void setCurves(ColorCurve curves);

    /// Has the histogram fetched: for a picture that has changed.
    void updateHistogram();

    /// Enables or disables what belongs to the histogram: its combo box and "Equalize". For a host that has none now.
    void enableHistogramControls(bool enable);

    /// Whether "Pick" is pressed in. False where there is no such button.
    [[nodiscard]] bool isPicking() const;

    /// Moves points of the selected curve. Must not outlive the dialog.
    [[nodiscard]] AutoPtr<ICurvePanelController> getController() const;

    /// The panel, which the dialog owns.
    [[nodiscard]] CurvePanel* getPanel() const;

private:
    struct Impl;

    void addFileRow(wxSizer& rows, CurveDialogFileRow row);
    void addPanel(wxSizer& rows, const ColorCurve& curves);
    void addGrid(wxSizer& rows);

    void selectChannel(int channel);
    void selectInterpolation(int interpolation);
    void reset();
    void resetAll();
    void equalize();
    void load();
    void save();
    void showError(const String& message);
    void showInterpolation();
    void onSize(wxSizeEvent& event);
    void onClose(wxCloseEvent& event);

    AutoPtr<Impl> _impl;
};

} // namespace Ostrel::Wx
