#include "Page.h"

#include "EventLog.h"
#include "Picture.h"

#include <OstrelLibWx/BitmapUtils.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/StaticBitmap.h>

#include <wx/dcbuffer.h>
#include <wx/timer.h>

#include <algorithm>

namespace Ostrel::Gallery {

namespace {

constexpr int LENS = 25;         // pixels of the screen in either direction, uneven so that one is in the middle
constexpr int MAGNIFICATION = 8; // before scaling
constexpr int LOOK_AGAIN_MS = 60;

/// Shows an image with every pixel enlarged, and a mark around the one in the middle.
class Lens : public wxPanel {
public:
    explicit Lens(wxWindow* parent)
        : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE)
        , _factor(Wx::scaleByDpi(MAGNIFICATION)) {
        SetMinSize(wxSize(LENS, LENS) * _factor);
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
            wxAutoBufferedPaintDC dc(this);
            dc.SetBackground(*wxBLACK_BRUSH);
            dc.Clear();
            if (_enlarged.IsOk()) {
                dc.DrawBitmap(_enlarged, 0, 0);
            }
            dc.SetBrush(*wxTRANSPARENT_BRUSH);
            dc.SetPen(*wxWHITE_PEN);
            dc.DrawRectangle(wxRect(LENS / 2 * _factor, LENS / 2 * _factor, _factor, _factor).Inflate(1));
        });
    }

    /// @return whether it shows something else now
    bool show(const BitmapImpl<Rgb>& image) {
        if (image == _image) {
            return false;
        }
        _image = image;
        _enlarged = magnify(Wx::toWxBitmap(image, false), _factor);
        Refresh();
        return true;
    }

private:
    int _factor;
    BitmapImpl<Rgb> _image;
    wxBitmap _enlarged;
};

/// Colours taken from the screen, and pictures and text given to other programs.
class ClipboardPage : public Page {
public:
    explicit ClipboardPage(const PageContext& context)
        : Page(context, "Screen and clipboard",
               "The screen as float colours (getScreenRegionColors), and what other programs take from the clipboard "
               "(setClipboardData).")
        , _picture(context.picture.image.isEmpty() ? makeColourField().image : context.picture.image)
        , _timer(this) {
        addLens();
        addClipboard();
        Bind(wxEVT_TIMER, [this](wxTimerEvent&) { look(); });
    }

    void arrangeForPicture() override { _looksAtSample = true; }

    void onPageShown(bool shown) override {
        Page::onPageShown(shown);
        shown ? static_cast<void>(_timer.Start(LOOK_AGAIN_MS)) : _timer.Stop();
    }

private:
    void addLens() {
        _lens = new Lens(this);
        _sample = new Wx::StaticBitmap(this, wxID_ANY, makeSampleBitmap(Wx::scaleByDpi(wxSize(LENS, LENS))));
        _colour = makeText(TextRole::BODY, "Red 0.000, green 0.000, blue 0.000, alpha 0.000");
        auto* const column = new wxBoxSizer(wxVERTICAL);
        column->Add(captioned(_sample, "Something to look at"));
        column->AddSpacer(Wx::scaleByDpi(2 * GRID));
        column->Add(_colour);
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        row->Add(_lens);
        addToRow(*row, column);
        addSection("Lens",
                   "What is around the pointer, on any display; the numbers are the pixel's in the middle. What "
                   "lies on no display has alpha 0.")
            ->Add(row);
    }

    void addClipboard() {
        auto* const row = new wxBoxSizer(wxHORIZONTAL);
        addToRow(*row, makeButton("Picture", [this] { copy("The picture", _picture, {}); }), 0);
        addToRow(*row, makeButton("Grey", [this] { copy("A grey picture", GREY, {}); }), GRID);
        addToRow(*row,
                 makeButton("Not quite grey",
                            [this] { copy("The same, not quite grey", GREY, Wx::SetClipboardData::NOT_QUITE_GREY); }),
                 GRID);
        addToRow(*row, makeButton("Lens", [this] { copy("What the lens shows", capture(), {}); }), GRID);
        addToRow(*row,
                 makeButton("Text", [this] { report("A text", Wx::setClipboardData(String(L"Caf\u00e9 \u2192"))); }),
                 GRID);
        addSection("Copy", "Each button puts something on the clipboard; paste it into another program. The picture is "
                           "the one of the page \"Picture\".")
            ->Add(row);
    }

    /// The clipboard takes the first row for the lowest one.
    void copy(const wxString& name, const BitmapImpl<Rgb>& image, Flags<Wx::SetClipboardData> flags) {
        BitmapImpl<Rgb> fromBelow = image;
        for (int y = 0; y < image.getHeight(); ++y) {
            std::ranges::copy(image.row(y), fromBelow.row(image.getHeight() - 1 - y).begin());
        }
        report(name, Wx::setClipboardData(fromBelow, flags));
    }

    void report(const wxString& name, bool done) {
        log().report("setClipboardData", name + (done ? ": on the clipboard" : ": refused"));
    }

    [[nodiscard]] BitmapImpl<Rgb> capture() const {
        const wxSize size = _sample->GetSize();
        const wxPoint middle =
            _looksAtSample ? _sample->ClientToScreen(wxPoint(size.x / 2, size.y / 2)) : wxGetMousePosition();
        const Pixel corner{middle.x - LENS / 2, middle.y - LENS / 2};
        return Wx::getScreenRegionColors({corner, corner + Pixel{LENS, LENS}});
    }

    void look() {
        const BitmapImpl<Rgb> image = capture();
        if (_lens->show(image)) {
            const Rgb& middle = image(LENS / 2, LENS / 2);
            _colour->SetLabel(wxString::Format("Red %.3f, green %.3f, blue %.3f, alpha %.3f", middle.red, middle.green,
                                               middle.blue, middle.alpha));
        }
    }

    static inline const BitmapImpl<Rgb> GREY{96, 64, Rgb{0.5F, 0.5F, 0.5F}};

    BitmapImpl<Rgb> _picture;
    wxTimer _timer;
    Lens* _lens{};
    wxWindow* _sample{};
    wxStaticText* _colour{};
    bool _looksAtSample = false;
};

const PageRegistration registration = registerPage<ClipboardPage>(410, "Screen and clipboard");

} // namespace

} // namespace Ostrel::Gallery
