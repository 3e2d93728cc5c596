#pragma once

#include <memory>
#include <optional>
#include <string>

#include "game_player.h"
#include "own_options.h"
#include "steering.h"

namespace grub {

/// The steering of the program: passes the keys on and tells the script which game frame of the first attempt comes
/// next. The steerings below also work with the file of a recorded game, for one attempt.
class GameSteering : public Steering {
public:
    void beforePicture(const World& world) final;
    /// The program's exit code when play is over: 0 when all went well.
    [[nodiscard]] virtual int exitCode() const { return 0; }

private:
    int lastFrame_ = 0;
    bool isFirstAttempt_ = true;
};

/// Plays a recorded game in place of the player and compares each frame with the record. The player can still leave.
class ReplaySteering final : public GameSteering {
public:
    /// Shows the game from frame `showFrom` on, or its last frame if that comes first. Plays the frames before unseen.
    ReplaySteering(RecordedGame game, std::string path, int showFrom);

    void prepare(WorldStart& start) override { start = game_.start; }
    void begin(World& world) override;
    bool playUnseenFrame(World& world) override;
    void keyDown(World& /*world*/, PlayKey /*key*/) override {}
    void keyUp(World& /*world*/, PlayKey /*key*/) override {}
    void otherKey(World& /*world*/) override {}
    void beforeStep(World& world) override;
    void afterFrame(const World& world) override;
    /// Prints that all came as recorded, or on standard error the first difference.
    bool goesOnAfter(const World& world) override;
    /// 1 after a difference, and when the level could not be played.
    [[nodiscard]] int exitCode() const override { return hasBegun_ && !difference_ ? 0 : 1; }

private:
    [[nodiscard]] bool isLeftAfter(const World& world) const;

    const RecordedGame game_;
    const std::string path_;
    const int showFrom_;
    KeyFeed keys_;  // of game_
    std::optional<std::string> difference_;
    bool hasBegun_ = false;
};

/// Records what the player does and writes the file at the end of the attempt.
class RecordSteering final : public GameSteering {
public:
    /// `level` is the level's name or path for the file.
    RecordSteering(std::string level, std::string path) : level_(std::move(level)), path_(std::move(path)) {}

    void prepare(WorldStart& start) override { recorder_.emplace(level_, start); }
    void begin(World& world) override { recorder_->frame(world); }
    void keyDown(World& world, PlayKey key) override;
    void keyUp(World& world, PlayKey key) override;
    void otherKey(World& world) override;
    void afterFrame(const World& world) override { recorder_->frame(world); }
    /// Writes the file, or a line on standard error when that fails.
    bool goesOnAfter(const World& world) override;
    /// 1 when the file was not written.
    [[nodiscard]] int exitCode() const override { return isWritten_ ? 0 : 1; }

private:
    const std::string level_;
    const std::string path_;
    std::optional<GameRecorder> recorder_;  // once a level is built
    bool isWritten_ = false;
};

/// Sets up what the options ask for: the steering that replays, records or only passes the keys on, and in `start`
/// where a replay begins. False after one line on standard error: the recorded game cannot be read, the file to record
/// in cannot be written, or the package lacks the level.
[[nodiscard]] bool prepareGame(const OwnOptions& options, PlayStart& start, std::unique_ptr<GameSteering>& steering);

}  // namespace grub
