// What the gallery's page "Lab" computes.

#include "lab/FalseColors.h"
#include "lab/Placement.h"
#include "lab/Rendering.h"
#include "lab/Tones.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <mutex>
#include <thread>
#include <tuple>

using namespace Ostrel;
using namespace Ostrel::Gallery;

namespace {

constexpr float BYTE = 1.0F / 255.0F;

Rgb show(const Shading& tones, Rgb value) {
    tones.apply({&value, 1}, {&value, 1});
    return value;
}

TEST(LabTones, AreTheCurvesOneAfterTheOther) {
    const Curve contrast({{0, 0}, {0.3F, 0.1F}, {0.7F, 0.9F}, {1, 1}});
    const Curve steep({{0, 0.2F}, {0.5F, 0.0F}, {0.51F, 1.0F}, {1, 0.8F}});
    const Curve high({{0, 0}, {0.3F, 0.1F}, {0.7F, 0.9F}, {900, 1}});
    const Curve wide({{-0.5F, 0.1F}, {1.5F, 0.4F}, {7.5F, 0.9F}});
    const Curve straight({{0.25F, 1}, {0.75F, 0}}, CurveInterpolation::LINEAR);
    const Curve step({{0, 0}, {0.5F, 0.25F}, {0.5F, 0.75F}, {1, 1}});
    const std::tuple<Curve, Curve, float, const char*> cases[] = {
        {contrast, Curve(), BYTE / 1000, "own alone"},
        {Curve(), contrast, BYTE / 1000, "Master alone"},
        {straight, contrast, BYTE / 100, "own, then Master"},
        {contrast, straight, BYTE / 100, "in this order"},
        {steep, Curve(), BYTE / 8, "points 0.01 apart"},
        {wide, Curve(), BYTE / 1000, "beyond the unit"},
        {high, Curve(), BYTE / 100, "a point far away"},
        {step, Curve(), 0.5F, "a step"},
        {Curve(Array<CurvePoint>()), contrast, BYTE / 1000, "no point"},
        {Curve(), wide, BYTE / 1000, "an identity lets values above 1 through to Master"}};
    for (const auto& [own, master, tolerance, what] : cases) {
        const ToneTables tones({{master, Curve(), own, Curve()}}, PictureValues::STORED);
        const ToneTables light({{master, Curve(), own, Curve()}}, PictureValues::LIGHT);
        const ExactTones exact({{master, Curve(), own, Curve()}}, PictureValues::LIGHT);
        for (int i = -300; i <= 8000; ++i) {
            const float x = static_cast<float>(i) * 0.00123F;
            const float between = own.isIdentity() ? x : own(x);
            const float expected = master.isIdentity() ? between : master(between);
            ASSERT_NEAR(show(tones, {0, x, 0}).green, expected, tolerance) << what << " at " << x;
            ASSERT_EQ(show(exact, {0, x, 0}).green, encodeSrgb(expected)) << what << " at " << x;
            ASSERT_NEAR(show(light, {0, x, 0}).green, encodeSrgb(expected), std::sqrt(tolerance))
                << what << " at " << x;
        }
    }
    const float infinite = std::numeric_limits<float>::infinity();
    const ToneTables tones({{contrast, Curve(), Curve(), Curve()}}, PictureValues::STORED);
    EXPECT_EQ(show(tones, {std::nanf(""), infinite, -infinite, 0.5F}), (Rgb{0, 1, 0, 1}));
}

TEST(LabPlacement, KeepsWhatIsUnderThePointerAndThePictureInTheView) {
    Placement placement;
    placement.setSizes({1920, 1080}, {480, 400});
    EXPECT_EQ(placement.getScale(), 0.25);
    EXPECT_FALSE(placement.toPicture({240, 64})) << "above the picture, which is in the middle";
    EXPECT_EQ(placement.toPicture({479, 65}), (Pixel{1918, 2}));
    for (const int steps : {1, 1, 1, 7, -2, 40}) {
        const Pixel pointer{100, 200};
        const Pixel before = placement.toPicture(pointer).value();
        placement.zoomAbout(pointer, steps);
        const Pixel moved = placement.toPicture(pointer).value() - before;
        EXPECT_LE(std::max(std::abs(moved.x), std::abs(moved.y)), 3) << steps << " steps";
    }
    EXPECT_EQ(placement.getScale(), Placement::LARGEST_SCALE);
    placement.pan({1'000'000, -1'000'000});
    EXPECT_EQ(placement.toPicture({0, 399}), (Pixel{0, 1079}));
    placement.zoomAbout({0, 0}, -100);
    EXPECT_EQ(placement.getScale(), 0.25);
    placement.setSizes({3, 2}, {0, 0}); // another picture, and no view
    EXPECT_TRUE(placement.toPicture({0, 0}));
}

TEST(LabPlacement, ShowsEachPixelOnceAsItIsAndSeveralAsTheirMean) {
    BitmapImpl<Rgb> picture(97, 53);
    for (int i = 0; i < 97 * 53; ++i) {
        picture.data()[i] = {static_cast<float>(i % 97) / 97, static_cast<float>(i / 97) / 53, 0.0F};
    }
    picture(0, 0).red = 900.0F; // a highlight counts as white
    const Rgb ground{0, 0, 1};
    const ToneTables tones(ColorCurve(), PictureValues::STORED);
    BitmapImpl<Rgb> shown;
    for (const Pixel view : {Pixel{31, 40}, Pixel{97, 53}, Pixel{250, 201}, Pixel{1, 1}}) {
        Placement placement;
        placement.setSizes({97, 53}, view);
        showPicture(picture, tones, placement, ground, shown);
        for (int y = 0; y < view.y; ++y) {
            for (int x = 0; x < view.x; ++x) {
                const Optional<Pixel> pixel = placement.toPicture({x, y});
                const Rgb expected = pixel ? picture(pixel->x, pixel->y) : ground;
                const double apart = placement.getScale() < 1.0 ? 0.6 / placement.getScale() / 53 : 1e-4;
                EXPECT_NEAR(shown(x, y).green, expected.green, apart) << view.x << ": " << x << ", " << y;
                EXPECT_LE(shown(x, y).red, 1.0F);
            }
        }
    }
    EXPECT_NEAR(shown(0, 0).green, 0.5, 0.02) << "the whole picture on one pixel";
}

TEST(LabTones, MakeTheWhitePointGreyAndKeepItsLuminance) {
    const struct {
        Rgb white, factors;
    } cases[] = {{{0.4F, 0.5F, 0.8F}, {}},
                 {{0, 0, 0}, {1, 1, 1}},
                 {{std::nanf(""), 1, 1}, {1, 1, 1}},
                 {{0, 0.001F, 1}, {MOST_BALANCE, MOST_BALANCE, 0.0729F}}};
    for (const auto& [white, factors] : cases) {
        const Rgb found = getWhiteBalance(white);
        if (factors.red != 0) {
            EXPECT_NEAR(found.red + found.green + found.blue, factors.red + factors.green + factors.blue, 0.001F);
            continue;
        }
        const Rgb grey = white * found;
        EXPECT_NEAR(grey.red, grey.blue, 1e-6F);
        EXPECT_NEAR(grey.green, getLuminance(white), 1e-6F);
    }
    for (const float stored : {0.0F, 0.04F, 0.2F, 1.0F, 3.0F}) {
        EXPECT_NEAR(encodeSrgb(decodeSrgb({stored, 0, 0, 0.5F})).red, stored, 1e-5F);
    }
}

TEST(LabFalseColors, AreThoseOfTheMappingWithItsEndsBeyondIt) {
    VolumeGridMapping mapping = makeFalseColors(0.25F);
    mapping.curve = Curve({{0, 0}, {0.3F, 0.6F}, {0.8F, 0.5F}, {1, 1}});
    const FalseColors colors(mapping);
    const float infinite = std::numeric_limits<float>::infinity();
    const std::pair<float, float> cases[] = {
        {0, 0},  {1, 0.25F},     {2.7F, 0.675F},     {4, 1},      {900, 1},          {infinite, 1},
        {-3, 0}, {-infinite, 0}, {3.999F, 0.99975F}, {1e-30F, 0}, {std::nanf(""), 0}};
    for (const auto& [value, scaled] : cases) {
        const Rgb apart = show(colors, {value, value, value}) - getFalseColor(mapping, scaled);
        EXPECT_LT(std::abs(apart.red) + std::abs(apart.green) + std::abs(apart.blue), BYTE) << value;
    }
    BitmapImpl<Rgb> picture(3, 1, {infinite, 0, 0});
    EXPECT_EQ(getScaleToFit(picture), 1.0F);
    picture(1, 0) = {8, 8, 8};
    EXPECT_NEAR(getScaleToFit(picture), 0.125F, 1e-6F);
}

/// The next picture that is there.
Rendering::Picture await(Rendering& rendering) {
    for (;;) {
        if (const Rendering::Picture picture = rendering.takePicture()) {
            return picture;
        }
        std::this_thread::yield();
    }
}

bool isCoarse(const BitmapImpl<Rgb>& picture) {
    for (int x = 0; x + 2 < picture.getWidth(); x += 3) {
        if (picture(x, 0) != picture(x + 2, 2)) {
            return false;
        }
    }
    return true;
}

TEST(LabRendering, ShowsColoursThatAreTriedCoarselyAndThePictureAgainAfterwards) {
    const SceneColors usual;
    const SceneColors red = getSceneColors({0.9F, 0, 0}, {5, std::nanf(""), -1});
    EXPECT_EQ(red.sphere, (Rgb{1, 0, 0})) << "a sphere does not shine";
    std::mutex mutex;
    Array<Optional<float>> told;
    Rendering rendering({60, 48}, usual, [&](Optional<float> progress) {
        const std::lock_guard lock(mutex);
        told.push_back(progress);
    });
    EXPECT_FALSE(rendering.isAwaited());
    rendering.start(4);
    while (rendering.isAwaited()) {
        EXPECT_FALSE(isCoarse(*await(rendering)));
    }
    EXPECT_EQ(rendering.getPassCount(), 4);
    const auto isDone = [&] {
        const std::lock_guard lock(mutex);
        return told.size() == 5 && told[1] == 0.5F && told[3] == 1.0F && !told[4];
    };
    while (!isDone()) {
        std::this_thread::yield();
    }

    rendering.tryColors(red);
    const Rendering::Picture tried = await(rendering);
    EXPECT_TRUE(isCoarse(*tried));
    EXPECT_GT((*tried)(0, 0).red, 2 * (*tried)(0, 0).blue);
    EXPECT_EQ((*tried)(0, 0).alpha, 0.0F) << "the sky";
    rendering.tryColors(usual);
    EXPECT_FALSE(isCoarse(*await(rendering)));
    EXPECT_FALSE(rendering.isAwaited()) << "it has not been rendered anew";

    rendering.setColors(red);
    EXPECT_FALSE(isCoarse(*await(rendering)));
    rendering.start(1'000'000);
    static_cast<void>(await(rendering));
    rendering.stop();
    EXPECT_GE(rendering.getPassCount(), 1);
    EXPECT_FALSE(rendering.isRunning());
}

TEST(LabRenderer, RendersTheSameOnAnyNumberOfThreadsAndStopsWhenToldTo) {
    const auto render = [](unsigned threads) {
        const Renderer renderer({.size = {48, 40}, .passLimit = 3}, {}, threads);
        while (renderer.getResult().passCount < 3) {
            std::this_thread::yield();
        }
        return *renderer.getResult().picture;
    };
    const BitmapImpl<Rgb> picture = render(1);
    EXPECT_EQ(render(3), picture);
    const auto isLight = [](const Rgb& c) {
        return std::isfinite(c.red + c.green + c.blue) && c.blue > 0 && c.alpha >= 0 && c.alpha <= 1;
    };
    EXPECT_TRUE(std::all_of(picture.data(), picture.data() + picture.size(), isLight));
    Renderer({.size = {1000, 1000}, .passLimit = 1'000'000}).setPaused(true); // would take days
    const BitmapImpl<Rgb> depth = renderDepth({48, 40});
    EXPECT_TRUE(std::isinf(depth(24, 0).red)) << "the sky";
    EXPECT_GT(depth(24, 38).red, 3.0F);
    EXPECT_LT(depth(24, 39).red, depth(24, 35).red) << "the ground comes nearer";
}

} // namespace
