#include "EventLog.h"
#include "Page.h"
#include "Picture.h"
#include "Pose.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/CurvePanel.h>

namespace Ostrel::Gallery {

namespace {

/// What a panel is told of the gallery's picture.
class PictureCallbacks : public Wx::ICurvePanelCallbacks {
public:
    using OnChanged = Function<void(CurveChannel, const Curve&)>;

    PictureCallbacks(const Picture& picture, OnChanged onChanged)
        : _picture(picture)
        , _onChanged(std::move(onChanged)) {}

    Histogram getHistogram(std::pair<float, float> range, CurveChannel channel, int binCount) override {
        return Histogram::compute(_picture.image, channel, range.first, range.second, binCount);
    }
    Optional<int> getHistogramRefreshInterval() override { return {}; }
    Optional<Rgb> getPixelColor(Pixel) override { return {}; }
    void onCurveChanged(CurveChannel channel, const Curve& curve) override { _onChanged(channel, curve); }
    std::int64_t getChangeDelay() override { return 0; }

private:
    const Picture& _picture;
    OnChanged _onChanged;
};

struct ChannelName {
    CurveChannel channel;
    const char* name;
};

constexpr ChannelName CHANNELS[] = {{CurveChannel::MASTER, "Master"},
                                    {CurveChannel::RED, "Red"},
                                    {CurveChannel::GREEN, "Green"},
                                    {CurveChannel::BLUE, "Blue"}};

struct TypeName {
    Wx::HistogramType type;
    const char* name;
};

constexpr TypeName TYPES[] = {{Wx::HistogramType::LINEAR, "Linear"},
                              {Wx::HistogramType::LOGARITHMIC, "Logarithmic"},
                              {Wx::HistogramType::CUMULATIVE, "Cumulative"}};

ColorCurve makeCurves() {
    ColorCurve curves;
    curves[CurveChannel::MASTER] = Curve({{0.0f, 0.0f}, {0.25f, 0.15f}, {0.7f, 0.84f}, {1.0f, 1.0f}});
    curves[CurveChannel::RED] = Curve({{0.0f, 0.12f}, {0.5f, 0.6f}, {1.0f, 0.95f}});
    curves[CurveChannel::BLUE] =
        Curve({{0.0f, 0.0f}, {0.4f, 0.28f}, {0.75f, 0.8f}, {0.9f, 0.72f}}, CurveInterpolation::LINEAR);
    return curves;
}

/// Sends the panel a mouse event at the pixel of a point of the plot, both in shares of it from the lower left corner.
void sendMouse(Wx::CurvePanel& panel, wxEventType type, double right, double up) {
    const Pixel plot = panel.getPlotSize();
    const wxSize size = panel.GetClientSize();
    wxMouseEvent event(type);
    event.SetPosition({(size.x - plot.x) / 2 + static_cast<int>(right * plot.x),
                       (size.y + plot.y) / 2 - static_cast<int>(up * plot.y)});
    panel.ProcessWindowEvent(event);
}

/// Turns the wheel this many steps; inwards above 0.
void turnWheel(Wx::CurvePanel& panel, int steps) {
    for (int i = 0; i < std::abs(steps); ++i) {
        wxMouseEvent event(wxEVT_MOUSEWHEEL);
        event.m_wheelRotation = steps > 0 ? 120 : -120;
        event.m_wheelDelta = 120;
        panel.ProcessWindowEvent(event);
    }
}

class CurvePanelPage : public Page {
public:
    explicit CurvePanelPage(const PageContext& context)
        : Page(
              context, "Curve panel",
              "CurvePanel edits four tone curves over the histogram of the picture that they correct. Here that is the "
              "picture of the page \"Picture\".")
        , _picture(context.picture) {
        auto* const columns = new wxBoxSizer(wxHORIZONTAL);
        content().Add(columns);
        addLive(*columns);
        columns->AddSpacer(Wx::scaleByDpi(3 * GRID));
        auto* const stills = new wxBoxSizer(wxVERTICAL);
        columns->Add(stills);
        addStills(*stills, "Histogram",
                  "How often a value occurs, its logarithm, and the share of all values up to it. A curve that changes "
                  "nothing shows only when it is selected.",
                  {{"Linear, Master", [](Wx::CurvePanel&) {}},
                   {"Logarithmic, Red",
                    [](Wx::CurvePanel& panel) {
                        panel.setSelectedCurve(CurveChannel::RED);
                        panel.setHistogramType(Wx::HistogramType::LOGARITHMIC);
                    }},
                   {"Cumulative, Green", [](Wx::CurvePanel& panel) {
                        panel.setSelectedCurve(CurveChannel::GREEN);
                        panel.setHistogramType(Wx::HistogramType::CUMULATIVE);
                    }}});
        addStills(*stills, "Zoom", "Up to five steps of the wheel each way. The lines of 0 and 1 are broad.",
                  {{"Largest", [](Wx::CurvePanel& panel) { turnWheel(panel, 5); }},
                   {"A step out, the mouse over it",
                    [](Wx::CurvePanel& panel) {
                        panel.setSelectedCurve(CurveChannel::BLUE);
                        turnWheel(panel, -1);
                        sendMouse(panel, wxEVT_MOTION, 0.4, 0.9);
                    }},
                   {"Smallest", [](Wx::CurvePanel& panel) { turnWheel(panel, -5); }}});
    }

