// The gallery's page "Lab", on which the dialogs meet.

#include "EventLog.h"
#include "Page.h"
#include "Picture.h"
#include "PictureView.h"

#include <OstrelLib/Path.h>
#include <OstrelLibWx/MessageDialog.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/ColorPicker.h>
#include <OstrelLibWx/widgets/ComboBox.h>
#include <OstrelLibWx/widgets/CurveDialog.h>
#include <OstrelLibWx/widgets/ImageSaveSettingsDialog.h>
#include <OstrelLibWx/widgets/PixelProbe.h>
#include <OstrelLibWx/widgets/VolumeGridMappingDialog.h>

#include "widgets/DialogTest.h"
#include "widgets/DialogUser.h"
#include "widgets/EyeDropperButton.h"
#include "widgets/ModalDriver.h"

#include <wx/utils.h>

#include <filesystem>

namespace Ostrel::Gallery {
namespace {

namespace Driver = FileDialogDriver;

class LabPageTest : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        const Bucket area = Wx::getMonitorRegionByWindow(&frame(), Wx::MonitorRegionType::WORK_AREA);
        wxSize size = frame().FromDIP(wxSize(900, 690));
        size.DecTo(wxSize(area.width() - 20, area.height() - 60)); // all of it has to be seen
        frame().SetClientSize(size);
        frame().Move(area.min.x, area.min.y);
        auto* const log = new EventLog(&panel());
        log->Hide();
        page = getPages()[findPage("Lab").value()].create({&panel(), *log, picture});
        page->dress();
        auto* const sizer = new wxBoxSizer(wxVERTICAL);
        sizer->Add(page, wxSizerFlags(1).Expand());
        panel().SetSizer(sizer);
        page->Show();
        showAll();
        page->onPageShown(true);
        view = findChild<PictureView>(*page);
        ASSERT_TRUE(pumpUntil([this] { return button("Save...")->IsEnabled() && view->isUpToDate(); }));
        waitForRest(frame());
    }
    Wx::Button* button(const char* label) { return findChild<Wx::Button>(*page, label); }

    /// In the sky.
    wxPoint place() { return {view->GetClientSize().x / 4, view->GetClientSize().y / 8}; }
    /// Not from the screen: at a large scale the Lab's dialogs lie over the picture.
    PixelColour shown() {
        const RgbBytes bytes = toRgbBytes(toBeShown());
        return {bytes.red, bytes.green, bytes.blue};
    }
    Rgb toBeShown() { return view->getShownColor(view->getPixel({place().x, place().y}).value()); }
    bool showsBlue() { return shown().blue > shown().red + 30; }
    static Wx::ColorPicker* picker() { return ModalDriver::findActive<Wx::ColorPicker>(); }

    /// Presses the key, and works what opens until the page has done its work.
    void press(int key, std::vector<ModalDriver::Step> steps) {
        const ModalDriver driver(std::move(steps));
        EXPECT_TRUE(page->onKey(key));
    }

    Picture picture = makeColourField();
    Page* page = nullptr;
    PictureView* view = nullptr;
};

TEST_F(LabPageTest, SavesThePictureThroughBothDialogs) {
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "lab-page";
    std::filesystem::create_directories(folder);
    const Path file(folder / "saved.png");
    WindowHandle files;
    {
        const DialogUser user(
            {{"the settings",
              [] {
                  const auto* const dialog = ModalDriver::findActive<Wx::ImageSaveSettingsDialog>();
                  return dialog != nullptr && findChild<Wx::ComboBox>(*dialog)->HasFocus();
              },
              [this] { input().Char(WXK_HOME), input().Char(WXK_RETURN); }},
             {"the dialog", [&] { return !(files = Driver::findDialog("Save the picture")).isNull(); },
              [&] { Driver::enterNameField(files, input()); }},
             {"the name field", [&] { return Driver::isInNameField(files); },
              [&] {
                  input().Char(WXK_HOME);
                  input().Char(WXK_END, wxMOD_SHIFT);
                  input().Text(file.nativeStr().toUtf8().c_str());
              }},
             {"the name", [&] { return Driver::getName(files) == file.nativeStr() && Driver::canAccept(files); },
              [&] { input().Char(WXK_RETURN); }}});
        EXPECT_TRUE(page->onKey('S'));
    }
    const PixelColour sky = shown();
    const wxImage saved(wxString(file.nativeStr().toWide()));
    ASSERT_EQ(saved.GetSize(), wxSize(720, 640));
    EXPECT_NEAR(pixelAt(saved, 180, 80).blue, sky.blue, 6);
    EXPECT_TRUE(saved.HasAlpha() && saved.GetAlpha(180, 80) == 0) << "what shows the sky is transparent";
    std::filesystem::remove_all(folder);
}

