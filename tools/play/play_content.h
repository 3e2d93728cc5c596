#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "animation_frame_counts.h"
#include "level_loader.h"
#include "recorded_game.h"
#include "resource_package.h"

namespace grub {

/// What play without a window takes out of the packages that the game would take it from. Nothing is thrown: who cannot
/// be opened says why.
class PlayContent {
public:
    /// Opens the packages of `dataDirectory`; empty: where the game finds them. Null, and one line in `error`, when one
    /// is not there.
    static std::unique_ptr<PlayContent> open(const std::string& dataDirectory, std::string& error);

    /// Frames of the game's animations.
    [[nodiscard]] const AnimationFrameCounts& frameCounts() const { return counts_; }
    /// The map of a game's level: from the package, from a level file, or from a level source, which is compiled.
    /// Nothing, and one line in `error`, when there is none.
    [[nodiscard]] std::optional<LevelMap> mapOf(const RecordedGame& game, const std::string& gamePath,
                                                std::string& error);
    /// The level file that a level source compiles to.
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> compile(const std::string& sourcePath, std::string& error);

    /// The game's world with its settling step done. Nothing, and one line in `error`, when there is no such level.
    [[nodiscard]] std::optional<World> worldOf(const RecordedGame& game, const std::string& gamePath,
                                               std::string& error);

private:
    PlayContent();
    [[nodiscard]] std::optional<LevelMap> mapOfFile(const std::string& path, std::string& error);

    ResourcePackage pictures_;
    ResourcePackage levels_;
    LevelLoader loader_;
    AnimationFrameCounts counts_;
};

/// Whether a path names a level source rather than a level file.
[[nodiscard]] bool isLevelSource(const std::string& path);

}  // namespace grub
