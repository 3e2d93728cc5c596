#include "level_dialogs.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "input_messages.h"
#include "slot_lines.h"
#include "sound_bank.h"

namespace grub {
namespace {

/// A dialog: its layout, what is drawn of it, and the elements that the mouse can hit.
struct Dialog {
    LevelState state;
    const char* layout;
    std::span<const char* const> items;    ///< drawn whole
    const char* highlight;                 ///< its element with the number of the cursor is drawn
    std::span<const char* const> entries;  ///< elements, in the order of the cursor
    LevelState left;                       ///< the state to which Escape leads
};

constexpr std::array kMenuItems{"in_splash"};
constexpr std::array kMenuEntries{"buttonup_01", "buttonup_02", "buttonup_03", "buttonup_04"};
constexpr std::array kSaveItems{"splash", "game_write"};
constexpr std::array kSaveEntries{"buttonup_01w", "buttonup_02w", "buttonup_03w"};
constexpr std::array kLoadItems{"splash", "game_load"};
constexpr std::array kLoadEntries{"buttonup_01c", "buttonup_02c", "buttonup_03c"};

constexpr Dialog kGameMenu{LevelState::GameMenu, "in_gamemenu", kMenuItems,
                           "button_down",        kMenuEntries,  LevelState::Playing};
constexpr Dialog kSaveMenu{LevelState::SaveMenu, "in_writemenu", kSaveItems,
                           "write_down",         kSaveEntries,   LevelState::OpenGameMenu};
constexpr Dialog kLoadMenu{LevelState::LoadMenu, "in_loadmenu", kLoadItems,
                           "continue_down",      kLoadEntries,  LevelState::OpenGameMenu};

/// Where the entries of the game menu lead.
constexpr std::array kMenuChoices{LevelState::Playing, LevelState::OpenSaveMenu, LevelState::OpenLoadMenu,
                                  LevelState::Quit};
static_assert(kMenuChoices.size() == kMenuEntries.size());

const Dialog& dialogOf(LevelState state) {
    if (state == LevelState::SaveMenu) return kSaveMenu;
    return state == LevelState::LoadMenu ? kLoadMenu : kGameMenu;
}

std::optional<int> entryAt(const Dialog& dialog, Position mouse, const KestInterface& pages) {
    for (std::size_t i = 0; i < dialog.entries.size(); ++i)
        if (pages.hitTest(dialog.entries[i], mouse)) return static_cast<int>(i);
    return std::nullopt;
}

}  // namespace

void LevelDialogs::showDialog(LevelState state, KestInterface& pages) {
    slide_.open();
    pages.openLayout(dialogOf(state).layout);
    cursor_ = 0;
    pressed_.reset();
}

void LevelDialogs::draw(LevelState state, KestInterface& pages) const {
    const Dialog& dialog = dialogOf(state);
    pages.selectLayout(dialog.layout);
    for (const char* const item : dialog.items)
        pages.drawItem(item, 0, slide_.offset(), KestInterface::kAllElements, 0);
    pages.drawItem(dialog.highlight, 0, slide_.offset(), cursor_, 0);
    if (state != LevelState::GameMenu) drawSlotLines(pages, slots_, 0, slide_.offset());
}

DialogRequest LevelDialogs::keyDown(LevelState state, std::uint32_t keyCode) {
    switch (keyCode) {
        case KeyUp: moveCursor(-1, state); break;
        case KeyDown: moveCursor(1, state); break;
        case KeyEnter: return confirm(state);
        case KeyEscape:
        case KeyC: closeDialog(dialogOf(state).left); break;
        default: break;
    }
    return DialogRequest::None;
}

// The game menu goes round, the slots have ends.
void LevelDialogs::moveCursor(int step, LevelState state) {
    const int count = static_cast<int>(dialogOf(state).entries.size());
    const int moved = cursor_ + step;
    cursor_ = state == LevelState::GameMenu ? (moved + count) % count : std::clamp(moved, 0, count - 1);
    playEffect(SoundId::MenuMove);
}

DialogRequest LevelDialogs::confirm(LevelState state) {
    if (state == LevelState::LoadMenu && !slots_.info(cursor_).exists) {
        closeDialog(LevelState::OpenGameMenu);
        return DialogRequest::None;
    }
    playEffect(SoundId::MenuClick);
    return act(state, LevelState::LoadSlot, DialogRequest::Load);
}

void LevelDialogs::mouseDown(LevelState state, Position mouse, const KestInterface& pages) {
    pressed_ = entryAt(dialogOf(state), mouse, pages);
    if (!pressed_) return;
    cursor_ = *pressed_;
    playEffect(SoundId::MenuClick);
}

DialogRequest LevelDialogs::mouseUp(LevelState state, Position mouse, const KestInterface& pages) {
    const std::optional<int> pressed = std::exchange(pressed_, std::nullopt);
    if (pressed != cursor_ || pressed != entryAt(dialogOf(state), mouse, pages)) return DialogRequest::None;
    if (state == LevelState::LoadMenu && !slots_.info(cursor_).exists) return DialogRequest::None;
    return act(state, LevelState::Ended, DialogRequest::LoadByShutter);
}

// `stateThatLoads` and `load` say how a slot is loaded: a key does it at once, the mouse behind the shutter.
DialogRequest LevelDialogs::act(LevelState state, LevelState stateThatLoads, DialogRequest load) {
    if (state == LevelState::SaveMenu) {
        closeDialog(LevelState::OpenGameMenu);
        return DialogRequest::Save;
    }
    if (state == LevelState::LoadMenu) {
        closeDialog(stateThatLoads);
        return load;
    }
    closeDialog(kMenuChoices[static_cast<std::size_t>(cursor_)]);
    return DialogRequest::None;
}

}  // namespace grub
