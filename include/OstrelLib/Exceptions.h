#pragma once

#include <OstrelLib/Export.h>
#include <OstrelLib/String.h>

#include <exception>
#include <string>

namespace Ostrel {

namespace Detail {

/// Base of every exception of these libraries.
class OSTREL_API ExceptionBase : public std::exception {
public:
    explicit ExceptionBase(String message);
    ExceptionBase(const ExceptionBase&) = default;
    ExceptionBase(ExceptionBase&&) = default;
    ExceptionBase& operator=(const ExceptionBase&) = default;
    ExceptionBase& operator=(ExceptionBase&&) = default;
    ~ExceptionBase() override;

    /// What happened, as a sentence for the user.
    [[nodiscard]] const String& getMessage() const noexcept;

    /// The same as UTF-8.
    [[nodiscard]] const char* what() const noexcept override;

private:
    String _message;
    std::string _what;
};

/// The caller misused the library: an invalid enumeration value, a broken precondition. Not meant to be survived.
class OSTREL_API StopException : public ExceptionBase {
public:
    StopException(const String& path, int line);
    StopException(const StopException&) = default;
    StopException(StopException&&) = default;
    StopException& operator=(const StopException&) = default;
    StopException& operator=(StopException&&) = default;
    ~StopException() override;

    /// The source that noticed, relative to its library and without extension, for example "widgets/ColorPicker".
    [[nodiscard]] const String& getPath() const noexcept;
    [[nodiscard]] int getLine() const noexcept;

private:
    String _path;
    int _line;
};

/// Throws `StopException`.
[[noreturn]] OSTREL_API void throwStopException(const char* path, int line);

} // namespace Detail

/// The text of any exception: the message of one of these libraries', `what()` of a standard one, and a fixed
/// sentence for anything else and for none. Throws nothing of the exception's own.
[[nodiscard]] OSTREL_API String ostrelExceptionToString(const std::exception_ptr& exception);

} // namespace Ostrel
