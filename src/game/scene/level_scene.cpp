#include "level_scene.h"

#include <algorithm>
#include <utility>

#include "application_base.h"
#include "crt.h"
#include "engine_services.h"
#include "file_stream.h"
#include "level_file.h"
#include "level_list.h"
#include "log_file.h"

namespace grub {
namespace {

/// A pass of the frame loop waits at most this long for the loader while pictures are still missing.
constexpr DWORD kLoaderWaitMs = 20;

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

}  // namespace

LevelScene::LevelScene(ResourceSource& data, ResourceSource& levels)
    : levels_(levels), levelLoader_(levels), animations_(data, levelLoader_.spriteNumbers()) {}

LevelScene::~LevelScene() { loader_.wait(INFINITE); }

bool LevelScene::enter() {
    quit_ = false;
    teardownLevel();
    animations_.forgetCount();
    gameTimer_ = std::make_unique<Timer>(kGameFrameMs);
    gameTimer_->start(makeCallback([this] { tick_ = true; }));
    if (newGameAt_) {
        lives_ = kStartLives;
        score_ = 0;
        levelIndex_ = *newGameAt_;
        newGameAt_.reset();
    }
    if (state_ != LevelState::LoadSlot) state_ = LevelState::FirstLoad;
    sound_.forgetTrack();
    sound_.applyVolumes();
    levelLoader_.loadBlockTypes();
    collectedKeys_.clear();
    animations_.acquireAll();
    return true;
}

void LevelScene::leave() {
    teardownLevel();
    gameTimer_.reset();
    animations_.releaseAll();
}

void LevelScene::run() {
    canDraw_ = true;
    tick_ = true;
    quit_ = false;
    while (!quit_) pass();
}

// The picture of one tick is presented on the next: a handler runs right after a present.
void LevelScene::pass() {
    processMessages();
    gameTimer_->tick();
    if (!loader_.isComplete()) loader_.wait(kLoaderWaitMs);
    if (canDraw_) drawFrame();
    if (tick_ || quit_) presentFrame();
    if (!quit_ && !canDraw_) sleepUntilDue();
}

void LevelScene::drawFrame() {
    canDraw_ = false;
    frameOpen_ = EngineServices::renderer()->beginFrame();
    runState();
}

void LevelScene::presentFrame() {
    if (std::exchange(frameOpen_, false)) EngineServices::renderer()->endFrame();
    tick_ = false;
    canDraw_ = true;
}

// Between two ticks there is nothing to do but to answer messages, which wake the wait.
void LevelScene::sleepUntilDue() { waitForMessages(gameTimer_->millisecondsUntilDue()); }

void LevelScene::startLoadingPass() {
    animations_.stopLoading(false);
    loader_.start([this](int step) { loadStep(step); });
}

void LevelScene::stopLoading() {
    animations_.stopLoading(true);
    loader_.requestStop();
    loader_.wait(INFINITE);
}

void LevelScene::loadStep(int step) {
    const int list = resourcesLoaded_ ? 1 : 0;
    if (list == 1 && step == 0) LevelSound::loadSecondPhase();
    for (const LoadEntry& entry : loadingStep(list, step)) {
        const EngineString file(entry.path().c_str());
        if (entry.kind == LoadEntry::Kind::Block)
            animations_.addBlockAnimationFile(file, entry.id, entry.spriteNumber, entry.colourKey);
        else
            animations_.addAnimationFile(file, entry.id, entry.frameHeight, entry.transform, entry.colourKey);
    }
}

bool LevelScene::startLevel(int index) {
    teardownLevel();
    std::optional<LevelMap> map = loadMap(index);
    if (!map) return false;
    WorldStart start{
        .score = score_, .lives = lives_, .levelIndex = index, .seed = randomSeed(), .collectedKeys = collectedKeys_};
    steering_->prepare(start);
    world_.emplace(std::move(*map), start, animations_.frameCounts());
    camera_.reset();
    world_->step();  // nobody sees this one: the first picture shows a level that has settled
    sound_.play(world_->sounds());
    steering_->begin(*world_);
    sound_.startMusic();
    return true;
}

void LevelScene::teardownLevel() {
    if (world_) sound_.stopMusic();
    world_.reset();
}

std::optional<LevelMap> LevelScene::loadMap(int index) {
    const std::string_view level = levelInPlace_.empty() ? kLevelNames[static_cast<std::size_t>(index)] : levelInPlace_;
    std::string reason;
    std::optional<LevelMap> map;
    if (std::ranges::find(kLevelNames, level) != kLevelNames.end()) {
        map = levelLoader_.load(level, reason);
    } else {
        if (const auto file = readLevelFile(bytesOfFile(levelInPlace_), reason))
            map = levelLoader_.build(*file, reason);
        reason.insert(0, levelInPlace_ + ": ");
    }
    if (!map) logLine("%s", reason.c_str());
    return map;
}

void LevelScene::leaveToShell() {
    ApplicationBase::instance().selectScene(kMenuShellId);
    quit_ = true;
}

}  // namespace grub
