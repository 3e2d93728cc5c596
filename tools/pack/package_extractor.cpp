#include "package_extractor.h"

#include <algorithm>
#include <set>

#include "whole_file.h"

namespace grub {
namespace {

namespace fs = std::filesystem;

std::string withForwardSlashes(std::string_view name) {
    std::string path(name);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

/// A sentence about the first entry that must not or cannot be extracted; empty when there is none.
std::string refusalOf(const PackageContents& package) {
    for (const PackageEntry& entry : package.entries) {
        if (!staysBelowDirectory(entry.name)) return "\"" + std::string(entry.name) + "\" would leave the directory";
        if (!package.bytesOf(entry)) return "\"" + std::string(entry.name) + "\" reaches beyond the package's end";
    }
    return {};
}

}  // namespace

bool staysBelowDirectory(std::string_view name) {
    const std::string path = withForwardSlashes(name);
    const bool hasDrive = path.size() >= 2 && path[1] == ':';
    if (path.empty() || path.front() == '/' || hasDrive) return false;
    const fs::path parts(path);
    return std::find(parts.begin(), parts.end(), "..") == parts.end();
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
