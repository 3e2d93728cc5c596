#include "start_page.h"

#include <algorithm>
#include <array>

#include "input_messages.h"
#include "sound_bank.h"

namespace grub {
namespace {

/// Enter, the middle mouse button, Caps Lock, and the system's own code of the space bar, which arrives as `KeySpace`.
constexpr std::array<std::uint32_t, 4> kStartCodes{KeyEnter, static_cast<std::uint32_t>(MouseButton::Middle), 20, 32};

}  // namespace

void StartPage::draw(const MenuBoard& board) const {
    board.drawFixed("background");
    board.drawSlid("splash");
    board.drawSlid("game_logo");
    board.drawColumn();
}

ShellRequest StartPage::keyDown(std::uint32_t keyCode, MenuBoard& board) {
    if (std::ranges::find(kStartCodes, keyCode) != kStartCodes.end()) {
        playEffect(SoundId::MenuClick);
        return ShellRequest::NewGame;
    }
    if (keyCode == KeyA) return ShellRequest::QuickExit;
    if (keyCode == KeyDown) board.goToPage(board.cursor() + 1);
    return ShellRequest::None;
}

ShellRequest StartPage::mouseDown(MenuBoard& board) {
    return board.isPressed("start_logo") ? ShellRequest::NewGame : ShellRequest::None;
}

}  // namespace grub
