#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/String.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/widgets/ColorPickerOptions.h>

#include <wx/dialog.h>

#include <cstdint>

namespace Ostrel::Wx {

/// The dialog in which a colour is chosen: rows for red, green, blue and, if there is one, alpha; for hue, saturation,
/// value and temperature; a hexadecimal text; a field of hue and blackness with a strip of whiteness beside it; and two
/// eye droppers that take a colour from the screen. All of them show the one current colour, and each changes it. Two
/// swatches show the reference colour, which the dialog was opened with, and the current one.
///
/// Colours are neither clamped nor refused. What lies outside [0, 1] is shown at the end of its row, and stays as it is
/// until that row is moved. A grey has hue 0 and black has saturation 0, whichever view has made it.
///
/// Show it with `ShowModal`, and learn what the user did from the callbacks below; `ShowModal`'s own result says
/// nothing. The toolkit's `Show` works too; the dialog is then hidden when it is closed, and destroying it is the
/// host's. Any callback may destroy the dialog with `Destroy`; what would have followed is then left out. A dialog that
/// is shown modally may lose its parent as well: either way `ShowModal` returns first, with `wxID_CANCEL`, and the
/// dialog is destroyed then.
///
/// Escape closes the dialog as "Cancel" does, but where an eye dropper is picking: there it ends the picking alone.
/// Enter in a text field sets the number that was typed there; elsewhere, and with Ctrl everywhere, it presses the
/// confirming button.
class OSTREL_WX_API ColorPicker : public wxDialog {
public:
    using Space = ColorPickerSpace;
    using Range = ColorPickerRange;

    /// The confirming button. Values other than these act as `ADD_COLOR`.
    enum class DialogType : std::int32_t {
        CONFIRM = 0,   ///< "OK", which closes the dialog
        ADD_COLOR = 1, ///< "Add color", which leaves it open
    };

    /// Whether colours have an alpha. Values other than these act as `WITHOUT_ALPHA`.
    enum class ColorFormat : std::int32_t {
        WITHOUT_ALPHA = 0, ///< the alpha of every colour that is given to the dialog is replaced by 1
        WITH_ALPHA = 1,    ///< there is a row for alpha
    };

    /// Where space and range are kept from one dialog to the next.
    class OSTREL_WX_API IGlobalStateAccessor {
    public:
        virtual ~IGlobalStateAccessor();
        virtual void setSpace(Space space) = 0;
        virtual Space getSpace() = 0;
        virtual void setRange(Range range) = 0;
        virtual Range getRange() = 0;
    };

    // What the dialog tells its owner. All are empty at first; set them before the dialog is shown.

    /// The current colour, after every change by the user; the reference colour when the dialog is closed without "OK",
    /// so that an owner who showed each change at once takes them back.
    Function<void(const Rgb&)> onColorChanged;
    /// The current colour, when the confirming button is pressed.
    Function<void(const Rgb&)> onColorAccepted;
    /// The dialog is closed without "OK". After `onColorChanged`.
    Function<void()> onCancel;
    /// The dialog is closed, one way or the other. Last.
    Function<void()> onClose;
    /// The hexadecimal field has the keyboard focus now.
    Function<void()> onHexFocusGained;
    /// The hexadecimal field has lost the keyboard focus.
    Function<void()> onHexFocusLost;
    /// "Reset" was pressed; the reference colour is about to become the current one. `onColorChanged` follows twice,
    /// once for the colour and once for its alpha.
    Function<void()> onReset;
    /// The reset is done.
    Function<void()> onAfterReset;

    /// Builds the dialog and does not show it. Space and range are those of `getAccessor`.
    /// @param parent may be null
    /// @param position in pixels of the screen; `wxDefaultPosition` leaves it to the system
    /// @param initialColor becomes the reference and the current colour
    /// @throws the stop exception of `setSpace` or `setRange` if the accessor gives what is none
    ColorPicker(wxWindow* parent, const String& title, wxPoint position, const Rgb& initialColor, DialogType type,
                ColorFormat format);
    ~ColorPicker() override;

    /// Makes this the current colour and shows it. Calls nothing.
    void setColor(const Rgb& color);
    [[nodiscard]] const Rgb& getColor() const;

    /// Makes this the reference colour, and the current one as `setColor` does.
    void setReferenceColor(const Rgb& color);

    /// Shows all numbers but the temperature in this range; the colour stays.
    /// @throws Detail::StopException ("widgets/ColorPicker", line 829) for what is no range
    void setRange(Range range);
    [[nodiscard]] Range getRange() const;

    /// Shows the numbers of red, green and blue in this space; the colour stays. Linear is a power of 2.2, and not the
    /// piecewise curve of IEC 61966-2-1: it is this power that numbers of one space make the way to the other by.
    /// @throws Detail::StopException ("widgets/ColorPicker", line 872) for what is no space
    void setSpace(Space space);
    [[nodiscard]] Space getSpace() const;

    /// How far around the pointer both eye droppers average: a square of 2 × radius + 1 pixels. Of the radii that the
    /// dialog offers (0, 1, 2, 5, 15) the largest that is not above this one, or else 0.
    void setEyeDropperAveragingRadius(int radius);
    [[nodiscard]] int getEyeDropperAveragingRadius() const;

    /// `wxOK` once "OK" has been pressed, `wxCANCEL` before and otherwise; `wxCANCEL` again when the dialog is shown
    /// anew.
    [[nodiscard]] int getCloseResult() const;

    /// Works the dialog until it is closed, or destroyed.
    int ShowModal() override;

    /// While the dialog is shown modally, ends that without a word to the owner, and destroys the dialog afterwards.
    bool Destroy() override;

    /// Has space and range kept there by all dialogs of the process; destroys the accessor that was installed before.
    /// An empty pointer brings the default back, which keeps both until the process ends and starts with sRGB numbers
    /// up to 255.
    static void setGlobalStateAccessor(AutoPtr<IGlobalStateAccessor>&& accessor);

private:
    struct Impl;

    void onParentDestroyed(wxWindowDestroyEvent& event);

    AutoPtr<Impl> _impl;
};

/// The installed accessor, or else the default one.
OSTREL_WX_API ColorPicker::IGlobalStateAccessor& getAccessor();

} // namespace Ostrel::Wx
