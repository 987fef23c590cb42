#include "models/TaskbarProgressModel.h"

#include <gmock/gmock.h>

#include <limits>
#include <string>
#include <thread>
#include <vector>

namespace Ostrel::Wx {
namespace {

using testing::ElementsAre;

constexpr WindowHandle WINDOW(4711);

/// Writes down what it is sent: "state 2", "500 of 1000".
class RecordingTaskbar : public ITaskbar {
public:
    explicit RecordingTaskbar(std::vector<std::string>& sent)
        : _sent(sent) {}
    ~RecordingTaskbar() override { _sent.push_back("released"); }

    void setState(WindowHandle window, TaskbarState state) override {
        EXPECT_EQ(window, WINDOW);
        _sent.push_back("state " + std::to_string(static_cast<int>(state)));
    }
    void setValue(WindowHandle window, std::int32_t completed, std::int32_t total) override {
        EXPECT_EQ(window, WINDOW);
        _sent.push_back(std::to_string(completed) + " of " + std::to_string(total));
    }

private:
    std::vector<std::string>& _sent;
};

TEST(TaskbarProgress, SendsWhatChangesTheDisplayInThousandths) {
    using Steps = std::vector<float>;
    constexpr float BUSY = -0.0025F;
    constexpr float ENDLESS = std::numeric_limits<float>::infinity();
    const std::pair<Steps, std::vector<std::string>> cases[] = {
        {{0.5F, 0.5F, 0.5004F}, {"state 2", "500 of 1000"}},
        {{1.0F, 2.0F}, {"state 2", "1000 of 1000", "state 2", "2000 of 1000"}},
        {{-0.0015F}, {}}, // it is idle already
        {{0.1F, -0.0015F, -0.0019F}, {"state 2", "100 of 1000", "state 0"}},
        {{BUSY, BUSY, 0.0F}, {"state 1", "state 2", "0 of 1000"}},
        {{-0.5F}, {"state 2", "-500 of 1000"}},
        {{ENDLESS, -ENDLESS}, {"state 2", "2147483647 of 1000", "state 2", "-2147483648 of 1000"}},
        {{2147483.75F, 3e9F}, {"state 2", "2147483647 of 1000"}},
        {{std::numeric_limits<float>::quiet_NaN()}, {"state 2", "0 of 1000"}},
    };
    for (const auto& [fractions, expected] : cases) {
        SCOPED_TRACE(testing::PrintToString(fractions));
        std::vector<std::string> sent;
        TaskbarProgressModel model(WINDOW, AutoPtr<ITaskbar>(new RecordingTaskbar(sent)));
        EXPECT_THAT(sent, ElementsAre("state 0")) << "what the button has shown before";
        sent.clear();
        for (const float fraction : fractions) {
            model.setProgress(fraction);
        }
        EXPECT_EQ(sent, expected);
    }
}

TEST(TaskbarProgress, EndsIdleAndReleasesTheTaskbarLast) {
    std::vector<std::string> sent;
    {
        TaskbarProgressModel model(WINDOW, AutoPtr<ITaskbar>(new RecordingTaskbar(sent)));
        model.setIdle();
        model.setIndeterminate();
        model.setIndeterminate();
    }
    EXPECT_THAT(sent, ElementsAre("state 0", "state 1", "state 0", "released"));
    TaskbarProgressModel(WINDOW, nullptr).setProgress(0.5F);
}

TEST(TaskbarProgressThreads, SendOneAtATimeAndAValueRightAfterItsState) {
    constexpr int THREADS = 8;
    constexpr int STEPS = 2000;
    std::vector<std::string> sent;
    {
        TaskbarProgressModel model(WINDOW, AutoPtr<ITaskbar>(new RecordingTaskbar(sent)));
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < THREADS; ++thread) {
            threads.emplace_back([&model, thread] {
                for (int step = 0; step < STEPS; ++step) {
                    model.setProgress(static_cast<float>(step) / static_cast<float>(STEPS));
                    if (step % 97 == thread) {
                        thread % 2 == 0 ? model.setIdle() : model.setIndeterminate();
                    }
                }
            });
        }
    }
    for (std::size_t i = 0; i < sent.size(); ++i) {
        const bool isValue = sent[i].ends_with("of 1000");
        EXPECT_EQ(isValue, i > 0 && sent[i - 1] == "state 2") << i << ": " << sent[i];
    }
    EXPECT_EQ(sent[sent.size() - 2], "state 0");
}

} // namespace
} // namespace Ostrel::Wx
