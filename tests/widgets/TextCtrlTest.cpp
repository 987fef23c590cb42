#include <OstrelLibWx/widgets/TextCtrl.h>

#include "support/WidgetTest.h"

#include <utility>

namespace Ostrel::Wx {
namespace {

using Range = std::pair<long, long>;

class TextCtrlTest : public WidgetTest {
protected:
    TextCtrl& make(const wxString& value, long style = wxTE_MULTILINE | wxTE_DONTWRAP, wxSize size = wxSize(260, 120)) {
        text = new TextCtrl(&panel(), wxID_ANY, value, wxPoint(100, 100), scaleByDpi(size), style);
        showAll();
        return *text;
    }

    static wxString manyLines(int count) {
        wxString lines;
        for (int i = 0; i < count; ++i) {
            lines += wxString::Format(i == 0 ? "line %d" : "\nline %d", i);
        }
        return lines;
    }

    [[nodiscard]] Range selection() const {
        long from = 0;
        long to = 0;
        text->GetSelection(&from, &to);
        return {from, to};
    }
    bool selects(Range expected) {
        const bool reached = pumpUntil([&] { return selection() == expected; });
        EXPECT_EQ(selection(), expected);
        return reached;
    }

    /// A place on the left half of the character, in the middle of its line.
    [[nodiscard]] wxPoint at(long line, long column = 0) const {
        return text->PositionToCoords(text->XYToPosition(column, line)) + wxPoint(1, text->GetCharHeight() / 2);
    }
    [[nodiscard]] long position(long line, long column = 0) const { return text->XYToPosition(column, line); }

    /// The first line that is seen.
    [[nodiscard]] long topLine() const {
        long column = 0;
        long row = 0;
        long first = 0;
        EXPECT_NE(text->HitTest(wxPoint(3, text->GetCharHeight() / 2), &first), wxTE_HT_UNKNOWN);
        EXPECT_TRUE(text->PositionToXY(first, &column, &row));
        return row;
    }
    /// Whether the line is inside the control's height.
    [[nodiscard]] bool shows(long line) const {
        const int y = at(line).y;
        return y >= 0 && y < text->GetClientSize().y;
    }

    /// Scrolls to the top and then down by so many steps; waits until `reached`, and until all is at rest.
    void scrollTo(int steps, const std::function<bool()>& reached) {
        constexpr int MANY = 10'000;
        EXPECT_TRUE(pumpUntil([&] {
            text->ScrollLines(-MANY);
            text->ScrollLines(steps);
            return reached();
        }));
        int before = 0;
        EXPECT_TRUE(pumpUntil([this, &before] {
            const int last = std::exchange(before, at(0).y);
            settle();
            return last == at(0).y;
        }));
    }

    void startDrag(long line, long column) {
        pressOn(*text, at(line, column));
        EXPECT_TRUE(text->HasFocus());
        EXPECT_TRUE(selects({position(line, column), position(line, column)}));
    }

