#include <OstrelLib/Exceptions.h>
#include <OstrelLib/ImageFormat.h>

#include <gtest/gtest.h>

#include <set>

using namespace Ostrel;

namespace {

TEST(ImageFormat, EveryExtensionLeadsBackToItsOneFormat) {
    std::set<String> seen;
    for (int i = 0; i < IMAGE_FORMAT_COUNT; ++i) {
        const ImageFormatDescriptor& descriptor = getImageFormatDescriptor(static_cast<ImageFormat>(i));
        EXPECT_EQ(static_cast<int>(descriptor.format), i);
        EXPECT_FALSE(descriptor.colorFormats.isEmpty() || descriptor.extensions.empty()) << i;
        for (const String& extension : descriptor.extensions) {
            EXPECT_TRUE(seen.insert(extension).second) << extension.toUtf8();
            EXPECT_EQ(findImageFormat(Path("some.dir/picture" + extension)), descriptor.format) << extension.toUtf8();
        }
    }
    for (const int odd : {-1, IMAGE_FORMAT_COUNT}) {
        EXPECT_THROW(static_cast<void>(getImageFormatDescriptor(static_cast<ImageFormat>(odd))), Detail::StopException);
    }
}

TEST(ImageFormat, IsFoundByExtensionInAnyCase) {
    EXPECT_EQ(findImageFormat("a.b.JpEg"), ImageFormat::JPEG);
    EXPECT_EQ(findImageFormat(L"\u0130\u00e4/\u00fc.Tif"), ImageFormat::TIFF);
    for (const wchar_t* const none : {L"a.\u0130co", L"a.png.txt", L"a.", L"png", L".png", L"", L"dir.png/a"}) {
        EXPECT_EQ(findImageFormat(none), Optional<ImageFormat>()) << String(none).toUtf8();
    }
}

} // namespace
