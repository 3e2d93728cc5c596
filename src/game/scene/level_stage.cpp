#include "level_stage.h"

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <utility>
#include <vector>

#include "animation_id.h"
#include "crt.h"
#include "engine_services.h"
#include "file_stream.h"
#include "input_messages.h"
#include "level_file.h"
#include "level_list.h"
#include "log_file.h"

namespace grub {
namespace {

/// No level is longer; of a longer file this much is read.
constexpr std::size_t kLongestLevelFile = 1 << 20;

// Two numbers of the process's sequence, 15 bits each.
std::uint32_t randomSeed() {
    const auto high = static_cast<std::uint32_t>(crt::rand());
    return high << 15 | static_cast<std::uint32_t>(crt::rand());
}

// A file from disk; empty, as a file too short for a level, when it cannot be read.
std::vector<std::uint8_t> bytesOfFile(const std::string& path) {
    FileStream file(EngineString(path), kOpenRead);
    std::vector<std::uint8_t> bytes(kLongestLevelFile);
    const std::int64_t got = file.read(bytes.data(), static_cast<std::uint32_t>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(std::max<std::int64_t>(got, 0)));
    return bytes;
}

/// The key of play for a key code; nothing for keys that do not steer the hero.
std::optional<PlayKey> playKeyOf(std::uint32_t code) {
    switch (code) {
        case KeyUp: return PlayKey::Up;
        case KeyDown: return PlayKey::Down;
        case KeyLeft: return PlayKey::Left;
        case KeyRight: return PlayKey::Right;
        case KeySpace: return PlayKey::Space;
        case KeyEnter: return PlayKey::Enter;
        case KeyZ: return PlayKey::Z;
        case KeyX: return PlayKey::X;
        case KeyA: return PlayKey::A;
        case KeyB: return PlayKey::B;
        default: return std::nullopt;
    }
}

}  // namespace

bool LevelStage::startLevel(GameRun& run, int livesTaken) {
    teardownLevel();
    std::optional<LevelMap> map = loadMap(run.current.levelIndex);
    if (!map) {
        hasRefusedLevel_ = true;
        return false;
    }
    WorldStart start{.score = run.current.score,
                     .lives = run.current.lives,
                     .levelIndex = run.current.levelIndex,
                     .seed = randomSeed(),
                     .collectedKeys = run.collectedKeys};
    steering_->prepare(start);
    run.atLevelStart = {.levelIndex = start.levelIndex, .lives = start.lives, .score = start.score};
    start.lives -= livesTaken;
    panel_.acquire(start.levelIndex);
    world_.emplace(std::move(*map), start, animations_.frameCounts());
    settle();
    sound_.startMusic();
    return true;
}

// The first step is not drawn: the first screen shows a level that has settled.
void LevelStage::settle() {
    camera_.reset();
    world_->step();
    sound_.play(world_->sounds());
    steering_->begin(*world_);
    updateCamera();
    while (steering_->playUnseenFrame(*world_)) updateCamera();
}

bool LevelStage::finishAttempt(GameRun& run) {
    run.takeFrom(*world_);
    return steering_->goesOnAfter(*world_);
}

void LevelStage::teardownLevel() {
    if (!world_) return;
    sound_.stopMusic();
    panel_.release();
    world_.reset();
}

std::optional<LevelMap> LevelStage::loadMap(int index) {
    const std::string_view level = levelInPlace_.empty() ? kLevelNames[static_cast<std::size_t>(index)] : levelInPlace_;
    std::string reason;
    std::optional<LevelMap> map;
    if (std::ranges::find(kLevelNames, level) != kLevelNames.end()) {
        map = levels_.load(level, reason);
    } else {
        if (const auto file = readLevelFile(bytesOfFile(levelInPlace_), reason)) map = levels_.build(*file, reason);
        reason.insert(0, levelInPlace_ + ": ");
    }
    if (!map) {
        logLine("%s", reason.c_str());
        std::fprintf(stderr, "%s\n", reason.c_str());
    }
    return map;
}

void LevelStage::worldStep() {
    steering_->beforeStep(*world_);
    world_->step();
    world_->finishFrame(true);
    sound_.play(world_->sounds());
    steering_->afterFrame(*world_);
}

void LevelStage::updateCamera() {
    const Hero& hero = world_->hero();
    camera_.follow(hero.x, hero.y, world_->map().width(), world_->map().height());
}

void LevelStage::drawLevel() {
    updateCamera();
    grub::drawLevel(*world_, camera_, animations_, *EngineServices::renderer());
}

void LevelStage::drawPanel() {
    const PanelNumbers numbers{.level = world_->levelIndex() + 1,
                               .lives = world_->lives(),
                               .keys = world_->keysRemaining(),
                               .score = world_->score()};
    panel_.drawPanel(*EngineServices::renderer(), numbers, animations_.strip(animation::kPanelDigits));
}

void LevelStage::keyDown(std::uint32_t keyCode, bool playing) {
    const auto key = playing ? playKeyOf(keyCode) : std::nullopt;
    if (key)
        steering_->keyDown(*world_, *key);
    else
        steering_->otherKey(*world_);
}

void LevelStage::keyUp(std::uint32_t keyCode) {
    if (const auto key = playKeyOf(keyCode)) steering_->keyUp(*world_, *key);
}

}  // namespace grub
