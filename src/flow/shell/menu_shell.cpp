#include "menu_shell.h"

#include "application_base.h"
#include "level_scene.h"
#include "sound_bank.h"

namespace grub {
namespace {

/// The shell draws a frame at most so often, however many messages come: slides and tiles move a step with each.
constexpr std::uint32_t kFrameMs = 10;

/// With nothing to draw, the shell sleeps so long unless a message wakes it: a still page costs almost nothing.
constexpr DWORD kIdleMs = 100;

/// From here the page that asks for a name slides in, in pixels.
constexpr int kNamePageOffset = 450;

}  // namespace

MenuShell::MenuShell(ResourceSource& data, LevelScene& level) : data_(data), level_(level), frameTimer_(kFrameMs) {}

bool MenuShell::enter() {
    secondPassed_ = false;
    second_.start(makeCallback([this] { secondPassed_ = true; }));
    frameTimer_.start(makeCallback([this] { frameDue_ = true; }));
    if (!menu_)
        buildInterfaces();
    else if (SoundBank* const bank = SoundBank::current())
        bank->playMusic(MusicId::Menu);
    menu_->startAnimations();
    loadSettings(settings_);
    level_.setVolumes({.effects = settings_.sound, .music = settings_.music});
    scores_.load();
    options_.rewind();
    exit_.rewind();
    board_.slide.rest();
    board_.mouse = level_.mouse();
    buttonHeld_ = false;
    const auto firstMode = static_cast<ShellMode>(level_.exitCode());
    if (isPicture(firstMode))
        showPicture(firstMode);
    else
        enterMenu();
    // A player who has closed the window in a level wants no menu either, unless his result asks for a name.
    if (level_.isCloseRequested() && mode_ != ShellMode::NameEntry)
        post(SharedRef<SceneMessage>(new SceneMessage(MessageType::CloseRequest, MessageSource::Window)));
    return true;
}

void MenuShell::buildInterfaces() {
    menu_ = std::make_unique<KestInterface>(data_, "make_m64");
    game_ = std::make_unique<KestInterface>(data_, "make_z64");
    level_.setGameInterface(*game_);
    board_.setPages(*menu_);
    transition_.emplace(data_);
    pictures_.emplace(*game_, *transition_);
    opening_.emplace(*menu_, *game_, level_);
}

void MenuShell::enterMenu() {
    game_->openLayout("komiks1");
    board_.setButton(MenuButton::Start);
    showPage(ShellMode::Start);
    if (!scores_.table().qualifies(level_.game().current.score)) return;
    board_.setButton(MenuButton::Scores);
    board_.slide.enterFrom(kNamePageOffset);
    showPage(ShellMode::NameEntry);
}

// A request to close that came while the files were written is meant for play now.
void MenuShell::leave() {
    second_.stop();
    frameTimer_.stop();
    menu_->stopAnimations();
    saveSettings(settings_);
    if (SoundBank* const bank = SoundBank::current()) bank->stopMusic(MusicId::Menu);
    scores_.save();
    game_->stopAnimations();
    level_.setMouse(board_.mouse);
    processMessages();
    if (quit_) level_.post(SharedRef<SceneMessage>(new SceneMessage(MessageType::CloseRequest, MessageSource::Window)));
}

void MenuShell::run() {
    running_ = true;
    quit_ = false;
    redraw_ = true;
    frameDue_ = true;
    while (!quit_) {
        if (!running_) {
            ApplicationBase::instance().selectScene(kLevelSceneId);
            return;
        }
        waitForMessages(redraw_ ? frameTimer_.millisecondsUntilDue() : kIdleMs);
        processMessages();
        second_.tick();
        frameTimer_.tick();
        if (redraw_ && frameDue_ && !quit_) drawFrame();
    }
    level_.stopLoading();  // the renderer goes next: the loader must not upload strips any more
}

void MenuShell::showPage(ShellMode mode) {
    mode_ = mode;
    page()->open();
    menu_->selectLayout(page()->layout());
    board_.forgetPress();
}

void MenuShell::showPicture(ShellMode mode) {
    mode_ = mode;
    pictures_->open(mode);
}

MenuPage* MenuShell::page() {
    switch (mode_) {
        case ShellMode::Start: return &start_;
        case ShellMode::Load: return &load_;
        case ShellMode::Options: return &options_;
        case ShellMode::Scores: return &scorePage_;
        case ShellMode::NameEntry: return &namePage_;
        case ShellMode::Help: return &help_;
        case ShellMode::Exit: return &exit_;
        case ShellMode::QuickExit: return &quickExit_;
        case ShellMode::Opening:
        case ShellMode::OpeningEnd:
        case ShellMode::FirstComic:
        case ShellMode::SecondComic:
        case ShellMode::MiddleComic:
        case ShellMode::FinalComic: break;
    }
    return nullptr;
}

}  // namespace grub
