#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "resource_package.h"

namespace {

/// A file of this process that takes each input in turn.
const char* inputPath() {
    static char path[64];
    if (path[0] == '\0') {
        std::snprintf(path, sizeof path, "/tmp/grub-package-fuzz-%d", static_cast<int>(getpid()));
        std::atexit([] { std::remove(path); });
    }
    return path;
}

}  // namespace

/// Any file opens, and every name that the directory knows loads with at most the file's bytes, twice the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span input(data, size);
    if (size < grub::kPackageHeaderSize) return 0;  // a message box, as tests show
    std::FILE* const file = std::fopen(inputPath(), "wb");
    std::fwrite(data, 1, size, file);
    std::fclose(file);

    grub::ResourcePackage package(inputPath());
    const auto header = grub::readPackageHeader(input);
    if (!header) return 0;
    const auto rest = input.subspan(grub::kPackageHeaderSize);
    if (header->directorySize > rest.size()) return 0;
    for (const auto& entry : grub::readPackageDirectory(rest.first(header->directorySize), header->entryCount)) {
        const grub::EngineString name(entry.name);
        if (!package.exists(name)) continue;  // its name holds a "/"
        const grub::SharedBuffer buffer = package.load(name);
        if (buffer.size() > size) std::abort();
    }
    return 0;
}
