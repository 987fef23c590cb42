#include <OstrelLib/Bitmap.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <numeric>
#include <stdexcept>

using namespace Ostrel;

namespace {

TEST(Bitmap, LaysItsPixelsOutRowByRowAndRefusesThoseOutside) {
    BitmapImpl<int> bitmap(3, 2, 7);
    const BitmapImpl<int>& constant = bitmap;
    EXPECT_EQ(bitmap(2, 1), 7);
    std::iota(bitmap.data(), bitmap.data() + bitmap.size(), 0);
    EXPECT_EQ(bitmap.size(), 6U);
    EXPECT_EQ(bitmap(0, 1), 3);
    EXPECT_EQ(bitmap.row(1).size(), 3U);
    EXPECT_EQ(&bitmap.row(1)[2], &constant.at(2, 1));
    for (const auto& [x, y] : {std::pair{3, 0}, {0, 2}, {-1, 0}, {0, -1}}) {
        EXPECT_THROW(bitmap.at(x, y) = 1, std::out_of_range) << x << ", " << y;
        EXPECT_THROW(static_cast<void>(constant.at(x, y)), std::out_of_range) << x << ", " << y;
    }
}

TEST(Bitmap, IsEmptyOrFailsForOddSizes) {
    constexpr int HUGE_SIZE = std::numeric_limits<int>::max();
    for (const auto& [width, height] : {std::pair{0, 5}, {5, 0}, {-1, 5}, {5, -1}, {-HUGE_SIZE, -HUGE_SIZE}}) {
        const BitmapImpl<Rgb> bitmap(width, height);
        EXPECT_TRUE(bitmap.isEmpty() && bitmap.getWidth() == 0 && bitmap.getHeight() == 0) << width << " x " << height;
    }
    EXPECT_THROW(BitmapImpl<Rgb>(HUGE_SIZE, HUGE_SIZE), std::length_error);
}

TEST(Bitmap, BeginsWithALineOfTheCacheWhateverItsSize) {
    for (const int size : {1, 3, 100, 700, 1500}) { // the last two take several megabytes
        BitmapImpl<Rgb> bitmap(size, size, Rgb{1.0F, 2.0F, 3.0F});
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(bitmap.data()) % 64, 0U) << size;
        const BitmapImpl<Rgb> copy = bitmap;
        bitmap = BitmapImpl<Rgb>();
        EXPECT_EQ(copy(size - 1, size - 1), (Rgb{1.0F, 2.0F, 3.0F}));
    }
}

TEST(Bitmap, IsEmptyAfterItsPixelsWereTaken) {
    BitmapImpl<int> source(3, 2, 7);
    BitmapImpl<int> target(std::move(source));
    EXPECT_EQ(source, BitmapImpl<int>()); // NOLINT(bugprone-use-after-move): that is what is looked at
    BitmapImpl<int>& itself = target;
    target = std::move(itself);
    EXPECT_EQ(target, BitmapImpl<int>(3, 2, 7));
}

} // namespace
