#include "EventLog.h"
#include "Page.h"
#include "Pose.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/ColorPickerButton.h>

#include <limits>

namespace Ostrel::Gallery {

namespace {

struct NamedColor {
    const char* name;
    Rgb color;
};

constexpr NamedColor COLORS[] = {{"Sky", {0.345F, 0.6F, 0.93F}},
                                 {"Sun", {4.0F, 3.2F, 1.9F}},
                                 {"Grass", {0.32F, 0.55F, 0.2F}},
                                 {"Clay", {0.72F, 0.41F, 0.27F}},
                                 {"Night", {0.06F, 0.07F, 0.16F}}};

constexpr float ENDLESS = std::numeric_limits<float>::infinity();
constexpr NamedColor ODD_COLORS[] = {{"Channels above 1", {2.5F, 1.4F, 0.2F}},
                                     {"Below 0", {-1.0F, 0.5F, -0.2F}},
                                     {"Infinite", {ENDLESS, 0.3F, -ENDLESS}},
                                     {"Not a number", {std::numeric_limits<float>::quiet_NaN(), 0.6F, 0.6F}}};

class ColorPickerButtonPage : public Page {
public:
    explicit ColorPickerButtonPage(const PageContext& context)
        : Page(context, "Color picker button",
               "ColorPickerButton shows one colour. A click opens the colour picker for it; dragged onto another one, "
               "in this program or in another, it gives that one its colour.") {
        auto* const live = new wxBoxSizer(wxHORIZONTAL);
        for (const NamedColor& named : COLORS) {
            Wx::ColorPickerButton* const button = makeSwatch(named, wxSize(WIDTH, 48), true);
            listen(*button, named.name);
            addToRow(*live, captioned(button, named.name));
        }
        addSection("Live", "Drag a colour from one to another, or to those of a second gallery.")->Add(live);

        auto* const states = new wxBoxSizer(wxHORIZONTAL);
        for (const NamedColor& named : COLORS) {
            addToRow(*states, captioned(makeSwatch(named, wxSize(WIDTH, 32), false), named.name));
        }
        addSection("Disabled", "Stripes a step darker than the colour, or lighter where it is dark.")->Add(states);

        auto* const odd = new wxBoxSizer(wxHORIZONTAL);
        for (const NamedColor& named : ODD_COLORS) {
            addToRow(*odd, captioned(makeStill(named, wxSize(WIDTH, 32)), named.name));
        }
        addSection("Beyond 0 to 1", "A colour is kept as it is given; what is shown is limited.")->Add(odd);

        auto* const sizes = new wxBoxSizer(wxHORIZONTAL);
        for (const wxSize size : {wxSize(16, 16), wxSize(24, 24), wxSize(48, 16), wxSize(96, 64)}) {
            addToRow(*sizes, captioned(makeStill(COLORS[3], size), wxString::Format(L"%d \u00d7 %d", size.x, size.y)));
        }
        addSection("Size")->Add(sizes);
    }

private:
    static constexpr int WIDTH = 120;

    Wx::ColorPickerButton* makeSwatch(const NamedColor& named, wxSize size, bool enabled) {
        auto* const button = new Wx::ColorPickerButton(this, named.name, size, enabled);
        button->setColor(named.color, false);
        return button;
    }

    Wx::ColorPickerButton* makeStill(const NamedColor& named, wxSize size) {
        Wx::ColorPickerButton* const button = makeSwatch(named, size, true);
        ignoreMouse(*button);
        return button;
    }

    void listen(Wx::ColorPickerButton& button, const wxString& name) {
        const auto report = [this, name](const char* callback) {
            return [this, name, callback](const Rgb& color) {
                log().report(name, wxString::Format("%s(%.3f, %.3f, %.3f)", callback, static_cast<double>(color.red),
                                                    static_cast<double>(color.green), static_cast<double>(color.blue)));
            };
        };
        button.setPreviewCallback(report("preview"));
        button.setCommitCallback(report("commit"));
    }
};

const PageRegistration registration = registerPage<ColorPickerButtonPage>(510, "Color picker button");

} // namespace

} // namespace Ostrel::Gallery
