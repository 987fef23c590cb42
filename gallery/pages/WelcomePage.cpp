#include "Page.h"

#include <OstrelLib/Application.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/StaticBitmap.h>

#include <wx/display.h>
#include <wx/toplevel.h>
#include <wx/utils.h>

#include <array>

namespace Ostrel::Gallery {

namespace {

/// What the library is, how to look around, and what this build runs on.
class WelcomePage : public Page {
public:
    explicit WelcomePage(const PageContext& context)
        : Page(
              context, "OstrelLibWx",
              L"Controls and dialogs in one dark look, for the tools of a renderer. Each page at the left is about one "
              L"of them: its states side by side, and live ones that answer to you. The strip at the bottom shows "
              L"every event and callback as the host of a control receives it.") {
        addIcon();
        const auto [left, right] = addColumns();
        addTable(*addSection("Looking around", {}, left, COLUMN_WIDTH),
                 {{L"Click in the list", "Goes to that page"},
                  {L"Up, Down", "Previous page, next page"},
                  {L"Ctrl+Tab, Ctrl+Shift+Tab", "The same, from within any control"},
                  {L"Page Up, Page Down", "Scroll a page that is too high"},
                  {L"--picture FILE", "Opens a picture file on the page \"Picture\""},
                  {L"--screenshots DIR", "Saves every page as a picture"},
                  {L"--only PAGE", "Opens, or saves, that page alone"}});
        addTable(*addSection("This run", {}, right, COLUMN_WIDTH), makeFacts());
        auto* const how = addSection("How a host uses it");
        how->Add(makeText(TextRole::BODY,
                          L"startup() first, then windows and controls like any others of the toolkit, each placed in "
                          L"whichever parent or owned by a native window; runEventLoop(), or the host's own loop with "
                          L"processAllPendingEvents() in it; shutdown() last. This program does just that.",
                          CONTENT_WIDTH));
    }

private:
    struct Row {
        wxString name;
        wxString value;
    };

    void addIcon() {
        auto* const frame = dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(GetParent()));
        wxBitmap icon;
        icon.CopyFromIcon(frame->GetIcons().GetIconByIndex(0));
        if (icon.IsOk()) {
            content().Prepend(new Wx::StaticBitmap(this, wxID_ANY, Wx::scaleByDpi(icon)),
                              wxSizerFlags().Border(wxBOTTOM, Wx::scaleByDpi(2 * GRID)));
        }
    }

    void addTable(wxBoxSizer& section, const Array<Row>& rows) {
        constexpr int NAME_WIDTH = 168;
        auto* const table = new wxFlexGridSizer(2, Wx::scaleByDpi(wxSize(2 * GRID, GRID)));
        for (const Row& row : rows) {
            auto* const name = makeText(TextRole::CAPTION, row.name);
            name->SetMinSize(wxSize(Wx::scaleByDpi(NAME_WIDTH), -1));
            table->Add(name);
            table->Add(makeText(TextRole::BODY, row.value, COLUMN_WIDTH - NAME_WIDTH - 2 * GRID));
        }
        section.Add(table);
    }

    static Array<Row> makeFacts() {
        constexpr int REFERENCE_DPI = 96;
        constexpr int PERCENT = 100;
        const int dpi = wxDisplay(0U).GetPPI().x;
        return {
            {"Library", OSTREL_VERSION},
            {"Toolkit", wxGetLibraryVersionInfo().GetVersionString()},
            {"Port", wxPlatformInfo::Get().GetPortIdName()},
            {"System", wxGetOsDescription()},
            {"Displays", wxString::Format("%u", wxDisplay::GetCount())},
            {"First display", wxString::Format("%d dots per inch, %d %%", dpi, dpi * PERCENT / REFERENCE_DPI)},
            {"100 design pixels", wxString::Format("%d on the screen", Wx::scaleByDpi(PERCENT))},
            {"Text size setting", wxString::Format("%.2f", static_cast<double>(getFontScale()))},
        };
    }
};

const PageRegistration registration = registerPage<WelcomePage>(100, "Welcome");

} // namespace

} // namespace Ostrel::Gallery
