// What the gallery's page "Lab" saves.

#include "lab/PictureFile.h"

#include <OstrelLib/Geometry.h>

#include <gtest/gtest.h>
#include <png.h>
#include <tiffio.h>

#include <bit>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>

using namespace Ostrel;
using namespace Ostrel::Gallery;
using enum ImageColorFormat;

namespace {

constexpr float INFINITE = std::numeric_limits<float>::infinity();

class LabPictureFile : public testing::Test {
protected:
    Path in(const char* name) const { return Path(_folder) / Path(name); }
    void SetUp() override { std::filesystem::create_directories(_folder); }
    void TearDown() override { std::filesystem::remove_all(_folder); }

private:
    const std::filesystem::path _folder = std::filesystem::temp_directory_path() / "lab-picture-file";
};

/// What a file says: its samples as numbers, a float's as its value.
struct Read {
    Pixel size;
    int bits = 0;
    int channels = 0;
    bool isFloat = false;
    Array<double> samples{};
};

double fromHalf(std::uint16_t half) {
    const int exponent = half >> 10 & 31;
    const double fraction = half & 1023;
    const double size = exponent == 31  ? (fraction > 0 ? std::nan("") : HUGE_VAL)
                        : exponent == 0 ? std::ldexp(fraction, -24)
                                        : std::ldexp(fraction + 1024, exponent - 25);
    return half & 0x8000 ? -size : size;
}

Read readTiff(const std::string& name) {
    Read read;
    TIFF* const tiff = TIFFOpen(name.c_str(), "r");
    if (tiff == nullptr) {
        return read;
    }
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint16_t bits = 0;
    std::uint16_t channels = 0;
    std::uint16_t sampleFormat = 0;
    TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &width);
    TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &height);
    TIFFGetField(tiff, TIFFTAG_BITSPERSAMPLE, &bits);
    TIFFGetField(tiff, TIFFTAG_SAMPLESPERPIXEL, &channels);
    TIFFGetField(tiff, TIFFTAG_SAMPLEFORMAT, &sampleFormat);
    read = {{static_cast<int>(width), static_cast<int>(height)}, bits, channels, sampleFormat == SAMPLEFORMAT_IEEEFP};
    Array<std::byte> row(static_cast<std::size_t>(TIFFScanlineSize(tiff)));
    for (std::uint32_t y = 0; y < height; ++y) {
        EXPECT_EQ(TIFFReadScanline(tiff, row.data(), y), 1);
        for (std::size_t i = 0; i < row.size(); i += bits / 8U) {
            float number = 0;
            std::uint16_t half = 0;
            std::memcpy(&number, &row[i], bits == 32 ? 4 : 0);
            std::memcpy(&half, &row[i], bits == 16 ? 2 : 0);
            read.samples.push_back(bits == 32     ? number
                                   : bits == 8    ? std::to_integer<int>(row[i])
                                   : read.isFloat ? fromHalf(half)
                                                  : half);
        }
    }
    TIFFClose(tiff);
    return read;
}

Read readPng(const std::string& name) {
    Read read;
    std::FILE* const file = std::fopen(name.c_str(), "rb");
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_init_io(png, file);
    png_read_png(png, info, PNG_TRANSFORM_IDENTITY, nullptr); // a damaged file would end the test program
    read.size = {static_cast<int>(png_get_image_width(png, info)), static_cast<int>(png_get_image_height(png, info))};
    read.bits = png_get_bit_depth(png, info);
    read.channels = png_get_channels(png, info);
    for (int y = 0; y < read.size.y; ++y) {
        const png_bytep row = png_get_rows(png, info)[y];
        for (int i = 0; i < read.size.x * read.channels; ++i) {
            read.samples.push_back(read.bits == 8 ? row[i] : row[2 * i] * 256 + row[2 * i + 1]);
        }
    }
    png_destroy_read_struct(&png, &info, nullptr);
    std::fclose(file);
    return read;
}

