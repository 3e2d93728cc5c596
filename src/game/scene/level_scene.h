#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "end_picture.h"
#include "frame_pacer.h"
#include "game_run.h"
#include "input_messages.h"
#include "kest_interface.h"
#include "level_dialogs.h"
#include "level_resources.h"
#include "level_stage.h"
#include "level_state.h"
#include "resource_source.h"
#include "save_slots.h"
#include "scene.h"
#include "screen_transition.h"
#include "steering.h"

namespace grub {

/// What the shell shows when play has been left.
enum class ExitCode : int {
    Normal = 0,
    FirstStart = 10,   ///< no game has been played yet: the opening is due
    MiddleComic = 14,  ///< the last level of the first world has been won
    FinalComic = 15,   ///< the last level has been won
};

/// Scene 1: the screen on which levels are played, 25 game frames a second. It switches between states; what they work
/// on lies beside it: the run through the game, the level on the stage, the strips, the dialogs, the slots.
class LevelScene final : public Scene {
public:
    /// `data` holds the picture files, `levels` the level files and the block table; both outlive the scene.
    LevelScene(ResourceSource& data, ResourceSource& levels);

    void handleMessage(const SharedRef<SceneMessage>& message) override;
    bool enter() override;
    void leave() override;
    void run() override;

    /// Gives the scene the interface with its dialogs and end pictures. Due before the first visit; it must outlive the
    /// last one.
    void setGameInterface(KestInterface& pages) { pages_ = &pages; }
    /// Plays this level in place of every level of the list: a name of the list, or the path of a level file on disk.
    void setLevel(std::string nameOrPath) { stage_.setLevel(std::move(nameOrPath)); }
    /// Puts `steering` between the player's keys and the world; it must outlive the scene's last visit.
    void setSteering(Steering& steering) { stage_.setSteering(steering); }
    /// The loader thread: see `LevelResources`.
    void startLoadingPass() { resources_.startLoadingPass(); }
    void stopLoading() { resources_.stopLoading(); }

    /// The next `enter` begins a new game at this level (0 to 49) with three lives and no points.
    void requestNewGame(int startIndex) { newGameAt_ = startIndex; }
    /// The next `enter` goes on with the game of the slot to load.
    void requestLoad() { loadRequested_ = true; }
    /// The slot (0 to 2) that was chosen last to be loaded.
    [[nodiscard]] int slotToLoad() const { return slotToLoad_; }
    void chooseSlot(int slot) { slotToLoad_ = slot; }

    /// The volumes of all sounds of the game.
    void setVolumes(Volumes volumes) { stage_.sound().setVolumes(volumes); }
    /// Gives them to all sounds that are loaded now; a load of sounds forgets them.
    void applyVolumes() const { stage_.sound().applyVolumes(); }

    /// Why play was left last; FirstStart before the first visit.
    [[nodiscard]] ExitCode exitCode() const { return exitCode_; }
    /// Whether the window was to be closed during the last visit.
    [[nodiscard]] bool isCloseRequested() const { return closeRequested_; }
    [[nodiscard]] LevelState state() const { return state_; }
    /// The game as it stands between two attempts; the numbers of the attempt on the stage are those of its world.
    [[nodiscard]] const GameRun& game() const { return run_; }
    [[nodiscard]] const LevelStage& stage() const { return stage_; }
    [[nodiscard]] const LevelDialogs& dialogs() const { return dialogs_; }
    [[nodiscard]] const AnimationTable& animations() const { return resources_.animations(); }
    [[nodiscard]] SaveSlots& slots() { return slots_; }
    /// Where the mouse moved last, in pixels of the screen; two scenes that hand over tell each other.
    [[nodiscard]] Position mouse() const { return mouse_; }
    void setMouse(Position mouse) { mouse_ = mouse; }
    /// Whether no key and no mouse button has been released since one was pressed.
    [[nodiscard]] bool isKeyHeld() const { return keyHeld_; }
    /// Key code of the last key pressed.
    [[nodiscard]] std::uint32_t lastKey() const { return lastKey_; }

private:
    // The frame loop (level_scene.cpp)
    void pass();
    void giveUp();
    void leaveToShell();
    void notePress(const SceneMessage& message);
    void keyDown(std::uint32_t keyCode);
    void mouseMessage(const MouseMessage& message);
    void obey(DialogRequest request);

    // The states (level_states.cpp): a handler each, called once a game frame
    void runState();
    void intro();
    void playing();
    void ended();
    void endScreen();
    void endFade();
    void gameOver();
    void dialog();
    void openSaveMenu();
    void openLoadMenu();
    void openGameMenu();
    void quit();
    void loadSlot();
    void firstLoad();

    // What the states share
    bool awaitResources();
    void enterLevel();
    void loadGame(int slot);
    void afterAttempt();
    void afterWin();
    void restartAttempt(int livesTaken);
    bool drawEndPicture();
    void drawBehindTransition();
    void drawFrozenLevel();
    void callGameMenu();
    void showDialog(LevelState state);

    LevelLoader levelLoader_;
    LevelResources resources_;
    LevelStage stage_;
    SaveSlots slots_;
    LevelDialogs dialogs_{slots_};
    ResourceSource& data_;
    KestInterface* pages_ = nullptr;              // the game interface
    std::optional<ScreenTransition> transition_;  // there while the scene is current
    FramePacer pacer_;
    GameRun run_;
    LevelState state_ = LevelState::FirstLoad;
    LossCause cause_ = LossCause::Quit;  // why the attempt ended; means something in Ended
    EndPicture endPicture_;              // of the attempt that ended last
    ExitCode exitCode_ = ExitCode::FirstStart;
    std::optional<int> newGameAt_;
    int slotToLoad_ = 0;
    bool loadRequested_ = false;  // the next `enter` loads it
    std::uint32_t lastKey_ = 0;
    Position mouse_;
    bool keyHeld_ = false;
    bool pressedAnew_ = false;     // something has been pressed since the picture of the end came
    bool closeRequested_ = false;  // the window is to close; until the scene is left
    bool quit_ = false;            // ends the frame loop
};

}  // namespace grub
