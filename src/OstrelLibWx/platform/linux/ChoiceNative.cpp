#include "platform/ChoiceNative.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

#include <gtk/gtk.h>
#include <wx/choice.h>
#include <wx/radiobut.h>

#include <string>

#include "platform/linux/StyleSheet.h"

// A theme's arrows and marks are drawings that GTK reads, scales and colours anew for every widget with a style of its
// own, which takes a fifth of the time that the colour picker takes to open. Those below are gradients.

namespace Ostrel::Detail {

namespace {

/// Design pixels.
constexpr int RADIO_WIDTH = 11;

std::string define(const char* name, RgbBytes colour) {
    return std::string("@define-color ") + name + " " + toCss(Wx::toWxColour(colour)) + ";";
}

std::string defineColours(const Wx::GuiSkin& skin) {
    return define("text", skin.text) + define("grey", skin.grey) + define("background", skin.background) +
           define("frame", skin.darkGrey) + define("mark", skin.toggledText) + define("marked", skin.toggledBackground);
}

/// For the widget and all that is inside.
void setStyleSheet(GtkWidget* widget, gpointer css) {
    Detail::setStyleSheet(widget, "ostrel-choice", *static_cast<const std::string*>(css));
    if (GTK_IS_CONTAINER(widget)) {
        gtk_container_forall(GTK_CONTAINER(widget), setStyleSheet, css);
    }
}

void setStyleSheet(const wxWindow& window, std::string css) {
    setStyleSheet(static_cast<GtkWidget*>(window.GetHandle()), &css);
}

} // namespace

void dressChoice(wxChoice& choice, const Wx::GuiSkin& skin) {
    setStyleSheet(choice, defineColours(skin) + R"(
* { color: @text; text-shadow: none; transition: none; }
*:disabled { color: @grey; }
button { background: @background; border: 1px solid @frame; border-radius: 0; box-shadow: none; min-height: 0;
         min-width: 0; padding: 1px 4px; }
cellview { background: none; }
arrow { -gtk-icon-source: none; min-width: 8px; min-height: 4px; margin: 0 2px;
        background-image: linear-gradient(to bottom left, @text 50%, transparent 50%),
                          linear-gradient(to bottom right, @text 50%, transparent 50%);
        background-size: 4px 4px; background-position: left center, right center; background-repeat: no-repeat; }
arrow:disabled { background-image: linear-gradient(to bottom left, @grey 50%, transparent 50%),
                                   linear-gradient(to bottom right, @grey 50%, transparent 50%); })");
}

void dressRadioButton(wxRadioButton& button, const Wx::GuiSkin& skin) {
    const std::string width = std::to_string(Wx::scaleByDpi(RADIO_WIDTH)) + "px;";
    setStyleSheet(button, defineColours(skin) + "radio { min-width: " + width + "min-height: " + width + "}" + R"(
* { text-shadow: none; transition: none; }
radio { -gtk-icon-source: none; margin: 0 4px 0 0; padding: 0; border: 1px solid @frame; border-radius: 50%;
        box-shadow: none; background: @background; }
radio:checked { background: radial-gradient(circle, @mark 30%, @marked 36%); }
radio:checked:disabled { background: radial-gradient(circle, @grey 30%, @background 36%); }
radio:hover { border-color: @marked; }
label { color: @text; }
label:disabled { color: @grey; })");
}

} // namespace Ostrel::Detail
