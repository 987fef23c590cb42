#include "Page.h"

#include <OstrelLibWx/BitmapUtils.h>
#include <OstrelLibWx/WindowUtils.h>
#include <OstrelLibWx/widgets/PixelProbe.h>
#include <OstrelLibWx/widgets/StaticBitmap.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Ostrel::Gallery {

namespace {

constexpr int WIDTH = 640;
constexpr int HEIGHT = 400;
constexpr float BRIGHTEST = 4.0F;

/// A sweep of hues that gets brighter to the right, up to `BRIGHTEST`, with a stripe of what is no number in it.
BitmapImpl<Rgb> makeSweep() {
    BitmapImpl<Rgb> image(WIDTH, HEIGHT);
    for (int y = 0; y < HEIGHT; ++y) {
        for (int x = 0; x < WIDTH; ++x) {
            const float across = static_cast<float>(x) / (WIDTH - 1);
            const float down = static_cast<float>(y) / (HEIGHT - 1);
            image(x, y) = hsvToRgb({down * 360.0F, 0.75F, 1.0F}) * (across * BRIGHTEST);
            image(x, y).alpha = 1.0F;
        }
    }
    for (int y = HEIGHT / 2 - 12; y < HEIGHT / 2 + 12; ++y) {
        for (int x = WIDTH / 2 - 40; x < WIDTH / 2 + 40; ++x) {
            image(x, y).green = std::numeric_limits<float>::quiet_NaN();
        }
    }
    return image;
}

/// x / (1 + x), and a power of 1 / 2.2.
Rgb tonemap(const Rgb& color) {
    const auto map = [](float x) { return std::pow(x / (1.0F + x), 1.0F / 2.2F); };
    return {map(color.red), map(color.green), map(color.blue)};
}

class PixelProbePage : public Page {
public:
    explicit PixelProbePage(const PageContext& context)
        : Page(context, "Pixel probe",
               "PixelProbe follows the mouse over a picture and tells of the pixel below it. The host says what the "
               "pixel is; the probe lays it out, and warns of what is no number.")
        , _image(makeSweep()) {
        BitmapImpl<Rgb> shown(WIDTH, HEIGHT);
        std::transform(_image.data(), _image.data() + _image.size(), shown.data(), tonemap);
        _view = new Wx::StaticBitmap(this, wxID_ANY, Wx::toWxBitmap(shown, false));
        _probe = new Wx::PixelProbe(
            this, [this](const Pixel& cursor) { return probe(cursor); },
            "A value of this pixel is infinite or not a number.");
        addSection("Live", "Colours up to four times as bright as the screen shows; in the middle some that are none.")
            ->Add(_view);
        _view->Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
            const wxPoint cursor = _view->ClientToScreen(event.GetPosition());
            _probe->updatePosition({cursor.x, cursor.y});
            _probe->Show();
            event.Skip();
        });
        _view->Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent& event) {
            _probe->Hide();
            event.Skip();
        });
    }

    void onPageShown(bool shown) override {
        if (!shown) {
            _probe->Hide();
        }
    }

    void arrangeForPicture() override {
        const wxPoint cursor = _view->ClientToScreen(wxPoint(WIDTH / 2 + 20, HEIGHT / 2));
        _probe->updatePosition({cursor.x, cursor.y});
        _probe->Show();
        _probe->Update();
    }

private:
    Wx::PixelProbe::ProbedPixel probe(const Pixel& cursor) {
        const wxPoint inView = _view->ScreenToClient(wxPoint(cursor.x, cursor.y));
        const Pixel position{std::clamp(inView.x, 0, WIDTH - 1), std::clamp(inView.y, 0, HEIGHT - 1)};
        const Rgb& original = _image(position.x, position.y);
        return {original, tonemap(original), original.alpha, position};
    }

    BitmapImpl<Rgb> _image;
    Wx::StaticBitmap* _view{};
    Wx::PixelProbe* _probe{};
};

const PageRegistration registration = registerPage<PixelProbePage>(910, "Pixel probe");

} // namespace

} // namespace Ostrel::Gallery
