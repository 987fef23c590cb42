// Every conversion is measured in turns with a plain copy that reads and writes as many bytes in all, and with a plain
// loop over the pixels. Each line shows the medians of the ratios: "of_copy" is the copy's time over the conversion's
// (1: as fast as memory), "of_loop" how many times as fast as the loop it is.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <wx/dcmemory.h>
#include <wx/dcscreen.h>

#include <OstrelLibWx/BitmapUtils.h>

#include "LibraryUp.h"
#include "Turns.h"
#include "models/PixelConversion.h"
#include "models/PixelKernels.h"
#include "platform/ScreenReadBack.h"
#include "support/ScreenPicture.h"

namespace {

using namespace Ostrel;
using Detail::ByteOrder;
using Bytes = std::vector<unsigned char>;

struct Size {
    int width, height;
    [[nodiscard]] std::size_t pixels() const {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    }
};
constexpr Size SIZES[] = {{256, 256}, {1920, 1080}, {3840, 2160}};

/// Runs the three in turns; the benchmark's own time is the conversion's.
template <class Conversion, class Copy, class Loop>
void measureInTurns(benchmark::State& state, const Conversion& convert, const Copy& copy, const Loop& loop) {
    std::vector<double> ofCopy;
    std::vector<double> ofLoop;
    convert(); // what is done once is done here
    copy();
    for (auto _ : state) {
        const double own = measureSeconds(convert);
        ofCopy.push_back(measureSeconds(copy) / own);
        ofLoop.push_back(measureSeconds(loop) / own);
        state.SetIterationTime(own);
    }
    state.counters["of_copy"] = median(ofCopy);
    state.counters["of_loop"] = median(ofLoop);
}

BitmapImpl<Rgb> makeImage(Size size) {
    BitmapImpl<Rgb> image(size.width, size.height);
    std::uint32_t random = 1;
    const auto next = [&random] {
        random = random * 1664525U + 1013904223U;
        return static_cast<float>(random >> 8U) / 16777216.0F;
    };
    for (std::size_t i = 0; i < image.size(); ++i) {
        image.data()[i] = {next(), next(), next(), next()};
    }
    return image;
}

void loopToBytes(const BitmapImpl<Rgb>& image, ByteOrder order, unsigned char* bytes) {
    const auto toByte = [](float value, bool truncated) {
        constexpr float NO_FRACTION = 0x1p23F; // rounds what it is added to
        const float scaled = value > 0.0F ? (value < 1.0F ? value * 255.0F : 255.0F) : 0.0F;
        return static_cast<unsigned char>(truncated ? scaled : scaled + NO_FRACTION - NO_FRACTION);
    };
    for (std::size_t i = 0; i < image.size(); ++i) {
        const Rgb& pixel = image.data()[i];
        *bytes++ = toByte(pixel.red, false);
        *bytes++ = toByte(pixel.green, false);
        *bytes++ = toByte(pixel.blue, false);
        if (Detail::getPixelSize(order) == 4) {
            *bytes++ = toByte(pixel.alpha, true);
        }
    }
}

void loopToPixels(const unsigned char* bytes, ByteOrder order, BitmapImpl<Rgb>& image) {
    const auto toFloat = [](unsigned char byte) { return static_cast<float>(byte) * (1.0F / 255.0F); };
    for (std::size_t i = 0; i < image.size(); ++i) {
        Rgb& pixel = image.data()[i];
        pixel.red = toFloat(*bytes++);
        pixel.green = toFloat(*bytes++);
        pixel.blue = toFloat(*bytes++);
        pixel.alpha = Detail::getPixelSize(order) == 4 ? toFloat(*bytes++) : 1.0F;
    }
}

/// The conversion alone, between memory that is there already.
void convertRows(benchmark::State& state, const Detail::PixelKernels& kernels, bool toBytes, ByteOrder order,
                 Size size) {
    if (&kernels == &Detail::AVX2_KERNELS && !Detail::hasAvx2()) {
        state.SkipWithError("this machine has no AVX2");
        return;
    }
    BitmapImpl<Rgb> image = makeImage(size);
    const std::size_t rowSize = static_cast<std::size_t>(size.width) * Detail::getPixelSize(order);
    Bytes bytes(rowSize * static_cast<std::size_t>(size.height), 77);
    const std::size_t half = (bytes.size() + image.size() * sizeof(Rgb)) / 2;
    const Bytes from(half, 1);
    Bytes to(half, 2);
    const auto stride = static_cast<std::ptrdiff_t>(rowSize);
    const auto convert = [&] {
        if (toBytes) {
            Detail::convertToBytes(kernels, image, order, bytes.data(), stride);
        } else {
            Detail::convertToPixels(kernels, bytes.data(), stride, order, image);
        }
    };
    measureInTurns(
        state, convert, [&] { std::memcpy(to.data(), from.data(), half); },
        [&] { toBytes ? loopToBytes(image, order, bytes.data()) : loopToPixels(bytes.data(), order, image); });
}

/// The library's functions with all that they do, the result's memory included; so the copy makes its own memory too.
void convertBitmap(benchmark::State& state, bool toBitmap, bool withAlpha, Size size) {
    const LibraryUp library;
    BitmapImpl<Rgb> image = makeImage(size);
    wxBitmap bitmap = Wx::toWxBitmap(image, withAlpha);
    const ByteOrder order = withAlpha ? ByteOrder::RGBA : ByteOrder::RGB;
    Bytes bytes(size.pixels() * Detail::getPixelSize(order), 77);
    const std::size_t half = (bytes.size() + image.size() * sizeof(Rgb)) / 2;
    const Bytes from(half, 1);
    measureInTurns(
        state,
        [&] {
            if (toBitmap) {
                benchmark::DoNotOptimize(Wx::toWxBitmap(image, withAlpha));
            } else {
                benchmark::DoNotOptimize(Wx::toRgbBitmap(bitmap));
            }
        },
        [&] {
            const std::unique_ptr<unsigned char[]> to(new unsigned char[half]);
            std::memcpy(to.get(), from.data(), half);
            benchmark::DoNotOptimize(to.get());
        },
        [&] { toBitmap ? loopToBytes(image, order, bytes.data()) : loopToPixels(bytes.data(), order, image); });
}

/// The eye dropper's piece of the screen, in turns with the toolkit's copy of the screen and a plain conversion of it,
/// and with the window system's bare read-back ("of_read_back", 1: as fast).
void captureScreen(benchmark::State& state) {
    constexpr int EDGE = 256;
    constexpr Bucket REGION{{100, 100}, {100 + EDGE, 100 + EDGE}};
    const LibraryUp library;
    ScreenReadBack readBack(REGION);
    std::vector<double> ofToolkit;
    std::vector<double> ofReadBack;
    const auto capture = [REGION] { benchmark::DoNotOptimize(Wx::getScreenRegionColors(REGION)); };
    capture();
    readBack.read();
    for (auto _ : state) {
        const double own = measureSeconds(capture);
        ofToolkit.push_back(measureSeconds([REGION] {
                                wxBitmap bitmap(EDGE, EDGE);
                                wxScreenDC screen;
                                dropKeptScreenPicture(screen); // or it would not look at the screen at all
                                wxMemoryDC memory(bitmap);
                                memory.Blit(0, 0, EDGE, EDGE, &screen, REGION.min.x, REGION.min.y);
                                memory.SelectObject(wxNullBitmap);
                                const wxImage shown = bitmap.ConvertToImage();
                                BitmapImpl<Rgb> image(EDGE, EDGE);
                                loopToPixels(shown.GetData(), ByteOrder::RGB, image);
                                benchmark::DoNotOptimize(image);
                            }) /
                            own);
        ofReadBack.push_back(measureSeconds([&readBack] { readBack.read(); }) / own);
        state.SetIterationTime(own);
    }
    state.counters["of_toolkit"] = median(ofToolkit);
    state.counters["of_read_back"] = median(ofReadBack);
}
BENCHMARK(captureScreen)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// One line for each combination; the name tells which.
bool registerAll() {
    for (const Size size : SIZES) {
        std::string suffix("/");
        suffix.append(std::to_string(size.width)).append("x").append(std::to_string(size.height));
        const auto add = [&suffix](std::string name, auto... arguments) {
            name += suffix;
            benchmark::RegisterBenchmark(name.c_str(), arguments...)
                ->UseManualTime()
                ->Unit(benchmark::kMicrosecond)
                ->MinTime(0.2);
        };
        for (const bool withAlpha : {false, true}) {
            const char* const alpha = withAlpha ? "/alpha" : "/opaque";
            const ByteOrder order = withAlpha ? ByteOrder::BGRA : ByteOrder::BGR;
            for (const bool toBytes : {true, false}) {
                for (const Detail::PixelKernels* const kernels : {&Detail::BASELINE_KERNELS, &Detail::AVX2_KERNELS}) {
                    std::string name(toBytes ? "rowsToBytes/" : "rowsToPixels/");
                    name.append(kernels->name).append(alpha);
                    add(name, [=](benchmark::State& state) { convertRows(state, *kernels, toBytes, order, size); });
                }
                add(std::string(toBytes ? "toWxBitmap" : "toRgbBitmap").append(alpha),
                    [=](benchmark::State& state) { convertBitmap(state, toBytes, withAlpha, size); });
            }
        }
    }
    return true;
}
const bool registered = registerAll();

} // namespace
