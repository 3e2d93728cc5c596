#pragma once

#include <cstdint>
#include <mutex>

#include "file_stream.h"
#include "package_format.h"
#include "resource_source.h"
#include "string_map.h"

namespace grub {

/// Named resources of one package file. The directory is read once, on opening; a load seeks and reads, and caches
/// nothing. Loads may come from any thread: a lock covers the seek and the read, which share one file position.
class ResourcePackage final : public ResourceSource {
public:
    /// Opens the package until it is destroyed. A file that cannot be opened, or is shorter than a header: message box.
    /// Whatever else is wrong is silent. The package can be used in any case; without a directory it knows no name.
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
