#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "level_list.h"
#include "level_map.h"
#include "resource_source.h"
#include "text_lines.h"

namespace grub {

/// One section of typeblok.ini.
struct Block {
    std::uint16_t id = 0;
    std::string name;  // may be empty
    int type = 0;      // the number of its BlockType
};

/// The blocks of typeblok.ini by id and by name. A name reads WORLD.FAMILY[.SHAPE][~VARIANT], as in
/// "turma.floor.left~2"; a block that looks alike in all worlds has no WORLD. Only level sources and their tools know
/// names; the game does not.
class BlockPalette {
public:
    /// Reads the bytes of a typeblok.ini; they are not needed afterwards.
    explicit BlockPalette(const SharedBuffer& table);

    /// The block with this id or full name; null if no section of the table has it.
    [[nodiscard]] const Block* byId(std::uint16_t id) const;
    [[nodiscard]] const Block* byName(std::string_view name) const;
    /// The block that a level of `world` means by `name`: the world's own block, else the one of all worlds, else null.
    [[nodiscard]] const Block* find(std::string_view world, std::string_view name) const;
    /// Whether a level can be of this world: it has a wall.
    [[nodiscard]] bool isWorld(std::string_view name) const { return byName(std::string(name) + ".wall") != nullptr; }
    /// The blocks `name`, `name~2`, `name~3` and so on up to the first number that is missing.
    [[nodiscard]] std::vector<const Block*> variants(const Block& first) const;

private:
    std::map<std::uint16_t, Block> blocks_;
    std::map<std::string, std::uint16_t, std::less<>> ids_;
};

/// A levels package that holds nothing but a block table.
class TableSource final : public ResourceSource {
public:
    /// `table` is the bytes of a typeblok.ini, of the source or of a package.
    explicit TableSource(std::span<const std::uint8_t> table);

    [[nodiscard]] bool exists(const EngineString& name) override { return name.view() == kBlockTableName; }
    [[nodiscard]] SharedBuffer load(const EngineString& name) override {
        return exists(name) ? buffer() : SharedBuffer();
    }
    /// The whole table as the game reads it; a view of bytes that this object owns.
    [[nodiscard]] SharedBuffer buffer() const;

private:
    std::string table_;
};

/// The map that the game builds from the bytes of a level file and the block table in `levels`. The picture numbers are
/// those of the whole loading list, whether or not there are pictures. Nothing when the game refuses the level; then
/// `reason` is one line that says why.
[[nodiscard]] std::optional<LevelMap> levelMapOf(std::span<const std::uint8_t> level, ResourceSource& levels,
                                                 std::string& reason);

/// Checks the source of a block table and makes the package's table of it: with the sprite number of each picture that
/// the source names by its file, and with CR LF as the end of each line. The game skips what it does not understand and
/// says nothing, so this function refuses each line that the game would skip or misread, and each block that could not
/// be played: a floor without pictures of breaking and growing back, an exit without a door. Nothing then, and `error`
/// says why.
[[nodiscard]] std::optional<std::string> packBlockTable(std::string_view text, TextError& error);

}  // namespace grub
