#include <OstrelLibWx/widgets/StaticText.h>
#include <OstrelLibWx/widgets/TextButton.h>
#include <OstrelLibWx/widgets/TextControl.h>

#include "painting/TextPainting.h"
#include "support/WidgetTest.h"

#include <algorithm>
#include <cstdlib>

namespace Ostrel::Wx {
namespace {

constexpr PixelColour BLACK{0, 0, 0};
constexpr PixelColour BACKGROUND{68, 68, 68};
const wxColour RED(200, 0, 0), GREEN(0, 200, 0), BLUE(0, 0, 200);

/// A high surrogate alone, and a character in the middle of a text that ends others.
const wchar_t STRANGE[] = L"a\0b\xD800"
                          L"c";
const String STRANGE_TEXT(std::wstring(STRANGE, std::size(STRANGE) - 1));

/// The colour of the picture that differs most from `ground`: what is written on it. `bounds` becomes the smallest
/// rectangle around all that is not `ground`.
PixelColour inkOf(const wxImage& image, PixelColour ground, wxRect* bounds = nullptr) {
    PixelColour ink = ground;
    int most = 0;
    for (int i = 0; i < image.GetWidth() * image.GetHeight(); ++i) {
        const wxPoint place(i % image.GetWidth(), i / image.GetWidth());
        const auto at = pixelAt(image, place.x, place.y);
        const int difference =
            std::abs(at.red - ground.red) + std::abs(at.green - ground.green) + std::abs(at.blue - ground.blue);
        if (difference > 0 && bounds != nullptr) {
            bounds->Union(wxRect(place, wxSize(1, 1)));
        }
        ink = difference > most ? at : ink;
        most = std::max(most, difference);
    }
    return ink;
}

wxRect inkBounds(const wxImage& image, PixelColour ground) {
    wxRect bounds;
    inkOf(image, ground, &bounds);
    return bounds;
}

/// Letters are smoothed: their darkest and brightest parts come near the colour, no more.
bool isNear(PixelColour found, const wxColour& expected) {
    constexpr int TOLERANCE = 40;
    return std::abs(found.red - expected.Red()) <= TOLERANCE && std::abs(found.green - expected.Green()) <= TOLERANCE &&
           std::abs(found.blue - expected.Blue()) <= TOLERANCE;
}

bool isWrittenIn(wxWindow& window, const wxColour& colour) {
    return WidgetTest::pumpUntil([&] { return isNear(inkOf(WidgetTest::capture(window), BACKGROUND), colour); });
}

TEST(TextPicture, LiesWhereTheStyleSays) {
    const auto paint = [](long alignment) {
        const auto draw = [alignment](wxDC& dc) {
            dc.SetFont(*wxNORMAL_FONT);
            paintLabel(dc, wxSize(200, 80), "HH\nHHHH", alignment, *wxWHITE);
        };
        return inkBounds(paintOffScreen(wxSize(200, 80), draw, *wxBLACK), BLACK);
    };
    EXPECT_LT(paint(0).GetLeft(), 5);
    EXPECT_LT(paint(0).GetTop(), 12);
    EXPECT_GT(paint(wxALIGN_RIGHT).GetRight(), 194);
    EXPECT_GT(paint(wxALIGN_BOTTOM).GetBottom(), 70);
    const wxRect centred = paint(wxALIGN_CENTRE_HORIZONTAL | wxALIGN_CENTRE_VERTICAL | wxST_NO_AUTORESIZE);
    EXPECT_NEAR(centred.GetLeft() + centred.GetRight(), 199, 6);
    EXPECT_NEAR(centred.GetTop() + centred.GetBottom(), 79, 8);
}

TEST(TextPicture, DisabledValueBeginsAtTheIndentAndHidesPasswords) {
    const auto paint = [](const wxString& value, bool hidden) {
        const auto draw = [&](wxDC& dc) {
            dc.SetFont(*wxNORMAL_FONT);
            paintDisabledText(dc, value, hidden, 3, wxColour(110, 110, 110));
        };
        return paintOffScreen(wxSize(120, 30), draw, *wxBLACK);
    };
    const wxImage shown = paint("HHH", false);
    EXPECT_TRUE(isNear(inkOf(shown, BLACK), wxColour(110, 110, 110)));
    EXPECT_GE(inkBounds(shown, BLACK).GetLeft(), 3);
    EXPECT_LE(inkBounds(shown, BLACK).GetLeft(), 6);
    EXPECT_TRUE(inkBounds(paint("", false), BLACK).IsEmpty());
    EXPECT_EQ(inkBounds(paint("WWW", true), BLACK), inkBounds(paint("iii", true), BLACK));
    EXPECT_FALSE(inkBounds(paint("WWW", true), BLACK).IsEmpty());
}

class StaticTextTest : public WidgetTest {
protected:
    StaticText& make(const String& text, unsigned style = 0, wxSize size = wxDefaultSize, Flags<TextFlag> flags = {}) {
        return *new StaticText(&panel(), wxID_ANY, text, style, flags, size);
    }
};

TEST_F(StaticTextTest, WrapsFromTheUnwrappedText) {
    StaticText& text = make(L"one two three four five six\nseven");
    const int narrow = text.GetTextExtent("three four ").x;
    const int wide = text.GetTextExtent("one two three four fiv").x;
    text.Wrap(narrow);
    const wxString narrowly = text.GetLabel();
    EXPECT_GT(narrowly.Freq('\n'), 2);
    for (const wxString& line : wxSplit(narrowly, '\n', '\0')) {
        EXPECT_LE(text.GetTextExtent(line).x, narrow) << line;
    }
    text.Wrap(wide);
    EXPECT_EQ(text.GetLabel(), "one two three four\nfive six\nseven");
    text.Wrap(narrow);
    EXPECT_EQ(text.GetLabel(), narrowly);
    text.Wrap(-1);
    EXPECT_EQ(text.GetLabel(), "one two three four five six\nseven");

    text.SetLabel("another one");
    text.Wrap(text.GetTextExtent("another").x + 2);
    EXPECT_EQ(text.GetLabel(), "another\none");
    text.Wrap(1000);
    EXPECT_EQ(text.GetLabel(), "another one");
}

TEST_F(StaticTextTest, LeavesAWordThatIsTooWideWhole) {
    StaticText& text = make(L"a incomprehensibilities b");
    text.Wrap(text.GetTextExtent("incompre").x);
    EXPECT_EQ(text.GetLabel(), "a\nincomprehensibilities b");
    EXPECT_GE(text.GetSize().x, text.GetTextExtent("incomprehensibilities").x) << "the label is as wide as it";
    text.Wrap(0);
    EXPECT_NE(text.GetLabel().find("incomprehensibilities"), wxString::npos);

    StaticText& empty = make(L"");
    empty.Wrap(10);
    EXPECT_EQ(empty.GetLabel(), "");
}

TEST_F(StaticTextTest, ShowsEveryCharacterAsItStands) {
    StaticText& text = make(L"A&B && C");
    EXPECT_EQ(text.GetLabel(), "A&B && C");
    EXPECT_GE(text.GetSize().x, text.GetTextExtent("A&B && C").x);
    StaticText& strange = make(STRANGE_TEXT);
    strange.Wrap(5);
    strange.Wrap(500);
    EXPECT_EQ(strange.GetLabel(), wxString(STRANGE_TEXT.toWide()));
    strange.SetSize(0, 0);
    showAll();
}

TEST_F(StaticTextTest, HasTheStandardFontAndAScaledSize) {
    StaticText& text = make(L"plain", wxST_NO_AUTORESIZE, wxSize(100, 20));
    EXPECT_EQ(text.GetSize(), scaleByDpi(wxSize(100, 20)));
    EXPECT_EQ(text.GetFont().GetPixelSize().y, scaleByDpi(12));
    StaticText& bold = make(L"bold", 0, wxDefaultSize, TextFlag::BOLD | TextFlag::ITALIC);
    EXPECT_GT(bold.GetFont().GetNumericWeight(), wxFONTWEIGHT_NORMAL);
    EXPECT_EQ(bold.GetFont().GetStyle(), wxFONTSTYLE_ITALIC);
}

TEST_F(StaticTextTest, IsOnTheScreenInItsColourAndGreyWhileDisabled) {
    const unsigned style = wxST_NO_AUTORESIZE | wxALIGN_RIGHT | wxALIGN_CENTRE_VERTICAL;
    StaticText& text = make(L"HHHHHH", style, wxSize(200, 60), TextFlag::BOLD);
    applySkinRecursive(&panel(), GuiSkin());
    text.SetForegroundColour(GREEN);
    showAll();
    EXPECT_TRUE(isWrittenIn(text, GREEN));
    const wxImage shown = capture(text);
    EXPECT_EQ(pixelAt(shown, 0, 0), BACKGROUND);
    const wxRect ink = inkBounds(shown, BACKGROUND);
    EXPECT_GT(ink.GetRight(), shown.GetWidth() - 5);
    EXPECT_NEAR(ink.GetTop() + ink.GetBottom(), shown.GetHeight(), 8);

    text.Disable();
    showAll();
    EXPECT_TRUE(isWrittenIn(text, wxColour(110, 110, 110)));

    text.Enable();
    int height = ink.height;
    for (const wxFont& font : {wxFont(wxFontInfo(18)), wxFont(wxFontInfo(18).Underlined()), wxFont(wxFontInfo(26))}) {
        EXPECT_TRUE(text.SetFont(font));
        showAll();
        EXPECT_TRUE(pumpUntil([&] { return inkBounds(capture(text), BACKGROUND).height > height; }));
        height = inkBounds(capture(text), BACKGROUND).height;
    }
    EXPECT_FALSE(text.SetFont(text.GetFont()));
    text.SetFont(wxFont(wxFontInfo(18)));
    EXPECT_TRUE(pumpUntil([&] { return inkBounds(capture(text), BACKGROUND).height < height; }));
    EXPECT_TRUE(isWrittenIn(text, GREEN));
    text.SetForegroundColour(wxNullColour);
    showAll();
    EXPECT_TRUE(pumpUntil([&] { return !isNear(inkOf(capture(text), BACKGROUND), GREEN); })) << "the toolkit's own";
}

TEST_F(StaticTextTest, HasATooltipThatComesAndGoes) {
    StaticText& text = make(L"with a tooltip", wxST_NO_AUTORESIZE, wxSize(120, 40));
    text.setTooltip(L"tip");
    text.getTooltip()->setDelay(1);
    showAll();
    movePointer(text, middle(text));
    EXPECT_TRUE(pumpUntil([&] { return text.getTooltip()->IsShown(); }));
    movePointer(panel(), wxPoint(500, 400));
    EXPECT_TRUE(pumpUntil([&] { return !text.getTooltip()->IsShown(); })) << "the mouse left";
}

TEST_F(StaticTextTest, TellsOfTheMouseWhoBindsToItOnceItIsShown) {
    auto* const label = new StaticText(&panel(), wxID_ANY, "A label", 0, {}, wxDefaultSize);
    label->Move(20, 20);
    showAll();
    std::string heard;
    label->Bind(wxEVT_ENTER_WINDOW, [&heard](wxMouseEvent&) { heard += 'e'; });
    label->Bind(wxEVT_LEAVE_WINDOW, [&heard](wxMouseEvent&) { heard += 'l'; });
    movePointer(*label, middle(*label));
    EXPECT_TRUE(pumpUntil([&heard] { return heard == "e"; })) << heard;
    movePointer(panel(), wxPoint(5, 5));
    EXPECT_TRUE(pumpUntil([&heard] { return heard == "el"; })) << heard;
}

class TextControlTest : public WidgetTest {
protected:
    TextControl& make(const String& text, unsigned style = 0, wxSize size = wxSize(160, 24)) {
        return *new TextControl(&panel(), wxID_ANY, text, style, {}, size);
    }

