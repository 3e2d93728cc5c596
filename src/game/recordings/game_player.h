#pragma once

#include <optional>
#include <string>

#include "recorded_game.h"
#include "world.h"

namespace grub {

/// Whether a world that has played a frame has come to the end of the game, its own or the recorded one.
[[nodiscard]] bool isOver(const RecordedGame& game, const World& world);

/// What a world, after a frame, shows otherwise than the game, which is complete: the end, or the state where the game
/// has one. A line that begins with the frame; nothing when all agrees.
[[nodiscard]] std::optional<std::string> differenceAt(const RecordedGame& game, const World& world);

/// The recorded field of this frame, or of the last one before it that has one, beside that of the world; with a
/// caption each.
[[nodiscard]] std::string drawBoth(const RecordedGame& game, const World& world);

/// Plays a game, which is complete, on a world that has been settled, until it is over or something differs. True when
/// all agrees; else the world stands where it differs.
bool replay(const RecordedGame& game, World& world);

/// Writes down a game while it is played.
class GameRecorder {
public:
    /// Of an attempt at `level` with this start.
    GameRecorder(std::string level, const WorldStart& start);

    /// An event that the world, which has been settled, is told of before its next frame.
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

/// Most frames that `record` plays: an hour.
inline constexpr int kLongestGame = 25 * 60 * 60;

/// Plays the keys of a draft on a world that has been settled, and puts down what comes of it; all that it says of that
/// is written anew, but for the frame in which the player left. False when the keys reach no end.
bool record(RecordedGame& game, World& world);

}  // namespace grub
