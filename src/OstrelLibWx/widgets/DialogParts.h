#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/widgets/Button.h>
#include <OstrelLibWx/widgets/ComboBox.h>
#include <OstrelLibWx/widgets/StaticText.h>

#include <array>

class wxTopLevelWindow;

/// What the library's dialogs have in common.
namespace Ostrel::Wx {

/// The title of every message about something that has gone wrong.
constexpr const char* ERROR_TITLE = "Nimbra Renderer Error";

// Design pixels.

/// Between the controls of a grid.
constexpr int DIALOG_GRID_GAP = 2;
constexpr int DIALOG_COMBO_BOX_WIDTH = 110;
/// A square curve panel: its plot, and what is around it on each side.
constexpr int DIALOG_PLOT_SIZE = 256;
constexpr int DIALOG_PLOT_MARGIN = 5;

/// By number of `CurveInterpolation`.
inline constexpr std::array INTERPOLATION_LABELS{"Cubic splines", "Linear splines"};

/// Puts the window over the middle of its owner, or without one in the middle of the work area, and wholly on the work
/// area if it fits there.
void placeOverOwner(wxTopLevelWindow* window, WindowHandle owner);

/// The same for the window's parent, or none.
void placeOverParent(wxTopLevelWindow* window);

/// A button at least as large as an entry of a `DropdownButton`, so that both look alike side by side.
[[nodiscard]] Button* makeDialogButton(wxWindow* parent, const GuiSkin& skin, const String& label,
                                       Function<void()> onClick, Button::Behavior behavior = Button::PUSH);

[[nodiscard]] StaticText* makeDialogLabel(wxWindow* parent, const String& text);

/// Sets what was typed in the spinner that has the focus, if it is one in `dialog`: the press of the button that ends
/// the dialog leaves the focus there. False if the dialog was destroyed by that.
[[nodiscard]] bool commitFocusedSpinner(wxWindow* dialog);

/// Tab and Shift+Tab go through the `Focusable` children of the frame. The toolkit has such keys in dialogs alone, and
/// not on every platform in frames.
void moveFocusOnTab(wxTopLevelWindow* frame);

/// Fills the box with rows whose ids are their places, and selects one of them.
void setChoices(ComboBox& box, ArrayView<const char* const> texts, int selected);

} // namespace Ostrel::Wx
