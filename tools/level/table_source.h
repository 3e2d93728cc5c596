#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "level_list.h"
#include "resource_source.h"
#include "sprite_numbers.h"

namespace grub {

/// A block table in memory, as the one resource of a package.
class TableSource final : public ResourceSource {
public:
    /// The bytes of a typeblok.ini.
    explicit TableSource(std::vector<std::uint8_t> table) : table_(std::move(table)) {}

    [[nodiscard]] bool exists(const EngineString& name) override { return name.view() == kBlockTableName; }
    [[nodiscard]] SharedBuffer load(const EngineString& name) override {
        return exists(name) ? buffer() : SharedBuffer();
    }
    /// The whole table; a view of bytes that this object owns.
    [[nodiscard]] SharedBuffer buffer() const {
        return SharedBuffer::view(table_.data(), static_cast<std::uint32_t>(table_.size()));
    }

private:
    std::vector<std::uint8_t> table_;
};

/// The picture numbers of the whole loading list, whether or not there are pictures.
void addListedSpriteNumbers(SpriteNumbers& numbers);

}  // namespace grub
