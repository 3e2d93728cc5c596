#pragma once

#include <cstdint>
#include <optional>

#include "dialog_slide.h"
#include "kest_interface.h"
#include "level_state.h"
#include "save_slots.h"

namespace grub {

/// What a choice in a dialog asks of the scene, beside the state that follows when the dialog has gone.
enum class DialogRequest : std::uint8_t {
    None,
    Save,           ///< write the slot under the cursor
    Load,           ///< the slot under the cursor is the one to load
    LoadByShutter,  ///< the same behind a shutter that closes: the attempt ends
};

/// The three dialogs over the frozen level: the game menu, and the slots to save to and to load from. They share a
/// cursor and a slide. Opening and drawing a dialog makes its layout the current one of the game interface.
class LevelDialogs {
public:
    /// The slots that the dialogs show; they must outlive the dialogs.
    explicit LevelDialogs(SaveSlots& slots) : slots_(slots) {}

    /// Opens the dialog of a state (GameMenu, SaveMenu or LoadMenu) with the cursor on its first entry.
    void showDialog(LevelState state, KestInterface& pages);
    /// One game frame of the slide. Returns the state that follows once the dialog has gone.
    std::optional<LevelState> step() { return slide_.step(); }
    /// Draws the dialog of a state where its slide stands.
    void draw(LevelState state, KestInterface& pages) const;

    /// The player presses a key. Keys count while the dialog slides, too.
    DialogRequest keyDown(LevelState state, std::uint32_t keyCode);
    /// The player presses the left mouse button at a point: an entry there gets the cursor.
    void mouseDown(LevelState state, Position mouse, const KestInterface& pages);
    /// The player releases it. An entry acts when the button was pressed over it in this dialog: a click that began
    /// elsewhere must not overwrite a slot.
    DialogRequest mouseUp(LevelState state, Position mouse, const KestInterface& pages);

    /// The entry that is highlighted, from 0; in the slot dialogs that is the slot.
    [[nodiscard]] int cursor() const { return cursor_; }

private:
    void closeDialog(LevelState next) { slide_.close(next); }
    void moveCursor(int step, LevelState state);
    DialogRequest confirm(LevelState state);
    DialogRequest act(LevelState state, LevelState stateThatLoads, DialogRequest load);

    SaveSlots& slots_;
    DialogSlide slide_;
    int cursor_ = 0;
    std::optional<int> pressed_;  // the entry over which the mouse button went down
};

}  // namespace grub
