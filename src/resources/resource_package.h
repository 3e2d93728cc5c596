#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "engine_string.h"
#include "file_stream.h"
#include "resource_source.h"

namespace grub {

/// The bytes 78 19 at the start of every package.
inline constexpr std::uint16_t kPackageMagic = 0x1978;
/// Bytes before the directory: magic, directory size, entry count, 16 bits each.
inline constexpr std::uint32_t kPackageHeaderSize = 6;
/// A file with a smaller directory is not a package.
inline constexpr std::uint16_t kSmallestDirectorySize = 8;
/// Bytes of a directory entry beside the characters of its name: NUL, size, offset.
inline constexpr std::uint32_t kEntryOverhead = 9;

/// The start of a package file.
struct PackageHeader {
    std::uint16_t directorySize = 0;
    std::uint16_t entryCount = 0;
};

/// Where a resource lies.
struct PackageExtent {
    std::uint32_t size = 0;    // bytes
    std::uint32_t offset = 0;  // from the start of the file
};

/// One entry as the directory has it; the name points into the directory's bytes.
struct PackageEntry {
    std::string_view name;
    PackageExtent extent;
};

/// Returns nothing when the bytes are not the start of a package.
[[nodiscard]] std::optional<PackageHeader> readPackageHeader(std::span<const std::uint8_t> bytes);

/// The entries in their order. Stops at `entryCount`, or before the first entry that the directory does not hold whole.
[[nodiscard]] std::vector<PackageEntry> readPackageDirectory(std::span<const std::uint8_t> directory,
                                                             std::uint16_t entryCount);

/// Named resources of one package file. The constructor reads the directory; a load seeks and reads, and caches
/// nothing. Any thread may load: a lock covers the seek and the read, which share one file position.
class ResourcePackage final : public ResourceSource {
public:
    /// Opens the package until it is destroyed. A file that does not open, or is shorter than a header, gives a message
    /// box; every other fault is silent. The package can be used in any case; without a directory it knows no name.
    explicit ResourcePackage(const EngineString& path);

    /// "/" counts as "\"; nothing else is changed, not even letter case.
    [[nodiscard]] bool exists(const EngineString& name) override;
    /// The stored bytes of `name`, independent of this package; "/" counts as "\". Unknown name: message box, empty
    /// buffer. An entry that leaves the file, or a short read: empty buffer, no message.
    [[nodiscard]] SharedBuffer load(const EngineString& name) override;

private:
    void readDirectory(const PackageHeader& header);
    [[nodiscard]] SharedBuffer readWhole(const PackageExtent& extent);

    StringMap<PackageExtent> directory_;
    FileStream file_;
    std::int64_t fileSize_ = 0;
    std::mutex lock_;  // the position of file_
};

}  // namespace grub
