// What the level scene does in each game frame, by state.

#include "engine_services.h"
#include "level_list.h"
#include "level_scene.h"
#include "level_view.h"

namespace grub {
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

// The level is built when both lists are there: block types name pictures of both, and a cell keeps the animation that
// it was given when it was built.
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

}  // namespace grub
