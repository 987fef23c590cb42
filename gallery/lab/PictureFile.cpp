#include "lab/PictureFile.h"

#include <OstrelLib/Exceptions.h>
#include <OstrelLib/Streams.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <csetjmp>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <limits>
#include <utility>

#include <png.h>
#include <tiffio.h>

namespace Ostrel::Gallery {

namespace {

using Bytes = Array<std::byte>;

bool canHold(ImageFormat format, ImageColorFormat colorFormat) {
    return getImageFormatDescriptor(format).colorFormats.has(colorFormat);
}

bool isWritten(ImageFormat format) {
    return std::find(std::begin(WRITTEN_FORMATS), std::end(WRITTEN_FORMATS), format) != std::end(WRITTEN_FORMATS);
}

ImageFormat findFitting(ImageColorFormat colorFormat) {
    return canHold(ImageFormat::PNG, colorFormat) ? ImageFormat::PNG : ImageFormat::TIFF; // which holds everything
}

template <class Integer>
Integer toInteger(float channel) {
    constexpr auto LARGEST = static_cast<float>(std::numeric_limits<Integer>::max());
    return static_cast<Integer>(std::lrint(channel > 0.0F ? std::min(channel, 1.0F) * LARGEST : 0.0F));
}

/// IEEE 754 binary16, rounded to the nearest, ties to even.
std::uint16_t toHalf(float value) {
    const auto bits = std::bit_cast<std::uint32_t>(value);
    const auto sign = static_cast<std::uint16_t>(bits >> 16U & 0x8000U);
    const auto with = [sign](std::uint32_t rest) { return static_cast<std::uint16_t>(sign | rest); };
    const float size = std::abs(value);
    constexpr float OVERFLOW_FROM = 65520.0F; // halfway from the largest one to the next, had there been one
    constexpr float LEAST_NORMAL = 0x1p-14F;
    if (std::isnan(value)) {
        return with(0x7E00U);
    }
    if (size >= OVERFLOW_FROM) {
        return with(0x7C00U);
    }
    if (size < LEAST_NORMAL) {
        return with(static_cast<std::uint32_t>(std::lrint(size * 0x1p24F)));
    }
    const std::uint32_t rounded = (bits & 0x7FFFFFFFU) + 0xFFFU + (bits >> 13U & 1U);
    return with((rounded >> 13U) - (112U << 10U));
}

/// The picture's samples, row by row in the machine's own order of bytes.
template <class Sample, class Convert>
Bytes getSamples(const Image& image, Convert convertChannel) {
    const std::size_t count = image.hasAlpha ? 4 : 3;
    Bytes bytes(image.size() * count * sizeof(Sample));
    std::byte* next = bytes.data();
    for (const Rgb& pixel : ArrayView<const Rgb>(image.data(), image.size())) {
        const float channels[] = {pixel.red, pixel.green, pixel.blue, pixel.alpha};
        for (std::size_t i = 0; i < count; ++i, next += sizeof(Sample)) {
            const Sample sample = convertChannel(channels[i]);
            std::memcpy(next, &sample, sizeof(Sample));
        }
    }
    return bytes;
}

/// The picture as a file library takes it.
struct Samples {
    explicit Samples(const Image& image)
        : width(static_cast<std::uint32_t>(image.getWidth()))
        , height(static_cast<std::uint32_t>(image.getHeight()))
        , hasAlpha(image.hasAlpha) {
        switch (image.colorFormat) {
        case ImageColorFormat::SRGB_8_BIT:
            bits = 8;
            bytes = getSamples<std::uint8_t>(image, toInteger<std::uint8_t>);
            break;
        case ImageColorFormat::SRGB_16_BIT:
            bits = 16;
            bytes = getSamples<std::uint16_t>(image, toInteger<std::uint16_t>);
            break;
        case ImageColorFormat::LINEAR_16_BIT_FLOAT:
            bits = 16;
            isFloat = true;
            bytes = getSamples<std::uint16_t>(image, toHalf);
            break;
        case ImageColorFormat::LINEAR_32_BIT_FLOAT:
            bits = 32;
            isFloat = true;
            bytes = getSamples<float>(image, [](float channel) { return channel; });
            break;
        }
    }

