#include "Page.h"

#include "EventLog.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/StaticBitmap.h>
#include <OstrelLibWx/widgets/StaticLine.h>

#include <wx/dcclient.h>

#include <tuple>

namespace Ostrel::Gallery {

namespace {

struct SkinRole {
    RgbBytes Wx::GuiSkin::*colour;
    const char* name;
    const char* role;
};

constexpr SkinRole SKIN_ROLES[] = {
    {&Wx::GuiSkin::text, "text", "Text of every window, and of normal and pressed buttons"},
    {&Wx::GuiSkin::grey, "grey", "Grey of the palette; text of a disabled text field"},
    {&Wx::GuiSkin::background, "background", "Background of every window and of a normal button"},
    {&Wx::GuiSkin::darkGrey, "darkGrey", "Dark grey of the palette"},
    {&Wx::GuiSkin::toggledText, "toggledText", "Text of a toggled button"},
    {&Wx::GuiSkin::toggledBackground, "toggledBackground", "Background of a toggled button"},
    {&Wx::GuiSkin::pressedBackground, "pressedBackground", "Background of a pressed button"},
    {&Wx::GuiSkin::link, "link", "Links, whether the pointer is over them or not"},
};

/// A light look of a host's own.
constexpr Wx::GuiSkin LIGHT_SKIN{.text = {40, 40, 40},
                                 .grey = {140, 140, 140},
                                 .background = {226, 226, 222},
                                 .darkGrey = {120, 120, 120},
                                 .toggledText = {255, 255, 255},
                                 .toggledBackground = {20, 120, 92},
                                 .pressedBackground = {178, 208, 198},
                                 .link = {0, 92, 170}};

/// The eight colours, and what they do.
class SkinPage : public Page {
public:
    explicit SkinPage(const PageContext& context)
        : Page(context, "Skin",
               "GuiSkin holds eight colours. A default one is the library's own dark look; a host may pass another. "
               "applySkinRecursive gives a window and all that is in it the text and the background colour; buttons "
               "keep the skin that they were built with.") {
        addColours();
        addSkins();
    }

private:
    void addColours() {
        constexpr int COLUMNS = 4;
        const wxSize SWATCH{184, 48};
        auto* const grid = new wxFlexGridSizer(COLUMNS, Wx::scaleByDpi(wxSize(3 * GRID, 2 * GRID)));
        const Wx::GuiSkin skin;
        int index = 0;
        for (const SkinRole& role : SKIN_ROLES) {
            const RgbBytes bytes = skin.*role.colour;
            const wxBitmap swatch = paintBitmap(Wx::scaleByDpi(SWATCH), Wx::toWxColour(bytes), [&](wxDC& dc) {
                dc.SetPen(Wx::toWxColour(skin.darkGrey));
                dc.SetBrush(*wxTRANSPARENT_BRUSH);
                dc.DrawRectangle(dc.GetSize());
            });
            auto* const cell = new wxBoxSizer(wxVERTICAL);
            cell->Add(new Wx::StaticBitmap(this, wxID_ANY, swatch));
            cell->AddSpacer(Wx::scaleByDpi(GRID / 2));
            cell->Add(makeText(TextRole::BODY, wxString::Format("%d   %s", index++, role.name)));
            cell->AddSpacer(Wx::scaleByDpi(GRID / 4));
            cell->Add(makeText(TextRole::BODY, wxString::Format("%d, %d, %d", bytes.red, bytes.green, bytes.blue)));
            cell->AddSpacer(Wx::scaleByDpi(GRID / 4));
            cell->Add(makeText(TextRole::CAPTION, role.role, SWATCH.x));
            grid->Add(cell);
        }
        addSection("The eight colours, from 0 to 7")->Add(grid);
    }

    void addSkins() {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        addToRow(*row, makeSample("The library's skin", Wx::GuiSkin()));
        addToRow(*row, makeSample("A host's own skin", LIGHT_SKIN), CONTENT_WIDTH - 2 * COLUMN_WIDTH);
        addSection("The same controls in two skins", "Each panel was given its skin by applySkinRecursive. Click them.")
            ->Add(row);
    }

    wxPanel* makeSample(const wxString& name, const Wx::GuiSkin& skin) {
        constexpr int INSET = 2 * GRID;
        auto* const panel = new wxPanel(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE);
        afterSkin([panel, skin] { Wx::applySkinRecursive(panel, skin); });
        panel->Bind(wxEVT_PAINT, [panel, skin](wxPaintEvent&) {
            wxPaintDC dc(panel);
            dc.SetPen(Wx::toWxColour(skin.darkGrey));
            dc.SetBrush(*wxTRANSPARENT_BRUSH);
            dc.DrawRectangle(panel->GetClientRect());
        });
        auto* const title = new wxStaticText(panel, wxID_ANY, name);
        title->SetFont(makeFont(*title, TextRole::BODY));
        auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
        for (const auto& [label, behavior, toggled] : {std::tuple{"Push", Wx::Button::PUSH, false},
                                                       {"Toggle", Wx::Button::TOGGLE, false},
                                                       {"Toggled", Wx::Button::TOGGLE, true}}) {
            auto* const button = new Wx::Button(panel, skin, wxID_ANY, label, wxNullBitmap, wxNullBitmap, {}, behavior,
                                                true, RawaBorderState::ENABLED);
            button->SetMinSize(wxSize(Wx::scaleByDpi(104), button->GetMinHeight()));
            addToRow(*buttons, button, GRID);
            afterSkin([button, toggled = toggled] { button->setToggled(toggled); });
        }
        panel->Bind(Wx::Button::clickEventType(), [this, name](wxMouseEvent& event) {
            const auto* const button = static_cast<Wx::Button*>(event.GetEventObject());
            log().report(name, "wxEVT_BUTTON of \"" + button->GetLabel() + "\"");
        });
        auto* const column = new wxBoxSizer(wxVERTICAL);
        column->Add(title);
        column->AddSpacer(Wx::scaleByDpi(GRID));
        column->Add(new Wx::StaticLine(panel, wxHORIZONTAL), wxSizerFlags().Expand());
        column->AddSpacer(Wx::scaleByDpi(GRID + GRID / 2));
        column->Add(buttons);
        auto* const inset = new wxBoxSizer(wxVERTICAL);
        inset->Add(column, wxSizerFlags().Expand().Border(wxALL, Wx::scaleByDpi(INSET)));
        panel->SetSizer(inset);
        panel->SetMinSize(wxSize(Wx::scaleByDpi(COLUMN_WIDTH), -1));
        return panel;
    }
};

const PageRegistration registration = registerPage<SkinPage>(200, "Skin");

} // namespace

} // namespace Ostrel::Gallery