TEST_F(LabPictureFile, HoldsWhatThePictureDoesInEachForm) {
    Image image(BitmapImpl<Rgb>(19, 7, {0.1F, 0.2F, 0.3F, 0.4F}));
    image(0, 0) = {1, 0, 0.5F, 1};
    image(18, 0) = {-2, 700.25F, INFINITE, 0};
    image(0, 6) = {std::nanf(""), 1e-6F, 65520, 1e-9F};
    const struct {
        const char* name;
        ImageColorFormat format;
        int bits;
        double corner[4], odd[4], tiny[4], tolerance;
    } cases[] = {
        {"a.png", SRGB_8_BIT, 8, {255, 0, 128, 255}, {0, 255, 255, 0}, {0, 0, 255, 0}, 0},
        {"a.PNG", SRGB_16_BIT, 16, {65535, 0, 32768, 65535}, {0, 65535, 65535, 0}, {0, 0, 65535, 0}, 0},
        {"a.tif", SRGB_8_BIT, 8, {255, 0, 128, 255}, {0, 255, 255, 0}, {0, 0, 255, 0}, 0},
        {"b.tiff", SRGB_16_BIT, 16, {65535, 0, 32768, 65535}, {0, 65535, 65535, 0}, {0, 0, 65535, 0}, 0},
        {"c.tif", LINEAR_16_BIT_FLOAT, 16, {1, 0, 0.5, 1}, {-2, 700, HUGE_VAL, 0}, {NAN, 1e-6, HUGE_VAL, 0}, 4e-8},
        {"d.tif", LINEAR_32_BIT_FLOAT, 32, {1, 0, 0.5, 1}, {-2, 700.25, HUGE_VAL, 0}, {NAN, 1e-6, 65520, 1e-9}, 1e-12}};
    for (const auto& [name, format, bits, corner, odd, tiny, tolerance] : cases) {
        for (const bool hasAlpha : {true, false}) {
            SCOPED_TRACE(testing::Message()
                         << name << " as " << static_cast<int>(format) << (hasAlpha ? " with alpha" : ""));
            image.colorFormat = format;
            image.hasAlpha = hasAlpha;
            const auto written = writePicture(image, in(name));
            ASSERT_TRUE(written) << written.error().toUtf8();
            const std::string file = in(name).native().string();
            const Read read = findImageFormat(in(name)) == ImageFormat::PNG ? readPng(file) : readTiff(file);
            EXPECT_EQ(read.size, (Pixel{19, 7}));
            EXPECT_EQ(read.bits, bits);
            EXPECT_EQ(read.isFloat, format == LINEAR_16_BIT_FLOAT || format == LINEAR_32_BIT_FLOAT);
            ASSERT_EQ(read.channels, hasAlpha ? 4 : 3);
            for (int i = 0; i < read.channels; ++i) {
                const auto matches = [&](int pixel, const double* expected) {
                    const double found = read.samples.at(static_cast<std::size_t>(pixel * read.channels + i));
                    return std::isnan(expected[i]) ? std::isnan(found)
                                                   : found == expected[i] || std::abs(found - expected[i]) <= tolerance;
                };
                EXPECT_TRUE(matches(0, corner) && matches(18, odd) && matches(6 * 19, tiny)) << "channel " << i;
            }
        }
    }
}

TEST_F(LabPictureFile, IsOfAKindThatCanHoldThePictureAndSaysWhenItCannotBeWritten) {
    EXPECT_EQ(getWildcard(SRGB_8_BIT), "PNG (*.png)|*.png|TIFF (*.tif;*.tiff)|*.tif;*.tiff");
    EXPECT_EQ(getWildcard(LINEAR_16_BIT_FLOAT), "TIFF (*.tif;*.tiff)|*.tif;*.tiff");
    const struct {
        const char* chosen;
        ImageColorFormat format;
        const char* fitted;
    } cases[] = {{"a/b", SRGB_8_BIT, "a/b.png"},   {"a/b.v2", SRGB_16_BIT, "a/b.v2.png"},
                 {"b.TIFF", SRGB_8_BIT, "b.TIFF"}, {"b.png", LINEAR_32_BIT_FLOAT, "b.tif"},
                 {"b.jpg", SRGB_8_BIT, "b.png"},   {"b.exr", LINEAR_16_BIT_FLOAT, "b.tif"}};
    for (const auto& [chosen, format, fitted] : cases) {
        EXPECT_EQ(fitExtension(chosen, format), Path(fitted)) << chosen;
    }
    Image image(BitmapImpl<Rgb>(2, 2));
    EXPECT_FALSE(writePicture(image, in("a.jpg")));
    EXPECT_FALSE(writePicture(image, in("missing") / "a.png"));
    EXPECT_FALSE(writePicture(Image(), in("a.png")));
    image.colorFormat = LINEAR_32_BIT_FLOAT;
    EXPECT_FALSE(writePicture(image, in("a.png")));
    EXPECT_FALSE(in("a.png").exists());
}

} // namespace
