#include <OstrelLib/Path.h>

#include <system_error>
#include <type_traits>
#include <utility>

namespace Ostrel {

namespace {

using NativeText = std::filesystem::path::string_type;

/// The standard library's own conversion to a narrow path throws on text that is no Unicode; this one does not.
template <class Native = NativeText>
Native toNative(const String& text) {
    if constexpr (std::is_same_v<Native, std::wstring>) {
        return text.toWide();
    } else {
        return text.toUtf8();
    }
}

template <class Native>
String fromNative(const Native& text) {
    if constexpr (std::is_same_v<Native, std::wstring>) {
        return String(text);
    } else {
        return String::fromUtf8(text);
    }
}

} // namespace

Path::Path(const String& path)
    : _path(toNative(path)) {}

Path::Path(const wchar_t* path)
    : Path(String(path)) {}

Path::Path(const char* path)
    : Path(String(path)) {}

Path::Path(std::filesystem::path path) noexcept
    : _path(std::move(path)) {}

String Path::nativeStr() const {
    return fromNative(_path.native());
}

String Path::fileName() const {
    return fromNative(_path.filename().native());
}

Path Path::parentDirectory() const {
    return Path(_path.parent_path());
}

String Path::extension() const {
    return fromNative(_path.extension().native());
}

bool Path::isEmpty() const noexcept {
    return _path.empty();
}

bool Path::exists() const noexcept {
    std::error_code error;
    return std::filesystem::exists(_path, error);
}

const std::filesystem::path& Path::native() const noexcept {
    return _path;
}

} // namespace Ostrel