TEST_F(LabPageTest, ShowsAColourWhileItIsPickedAndTakesItBack) {
    EXPECT_TRUE(showsBlue());
    press('K', {[] { return picker() != nullptr; },
                [] {
                    return picker()->onColorChanged({1.0F, 0.0F, 0.0F}), true;
                },
                [this] { return toBeShown().red > toBeShown().blue + 0.1F; }, [] { return picker()->Close(); }});
    EXPECT_TRUE(pumpUntil([this] { return showsBlue(); }));
}

TEST_F(LabPageTest, MakesWhatTheEyeDropperPicksInThePictureGrey) {
    const auto getDropper = [] { return findChild<Wx::EyeDropperButton>(*picker()); };
    for (int time = 0; time < 2; ++time) { // the second time the same place, which is grey by then
        wxPoint before;
        press('W', {[] { return picker() != nullptr; },
                    [&] { return std::exchange(before, onScreen(*picker(), {})) == onScreen(*picker(), {}); },
                    [&] { return input().MouseMove(onScreen(*getDropper(), middle(*getDropper()))); },
                    [&] { return input().MouseDown(); }, [&] { return getDropper()->HasCapture(); },
                    [&] { return input().MouseMove(onScreen(*view, place())); },
                    [&] { return wxGetMousePosition() == onScreen(*view, place()); }, [&] { return input().MouseUp(); },
                    [&] { return !getDropper()->HasCapture(); },
                    [] { return findChild<Wx::Button>(*picker(), "OK")->doClick({}), true; }});
        EXPECT_TRUE(pumpUntil([&] {
            const PixelColour grey = shown();
            return std::abs(grey.red - grey.blue) < 4 && std::abs(grey.green - grey.blue) < 4;
        })) << shown();
    }
}

TEST_F(LabPageTest, StopsWhenAskedToAndShowsDepthUntilItIsCancelled) {
    press('R',
          {[] { return ModalDriver::findActive<Wx::MessageDialog>() != nullptr; }, [&] { return input().Char('N'); }});
    EXPECT_NE(button("Stop..."), nullptr) << "not yet";
    press('R',
          {[] { return ModalDriver::findActive<Wx::MessageDialog>() != nullptr; }, [&] { return input().Char('Y'); }});
    EXPECT_NE(button("Render"), nullptr);

    press('D', {});
    constexpr PixelColour FAR_AWAY{255, 248, 166};
    EXPECT_TRUE(pumpUntil([&] { return shown() == FAR_AWAY; })) << shown();
    auto* const dialog = ModalDriver::findShown<Wx::VolumeGridMappingDialog>();
    ASSERT_NE(dialog, nullptr);
    dialog->Close();
    EXPECT_TRUE(pumpUntil([&] { return showsBlue(); }));
    EXPECT_TRUE(button("Picture")->isToggled());

    // The values follow the pointer, and are gone beside the picture.
    const auto* const probe = findChild<Wx::PixelProbe>(*page);
    movePointer(*view, place());
    EXPECT_TRUE(pumpUntil([&] { return probe->IsShown(); }));
    const Pixel pixel = view->getPixel({place().x, place().y}).value();
    EXPECT_TRUE(wxWindow::FindWindowByLabel(wxString::Format("Position:\n%d\n%d", pixel.x, pixel.y), probe));
    movePointer(*view, wxPoint(-20, -20));
    EXPECT_TRUE(pumpUntil([&] { return !probe->IsShown(); }));
}

TEST_F(LabPageTest, EditsTheSameCurvesInTheDialogAndKeepsFalseColoursThatAreAccepted) {
    auto* const panelOfPage = findChild<Wx::CurvePanel>(*page);
    press('C', {});
    const wxWeakRef<Wx::CurveDialog> curves = ModalDriver::findShown<Wx::CurveDialog>();
    ASSERT_TRUE(curves);
    ColorCurve allRed;
    allRed[CurveChannel::RED] = Curve({{0.0F, 1.0F}, {1.0F, 1.0F}}, CurveInterpolation::LINEAR);
    curves->setCurves(allRed);
    EXPECT_TRUE(pumpUntil([this] { return shown().red > 250; })) << shown();
    EXPECT_EQ(panelOfPage->getCurrentCurves(), allRed);
    panelOfPage->setCurves({});
    EXPECT_TRUE(pumpUntil([this] { return showsBlue(); }));
    EXPECT_EQ(curves->getPanel()->getCurrentCurves(), ColorCurve());
    findChild<Wx::Button>(*curves, "Pick")->doClick({});
    EXPECT_TRUE(curves->isPicking());
    curves->Close();
    EXPECT_TRUE(pumpUntil([&curves] { return !curves; })) << "while it picks";

    press('L', {});
    const auto mapping = [] { return ModalDriver::findShown<Wx::VolumeGridMappingDialog>(); };
    EXPECT_TRUE(pumpUntil([this] { return !showsBlue(); }));
    findChild<Wx::Button>(*mapping(), "OK")->doClick({});
    EXPECT_TRUE(pumpUntil([&] { return mapping() == nullptr && view->isUpToDate(); }));
    EXPECT_FALSE(showsBlue());
}

} // namespace
} // namespace Ostrel::Gallery