    [[nodiscard]] std::size_t getRowSize() const { return bytes.size() / height; }
    [[nodiscard]] std::byte* getRow(std::uint32_t y) { return bytes.data() + y * getRowSize(); }

    std::uint32_t width;
    std::uint32_t height;
    bool hasAlpha;
    int bits = 0;
    bool isFloat = false;
    Bytes bytes;
};

// PNG

/// Between the library's calls, through which no exception may pass.
struct PngTarget {
    Bytes& file;
    std::exception_ptr failure;
};

void appendToPng(png_structp png, png_bytep data, png_size_t size) {
    auto& target = *static_cast<PngTarget*>(png_get_io_ptr(png));
    try {
        const auto* const bytes = reinterpret_cast<const std::byte*>(data);
        target.file.insert(target.file.end(), bytes, bytes + size);
    } catch (...) {
        target.failure = std::current_exception();
    }
    if (target.failure) {
        png_error(png, "out of memory");
    }
}

/// False if the library gives up. Nothing in here has a destructor, which a jump would pass over.
bool writePngRows(png_structp png, png_infop info, PngTarget* target, const Samples* samples, png_bytepp rows) {
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    png_set_write_fn(png, target, appendToPng, nullptr);
    png_set_IHDR(png, info, samples->width, samples->height, samples->bits,
                 samples->hasAlpha ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_sRGB_gAMA_and_cHRM(png, info, PNG_sRGB_INTENT_PERCEPTUAL);
    png_set_rows(png, info, rows);
    const bool isSwapped = samples->bits == 16 && std::endian::native == std::endian::little;
    png_write_png(png, info, isSwapped ? PNG_TRANSFORM_SWAP_ENDIAN : PNG_TRANSFORM_IDENTITY, nullptr);
    return true;
}

bool makePng(Samples& samples, Bytes& file) {
    const auto keepQuiet = [](png_structp, png_const_charp) {};
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, keepQuiet);
    png_infop info = png != nullptr ? png_create_info_struct(png) : nullptr;
    Array<png_bytep> rows(samples.height);
    for (std::uint32_t y = 0; y < samples.height; ++y) {
        rows[y] = reinterpret_cast<png_bytep>(samples.getRow(y));
    }
    PngTarget target{file, {}};
    const bool isMade = info != nullptr && writePngRows(png, info, &target, &samples, rows.data());
    png_destroy_write_struct(&png, &info);
    if (target.failure) {
        std::rethrow_exception(target.failure);
    }
    return isMade;
}

// TIFF

/// A file in memory, which the library writes here and there.
struct TiffTarget {
    Bytes& file;
    std::size_t position = 0;

    static TiffTarget& from(thandle_t handle) { return *static_cast<TiffTarget*>(handle); }

    static tmsize_t read(thandle_t handle, void* data, tmsize_t size) {
        TiffTarget& target = from(handle);
        const std::size_t rest = target.file.size() - std::min(target.position, target.file.size());
        const std::size_t count = std::min(rest, static_cast<std::size_t>(size));
        std::copy_n(target.file.data() + target.position, count, static_cast<std::byte*>(data));
        target.position += count;
        return static_cast<tmsize_t>(count);
    }

    static tmsize_t write(thandle_t handle, void* data, tmsize_t size) {
        TiffTarget& target = from(handle);
        const std::size_t end = target.position + static_cast<std::size_t>(size);
        try {
            target.file.resize(std::max(target.file.size(), end));
        } catch (const std::exception&) {
            return 0; // too few: the library gives up
        }
        std::copy_n(static_cast<const std::byte*>(data), size, target.file.data() + target.position);
        target.position = end;
        return size;
    }

