#pragma once

#include <windows.h>

#include <cstdint>

#include "engine_string.h"

namespace grub {

/// How a file is opened, a set of bits. Write alone creates a missing file and keeps an existing one, Create beside
/// Write empties it, Append moves to the end once after opening.
inline constexpr std::uint32_t kOpenRead = 1;
inline constexpr std::uint32_t kOpenWrite = 2;
inline constexpr std::uint32_t kOpenCreate = 4;
inline constexpr std::uint32_t kOpenAppend = 8;

/// What has happened to a stream since it was opened, a set of bits. The last two stick until the next open.
inline constexpr std::uint8_t kStreamNotOpen = 1;
inline constexpr std::uint8_t kStreamFailed = 2;
inline constexpr std::uint8_t kStreamEndOfFile = 4;

/// A file that remembers its failures. It shows no message; for one thread at a time.
class FileStream {
public:
    FileStream() = default;
    /// Opens at once; see `isOpen`.
    FileStream(const EngineString& path, std::uint32_t openFlags);
    FileStream(const FileStream&) = delete;
    FileStream& operator=(const FileStream&) = delete;
    ~FileStream();

    /// Closes what is open, then opens. False leaves the stream not open, with that status alone.
    bool open(const EngineString& path, std::uint32_t openFlags);
    /// True also when nothing is open.
    bool close();

    /// Bytes read from the current position, fewer than `count` at the end of the file; -1 on failure.
    [[nodiscard]] std::int64_t read(void* buffer, std::uint32_t count);
    /// The same from an absolute position below 2 GiB; the stream goes on behind what was read.
    [[nodiscard]] std::int64_t readAt(std::uint32_t position, void* buffer, std::uint32_t count);
    /// Bytes written at the current position; -1 on failure.
    std::int64_t write(const void* buffer, std::uint32_t count);
    /// Hands written bytes to the disk. Leaves the status alone.
    bool flush();
    /// The file's size in bytes, -1 when it is not known. Leaves position and status alone.
    [[nodiscard]] std::int64_t size() const;

    /// Stays true after a failed read or write; only `status` tells those.
    [[nodiscard]] bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    /// The bits named kStream... above.
    [[nodiscard]] std::uint8_t status() const { return status_; }
    /// Path and flags of the last successful open.
    [[nodiscard]] const EngineString& path() const { return path_; }
    [[nodiscard]] std::uint32_t openFlags() const { return openFlags_; }

private:
    std::int64_t fail();

    std::uint8_t status_ = kStreamNotOpen;
    HANDLE handle_ = INVALID_HANDLE_VALUE;
    EngineString path_;
    std::uint32_t openFlags_ = 0;
};

}  // namespace grub
