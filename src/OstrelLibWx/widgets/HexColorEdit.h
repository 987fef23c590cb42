#pragma once

#include <OstrelLib/Color.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/RawaBorder.h>

namespace Ostrel::Wx {

class TextControl;

/// A colour as six hexadecimal digits, in a framed text field. Each keystroke is read and reported; the text itself is
/// written anew only while the field has not the focus, so that typing is never disturbed.
///
/// Exported for the library's own tests alone.
class OSTREL_WX_API HexColorEdit : public RawaBorder, public Focusable {
public:
    /// @param textWidth of the text field, in design pixels
    HexColorEdit(wxWindow* parent, int textWidth);
    ~HexColorEdit() override;

    /// Calls nothing.
    void setColor(const Rgb& color);
    [[nodiscard]] const Rgb& getColor() const { return _color; }

    [[nodiscard]] TextControl& getTextControl() { return *_text; }

    /// The text was changed; takes the colour that it is read as, with the alpha 1. May be empty, and so may the
    /// others.
    Function<void(const Rgb&)> onChanged;
    Function<void()> onFocusGained;
    Function<void()> onFocusLost;

private:
    void onText(wxCommandEvent& event);
    void onFocus(wxFocusEvent& event);
    void onFocusKilled(wxFocusEvent& event);

    void showColor();

    Rgb _color;
    bool _editing = false; ///< the field has the focus
    TextControl* _text;
};

} // namespace Ostrel::Wx
