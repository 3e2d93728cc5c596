#include "load_page.h"

#include <algorithm>
#include <array>

#include "input_messages.h"
#include "level_scene.h"
#include "slot_lines.h"

namespace grub {
namespace {

constexpr std::array kSlotElements{"buttonup_01c", "buttonup_02c", "buttonup_03c"};
static_assert(kSlotElements.size() == kSaveSlots);

}  // namespace

void LoadPage::open() { level_.slots().refreshSlotInfo(); }

bool LoadPage::slotExists(int slot) const { return level_.slots().info(slot).exists; }

void LoadPage::draw(const MenuBoard& board) const {
    board.drawFixed("background");
    for (const char* const item : {"logo", "splash", "game_load"}) board.drawSlid(item);
    board.drawSlid("continue_down", level_.slotToLoad());
    drawSlotLines(board.pages(), level_.slots(), board.slide.offset(), 0);
    board.drawColumn();
}

ShellRequest LoadPage::keyDown(std::uint32_t keyCode, MenuBoard& board) {
    switch (keyCode) {
        case KeyUp: board.goToPage(board.cursor() - 1); break;
        case KeyDown: board.goToPage(board.cursor() + 1); break;
        case KeyLeft: moveSlot(-1); break;
        case KeyRight: moveSlot(1); break;
        case KeyEnter: return slotExists(level_.slotToLoad()) ? ShellRequest::LoadSlot : ShellRequest::None;
        case KeyA: return ShellRequest::QuickExit;
        default: break;
    }
    return ShellRequest::None;
}

void LoadPage::moveSlot(int step) { level_.chooseSlot(std::clamp(level_.slotToLoad() + step, 0, kSaveSlots - 1)); }

ShellRequest LoadPage::mouseDown(MenuBoard& board) {
    for (int slot = 0; slot < kSaveSlots; ++slot)
        if (board.press(kSlotElements.at(static_cast<std::size_t>(slot))) && slotExists(slot)) level_.chooseSlot(slot);
    return ShellRequest::None;
}

ShellRequest LoadPage::mouseUp(MenuBoard& board) {
    for (int slot = 0; slot < kSaveSlots; ++slot) {
        if (!board.isReleased(kSlotElements.at(static_cast<std::size_t>(slot))) || !slotExists(slot)) continue;
        level_.chooseSlot(slot);
        return ShellRequest::LoadSlot;
    }
    return ShellRequest::None;
}

}  // namespace grub
