#pragma once

#include <memory>
#include <optional>
#include <string>

#include "game_player.h"
#include "game_recorder.h"
#include "own_options.h"
#include "steering.h"

namespace grub {

/// A hand on the keyboard that deals with the file of a recorded game, for one attempt.
class GameSteering : public Steering {
public:
    /// What the program is to end with when play is over: 0 when all went well.
    [[nodiscard]] virtual int exitCode() const = 0;
};

/// Plays a recorded game in place of the player and compares what comes with what was recorded. Leaving stays possible.
class ReplaySteering final : public GameSteering {
public:
    /// The first frame that is shown is `showFrom`, or the last one before the end; those before it pass unseen.
    ReplaySteering(RecordedGame game, std::string path, int showFrom);

    void prepare(WorldStart& start) override { start = game_.start; }
    void begin(World& world) override;
    void keyDown(World& /*world*/, PlayKey /*key*/) override {}
    void keyUp(World& /*world*/, PlayKey /*key*/) override {}
    void otherKey(World& /*world*/) override {}
    void beforeStep(World& world) override;
    void afterFrame(const World& world) override;
    /// Says on standard output that all came as recorded, or in a line on standard error what did not first.
    bool goesOnAfter(const World& world) override;
    /// 1 as well when there was no level to play.
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

/// Writes down what the player does, and at the end of the attempt the file.
class RecordSteering final : public GameSteering {
public:
    /// `level` is what the file shall say of the level.
    RecordSteering(std::string level, std::string path) : level_(std::move(level)), path_(std::move(path)) {}

    void prepare(WorldStart& start) override { recorder_.emplace(level_, start); }
    void begin(World& world) override { recorder_->frame(world); }
    void keyDown(World& world, PlayKey key) override;
    void keyUp(World& world, PlayKey key) override;
    void otherKey(World& world) override;
    void afterFrame(const World& world) override { recorder_->frame(world); }
    /// Writes the file; a line on standard error when that fails.
    bool goesOnAfter(const World& world) override;
    /// 1 as well when there was nothing to write.
    [[nodiscard]] int exitCode() const override { return isWritten_ ? 0 : 1; }

private:
    const std::string level_;
    const std::string path_;
    std::optional<GameRecorder> recorder_;  // once a level is built
    bool isWritten_ = false;
};

/// Sets up the game that the options want replayed or recorded: its steering and, for a replay, where play begins. Null
/// in `start` when they want neither. False after one line on standard error.
[[nodiscard]] bool prepareGame(const OwnOptions& options, PlayStart& start, std::unique_ptr<GameSteering>& steering);

}  // namespace grub
