#include "Page.h"

#include "EventLog.h"
#include "Pose.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/CheckBox.h>
#include <OstrelLibWx/widgets/Spinner.h>

namespace Ostrel::Gallery {

namespace {

struct SpinnerSample {
    const char* caption;
    float min, max, defaultValue;
    int precision;
    float step;
};

constexpr SpinnerSample SAMPLES[] = {
    {"0 to 255, whole", 0, 255, 128, 0, 1},
    {"0 to 1, 3 decimals, step 0.005", 0, 1, 0.25F, 3, 0.005F},
    {"-180 to 180, 1 decimal, step 0.5", -180, 180, 0, 1, 0.5F},
    {"0 to 1,000,000, adaptive step", 0, 1e6F, 500, 2, 0},
    {"5 decimals, step below the last", 0, 1, 0.00125F, 5, 0.000001F},
    {"Without limits, adaptive step", -3e38F, 3e38F, 6500, 1, 0},
    {"A single value", 42, 42, 42, 0, 1},
};

class SpinnerPage : public Page {
public:
    explicit SpinnerPage(const PageContext& context)
        : Page(context, "Spinner",
               "Spinner is a number in a field with two arrows. Type and press Enter, click or hold an arrow, or press "
               "one and drag up and down, across the ends of the screen too. A right click on an arrow sets the "
               "default, and cancels a drag.") {
        addStates();
        addLive();
        addChanging();
        bindEvents();
    }

    void arrangeForPicture() override { _changing->setValue(12.5F, true); }

private:
    static constexpr int TEXT_WIDTH = 72;

    Wx::Spinner* makeSpinner(const SpinnerSample& sample) {
        auto* const spinner = new Wx::Spinner(this, wxID_ANY, TEXT_WIDTH, sample.min, sample.max, sample.defaultValue,
                                              sample.precision, sample.step);
        spinner->SetName(sample.caption);
        return spinner;
    }

    void addStates() {
        constexpr int WIDTH = 120;
        constexpr SpinnerSample SAMPLE{"A posed one", 0, 100, 12.5F, 2, 1};
        auto* const table =
            new SpecimenTable([this](const wxString& text) { return makeText(TextRole::CAPTION, text); },
                              {"Normal", "Arrow hovered", "Another text", "Disabled"}, WIDTH);
        Array<Wx::Spinner*> posed;
        for (int i = 0; i < 4; ++i) {
            posed.push_back(makeSpinner(SAMPLE));
        }
        wxMouseEvent enter(wxEVT_ENTER_WINDOW);
        wxWindow* const arrow = posed[1]->GetChildren().Item(1)->GetData();
        enter.SetEventObject(arrow);
        arrow->ProcessWindowEvent(enter);
        ignoreMouse(*arrow);
        posed[2]->setText("mixed");
        posed[3]->Enable(false);
        table->addRow("", {posed[0], posed[1], posed[2], posed[3]});
        addSection("States")->Add(table);
    }

    void addLive() {
        auto* const grid = new wxFlexGridSizer(4, Wx::scaleByDpi(wxSize(3 * GRID, GRID)));
        for (const SpinnerSample& sample : SAMPLES) {
            grid->Add(makeText(TextRole::CAPTION, sample.caption), 0, wxALIGN_CENTER_VERTICAL);
            Wx::Spinner* const spinner = makeSpinner(sample);
            spinner->callOnValueChange([this, spinner](float value) {
                report(*spinner, wxString::Format("callback: %g", static_cast<double>(value)));
            });
            grid->Add(spinner);
        }
        addSection("Ranges, precisions and steps")->Add(grid);
    }

    void addChanging() {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        _changing = makeSpinner({"The precision changes", 0, 100, 12.3456F, 4, 0.1F});
        addToRow(*row, _changing);
        for (const int decimals : {0, 1, 2, 4}) {
            addToRow(*row, makeButton(wxString::Format("Decimals: %d", decimals),
                                      [this, decimals] { _changing->setPrecision(decimals, true); }));
        }
        addToRow(*row, new Wx::CheckBox(this, wxID_ANY, "Clicks step by 10", wxDefaultPosition, wxDefaultSize, false,
                                        [this](bool on) {
                                            _changing->setClickSpeedOverride(
                                                [on] { return on ? Optional<float>(10.0F) : Optional<float>(); });
                                        }));
        addSection("Precision and click speed")->Add(row);
    }

    void report(const wxWindow& spinner, const wxString& what) {
        log().report("Spinner", "\"" + spinner.GetName() + "\": " + what);
    }

    void bindEvents() {
        const auto bind = [this](const auto& type, const char* name) {
            Bind(type, [this, name](wxEvent& event) {
                report(*static_cast<wxWindow*>(event.GetEventObject()), name);
                event.Skip();
            });
        };
        bind(Wx::CUSTSPINNER_START_EDITING, "CUSTSPINNER_START_EDITING");
        bind(Wx::CUSTSPINNER_END_EDITING, "CUSTSPINNER_END_EDITING");
        bind(Wx::CUSTSPINNER_TEXT_FOCUS_GET, "CUSTSPINNER_TEXT_FOCUS_GET");
        bind(Wx::CUSTSPINNER_TEXT_FOCUS_LOST, "CUSTSPINNER_TEXT_FOCUS_LOST");
        Bind(wxEVT_SPINCTRLDOUBLE, [this](wxSpinDoubleEvent& event) {
            report(*static_cast<wxWindow*>(event.GetEventObject()),
                   wxString::Format("wxEVT_SPINCTRLDOUBLE: %g", event.GetValue()));
        });
    }

    Wx::Spinner* _changing{};
};

const PageRegistration registration = registerPage<SpinnerPage>(260, "Spinner");

} // namespace

} // namespace Ostrel::Gallery
