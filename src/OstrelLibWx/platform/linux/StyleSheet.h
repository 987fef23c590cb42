#pragma once

#include <string>

#include <gtk/gtk.h>

#include <wx/colour.h>
#include <wx/font.h>

/// GTK's style sheets. Reading one takes longer than making a label, so the widgets of one look share theirs.
namespace Ostrel::Detail {

/// Where the toolkit puts the style sheets that it makes of a window's colours and font.
constexpr guint TOOLKITS_PRIORITY = GTK_STYLE_PROVIDER_PRIORITY_APPLICATION;

/// Adds a style sheet to the widget, though not to what is inside; it replaces an earlier one of the same name. An
/// empty one takes that away. A text is read once, unless very many others come in between.
void setStyleSheet(GtkWidget* widget, const char* name, const std::string& css, guint priority = TOOLKITS_PRIORITY + 1);

// Values of a style sheet's properties.
[[nodiscard]] std::string toCss(const wxColour& colour);
[[nodiscard]] std::string toCss(const wxFont& font); ///< for one that `isWrittenInCss`

/// Whether `toCss` tells all of a font: it has the usual stretch, whole points, no lines and no odd name.
[[nodiscard]] bool isWrittenInCss(const wxFont& font);

} // namespace Ostrel::Detail
