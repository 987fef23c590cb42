#include "Page.h"
#include "Plots.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/GuiSkin.h>
#include <OstrelLibWx/widgets/StaticBitmap.h>

#include <algorithm>

namespace Ostrel::Gallery {

namespace {

/// Values of the core library that the later controls edit.
class CurvesPage : public Page {
public:
    explicit CurvesPage(const PageContext& context)
        : Page(context, "Curves and colours",
               "Values of the core library: tone curves, the light of black bodies, gradients.") {
        addCurves();
        addBlackBodies();
        addGradient();
    }

private:
    void addCurves() {
        const wxSize PLOT{248, 160};
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        const auto add = [&](const wxString& caption, const Array<CurvePoint>& points) {
            auto* const plot = new Wx::StaticBitmap(this, wxID_ANY, plotCurve(Wx::scaleByDpi(PLOT), points));
            addToRow(*row, captioned(plot, caption), (CONTENT_WIDTH - 3 * PLOT.x) / 2);
        };
        add("More contrast", {{0.0f, 0.0f}, {0.3f, 0.18f}, {0.7f, 0.84f}, {1.0f, 1.0f}});
        add("Lifted shadows, flat outside the points", {{0.1f, 0.25f}, {0.45f, 0.4f}, {0.9f, 0.8f}});
        add("Many turns", {{0.0f, 0.2f}, {0.2f, 0.8f}, {0.4f, 0.3f}, {0.6f, 0.7f}, {0.8f, 0.25f}, {1.0f, 0.9f}});
        addSection("Curve", "In blue a natural cubic spline through the points, in grey straight lines.")->Add(row);
    }

    void addBlackBodies() {
        const wxSize STRIP{CONTENT_WIDTH, 40};
        constexpr int FROM_KELVIN = 1000;
        constexpr int TO_KELVIN = 15000;
        constexpr int LABEL_STEP = 2000;
        auto* const section = addSection("blackbodyColor", "From 1000 to 15000 kelvin, each at its full brightness.");
        section->Add(
            new Wx::StaticBitmap(this, wxID_ANY, plotBlackBodies(Wx::scaleByDpi(STRIP), FROM_KELVIN, TO_KELVIN)));
        section->AddSpacer(Wx::scaleByDpi(GRID / 2));
        section->Add(makeScale((TO_KELVIN - FROM_KELVIN) / LABEL_STEP,
                               [](int step) { return wxString::Format("%d K", FROM_KELVIN + step * LABEL_STEP); }));
    }

    void addGradient() {
        const wxSize STRIP{CONTENT_WIDTH, 48};
        const ColorGradient gradient({{{225.0f, 0.75f, 0.25f}, 0.0f},
                                      {{285.0f, 0.55f, 0.55f}, 0.3f},
                                      {{12.0f, 0.7f, 0.95f}, 0.55f},
                                      {{42.0f, 0.6f, 1.0f}, 0.75f},
                                      {{52.0f, 0.12f, 1.0f}, 1.0f}});
        auto* const section = addSection("ColorGradient", "Colours between two points are mixed in RGB.");
        section->Add(new Wx::StaticBitmap(this, wxID_ANY, plotGradient(Wx::scaleByDpi(STRIP), gradient)));
        section->AddSpacer(Wx::scaleByDpi(GRID / 2));
        constexpr int STEPS = 4;
        section->Add(
            makeScale(STEPS, [](int step) { return wxString::Format("%g", static_cast<double>(step) / STEPS); }));
    }

    /// Labels below a strip, each centred below its place; the outermost end where the strip does.
    wxWindow* makeScale(int steps, const Function<wxString(int)>& getLabel) {
        const wxSize size = Wx::scaleByDpi(wxSize(CONTENT_WIDTH, 2 * GRID));
        const auto paint = [&](wxDC& dc) {
            dc.SetFont(makeFont(*this, TextRole::CAPTION));
            dc.SetTextForeground(getTextColour(TextRole::CAPTION));
            for (int step = 0; step <= steps; ++step) {
                const wxString label = getLabel(step);
                const int width = dc.GetTextExtent(label).x;
                dc.DrawText(label, std::clamp(size.x * step / steps - width / 2, 0, size.x - width), 0);
            }
        };
        return new Wx::StaticBitmap(this, wxID_ANY, paintBitmap(size, Wx::toWxColour(Wx::GuiSkin().background), paint));
    }
};

const PageRegistration registration = registerPage<CurvesPage>(800, "Curves and colours");

} // namespace

} // namespace Ostrel::Gallery