    /// A drag, as far as the picture tells it: a point of its own, pulled down.
    void arrangeForPicture() override {
        sendMouse(*_live, wxEVT_LEFT_DOWN, 0.5, static_cast<double>(_live->getCurrentCurves().curves[0](0.5f)));
        sendMouse(*_live, wxEVT_MOTION, 0.55, 0.35);
        sendMouse(*_live, wxEVT_LEFT_UP, 0.55, 0.35);
    }

private:
    struct Still {
        wxString caption;
        Function<void(Wx::CurvePanel&)> pose;
    };

    Wx::CurvePanel* makePanel(int size, PictureCallbacks::OnChanged onChanged) {
        const auto callbacks = std::make_shared<PictureCallbacks>(_picture, std::move(onChanged));
        auto* const panel =
            new Wx::CurvePanel(this, Wx::GuiSkin(), Wx::scaleByDpi(wxSize(size, size)), makeCurves(), callbacks);
        panel->SetMinSize(panel->GetSize());
        return panel;
    }

    void addStills(wxBoxSizer& column, const wxString& heading, const wxString& note,
                   std::initializer_list<Still> stills) {
        constexpr int WIDTH = CONTENT_WIDTH - LIVE_SIZE - 3 * GRID;
        constexpr int SIZE = (WIDTH - 4 * GRID) / 3;
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        for (const Still& still : stills) {
            Wx::CurvePanel* const panel = makePanel(SIZE, [](CurveChannel, const Curve&) {});
            still.pose(*panel);
            panel->updateHistogram();
            ignoreMouse(*panel);
            panel->Bind(wxEVT_RIGHT_UP, [](wxMouseEvent&) {});
            // The wheel scrolls the page.
            panel->Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& event) { GetEventHandler()->ProcessEvent(event); });
            addToRow(*row, captioned(panel, still.caption, SIZE));
        }
        addSection(heading, note, &column, WIDTH)->Add(row);
    }

    void addLive(wxBoxSizer& columns) {
        _live = makePanel(LIVE_SIZE, [this](CurveChannel channel, const Curve& curve) {
            log().report("Curve panel", wxString::Format("onCurveChanged(%s, %d points)",
                                                         CHANNELS[static_cast<std::size_t>(channel)].name,
                                                         static_cast<int>(curve.getPoints().size())));
        });
        auto* const column = new wxBoxSizer(wxVERTICAL);
        columns.Add(column);
        wxBoxSizer* const section = addSection("Live",
                                               "Press a point or the curve and drag; past a neighbour, and the point "
                                               "is gone. The right button deletes, the wheel zooms.",
                                               column, LIVE_SIZE);
        section->Add(_live);
        section->AddSpacer(Wx::scaleByDpi(GRID));
        addChoice(*section, CHANNELS, [this](const ChannelName& choice) {
            _live->setSelectedCurve(choice.channel);
            _live->updateHistogram();
        });
        addChoice(*section, TYPES, [this](const TypeName& choice) { _live->setHistogramType(choice.type); });
        section->Add(makeButton("Reset", [this] { _live->setCurves(ColorCurve()); }));
    }

    /// A row of buttons as wide as the live panel. One of them looks toggled: the first, then the one clicked last.
    template <class Choice, std::size_t COUNT>
    void addChoice(wxBoxSizer& column, const Choice (&choices)[COUNT],
                   Function<void(const std::type_identity_t<Choice>&)> choose) {
        constexpr int WIDTH = (LIVE_SIZE - (static_cast<int>(COUNT) - 1) * GRID) / static_cast<int>(COUNT);
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        const auto buttons = std::make_shared<Array<Wx::Button*>>();
        for (const Choice& choice : choices) {
            const std::size_t index = buttons->size();
            const auto onClick = [buttons, index, choose, &choice] {
                for (std::size_t i = 0; i < buttons->size(); ++i) {
                    (*buttons)[i]->setToggled(i == index);
                }
                choose(choice);
            };
            buttons->push_back(makeButton(choice.name, onClick, Wx::Button::PUSH, WIDTH));
            addToRow(*row, buttons->back(), GRID);
        }
        afterSkin([buttons] { buttons->front()->setToggled(true); });
        column.Add(row);
        column.AddSpacer(Wx::scaleByDpi(GRID));
    }

    static constexpr int LIVE_SIZE = 266; ///< a plot of 256 × 256

    const Picture& _picture;
    Wx::CurvePanel* _live{};
};

const PageRegistration registration = registerPage<CurvePanelPage>(700, "Curve panel");

} // namespace

} // namespace Ostrel::Gallery
