#include "block_table.h"

#include <algorithm>
#include <array>
#include <set>

#include "ini_table.h"
#include "level_file.h"
#include "level_loader.h"
#include "loading_list.h"
#include "map_cell.h"
#include "text_lines.h"

namespace grub {

namespace {

constexpr int kMaxBlockId = 0xffff;

/// About one bucket for each key of the block table.
constexpr std::uint32_t kTableBuckets = 3000;

constexpr std::array<std::string_view, 4> kSpriteKeys{"sprite", "spriteFire", "spriteRost", "spriteFon"};
constexpr int kHighestBlockType = static_cast<int>(BlockType::SpawnPoint);

bool isSpriteKey(std::string_view key) {
    return std::find(kSpriteKeys.begin(), kSpriteKeys.end(), key) != kSpriteKeys.end();
}

/// The sprite number of a picture that a table names by its file, or by the number itself. "FILE#2" is the second entry
/// of the loading list with this file.
std::optional<int> spriteNumberOf(std::string_view picture) {
    const auto number = numberIn<std::uint16_t>(picture);
    const std::string_view stem = picture.substr(0, picture.find('#'));
    int place = stem == picture ? 1 : numberIn<std::uint8_t>(picture.substr(stem.size() + 1)).value_or(0);
    for (const LoadEntry& entry : loadingList()) {
        if (entry.spriteNumber == kNoSpriteNumber) continue;
        if (number ? entry.spriteNumber == *number : entry.stem == stem && --place == 0) return entry.spriteNumber;
    }
    return std::nullopt;
}

/// The line as the game reads it, with the number of a picture in place of its file.
std::string numberedLine(std::string_view line) {
    const IniLine parsed = parseIniLine(line);
    const bool namesPicture = parsed.kind == IniLine::Kind::Entry && isSpriteKey(parsed.name);
    const auto number = namesPicture ? spriteNumberOf(parsed.value) : std::nullopt;
    return number ? std::string(parsed.name) + "=" + std::to_string(*number) : std::string(line);
}

/// All lines of a table as the game reads them. What does not end in a line end stays as it is.
std::string numbered(std::string_view table) {
    std::string text;
    const std::string_view rest =
        forEachIniLine(table, [&](std::string_view line) { text.append(numberedLine(line)).append("\r\n"); });
    return text.append(rest);
}

/// Reads the table line by line. A handler fills the error before it returns false.
class TableChecker {
public:
    explicit TableChecker(TextError& error) : error_(error) {}

    bool read(std::string_view line) {
        ++line_;
        const IniLine parsed = parseIniLine(line);
        switch (parsed.kind) {
            case IniLine::Kind::Nothing: return true;
            case IniLine::Kind::Section: return finishSection() && beginSection(parsed.name);
            case IniLine::Kind::Entry: return entry(parsed.name, parsed.value);
            case IniLine::Kind::Malformed: break;
        }
        return fail("a comment, '[NUMBER]' or 'KEY=VALUE'", line);
    }

    /// Called where a section ends: whether it has all keys that its type needs.
    bool finishSection() {
        const int type = section_.contains("type") ? section_["type"] : 0;
        if (type == static_cast<int>(BlockType::Floor) && !(has("spriteFire") && has("spriteRost")))
            return failSection("spriteFire and spriteRost for a floor, which show it break and grow back");
        if ((type == static_cast<int>(BlockType::Exit) || type == static_cast<int>(BlockType::HiddenLadder)) &&
            !has("spriteRost"))
            return failSection("spriteRost for a door or a hidden ladder, which shows it when it appears");
        return true;
    }

private:
    bool has(std::string_view key) const { return section_.contains(key); }

    bool fail(std::string_view wanted, std::string_view found) {
        error_ = wantedButFound(line_, wanted, inQuotes(found));
        return false;
    }

    bool failSection(std::string_view wanted) {
        error_ = wantedButFound(sectionLine_, wanted, "none in this section");
        return false;
    }

    bool beginSection(std::string_view name) {
        const auto id = numberIn<std::uint16_t>(name);
        if (!id || std::to_string(*id) != name) return fail("a block id from 0 to 65535", name);
        if (!ids_.insert(*id).second) return fail("each block once", name);
        section_.clear();
        sectionLine_ = line_;
        return true;
    }

