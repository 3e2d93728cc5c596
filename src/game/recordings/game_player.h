#pragma once

#include <optional>
#include <string>

#include "recorded_game.h"
#include "world.h"

namespace grub {

/// Whether a world that has played a frame has come to the end of the game, its own or the recorded one.
[[nodiscard]] bool isOver(const RecordedGame& game, const World& world);

/// How a world differs, after a frame, from a complete game: in the end, or in the state where the game has one. A line
/// that begins with the frame; nothing when all agrees.
[[nodiscard]] std::optional<std::string> differenceAt(const RecordedGame& game, const World& world);

/// The recorded field of this frame, or of the last one before it that has one, beside that of the world; with a
/// caption each.
[[nodiscard]] std::string drawBoth(const RecordedGame& game, const World& world);

/// Plays a complete game on a settled world until the game is over or the world differs. True when all agrees;
/// otherwise the world stays where it differs.
bool replay(const RecordedGame& game, World& world);

/// Writes down a game while it is played.
class GameRecorder {
public:
    /// Of an attempt at `level` with this start.
    GameRecorder(std::string level, const WorldStart& start);

    /// An event that a settled world gets before its next frame.
    void event(const World& world, KeyAction action, PlayKey key = PlayKey::Up);
    /// A world after its settling step, and after each frame with what drawing advances. A frame in which the player
    /// has left does not count: it may have been played or not.
    void frame(const World& world);
    /// The game up to the last frame that counts.
    [[nodiscard]] RecordedGame game() const;

private:
    RecordedGame game_;
    RecordedState last_;
    RecordedEnd end_;
};

/// Game frames that `record` plays at most: an hour.
inline constexpr int kLongestGame = 25 * 60 * 60;

/// Plays the keys of a draft on a settled world and writes its states and its end anew; the frame in which the player
/// left stays. False when the keys reach no end.
bool record(RecordedGame& game, World& world);

}  // namespace grub
