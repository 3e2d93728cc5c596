#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "animation_table.h"
#include "engine_timer.h"
#include "input_messages.h"
#include "level_loader.h"
#include "level_sound.h"
#include "level_view.h"
#include "resource_loader.h"
#include "resource_source.h"
#include "scene.h"
#include "steering.h"
#include "world.h"

namespace grub {

/// What the level scene does in each game frame. The numbers are those of saved and recorded data.
enum class LevelState : int {
    Intro = 0,       ///< the level is shown before play begins
    Playing = 1,     ///< the world steps
    Ended = 2,       ///< the attempt is over, `LossCause` says why
    LoadSlot = 18,   ///< survives `enter`, unlike every other state
    FirstLoad = 22,  ///< waits for the loader, then builds the level
};

/// Scene 1: the screen on which a level is played, 25 game frames a second. Owns the world, the strips and the loader
/// thread that fetches them. One level is built at a time.
class LevelScene final : public Scene {
public:
    /// `data` holds the picture files, `levels` the level files and the block table; both outlive the scene.
    LevelScene(ResourceSource& data, ResourceSource& levels);
    /// Waits for the loader.
    ~LevelScene() override;

    void handleMessage(const SharedRef<SceneMessage>& message) override;
    bool enter() override;
    void leave() override;
    void run() override;

    /// The next `enter` begins a new game at this level (0 to 49) with three lives and no points.
    void requestNewGame(int startIndex) { newGameAt_ = startIndex; }
    /// Plays this level in place of every level of the list: a name of the list, or the path of a level file on disk.
    void setLevel(std::string nameOrPath) { levelInPlace_ = std::move(nameOrPath); }
    /// Puts `steering` between the player's keys and the world; it must outlive the scene's last visit.
    void setSteering(Steering& steering) { steering_ = &steering; }
    /// Starts the loader thread on the first list of strips, or on the second once the first is there.
    void startLoadingPass();
    /// Tells the loader to stop and waits until it has; nothing is loaded any more until a pass is started again.
    void stopLoading();

    /// Builds a level and settles it. False for a level that cannot be built: the reason is then a line on standard
    /// error and in the log.
    bool startLevel(int index);
    /// Whether `startLevel` has ever returned false. After the last visit, any thread may ask.
    [[nodiscard]] bool hasRefusedLevel() const { return hasRefusedLevel_; }
    /// Takes down what `startLevel` built.
    void teardownLevel();

    /// The state of play, for tests and tools. The world is null while no level is built.
    [[nodiscard]] LevelState state() const { return state_; }
    [[nodiscard]] int levelIndex() const { return levelIndex_; }
    [[nodiscard]] const World* world() const { return world_ ? &*world_ : nullptr; }
    [[nodiscard]] const Camera& camera() const { return camera_; }
    [[nodiscard]] const LevelSound& sound() const { return sound_; }
    [[nodiscard]] const AnimationTable& animations() const { return animations_; }
    [[nodiscard]] const ResourceLoader& loader() const { return loader_; }
    /// Key code of the last key pressed.
    [[nodiscard]] std::uint32_t lastKey() const { return lastKey_; }

private:
    void pass();
    void drawFrame();
    void presentFrame();
    void sleepUntilDue();

    void runState();
    void firstLoad();
    void intro();
    void playing();
    void ended();
    void updateCamera();
    void drawWorld();

    void loadStep(int step);
    std::optional<LevelMap> loadMap(int index);
    int nextLevel() const;
    void leaveToShell();
    void endAttempt(LossCause cause);

    void keyDown(const KeyMessage& key);
    void keyUp(const KeyMessage& key);
    void openGameMenu();

    ResourceSource& levels_;
    LevelLoader levelLoader_;
    AnimationTable animations_;
    std::unique_ptr<Timer> gameTimer_;         // there while the scene is current
    std::optional<World> world_;               // there while a level is built
    std::vector<CellPosition> collectedKeys_;  // keys that stay taken when the level is tried again
    Camera camera_;
    LevelSound sound_;
    LevelState state_ = LevelState::FirstLoad;
    std::optional<int> newGameAt_;
    std::string levelInPlace_;  // played in place of every level of the list; empty when the list is played
    Steering ownSteering_;
    Steering* steering_ = &ownSteering_;
    int levelIndex_ = 0;
    int lives_ = 0;
    int score_ = 0;
    std::uint32_t lastKey_ = 0;
    bool tick_ = false;       // 40 ms have passed
    bool canDraw_ = false;    // the last screen has been presented
    bool frameOpen_ = false;  // between beginFrame and endFrame
    bool quit_ = false;
    bool hasRefusedLevel_ = false;
    std::atomic<bool> resourcesLoaded_ = false;  // the first list is there, the second has been started
    ResourceLoader loader_;                      // last: its thread uses the members above
};

}  // namespace grub
