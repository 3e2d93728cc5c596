// What the menu shell draws, and what goes on with each drawn frame.

#include "engine_services.h"
#include "level_scene.h"
#include "menu_shell.h"
#include "sound_bank.h"

namespace grub {
namespace {

/// The pages in the order of `MenuButton`.
constexpr std::array kPages{ShellMode::Start,  ShellMode::Load, ShellMode::Options,
                            ShellMode::Scores, ShellMode::Help, ShellMode::Exit};

/// From here the page comes back after the quick exit: a step further out than pages go.
constexpr int kQuickExitOffset = 500;

}  // namespace

void MenuShell::drawFrame() {
    frameDue_ = false;
    const bool open = EngineServices::renderer()->beginFrame();
    if (isPicture(mode_))
        drawPicture();
    else
        drawPage();
    if (open) EngineServices::renderer()->endFrame();
    redraw_ = isMoving();
}

// A page that stands still is drawn when a message comes; it would look the same.
bool MenuShell::isMoving() const {
    if (mode_ == ShellMode::Opening) return true;
    if (isPicture(mode_)) return !transition_->isFinished() || pictures_->isPressed();
    return board_.slide.offset() != 0;
}

void MenuShell::drawPage() {
    board_.slide.stepIn();
    page().draw(board_);
    if (board_.slide.stepOut()) swapPage();
}

void MenuShell::swapPage() {
    playEffect(SoundId::MenuListDown);
    showPage(kPages.at(static_cast<std::size_t>(board_.cursor())));
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
    switch (mode_) {
        case ShellMode::FirstComic: return showPicture(ShellMode::SecondComic);
        case ShellMode::SecondComic: level_.requestNewGame(0); return handOver();
        case ShellMode::MiddleComic: return handOver();
        case ShellMode::FinalComic:
            game_->stopAnimations();
            menu_->prepareAll();
            break;
        default: break;
    }
    board_.setCursor(MenuButton::Start);
    showPage(ShellMode::Start);
}

}  // namespace grub
