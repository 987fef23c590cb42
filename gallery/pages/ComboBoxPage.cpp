#include "Page.h"

#include "EventLog.h"
#include "Pose.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/ComboBox.h>

#include <string>

namespace Ostrel::Gallery {

namespace {

constexpr const char* CHANNELS[] = {"Master", "Red", "Green", "Blue"};
constexpr const char* CURVES[] = {"Linear", "Logarithmic", "Cubic spline"};

class ComboBoxPage : public Page {
public:
    explicit ComboBoxPage(const PageContext& context)
        : Page(context, "Combo box",
               "ComboBox shows the selected of its rows and opens a list of all. Up, Down, Home, End, the wheel and "
               "typing change the selection with the list open or closed; Enter chooses, Escape closes.") {
        addStates();
        addLive();
        addChanging();
        Bind(wxEVT_COMBOBOX, [this](wxCommandEvent& event) {
            report(*static_cast<wxWindow*>(event.GetEventObject()),
                   wxString::Format("wxEVT_COMBOBOX: id %d, index %ld, \"", event.GetInt(), event.GetExtraLong()) +
                       event.GetString() + "\"");
        });
    }

    void arrangeForPicture() override { _twenty->open(); }

    void onPageShown(bool shown) override {
        Page::onPageShown(shown);
        if (!shown) {
            for (Wx::ComboBox* const box : _live) {
                box->close();
            }
        }
    }

private:
    static constexpr int WIDTH = 144;

    static Array<Wx::ComboBox::Item> makeItems(ArrayView<const char* const> texts) {
        Array<Wx::ComboBox::Item> items;
        for (const char* const text : texts) {
            items.push_back({text, static_cast<int>(100 + items.size())});
        }
        return items;
    }

    static Array<Wx::ComboBox::Item> makeNumbered(const char* name, int count) {
        Array<Wx::ComboBox::Item> items;
        items.reserve(static_cast<std::size_t>(count));
        for (int i = 1; i <= count; ++i) {
            items.push_back({name + String(std::to_wstring(i)), 1000 + i});
        }
        return items;
    }

    void report(const wxWindow& box, const wxString& what) {
        log().report("Combo box", "\"" + box.GetName() + "\": " + what);
    }

    Wx::ComboBox* makeLive(const wxString& name, const Array<Wx::ComboBox::Item>& items, int selected) {
        auto* const box = new Wx::ComboBox(
            this, wxID_ANY, WIDTH,
            [this, name](int id) {
                log().report("Combo box", "\"" + name + "\": " + wxString::Format("onSelect(%d)", id));
            },
            [this, name](wxWindow*, Wx::ComboBox::WindowEvent event) {
                const bool shown = event == Wx::ComboBox::WindowEvent::SHOWN;
                log().report("Combo box", "\"" + name + "\": the list is " + (shown ? "shown" : "hidden"));
            },
            true);
        box->SetName(name);
        box->setData(items);
        box->selectIndex(selected, false);
        _live.push_back(box);
        return box;
    }

    void addStates() {
        auto* const table =
            new SpecimenTable([this](const wxString& text) { return makeText(TextRole::CAPTION, text); },
                              {"Normal", "A long text", "Nothing selected", "Disabled"}, WIDTH);
        Array<Wx::ComboBox*> posed;
        for (int i = 0; i < 4; ++i) {
            posed.push_back(new Wx::ComboBox(this, wxID_ANY, WIDTH, {}, {}, i != 3));
            posed.back()->setData(makeItems(CURVES));
            posed.back()->selectIndex(i == 2 ? -1 : 1, false);
        }
        const Wx::ComboBox::Item longItem{"A text that is longer than the box is wide", 1};
        posed[1]->setData({&longItem, 1});
        posed[1]->selectIndex(0, false);
        for (Wx::ComboBox* const box : posed) {
            ignoreMouse(*box);
        }
        table->addRow("", {posed[0], posed[1], posed[2], posed[3]});
        addSection("States")->Add(table);
    }

    void addLive() {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        addToRow(*row, captioned(makeLive("3 rows", makeItems(CURVES), 0), "3 rows"));
        _twenty = makeLive("20 rows", makeNumbered("Layer ", 20), 17);
        addToRow(*row, captioned(_twenty, "20 rows, of which 17 are shown"));
        addToRow(*row, captioned(makeLive("100,000 rows", makeNumbered("Frame ", 100'000), 49'999), "100,000 rows"));
        addSection("Live")->Add(row);
    }

    void addChanging() {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        Wx::ComboBox* const box = makeLive("Changing", makeItems(CHANNELS), 0);
        addToRow(*row, box);
        addToRow(*row, makeButton("Channels", [box] { box->setData(makeItems(CHANNELS)); }));
        addToRow(*row, makeButton("Curves", [box] { box->setData(makeItems(CURVES)); }));
        addToRow(*row, makeButton("No rows", [box] { box->setData({}); }));
        addToRow(*row, makeButton("Select \"Blue\"", [box] { box->selectId(103, true); }));
        addToRow(*row, makeButton(
                           "Disable", [box] { box->Enable(!box->IsEnabled()); }, Wx::Button::TOGGLE));
        addSection("Rows that are replaced", "A selection beyond the new end is dropped; another one stays.")->Add(row);
    }

    Array<Wx::ComboBox*> _live;
    Wx::ComboBox* _twenty{};
};

const PageRegistration registration = registerPage<ComboBoxPage>(265, "Combo box");

} // namespace

} // namespace Ostrel::Gallery
