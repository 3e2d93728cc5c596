#include "start_page.h"

#include <algorithm>
#include <array>

#include "input_messages.h"
#include "sound_bank.h"

namespace grub {
namespace {

/// Enter and Caps Lock. 13 and 32 are what the system calls Enter and the space bar; both arrive under other codes.
constexpr std::array<std::uint32_t, 4> kStartCodes{KeyEnter, 13, 20, 32};

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
    return board.press("start_logo") ? ShellRequest::NewGame : ShellRequest::None;
}

}  // namespace grub
