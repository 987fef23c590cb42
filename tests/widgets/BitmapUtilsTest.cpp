#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <wx/bitmap.h>
#include <wx/image.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/quantize.h>

#include <OstrelLibWx/BitmapUtils.h>

namespace {

using namespace Ostrel;

constexpr float BYTE = 1.0F / 255.0F;

TEST(BitmapConversion, BringsBackEveryByteOfItsOwnBitmaps) {
    for (const int width : {1, 3, 4, 7}) { // rows of all paddings
        BitmapImpl<Rgb> image(width, 5);
        for (int i = 0; i < width * 5; ++i) {
            const auto level = [i](int factor) { return static_cast<float>(i * factor % 256) * BYTE; };
            image(i % width, i / width) = {level(31), level(57), level(101), level(255)};
        }
        for (const bool withAlpha : {false, true}) {
            wxBitmap bitmap = Wx::toWxBitmap(image, withAlpha);
            EXPECT_EQ(bitmap.GetDepth(), withAlpha ? 32 : 24);
            const auto back = Wx::toRgbBitmap(bitmap);
            ASSERT_TRUE(back);
            ASSERT_EQ(back->size(), image.size());
            for (std::size_t i = 0; i < image.size(); ++i) {
                const Rgb& expected = image.data()[i];
                const Rgb& actual = back->data()[i];
                EXPECT_NEAR(actual.red, expected.red, 1e-6F);
                EXPECT_NEAR(actual.green, expected.green, 1e-6F);
                EXPECT_NEAR(actual.blue, expected.blue, 1e-6F);
                // 1/255 is no float, and truncation may take one step for that.
                EXPECT_NEAR(actual.alpha, withAlpha ? expected.alpha : 1.0F, withAlpha ? 1.01F * BYTE : 0.0F);
            }
        }
    }
}

TEST(BitmapConversion, AgreesWithTheToolkitAboutPlacesAndChannels) {
    BitmapImpl<Rgb> image(3, 2);
    image(2, 0) = {1.0F, 0.0F, 0.0F};
    image(0, 1) = {0.0F, 1.0F, 0.0F};
    image(1, 1) = {0.0F, 0.0F, 1.0F};
    for (const bool withAlpha : {false, true}) {
        const wxImage shown = Wx::toWxBitmap(image, withAlpha).ConvertToImage();
        EXPECT_EQ(shown.GetRed(2, 0), 255);
        EXPECT_EQ(shown.GetGreen(0, 1), 255);
        EXPECT_EQ(shown.GetBlue(1, 1), 255);
        EXPECT_EQ(shown.GetRed(0, 0) + shown.GetGreen(2, 0) + shown.GetBlue(0, 1), 0);
    }
    wxImage source(3, 2);
    source.SetRGB(1, 0, 10, 20, 30);
    source.SetRGB(0, 1, 40, 50, 60);
    wxBitmap bitmap(source);
    const auto read = Wx::toRgbBitmap(bitmap);
    ASSERT_TRUE(read);
    EXPECT_EQ((*read)(1, 0), (Rgb{10 * 0.003921569F, 20 * 0.003921569F, 30 * 0.003921569F, 1.0F}));
    EXPECT_EQ((*read)(0, 1), (Rgb{40 * 0.003921569F, 50 * 0.003921569F, 60 * 0.003921569F, 1.0F}));
}

TEST(BitmapConversion, KnowsTheEmptyAndTheUnsupportedAndChangesNothing) {
    EXPECT_FALSE(Wx::toWxBitmap({}, true).IsOk());
    wxBitmap invalid;
    const auto nothing = Wx::toRgbBitmap(invalid);
    ASSERT_TRUE(nothing);
    EXPECT_TRUE(nothing->isEmpty());
    wxBitmap monochrome(4, 4, 1);
    const auto unsupported = Wx::toRgbBitmap(monochrome);
    ASSERT_FALSE(unsupported);
    EXPECT_EQ(unsupported.error(), "Bitmap has unsupported bit depth.");
    wxBitmap deep(4, 4, 32);
    const bool hadAlpha = deep.HasAlpha();
    ASSERT_TRUE(Wx::toRgbBitmap(deep));
    EXPECT_EQ(deep.HasAlpha(), hadAlpha);
}

// Decoding

constexpr wxBitmapType FORMATS[] = {wxBITMAP_TYPE_PNG, wxBITMAP_TYPE_JPEG, wxBITMAP_TYPE_ICO, wxBITMAP_TYPE_BMP,
                                    wxBITMAP_TYPE_GIF, wxBITMAP_TYPE_TIFF, wxBITMAP_TYPE_TGA};
constexpr int WIDTH = 11;
constexpr int HEIGHT = 6;

std::vector<unsigned char> encode(wxBitmapType type) {
    wxImage image(WIDTH, HEIGHT);
    for (int y = 0; y < HEIGHT; ++y) {
        for (int x = 0; x < WIDTH; ++x) {
            const auto level = static_cast<unsigned char>(x * 20);
            image.SetRGB(x, y, level, static_cast<unsigned char>(y * 40), 90);
        }
    }
    if (type == wxBITMAP_TYPE_GIF) {
        wxImage reduced;
        wxQuantize::Quantize(image, reduced); // GIF is written from a palette
        image = reduced;
    }
    wxMemoryOutputStream stream;
    EXPECT_TRUE(image.SaveFile(stream, type));
    std::vector<unsigned char> bytes(stream.GetSize());
    stream.CopyTo(bytes.data(), bytes.size());
    return bytes;
}

/// Decodes the first `size` bytes.
wxImage decode(const std::vector<unsigned char>& bytes, std::size_t size, wxBitmapType type) {
    std::vector<unsigned> aligned(size / sizeof(unsigned) + 1);
    std::memcpy(aligned.data(), bytes.data(), size);
    return Wx::convertMemoryToImage(aligned.data(), static_cast<int>(size), type);
}

TEST(Decoding, ReadsEveryFormatByNameAndByContent) {
    for (const wxBitmapType format : FORMATS) {
        const std::vector<unsigned char> bytes = encode(format);
        for (const wxBitmapType type : {format, wxBITMAP_TYPE_ANY}) {
            const wxImage image = decode(bytes, bytes.size(), type);
            ASSERT_TRUE(image.IsOk()) << format;
            EXPECT_EQ(image.GetSize(), wxSize(WIDTH, HEIGHT)) << format;
            // As near as the lossy one of them comes.
            EXPECT_NEAR(image.GetRed(10, 0), 200, 24) << format;
            EXPECT_NEAR(image.GetGreen(0, 5), 200, 24) << format;
        }
        const wxBitmapType wrong = format == wxBITMAP_TYPE_PNG ? wxBITMAP_TYPE_BMP : wxBITMAP_TYPE_PNG;
        EXPECT_FALSE(decode(bytes, bytes.size(), wrong).IsOk()) << format;
    }
    const unsigned word = 0;
    EXPECT_FALSE(Wx::convertMemoryToBitmap(nullptr, 4, wxBITMAP_TYPE_PNG).IsOk());
    EXPECT_FALSE(Wx::convertMemoryToBitmap(&word, 4, wxBITMAP_TYPE_ANY).IsOk());
    EXPECT_FALSE(Wx::convertMemoryToImage(&word, 0, wxBITMAP_TYPE_ANY).IsOk());
    EXPECT_FALSE(Wx::convertMemoryToImage(&word, -1, wxBITMAP_TYPE_ANY).IsOk());
}

/// 8 × 8 pixels in four strips, which follow what tells of them.
std::vector<unsigned char> makeTiffOfStrips() {
    std::vector<unsigned char> bytes{'I', 'I', 42, 0, 8, 0, 0, 0, 9, 0};
    const auto add = [&bytes](unsigned value, int size) {
        for (; size > 0; --size, value >>= 8U) {
            bytes.push_back(static_cast<unsigned char>(value));
        }
    };
    constexpr unsigned LISTS = 8 + 2 + 9 * 12 + 4;
    constexpr unsigned STRIP_SIZE = 2 * 8 * 3;
    // Width, height, bits, no compression, RGB, offsets, samples per pixel, rows per strip, sizes.
    constexpr unsigned FIELDS[][4] = {{256, 3, 1, 8}, {257, 3, 1, 8}, {258, 3, 3, LISTS},
                                      {259, 3, 1, 1}, {262, 3, 1, 2}, {273, 4, 4, LISTS + 6},
                                      {277, 3, 1, 3}, {278, 3, 1, 2}, {279, 4, 4, LISTS + 6 + 16}};
    for (const auto& [tag, type, count, value] : FIELDS) {
        add(tag, 2), add(type, 2), add(count, 4), add(value, 4);
    }
    add(0, 4);
    add(8, 2), add(8, 2), add(8, 2);
    for (unsigned strip = 0; strip < 4; ++strip) {
        add(LISTS + 6 + 32 + strip * STRIP_SIZE, 4);
    }
    for (int strip = 0; strip < 4; ++strip) {
        add(STRIP_SIZE, 4);
    }
    bytes.resize(bytes.size() + 4 * STRIP_SIZE, 100);
    return bytes;
}

int failedAssertions = 0;

void countAssertion(const wxString&, int, const wxString&, const wxString&, const wxString&) {
    ++failedAssertions;
}

class CountingLog : public wxLog {
public:
    int count = 0;

protected:
    void DoLogRecord(wxLogLevel, const wxString&, const wxLogRecordInfo&) override { ++count; }
};

TEST(Decoding, SurvivesEveryTruncationAndFlippedBitsWithoutAWord) {
    CountingLog messages; // takes the place of the log's target
    wxLog* const target = wxLog::SetActiveTarget(&messages);
    const bool wasLogging = wxLog::EnableLogging(true);
    const wxAssertHandler_t handler = wxSetAssertHandler(countAssertion);
    failedAssertions = 0;
    std::vector<std::pair<wxBitmapType, std::vector<unsigned char>>> files{{wxBITMAP_TYPE_TIFF, makeTiffOfStrips()}};
    for (const wxBitmapType format : FORMATS) {
        files.emplace_back(format, encode(format));
    }
    for (const auto& [format, bytes] : files) {
        EXPECT_TRUE(decode(bytes, bytes.size(), format).IsOk()) << format;
        const std::size_t needless = format == wxBITMAP_TYPE_GIF ? 2 : 0; // what ends a file of several pictures
        for (std::size_t i = 0; i + needless < bytes.size(); ++i) {
            const wxImage truncated = decode(bytes, i, format);
            EXPECT_FALSE(truncated.IsOk()) << format << ' ' << i << " of " << bytes.size();
            std::vector<unsigned char> damaged = bytes;
            damaged[i] = static_cast<unsigned char>(damaged[i] ^ (1U << (i * 5 % 8)));
            const wxImage image = decode(damaged, damaged.size(), format);
            EXPECT_TRUE(!image.IsOk() || image.GetData() != nullptr) << format << ' ' << i;
        }
    }
    EXPECT_EQ(messages.count, 0);
    wxLogError("heard");
    EXPECT_EQ(messages.count, 1);
    EXPECT_EQ(failedAssertions, 0);
    EXPECT_EQ(wxSetAssertHandler(handler), countAssertion) << "put back";
    wxLog::EnableLogging(wasLogging);
    wxLog::SetActiveTarget(target);
}

} // namespace