    bool entry(std::string_view key, std::string_view value) {
        if (sectionLine_ == 0) return fail("a section before the first key", key);
        if (!section_.emplace(key, 0).second) return fail("each key once in a section", key);
        if (key == "name") return name(value);
        if (isSpriteKey(key))
            return spriteNumberOf(value).has_value() ||
                   fail("a picture with a sprite number in the loading list, or such a number", value);
        if (key != "type") return fail("name, type, sprite, spriteFire, spriteRost or spriteFon", key);
        const auto number = numberIn<std::uint16_t>(value);
        if (!number || *number > kHighestBlockType) return fail("a block type from 0 to 9", value);
        section_.find(key)->second = *number;
        return true;
    }

    bool name(std::string_view value) {
        const bool isWord = value.find_first_of(" \t;=[]") == std::string_view::npos;
        if (!isWord || numberIn<std::uint16_t>(value) || value == "none")
            return fail("a name without blanks that is no number", value);
        return names_.emplace(value).second || fail("each name once", value);
    }

    TextError& error_;
    int line_ = 0;
    int sectionLine_ = 0;
    std::map<std::string, int, std::less<>> section_;
    std::set<int> ids_;
    std::set<std::string> names_;
};

}  // namespace

BlockPalette::BlockPalette(const SharedBuffer& bytes) {
    const IniTable table(bytes, kTableBuckets);
    for (int id = 0; id <= kMaxBlockId; ++id) {
        const std::string text = std::to_string(id);
        const EngineString section(text.c_str());
        if (!table.has(section, "name") && !table.has(section, "type")) continue;
        Block block{static_cast<std::uint16_t>(id), table.getString(section, "name").cStr(),
                    std::max(table.getInt(section, "type"), 0)};
        if (!block.name.empty()) ids_.try_emplace(block.name, block.id);
        blocks_.emplace(block.id, std::move(block));
    }
}

const Block* BlockPalette::byId(std::uint16_t id) const {
    const auto found = blocks_.find(id);
    return found == blocks_.end() ? nullptr : &found->second;
}

const Block* BlockPalette::byName(std::string_view name) const {
    const auto found = ids_.find(name);
    return found == ids_.end() ? nullptr : byId(found->second);
}

const Block* BlockPalette::find(std::string_view world, std::string_view name) const {
    const Block* own = byName(std::string(world) + "." + std::string(name));
    return own != nullptr ? own : byName(name);
}

std::vector<const Block*> BlockPalette::variants(const Block& first) const {
    std::vector<const Block*> found{&first};
    for (int number = 2;; ++number) {
        const Block* next = byName(first.name + "~" + std::to_string(number));
        if (next == nullptr) return found;
        found.push_back(next);
    }
}

TableSource::TableSource(std::span<const std::uint8_t> table)
    : table_(numbered({reinterpret_cast<const char*>(table.data()), table.size()})) {}

SharedBuffer TableSource::buffer() const {
    return SharedBuffer::view(reinterpret_cast<const std::uint8_t*>(table_.data()),
                              static_cast<std::uint32_t>(table_.size()));
}

std::optional<LevelMap> levelMapOf(std::span<const std::uint8_t> level, ResourceSource& levels, std::string& reason) {
    const auto file = readLevelFile(level, reason);
    if (!file) return std::nullopt;
    LevelLoader loader(levels);
    loader.loadBlockTypes();
    for (const LoadEntry& entry : loadingList())
        if (entry.spriteNumber != kNoSpriteNumber)
            loader.spriteNumbers().addSpriteNumber(entry.spriteNumber, static_cast<std::int16_t>(entry.id));
    return loader.build(*file, reason);
}

std::optional<std::string> packBlockTable(std::string_view text, TextError& error) {
    TableChecker checker(error);
    bool good = true;
    const std::string_view rest =
        forEachIniLine(text, [&](std::string_view line) { good = good && checker.read(line); });
    if (!good || !checker.finishSection()) return std::nullopt;
    if (rest.empty()) return numbered(text);
    const auto lines = std::count(text.begin(), text.end(), '\n');
    error = wantedButFound(static_cast<int>(lines) + 1, "a line end", "the end of the file");
    return std::nullopt;
}

}  // namespace grub
