#include <OstrelLib/Threading.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

using namespace Ostrel;

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
    EXPECT_GE(elapsedMs, 0);
    const std::chrono::duration<double, std::milli> mostMs = Clock::now() - restart;
    EXPECT_LE(elapsedMs, mostMs.count());
}

class ElapsedTime : public testing::Test {
protected:
    ~ElapsedTime() override { FunctionElapsedTime::setReportFunction({}); }
};

TEST_F(ElapsedTime, ReportsOneLineWhenTheLimitIsExceeded) {
    Array<std::string> lines;
    FunctionElapsedTime::setReportFunction([&lines](const String& line) { lines.push_back(line.toUtf8()); });
    { const FunctionElapsedTime quick(std::numeric_limits<int>::max(), "Function call:", "quick"); }
    EXPECT_TRUE(lines.empty());
    { const FunctionElapsedTime slow(-1, "Function call:", "Ostrel::slow"); }
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_THAT(lines[0], testing::StartsWith("Function call: Ostrel::slow took "));
    EXPECT_THAT(lines[0], testing::EndsWith(" ms (limit -1 ms)"));
}

TEST_F(ElapsedTime, SurvivesItsReportFunction) {
    int calls = 0;
    FunctionElapsedTime::setReportFunction([&calls](const String&) {
        ++calls;
        FunctionElapsedTime::setReportFunction([&calls](const String&) {
            ++calls;
            throw 1;
        });
    });
    { const FunctionElapsedTime replacesItself(-1, "a", "b"); }
    { const FunctionElapsedTime throws(-1, "a", "b"); }
    EXPECT_EQ(calls, 2);
    FunctionElapsedTime::setReportFunction({});
    testing::internal::CaptureStderr();
    { const FunctionElapsedTime toStandardError(-1, "label", "function"); }
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::StartsWith("label function took "));
}

} // namespace