    static toff_t seek(thandle_t handle, toff_t offset, int whence) {
        TiffTarget& target = from(handle);
        const std::size_t from = whence == SEEK_SET ? 0 : (whence == SEEK_CUR ? target.position : target.file.size());
        target.position = from + static_cast<std::size_t>(offset);
        return target.position;
    }

    static toff_t getSize(thandle_t handle) { return from(handle).file.size(); }
    static int close(thandle_t) { return 0; }
};

bool makeTiff(Samples& samples, Bytes& file) {
    TIFFSetErrorHandler(nullptr); // it prints
    TIFFSetWarningHandler(nullptr);
    TiffTarget target{file};
    TIFF* const tiff = TIFFClientOpen("picture", "w", &target, TiffTarget::read, TiffTarget::write, TiffTarget::seek,
                                      TiffTarget::close, TiffTarget::getSize, nullptr, nullptr);
    if (tiff == nullptr) {
        return false;
    }
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, samples.width);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, samples.height);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, samples.hasAlpha ? 4 : 3);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, samples.bits);
    TIFFSetField(tiff, TIFFTAG_SAMPLEFORMAT, samples.isFloat ? SAMPLEFORMAT_IEEEFP : SAMPLEFORMAT_UINT);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    if (samples.hasAlpha) {
        const std::uint16_t kind = EXTRASAMPLE_UNASSALPHA;
        TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &kind);
    }
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_ADOBE_DEFLATE);
    TIFFSetField(tiff, TIFFTAG_PREDICTOR, samples.isFloat ? PREDICTOR_FLOATINGPOINT : PREDICTOR_HORIZONTAL);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, TIFFDefaultStripSize(tiff, 0));
    bool isMade = true;
    for (std::uint32_t y = 0; y < samples.height && isMade; ++y) {
        isMade = TIFFWriteScanline(tiff, samples.getRow(y), y) == 1;
    }
    isMade = isMade && TIFFFlush(tiff) == 1;
    TIFFClose(tiff);
    return isMade;
}

} // namespace

String getWildcard(ImageColorFormat colorFormat) {
    String wildcard;
    for (const ImageFormat format : WRITTEN_FORMATS) {
        if (!canHold(format, colorFormat)) {
            continue;
        }
        const ImageFormatDescriptor& file = getImageFormatDescriptor(format);
        String patterns;
        for (const String& extension : file.extensions) {
            patterns += (patterns.isEmpty() ? "*" : ";*") + extension;
        }
        wildcard += (wildcard.isEmpty() ? "" : "|") + file.name + " (" + patterns + ")|" + patterns;
    }
    return wildcard;
}

Path fitExtension(const Path& path, ImageColorFormat colorFormat) {
    const Optional<ImageFormat> named = findImageFormat(path);
    if (named && isWritten(*named) && canHold(*named, colorFormat)) {
        return path;
    }
    std::filesystem::path fitted = path.native();
    if (named) {
        fitted.replace_extension();
    }
    fitted += Path(getImageFormatDescriptor(findFitting(colorFormat)).extensions.front()).native();
    return Path(std::move(fitted));
}

Expected<void, String> writePicture(const Image& image, const Path& path) {
    const Optional<ImageFormat> format = findImageFormat(path);
    if (!format || !isWritten(*format) || !canHold(*format, image.colorFormat)) {
        return Unexpected<String>("The file \"" + path.nativeStr() + "\" cannot hold such a picture.");
    }
    try {
        Bytes file;
        Samples samples(image);
        if (image.isEmpty() || !(*format == ImageFormat::PNG ? makePng : makeTiff)(samples, file)) {
            return Unexpected<String>("The picture could not be made into a file.");
        }
        Io::FileOutputStream stream(path);
        stream.write(file.data(), file.size());
        stream.close();
    } catch (...) {
        return Unexpected<String>(ostrelExceptionToString(std::current_exception()));
    }
    return {};
}

} // namespace Ostrel::Gallery
