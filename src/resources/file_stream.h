#pragma once

#include <windows.h>

#include <cstdint>

#include "engine_string.h"

namespace grub {

/// How to open a file, as a set of bits. Write alone creates a missing file and keeps an existing one; Create together
/// with Write empties it; Append moves to the end once, after opening.
inline constexpr std::uint32_t kOpenRead = 1;
inline constexpr std::uint32_t kOpenWrite = 2;
inline constexpr std::uint32_t kOpenCreate = 4;
inline constexpr std::uint32_t kOpenAppend = 8;

/// What has happened to a stream since its last open, as a set of bits. The last two stick until the next open.
inline constexpr std::uint8_t kStreamNotOpen = 1;
inline constexpr std::uint8_t kStreamFailed = 2;
inline constexpr std::uint8_t kStreamEndOfFile = 4;

/// A file that remembers its failures and shows no message. For one thread at a time.
class FileStream {
public:
    FileStream() = default;
    /// Opens at once; see `isOpen`.
    FileStream(const EngineString& path, std::uint32_t openFlags);
    FileStream(const FileStream&) = delete;
    FileStream& operator=(const FileStream&) = delete;
    ~FileStream();

    /// Closes the open file, then opens. After false the status is `kStreamNotOpen` alone.
    bool open(const EngineString& path, std::uint32_t openFlags);
    /// True also when nothing is open.
    bool close();

    /// Reads from the current position. Returns the bytes read, fewer than `count` at the end of the file, or -1 on
    /// failure.
    [[nodiscard]] std::int64_t read(void* buffer, std::uint32_t count);
    /// The same from an absolute position below 2 GiB; the position then is behind the bytes read.
    [[nodiscard]] std::int64_t readAt(std::uint32_t position, void* buffer, std::uint32_t count);
    /// Writes at the current position. Returns the bytes written, or -1 on failure. Fewer bytes than `count` (a full
    /// disk) are a failure too: the status tells.
    std::int64_t write(const void* buffer, std::uint32_t count);
    /// Waits until the disk holds what was written, which may take 50 ms. Leaves the status alone.
    bool flush();
    /// The file's size in bytes, or -1 when the system does not tell. Leaves position and status alone.
    [[nodiscard]] std::int64_t size() const;

    /// Stays true after a failed read or write; only `status` tells of these.
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
