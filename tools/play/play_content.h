#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "animation_frames.h"
#include "level_loader.h"
#include "recorded_game.h"
#include "resource_package.h"
#include "text_lines.h"

namespace grub {

/// Exit codes of commands that play games: the game differs or the level is refused; a file cannot be read or used.
inline constexpr int kDiffers = 1;
inline constexpr int kRefused = 1;
inline constexpr int kCannotPlay = 2;

/// The packages from which a game without a window is played. It throws nothing: a function that fails fills `error`
/// with one line.
class PlayContent {
public:
    /// Opens the packages of `dataDirectory`, or of the directory where the game looks for them when it is empty. Null
    /// when a package is missing.
    static std::unique_ptr<PlayContent> open(const std::string& dataDirectory, std::string& error);

    /// Frames of the game's animations.
    [[nodiscard]] const AnimationFrameCounts& frameCounts() const { return counts_; }
    /// The picture package, which lives as long as this does.
    [[nodiscard]] ResourceSource& pictures() { return pictures_; }
    /// The map of a game's level: out of the package, of a level file, or of a level source, which is compiled. Nothing
    /// when the level is missing or refused.
    [[nodiscard]] std::optional<LevelMap> mapOf(const RecordedGame& game, const std::string& gamePath,
                                                std::string& error);
    /// The level file that a level source compiles to.
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> compile(const std::string& sourcePath, std::string& error);
    /// The game's world after its settling step. Nothing when the level is missing or refused.
    [[nodiscard]] std::optional<World> worldOf(const RecordedGame& game, const std::string& gamePath,
                                               std::string& error);

private:
    PlayContent();
    [[nodiscard]] std::optional<LevelMap> mapOfFile(const std::string& path, std::string& error);

    ResourcePackage pictures_;
    ResourcePackage levels_;
    AnimationFrameCounts counts_;
};

/// Whether a path names a level source rather than a level file.
[[nodiscard]] bool isLevelSource(const std::string& path);

/// Frames of an animation that a counts file does not name.
inline constexpr int kUsualFrames = 8;

/// Reads a counts file: lines `ID COUNT`. Nothing when a line is wrong; then `error` is about the first such line.
[[nodiscard]] std::optional<AnimationFrameCounts> readFrameCounts(std::string_view text, TextError& error);

}  // namespace grub
