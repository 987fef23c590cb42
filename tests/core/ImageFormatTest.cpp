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
        EXPECT_FALSE(descriptor.colorFormats.isEmpty()) << i;
        ASSERT_FALSE(descriptor.extensions.empty()) << i;
        for (const String& extension : descriptor.extensions) {
            EXPECT_TRUE(seen.insert(extension).second) << extension.toUtf8();
            EXPECT_EQ(findImageFormat(Path("some.dir/picture" + extension)), descriptor.format) << extension.toUtf8();
        }
    }
    for (const int odd : {-1, IMAGE_FORMAT_COUNT, 1 << 30}) {
        EXPECT_THROW(static_cast<void>(getImageFormatDescriptor(static_cast<ImageFormat>(odd))), Detail::StopException);
    }
}

TEST(ImageFormat, IsFoundByExtensionInAnyCase) {
    struct Case {
        Path path;
        Optional<ImageFormat> format;
    };
    const Case cases[] = {{"a.PNG", ImageFormat::PNG},
                          {"a.b.JpEg", ImageFormat::JPEG},
                          {L"\u0130\u00e4/\u00fc.Tif", ImageFormat::TIFF},
                          {"a.exr", ImageFormat::OPENEXR},
                          {L"a.\u0130co", {}}, // no dotted capital I
                          {"a.png.txt", {}},
                          {"a.", {}},
                          {"png", {}},
                          {".png", {}},
                          {"", {}},
                          {"dir.png/a", {}}};
    for (const Case& c : cases) {
        EXPECT_EQ(findImageFormat(c.path), c.format) << c.path.nativeStr().toUtf8();
    }
}

} // namespace
