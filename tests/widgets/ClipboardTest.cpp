#include "support/WidgetTest.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>

#include <OstrelLibWx/BitmapUtils.h>

#include "widgets/ClipboardPicture.h"

namespace {

using namespace Ostrel;
using Wx::SetClipboardData;

class Clipboard : public WidgetTest {
protected:
    void TearDown() override {
        const wxClipboardLocker opened;
        wxTheClipboard->Clear();
        WidgetTest::TearDown();
    }

    /// What the toolkit takes from the clipboard; nothing if there is no text.
    static wxString takeText() {
        wxTextDataObject text;
        const wxClipboardLocker opened;
        return wxTheClipboard->GetData(text) ? text.GetText() : wxString();
    }
};

TEST_F(Clipboard, BringsTextsOfAllKinds) {
    for (const wchar_t* const text : {L"plain", L"two\nlines", L"caf\u00E9 \u2192 \u4F60\u597D"}) {
        ASSERT_TRUE(Wx::setClipboardData(String(text)));
        wxString taken = takeText();
        taken.Replace("\r\n", "\n");
        EXPECT_EQ(taken, wxString(text));
        EXPECT_FALSE(takePictureFromClipboard().IsOk());
    }
}

TEST_F(Clipboard, BringsPicturesWithTheirFirstRowLowest) {
    for (const int width : {1, 2, 3, 5, 257}) {
        BitmapImpl<Rgb> image(width, 3);
        for (int y = 0; y < 3; ++y) {
            for (int x = 0; x < width; ++x) {
                const auto level = [](int value) { return static_cast<float>(value % 256) / 255.0F; };
                image(x, y) = {level(x), level(y * 40 + 3), level(200 - x % 200), 0.25F};
            }
        }
        ASSERT_TRUE(Wx::setClipboardData(image));
        const wxImage taken = takePictureFromClipboard();
        ASSERT_TRUE(taken.IsOk()) << width;
        ASSERT_EQ(taken.GetSize(), wxSize(width, 3));
        EXPECT_FALSE(taken.HasAlpha());
        for (int y = 0; y < 3; ++y) {
            for (int x = 0; x < width; ++x) {
                ASSERT_EQ(pixelAt(taken, x, 2 - y), (PixelColour{x % 256, y * 40 + 3, 200 - x % 200})) << x << ' ' << y;
            }
        }
        EXPECT_TRUE(takeText().empty());
    }
}

TEST_F(Clipboard, SpoilsGreyWhenAskedAndKeepsWhatItHasForAnEmptyPicture) {
    const BitmapImpl<Rgb> grey(1, 1, {0.5F, 0.5F, 0.5F});
    ASSERT_TRUE(Wx::setClipboardData(grey));
    EXPECT_EQ(pixelAt(takePictureFromClipboard(), 0, 0), (PixelColour{128, 128, 128}));
    ASSERT_TRUE(Wx::setClipboardData(grey, Flags<SetClipboardData>::fromValue(2)));
    EXPECT_EQ(pixelAt(takePictureFromClipboard(), 0, 0), (PixelColour{128, 128, 127}));
    EXPECT_FALSE(Wx::setClipboardData(BitmapImpl<Rgb>(), SetClipboardData::NOT_QUITE_GREY));
    EXPECT_EQ(pixelAt(takePictureFromClipboard(), 0, 0), (PixelColour{128, 128, 127}));
    ASSERT_TRUE(Wx::setClipboardData(String("instead")));
    EXPECT_FALSE(takePictureFromClipboard().IsOk());
}

} // namespace
