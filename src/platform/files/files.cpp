#include "files/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

#include "kernel/calls.h"
#include "kernel/objects.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

/// The directory of setDataDirectory; empty: not set.
std::string& askedFor() {
    static auto* directory = new std::string;
    return *directory;
}

/// Beside the program's bin/ in a build tree, else where an installation puts the packages.
std::string comesWithProgram() {
    std::error_code failure;
    const fs::path program = fs::read_symlink("/proc/self/exe", failure);
    if (failure) return "data";
    const fs::path prefix = program.parent_path().parent_path();
    const fs::path beside = prefix / "data";
    return (fs::is_directory(beside, failure) ? beside : prefix / "share" / "grubaway").string();
}

const std::string& ownDataDirectory() {
    static const auto* directory = new std::string(comesWithProgram());
    return *directory;
}

bool isPackage(const fs::path& path) { return path.is_relative() && path.extension() == ".pak"; }

/// Where to look for a file that is opened for reading only, in this order. A package (relative, "*.pak"): the data
/// directory given by the user, the working directory, the data directory that comes with the program. Anything else,
/// saves and scores above all: its own path only, or a save left in the data directory would appear as the player's.
std::vector<std::string> placesToReadFrom(const std::string& path) {
    if (!isPackage(path)) return {path};
    if (askedFor().empty()) return {path, ownDataDirectory() + "/" + path};
    return {askedFor() + "/" + path, path, ownDataDirectory() + "/" + path};
}

class FileObject final : public KernelObject {
public:
    FileObject(int descriptor, bool writable) : descriptor_(descriptor), writable_(writable) {}
    ~FileObject() override { FileObject::close(); }

    [[nodiscard]] int descriptor() const { return descriptor_; }
    [[nodiscard]] bool isWritable() const { return writable_; }

    bool close() override {
        const bool closed = descriptor_ >= 0 && ::close(descriptor_) == 0;
        descriptor_ = -1;
        return closed;
    }

private:
    int descriptor_;
    bool writable_;
};

int openFlags(DWORD access, DWORD disposition) {
    const bool writes = (access & GENERIC_WRITE) != 0;
    int flags = O_CLOEXEC;
    flags |= !writes ? O_RDONLY : (access & GENERIC_READ) != 0 ? O_RDWR : O_WRONLY;
    if (disposition == OPEN_ALWAYS || disposition == CREATE_ALWAYS) flags |= O_CREAT;
    if (disposition == CREATE_ALWAYS) flags |= O_TRUNC;
    return flags;
}

/// The file's descriptor, or -1. A directory can be opened for reading here, on Windows it cannot.
int openOne(const std::string& path, int flags) {
    const int descriptor = ::open(path.c_str(), flags, 0666);
    struct stat about {};
    if (descriptor < 0 || (::fstat(descriptor, &about) == 0 && !S_ISDIR(about.st_mode))) return descriptor;
    ::close(descriptor);
    return -1;
}

std::string withSlashes(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

int openFile(const std::string& path, DWORD access, DWORD disposition) {
    const int flags = openFlags(access, disposition);
    if (access != GENERIC_READ || disposition != OPEN_EXISTING) return openOne(path, flags);
    int descriptor = -1;
    for (const auto& place : placesToReadFrom(path)) {
        if ((descriptor = openOne(place, flags)) >= 0) break;
    }
    return descriptor;
}

/// Calls read or write until `count` bytes are through, the system refuses or the file ends. `done` receives the bytes
/// that are through. Returns what the last call returned: -1 for a refusal, 0 for the end of the file.
template <class Operation, class Byte>
ssize_t transfer(Operation operation, int descriptor, Byte* bytes, DWORD count, DWORD& done) {
    done = 0;
    while (done < count) {
        const auto step = operation(descriptor, bytes + done, count - done);
        if (step < 0 && errno == EINTR) continue;
        if (step <= 0) return step;
        done += static_cast<DWORD>(step);
    }
    return done;
}

/// Waits until the disk knows the names in the directory of `path`. A file system that cannot be asked
/// (EINVAL) is trusted.
bool flushDirectoryOf(const fs::path& path) {
    const fs::path directory = path.has_parent_path() ? path.parent_path() : ".";
    const int descriptor = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return false;
    const bool flushed = ::fsync(descriptor) == 0 || errno == EINVAL;
    ::close(descriptor);
    return flushed;
}

int originOf(DWORD method) { return method == FILE_BEGIN ? SEEK_SET : method == FILE_CURRENT ? SEEK_CUR : SEEK_END; }

}  // namespace