    /// Without the border.
    static wxImage inside(TextControl& text) {
        const wxImage all = capture(text);
        return all.GetSubImage(wxRect(all.GetSize()).Deflate(4));
    }
};

TEST_F(TextControlTest, ShowsItsValueInTheSkinsGreyWhileDisabled) {
    TextControl& text = make(L"HHHHH");
    EXPECT_EQ(text.getSkin(), GuiSkin());
    GuiSkin skin;
    skin.grey = {20, 150, 20};
    for (const GuiSkin& applied : {GuiSkin(), skin}) {
        text.applySkin(applied);
        text.Enable();
        showAll();
        EXPECT_TRUE(pumpUntil([&] { return inkOf(inside(text), BACKGROUND).red > 150; }));
        text.Disable();
        showAll();
        EXPECT_TRUE(pumpUntil([&] { return isNear(inkOf(inside(text), BACKGROUND), toWxColour(applied.grey)); }));
        EXPECT_EQ(pixelAt(inside(text), inside(text).GetWidth() - 1, 1), BACKGROUND);
    }
    text.SetValue("");
    showAll();
    EXPECT_TRUE(pumpUntil([&] { return inkBounds(inside(text), BACKGROUND).IsEmpty(); }));
}

TEST_F(TextControlTest, IsPassedByTabWhenItCannotBeEdited) {
    TextControl& first = make(L"first");
    TextControl& readOnly = make(L"read-only", wxTE_READONLY);
    TextControl& report = make(L"report", wxTE_READONLY | wxTE_MULTILINE, wxSize(160, 60));
    TextControl& last = make(L"last");
    auto* const column = new wxBoxSizer(wxVERTICAL);
    for (TextControl* const text : {&first, &readOnly, &report, &last}) {
        column->Add(text);
    }
    panel().SetSizer(column);
    showAll();
    EXPECT_TRUE(first.AcceptsFocusFromKeyboard());
    EXPECT_FALSE(readOnly.AcceptsFocusFromKeyboard());
    giveFocus(first);
    pressKey(WXK_TAB);
    EXPECT_TRUE(hasFocus(last));
    click(readOnly, middle(readOnly));
    EXPECT_TRUE(hasFocus(readOnly)) << "a click is no Tab";
}

TEST_F(TextControlTest, TakesStrangeTextAndAnySize) {
    for (const unsigned style : {0u, static_cast<unsigned>(wxTE_MULTILINE), static_cast<unsigned>(wxTE_PASSWORD),
                                 static_cast<unsigned>(wxBORDER_NONE)}) {
        TextControl& text = make(STRANGE_TEXT, style, wxSize(0, 0));
        TextControl& small = make(L"", style, wxSize(1, 1));
        EXPECT_TRUE(text.GetValue().StartsWith("a"));
        text.Disable();
        small.Disable();
        showAll();
    }
    EXPECT_EQ(make(L"x", wxBORDER_NONE, wxSize(80, 14)).GetSize(), scaleByDpi(wxSize(80, 14)));
}

class TextButtonTest : public WidgetTest {
protected:
    /// A link in its own three colours; `clicks` counts.
    TextButton& make() {
        link = new TextButton(
            &panel(), wxID_ANY, L"HHHHHHHH",
            [this] {
                ++clicks;
                if (onClick) {
                    onClick();
                }
            },
            wxPoint(30, 20), wxDefaultSize);
        link->setNormalColour(RED);
        link->setHoverColour(GREEN);
        link->setVisitedColour(BLUE);
        showAll();
        return *link;
    }

