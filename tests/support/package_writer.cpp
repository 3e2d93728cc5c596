#include "package_writer.h"

#include <algorithm>

namespace grub {

PackageWriter& PackageWriter::add(std::string_view name, Bytes data) {
    entries_.push_back({std::string(name), std::move(data)});
    return *this;
}

Bytes PackageWriter::package() const {
    std::size_t directorySize = 0;
    for (const Entry& entry : entries_) directorySize += entry.name.size() + 1 + 4 + 4;
    directorySize = std::max<std::size_t>(directorySize, 8);

    Bytes package;
    append(package, 0x1978, 2);
    append(package, static_cast<std::uint32_t>(directorySize), 2);
    append(package, static_cast<std::uint32_t>(entries_.size()), 2);
    std::size_t offset = package.size() + directorySize;
    for (const Entry& entry : entries_) {
        package.insert(package.end(), entry.name.begin(), entry.name.end());
        append(package, 0, 1);
        append(package, static_cast<std::uint32_t>(entry.data.size()), 4);
        append(package, static_cast<std::uint32_t>(offset), 4);
        offset += entry.data.size();
    }
    package.resize(6 + directorySize);
    for (const Entry& entry : entries_) package.insert(package.end(), entry.data.begin(), entry.data.end());
    return package;
}

}  // namespace grub
