#include "level_compiler.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "map_cell.h"

namespace grub {

namespace {

/// Cells of one placement line: as many as fit 120 columns of text.
constexpr std::size_t kCellsInLine = 14;

/// The character that stands for a cell without an object.
char characterOf(BlockType type) {
    switch (type) {
        case BlockType::Floor: return '#';
        case BlockType::Ladder: return 'H';
        case BlockType::Pipe: return '-';
        case BlockType::Solid: return 'X';
        case BlockType::HiddenLadder: return 'h';
        case BlockType::Exit: return 'E';
        case BlockType::SpawnPoint: return 'S';
        default: return '.';
    }
}

char characterOf(BlockType type, std::uint16_t object) {
    if (type != BlockType::Empty || object == 0) return characterOf(type);
    const auto known = std::find_if(kFieldCharacters.begin(), kFieldCharacters.end(),
                                    [&](const FieldCharacter& entry) { return entry.object == object; });
    return known == kFieldCharacters.end() ? characterOf(type) : known->character;
}

/// The key with the highest count, and the first of several; empty when there are no counts.
std::string mostFrequent(const std::map<std::string, int>& counts) {
    const auto most = std::max_element(counts.begin(), counts.end(),
                                       [](const auto& a, const auto& b) { return a.second < b.second; });
    return most == counts.end() ? std::string() : most->first;
}

/// Writes one level: first a plain drawing of it, then a line for each cell that this drawing would compile wrongly.
class LevelWriter {
public:
    LevelWriter(const LevelFile& level, const BlockPalette& palette) : level_(level), palette_(palette) {}

    std::string write() {
        for (std::size_t i = 0; i < kFreeBytes; ++i) draft_.freeBytes[i] = level_.header[freeByteOffset(i)];
        draft_.world = world();
        drawField();
        addLegend();
        return header() + field() + corrections();
    }

private:
    const Block* baseAt(int column, int row) const {
        return palette_.byId(valueIn(recordAt(level_, column, row), Slot::Base));
    }

    /// The world that most blocks of the level belong to; the first one when no block belongs to a world.
    std::string world() const {
        std::map<std::string, int> counts;
        for (const CellRecord& cell : level_.records)
            if (const Block* block = palette_.byId(cell.base);
                block != nullptr && palette_.isWorld(worldOf(block->name)))
                ++counts[std::string(worldOf(block->name))];
        const std::string found = mostFrequent(counts);
        return found.empty() ? std::string(kLevelWorlds.front().name) : found;
    }

    void drawField() {
        for (int row = 0; row < level_.height; ++row) {
            std::string& line = draft_.field.emplace_back();
            for (int column = 0; column < level_.width; ++column) {
                const Block* base = baseAt(column, row);
                const auto type = base != nullptr ? blockTypeOf(base->type) : BlockType::Empty;
                const char character = characterOf(type, recordAt(level_, column, row).code);
                // A world need not have every family; a block that it lacks is placed below the field.
                line += palette_.find(draft_.world, fieldCharacter(character)->family) != nullptr ? character : '.';
            }
        }
    }

    /// A character gets a legend when its most frequent family is not its usual one.
    void addLegend() {
        std::map<char, std::map<std::string, int>> counts;
        for (int row = 0; row < level_.height; ++row)
            for (int column = 0; column < level_.width; ++column)
                if (const Block* base = baseAt(column, row); base != nullptr && worldOf(base->name) == draft_.world)
                    ++counts[drawn(column, row)][familyOf(base->name)];
        for (const auto& [character, families] : counts) {
            const std::string family = mostFrequent(families);
            if (family != fieldCharacter(character)->family && palette_.find(draft_.world, family) != nullptr)
                draft_.legend[character] = {family, 0};
        }
    }

    char drawn(int column, int row) const {
        return draft_.field[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
    }

    std::string header() const {
        std::string text = "world " + draft_.world + "\n";
        const auto& bytes = draft_.freeBytes;
        if (std::any_of(bytes.begin(), bytes.end(), [](std::uint8_t b) { return b != 0; })) text += freeBytes() + "\n";
        for (const auto& [character, entry] : draft_.legend)
            text += std::string("legend ") + character + " " + entry.family + "\n";
        return text;
    }

    std::string freeBytes() const {
        constexpr std::string_view kDigits = "0123456789abcdef";
        std::string text = "bytes ";
        for (const std::uint8_t byte : draft_.freeBytes) {
            text += kDigits[byte >> 4];
            text += kDigits[byte & 15];
        }
        return text;
    }

    std::string field() const {
        std::string text = "\nfield\n";
        for (const std::string& row : draft_.field) text += row + "\n";
        return text + "end\n";
    }

    std::string corrections() const {
        TextError error;
        const auto compiled = dressLevel(draft_, palette_, error);
        // When the palette lacks a block of the draft, the draft cannot be compiled; then every cell is written out.
        const LevelFile draft = compiled ? *compiled : emptyLevel(level_.width, level_.height);
        std::string text;
        for (const Slot slot : kAllSlots) text += corrections(slot, draft);
        return text.empty() ? text : "\n" + text;
    }

    std::string corrections(Slot slot, const LevelFile& compiled) const {
        std::map<std::string, std::vector<std::pair<int, int>>> cells;
        for (int row = 0; row < level_.height; ++row) {
            for (int column = 0; column < level_.width; ++column) {
                const std::uint16_t value = valueIn(recordAt(level_, column, row), slot);
                if (value != valueIn(recordAt(compiled, column, row), slot))
                    cells[nameOf(slot, value)].emplace_back(column, row);
            }
        }
        std::string text;
        for (const auto& [name, places] : cells) text += placements(slot, name, places);
        return text;
    }

    std::string nameOf(Slot slot, std::uint16_t value) const {
        if (slot == Slot::Object) return objectName(value);
        if (slot != Slot::Base && value == 0) return "none";
        const Block* block = palette_.byId(value);
        if (block == nullptr) return std::to_string(value);
        const bool own = worldOf(block->name) == draft_.world;
        const std::string name = own ? block->name.substr(draft_.world.size() + 1) : block->name;
        // The name of this block may mean another block here; then only its number is clear.
        return palette_.find(draft_.world, name) == block ? name : std::to_string(value);
    }

    static std::string objectName(std::uint16_t code) {
        if (code == 0) return "none";
        const auto named = std::find_if(kObjectNames.begin(), kObjectNames.end(),
                                        [&](const ObjectName& object) { return object.code == code; });
        return named == kObjectNames.end() ? std::to_string(code) : std::string(named->name);
    }

    static std::string placements(Slot slot, const std::string& name, const std::vector<std::pair<int, int>>& places) {
        std::string text;
        for (std::size_t i = 0; i < places.size(); ++i) {
            if (i % kCellsInLine == 0) text += (i > 0 ? "\n" : "") + std::string(wordOf(slot)) + " " + name;
            text += "  " + std::to_string(places[i].first) + " " + std::to_string(places[i].second);
        }
        return text + "\n";
    }

    const LevelFile& level_;
    const BlockPalette& palette_;
    LevelSource draft_;
};

}  // namespace

std::string showLevel(const LevelFile& level, const BlockPalette& palette) {
    return LevelWriter(level, palette).write();
}

}  // namespace grub
