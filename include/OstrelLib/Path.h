#pragma once

#include <OstrelLib/Export.h>
#include <OstrelLib/String.h>

#include <compare>
#include <filesystem>

namespace Ostrel {

/// The name of a file or folder, in the system's own form. Nothing here but `exists` looks at the disk.
class OSTREL_API Path {
public:
    /// The empty path, which names nothing.
    Path() = default;

    /// On Linux the name's bytes are the text's UTF-8.
    Path(const String& path);
    Path(const wchar_t* path);
    Path(const char* path);
    explicit Path(std::filesystem::path path) noexcept;

    /// The whole path as text. On Linux, bytes of a name that are not UTF-8 show as U+FFFD.
    [[nodiscard]] String nativeStr() const;

    /// What follows the last separator: "c.txt" of "a/b/c.txt", empty for "a/b/".
    [[nodiscard]] String fileName() const;

    /// What precedes the last separator: "a/b" of "a/b/c.txt", empty for "c.txt".
    [[nodiscard]] Path parentDirectory() const;

    /// The end of the file name from its last dot on, with the dot and in the case it is written in: ".txt" of
    /// "c.tar.txt". Empty for "c" and for ".c".
    [[nodiscard]] String extension() const;

    [[nodiscard]] bool isEmpty() const noexcept;

    /// Whether there is such a file or folder; false also when the system refuses to say.
    [[nodiscard]] bool exists() const noexcept;

    /// For the standard library's file functions.
    [[nodiscard]] const std::filesystem::path& native() const noexcept;

    /// `right` inside of `left`; `right` alone when it is absolute.
    [[nodiscard]] friend Path operator/(const Path& left, const Path& right) { return Path(left._path / right._path); }

    /// Compares the names part by part, not the files.
    friend bool operator==(const Path& left, const Path& right) noexcept {
        return left._path.compare(right._path) == 0;
    }
    friend std::strong_ordering operator<=>(const Path& left, const Path& right) noexcept {
        return left._path.compare(right._path) <=> 0;
    }

private:
    std::filesystem::path _path;
};

} // namespace Ostrel
