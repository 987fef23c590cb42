#include <OstrelLib/Streams.h>

#include <algorithm>
#include <cstring>
#include <system_error>

namespace Ostrel::Io {

namespace {

constexpr const char* LOAD_FAILURE_TEXT = "Could not load object from the stream.";

/// Largest piece handed to the system at once: far below what any system refuses.
constexpr std::size_t MAX_PIECE_BYTES = std::size_t{1} << 20;

String quoted(const Path& path) {
    return "\"" + path.nativeStr() + "\"";
}

bool isFolder(const Path& path) {
    std::error_code error;
    return std::filesystem::is_directory(path.native(), error);
}

} // namespace

StreamException::~StreamException() = default;

BinaryInputStream::~BinaryInputStream() = default;

void BinaryInputStream::readExactly(void* buffer, std::size_t byteCount) {
    if (read(buffer, byteCount) != byteCount) {
        throw StreamException(LOAD_FAILURE_TEXT);
    }
}

BinaryOutputStream::~BinaryOutputStream() = default;

FileInputStream::FileInputStream(const Path& path) {
    // Some systems open a folder as if it were a file and fail only when it is read.
    if (!isFolder(path)) {
        _file.open(path.native(), std::ios::in | std::ios::binary);
    }
    if (!_file.is_open()) {
        throw StreamException("Cannot open the file " + quoted(path) + " for reading.");
    }
}

FileInputStream::~FileInputStream() = default;

std::size_t FileInputStream::read(void* buffer, std::size_t byteCount) {
    if (!_file.is_open()) {
        throw StreamException(LOAD_FAILURE_TEXT);
    }
    std::size_t done = 0;
    while (done < byteCount && _file.good()) {
        const std::size_t piece = std::min(byteCount - done, MAX_PIECE_BYTES);
        _file.read(static_cast<char*>(buffer) + done, static_cast<std::streamsize>(piece));
        if (_file.bad()) {
            throw StreamException(LOAD_FAILURE_TEXT);
        }
        done += static_cast<std::size_t>(_file.gcount());
    }
    return done;
}

void FileInputStream::close() {
    if (_file.is_open()) {
        _file.close();
    }
}

FileOutputStream::FileOutputStream(const Path& path)
    : _path(path)
    , _file(path.native(), std::ios::out | std::ios::binary | std::ios::trunc) {
    if (!_file.is_open()) {
        throw StreamException("Cannot open the file " + quoted(_path) + " for writing.");
    }
}

FileOutputStream::~FileOutputStream() = default;

void FileOutputStream::write(const void* bytes, std::size_t byteCount) {
    if (!_file.is_open()) {
        throwWriteFailure();
    }
    std::size_t done = 0;
    while (done < byteCount) {
        const std::size_t piece = std::min(byteCount - done, MAX_PIECE_BYTES);
        _file.write(static_cast<const char*>(bytes) + done, static_cast<std::streamsize>(piece));
        if (!_file) {
            throwWriteFailure();
        }
        done += piece;
    }
}

void FileOutputStream::close() {
    if (!_file.is_open()) {
        return;
    }
    _file.close();
    if (!_file) {
        throwWriteFailure();
    }
}

void FileOutputStream::throwWriteFailure() const {
    throw StreamException("Cannot write to the file " + quoted(_path) + ".");
}

MemoryInputStream::MemoryInputStream(ArrayView<const std::byte> bytes) noexcept
    : _rest(bytes) {}

MemoryInputStream::~MemoryInputStream() = default;

std::size_t MemoryInputStream::read(void* buffer, std::size_t byteCount) {
    const std::size_t count = std::min(byteCount, _rest.size());
    if (count > 0) {
        std::memcpy(buffer, _rest.data(), count);
        _rest = _rest.subspan(count);
    }
    return count;
}

} // namespace Ostrel::Io
