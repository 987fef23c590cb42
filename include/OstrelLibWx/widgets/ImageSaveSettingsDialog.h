#pragma once

#include <OstrelLib/Flags.h>
#include <OstrelLib/Geometry.h>
#include <OstrelLib/ImageFormat.h>
#include <OstrelLib/Types.h>
#include <OstrelLibWx/Export.h>

#include <wx/dialog.h>

namespace Ostrel::Wx {

/// How a picture is to be saved.
struct ImageSaveSettings {
    ImageColorFormat colorFormat = ImageColorFormat::SRGB_8_BIT;
    bool includeAlpha = true;

    friend bool operator==(const ImageSaveSettings&, const ImageSaveSettings&) = default;
};

/// Asks how a picture is to be saved: "8-bit sRGB", "16-bit sRGB", "16-bit floating-point linear RGB" or "32-bit
/// floating-point linear RGB", and whether with its alpha channel.
///
/// It offers what was accepted last in this process; at first `ImageSaveSettings()`. Return and Enter accept, Escape
/// and the close box cancel; Tab goes between the two choices.
class OSTREL_WX_API ImageSaveSettingsDialog : public wxDialog {
public:
    /// Everything that a picture can be stored as.
    static constexpr Flags<ImageColorFormat> getAllFormats() {
        using enum ImageColorFormat;
        return SRGB_8_BIT | SRGB_16_BIT | LINEAR_16_BIT_FLOAT | LINEAR_32_BIT_FLOAT;
    }

    /// Shows the dialog and waits. On the GUI thread; meanwhile the events of other windows are dispatched.
    /// @param parent a window of any toolkit, in front of whose top-level window the dialog stays, and which is
    /// disabled meanwhile; null: none
    /// @param formats what the file can hold (`ImageFormatDescriptor::colorFormats`): others are not offered. If the
    /// one accepted last is not among them, the first is selected. Stop exception
    /// ("widgets/ImageSaveSettingsDialog") if none of the four is in it
    /// @param canHoldAlpha if not, the box for the alpha channel is disabled and empty, and the answer is without
    /// alpha; what is offered the next time is what it would have been
    /// @return nothing when cancelled
    [[nodiscard]] static Optional<ImageSaveSettings>
    requestSettingsFromUser(WindowHandle parent, Flags<ImageColorFormat> formats = getAllFormats(),
                            bool canHoldAlpha = true);

    /// The dialog itself, for a host that shows it in its own way. Parameters as for `requestSettingsFromUser`, but at
    /// least one of the four formats has to be there. `offered` is what is selected first. Shown with `ShowModal` it
    /// returns `wxOK` or `wxCANCEL`; shown with `Show` it stores that (`GetReturnCode`) and destroys itself: such a
    /// dialog is made with `new`. The host's own windows stay enabled.
    ImageSaveSettingsDialog(WindowHandle parent, Flags<ImageColorFormat> formats, bool canHoldAlpha,
                            const ImageSaveSettings& offered);
    ~ImageSaveSettingsDialog() override;

    /// What is selected now.
    [[nodiscard]] ImageSaveSettings getSettings() const;

private:
    struct Impl;

    void end(int result);
    void onKey(wxKeyEvent& event);

    AutoPtr<Impl> _impl;
};

} // namespace Ostrel::Wx
