#include <OstrelLib/Bitmap.h>

#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <numeric>
#include <stdexcept>

using namespace Ostrel;

namespace {

TEST(Bitmap, LaysItsPixelsOutRowByRow) {
    BitmapImpl<int> bitmap(3, 2, 7);
    EXPECT_EQ(bitmap.size(), 6U);
    EXPECT_EQ(bitmap(2, 1), 7);
    std::iota(bitmap.data(), bitmap.data() + bitmap.size(), 0);
    for (int y = 0; y < bitmap.getHeight(); ++y) {
        ASSERT_EQ(bitmap.row(y).size(), 3U);
        for (int x = 0; x < bitmap.getWidth(); ++x) {
            EXPECT_EQ(bitmap(x, y), y * 3 + x);
            EXPECT_EQ(&bitmap.row(y)[static_cast<std::size_t>(x)], &bitmap.at(x, y));
        }
    }
}

TEST(Bitmap, RefusesPixelsOutside) {
    BitmapImpl<int> bitmap(3, 2);
    const BitmapImpl<int>& constant = bitmap;
    for (const auto& [x, y] : {std::pair{3, 0}, {0, 2}, {-1, 0}, {0, -1}}) {
        EXPECT_THROW(bitmap.at(x, y) = 1, std::out_of_range) << x << ", " << y;
        EXPECT_THROW(static_cast<void>(constant.at(x, y)), std::out_of_range) << x << ", " << y;
    }
}

TEST(Bitmap, IsEmptyOrFailsForOddSizes) {
    constexpr int LARGEST = std::numeric_limits<int>::max();
    for (const auto& [width, height] : {std::pair{0, 5}, {5, 0}, {-1, 5}, {5, -1}, {-LARGEST, -LARGEST}}) {
        const BitmapImpl<Rgb> bitmap(width, height);
        EXPECT_TRUE(bitmap.isEmpty() && bitmap.getWidth() == 0 && bitmap.getHeight() == 0) << width << " x " << height;
        EXPECT_EQ(bitmap, BitmapImpl<Rgb>());
    }
    EXPECT_THROW(BitmapImpl<Rgb>(LARGEST, LARGEST), std::length_error);
}

TEST(Bitmap, IsEmptyAfterItsPixelsWereTaken) {
    BitmapImpl<int> source(3, 2, 7);
    BitmapImpl<int> target(std::move(source));
    EXPECT_EQ(source, BitmapImpl<int>()); // NOLINT(bugprone-use-after-move): that is what is looked at
    BitmapImpl<int>& itself = target;
    target = std::move(itself);
    EXPECT_EQ(target, BitmapImpl<int>(3, 2, 7));
}

TEST(Bitmap, ComparesShapeAndPixels) {
    BitmapImpl<int> bitmap(2, 3, 1);
    EXPECT_NE(bitmap, BitmapImpl<int>(3, 2, 1));
    BitmapImpl<int> other = bitmap;
    EXPECT_EQ(bitmap, other);
    other(1, 2) = 2;
    EXPECT_NE(bitmap, other);

    Image image(BitmapImpl<Rgb>(1, 1));
    Image opaque = image;
    EXPECT_EQ(image, opaque);
    opaque.hasAlpha = false;
    EXPECT_NE(image, opaque);
    image.colorFormat = ImageColorFormat::LINEAR_32_BIT_FLOAT;
    image.hasAlpha = false;
    EXPECT_NE(image, opaque);
}

} // namespace
