#include "models/CurvesFile.h"

#include "core/Printing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <random>
#include <tuple>

using namespace Ostrel;

namespace {

using Numbers = std::vector<unsigned>;
using Points = Array<CurvePoint>;

constexpr const char* LOADS = "loads";
constexpr const char* ENDS_EARLY = "Could not load object from the stream.";
constexpr const char* WRONG_VERSION = "Version 1 of acv file is not supported.";
constexpr float STEP = 0.003921569F;

std::vector<unsigned char> toBytes(const Numbers& numbers) {
    std::vector<unsigned char> bytes;
    for (const unsigned number : numbers) {
        bytes.push_back(static_cast<unsigned char>(number / 256));
        bytes.push_back(static_cast<unsigned char>(number % 256));
    }
    return bytes;
}

/// A file that goes away with the test.
class CurvesFile : public testing::Test {
protected:
    ~CurvesFile() override {
        std::error_code ignored;
        std::filesystem::remove(path.native(), ignored);
    }

    Expected<ColorCurve, String> load(const std::vector<unsigned char>& bytes) const {
        Io::FileOutputStream file(path);
        file.write(bytes.data(), bytes.size());
        file.close();
        return Detail::loadCurves(path);
    }

    const Path path = Path(std::filesystem::temp_directory_path()) /
                      (L"ostrel \x540D " + String(std::to_wstring(std::random_device()())) + ".acv");
};

TEST_F(CurvesFile, ExtendsEachRecordFlatToBothEndsAndSortsIt) {
    // The record has output and input in turns.
    const std::tuple<Numbers, Points, const char*> cases[] = {
        {{10, 20, 150, 200},
         {{0, 10 * STEP}, {20 * STEP, 10 * STEP}, {200 * STEP, 150 * STEP}, {1, 150 * STEP}},
         "both"},
        {{0, 0, 255, 255}, {{0, 0}, {255 * STEP, 255 * STEP}}, "whole already"},
        {{1, 254}, {{0, STEP}, {254 * STEP, STEP}, {1, STEP}}, "one point"},
        {{7, 1, 9, 255}, {{0, 7 * STEP}, {STEP, 7 * STEP}, {255 * STEP, 9 * STEP}}, "the next input to 0 is extended"},
        {{5, 255, 6, 0},
         {{0, 6 * STEP}, {0, 5 * STEP}, {1, 5 * STEP}, {1, 6 * STEP}},
         "first and last are those of the file: a whole one in the wrong order is extended at both ends"},
        {{0, 0, 300, 65535}, {{0, 0}, {65535 * STEP, 300 * STEP}}, "beyond the range"},
        {{}, {{0, 0}, {1, 1}}, "no point"},
    };
    for (const auto& [record, points, what] : cases) {
        Numbers file{4, 2, 2, 3, 0, 4, 255, static_cast<unsigned>(record.size() / 2)};
        file.insert(file.end(), record.begin(), record.end());
        const auto curves = load(toBytes(file));
        ASSERT_TRUE(curves) << what;
        EXPECT_EQ((*curves)[CurveChannel::RED].getPoints(), points) << what;
        EXPECT_EQ((*curves)[CurveChannel::MASTER].getPoints(), (Points{{0, 3 * STEP}, {255 * STEP, 4 * STEP}}));
        EXPECT_EQ((*curves)[CurveChannel::GREEN], Curve()) << what << ": no record";
    }
}

TEST_F(CurvesFile, LoadsFewerAndMoreRecordsAndRefusesTheRestAsAWhole) {
    const auto withRecords = [](unsigned promised, int written, const Numbers& rest = {}) {
        Numbers file{4, promised};
        for (int i = 0; i < written; ++i) {
            file.insert(file.end(), {2, 9, 0, 90, 255});
        }
        file.insert(file.end(), rest.begin(), rest.end());
        return toBytes(file);
    };
    // The error, or that it loads.
    const std::tuple<std::vector<unsigned char>, const char*, const char*> cases[] = {
        {withRecords(60, 4, {65535}), LOADS, "of the fifth, the count alone is there and read"},
        {withRecords(5, 4), ENDS_EARLY, "of the fifth, not even the count is there"},
        {withRecords(4, 3, {0}), LOADS, "a record without points"},
        {withRecords(4, 4, {1, 2, 3}), LOADS, "something behind"},
        {{0, 4, 0, 1, 0, 1, 0, 9, 0}, ENDS_EARLY, "in the middle of a point"},
        {withRecords(1, 0, {65535}), ENDS_EARLY, "65535 points promised in 6 bytes"},
        {{}, ENDS_EARLY, "empty"},
        {toBytes({1, 0}), WRONG_VERSION, "version 1"},
        {toBytes({5}), WRONG_VERSION, "version 5, and nothing else"},
        {toBytes({0x0400, 0x0400}), WRONG_VERSION, "the low byte first"},
    };
    for (const auto& [bytes, error, what] : cases) {
        const auto curves = load(bytes);
        EXPECT_EQ(curves ? String(LOADS) : curves.error(), String(error)) << what;
    }
    for (const Path& unreadable : {path / "missing", path.parentDirectory(), Path()}) {
        const auto curves = Detail::loadCurves(unreadable);
        ASSERT_FALSE(curves);
        EXPECT_EQ(curves.error(), "Cannot open the file \"" + unreadable.nativeStr() + "\" for reading.");
        EXPECT_FALSE(Detail::saveCurves(ColorCurve(), unreadable));
    }
}

TEST_F(CurvesFile, WritesTruncatedStepsThatWrapIn16Bits) {
    constexpr float INFINITE = std::numeric_limits<float>::infinity();
    const std::pair<float, unsigned> cases[] = {
        {1.2F, 306},      {0.9999F, 254},          {-0.003F, 0},  {-0.004F, 0xFFFF}, {-1.0F, 0xFF01},
        {257.0F, 0xFFFF}, {258.0F, 65790 - 65536}, {INFINITE, 0}, {-INFINITE, 0},    {std::nanf(""), 0}};
    ColorCurve curves;
    Points points;
    Numbers expected{4, 4, 2, 0, 0, 255, 255, static_cast<unsigned>(std::size(cases))};
    for (const auto& [value, written] : cases) {
        points.push_back({0.5F, value});
        expected.insert(expected.end(), {written, 127});
    }
    curves[CurveChannel::RED].setPoints(points);
    curves[CurveChannel::GREEN].setPoints({});
    curves[CurveChannel::BLUE].setPoints({{1.0F, 0.0F}, {0.0F, 1.0F}}); // keeps its order
    expected.insert(expected.end(), {0, 2, 0, 255, 255, 0});
    EXPECT_EQ(Detail::encodeCurves(curves), toBytes(expected));
}

TEST_F(CurvesFile, GivesBackEveryStepAsItWas) {
    // All 256 as inputs and as outputs, in an order of their own for each channel.
    Numbers file{4, 4};
    for (unsigned channel = 0; channel < 4; ++channel) {
        file.push_back(256);
        for (unsigned v = 0; v < 256; ++v) {
            file.insert(file.end(), {(v * 77 + channel) % 256, v});
        }
    }
    const auto curves = load(toBytes(file));
    ASSERT_TRUE(curves);
    ASSERT_TRUE(Detail::saveCurves(*curves, path));
    EXPECT_EQ(Detail::encodeCurves(*curves), toBytes(file));
    const auto again = Detail::loadCurves(path);
    ASSERT_TRUE(again);
    EXPECT_EQ(*again, *curves);
}

} // namespace
