#include "level_scene.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <utility>

#include "application_base.h"
#include "crt.h"
#include "engine_services.h"
#include "file_stream.h"
#include "input_messages.h"
#include "level_file.h"
#include "level_list.h"
#include "level_view.h"
#include "log_file.h"

namespace grub {

namespace {

/// A pass of the frame loop waits at most this long for the loader while strips are still missing.
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

// What is drawn at one tick is presented at the next: a handler runs right after a present.
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
    for (const LoadEntry& entry : loadingStep(list, step)) animations_.add(entry);
}

bool LevelScene::startLevel(int index) {
    teardownLevel();
    std::optional<LevelMap> map = loadMap(index);
    if (!map) {
        hasRefusedLevel_ = true;
        return false;
    }
    WorldStart start{
        .score = score_, .lives = lives_, .levelIndex = index, .seed = randomSeed(), .collectedKeys = collectedKeys_};
    steering_->prepare(start);
    world_.emplace(std::move(*map), start, animations_.frameCounts());
    camera_.reset();
    world_->step();  // is not drawn: the first screen shows a level that has settled
    sound_.play(world_->sounds());
    steering_->begin(*world_);
    updateCamera();
    while (steering_->playUnseenFrame(*world_)) updateCamera();
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
    if (!map) {
        logLine("%s", reason.c_str());
        std::fprintf(stderr, "%s\n", reason.c_str());
    }
    return map;
}

void LevelScene::leaveToShell() {
    ApplicationBase::instance().selectScene(kMenuShellId);
    quit_ = true;
}

// What the level scene does in each game frame, by state.

namespace {

/// A game frame of the first loading waits at most this long for the loader.
constexpr DWORD kFirstLoadWaitMs = 100;

}  // namespace

void LevelScene::runState() {
    switch (state_) {  // no default: a state without a handler does not compile
        case LevelState::Intro: return intro();
        case LevelState::Playing: return playing();
        case LevelState::Ended: return ended();
        case LevelState::LoadSlot:
        case LevelState::FirstLoad: return firstLoad();
    }
}

// The level is built when both lists are there: block types name strips of both, and a cell keeps the animation id that
// it got when it was built.
void LevelScene::firstLoad() {
    if (resourcesLoaded_ && loader_.isComplete()) {
        sound_.applyVolumes();  // what the second pass has loaded is at full volume
        if (!startLevel(levelIndex_)) return leaveToShell();
        state_ = LevelState::Intro;
    } else if (!loader_.isComplete()) {
        loader_.wait(kFirstLoadWaitMs);
    } else {
        resourcesLoaded_ = true;
        loader_.forgetProgress();
        startLoadingPass();
        loader_.wait(kFirstLoadWaitMs);
    }
}

void LevelScene::intro() {
    world_->finishFrame(false);
    drawWorld();
    state_ = LevelState::Playing;
}

void LevelScene::playing() {
    steering_->beforeStep(*world_);
    world_->step();
    world_->finishFrame(true);
    sound_.play(world_->sounds());
    steering_->afterFrame(*world_);
    drawWorld();
    if (world_->ended()) state_ = LevelState::Ended;
}

void LevelScene::ended() {
    world_->finishFrame(false);
    drawWorld();
    score_ = world_->score();
    lives_ = world_->lives();
    const auto collected = world_->collectedKeys();
    collectedKeys_.assign(collected.begin(), collected.end());
    const bool goesOn = steering_->goesOnAfter(*world_);
    if (!goesOn || world_->cause() == LossCause::Quit) return leaveToShell();
    if (world_->cause() == LossCause::Won) levelIndex_ = nextLevel();
    if (!startLevel(levelIndex_)) return leaveToShell();
    state_ = LevelState::Intro;
}

void LevelScene::updateCamera() {
    const Hero& hero = world_->hero();
    camera_.follow(hero.x, hero.y, world_->map().width(), world_->map().height());
}

void LevelScene::drawWorld() {
    updateCamera();
    steering_->beforePicture(*world_);
    drawLevel(*world_, camera_, animations_, *EngineServices::renderer());
}

// The next level of the list that the package holds; after the last one the first follows again.
int LevelScene::nextLevel() const {
    constexpr int kCount = static_cast<int>(kLevelNames.size());
    int next = (levelIndex_ + 1) % kCount;
    while (next != levelIndex_ && !levels_.exists(EngineString(kLevelNames[static_cast<std::size_t>(next)])))
        next = (next + 1) % kCount;
    return next;
}

// What the level scene does with messages.

namespace {

/// The key of play for a key code; nothing for keys that do not steer the hero.
std::optional<PlayKey> playKeyOf(KeyCode code) {
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

void LevelScene::handleMessage(const SharedRef<SceneMessage>& message) {
    if (message->type == MessageType::CloseRequest) return endAttempt(LossCause::Quit);
    // Any mouse button shows that the player is there, as any key does.
    if (message->source == MessageSource::Mouse && message->type == MessageType::Pressed && world_)
        steering_->otherKey(*world_);
    if (message->source != MessageSource::Keyboard) return;
    const auto& key = static_cast<const KeyMessage&>(*message);
    if (message->type == MessageType::Pressed) keyDown(key);
    if (message->type == MessageType::Released) keyUp(key);
}

void LevelScene::keyDown(const KeyMessage& key) {
    lastKey_ = key.keyCode;
    if (!world_) return;
    const auto steering = state_ == LevelState::Playing ? playKeyOf(key.keyCode) : std::nullopt;
    steering ? steering_->keyDown(*world_, *steering) : steering_->otherKey(*world_);
    if (state_ != LevelState::Playing) return;
    if (key.keyCode == KeyEscape || key.keyCode == KeyC) openGameMenu();
}

void LevelScene::keyUp(const KeyMessage& key) {
    if (!world_) return;
    if (const auto steering = playKeyOf(key.keyCode)) steering_->keyUp(*world_, *steering);
}

// There is no menu yet, so Escape ends the attempt, as the menu's last entry will.
void LevelScene::openGameMenu() { endAttempt(LossCause::Quit); }

// While nothing is built there is no attempt to end: the scene itself is left.
void LevelScene::endAttempt(LossCause cause) {
    if (world_)
        world_->end(cause);
    else
        leaveToShell();
}

}  // namespace grub
