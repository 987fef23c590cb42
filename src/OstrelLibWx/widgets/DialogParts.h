#pragma once

#include <OstrelLib/Geometry.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/widgets/Button.h>
#include <OstrelLibWx/widgets/ComboBox.h>
#include <OstrelLibWx/widgets/StaticText.h>

class wxTopLevelWindow;

/// What the library's dialogs have in common.
namespace Ostrel::Wx {

/// The title of every message about something that has gone wrong.
constexpr const char* ERROR_TITLE = "Nimbra Renderer Error";

/// Between the controls of a grid, design pixels.
constexpr int DIALOG_GRID_GAP = 2;

/// Puts the window over the middle of its owner, or without one in the middle of the work area, and wholly on the work
/// area if it fits there.
void placeOverOwner(wxTopLevelWindow* window, WindowHandle owner);

/// The same for the window's parent, or none.
void placeOverParent(wxTopLevelWindow* window);

/// A button at least as large as an entry of a `DropdownButton`, so that both look alike side by side.
[[nodiscard]] Button* makeDialogButton(wxWindow* parent, const GuiSkin& skin, const String& label,
                                       Function<void()> onClick, Button::Behavior behavior = Button::PUSH);

[[nodiscard]] StaticText* makeDialogLabel(wxWindow* parent, const String& text);

/// Fills the box with rows whose ids are their places, and selects one of them.
void setChoices(ComboBox& box, ArrayView<const char* const> texts, int selected);

} // namespace Ostrel::Wx
