#include <OstrelLibWx/widgets/ImageSaveSettingsDialog.h>

#include <OstrelLib/Exceptions.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/Button.h>
#include <OstrelLibWx/widgets/CheckBox.h>
#include <OstrelLibWx/widgets/ComboBox.h>

#include "support/WidgetTest.h"
#include "widgets/ModalDriver.h"

namespace Ostrel::Wx {

void PrintTo(const ImageSaveSettings& settings, std::ostream* stream) {
    *stream << static_cast<int>(settings.colorFormat) << (settings.includeAlpha ? " with alpha" : " without alpha");
}

namespace {

using enum ImageColorFormat;

class ImageSaveSettingsTest : public WidgetTest {
protected:
    template <class Control>
    static Control* find(const wxString& label = {}) {
        auto* const dialog = ModalDriver::findActive<ImageSaveSettingsDialog>();
        if (dialog != nullptr) {
            for (wxWindow* const child : dialog->GetChildren()) {
                auto* const control = dynamic_cast<Control*>(child);
                if (control != nullptr && (label.empty() || control->GetLabel() == label)) {
                    return control;
                }
            }
        }
        return nullptr;
    }
    ModalDriver::Step key(int code) {
        return [this, code] { return find<ComboBox>() != nullptr && input().Char(code); };
    }
    template <class Control>
    ModalDriver::Step clickOn(const wxString& label) {
        return [this, label] {
            auto* const control = find<Control>(label);
            if (control != nullptr) {
                input().MouseMove(onScreen(*control, middle(*control)));
                input().MouseClick();
            }
            return control != nullptr;
        };
    }
    /// Goes on once the rows are that many and this one is selected.
    static ModalDriver::Step shows(int count, ImageColorFormat format, bool alpha) {
        return [=] {
            const auto* const box = find<ComboBox>();
            return box != nullptr && box->getCount() == count && box->getSelectedId() == static_cast<int>(format) &&
                   find<CheckBox>()->getValue() == alpha;
        };
    }
    Optional<ImageSaveSettings> ask(std::vector<ModalDriver::Step> steps,
                                    Flags<ImageColorFormat> formats = ImageSaveSettingsDialog::getAllFormats(),
                                    bool canHoldAlpha = true) {
        const WindowHandle owner = getWindowNativeHandle(&frame());
        const auto isInFront = [owner] {
            auto* const dialog = ModalDriver::findActive<ImageSaveSettingsDialog>();
            return dialog != nullptr && find<ComboBox>()->HasFocus() &&
                   getOwnerAsNativeHandle(getWindowNativeHandle(dialog)) == owner;
        };
        if (!steps.empty()) {
            steps.insert(steps.begin(), isInFront);
        }
        const ModalDriver driver(std::move(steps));
        const auto answer = ImageSaveSettingsDialog::requestSettingsFromUser(owner, formats, canHoldAlpha);
        EXPECT_TRUE(frame().IsEnabled());
        return answer;
    }
};

TEST_F(ImageSaveSettingsTest, AreOfferedAgainWhenTheyWereAccepted) {
    using Settings = ImageSaveSettings;
    const auto toggleAlpha = clickOn<CheckBox>("Include alpha channel");
    const auto pressNumpadEnter = [] { // which cannot be simulated everywhere
        wxKeyEvent event(wxEVT_CHAR_HOOK);
        event.m_keyCode = WXK_NUMPAD_ENTER;
        return ModalDriver::findActive<wxDialog>()->ProcessWindowEvent(event);
    };
    EXPECT_EQ(ask({shows(4, SRGB_8_BIT, true), key(WXK_RETURN)}), (Settings{SRGB_8_BIT, true}));
    EXPECT_EQ(ask({key(WXK_END), toggleAlpha, shows(4, LINEAR_32_BIT_FLOAT, false), clickOn<Button>("OK")}),
              (Settings{LINEAR_32_BIT_FLOAT, false}));
    EXPECT_EQ(ask({shows(4, LINEAR_32_BIT_FLOAT, false), key(WXK_HOME), shows(4, SRGB_8_BIT, false), key(WXK_ESCAPE)}),
              Optional<Settings>());
    EXPECT_EQ(ask({key(WXK_UP), toggleAlpha, shows(4, LINEAR_16_BIT_FLOAT, true), clickOn<Button>("Cancel")}),
              Optional<Settings>());
    EXPECT_EQ(ask({key(WXK_UP), toggleAlpha, shows(4, LINEAR_16_BIT_FLOAT, true), pressNumpadEnter}),
              (Settings{LINEAR_16_BIT_FLOAT, true}));
    // A file that holds less changes what is offered, and for alpha not what is remembered.
    EXPECT_EQ(ask({shows(2, SRGB_8_BIT, false), toggleAlpha, shows(2, SRGB_8_BIT, false), key(WXK_DOWN),
                   shows(2, SRGB_16_BIT, false), key(WXK_RETURN)},
                  SRGB_8_BIT | SRGB_16_BIT, false),
              (Settings{SRGB_16_BIT, false}));
    EXPECT_EQ(ask({shows(4, SRGB_16_BIT, true), [] { return ModalDriver::findActive<wxDialog>()->Close(); }}),
              Optional<Settings>());
    EXPECT_THROW(ask({}, {}), Detail::StopException);
}

} // namespace
} // namespace Ostrel::Wx
