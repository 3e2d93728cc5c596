#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ini_table.h"
#include "level_file.h"
#include "level_map.h"
#include "resource_source.h"

namespace grub {

/// The numbers by which the block table names strips, and the animation ids they stand for. The loader thread adds
/// while the game thread may be building a level, so a lock covers both.
class SpriteNumbers {
public:
    /// What `spriteIdOf` gives for a number that is not there.
    static constexpr std::int16_t kUnknown = -1;

    /// The first pair with a number wins. Pairs beyond kMaxSpriteNumbers are left out.
    void addSpriteNumber(std::int32_t number, std::int16_t animationId);
    [[nodiscard]] std::int16_t spriteIdOf(std::int32_t number) const;

private:
    struct Pair {
        std::int32_t number;
        std::int16_t animationId;
    };

    mutable std::mutex lock_;
    std::vector<Pair> pairs_;
};

/// Builds maps out of level files and the block table. One lives with the level scene; the loader thread adds the
/// sprite numbers, everything else runs on the thread that builds levels.
class LevelLoader {
public:
    /// `levels` holds the level files and the block table and must outlive the loader.
    explicit LevelLoader(ResourceSource& levels) : levels_(&levels) {}

    /// Reads the block table, in place of an earlier one. False when `levels` lacks it, or has an empty one: no map can
    /// be built then.
    bool loadBlockTypes();
    /// The strip numbers of the block table; filled while animations are loaded.
    [[nodiscard]] SpriteNumbers& spriteNumbers() { return spriteNumbers_; }

    /// The map of a level file with all its keys. Nothing for a file that is missing or refused, and without a block
    /// table; `reason` is then one line that begins with the name.
    [[nodiscard]] std::optional<LevelMap> load(std::string_view name, std::string& reason) const;
    /// The same for a level file already read.
    [[nodiscard]] std::optional<LevelMap> build(const LevelFile& file, std::string& reason) const;

private:
    ResourceSource* levels_;
    std::optional<IniTable> blocks_;
    SpriteNumbers spriteNumbers_;
};

}  // namespace grub
