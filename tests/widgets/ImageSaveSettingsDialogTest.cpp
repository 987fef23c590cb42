#include <OstrelLibWx/widgets/ImageSaveSettingsDialog.h>

#include <OstrelLib/Exceptions.h>
#include <OstrelLibWx/widgets/CheckBox.h>
#include <OstrelLibWx/widgets/ComboBox.h>

#include "widgets/DialogTest.h"
#include "widgets/ModalDriver.h"

namespace Ostrel::Wx {
namespace {

using enum ImageColorFormat;
using Dialog = ImageSaveSettingsDialog;

class ImageSaveSettingsTest : public WidgetTest {
protected:
    /// Once the dialog waits for input.
    template <class Control>
    static Control* find(const wxString& label = {}) {
        const auto* const dialog = ModalDriver::findActive<Dialog>();
        return dialog != nullptr ? findChild<Control>(*dialog, label) : nullptr;
    }
    /// The dialog takes Enter and Escape wherever the focus is; all other keys are for the formats, once they have it.
    ModalDriver::Step key(int code) {
        return [this, code] {
            const auto* const box = find<ComboBox>();
            const bool isForDialog = code == WXK_RETURN || code == WXK_ESCAPE;
            return box != nullptr && (isForDialog || box->HasFocus()) && input().Char(code);
        };
    }
    template <class Control>
    ModalDriver::Step clickOn(const wxString& label) {
        return [this, label] {
            auto* const control = find<Control>(label);
            return control != nullptr && input().MouseMove(onScreen(*control, middle(*control))) &&
                   input().MouseClick();
        };
    }
    /// There are that many rows, of which this one is selected.
    static ModalDriver::Step shows(int count, ImageColorFormat format, bool alpha) {
        return [=] {
            const auto* const box = find<ComboBox>();
            return box != nullptr && box->getCount() == count && box->getSelectedId() == static_cast<int>(format) &&
                   find<CheckBox>()->getValue() == alpha;
        };
    }
    /// The number of the format, with 100 added for alpha; 0 when cancelled.
    int ask(std::vector<ModalDriver::Step> steps, Flags<ImageColorFormat> formats = Dialog::getAllFormats(),
            bool canHoldAlpha = true) {
        const WindowHandle owner = getWindowNativeHandle(&frame());
        steps.insert(steps.begin(), [owner] {
            return find<ComboBox>() != nullptr && find<ComboBox>()->HasFocus() &&
                   getOwnerAsNativeHandle(getWindowNativeHandle(ModalDriver::findActive<Dialog>())) == owner;
        });
        const ModalDriver driver(std::move(steps));
        const auto answer = Dialog::requestSettingsFromUser(owner, formats, canHoldAlpha);
        return answer ? static_cast<int>(answer->colorFormat) + (answer->includeAlpha ? 100 : 0) : 0;
    }
};

TEST_F(ImageSaveSettingsTest, AreOfferedAgainWhenTheyWereAccepted) {
    const auto toggleAlpha = clickOn<CheckBox>("Include alpha channel");
    EXPECT_EQ(ask({shows(4, SRGB_8_BIT, true), key(WXK_RETURN)}), 101);
    EXPECT_EQ(ask({key(WXK_END), toggleAlpha, shows(4, LINEAR_32_BIT_FLOAT, false), clickOn<Button>("OK")}), 8);
    EXPECT_EQ(ask({shows(4, LINEAR_32_BIT_FLOAT, false), key(WXK_HOME), shows(4, SRGB_8_BIT, false), key(WXK_ESCAPE)}),
              0);
    EXPECT_EQ(ask({toggleAlpha, shows(4, LINEAR_32_BIT_FLOAT, true), clickOn<Button>("Cancel")}), 0);
    EXPECT_EQ(ask({key(WXK_UP), toggleAlpha, shows(4, LINEAR_16_BIT_FLOAT, true), key(WXK_RETURN)}), 104);
    // A file that holds less changes what is offered, and for alpha not what is remembered.
    EXPECT_EQ(
        ask({shows(2, SRGB_8_BIT, false), toggleAlpha, key(WXK_DOWN), shows(2, SRGB_16_BIT, false), key(WXK_RETURN)},
            SRGB_8_BIT | SRGB_16_BIT, false),
        2);
    const auto close = [] {
        auto* const dialog = ModalDriver::findActive<Dialog>();
        return dialog != nullptr && dialog->Close();
    };
    EXPECT_EQ(ask({shows(4, SRGB_16_BIT, true), close}), 0);
    EXPECT_THROW(static_cast<void>(Dialog::requestSettingsFromUser({}, {})), Detail::StopException);
}

} // namespace
} // namespace Ostrel::Wx
