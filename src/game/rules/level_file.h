#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace grub {

/// What a level file says about one cell: block ids (0 is no layer) and an object code.
struct CellRecord {
    std::uint16_t base = 0;
    std::uint16_t layer2 = 0;
    std::uint16_t layer3 = 0;
    std::uint16_t layer4 = 0;
    std::uint16_t code = 0;
    std::uint16_t layer5 = 0;

    friend bool operator==(const CellRecord&, const CellRecord&) = default;
};

/// A level file as it lies in the package, before blocks are looked up. Versions 1 to 3 have short records without
/// layers 3 to 5; version 4 has them all.
struct LevelFile {
    /// Version of the files that are written today.
    static constexpr std::uint8_t kCurrentVersion = 4;

    std::array<std::uint8_t, 32> header{};  // version, width and height in it repeat the fields below
    std::uint8_t version = kCurrentVersion;
    int width = 0;
    int height = 0;
    std::vector<CellRecord> records;  // row by row

    friend bool operator==(const LevelFile&, const LevelFile&) = default;
};

/// Reads a level file of any version. What it refuses, with one line about it in `reason`: an unknown version, a side
/// below 1 or above kMaxMapSize, fewer records than cells, no hero, more than kMaxObjects objects. A level is refused
/// rather than played without the things that do not fit, because its author would not see what is missing. Bytes
/// behind the last record are ignored.
[[nodiscard]] std::optional<LevelFile> readLevelFile(std::span<const std::uint8_t> bytes, std::string& reason);

/// The bytes of a level file. The header's uninterpreted bytes are written as they are; version, width and height come
/// from the fields. A version below 4 drops layers 3 to 5.
[[nodiscard]] std::vector<std::uint8_t> writeLevelFile(const LevelFile& level);

}  // namespace grub
