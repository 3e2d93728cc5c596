#include "package_verifier.h"

#include <algorithm>
#include <set>

#include "content_checks.h"

namespace grub {
namespace {

using Findings = std::vector<PackageFinding>;

std::size_t directoryBytesOf(const PackageContents& package) {
    std::size_t size = 0;
    for (const PackageEntry& entry : package.entries) size += entry.name.size() + kEntryOverhead;
    return size;
}

void checkDirectory(const PackageContents& package, Findings& findings) {
    const auto report = [&](std::string text) { findings.push_back({.entry = {}, .text = std::move(text)}); };
    const auto [directorySize, entryCount] = package.header;
    if (package.directoryIsCut)
        report("the file ends inside the directory of " + std::to_string(directorySize) + " bytes");
    if (package.entries.size() < entryCount) {
        report("counts " + std::to_string(entryCount) + " entries, the directory holds " +
               std::to_string(package.entries.size()));
    }
    const std::size_t used = directoryBytesOf(package);
    const bool isPaddedEmpty = entryCount == 0 && directorySize == kSmallestDirectorySize;
    if (package.entries.size() == entryCount && used < directorySize && !isPaddedEmpty) {
        report("the directory has " + std::to_string(directorySize - used) + " bytes behind its last entry");
    }
}

void checkNames(const PackageContents& package, Findings& findings) {
    std::set<std::string_view> seen;
    for (const PackageEntry& entry : package.entries) {
        const auto report = [&](const char* text) { findings.push_back({std::string(entry.name), text}); };
        if (entry.name.empty()) report("has no name");
        if (entry.name.find('/') != std::string_view::npos) report("has \"/\" in its name: no request can find it");
        if (!seen.insert(entry.name).second) report("is there twice, the later one is never used");
    }
}

/// The ends are computed in 64 bits: offset and size together may pass 4 GiB.
std::uint64_t endOf(const PackageExtent& extent) { return std::uint64_t{extent.offset} + extent.size; }

void checkExtents(const PackageContents& package, Findings& findings) {
    for (const PackageEntry& entry : package.entries) {
        const auto& extent = entry.extent;
        const auto report = [&](std::string text) { findings.push_back({std::string(entry.name), std::move(text)}); };
        if (endOf(extent) > package.file.size()) {
            report("ends at byte " + std::to_string(endOf(extent)) + ", the file has " +
                   std::to_string(package.file.size()));
        }
        if (extent.size != 0 && extent.offset < package.dataStart()) {
            report("starts at byte " + std::to_string(extent.offset) + ", inside header and directory");
        }
    }
}

void checkOverlaps(const PackageContents& package, Findings& findings) {
    std::vector<PackageEntry> byOffset = package.entries;
    std::erase_if(byOffset, [](const PackageEntry& entry) { return entry.extent.size == 0; });
    std::stable_sort(byOffset.begin(), byOffset.end(),
                     [](const auto& a, const auto& b) { return a.extent.offset < b.extent.offset; });
    const PackageEntry* furthest = nullptr;  // of those before, the one that ends last
    for (const PackageEntry& entry : byOffset) {
        if (furthest != nullptr && entry.extent.offset < endOf(furthest->extent)) {
            findings.push_back({std::string(entry.name), "overlaps \"" + std::string(furthest->name) + "\""});
        }
        if (furthest == nullptr || endOf(entry.extent) > endOf(furthest->extent)) furthest = &entry;
    }
}

void checkContents(const PackageContents& package, Findings& findings) {
    for (const PackageEntry& entry : package.entries) {
        const auto bytes = package.bytesOf(entry);
        if (!bytes) continue;
        const std::string fault = contentFault(entry.name, *bytes);
        const std::string warning = fault.empty() ? contentWarning(*bytes) : std::string();
        if (!fault.empty()) findings.push_back({std::string(entry.name), fault});
        if (!warning.empty()) findings.push_back({std::string(entry.name), warning, true});
    }
}

}  // namespace

std::vector<PackageFinding> verifyPackage(const PackageContents& package) {
    Findings findings;
    checkDirectory(package, findings);
    checkNames(package, findings);
    checkExtents(package, findings);
    checkOverlaps(package, findings);
    checkContents(package, findings);
    return findings;
}

}  // namespace grub
