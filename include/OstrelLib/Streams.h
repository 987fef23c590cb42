#pragma once

#include <OstrelLib/Exceptions.h>
#include <OstrelLib/Export.h>
#include <OstrelLib/Path.h>
#include <OstrelLib/Types.h>

#include <cstddef>
#include <fstream>

/// Binary streams. None of them buffers beyond what the standard library does, and none may be used by two threads
/// at once.
namespace Ostrel::Io {

/// Opening, reading, writing or closing a stream failed.
class OSTREL_API StreamException : public Detail::ExceptionBase {
public:
    using ExceptionBase::ExceptionBase;
    StreamException(const StreamException&) = default;
    StreamException(StreamException&&) = default;
    StreamException& operator=(const StreamException&) = default;
    StreamException& operator=(StreamException&&) = default;
    ~StreamException() override;
};

/// A source of bytes.
class OSTREL_API BinaryInputStream : public Object {
public:
    ~BinaryInputStream() override;

    /// Reads up to `byteCount` bytes into `buffer`, which has room for them, and returns how many: fewer only at the
    /// end, 0 from then on. Throws `StreamException` with the text "Could not load object from the stream." when the
    /// system fails to read.
    virtual std::size_t read(void* buffer, std::size_t byteCount) = 0;

    /// Reads `byteCount` bytes, or throws `StreamException` with the text "Could not load object from the stream.".
    void readExactly(void* buffer, std::size_t byteCount);
};

/// A sink of bytes.
class OSTREL_API BinaryOutputStream : public Object {
public:
    ~BinaryOutputStream() override;

    /// Appends `byteCount` bytes; throws `StreamException` when they cannot be written.
    virtual void write(const void* bytes, std::size_t byteCount) = 0;
};

/// Reads a file from its beginning.
class OSTREL_API FileInputStream : public BinaryInputStream {
public:
    /// Throws `StreamException` when `path` cannot be opened or is a folder.
    explicit FileInputStream(const Path& path);
    ~FileInputStream() override;

    std::size_t read(void* buffer, std::size_t byteCount) override;

    /// Releases the file; reading afterwards throws. Closing again does nothing.
    void close();

private:
    std::ifstream _file;
};

/// Writes a file, which is created, or emptied if it exists.
class OSTREL_API FileOutputStream : public BinaryOutputStream {
public:
    /// Throws `StreamException` when `path` cannot be opened for writing.
    explicit FileOutputStream(const Path& path);

    /// Closes the file; a failure goes unnoticed, so call `close` to learn of it.
    ~FileOutputStream() override;

    void write(const void* bytes, std::size_t byteCount) override;

    /// Writes what is still buffered and releases the file; throws `StreamException` when either fails. Writing
    /// afterwards throws; closing again does nothing.
    void close();

private:
    [[noreturn]] void throwWriteFailure() const;

    Path _path;
    std::ofstream _file;
};

/// Reads bytes that somebody else keeps; they must outlive the stream.
class OSTREL_API MemoryInputStream : public BinaryInputStream {
public:
    explicit MemoryInputStream(ArrayView<const std::byte> bytes) noexcept;
    ~MemoryInputStream() override;

    std::size_t read(void* buffer, std::size_t byteCount) override;

private:
    ArrayView<const std::byte> _rest;
};

} // namespace Ostrel::Io
