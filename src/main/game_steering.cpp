#include "game_steering.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <utility>

#include "control/script.h"
#include "game_text.h"
#include "level_list.h"
#include "resource_package.h"
#include "whole_file.h"

namespace grub {

void GameSteering::beforePicture(const World& world) {
    isFirstAttempt_ = isFirstAttempt_ && world.frame() >= lastFrame_;  // frames begin again with each attempt
    lastFrame_ = world.frame();
    if (isFirstAttempt_) platform::showScriptFrame(static_cast<std::uint64_t>(lastFrame_));
}

ReplaySteering::ReplaySteering(RecordedGame game, std::string path, int showFrom)
    : game_(std::move(game)), path_(std::move(path)), showFrom_(showFrom), keys_(game_.events) {}

void ReplaySteering::begin(World& world) {
    hasBegun_ = true;
    afterFrame(world);
}

// The last frame is left to be seen: a player who asks for it wants to see the end.
bool ReplaySteering::playUnseenFrame(World& world) {
    if (world.frame() >= showFrom_ || isLeftAfter(world)) return false;
    World next = world;
    KeyFeed keys = keys_;
    playFrame(next, keys);
    if (next.ended()) return false;
    world = std::move(next);
    keys_ = keys;
    afterFrame(world);
    return true;
}

bool ReplaySteering::isLeftAfter(const World& world) const {
    return game_.end && game_.end->cause == LossCause::Quit && world.frame() >= game_.end->frame;
}

void ReplaySteering::beforeStep(World& world) {
    keys_.feed(world);
    if (isLeftAfter(world)) world.end(LossCause::Quit);
}

void ReplaySteering::afterFrame(const World& world) {
    if (difference_ || !game_.isComplete() || world.frame() > game_.end->frame) return;
    if (world.ended() && world.cause() == LossCause::Quit) return;  // the player has left
    difference_ = differenceAt(game_, world);
}

bool ReplaySteering::goesOnAfter(const World& world) {
    if (difference_)
        std::fprintf(stderr, "%s: %s\n", path_.c_str(), difference_->c_str());
    else if (game_.isComplete() && world.frame() >= game_.end->frame)
        std::printf("%s: all as recorded\n", path_.c_str());
    return false;
}

void RecordSteering::keyDown(World& world, PlayKey key) {
    recorder_->event(world, KeyAction::Down, key);
    Steering::keyDown(world, key);
}

void RecordSteering::keyUp(World& world, PlayKey key) {
    recorder_->event(world, KeyAction::Up, key);
    Steering::keyUp(world, key);
}

void RecordSteering::otherKey(World& world) {
    recorder_->event(world, KeyAction::Other);
    Steering::otherKey(world);
}

bool RecordSteering::goesOnAfter(const World& /*world*/) {
    isWritten_ = writeWholeText(path_, writeGame(recorder_->game()));
    if (!isWritten_) std::fprintf(stderr, "%s: cannot be written\n", path_.c_str());
    return false;
}

namespace {

namespace fs = std::filesystem;

bool complain(const std::string& line) {
    std::fprintf(stderr, "%s\n", line.c_str());
    return false;
}

bool prepareReplay(const OwnOptions& options, PlayStart& start, std::unique_ptr<GameSteering>& steering) {
    std::string error;
    auto game = loadGame(options.replayFile, error);
    if (!game) return complain(error);
    if (start.level.empty()) start.level = levelFileOf(*game, options.replayFile).value_or(game->level);
    if (start.level.ends_with(".txt"))
        return complain(start.level + ": is a level source; 'grubtool play --show' compiles and plays it");
    start.levelIndex = game->start.levelIndex;
    steering = std::make_unique<ReplaySteering>(std::move(*game), options.replayFile, options.showFrom);
    return true;
}

std::string levelNameOf(const PlayStart& start) {
    if (!start.level.empty()) return start.level;
    return std::string(kLevelNames[static_cast<std::size_t>(start.levelIndex)]);
}

// What a recorded game says of the level that is played: a name of the list, or a path from the game's folder.
std::string levelFor(const OwnOptions& options) {
    const PlayStart& start = options.start;
    if (start.level.empty()) return levelNameOf(start);
    std::error_code ignored;
    return fs::relative(start.level, fs::absolute(options.recordFile).parent_path(), ignored).string();
}

// Whether the file can be written. Leaves an existing one unchanged and removes a new one.
bool canBeWritten(const std::string& path) {
    std::error_code ignored;
    const bool isNew = !fs::exists(path, ignored);
    const bool opens = std::ofstream(path, std::ios::app).is_open();
    if (opens && isNew) fs::remove(path, ignored);
    return opens;
}

bool prepareRecord(const OwnOptions& options, std::unique_ptr<GameSteering>& steering) {
    if (!canBeWritten(options.recordFile)) return complain(options.recordFile + ": cannot be written");
    steering = std::make_unique<RecordSteering>(levelFor(options), options.recordFile);
    return true;
}

// Whether the package holds the level of the list that play begins with.
bool levelIsThere(const PlayStart& start) {
    if (start.level.empty() && start.levelIndex == 0) return true;  // the usual start: the game itself looks
    const std::string level = levelNameOf(start);
    if (std::ranges::find(kLevelNames, level) == kLevelNames.end()) return true;  // a level file
    ResourcePackage package("levels.pak");
    if (package.exists(EngineString(level))) return true;
    std::string held;
    for (std::size_t i = 0; i < kLevelNames.size(); ++i) {
        if (package.exists(EngineString(kLevelNames[i]))) held += " " + std::to_string(i + 1);
    }
    return complain("grubaway: levels.pak does not hold " + level + "; numbers that it holds:" + held);
}

}  // namespace

bool prepareGame(const OwnOptions& options, PlayStart& start, std::unique_ptr<GameSteering>& steering) {
    steering = std::make_unique<GameSteering>();
    if (!options.replayFile.empty() && !prepareReplay(options, start, steering)) return false;
    if (!options.recordFile.empty() && !prepareRecord(options, steering)) return false;
    return levelIsThere(start);
}

}  // namespace grub
