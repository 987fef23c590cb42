#include "Page.h"

#include "EventLog.h"
#include "Pose.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/StaticText.h>
#include <OstrelLibWx/widgets/TextButton.h>
#include <OstrelLibWx/widgets/TextControl.h>
#include <OstrelLibWx/widgets/TextCtrl.h>

namespace Ostrel::Gallery {

namespace {

const wxColour HOVER_COLOUR(160, 214, 255);
const wxColour VISITED_COLOUR(176, 150, 230);

constexpr const char* PARAGRAPH =
    "The renderer traces every ray from the camera until it is absorbed or leaves the scene.\n"
    "A line feed in the text begins a line of its own.";

/// A field in its four states.
struct FieldLook {
    const char* caption;
    const char* value;
    unsigned style;
    bool enabled;
};

constexpr FieldLook FIELD_LOOKS[] = {
    {"Editable", "night-scene.exr", 0, true},
    {"Read-only", "1920 x 1080", wxTE_READONLY, true},
    {"Password", "correct horse", wxTE_PASSWORD, true},
    {"Disabled", "night-scene.exr", 0, false},
    {"Disabled password", "correct horse", wxTE_PASSWORD, false},
};

class TextPage : public Page {
public:
    explicit TextPage(const PageContext& context)
        : Page(
              context, "Text",
              "StaticText is a label that can be wrapped anew. TextControl is a skinned text field, TextCtrl a text to "
              "be read and selected, TextButton a link.") {
        addLabels();
        addFields();
        const auto [left, right] = addColumns();
        addLog(left);
        addLinks(right);
    }

    void arrangeForPicture() override {
        for (int i = 0; i < 12; ++i) {
            append();
        }
    }

private:
    void addLabels() {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        auto* const styles = new wxBoxSizer(wxVERTICAL);
        for (const auto& [text, flags] :
             {std::pair<const char*, Flags<Wx::TextFlag>>{"Plain, with an & as it stands", {}},
              {"Bold", Wx::TextFlag::BOLD},
              {"Italic", Wx::TextFlag::ITALIC},
              {"Bold and italic", Wx::TextFlag::BOLD | Wx::TextFlag::ITALIC}}) {
            styles->Add(new Wx::StaticText(this, wxID_ANY, text, 0, flags, wxDefaultSize));
            styles->AddSpacer(Wx::scaleByDpi(GRID / 2));
        }
        auto* const disabled = new Wx::StaticText(this, wxID_ANY, "Disabled", 0, {}, wxDefaultSize);
        disabled->Disable();
        styles->Add(disabled);
        row->Add(styles);
        for (const int width : {200, 312}) {
            auto* const text = new Wx::StaticText(this, wxID_ANY, PARAGRAPH, 0, {}, wxDefaultSize);
            text->setTooltip("Labels have tooltips.");
            text->Wrap(Wx::scaleByDpi(width));
            row->AddSpacer(Wx::scaleByDpi(4 * GRID));
            row->Add(captioned(text, wxString::Format("The same text, wrapped at %d pixels", width)));
        }
        addSection("StaticText")->Add(row);
    }

    void addFields() {
        constexpr int WIDTH = 152;
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        for (const FieldLook& look : FIELD_LOOKS) {
            if (!row->IsEmpty()) {
                row->AddSpacer(Wx::scaleByDpi(2 * GRID));
            }
            auto* const field =
                new Wx::TextControl(this, wxID_ANY, look.value, look.style, {}, wxSize(WIDTH, wxDefaultCoord));
            field->Enable(look.enabled);
            field->setTooltip(look.caption);
            field->Bind(wxEVT_TEXT, [this, field](wxCommandEvent&) {
                log().report("TextControl", "wxEVT_TEXT: \"" + field->GetValue() + "\"");
            });
            afterSkin([field] { field->applySkin({}); });
            row->Add(captioned(field, look.caption, WIDTH));
        }
        addSection("TextControl", "Tab passes the read-only field by; a click does not.")->Add(row);
    }

    void addLog(wxBoxSizer* column) {
        constexpr int HEIGHT = 112;
        auto* const section = addSection(
            "TextCtrl",
            "Drag to select, double-click for a line, Ctrl+A for all; other keys do nothing. Appending scrolls to the "
            "end unless you have put the caret elsewhere.",
            column, COLUMN_WIDTH);
        _text = new Wx::TextCtrl(this, wxID_ANY, "Render started", wxDefaultPosition,
                                 Wx::scaleByDpi(wxSize(COLUMN_WIDTH, HEIGHT)), wxTE_MULTILINE | wxTE_READONLY);
        _text->SetFont(Wx::setupStaticTextFont(_text->GetFont(), {}));
        section->Add(_text);
        section->AddSpacer(Wx::scaleByDpi(GRID));
        section->Add(makeButton("Append", [this] {
            append();
            log().report("TextCtrl", wxString::Format("%ld lines", static_cast<long>(_text->GetNumberOfLines())));
        }));
    }

    void append() {
        ++_tile;
        _text->AppendText(
            wxString::Format("\nTile %d of 64: %d rays, %.1f s", _tile, 91000 + 417 * _tile, 0.4 + 0.1 * (_tile % 7)));
    }

    void addLinks(wxBoxSizer* column) {
        auto* const section = addSection("TextButton",
                                         "A click, or Enter or Space with the focus. The first marks itself as visited "
                                         "when it is clicked; the others are shown in a state.",
                                         column, COLUMN_WIDTH);
        auto* const table = new wxFlexGridSizer(2, Wx::scaleByDpi(wxSize(3 * GRID, GRID)));
        const auto add = [this, table](const char* caption, const char* text) {
            auto* const link =
                new Wx::TextButton(this, wxID_ANY, text, Function<void()>(), wxDefaultPosition, wxDefaultSize);
            link->setVisitedColour(VISITED_COLOUR);
            afterSkin([link] { link->setHoverColour(HOVER_COLOUR); });
            table->Add(makeText(TextRole::CAPTION, caption));
            table->Add(link);
            return link;
        };
        auto* const live = add("Live", "Show the render statistics");
        live->setClickCallback([this, live] {
            live->setVisited(true);
            log().report("TextButton", "onClick called");
        });
        live->setTooltip("Links have tooltips, too.");
        add("Normal", "Show the render statistics");
        auto* const hovered = add("Hovered", "Show the render statistics");
        afterSkin([hovered] {
            sendMouseEnter(*hovered);
            ignoreMouse(*hovered);
        });
        auto* const visited = add("Visited", "Show the render statistics");
        visited->setVisited(true);
        add("Disabled", "Show the render statistics")->Disable();
        auto* const browser = new Wx::TextButton(this, wxID_ANY, "example.com", String("https://example.com"));
        afterSkin([browser] { browser->setHoverColour(HOVER_COLOUR); });
        table->Add(makeText(TextRole::CAPTION, "Opens the browser"));
        table->Add(browser);
        section->Add(table);
    }

    Wx::TextCtrl* _text{};
    int _tile = 0;
};

const PageRegistration registration = registerPage<TextPage>(255, "Text");

} // namespace

} // namespace Ostrel::Gallery
