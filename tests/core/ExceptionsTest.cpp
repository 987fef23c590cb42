#include <OstrelLib/Exceptions.h>
#include <OstrelLib/Streams.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

using Ostrel::ostrelExceptionToString;
using testing::HasSubstr;

namespace {

template <class E>
std::string textOf(E exception) {
    return ostrelExceptionToString(std::make_exception_ptr(exception)).toUtf8();
}

TEST(ExceptionText, IsFoundForWhateverWasThrown) {
    EXPECT_EQ(textOf(Ostrel::Io::StreamException(L"\xE4\x540D")), "\xC3\xA4\xE5\x90\x8D");
    EXPECT_EQ(textOf(std::runtime_error("a\xFF")), "a\xEF\xBF\xBD");
    const std::string unknown = textOf(42);
    EXPECT_FALSE(unknown.empty());
    EXPECT_EQ(ostrelExceptionToString(nullptr).toUtf8(), unknown);
    try {
        Ostrel::Detail::throwStopException("widgets/ColorPicker", 829);
    } catch (const std::exception& stop) {
        EXPECT_THAT(stop.what(), testing::AllOf(HasSubstr("widgets/ColorPicker"), HasSubstr("829")));
        EXPECT_EQ(ostrelExceptionToString(std::current_exception()).toUtf8(), stop.what());
    }
    EXPECT_THROW(Ostrel::Detail::throwStopException(nullptr, -1), std::exception);
}

} // namespace
