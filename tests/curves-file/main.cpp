// Compares curves files, and the library's curves, with what another program makes of them: tools/check-curves-file.
//
// Usage: curves-file-check write FOLDER      saves NAME.acv for every case, and ramp.rgb, a grey ramp of 256 × 1 pixels
//        curves-file-check compare FOLDER    judges NAME.rgb, the ramp as the other program has put it through NAME.acv
//
// The other program takes a truncated input for the beginning of each piece of a curve, up to one step before the
// point, and truncates the value. So between the points it may lie off by a step and by what the curve rises in one,
// and what goes into a second curve comes out of that with both.

#include <OstrelLib/Streams.h>
#include <OstrelLibWx/CurvesFile.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string_view>

namespace {

using namespace Ostrel;

constexpr int STEPS = 255;
constexpr float STEP = 0.003921569F;
using Ramp = std::array<unsigned char, 3 * (STEPS + 1)>;
using Points = Array<std::array<int, 2>>; ///< input and output in steps

const Points PLAIN{{0, 0}, {255, 255}};

const struct Case {
    const char* name;
    std::array<Points, CURVE_CHANNEL_COUNT> points;
} CASES[] = {
    {"contrast", {Points{{0, 0}, {64, 48}, {128, 128}, {192, 210}, {255, 255}}, PLAIN, PLAIN, PLAIN}},
    {"channels",
     {PLAIN, Points{{0, 20}, {90, 60}, {180, 200}, {255, 240}}, Points{{0, 255}, {120, 150}, {255, 10}},
      Points{{0, 30}, {40, 60}, {80, 70}, {120, 140}, {160, 150}, {200, 190}, {255, 220}}}},
    {"flat-ends", {Points{{40, 30}, {128, 140}, {220, 230}}, PLAIN, PLAIN, PLAIN}},
    {"composite",
     {Points{{0, 10}, {100, 120}, {255, 250}}, Points{{0, 0}, {128, 100}, {255, 255}}, PLAIN,
      Points{{0, 0}, {70, 100}, {255, 255}}}},
};

Curve makeCurve(const Points& points) {
    Array<CurvePoint> made;
    for (const auto& [input, output] : points) {
        made.push_back({static_cast<float>(input) * STEP, static_cast<float>(output) * STEP});
    }
    return Curve(made);
}

bool write(const Path& folder) {
    Ramp ramp;
    for (std::size_t i = 0; i < ramp.size(); ++i) {
        ramp[i] = static_cast<unsigned char>(i / 3);
    }
    Io::FileOutputStream(folder / "ramp.rgb").write(ramp.data(), ramp.size());
    return std::all_of(std::begin(CASES), std::end(CASES), [&folder](const Case& c) {
        ColorCurve curves;
        std::transform(c.points.begin(), c.points.end(), curves.curves.begin(), makeCurve);
        return Wx::saveCurves(curves, folder / (String(c.name) + ".acv"));
    });
}

/// What truncation can change in the curve's value at `x`, in steps, if `x` is off by so many.
float getAllowance(const Points& points, float x, float off) {
    const Curve curve = makeCurve(points);
    const float rise = std::max(std::abs(curve(x + STEP) - curve(x)), std::abs(curve(x) - curve(x - STEP))) / STEP;
    return points == PLAIN ? off : 1.0F + rise * (1.0F + off);
}

bool compare(const Case& c, const Path& folder) {
    const Points& master = c.points[0];
    Ramp ramp{};
    Io::FileInputStream(folder / (String(c.name) + ".rgb")).readExactly(ramp.data(), ramp.size());
    float atPoints = 0.0F;
    float anywhere = 0.0F;
    float left = STEPS; // before truncation does not explain it
    for (std::size_t i = 0; i < ramp.size(); ++i) {
        const int input = static_cast<int>(i / 3);
        const Points& own = c.points[1 + i % 3];
        const float x = static_cast<float>(input) * STEP;
        const float between = makeCurve(own)(x);
        const float value = std::clamp(makeCurve(master)(between), 0.0F, 1.0F) / STEP;
        const float apart = std::abs(value - static_cast<float>(ramp[i]));
        anywhere = std::max(anywhere, apart);
        left = std::min(left, getAllowance(master, between, getAllowance(own, x, 0.0F)) - apart);
        const Points& points = own == PLAIN ? master : own;
        if ((own == PLAIN || master == PLAIN) &&
            std::any_of(points.begin(), points.end(), [input](const auto& point) { return point[0] == input; })) {
            atPoints = std::max(atPoints, apart);
        }
    }
    constexpr float ROUNDING = 0.001F;
    const bool good = atPoints <= 1.0F + ROUNDING && left >= -ROUNDING;
    std::printf("[ RUN      ] CurvesFile.%s\nsteps of 255 apart: %.2f at the points, %.2f anywhere, %.2f left\n",
                c.name, static_cast<double>(atPoints), static_cast<double>(anywhere), static_cast<double>(left));
    std::printf("[  %s ] CurvesFile.%s\n", good ? "     OK" : "FAILED ", c.name);
    return good;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        return 2;
    }
    const Path folder(argv[2]);
    if (std::string_view(argv[1]) == "write") {
        return write(folder) ? 0 : 1;
    }
    const auto passed =
        std::count_if(std::begin(CASES), std::end(CASES), [&](const Case& c) { return compare(c, folder); });
    const auto failed = std::ssize(CASES) - passed;
    std::printf("[  PASSED  ] %d tests.\n[  FAILED  ] %d tests.\n", static_cast<int>(passed), static_cast<int>(failed));
    return failed == 0 ? 0 : 1;
}
