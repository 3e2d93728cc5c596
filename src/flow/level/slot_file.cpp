#include "slot_file.h"

#include <string_view>

#include "byte_reader.h"
#include "rules.h"

namespace grub {
namespace {

constexpr std::size_t kTextField = 20;
constexpr std::size_t kTextLength = 8;

/// Far above what fifty levels can give, and so low that play cannot count beyond 32 bits.
constexpr int kMostLives = 1'000'000;

bool isPlayable(const GameProgress& game) {
    return game.levelIndex >= 0 && game.levelIndex < static_cast<int>(kLevelCount) && game.lives >= 1 &&
           game.lives <= kMostLives && game.score >= 0 && game.score <= kHighestScore;
}

/// Three numbers of two digits: "09:05:03" with ':' between them, "03/07/04" with '/'.
bool isThreeNumbers(std::string_view text, char between) {
    if (text.size() != kTextLength) return false;
    for (std::size_t i = 0; i < kTextLength; ++i) {
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        if (i % 3 == 2 ? text[i] != between : !isDigit) return false;
    }
    return true;
}

std::string_view textOf(std::span<const std::uint8_t> field) { return ByteReader(field).cString(); }

void putNumber(std::span<std::uint8_t, 4> field, int value) {
    for (unsigned i = 0; i < field.size(); ++i)
        field[i] = static_cast<std::uint8_t>(static_cast<unsigned>(value) >> 8 * i);
}

void putTime(std::span<std::uint8_t, kTextField> field, const char* format, const std::tm& time) {
    std::strftime(reinterpret_cast<char*>(field.data()), field.size(), format, &time);
}

}  // namespace

std::array<std::uint8_t, kSlotFileSize> slotBytes(const GameProgress& game, const std::tm& savedAt) {
    std::array<std::uint8_t, kSlotFileSize> bytes{};
    const std::span file(bytes);
    putNumber(file.subspan<0, 4>(), game.levelIndex);
    putNumber(file.subspan<4, 4>(), game.lives);
    putNumber(file.subspan<8, 4>(), game.score);
    putTime(file.subspan<12, kTextField>(), "%H:%M:%S", savedAt);
    putTime(file.subspan<32, kTextField>(), "%m/%d/%y", savedAt);
    return bytes;
}

std::optional<SlotContents> slotContents(std::span<const std::uint8_t> bytes) {
    ByteReader reader(bytes);
    const GameProgress game{.levelIndex = reader.i32(), .lives = reader.i32(), .score = reader.i32()};
    const std::string_view time = textOf(reader.take(kTextField));
    const std::string_view date = textOf(reader.take(kTextField));
    const bool isGood = reader.ok() && isPlayable(game) && isThreeNumbers(time, ':') && isThreeNumbers(date, '/');
    if (!isGood) return std::nullopt;
    return SlotContents{game, EngineString(date) + " " + EngineString(time)};
}

}  // namespace grub
