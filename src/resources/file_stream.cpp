#include "file_stream.h"

namespace grub {
namespace {

DWORD accessOf(std::uint32_t openFlags) {
    DWORD access = 0;
    if ((openFlags & kOpenRead) != 0) access |= GENERIC_READ;
    if ((openFlags & kOpenWrite) != 0) access |= GENERIC_WRITE;
    return access;
}

DWORD shareModeOf(std::uint32_t openFlags) {
    return (openFlags & kOpenWrite) != 0 ? FILE_SHARE_READ | FILE_SHARE_WRITE : FILE_SHARE_READ;
}

DWORD dispositionOf(std::uint32_t openFlags) {
    if ((openFlags & kOpenWrite) == 0) return OPEN_EXISTING;  // Create means nothing to a reader
    return (openFlags & kOpenCreate) != 0 ? CREATE_ALWAYS : OPEN_ALWAYS;
}

HANDLE openFile(const EngineString& path, std::uint32_t openFlags) {
    if (accessOf(openFlags) == 0) return INVALID_HANDLE_VALUE;
    return CreateFileA(path.cStr(), accessOf(openFlags), shareModeOf(openFlags), nullptr, dispositionOf(openFlags),
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// The new position from the start of the file, -1 when the move fails. The system takes the distance as signed: it
/// refuses an absolute position from 2 GiB up, which looks negative.
std::int64_t move(HANDLE file, std::uint32_t distance, DWORD method) {
    const DWORD position = SetFilePointer(file, static_cast<LONG>(distance), nullptr, method);
    return position == INVALID_SET_FILE_POINTER ? -1 : std::int64_t{position};
}

}  // namespace

FileStream::FileStream(const EngineString& path, std::uint32_t openFlags) { open(path, openFlags); }

FileStream::~FileStream() { close(); }

bool FileStream::open(const EngineString& path, std::uint32_t openFlags) {
    close();
    status_ = kStreamNotOpen;
    handle_ = openFile(path, openFlags);
    if (!isOpen()) return false;
    if ((openFlags & kOpenAppend) != 0) move(handle_, 0, FILE_END);
    status_ = 0;
    path_ = path;
    openFlags_ = openFlags;
    return true;
}

bool FileStream::close() {
    if (!isOpen()) return true;
    if (CloseHandle(handle_) == 0) {
        fail();
        return false;
    }
    handle_ = INVALID_HANDLE_VALUE;
    status_ = kStreamNotOpen;
    return true;
}

std::int64_t FileStream::read(void* buffer, std::uint32_t count) {
    DWORD done = 0;
    if (!isOpen() || ReadFile(handle_, buffer, count, &done, nullptr) == 0) return fail();
    if (count != 0 && done == 0) status_ |= kStreamEndOfFile;
    return done;
}

std::int64_t FileStream::readAt(std::uint32_t position, void* buffer, std::uint32_t count) {
    if (!isOpen() || move(handle_, position, FILE_BEGIN) != position) return fail();
    return read(buffer, count);
}

std::int64_t FileStream::write(const void* buffer, std::uint32_t count) {
    DWORD done = 0;
    if (!isOpen() || WriteFile(handle_, buffer, count, &done, nullptr) == 0) return fail();
    if (done < count) status_ |= kStreamFailed;
    return done;
}

bool FileStream::flush() { return isOpen() && FlushFileBuffers(handle_) != 0; }

std::int64_t FileStream::size() const {
    if (!isOpen()) return -1;
    const std::int64_t position = move(handle_, 0, FILE_CURRENT);
    const std::int64_t end = move(handle_, 0, FILE_END);
    if (position < 0 || move(handle_, static_cast<std::uint32_t>(position), FILE_BEGIN) != position) return -1;
    return end;
}

std::int64_t FileStream::fail() {
    status_ |= kStreamFailed;
    return -1;
}

}  // namespace grub
