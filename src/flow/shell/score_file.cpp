#include "score_file.h"

#include <algorithm>
#include <string_view>

#include "byte_reader.h"
#include "rules.h"
#include "slot_file.h"

namespace grub {
namespace {

constexpr std::size_t kNameField = 12;

void append(std::vector<std::uint8_t>& bytes, int number) {
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes.push_back(static_cast<std::uint8_t>(static_cast<unsigned>(number) >> shift));
}

void append(std::vector<std::uint8_t>& bytes, std::string_view name) {
    const auto shown = name.substr(0, kNameLength);
    bytes.insert(bytes.end(), shown.begin(), shown.end());
    bytes.resize(bytes.size() + kNameField - shown.size());
}

EngineString nameFrom(std::span<const std::uint8_t> field) {
    const std::string_view text(reinterpret_cast<const char*>(field.data()), std::min(field.size(), kNameLength));
    return EngineString(text.substr(0, text.find('\0')));
}

HighScoreEntry readRow(ByteReader& reader) {
    const EngineString name = nameFrom(reader.take(kNameField));
    const int score = reader.i32();
    return {.name = name, .score = score, .levelIndex = std::clamp(reader.i32(), 0, static_cast<int>(kLevelCount) - 1)};
}

bool isGood(const HighScoreEntry& row) { return row.score > 0 && row.score <= kHighestScore; }

// A count that no table has tells nothing, so each row must speak for itself.
std::uint32_t countFrom(ByteReader& reader) { return std::min<std::uint32_t>(reader.u32(), kHighScoreRows); }

}  // namespace

std::vector<std::uint8_t> scoreBytes(const HighScoreTable& table) {
    std::vector<std::uint8_t> bytes;
    append(bytes, static_cast<int>(table.rows().size()));
    for (const HighScoreEntry& row : table.rows()) {
        append(bytes, row.name.view());
        append(bytes, row.score);
        append(bytes, row.levelIndex);
    }
    bytes.resize(kScoreFileSize);
    return bytes;
}

HighScoreTable tableFrom(std::span<const std::uint8_t> bytes) {
    HighScoreTable table;
    ByteReader reader(bytes);
    for (std::uint32_t left = countFrom(reader); left > 0; --left) {
        const HighScoreEntry row = readRow(reader);
        if (reader.ok() && isGood(row)) table.add(row);
    }
    return table;
}

}  // namespace grub
