// What the menu shell draws, and what goes on with each drawn frame.

#include "engine_services.h"
#include "level_scene.h"
#include "menu_shell.h"
#include "sound_bank.h"

namespace grub {
namespace {

/// From here the page comes back after the quick exit: a step further out than pages go.
constexpr int kQuickExitOffset = 500;

}  // namespace

// What stands still is drawn again only when a message comes. Tiles are not there any more only in the frame after the
// last one that had some, and a frame that did not reach the screen is owed.
void MenuShell::drawFrame() {
    frameDue_ = false;
    const ShellMode before = mode_;
    const bool hasTiles = isPicture(mode_) && !transition_->isFinished();
    bool isShown = EngineServices::renderer()->beginFrame();
    if (isPicture(mode_))
        drawPicture();
    else
        drawPage();
    isShown = isShown && EngineServices::renderer()->endFrame();
    redraw_ = !isShown || hasTiles || mode_ != before || isMoving();
}

bool MenuShell::isMoving() const {
    if (isPicture(mode_)) return mode_ == ShellMode::Opening || pictures_->isPressed();
    return board_.slide.offset() != 0;
}

void MenuShell::drawPage() {
    board_.slide.stepIn();
    page()->draw(board_);
    if (board_.slide.stepOut()) swapPage();
}

void MenuShell::swapPage() {
    playEffect(SoundId::MenuListDown);
    showPage(rowOf(board_.button()).mode);
}

void MenuShell::returnFromQuickExit() {
    board_.slide.enterFrom(kQuickExitOffset);
    swapPage();
}

void MenuShell::drawPicture() {
    if (!pictures_->draw(mode_)) return;
    if (mode_ == ShellMode::Opening)
        openingFrame();
    else if (mode_ == ShellMode::OpeningEnd || pictures_->isPressed())
        pictureGone();
}

void MenuShell::openingFrame() {
    if (!opening_->step(pictures_->isPressed() || secondPassed_)) return;
    transition_->start(TransitionMode::TileOut);
    mode_ = ShellMode::OpeningEnd;
    level_.startLoadingPass();
}

void MenuShell::pictureGone() {
    EngineServices::renderer()->clear(kBlack);
    pictures_->forgetPress();
    if (mode_ == ShellMode::FirstComic) return showPicture(ShellMode::SecondComic);
    if (mode_ == ShellMode::SecondComic) level_.requestNewGame(0);
    if (mode_ == ShellMode::SecondComic || mode_ == ShellMode::MiddleComic) return handOver();
    if (mode_ == ShellMode::FinalComic) {
        game_->stopAnimations();
        menu_->prepareAll();
    }
    board_.setButton(MenuButton::Start);
    showPage(ShellMode::Start);
}

}  // namespace grub