    wxWeakRef<TextCtrl> text;
};

using TextDragSelection = TextCtrlTest;
using TextDoubleClick = TextCtrlTest;
using TextAppending = TextCtrlTest;
using TextKeys = TextCtrlTest;

TEST_F(TextCtrlTest, IsNeverRich) {
    make("x", wxTE_MULTILINE | wxTE_RICH2 | wxTE_RICH | wxTE_AUTO_URL | wxTE_READONLY);
    EXPECT_FALSE(text->HasFlag(wxTE_RICH) || text->HasFlag(wxTE_RICH2));
    EXPECT_TRUE(text->HasFlag(wxTE_READONLY) && text->IsMultiLine());
    EXPECT_EQ(text->GetPosition(), wxPoint(100, 100));
    EXPECT_EQ(text->GetSize(), scaleByDpi(wxSize(260, 120))) << "as it stands, in pixels of the screen";
}

TEST_F(TextDragSelection, IsClampedAtEachEdge) {
    make("alpha bravo\ncharlie delta\necho foxtrot\ngolf hotel");
    startDrag(1, 4);
    const long anchor = position(1, 4);
    movePointer(*text, at(2, 3));
    EXPECT_TRUE(selects({anchor, position(2, 3)}));
    movePointer(*text, at(0, 2));
    EXPECT_TRUE(selects({position(0, 2), anchor})) << "backwards";

    const wxSize size = text->GetSize();
    movePointer(*text, wxPoint(-30, at(1).y));
    EXPECT_TRUE(selects({position(1), anchor})) << "left";
    movePointer(*text, wxPoint(size.x + 30, at(1).y));
    EXPECT_TRUE(selects({anchor, position(1, 13)})) << "right";
    movePointer(*text, wxPoint(at(0, 2).x, -30));
    EXPECT_TRUE(selects({position(0, 2), anchor})) << "above";
    movePointer(*text, wxPoint(-20, -30));
    EXPECT_TRUE(selects({0, anchor})) << "above and left";
    movePointer(*text, wxPoint(at(3, 2).x, size.y + 30));
    EXPECT_TRUE(selects({anchor, position(3, 2)})) << "below";
    movePointer(*text, wxPoint(size.x + 30, size.y + 30));
    EXPECT_TRUE(selects({anchor, text->GetLastPosition()})) << "below and right";

    releaseButton();
    EXPECT_TRUE(pumpUntil([this] { return !text->HasCapture(); }));
    movePointer(*text, at(0, 1));
    settle();
    EXPECT_EQ(selection(), Range(anchor, text->GetLastPosition())) << "the drag is over";
}

TEST_F(TextDragSelection, BeginsWithWhatIsSeenOfAScrolledText) {
    make(manyLines(100));
    text->ShowPosition(text->GetLastPosition());
    EXPECT_TRUE(pumpUntil([this] { return topLine() > 80; }));
    settle();
    pressOn(*text, middle(*text));
    movePointer(*text, wxPoint(-20, -30));
    EXPECT_TRUE(pumpUntil([this] {
        const auto [from, to] = selection();
        return from > 0 && to > from && text->GetRange(from - 1, from) == "\n";
    })) << selection().first;
    releaseButton();
}

TEST_F(TextDragSelection, WorksInASingleLine) {
    make(L"\u00c4\u00d6\u00dc\u6708\u6708\u00dc", 0, wxSize(300, 60));
    text->SetFont(text->GetFont().Scaled(3));
    showAll();
    // A field's margin is some pixels wide; a third of a letter is wider.
    const auto x = [this](const wchar_t* before) { return text->GetTextExtent(before).x + scaleByDpi(6); };
    const int y = middle(*text).y;
    pressOn(*text, wxPoint(x(L"\u00c4\u00d6"), y));
    EXPECT_TRUE(selects({2, 2})) << "in characters, whatever their bytes";
    movePointer(*text, wxPoint(x(L"\u00c4\u00d6\u00dc\u6708"), y));
    EXPECT_TRUE(selects({2, 4}));
    movePointer(*text, wxPoint(text->GetSize().x + 40, -40));
    EXPECT_TRUE(selects({2, 6})) << "right, and far above";
    movePointer(*text, wxPoint(-40, text->GetSize().y + 30));
    EXPECT_TRUE(selects({0, 2})) << "left, and far below";
    releaseButton();
    EXPECT_TRUE(pumpUntil([this] { return !text->HasCapture(); }));
}

TEST_F(TextDragSelection, OutlivesTheCaptureUntilTheMouseComesBackReleased) {
    make("alpha bravo\ncharlie delta");
    startDrag(0, 2);
    loseCapture(*text);
    EXPECT_FALSE(text->HasCapture());
    movePointer(*text, at(0, 6));
    EXPECT_TRUE(selects({2, 6})) << "the button is still down";
    movePointer(panel(), wxPoint(500, 400));
    releaseButton();
    // The end of the press was not told to the control: another window took it.
    wxMouseEvent enter(wxEVT_ENTER_WINDOW);
    text->ProcessWindowEvent(enter);
    const Range before = selection();
    movePointer(*text, at(1, 3));
    settle();
    EXPECT_EQ(selection(), before);
}

TEST_F(TextDragSelection, EndsWithTheControl) {
    make("alpha bravo");
    startDrag(0, 4);
    text->Destroy();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
    releaseButton();
    EXPECT_FALSE(text);
}

TEST_F(TextDragSelection, NeedsNeitherTextNorArea) {
    const wxString surrogates(std::wstring(L"a\0\xD800"
                                           L"b",
                                           4));
    for (const wxString& value : {wxString(), surrogates}) {
        for (const wxSize size : {wxSize(0, 0), wxSize(1, 1), wxSize(120, 60)}) {
            for (const long style : {0L, static_cast<long>(wxTE_MULTILINE)}) {
                make(value, style, size);
                for (const wxEventType type : {wxEVT_LEFT_DOWN, wxEVT_MOTION, wxEVT_LEFT_DCLICK, wxEVT_LEFT_UP}) {
                    wxMouseEvent event(type);
                    event.SetPosition(wxPoint(5, 5));
                    text->ProcessWindowEvent(event);
                }
                text->AppendText(surrogates);
                EXPECT_LE(selection().second, text->GetLastPosition());
                EXPECT_FALSE(text->HasCapture());
                text->Destroy();
            }
        }
    }
}

TEST_F(TextDoubleClick, SelectsTheWholeLine) {
    make("alpha bravo\n\ncharlie delta\necho foxtrot");
    const auto doubleClick = [this](wxPoint point) {
        movePointer(*text, point);
        input().MouseDblClick();
        pump();
    };
    doubleClick(at(0, 8));
    EXPECT_TRUE(selects({0, position(1) - 1})) << "first";
    doubleClick(at(2, 3));
    EXPECT_TRUE(selects({position(2), position(3) - 1})) << "middle";
    doubleClick(at(1));
    EXPECT_TRUE(selects({position(1), position(2) - 1})) << "empty";
    doubleClick(at(3, 3));
    EXPECT_TRUE(selects({position(3), text->GetLastPosition()})) << "last";
    EXPECT_TRUE(pumpUntil([this] { return !text->HasCapture(); }));
}

TEST_F(TextDoubleClick, SelectsARowOfAWrappedParagraph) {
    wxString paragraph;
    for (int i = 0; i < 30; ++i) {
        paragraph += "alpha bravo ";
    }
    make(paragraph, wxTE_MULTILINE);
    movePointer(*text, at(0, 2) + wxPoint(0, text->GetCharHeight()));
    input().MouseDblClick();
    EXPECT_TRUE(pumpUntil([this] { return selection().first > 0; }));
    const wxString row = text->GetRange(selection().first, selection().second);
    EXPECT_FALSE(row.empty());
    EXPECT_LT(text->GetTextExtent(row).x, text->GetClientSize().x);
    EXPECT_LT(selection().second, text->GetLastPosition());
}

TEST_F(TextAppending, FollowsAnUntouchedCaret) {
    make(manyLines(3));
    for (int i = 0; i < 30; ++i) {
        text->AppendText("\nmore");
    }
    EXPECT_EQ(selection(), Range(text->GetLastPosition(), text->GetLastPosition()));
    EXPECT_TRUE(pumpUntil([this] { return shows(32); })) << "without the focus";

    text->SetInsertionPoint(2);
    text->AppendText("\nmore\nmore\nlast");
    EXPECT_EQ(selection().first, text->GetLastPosition());
    EXPECT_TRUE(pumpUntil([this] { return shows(35); })) << "a caret alone counts as untouched";

    giveFocus(*text);
    text->SetInsertionPointEnd();
    text->AppendText("\nmore\nlast");
    EXPECT_EQ(selection().first, text->GetLastPosition());
    EXPECT_TRUE(pumpUntil([this] { return shows(37); })) << "with the focus, at the end";
    text->AppendText("");
    EXPECT_EQ(selection().first, text->GetLastPosition());
}

TEST_F(TextAppending, LeavesACaretSelectionAndViewThatWereSetElsewhere) {
    struct Case {
        const char* name;
        bool focus;
        Range selection;
        int steps; ///< that the view is scrolled down
    };
    constexpr int END = 5000;
    for (const auto& c :
         {Case{"caret elsewhere", true, {3, 3}, 0}, Case{"selection", false, {2, 5}, 0},
          Case{"selection out of sight", true, {2, 5}, 20}, Case{"selection, at the end", true, {2, 5}, END}}) {
        SCOPED_TRACE(c.name);
        make(manyLines(60));
        if (c.focus) {
            giveFocus(*text);
        } else {
            frame().SetFocus();
            pump();
        }
        text->SetSelection(c.selection.first, c.selection.second);
        scrollTo(c.steps, [this, &c] { return shows(0) == (c.steps == 0) && shows(59) == (c.steps == END); });
        const long top = topLine();
        for (int i = 0; i < 3; ++i) {
            text->AppendText("\nmore\nmore\nmore");
            settle();
            EXPECT_EQ(topLine(), top);
        }
        EXPECT_EQ(selection(), c.selection);
        EXPECT_EQ(text->GetNumberOfLines(), 69);
        text->Destroy();
    }
}

TEST_F(TextKeys, AreConsumedButForSelectAll) {
    make("alpha bravo\ncharlie");
    int chars = 0;
    text->Bind(wxEVT_CHAR, [&chars](wxKeyEvent& event) {
        ++chars;
        event.Skip();
    });
    giveFocus(*text);
    text->SetSelection(2, 4);
    const auto press = [this](int key, int modifiers = wxMOD_NONE) {
        pressKey(key, modifiers);
        settle();
    };
    for (const int key : {static_cast<int>('X'), static_cast<int>(WXK_LEFT), static_cast<int>(WXK_END),
                          static_cast<int>(WXK_DELETE), static_cast<int>(WXK_BACK), static_cast<int>(WXK_RETURN)}) {
        press(key);
    }
    press('X', wxMOD_CONTROL);
    press('V', wxMOD_CONTROL);
    press('A');
    EXPECT_EQ(text->GetValue(), "alpha bravo\ncharlie");
    EXPECT_EQ(selection(), Range(2, 4));
    EXPECT_EQ(chars, 0);
    pressKey('A', wxMOD_CONTROL);
    EXPECT_TRUE(selects({0, text->GetLastPosition()}));
}

TEST_F(TextKeys, TabGoesOn) {
    make("alpha");
    auto* const other = new wxTextCtrl(&panel(), wxID_ANY, "other", wxPoint(10, 10));
    showAll();
    giveFocus(*text);
    pressKey(WXK_TAB);
    EXPECT_TRUE(hasFocus(*other));
    EXPECT_EQ(text->GetValue(), "alpha");
}

TEST_F(TextCtrlTest, PaintsAllOfItself) {
    make("alpha\nbravo", wxTE_MULTILINE | wxTE_READONLY | wxBORDER_NONE, wxSize(200, 100));
    text->SetBackgroundColour(wxColour(40, 60, 80));
    showAll();
    const PixelColour ground{40, 60, 80};
    const auto filled = [this, ground] {
        const wxImage shown = capture(*text);
        return pixelAt(shown, 150, 5) == ground && pixelAt(shown, 150, 90) == ground && pixelAt(shown, 5, 90) == ground;
    };
    EXPECT_TRUE(pumpUntil(filled)) << "beside and below the text";
    text->SetValue("a");
    EXPECT_TRUE(pumpUntil(filled)) << "after a change";
}

} // namespace
} // namespace Ostrel::Wx
