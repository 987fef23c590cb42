#include <OstrelLib/Exceptions.h>

#include <OstrelLib/TextSerializer.h>

#include <utility>

namespace Ostrel {

namespace {

constexpr const char* UNKNOWN_EXCEPTION_TEXT = "An unknown error occurred.";

String makeStopMessage(const String& path, int line) {
    SimpleTextSerializer message;
    message.write("The library was used in a wrong way (").write(path).write(", line ").write(line).write(").");
    return message.getText();
}

} // namespace

namespace Detail {

ExceptionBase::ExceptionBase(String message)
    : _message(std::move(message))
    , _what(_message.toUtf8()) {}

ExceptionBase::~ExceptionBase() = default;

const String& ExceptionBase::getMessage() const noexcept {
    return _message;
}

const char* ExceptionBase::what() const noexcept {
    return _what.c_str();
}

StopException::StopException(const String& path, int line)
    : ExceptionBase(makeStopMessage(path, line))
    , _path(path)
    , _line(line) {}

StopException::~StopException() = default;

const String& StopException::getPath() const noexcept {
    return _path;
}

int StopException::getLine() const noexcept {
    return _line;
}

void throwStopException(const char* path, int line) {
    throw StopException(path, line);
}

} // namespace Detail

String ostrelExceptionToString(const std::exception_ptr& exception) {
    if (exception == nullptr) {
        return UNKNOWN_EXCEPTION_TEXT;
    }
    try {
        std::rethrow_exception(exception);
    } catch (const Detail::ExceptionBase& e) {
        return e.getMessage();
    } catch (const std::exception& e) {
        return e.what();
    } catch (...) {
        return UNKNOWN_EXCEPTION_TEXT;
    }
}

} // namespace Ostrel
