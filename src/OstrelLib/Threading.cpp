#include <OstrelLib/Threading.h>

#include <OstrelLib/TextSerializer.h>

#include <cstdio>
#include <utility>

namespace Ostrel {

namespace {

void reportToStandardError(const String& line) {
    std::fputs((line + "\n").toUtf8().c_str(), stderr);
}

struct Reporting {
    SimpleLock lock;
    FunctionElapsedTime::ReportFunction report; ///< empty: the default
};

/// Made at its first use and never destroyed: guards may still end while the process does.
Reporting& reporting() {
    static Reporting& instance = *new Reporting;
    return instance;
}

} // namespace

FunctionElapsedTime::FunctionElapsedTime(int limitMs, String label, String functionName)
    : _limitMs(limitMs)
    , _label(std::move(label))
    , _functionName(std::move(functionName)) {}

FunctionElapsedTime::~FunctionElapsedTime() {
    const double elapsedMs = _timer.elapsedMs();
    if (elapsedMs <= _limitMs) {
        return;
    }
    try {
        SimpleTextSerializer line;
        line.write(_label).write(" ").write(_functionName).write(" took ").write(static_cast<long long>(elapsedMs));
        line.write(" ms (limit ").write(_limitMs).write(" ms)");
        // Called without the lock, so that it may replace itself.
        ReportFunction report;
        {
            const std::lock_guard guard(reporting().lock);
            report = reporting().report;
        }
        report ? report(line.getText()) : reportToStandardError(line.getText());
    } catch (...) {
        // A report that fails must not end the function that was slow.
    }
}

void FunctionElapsedTime::setReportFunction(ReportFunction report) {
    // Swapped, so that the old one is destroyed after the lock is released.
    const std::lock_guard guard(reporting().lock);
    reporting().report.swap(report);
}

} // namespace Ostrel
