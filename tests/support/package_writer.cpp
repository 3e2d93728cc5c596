#include "package_writer.h"

#include <algorithm>

namespace grub {
namespace {

void append(Bytes& bytes, std::uint32_t value, unsigned byteCount) {
    bytes.resize(bytes.size() + byteCount);
    put(bytes, bytes.size() - byteCount, value, byteCount);
}

}  // namespace

Bytes bytesOf(std::string_view text) { return {text.begin(), text.end()}; }

void put(Bytes& bytes, std::size_t offset, std::uint32_t value, unsigned byteCount) {
    for (unsigned i = 0; i < byteCount; ++i) bytes.at(offset + i) = static_cast<std::uint8_t>(value >> (8 * i));
}

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
