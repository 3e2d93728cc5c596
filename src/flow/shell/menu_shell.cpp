#include "menu_shell.h"

#include <array>

#include "application_base.h"
#include "engine_services.h"
#include "level_scene.h"
#include "sound_bank.h"

namespace grub {
namespace {

/// The shell draws a frame at most so often, however many messages come: slides and tiles move a step with each.
constexpr std::uint32_t kFrameMs = 10;

/// From here the page that asks for a name slides in, in pixels.
constexpr int kNamePageOffset = 450;

/// A button of the column: the element that the mouse hits, and the mode of its page.
struct ColumnButton {
    const char* element;
    ShellMode mode;
};

/// In the order of `MenuButton`.
constexpr std::array kColumn{
    ColumnButton{"start_down", ShellMode::Start},     ColumnButton{"load_down", ShellMode::Load},
    ColumnButton{"options_down", ShellMode::Options}, ColumnButton{"score_down", ShellMode::Scores},
    ColumnButton{"help_down", ShellMode::Help},       ColumnButton{"exit_down", ShellMode::Exit},
};
constexpr auto kExitButton = static_cast<std::size_t>(MenuButton::Exit);

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
    board_.slide.rest();
    options_.rewind();
    help_.rewind();
    exit_.rewind();
    const auto firstMode = static_cast<ShellMode>(level_.exitCode());
    if (isPicture(firstMode))
        showPicture(firstMode);
    else
        enterMenu();
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

// A player who has closed the window in a level wants no menu either, unless his result asks for a name.
void MenuShell::enterMenu() {
    board_.setCursor(MenuButton::Start);
    showPage(ShellMode::Start);
    game_->openLayout("komiks1");
    if (scores_.table().qualifies(level_.game().current.score)) {
        board_.setCursor(MenuButton::Scores);
        board_.slide.enterFrom(kNamePageOffset);
        showPage(ShellMode::NameEntry);
    } else if (level_.isCloseRequested()) {
        post(SharedRef<SceneMessage>(new SceneMessage(MessageType::CloseRequest, MessageSource::Window)));
    }
}

void MenuShell::leave() {
    second_.stop();
    frameTimer_.stop();
    menu_->stopAnimations();
    saveSettings(settings_);
    if (SoundBank* const bank = SoundBank::current()) bank->stopMusic(MusicId::Menu);
    scores_.save();
    game_->stopAnimations();
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
        waitForMessages(frameTimer_.millisecondsUntilDue());
        processMessages();
        second_.tick();
        frameTimer_.tick();
        if (redraw_ && frameDue_) drawFrame();
    }
    level_.stopLoading();  // the renderer goes next: the loader must not upload strips any more
}

void MenuShell::showPage(ShellMode mode) {
    mode_ = mode;
    page().open();
    menu_->selectLayout(page().layout());
    board_.forgetPress();
}

void MenuShell::showPicture(ShellMode mode) {
    mode_ = mode;
    pictures_->open(mode);
}

MenuPage& MenuShell::page() {
    switch (mode_) {
        case ShellMode::Load: return load_;
        case ShellMode::Options: return options_;
        case ShellMode::Scores: return scorePage_;
        case ShellMode::NameEntry: return namePage_;
        case ShellMode::Help: return help_;
        case ShellMode::Exit: return exit_;
        case ShellMode::QuickExit: return quickExit_;
        case ShellMode::Start:
        case ShellMode::Opening:
        case ShellMode::OpeningEnd:
        case ShellMode::FirstComic:
        case ShellMode::SecondComic:
        case ShellMode::MiddleComic:
        case ShellMode::FinalComic: break;
    }
    return start_;
}

void MenuShell::handleMessage(const SharedRef<SceneMessage>& message) {
    const bool isMouse = message->source == MessageSource::Mouse;
    const auto* const mouse = isMouse ? static_cast<const MouseMessage*>(message.get()) : nullptr;
    switch (message->type) {
        case MessageType::CloseRequest: quit_ = true; return;
        case MessageType::Repaint: redraw_ = true; return;
        case MessageType::MouseMoved: return moveMouse({mouse->x, mouse->y});
        case MessageType::Pressed:
        case MessageType::Released: break;
    }
    redraw_ = true;
    const std::uint32_t code =
        isMouse ? static_cast<std::uint32_t>(mouse->button) : static_cast<const KeyMessage&>(*message).keyCode;
    const bool isOnPage = isMouse && mouse->button == MouseButton::Left && isMenuPage(mode_);
    if (message->type == MessageType::Released) {
        page().keyUp(code);
        if (isOnPage) mouseUp();
    } else if (isOnPage) {
        mouseDown();
    } else {
        press(code);
    }
}

void MenuShell::moveMouse(Position mouse) {
    board_.mouse = mouse;
    if (!buttonHeld_) return;
    redraw_ = true;
    page().mouseDragged(board_);
}

void MenuShell::press(std::uint32_t code) {
    if (isPicture(mode_))
        pictures_->press(mode_);
    else
        obey(page().keyDown(code, board_));
}

void MenuShell::mouseDown() {
    buttonHeld_ = true;
    obey(columnDown());
    if (isMenuPage(mode_)) obey(page().mouseDown(board_));
}

// While a name is asked for, a button of the column would throw the result away. The exit's page comes with the
// release.
ShellRequest MenuShell::columnDown() {
    if (mode_ == ShellMode::NameEntry) return ShellRequest::None;
    for (std::size_t i = 0; i < kExitButton; ++i) {
        if (mode_ == kColumn[i].mode && mode_ != ShellMode::Start) continue;
        if (!board_.isPressed(kColumn[i].element)) continue;
        if (mode_ == kColumn[i].mode) return ShellRequest::NewGame;
        board_.goToPage(static_cast<int>(i));
        return ShellRequest::None;
    }
    if (board_.isPressed(kColumn[kExitButton].element)) board_.setCursor(MenuButton::Exit);
    return ShellRequest::None;
}

void MenuShell::mouseUp() {
    buttonHeld_ = false;
    const ShellRequest request = page().mouseUp(board_);
    if (board_.isReleased(kColumn[kExitButton].element)) {
        if (mode_ == ShellMode::Exit) return obey(ShellRequest::Quit);
        board_.goToPage(MenuButton::Exit);
    }
    board_.forgetPress();
    obey(request);
}

void MenuShell::obey(ShellRequest request) {
    switch (request) {
        case ShellRequest::None: return;
        case ShellRequest::NewGame: return showPicture(ShellMode::FirstComic);
        case ShellRequest::LoadSlot: level_.requestLoad(); return handOver();
        case ShellRequest::QuickExit: board_.slide.rest(); return showPage(ShellMode::QuickExit);
        case ShellRequest::Return: return returnFromQuickExit();
        case ShellRequest::Quit: quit_ = true; return;
    }
}

}  // namespace grub
