#include "Page.h"
#include "Plots.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/StaticBitmap.h>

#include <wx/dcbuffer.h>
#include <wx/panel.h>

#include <algorithm>

namespace Ostrel::Gallery {

namespace {

/// Labels at equal distances below a strip, each centred below its place, the outermost ending where the strip does.
class Scale : public wxPanel {
public:
    Scale(wxWindow* parent, wxSize size, Array<wxString> labels)
        : wxPanel(parent, wxID_ANY, wxDefaultPosition, size, wxBORDER_NONE)
        , _labels(std::move(labels)) {
        SetMinSize(size);
        SetFont(makeFont(*this, TextRole::CAPTION));
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        Bind(wxEVT_PAINT, &Scale::onPaint, this);
    }

private:
    void onPaint(wxPaintEvent&) {
        wxAutoBufferedPaintDC dc(this);
        dc.SetBackground(GetBackgroundColour());
        dc.Clear();
        dc.SetFont(GetFont());
        dc.SetTextForeground(getTextColour(TextRole::CAPTION));
        const int length = GetClientSize().x;
        const int steps = static_cast<int>(_labels.size()) - 1;
        for (int step = 0; step <= steps; ++step) {
            const wxString& label = _labels[static_cast<std::size_t>(step)];
            const int width = dc.GetTextExtent(label).x;
            dc.DrawText(label, std::clamp(length * step / steps - width / 2, 0, length - width), 0);
        }
    }

    Array<wxString> _labels;
};

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

    wxWindow* makeScale(int steps, const Function<wxString(int)>& getLabel) {
        Array<wxString> labels;
        for (int step = 0; step <= steps; ++step) {
            labels.push_back(getLabel(step));
        }
        return new Scale(this, Wx::scaleByDpi(wxSize(CONTENT_WIDTH, 2 * GRID)), labels);
    }
};

const PageRegistration registration = registerPage<CurvesPage>(800, "Curves and colours");

} // namespace

} // namespace Ostrel::Gallery
