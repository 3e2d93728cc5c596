#include "resource_package.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "byte_reader.h"

namespace grub {
namespace {

constexpr std::uint32_t kBucketCount = 101;

void showError(const char* problem, const EngineString& subject) {
    const EngineString text = problem + subject;
    MessageBoxA(nullptr, text.cStr(), "Package resource manager", MB_OK | MB_ICONERROR | MB_TASKMODAL);
}

/// The name as directories spell it.
std::string normalised(const EngineString& name) {
    std::string spelling(name.view());
    std::replace(spelling.begin(), spelling.end(), '/', '\\');
    return spelling;
}

}  // namespace

std::optional<PackageHeader> readPackageHeader(std::span<const std::uint8_t> bytes) {
    ByteReader reader(bytes);
    const std::uint16_t magic = reader.u16();
    const PackageHeader header{.directorySize = reader.u16(), .entryCount = reader.u16()};
    if (!reader.ok() || magic != kPackageMagic || header.directorySize < kSmallestDirectorySize) return std::nullopt;
    return header;
}

std::vector<PackageEntry> readPackageDirectory(std::span<const std::uint8_t> directory, std::uint16_t entryCount) {
    std::vector<PackageEntry> entries;
    ByteReader reader(directory);
    for (std::uint32_t i = 0; i < entryCount; ++i) {
        PackageEntry entry;
        entry.name = reader.cString();
        entry.extent.size = reader.u32();
        entry.extent.offset = reader.u32();
        if (!reader.ok()) break;
        entries.push_back(entry);
    }
    return entries;
}

ResourcePackage::ResourcePackage(const EngineString& path) : directory_(kBucketCount), file_(path, kOpenRead) {
    std::array<std::uint8_t, kPackageHeaderSize> header{};
    if (!file_.isOpen()) {
        showError("Can't open resource package file: ", path);
    } else if (file_.read(header.data(), kPackageHeaderSize) != kPackageHeaderSize) {
        showError("Can't read resource package file: ", path);
    } else if (const auto fields = readPackageHeader(header)) {
        fileSize_ = file_.size();
        readDirectory(*fields);
    }
}

void ResourcePackage::readDirectory(const PackageHeader& header) {
    const SharedBuffer bytes = readWhole({.size = header.directorySize, .offset = kPackageHeaderSize});
    for (const PackageEntry& entry : readPackageDirectory(bytes.bytes(), header.entryCount)) {
        directory_.insert(entry.name, entry.extent);
    }
}

bool ResourcePackage::exists(const EngineString& name) { return directory_.find(normalised(name)) != nullptr; }

SharedBuffer ResourcePackage::load(const EngineString& name) {
    const PackageExtent* const extent = directory_.find(normalised(name));
    if (extent == nullptr) {
        showError("Can't find resource: ", name);
        return {};
    }
    return readWhole(*extent);
}

/// The bytes at `extent`, or the empty buffer. Takes memory only after comparing the size with the file's: a broken
/// entry may claim 4 GiB.
SharedBuffer ResourcePackage::readWhole(const PackageExtent& extent) {
    const std::int64_t available = std::max<std::int64_t>(fileSize_ - extent.offset, 0);
    if (extent.size > available) return {};
    SharedBuffer buffer = SharedBuffer::create(extent.size);
    if (buffer.empty()) return {};
    const std::lock_guard guard(lock_);
    if (file_.readAt(extent.offset, buffer.writableData(), extent.size) != extent.size) return {};
    return buffer;
}

}  // namespace grub
