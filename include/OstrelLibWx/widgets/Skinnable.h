#pragma once

#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/widgets/GuiSkin.h>

#include <utility>

namespace Ostrel::Wx {

/// What can be given a skin.
class OSTREL_WX_API ISkinnable {
public:
    virtual ~ISkinnable();

    /// Keeps a copy of the skin and shows it.
    virtual void applySkin(const GuiSkin& skin) = 0;

    /// The skin applied last.
    [[nodiscard]] virtual const GuiSkin& getSkin() const = 0;
};

/// What shows a link, and takes its colours from a skin when `applySkinRecursive` passes.
class OSTREL_WX_API ILinkColours {
public:
    virtual ~ILinkColours();

    /// The colour while the mouse is elsewhere.
    virtual void setNormalColour(const wxColour& colour) = 0;

    /// The colour while the mouse is over the link.
    virtual void setHoverColour(const wxColour& colour) = 0;
};

/// Makes the toolkit's control `T` skinnable. A new control keeps the default skin but looks as the toolkit made it
/// until a skin is applied.
template <class T>
class SkinnableMixin : public T, public ISkinnable {
public:
    /// Builds the control with these arguments.
    template <class... Arguments>
    explicit SkinnableMixin(Arguments&&... arguments)
        : T(std::forward<Arguments>(arguments)...) {}

    /// Keeps the skin, sets the control's background and text colour to the skin's, and refreshes it.
    void applySkin(const GuiSkin& skin) override {
        _skin = skin;
        this->SetBackgroundColour(toWxColour(_skin.background));
        this->SetForegroundColour(toWxColour(_skin.text));
        this->Refresh();
    }

    [[nodiscard]] const GuiSkin& getSkin() const override { return _skin; }

private:
    GuiSkin _skin;
};

} // namespace Ostrel::Wx
