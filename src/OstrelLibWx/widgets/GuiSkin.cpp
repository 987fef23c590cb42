#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/Skinnable.h>

#include <wx/window.h>

namespace Ostrel::Wx {

void applySkinRecursive(wxWindow* window, const GuiSkin& skin) {
    window->SetBackgroundColour(toWxColour(skin.background));
    window->SetForegroundColour(toWxColour(skin.text));
    if (auto* const link = dynamic_cast<ILinkColours*>(window)) {
        const wxColour colour = toWxColour(skin.link);
        link->setNormalColour(colour);
        link->setHoverColour(colour);
    }
    for (wxWindow* const child : window->GetChildren()) {
        applySkinRecursive(child, skin);
    }
}

} // namespace Ostrel::Wx
