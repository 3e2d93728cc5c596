#include "block_palette.h"

#include <algorithm>

namespace grub {

namespace {

constexpr int kMaxBlockId = 0xffff;

}  // namespace

BlockPalette::BlockPalette(const IniTable& table) {
    for (int id = 0; id <= kMaxBlockId; ++id) {
        const std::string text = std::to_string(id);
        const EngineString section(text.c_str());
        if (!table.has(section, "name")) continue;
        Block block{static_cast<std::uint16_t>(id), table.getString(section, "name").cStr(),
                    std::max(table.getInt(section, "type"), 0)};
        ids_.try_emplace(block.name, block.id);
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

}  // namespace grub
