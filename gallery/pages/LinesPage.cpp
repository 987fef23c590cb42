#include "Page.h"

#include "EventLog.h"

#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/StaticBitmap.h>
#include <OstrelLibWx/widgets/StaticLine.h>

namespace Ostrel::Gallery {

namespace {

constexpr RgbBytes THREE_COLOURS[] = {{100, 200, 40}, {60, 120, 24}, {30, 60, 12}};
constexpr RgbBytes SIX_COLOURS[] = {{24, 40, 60},  {36, 66, 104}, {52, 96, 150},
                                    {52, 96, 150}, {36, 66, 104}, {24, 40, 60}};
constexpr RgbBytes ONE_COLOUR[] = {{120, 120, 120}};
constexpr RgbBytes DEFAULT_COLOURS[] = {{37, 37, 37}, {100, 100, 100}};

class LinesPage : public Page {
public:
    explicit LinesPage(const PageContext& context)
        : Page(context, "Static line and static bitmap",
               "StaticLine is a separator of one or more rows of pixels, each in its own colour; it can be drawn "
               "shortened, and is then brighter. StaticBitmap shows one bitmap, pixel for pixel.") {
        addColours();
        addLengths();
        addLive();
        addBitmaps();
    }

    void arrangeForPicture() override { setLength(0.75f); }

private:
    void addColours() {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        auto* const horizontal = new wxFlexGridSizer(1, Wx::scaleByDpi(2 * GRID), 0);
        constexpr int LENGTH = 376;
        for (const auto& [caption, colours] :
             {std::pair<const char*, ArrayView<const RgbBytes>>{"Without colours given: two rows", DEFAULT_COLOURS},
              {"One colour", ONE_COLOUR},
              {"Three colours", THREE_COLOURS},
              {"Six colours", SIX_COLOURS}}) {
            auto* const line = colours.data() == DEFAULT_COLOURS
                                   ? new Wx::StaticLine(this, wxHORIZONTAL)
                                   : new Wx::StaticLine(this, wxHORIZONTAL, colours, 1.0f);
            line->SetMinSize(wxSize(Wx::scaleByDpi(LENGTH), line->GetMinHeight()));
            horizontal->Add(captioned(line, caption));
        }
        addToRow(*row, horizontal);
        row->AddSpacer(Wx::scaleByDpi(CONTENT_WIDTH - 2 * LENGTH - GRID));
        constexpr int HEIGHT = 96;
        for (const auto& [caption, colours] :
             {std::pair<const char*, ArrayView<const RgbBytes>>{"Two columns", DEFAULT_COLOURS},
              {"One", ONE_COLOUR},
              {"Three", THREE_COLOURS},
              {"Six", SIX_COLOURS}}) {
            auto* const line = new Wx::StaticLine(this, wxVERTICAL, colours, 1.0f);
            line->SetMinSize(wxSize(line->GetMinWidth(), Wx::scaleByDpi(HEIGHT)));
            auto* const cell = captioned(line, caption);
            cell->SetMinSize(wxSize(Wx::scaleByDpi(96), -1));
            row->Add(cell);
        }
        addSection("Orientations and colours")->Add(row);
    }

    void addLengths() {
        constexpr int WIDTH = 224;
        auto* const table =
            new SpecimenTable([this](const wxString& text) { return makeText(TextRole::CAPTION, text); },
                              {"Length scale 0", "Length scale 0.5", "Length scale 1"}, WIDTH);
        for (const auto& [caption, colours] :
             {std::pair<const char*, ArrayView<const RgbBytes>>{"Two rows", DEFAULT_COLOURS},
              {"Three rows", THREE_COLOURS}}) {
            table->addRow(caption, {new Wx::StaticLine(this, wxHORIZONTAL, colours, 0.0f),
                                    new Wx::StaticLine(this, wxHORIZONTAL, colours, 0.5f),
                                    new Wx::StaticLine(this, wxHORIZONTAL, colours, 1.0f)});
        }
        addSection("Length", "A shortened line has every channel doubled, up to 255; at full length it has its own "
                             "colours.")
            ->Add(table);
    }

    void addLive() {
        auto* const section = addSection("Live length");
        _live = new Wx::StaticLine(this, wxHORIZONTAL, THREE_COLOURS, 1.0f);
        _live->SetMinSize(wxSize(Wx::scaleByDpi(CONTENT_WIDTH), _live->GetMinHeight()));
        section->Add(_live);
        section->AddSpacer(Wx::scaleByDpi(GRID));
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        for (const float length : {-1.0f, 0.0f, 0.25f, 0.5f, 0.75f, 1.0f, 1.5f}) {
            addToRow(*row,
                     makeButton(
                         wxString::Format("%g", static_cast<double>(length)), [this, length] { setLength(length); },
                         Wx::Button::PUSH, 72),
                     GRID);
        }
        section->Add(row);
    }

    void setLength(float length) {
        _live->setLengthScale(length);
        log().report("StaticLine", wxString::Format("setLengthScale(%g), now %g", static_cast<double>(length),
                                                    static_cast<double>(_live->getLengthScale())));
    }

    void addBitmaps() {
        const wxSize SIZE{84, 56};
        const wxBitmap colour = makeSampleBitmap(Wx::scaleByDpi(SIZE));
        const wxBitmap grey = makeDisabledSampleBitmap(Wx::scaleByDpi(SIZE));
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        auto* const live = new Wx::StaticBitmap(this, wxID_ANY, colour);
        addToRow(*row, captioned(live, "Live"), 3 * GRID);
        addToRow(*row, captioned(new Wx::StaticBitmap(this, wxID_ANY, makeSampleBitmap({16, 16})), "16 by 16"),
                 3 * GRID);
        const wxBitmap large = magnify(makeSampleBitmap({12, 8}), Wx::scaleByDpi(7));
        addToRow(*row, captioned(new Wx::StaticBitmap(this, wxID_ANY, large), "Large pixels"), 3 * GRID);
        const auto change = [this, live, colour, grey] {
            const bool toGrey = live->getBitmap().IsSameAs(colour);
            live->setBitmap(toGrey ? grey : colour);
            log().report("StaticBitmap", toGrey ? "setBitmap, to the grey one" : "setBitmap, to the coloured one");
        };
        addToRow(*row, makeButton("Other bitmap", change), 3 * GRID);
        addSection("StaticBitmap")->Add(row);
    }

    Wx::StaticLine* _live{};
};

const PageRegistration registration = registerPage<LinesPage>(310, "Lines and bitmaps");

} // namespace

} // namespace Ostrel::Gallery
