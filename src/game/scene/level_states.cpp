// What the level scene does in each game frame, by state. The table of states is in level_state.h.

#include "engine_services.h"
#include "level_list.h"
#include "level_scene.h"

namespace grub {

namespace {

/// A game frame that needs all strips to build a level gives the loader this long.
constexpr DWORD kBuildWaitMs = 100;

/// The middle comic comes before this level, the first one of the second world.
constexpr int kLevelAfterComic = 20;
static_assert(kLevelAfterComic == static_cast<int>(kLevelWorlds[0].levelCount));

}  // namespace

void LevelScene::runState() {
    switch (state_) {  // no default: a state without a handler does not compile
        case LevelState::Intro: return intro();
        case LevelState::Playing: return playing();
        case LevelState::Ended: return ended();
        case LevelState::EndScreen: return endScreen();
        case LevelState::EndFade: return endFade();
        case LevelState::GameMenu:
        case LevelState::SaveMenu:
        case LevelState::LoadMenu: return dialog();
        case LevelState::Quit: return quit();
        case LevelState::OpenSaveMenu: return openSaveMenu();
        case LevelState::OpenLoadMenu: return openLoadMenu();
        case LevelState::OpenGameMenu: return openGameMenu();
        case LevelState::GameOver: return gameOver();
        case LevelState::LoadSlot: return loadSlot();
        case LevelState::FirstLoad: return firstLoad();
    }
}

// Into a level.

void LevelScene::firstLoad() {
    if (awaitResources()) enterLevel();
}

// Chosen in the game menu, the level behind it is still there: it stays in sight until the slot is loaded.
void LevelScene::loadSlot() {
    if (stage_.isBuilt()) drawFrozenLevel();
    if (awaitResources()) loadGame(slotToLoad_);
}

// A level is built when both lists are there: block types name strips of both, and a cell keeps the animation id that
// it got when it was built. The volumes are set again for the sounds that the second pass has loaded.
bool LevelScene::awaitResources() {
    if (resources_.isReady()) {
        stage_.sound().applyVolumes();
        return true;
    }
    if (resources_.startSecondPass()) pages_->openLayout("in_gamemenu");
    resources_.wait(kBuildWaitMs);
    return false;
}

void LevelScene::loadGame(int slot) {
    if (stage_.isBuilt() && !stage_.finishAttempt(run_)) return leaveToShell();
    run_.resume(slots_.loadGame(slot));
    enterLevel();
}

void LevelScene::enterLevel() {
    if (!stage_.startLevel(run_, 0)) return leaveToShell();
    transition_->start(TransitionMode::ShutterOpen);
    state_ = LevelState::Intro;
}

void LevelScene::intro() {
    drawBehindTransition();
    if (!transition_->isFinished()) return;
    stage_.announceFrame();
    state_ = LevelState::Playing;
}

void LevelScene::drawBehindTransition() {
    stage_.holdStill();
    stage_.drawLevel();
    transition_->step();
    stage_.drawPanel();
}

void LevelScene::playing() {
    stage_.worldStep();
    stage_.drawLevel();
    stage_.drawPanel();
    stage_.announceFrame();
    if (!stage_.world()->ended()) return;
    cause_ = stage_.world()->cause();
    transition_->start(TransitionMode::ShutterClose);
    state_ = LevelState::Ended;
}

// Out of a level.

void LevelScene::ended() {
    if (stage_.isBuilt()) {
        drawBehindTransition();
        if (!transition_->isFinished()) return;
        const bool goesOn = stage_.finishAttempt(run_);
        stage_.teardownLevel();
        if (!goesOn) return leaveToShell();
    }
    afterAttempt();
}

void LevelScene::afterAttempt() {
    if (cause_ == LossCause::Quit) return leaveToShell();
    if (cause_ == LossCause::Load) {
        if (awaitResources()) loadGame(dialogs_.cursor());
        return;
    }
    EndPicture::playSound(cause_);
    if (cause_ == LossCause::Won)
        afterWin();
    else
        restartAttempt(1);
}

// A win gives a life, before the level that follows keeps its copy of them; the end of the first world gives it too,
// the end of the game does not.
void LevelScene::afterWin() {
    if (run_.current.levelIndex + 1 == kLevelCount) {
        exitCode_ = ExitCode::FinalComic;
        return leaveToShell();
    }
    ++run_.current.levelIndex;
    ++run_.current.lives;
    if (run_.current.levelIndex == kLevelAfterComic) {
        exitCode_ = ExitCode::MiddleComic;
        return leaveToShell();
    }
    restartAttempt(0);
}

void LevelScene::restartAttempt(int livesTaken) {
    endPicture_.open(cause_, *pages_);
    if (!stage_.startLevel(run_, livesTaken)) return leaveToShell();
    transition_->start(TransitionMode::TileIn);
    pressedAnew_ = false;
    state_ = LevelState::EndScreen;
}

void LevelScene::endScreen() {
    drawEndPicture();
    if (stage_.world()->lives() < 1) {
        endPicture_.dropBoard();
        state_ = LevelState::GameOver;
    } else if (pressedAnew_) {
        transition_->start(TransitionMode::TileOut);
        state_ = LevelState::EndFade;
    }
}

void LevelScene::gameOver() {
    drawEndPicture();
    endPicture_.stepBoard();
    if (pressedAnew_) state_ = LevelState::EndFade;
}

void LevelScene::endFade() {
    if (!drawEndPicture()) return;
    EngineServices::renderer()->clear(kBlack);
    pages_->stopAnimations();
    if (stage_.world()->lives() < 1) return leaveToShell();
    transition_->start(TransitionMode::ShutterOpen);
    state_ = LevelState::Intro;
}

// Whether the transition had come to its end before this game frame.
bool LevelScene::drawEndPicture() {
    endPicture_.draw(*pages_);
    if (transition_->isFinished()) return true;
    transition_->step();
    return false;
}

// The dialogs over a level that stands still.

void LevelScene::callGameMenu() {
    slots_.refreshSlotInfo();
    showDialog(LevelState::GameMenu);
}

void LevelScene::showDialog(LevelState state) {
    dialogs_.showDialog(state, *pages_);
    state_ = state;
}

void LevelScene::drawFrozenLevel() {
    stage_.holdStill();
    stage_.drawLevel();
    stage_.drawPanel();
}

void LevelScene::dialog() {
    const LevelState shown = state_;
    drawFrozenLevel();
    state_ = dialogs_.step().value_or(shown);
    dialogs_.draw(shown, *pages_);
}

void LevelScene::openSaveMenu() {
    drawFrozenLevel();
    showDialog(LevelState::SaveMenu);
}

void LevelScene::openLoadMenu() {
    drawFrozenLevel();
    showDialog(LevelState::LoadMenu);
}

void LevelScene::openGameMenu() {
    drawFrozenLevel();
    callGameMenu();
}

void LevelScene::quit() {
    drawFrozenLevel();
    cause_ = LossCause::Quit;
    transition_->start(TransitionMode::ShutterClose);
    state_ = LevelState::Ended;
}

}  // namespace grub
