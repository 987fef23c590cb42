#include "EventLog.h"
#include "Page.h"
#include "Pose.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/GradientControl.h>

namespace Ostrel::Gallery {

namespace {

Hsv grey(float value) {
    return {0.0F, 0.0F, value};
}

const ColorGradient SUNSET({{{262.0F, 0.72F, 0.28F}, 0.0F},
                            {{330.0F, 0.6F, 0.62F}, 0.35F},
                            {{18.0F, 0.75F, 0.95F}, 0.62F},
                            {{48.0F, 0.55F, 1.0F}, 1.0F}});

ColorGradient makeSteps(int count) {
    ColorGradient gradient;
    for (int i = 0; i < count; ++i) {
        const float share = static_cast<float>(i) / static_cast<float>(count - 1);
        gradient.insert({{share * 300.0F, i % 2 == 0 ? 0.8F : 0.4F, 0.9F}, share});
    }
    return gradient;
}

class GradientControlPage : public Page {
public:
    explicit GradientControlPage(const PageContext& context)
        : Page(context, "Gradient control",
               "GradientControl edits a gradient: a strip of its colours, and a handle for each of its points.") {
        addLive();
        addStills();
    }

    void arrangeForPicture() override {
        // A point is taken and dragged, as far as the picture tells it.
        const wxSize size = _live->GetClientSize();
        const auto send = [&](wxEventType type, double share) {
            wxMouseEvent event(type);
            event.SetPosition({static_cast<int>(share * size.x), size.y - Wx::scaleByDpi(6)});
            _live->ProcessWindowEvent(event);
        };
        send(wxEVT_LEFT_DOWN, 0.62);
        send(wxEVT_MOTION, 0.7);
        send(wxEVT_LEFT_UP, 0.7);
    }

private:
    Wx::GradientControl* makeControl(wxSize size, const ColorGradient& gradient, float min = 0.0F, float max = 1.0F) {
        auto* const control = new Wx::GradientControl(this, size, min, max);
        control->setGradient(gradient);
        return control;
    }

    void addLive() {
        _live = makeControl(wxSize(CONTENT_WIDTH, 48), SUNSET);
        _live->setOnChangeCallback([this](const ColorGradient& gradient) {
            wxString positions;
            for (const ColorGradientPoint& point : gradient.getPoints()) {
                positions +=
                    wxString::Format("%s%.3f", positions.empty() ? "" : ", ", static_cast<double>(point.position));
            }
            log().report("Gradient control", wxString::Format("onChange(points at %s)", positions));
        });
        wxBoxSizer* const section =
            addSection("Live", "Drag a handle; double-click it to change its colour; double-click elsewhere to add a "
                               "point; the right button removes one.");
        section->Add(_live);
        section->AddSpacer(Wx::scaleByDpi(GRID));
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        addToRow(*row, makeButton("Sunset", [this] { _live->setGradient(SUNSET); }), GRID);
        addToRow(*row,
                 makeButton("Black to white",
                            [this] {
                                _live->setGradient(ColorGradient({{grey(0.0F), 0.0F}, {grey(1.0F), 1.0F}}));
                            }),
                 GRID);
        addToRow(*row, makeButton("Many points", [this] { _live->setGradient(makeSteps(24)); }), GRID);
        addToRow(*row, makeButton("No points", [this] { _live->setGradient({}); }), GRID);
        section->Add(row);
    }

    void addStills() {
        const auto add = [this](wxBoxSizer& row, const wxString& caption, wxSize size, const ColorGradient& gradient,
                                float min = 0.0F, float max = 1.0F) {
            Wx::GradientControl* const control = makeControl(size, gradient, min, max);
            ignoreMouse(*control);
            control->Bind(wxEVT_RIGHT_UP, [](wxMouseEvent&) {});
            addToRow(row, captioned(control, caption, size.x));
        };
        const wxSize third((CONTENT_WIDTH - 4 * GRID) / 3, 32);
        auto* const points = new wxBoxSizer(wxHORIZONTAL);
        add(*points, "One point", third, ColorGradient({{{205.0F, 0.7F, 0.9F}, 0.5F}}));
        add(*points, "Two points", third, ColorGradient({{grey(0.0F), 0.0F}, {grey(1.0F), 1.0F}}));
        add(*points, "Points at one position, an edge", third,
            ColorGradient({{{0.0F, 0.8F, 0.9F}, 0.0F},
                           {{50.0F, 0.8F, 1.0F}, 0.5F},
                           {{230.0F, 0.8F, 0.4F}, 0.5F},
                           {{190.0F, 0.6F, 1.0F}, 1.0F}}));
        addSection("Points", "Left and right of the outermost points their colours go on.")->Add(points);

        auto* const ranges = new wxBoxSizer(wxHORIZONTAL);
        add(*ranges, "0 to 1", third, SUNSET);
        add(*ranges, "0.25 to 0.75", third, SUNSET, 0.25F, 0.75F);
        add(*ranges, "-0.5 to 1.5", third, SUNSET, -0.5F, 1.5F);
        addSection("Range", "The same gradient. Points outside the range stand at its ends.")->Add(ranges);

        auto* const sizes = new wxBoxSizer(wxHORIZONTAL);
        for (const int height : {16, 24, 64}) {
            add(*sizes, wxString::Format("%d high", height), wxSize(third.x, height), SUNSET);
        }
        addSection("Size")->Add(sizes);
    }

    Wx::GradientControl* _live{};
};

const PageRegistration registration = registerPage<GradientControlPage>(520, "Gradient control");

} // namespace

} // namespace Ostrel::Gallery
