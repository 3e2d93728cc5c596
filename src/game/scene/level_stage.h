#pragma once

#include <optional>
#include <string>

#include "animation_table.h"
#include "game_run.h"
#include "level_loader.h"
#include "level_sound.h"
#include "level_view.h"
#include "panel.h"
#include "resource_source.h"
#include "steering.h"
#include "world.h"

namespace grub {

/// The level that is being played, as it is seen and heard: its world, camera, panel, sounds and music, and the
/// steering between the player's keys and the world. One level is built at a time. Game thread only.
class LevelStage {
public:
    /// `data` holds the panels, `levels` the level files and the block table, `animations` the strips; all outlive the
    /// stage.
    LevelStage(ResourceSource& data, LevelLoader& levels, AnimationTable& animations)
        : levels_(levels), animations_(animations), panel_(data) {}

    /// Plays this level in place of every level of the list: a name of the list, or the path of a level file on disk.
    void setLevel(std::string nameOrPath) { levelInPlace_ = std::move(nameOrPath); }
    /// Puts `steering` between the player's keys and the world; it must outlive the last visit of the scene.
    void setSteering(Steering& steering) { steering_ = &steering; }

    /// Builds the level of the run, settles it, notes the state of the run at its start, and starts its music. The
    /// attempt takes `livesTaken` of the lives. False for a level that cannot be built: the reason is then a line on
    /// standard error and in the log.
    bool startLevel(GameRun& run, int livesTaken);
    /// Whether `startLevel` has ever returned false.
    [[nodiscard]] bool hasRefusedLevel() const { return hasRefusedLevel_; }
    /// Hands the score, the lives and the keys of an attempt that is over back to the run. Returns false when the
    /// steering does not want to go on. `teardownLevel` follows.
    bool finishAttempt(GameRun& run);
    /// Takes down what `startLevel` built, if anything is built.
    void teardownLevel();

    /// Null while no level is built.
    [[nodiscard]] const World* world() const { return world_ ? &*world_ : nullptr; }
    [[nodiscard]] bool isBuilt() const { return world_.has_value(); }
    [[nodiscard]] const Camera& camera() const { return camera_; }
    [[nodiscard]] LevelSound& sound() { return sound_; }
    [[nodiscard]] const LevelSound& sound() const { return sound_; }

    // What follows needs a level that is built.

    /// A game frame of play: keys of the steering, step, sounds. `drawLevel` follows.
    void worldStep();
    /// What drawing advances in a game frame that only shows the level. `drawLevel` follows.
    void holdStill() { world_->finishFrame(false); }
    void drawLevel();
    /// Tells the steering that the next screen shows the game frame that play has reached, with nothing in front of it.
    void announceFrame() { steering_->beforePicture(*world_); }
    /// Draws the panel over what has been drawn.
    void drawPanel();
    /// Ends the attempt from outside.
    void end(LossCause cause) { world_->end(cause); }

    /// The player presses or releases a key or a mouse button. A key reaches the world as a command only while
    /// `playing`; at other times it shows that the player is there, as other keys and mouse buttons do. A release
    /// always reaches it.
    void keyDown(std::uint32_t keyCode, bool playing);
    void keyUp(std::uint32_t keyCode);
    void mouseDown() { steering_->otherKey(*world_); }

private:
    std::optional<LevelMap> loadMap(int index);
    void settle();
    void updateCamera();

    LevelLoader& levels_;
    AnimationTable& animations_;
    Panel panel_;
    std::optional<World> world_;  // there while a level is built
    Camera camera_;
    LevelSound sound_;
    std::string levelInPlace_;  // played in place of every level of the list; empty when the list is played
    Steering ownSteering_;
    Steering* steering_ = &ownSteering_;
    bool hasRefusedLevel_ = false;
};

}  // namespace grub
