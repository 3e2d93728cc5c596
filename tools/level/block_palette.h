#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "ini_table.h"

namespace grub {

/// One named section of typeblok.ini.
struct Block {
    std::uint16_t id = 0;
    std::string name;
    int type = 0;  // the number of its BlockType
};

/// The blocks of typeblok.ini by name. A name reads WORLD.FAMILY[.SHAPE][~VARIANT], as in "turma.floor.left~2"; a thing
/// that looks alike in all worlds has no WORLD. The game does not know names: they are for level sources and their
/// tools.
class BlockPalette {
public:
    explicit BlockPalette(const IniTable& table);

    /// The block with this id or full name; null if no section has it.
    [[nodiscard]] const Block* byId(std::uint16_t id) const;
    [[nodiscard]] const Block* byName(std::string_view name) const;
    /// The block a level of `world` means by `name`: the world's own, else the one common to all worlds, else null.
    [[nodiscard]] const Block* find(std::string_view world, std::string_view name) const;
    /// Whether a level can be of this world: it has a wall.
    [[nodiscard]] bool isWorld(std::string_view name) const { return byName(std::string(name) + ".wall") != nullptr; }
    /// `name`, `name~2`, `name~3` ... of that block, as many as there are without a gap.
    [[nodiscard]] std::vector<const Block*> variants(const Block& first) const;

private:
    std::map<std::uint16_t, Block> blocks_;
    std::map<std::string, std::uint16_t, std::less<>> ids_;
};

}  // namespace grub
