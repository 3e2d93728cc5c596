#include "package_files.h"

#include <algorithm>
#include <set>
#include <utility>

#include "whole_file.h"

namespace grub {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargestDirectory = 0xFFFF;      // directory size and entry count have 16 bits
constexpr std::uint64_t kLargestPackage = 0x7FFFFFFF;  // the game moves in a file by a signed 32-bit distance

void append(std::vector<std::uint8_t>& bytes, std::uint32_t value, unsigned byteCount) {
    for (unsigned i = 0; i < byteCount; ++i) bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

std::size_t directorySizeOf(const std::vector<PackItem>& items) {
    std::size_t size = 0;
    for (const PackItem& item : items) size += item.name.size() + kEntryOverhead;
    return std::max<std::size_t>(size, kSmallestDirectorySize);
}

std::uint64_t dataSizeOf(const std::vector<PackItem>& items) {
    std::uint64_t size = 0;
    for (const PackItem& item : items) size += item.bytes.size();
    return size;
}

/// A sentence about the limit of the format that the items exceed; empty when they fit.
std::string limitExceededBy(const std::vector<PackItem>& items) {
    const auto number = [](std::uint64_t value) { return std::to_string(value); };
    const std::size_t directorySize = directorySizeOf(items);
    if (directorySize > kLargestDirectory) {
        return "the directory would take " + number(directorySize) + " bytes (each name and 9), at most 65535 fit";
    }
    const std::uint64_t fileSize = kPackageHeaderSize + directorySize + dataSizeOf(items);
    if (fileSize > kLargestPackage)
        return "the package would take " + number(fileSize) + " bytes, the game reads below 2 GiB";
    return {};
}

std::vector<std::uint8_t> headAndDirectory(const std::vector<PackItem>& items) {
    const auto directorySize = static_cast<std::uint32_t>(directorySizeOf(items));
    std::vector<std::uint8_t> bytes;
    append(bytes, kPackageMagic, 2);
    append(bytes, directorySize, 2);
    append(bytes, static_cast<std::uint32_t>(items.size()), 2);
    std::uint32_t offset = kPackageHeaderSize + directorySize;
    for (const PackItem& item : items) {
        const auto size = static_cast<std::uint32_t>(item.bytes.size());
        bytes.insert(bytes.end(), item.name.begin(), item.name.end());
        append(bytes, 0, 1);
        append(bytes, size, 4);
        append(bytes, offset, 4);
        offset += size;
    }
    bytes.resize(kPackageHeaderSize + directorySize);  // pads the directory of a package without entries
    return bytes;
}

std::string withForwardSlashes(std::string_view name) {
    std::string path(name);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

/// Whether a file of this name stays below the directory it is extracted to: no absolute path, no drive letter, no
/// "..", no empty name.
bool staysBelowDirectory(std::string_view name) {
    const std::string path = withForwardSlashes(name);
    const bool hasDrive = path.size() >= 2 && path[1] == ':';
    if (path.empty() || path.front() == '/' || hasDrive) return false;
    const fs::path parts(path);
    return std::find(parts.begin(), parts.end(), "..") == parts.end();
}

/// A sentence about the first entry that cannot be extracted; empty when all can.
std::string refusalOf(const PackageContents& package) {
    for (const PackageEntry& entry : package.entries) {
        if (!staysBelowDirectory(entry.name)) return "\"" + std::string(entry.name) + "\" would leave the directory";
        if (!package.bytesOf(entry)) return "\"" + std::string(entry.name) + "\" reaches beyond the package's end";
    }
    return {};
}

}  // namespace

std::optional<std::span<const std::uint8_t>> PackageContents::bytesOf(const PackageEntry& entry) const {
    const auto [size, offset] = entry.extent;
    if (offset > file.size() || size > file.size() - offset) return std::nullopt;
    return std::span(file).subspan(offset, size);
}

std::optional<std::span<const std::uint8_t>> PackageContents::bytesOf(std::string_view name) const {
    const auto entry = std::ranges::find(entries, name, &PackageEntry::name);
    return entry == entries.end() ? std::nullopt : bytesOf(*entry);
}

std::optional<PackageContents> readPackageContents(const std::filesystem::path& path, std::string& fault) {
    auto bytes = readWholeFile(path);
    if (!bytes) {
        fault = "cannot be read";
        return std::nullopt;
    }
    const auto header = readPackageHeader(*bytes);
    if (!header) {
        fault = "is no package: it wants the bytes 78 19, then a directory of at least 8 bytes";
        return std::nullopt;
    }
    PackageContents contents;
    contents.file = std::move(*bytes);
    contents.header = *header;
    const auto rest = std::span(contents.file).subspan(kPackageHeaderSize);
    const auto directory = rest.first(std::min<std::size_t>(header->directorySize, rest.size()));
    contents.directoryIsCut = directory.size() < header->directorySize;
    contents.entries = readPackageDirectory(directory, header->entryCount);
    return contents;
}

std::optional<std::vector<PackItem>> collectPackItems(const fs::path& directory, std::string& fault) {
    std::vector<PackItem> items;
    std::error_code problem;
    fs::recursive_directory_iterator file(directory, problem);
    for (; !problem && file != fs::recursive_directory_iterator(); file.increment(problem)) {
        if (file->is_directory()) continue;
        PackItem item{.name = file->path().lexically_relative(directory).generic_string(), .bytes = {}};
        auto bytes = readWholeFile(file->path());
        if (!bytes || item.name.find('\\') != std::string::npos) {
            fault =
                file->path().string() + (bytes ? ": \"\\\" in a file's name separates folders" : ": cannot be read");
            return std::nullopt;
        }
        std::replace(item.name.begin(), item.name.end(), '/', '\\');
        item.bytes = std::move(*bytes);
        items.push_back(std::move(item));
    }
    if (problem) {
        fault = directory.string() + ": " + problem.message();
        return std::nullopt;
    }
    return items;
}

std::optional<std::vector<std::uint8_t>> buildPackage(std::vector<PackItem> items, std::string& fault) {
    fault = limitExceededBy(items);
    if (!fault.empty()) return std::nullopt;
    std::sort(items.begin(), items.end(), [](const PackItem& a, const PackItem& b) { return a.name < b.name; });
    std::vector<std::uint8_t> bytes = headAndDirectory(items);
    bytes.reserve(bytes.size() + dataSizeOf(items));
    for (const PackItem& item : items) bytes.insert(bytes.end(), item.bytes.begin(), item.bytes.end());
    return bytes;
}

bool extractPackage(const PackageContents& package, const fs::path& directory, std::string& fault) {
    fault = refusalOf(package);
    if (!fault.empty()) return false;
    std::error_code problem;
    fs::create_directories(directory, problem);
    std::set<std::string_view> written;
    for (const PackageEntry& entry : package.entries) {
        if (!written.insert(entry.name).second) continue;
        const fs::path path = directory / withForwardSlashes(entry.name);
        fs::create_directories(path.parent_path(), problem);
        if (!writeWholeFile(path, *package.bytesOf(entry))) {
            fault = path.string() + ": cannot be written";
            return false;
        }
    }
    return true;
}

}  // namespace grub
