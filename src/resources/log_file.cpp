#include "log_file.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <mutex>

#include "file_stream.h"

namespace grub {
namespace {

/// The longest line and one byte, in which formatting puts a NUL and the file an LF.
constexpr std::size_t kLineBufferSize = 1024;

struct Log {
    std::mutex lock;
    FileStream file{"nimbo.log", kOpenWrite | kOpenCreate};
};

/// Never destroyed, since a thread may still log while the process ends; the system closes the file. Made on first use,
/// so that the constructors of static objects may log in any order.
Log& theLog() {
    static Log& log = *new Log;
    return log;
}

}  // namespace

void openLog() { theLog(); }

void logLine(const char* format, ...) {
    std::array<char, kLineBufferSize> line{};
    va_list arguments;
    va_start(arguments, format);
    const int wanted = std::vsnprintf(line.data(), line.size(), format, arguments);
    va_end(arguments);
    if (wanted < 0) return;
    const auto length = std::min<std::size_t>(static_cast<std::size_t>(wanted), kLineBufferSize - 1);
    line[length] = '\n';

    Log& log = theLog();
    const std::lock_guard guard(log.lock);
    log.file.write(line.data(), static_cast<std::uint32_t>(length + 1));
    log.file.flush();
}

}  // namespace grub
