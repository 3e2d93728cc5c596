#include "level_file.h"

#include <algorithm>
#include <cstddef>

#include "byte_reader.h"
#include "enemy_traits.h"
#include "map_cell.h"
#include "rules.h"

namespace grub {

namespace {

constexpr std::size_t kHeaderSize = 32;
constexpr std::size_t kVersionOffset = 20;
constexpr std::size_t kWidthOffset = 24;
constexpr std::size_t kHeightOffset = 28;
constexpr std::size_t kShortRecord = 6;
constexpr std::size_t kLongRecord = 12;

std::size_t recordSize(std::uint8_t version) {
    return version == LevelFile::kCurrentVersion ? kLongRecord : kShortRecord;
}

bool isMapSide(std::int32_t cells) { return cells >= 1 && cells <= kMaxMapSize; }

/// Reads the header; one line about what is wrong with it, or nothing.
std::string readHeader(ByteReader& reader, LevelFile& level) {
    const auto header = reader.take(kHeaderSize);
    if (!reader.ok()) return "shorter than its header of 32 bytes";
    std::ranges::copy(header, level.header.begin());
    ByteReader fields(header.subspan(kVersionOffset));
    level.version = fields.u8();
    fields.skip(kWidthOffset - kVersionOffset - 1);
    const std::int32_t width = fields.i32();
    const std::int32_t height = fields.i32();
    if (level.version < 1 || level.version > LevelFile::kCurrentVersion)
        return "version " + std::to_string(level.version) + " at byte 20, known are 1 to 4";
    if (!isMapSide(width) || !isMapSide(height))
        return std::to_string(width) + " x " + std::to_string(height) + " cells, a side may have 1 to " +
               std::to_string(kMaxMapSize);
    level.width = width;
    level.height = height;
    return {};
}

CellRecord readRecord(ByteReader& reader, std::uint8_t version) {
    CellRecord record;
    record.base = reader.u16();
    record.layer2 = reader.u16();
    if (version == LevelFile::kCurrentVersion) {
        record.layer3 = reader.u16();
        record.layer4 = reader.u16();
    }
    record.code = reader.u16();
    if (version == LevelFile::kCurrentVersion) record.layer5 = reader.u16();
    return record;
}

std::string readRecords(ByteReader& reader, LevelFile& level) {
    const std::size_t count = static_cast<std::size_t>(level.width) * static_cast<std::size_t>(level.height);
    const std::size_t wanted = count * recordSize(level.version);
    if (reader.remaining() < wanted)
        return std::to_string(wanted) + " bytes of cells announced, " + std::to_string(reader.remaining()) + " there";
    level.records.reserve(count);
    for (std::size_t i = 0; i < count; ++i) level.records.push_back(readRecord(reader, level.version));
    return {};
}

std::string checkObjects(const LevelFile& level) {
    const auto& codes = level.records;
    if (std::ranges::find(codes, object_code::kHero, &CellRecord::code) == codes.end())
        return "no cell with the hero (object code 8)";
    const auto objects = std::ranges::count_if(codes, object_code::isObject, &CellRecord::code);
    if (objects > static_cast<std::ptrdiff_t>(kMaxObjects))
        return std::to_string(objects) + " objects, at most " + std::to_string(kMaxObjects) + " are possible";
    return {};
}

class ByteWriter {
public:
    explicit ByteWriter(std::vector<std::uint8_t>& bytes) : bytes_(bytes) {}
    void u16(std::uint16_t value) {
        bytes_.push_back(static_cast<std::uint8_t>(value & 0xFFU));
        bytes_.push_back(static_cast<std::uint8_t>(value >> 8U));
    }

private:
    std::vector<std::uint8_t>& bytes_;
};

}  // namespace

std::optional<LevelFile> readLevelFile(std::span<const std::uint8_t> bytes, std::string& reason) {
    ByteReader reader(bytes);
    LevelFile level;
    reason = readHeader(reader, level);
    if (reason.empty()) reason = readRecords(reader, level);
    if (reason.empty()) reason = checkObjects(level);
    if (!reason.empty()) return std::nullopt;
    return level;
}

std::vector<std::uint8_t> writeLevelFile(const LevelFile& level) {
    std::vector<std::uint8_t> bytes(level.header.begin(), level.header.end());
    bytes[kVersionOffset] = level.version;
    for (std::size_t i = 0; i < 4; ++i) {
        bytes[kWidthOffset + i] = static_cast<std::uint8_t>(static_cast<unsigned>(level.width) >> (8 * i));
        bytes[kHeightOffset + i] = static_cast<std::uint8_t>(static_cast<unsigned>(level.height) >> (8 * i));
    }
    ByteWriter writer(bytes);
    const bool isLong = level.version == LevelFile::kCurrentVersion;
    for (const CellRecord& record : level.records) {
        writer.u16(record.base);
        writer.u16(record.layer2);
        if (isLong) writer.u16(record.layer3);
        if (isLong) writer.u16(record.layer4);
        writer.u16(record.code);
        if (isLong) writer.u16(record.layer5);
    }
    return bytes;
}

}  // namespace grub
