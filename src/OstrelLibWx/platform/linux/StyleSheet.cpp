#include "platform/linux/StyleSheet.h"

#include <OstrelLib/String.h>

#include <map>

#include <wx/fontutil.h>

namespace Ostrel::Detail {

namespace {

GtkStyleProvider* getStyleSheet(const std::string& css) {
    constexpr std::size_t KEPT = 64;
    static std::map<std::string, GtkStyleProvider*> sheets;
    if (sheets.size() == KEPT && sheets.count(css) == 0) {
        for (const auto& sheet : sheets) {
            g_object_unref(sheet.second);
        }
        sheets.clear();
    }
    GtkStyleProvider*& sheet = sheets[css];
    if (sheet == nullptr) {
        GtkCssProvider* const provider = gtk_css_provider_new();
        gtk_css_provider_load_from_data(provider, css.c_str(), -1, nullptr);
        sheet = GTK_STYLE_PROVIDER(provider);
    }
    return sheet;
}

} // namespace

void setStyleSheet(GtkWidget* widget, const char* name, const std::string& css, guint priority) {
    GtkStyleContext* const context = gtk_widget_get_style_context(widget);
    auto* const former = static_cast<GtkStyleProvider*>(g_object_get_data(G_OBJECT(widget), name));
    GtkStyleProvider* const sheet = css.empty() ? nullptr : getStyleSheet(css);
    if (former == sheet) {
        return;
    }
    if (former != nullptr) {
        gtk_style_context_remove_provider(context, former);
        g_object_set_data(G_OBJECT(widget), name, nullptr);
    }
    if (sheet != nullptr) {
        gtk_style_context_add_provider(context, sheet, priority);
        g_object_set_data_full(G_OBJECT(widget), name, g_object_ref(sheet), g_object_unref);
    }
}

std::string toCss(const wxColour& colour) {
    return colour.GetAsString(wxC2S_CSS_SYNTAX).ToStdString();
}

std::string toCss(const wxFont& font) {
    const wxFontStyle style = font.GetStyle();
    return (style == wxFONTSTYLE_NORMAL  ? ""
            : style == wxFONTSTYLE_SLANT ? "oblique "
                                         : "italic ") +
           std::to_string(font.GetNumericWeight()) + " " + std::to_string(font.GetPointSize()) + "pt \"" +
           String(font.GetFaceName().ToStdWstring()).toUtf8() + "\"";
}

bool isWrittenInCss(const wxFont& font) {
    if (!font.IsOk() || font.GetUnderlined() || font.GetStrikethrough()) {
        return false;
    }
    const PangoFontDescription* const description = font.GetNativeFontInfo()->description;
    const wxString family = font.GetFaceName();
    return pango_font_description_get_stretch(description) == PANGO_STRETCH_NORMAL &&
           pango_font_description_get_variant(description) == PANGO_VARIANT_NORMAL &&
           pango_font_description_get_size_is_absolute(description) == FALSE &&
           pango_font_description_get_size(description) % PANGO_SCALE == 0 && !family.empty() &&
           family.find_first_of("\"\\") == wxString::npos;
}

} // namespace Ostrel::Detail
