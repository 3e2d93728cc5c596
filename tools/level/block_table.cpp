#include "block_table.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <span>
#include <vector>

#include "block_type.h"
#include "ini_table.h"
#include "loading_list.h"
#include "text_lines.h"

namespace grub {

namespace {

constexpr std::array<std::string_view, 4> kSpriteKeys{"sprite", "spriteFire", "spriteRost", "spriteFon"};
constexpr int kHighestBlockType = static_cast<int>(BlockType::SpawnPoint);

bool isSpriteNumber(int number) {
    const std::span<const LoadEntry> list = loadingList();
    return std::any_of(list.begin(), list.end(),
                       [number](const LoadEntry& entry) { return entry.spriteNumber == number; });
}

/// Reads the table line by line; each handler returns false after it has filled the error.
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

    /// Whether the section that ends here is a whole block.
    bool finishSection() {
        const int type = section_.contains("type") ? section_["type"] : 0;
        if (type == static_cast<int>(BlockType::Floor) && !(has("spriteFire") && has("spriteRost")))
            return failSection("spriteFire and spriteRost for a floor, or it could not be dug");
        if ((type == static_cast<int>(BlockType::Exit) || type == static_cast<int>(BlockType::HiddenLadder)) &&
            !has("spriteRost"))
            return failSection("spriteRost for a door or a hidden ladder, or nobody would see it appear");
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
        const bool isSprite = std::find(kSpriteKeys.begin(), kSpriteKeys.end(), key) != kSpriteKeys.end();
        if (key != "type" && !isSprite) return fail("name, type, sprite, spriteFire, spriteRost or spriteFon", key);
        const auto number = numberIn<std::uint16_t>(value);
        if (!number) return fail("decimal digits and nothing else", value);
        section_.find(key)->second = *number;
        if (isSprite) return isSpriteNumber(*number) || fail("a sprite number of the loading list", value);
        return *number <= kHighestBlockType || fail("a block type from 0 to 9", value);
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

std::optional<std::string> packBlockTable(std::string_view text, TextError& error) {
    TableChecker checker(error);
    std::string packed;
    bool good = true;
    const std::string_view rest = forEachIniLine(text, [&](std::string_view line) {
        good = good && checker.read(line);
        packed.append(line).append("\r\n");
    });
    if (!good || !checker.finishSection()) return std::nullopt;
    if (rest.empty()) return packed;
    const auto lines = std::count(text.begin(), text.end(), '\n');
    error = wantedButFound(static_cast<int>(lines) + 1, "a line end", "the end of the file");
    return std::nullopt;
}

}  // namespace grub