void setDataDirectory(std::string directory) {
    while (directory.size() > 1 && directory.back() == '/') directory.pop_back();
    askedFor() = std::move(directory);
}

const std::string& dataDirectory() { return askedFor().empty() ? ownDataDirectory() : askedFor(); }

}  // namespace platform

HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD /*shareMode*/, void* /*security*/, DWORD disposition,
                   DWORD /*attributes*/, HANDLE /*templateFile*/) {
    if (platform::isRefused(platform::Call::CreateFile)) return INVALID_HANDLE_VALUE;
    const int descriptor = platform::openFile(platform::withSlashes(path), access, disposition);
    if (descriptor < 0) return INVALID_HANDLE_VALUE;
    return platform::newHandle(std::make_shared<platform::FileObject>(descriptor, (access & GENERIC_WRITE) != 0));
}

BOOL ReadFile(HANDLE file, void* buffer, DWORD count, DWORD* read, void* /*overlapped*/) {
    *read = 0;
    const auto object = platform::objectOf<platform::FileObject>(file);
    if (!object) return FALSE;
    return platform::transfer(::read, object->descriptor(), static_cast<char*>(buffer), count, *read) >= 0 ? TRUE
                                                                                                           : FALSE;
}

BOOL WriteFile(HANDLE file, const void* buffer, DWORD count, DWORD* written, void* /*overlapped*/) {
    *written = 0;
    const auto object = platform::objectOf<platform::FileObject>(file);
    if (!object || platform::isRefused(platform::Call::WriteFile)) return FALSE;
    const auto* bytes = static_cast<const char*>(buffer);
    platform::transfer(::write, object->descriptor(), bytes, count, *written);
    return *written == count ? TRUE : FALSE;
}

DWORD SetFilePointer(HANDLE file, LONG distance, LONG* /*distanceHigh*/, DWORD method) {
    const auto object = platform::objectOf<platform::FileObject>(file);
    if (!object) return INVALID_SET_FILE_POINTER;
    const off_t position = ::lseek(object->descriptor(), distance, platform::originOf(method));
    const bool fits = position >= 0 && position < static_cast<off_t>(INVALID_SET_FILE_POINTER);
    return fits ? static_cast<DWORD>(position) : INVALID_SET_FILE_POINTER;
}

BOOL FlushFileBuffers(HANDLE file) {
    const auto object = platform::objectOf<platform::FileObject>(file);
    if (!object || !object->isWritable() || platform::isRefused(platform::Call::FlushFile)) return FALSE;
    return ::fsync(object->descriptor()) == 0 ? TRUE : FALSE;
}

BOOL MoveFileExA(LPCSTR from, LPCSTR to, DWORD flags) {
    if ((flags & MOVEFILE_REPLACE_EXISTING) == 0 || platform::isRefused(platform::Call::MoveFile)) return FALSE;
    const std::string target = platform::withSlashes(to);
    if (::rename(platform::withSlashes(from).c_str(), target.c_str()) != 0) return FALSE;
    return (flags & MOVEFILE_WRITE_THROUGH) == 0 || platform::flushDirectoryOf(target) ? TRUE : FALSE;
}

BOOL DeleteFileA(LPCSTR path) {
    if (platform::isRefused(platform::Call::DeleteFile)) return FALSE;
    return ::unlink(platform::withSlashes(path).c_str()) == 0 ? TRUE : FALSE;
}
