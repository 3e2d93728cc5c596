#include "package_verifier.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

#include "block_table.h"
#include "ini_table.h"
#include "level_compiler.h"
#include "level_file.h"

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

/// In 64 bits, since offset and size together may exceed 4 GiB.
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
    const PackageEntry* furthest = nullptr;  // the earlier entry that ends last
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

constexpr std::string_view kSoundTableName = "sound\\sound.ini";

/// The sections of the sound table name files that lie beside it.
void checkSoundTable(const PackageContents& package, Findings& findings) {
    const auto isSound = [](const PackageEntry& entry) { return entry.name.starts_with("sound\\"); };
    if (std::ranges::none_of(package.entries, isSound)) return;
    const auto table = package.bytesOf(kSoundTableName);
    if (!table) return findings.push_back({std::string(kSoundTableName), "is missing: no sound can be played without"});
    int number = 0;
    forEachIniLine(
        std::string_view(reinterpret_cast<const char*>(table->data()), table->size()), [&](std::string_view text) {
            ++number;
            const IniLine line = parseIniLine(text);
            if (line.kind != IniLine::Kind::Entry) return;
            const std::string file = "sound\\" + std::string(line.value);
            if (package.bytesOf(file)) return;
            findings.push_back({std::string(kSoundTableName),
                                "line " + std::to_string(number) + " names \"" + file + "\", which the package lacks"});
        });
}

/// A sentence about the first block of a level that the table lacks: the game shows nothing in its place.
std::string unknownBlock(const LevelFile& level, const BlockPalette& palette) {
    for (std::size_t cell = 0; cell < level.records.size(); ++cell) {
        const CellRecord& record = level.records[cell];
        for (const std::uint16_t id : {record.base, record.layer2, record.layer3, record.layer4, record.layer5}) {
            if (id == 0 || palette.byId(id) != nullptr) continue;
            const auto width = static_cast<std::size_t>(level.width);
            return "the cell " + std::to_string(cell % width) + " " + std::to_string(cell / width) + " has the block " +
                   std::to_string(id) + ", which the table lacks";
        }
    }
    return {};
}

/// The fault of a level file, by the game's own reader and the compiler's checks.
std::string levelFileFault(std::span<const std::uint8_t> bytes, TableSource& blocks, const BlockPalette& palette) {
    std::string fault;
    if (!levelMapOf(bytes, blocks, fault)) return "the level is refused: " + fault;
    const LevelFile level = *readLevelFile(bytes, fault);
    const auto faults = levelFaults(level, palette);
    if (faults.empty()) return unknownBlock(level, palette);
    const auto& cell = faults.front().cell;
    const std::string place = cell ? " at " + std::to_string(cell->x) + " " + std::to_string(cell->y) : "";
    return "the level cannot be played: " + faults.front().reason + place;
}

/// The block table says what the blocks of a level are, so that levels cannot be checked without it.
void checkLevels(const PackageContents& package, Findings& findings) {
    const auto isLevel = [](const PackageEntry& entry) { return entry.name.ends_with(".lvl"); };
    if (std::ranges::none_of(package.entries, isLevel)) return;
    const auto table = package.bytesOf(kBlockTableName);
    if (!table) return findings.push_back({std::string(kBlockTableName), "is missing: no level can be played without"});
    TextError error;
    const std::string_view text(reinterpret_cast<const char*>(table->data()), table->size());
    if (contentFault(kBlockTableName, *table).empty() && !packBlockTable(text, error))
        findings.push_back({std::string(kBlockTableName), "line " + std::to_string(error.line) + ": " + error.message});
    TableSource blocks(*table);
    const BlockPalette palette(blocks.buffer());
    for (const PackageEntry& entry : package.entries) {
        const auto bytes = isLevel(entry) ? package.bytesOf(entry) : std::nullopt;
        const std::string fault = bytes ? levelFileFault(*bytes, blocks, palette) : std::string();
        if (!fault.empty()) findings.push_back({std::string(entry.name), fault});
    }
}

}  // namespace

std::vector<PackageFinding> verifyPackage(const PackageContents& package, const std::filesystem::path& directory) {
    Findings findings;
    checkDirectory(package, findings);
    checkNames(package, findings);
    checkExtents(package, findings);
    checkOverlaps(package, findings);
    checkContents(package, findings);
    checkSoundTable(package, findings);
    checkLevels(package, findings);
    checkInterfaces(package, directory, findings);
    return findings;
}

}  // namespace grub