    void hover() {
        movePointer(*link, middle(*link));
        EXPECT_TRUE(pumpUntil([this] { return link->GetForegroundColour() == GREEN; })) << "the mouse was not noticed";
    }
    void leave(const wxColour& expected) {
        movePointer(panel(), wxPoint(400, 300));
        EXPECT_TRUE(pumpUntil([&] { return link->GetForegroundColour() == expected; })) << "the mouse did not leave";
    }

    wxWeakRef<TextButton> link;
    int clicks = 0;
    std::function<void()> onClick;
};

TEST_F(TextButtonTest, ShowsTheColourWhoseTurnItIs) {
    make();
    EXPECT_EQ(link->GetPosition(), wxPoint(30, 20));
    EXPECT_EQ(link->GetForegroundColour(), RED);
    link->setHoverColour(GREEN);
    link->setVisitedColour(BLUE);
    EXPECT_EQ(link->GetForegroundColour(), RED);
    link->setVisited(true);
    EXPECT_EQ(link->GetForegroundColour(), BLUE);
    link->setNormalColour(RED);
    EXPECT_EQ(link->GetForegroundColour(), BLUE);

    hover();
    link->setVisited(false);
    link->setNormalColour(*wxWHITE);
    EXPECT_EQ(link->GetForegroundColour(), GREEN);
    link->setHoverColour(*wxYELLOW);
    EXPECT_EQ(link->GetForegroundColour(), *wxYELLOW);
    leave(*wxWHITE);

    applySkinRecursive(&panel(), GuiSkin());
    EXPECT_EQ(link->GetForegroundColour(), toWxColour(GuiSkin().link));
    link->setVisited(true);
    applySkinRecursive(&panel(), GuiSkin());
    EXPECT_EQ(link->GetForegroundColour(), BLUE) << "visited, also in a new skin";
}

TEST_F(TextButtonTest, IsSeenInItsColours) {
    make();
    applySkinRecursive(&panel(), GuiSkin());
    link->SetFont(link->GetFont().Bold());
    link->setHoverColour(GREEN);
    showAll();
    EXPECT_TRUE(isWrittenIn(*link, toWxColour(GuiSkin().link)));
    hover();
    EXPECT_TRUE(isWrittenIn(*link, GREEN));
    link->Disable();
    movePointer(panel(), wxPoint(400, 300));
    showAll();
    EXPECT_TRUE(isWrittenIn(*link, wxColour(110, 110, 110)));
    link->Enable();
    hover();
}

TEST_F(TextButtonTest, CallsBackOnEachClick) {
    make();
    click(*link, middle(*link));
    EXPECT_TRUE(pumpUntil([this] { return clicks == 1; }));
    EXPECT_FALSE(link->isVisited());
    click(*link, middle(*link), wxMOUSE_BTN_RIGHT);
    link->Disable();
    click(*link, middle(*link));
    settle();
    EXPECT_EQ(clicks, 1);
    link->Enable();
    link->setClickCallback({});
    click(*link, middle(*link));
    settle();
    EXPECT_EQ(clicks, 1);
    link->setClickCallback([this] { clicks = 10; });
    click(*link, middle(*link));
    EXPECT_TRUE(pumpUntil([this] { return clicks == 10; }));
}

TEST_F(TextButtonTest, IsReachedAndWorkedFromTheKeyboard) {
    auto* const field = new TextControl(&panel(), wxID_ANY, L"", 0, {}, wxSize(80, 24));
    field->Move(30, 100);
    make();
    giveFocus(*field);
    pressKey(WXK_TAB);
    ASSERT_TRUE(hasFocus(*link));
    int expected = 0;
    for (const int key : {WXK_RETURN, WXK_SPACE}) {
        pressKey(key);
        ++expected;
        EXPECT_TRUE(pumpUntil([&] { return clicks == expected; })) << key;
    }
    pressKey('X');
    settle();
    EXPECT_EQ(clicks, expected);
    pressKey(WXK_TAB);
    EXPECT_TRUE(hasFocus(*field)) << "Tab goes on";
    moveFocus(field, MoveFocusDirection::FORWARD);
    EXPECT_TRUE(hasFocus(*link));
}

TEST_F(TextButtonTest, MayBeDestroyedByItsCallback) {
    for (const bool byKey : {false, true}) {
        make();
        onClick = [this] { link->Destroy(); };
        if (byKey) {
            giveFocus(*link);
            pressKey(WXK_RETURN);
        } else {
            click(*link, middle(*link));
        }
        EXPECT_TRUE(pumpUntil([this] { return !link; })) << byKey;
        settle();
    }
    EXPECT_EQ(clicks, 2);
}

TEST_F(TextButtonTest, TakesStrangeTextAndAnySize) {
    auto* const strange = new TextButton(&panel(), wxID_ANY, STRANGE_TEXT, {}, wxPoint(3, 3), wxSize(0, 0));
    showAll();
    click(*strange, wxPoint(0, 0));
    settle();
    EXPECT_EQ(strange->GetLabel(), wxString(STRANGE_TEXT.toWide()));
}

} // namespace
} // namespace Ostrel::Wx
