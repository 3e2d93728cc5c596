// What the menu shell does with messages.

#include "level_scene.h"
#include "menu_shell.h"

namespace grub {

void MenuShell::handleMessage(const SharedRef<SceneMessage>& message) {
    if (message->type == MessageType::CloseRequest) quit_ = true;
    if (message->type == MessageType::Repaint) redraw_ = true;
    if (message->source == MessageSource::Mouse) mouse(static_cast<const MouseMessage&>(*message));
    if (message->source != MessageSource::Keyboard) return;
    const std::uint32_t keyCode = static_cast<const KeyMessage&>(*message).keyCode;
    if (message->type == MessageType::Pressed) press(keyCode);
    if (message->type == MessageType::Released) release(keyCode);
}

void MenuShell::mouse(const MouseMessage& message) {
    if (message.type == MessageType::MouseMoved) return moveMouse({message.x, message.y});
    const bool isPress = message.type == MessageType::Pressed;
    const bool isSecond = message.button == MouseButton::LeftDouble && isMenuPage(mode_);
    const bool isLeft = message.button == MouseButton::Left || isSecond;
    const auto code = static_cast<std::uint32_t>(message.button);
    if (!isPress) release(code);
    if (!isPress && isLeft) buttonHeld_ = false;
    const bool isClick = isLeft && isMenuPage(mode_);
    if (isPress && !isClick) press(code);
    if (!isClick) return;
    redraw_ = true;
    if (isPress)
        mouseDown();
    else
        mouseUp();
}

void MenuShell::moveMouse(Position mouse) {
    board_.mouse = mouse;
    if (!buttonHeld_ || !page()) return;
    redraw_ = true;
    page()->mouseDragged(board_);
}

// Mouse buttons other than the left one, and that one too where there is no page to click on, count as keys.
void MenuShell::press(std::uint32_t code) {
    redraw_ = true;
    if (isPicture(mode_))
        pictures_->press(mode_);
    else
        obey(page()->keyDown(code, board_));
}

void MenuShell::release(std::uint32_t code) {
    redraw_ = true;
    if (page()) page()->keyUp(code);
}

void MenuShell::mouseDown() {
    buttonHeld_ = true;
    obey(columnDown());
    if (isMenuPage(mode_)) obey(page()->mouseDown(board_));
}

// While a name is asked for, a button of the column would throw the result away. The page of the exit comes with the
// release.
ShellRequest MenuShell::columnDown() {
    if (mode_ == ShellMode::NameEntry) return ShellRequest::None;
    for (std::size_t i = 0; i < kColumn.size(); ++i) {
        const auto button = static_cast<MenuButton>(i);
        const bool isOwn = mode_ == kColumn[i].mode;
        if (isOwn && button != MenuButton::Start && button != MenuButton::Exit) continue;
        if (!board_.press(kColumn[i].element)) continue;
        if (button == MenuButton::Exit)
            board_.setButton(button);
        else if (isOwn)
            return ShellRequest::NewGame;
        else
            board_.goToPage(button);
    }
    return ShellRequest::None;
}

void MenuShell::mouseUp() {
    const ShellRequest request = page()->mouseUp(board_);
    const bool isExit = board_.isReleased(rowOf(MenuButton::Exit).element);
    board_.forgetPress();
    if (isExit && mode_ == ShellMode::Exit) return obey(ShellRequest::Quit);
    if (isExit) board_.goToPage(MenuButton::Exit);
    obey(request);
}

void MenuShell::obey(ShellRequest request) {
    switch (request) {
        case ShellRequest::None: return;
        case ShellRequest::NewGame: return showPicture(ShellMode::FirstComic);
        case ShellRequest::LoadSlot: level_.requestLoad(); return handOver();
        // A page that slides would displace the dialog.
        case ShellRequest::QuickExit: board_.slide.rest(); return showPage(ShellMode::QuickExit);
        case ShellRequest::Return: return returnFromQuickExit();
        case ShellRequest::Quit: quit_ = true; return;
    }
}

}  // namespace grub
