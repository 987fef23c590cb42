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

// Design pixels.
constexpr Pixel SIZE{640, 400};
constexpr Pixel STRIPE_SIZE{80, 24};

constexpr float BRIGHTEST = 4.0F;

/// A sweep of hues that gets brighter to the right, up to `BRIGHTEST`, with a stripe of what is no number in it.
BitmapImpl<Rgb> makeSweep(Pixel size, Pixel stripeSize) {
    BitmapImpl<Rgb> image(size.x, size.y);
    for (int y = 0; y < size.y; ++y) {
        for (int x = 0; x < size.x; ++x) {
            const float across = static_cast<float>(x) / static_cast<float>(size.x - 1);
            const float down = static_cast<float>(y) / static_cast<float>(size.y - 1);
            image(x, y) = hsvToRgb({down * 360.0F, 0.75F, 1.0F}) * (across * BRIGHTEST);
            image(x, y).alpha = 1.0F;
        }
    }
    for (int y = (size.y - stripeSize.y) / 2; y < (size.y + stripeSize.y) / 2; ++y) {
        for (int x = (size.x - stripeSize.x) / 2; x < (size.x + stripeSize.x) / 2; ++x) {
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
        , _image(makeSweep(Wx::scaleByDpi(SIZE), Wx::scaleByDpi(STRIPE_SIZE))) {
        BitmapImpl<Rgb> shown(_image.getWidth(), _image.getHeight());
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
        // In the stripe, so far to the left that the probe lies on the picture.
        const Pixel middle = Wx::scaleByDpi(Pixel{(SIZE.x - STRIPE_SIZE.x) / 2 + 4, SIZE.y / 2});
        const wxPoint cursor = _view->ClientToScreen(wxPoint(middle.x, middle.y));
        _probe->updatePosition({cursor.x, cursor.y});
        _probe->Show();
        _probe->Update();
    }

private:
    Wx::PixelProbe::ProbedPixel probe(const Pixel& cursor) {
        const wxPoint inView = _view->ScreenToClient(wxPoint(cursor.x, cursor.y));
        const Pixel position{std::clamp(inView.x, 0, _image.getWidth() - 1),
                             std::clamp(inView.y, 0, _image.getHeight() - 1)};
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
