#include <OstrelLib/Flags.h>

#include <gtest/gtest.h>

namespace {
enum class Mark : int { NONE = 0, A = 1, B = 2, BOTH = 3, LAST = static_cast<int>(0x80000000u) };
enum class Other { A = 1 };
} // namespace

template <>
struct Ostrel::IsFlag<Mark> : std::true_type {};

namespace {

using Ostrel::Flags;
using Ostrel::operator|;

template <class E>
constexpr bool CAN_BE_COMBINED = requires(E e) {
    e | e;
};
static_assert((Mark::A | Mark::LAST).value() == 0x80000001u);
static_assert(!CAN_BE_COMBINED<Other>, "enumerations that are no flags keep out of it");

TEST(Flags, HoldEveryBitOnItsOwn) {
    Flags<Mark> flags = Mark::A;
    flags.set(Mark::LAST);
    EXPECT_FALSE(flags.has(Mark::BOTH)) << "half of the bits are not all of them";
    flags.set(Mark::B, true);
    EXPECT_TRUE(flags.has(Mark::BOTH));
    EXPECT_EQ(flags.value(), 0x80000003u);
    flags.clear(Mark::LAST);
    flags.set(Mark::A, false);
    EXPECT_EQ(flags, Mark::B);
    EXPECT_FALSE(Flags<Mark>::fromValue(0xFFFFFFFFu).has(Mark::NONE));
}

} // namespace
