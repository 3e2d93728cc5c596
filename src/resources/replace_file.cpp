#include "replace_file.h"

#include <windows.h>

#include "file_stream.h"

namespace grub {
namespace {

bool writeToDisk(const EngineString& path, std::span<const std::uint8_t> bytes) {
    FileStream file(path, kOpenWrite | kOpenCreate);
    const auto count = static_cast<std::uint32_t>(bytes.size());
    return file.write(bytes.data(), count) == static_cast<std::int64_t>(bytes.size()) && file.flush() && file.close();
}

}  // namespace

bool replaceFile(const EngineString& path, std::span<const std::uint8_t> bytes) {
    const EngineString fresh = path + ".new";
    constexpr DWORD kHow = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    if (writeToDisk(fresh, bytes) && MoveFileExA(fresh.cStr(), path.cStr(), kHow) != FALSE) return true;
    DeleteFileA(fresh.cStr());
    return false;
}

}  // namespace grub
