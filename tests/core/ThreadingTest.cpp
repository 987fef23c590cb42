#include <OstrelLib/Threading.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

using namespace Ostrel;
using testing::StartsWith;

namespace {

TEST(Timer, MeasuresMillisecondsFromItsLastStart) {
    using Clock = std::chrono::steady_clock;
    Timer timer;
    const auto begin = Clock::now();
    while (Clock::now() - begin < std::chrono::milliseconds(3)) {
    }
    EXPECT_GE(timer.elapsedMs(), 3);
    const auto restart = Clock::now();
    timer.restart();
    const double elapsedMs = timer.elapsedMs();
    const std::chrono::duration<double, std::milli> mostMs = Clock::now() - restart;
    EXPECT_TRUE(elapsedMs >= 0 && elapsedMs <= mostMs.count()) << elapsedMs;
}

TEST(ElapsedTime, ReportsOneLineWhenTheLimitIsExceededAndSurvivesItsReportFunction) {
    Array<std::string> lines;
    FunctionElapsedTime::setReportFunction([&lines](const String& first) {
        lines.push_back(first.toUtf8());
        FunctionElapsedTime::setReportFunction([&lines](const String& second) {
            lines.push_back(second.toUtf8());
            throw 1;
        });
    });
    { const FunctionElapsedTime quick(std::numeric_limits<int>::max(), "Function call:", "quick"); }
    EXPECT_TRUE(lines.empty());
    { const FunctionElapsedTime replacesItsFunction(-1, "Function call:", "Ostrel::slow"); }
    { const FunctionElapsedTime throws(-1, "label", "function"); }
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_THAT(lines[0], StartsWith("Function call: Ostrel::slow took "));
    EXPECT_THAT(lines[0], testing::EndsWith(" ms (limit -1 ms)"));
    FunctionElapsedTime::setReportFunction({});
    testing::internal::CaptureStderr();
    { const FunctionElapsedTime toStandardError(-1, "label", "function"); }
    EXPECT_THAT(testing::internal::GetCapturedStderr(), StartsWith("label function took "));
}

} // namespace
