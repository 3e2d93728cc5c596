#include "exit_pages.h"

#include <algorithm>

#include "input_messages.h"

namespace grub {

void ExitPage::draw(const MenuBoard& board) const {
    board.drawFixed("background");
    for (const char* const item : {"splash", "logo_exit", "logo"}) board.drawSlid(item);
    board.drawColumn();
    board.drawSlid("a_button_stat");
    board.drawSlid("a_button_down", choice_);
}

ShellRequest ExitPage::keyDown(std::uint32_t keyCode, MenuBoard& board) {
    switch (keyCode) {
        case KeyEnter:
        case KeyA: return ShellRequest::Quit;
        case KeyUp:
        case KeyB: board.goToPage(board.cursor() - 1); break;
        case KeyLeft: choice_ = 0; break;
        case KeyRight: choice_ = 1; break;
        default: break;
    }
    return ShellRequest::None;
}

ShellRequest ExitPage::mouseDown(MenuBoard& board) {
    board.press("start_logo");
    return ShellRequest::None;
}

ShellRequest ExitPage::mouseUp(MenuBoard& board) {
    return board.isReleased("start_logo") ? ShellRequest::Quit : ShellRequest::None;
}

void QuickExitPage::draw(const MenuBoard& board) const {
    for (const char* const item : {"background", "logo", "splash", "text_info"}) board.drawFixed(item);
    board.drawSlid("a_button_stat");
    board.drawSlid("a_button_down", choice_);
}

ShellRequest QuickExitPage::keyDown(std::uint32_t keyCode, MenuBoard& /*board*/) {
    constexpr int kLeave = 0;
    constexpr int kLast = 2;
    switch (keyCode) {
        case KeyLeft: choice_ = std::max(choice_ - 1, kLeave); break;
        case KeyRight: choice_ = std::min(choice_ + 1, kLast); break;
        case KeyEnter: return choice_ == kLeave ? ShellRequest::Quit : ShellRequest::Return;
        case KeyA: return ShellRequest::Quit;
        default: break;
    }
    return ShellRequest::None;
}

}  // namespace grub
