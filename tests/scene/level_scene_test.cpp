#include "level_scene.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "bmp_writer.h"
#include "control/testing.h"
#include "fake_audio_device.h"
#include "fake_renderer.h"
#include "input_messages.h"
#include "level_list.h"
#include "level_writer.h"
#include "memory_source.h"
#include "recording_scene.h"
#include "scratch_directory.h"
#include "sound_bank.h"
#include "wav_writer.h"

namespace grub {
namespace {

constexpr std::uint32_t kLevel = 1;
constexpr std::uint32_t kShell = 2;

Bytes levelFileOf(const Drawing& drawing) { return writeLevelFile(drawnLevel(drawing)); }

SharedRef<SceneMessage> key(MessageType type, KeyCode code) {
    return SharedRef<SceneMessage>(new KeyMessage(type, code, 0));
}

/// The level scene as the program runs it, on the test's own thread, with strips and levels in memory and a clock that
/// moves while every thread waits. `at(n, what)` does something when the n-th screen is presented; the window is closed
/// at the last one.
class LevelSceneTest : public ::testing::Test {
protected:
    LevelSceneTest() {
        for (const LoadEntry& entry : loadingList())
            data_.put(entry.path(), writeBmp(1, 64 * 2, Bytes(std::size_t{128} * 3, 9)));
        levels_.put("levels\\typeblok.ini", drawnBlockTable());
        putLevel(0, {"@ . . . .", "# # # # #"});
        application_.registerScene(kLevel, scene_);
        application_.registerScene(kShell, shell_);
        renderer_.onEndFrame = [this] {
            ++screens_;
            for (const auto& [screen, action] : actions_)
                if (screen == screens_) action();
        };
        shell_.onRun = [this] { shellVisited_ = true; };
    }

    void putLevel(std::size_t index, const Drawing& drawing) {
        levels_.put(std::string(kLevelNames[index]), levelFileOf(drawing));
    }
    void at(int screen, std::function<void()> what) { actions_.emplace_back(screen, std::move(what)); }
    void press(KeyCode code) { scene_.post(key(MessageType::Pressed, code)); }
    void release(KeyCode code) { scene_.post(key(MessageType::Released, code)); }

    /// A new game from the first level until `screens` have been presented and the window is closed. The first one
    /// starts the loader, as the program's shell does.
    void playUntil(int screens) {
        at(screens, [this] { scene_.post(messageOf(MessageType::CloseRequest)); });
        scene_.requestNewGame(0);
        if (!std::exchange(loaderStarted_, true)) scene_.startLoadingPass();
        application_.run(kLevel);
    }

    platform::testing::HandDrivenClock clock_;
    FakeRenderer renderer_;
    MemorySource data_;
    MemorySource levels_;
    WindowlessApplication application_;
    RecordingScene shell_;
    LevelScene scene_{data_, levels_};
    bool shellVisited_ = false;
    int screens_ = 0;

private:
    std::vector<std::pair<int, std::function<void()>>> actions_;
    bool loaderStarted_ = false;
};

TEST_F(LevelSceneTest, LoadsBothListsThenShowsTheSettledLevelBeforePlayBegins) {
    std::vector<int> frames;  // from the screen on that shows the built level
    for (int screen = 1; screen <= 12; ++screen)
        at(screen, [&] {
            if (scene_.world()) frames.push_back(scene_.world()->frame());
            if (frames.size() == 1) press(KeyRight);  // before play begins: gives no command
        });
    int x = -1;
    at(30, [&] { x = scene_.world()->hero().x; });
    playUntil(31);
    EXPECT_EQ(scene_.animations().count(), 335) << "the second list was there when the level was built";
    ASSERT_GE(frames.size(), 4U);
    frames.resize(4);
    EXPECT_EQ(frames, (std::vector{0, 0, 1, 2})) << "built, introduction, play";
    EXPECT_EQ(x, 0);
}

TEST_F(LevelSceneTest, OneHandlerRunsBetweenTwoPresentsFortyMillisecondsApartAndPlayNeverCatchesUp) {
    std::string calls;
    std::vector<std::int64_t> times;
    std::vector<int> frames;
    renderer_.onBeginFrame = [&] { calls += 'h'; };
    at(9, [&] { calls.clear(); });
    for (int screen = 10; screen < 20; ++screen)
        at(screen, [&] {
            calls += 'p';
            times.push_back(clock_.now().count());
            frames.push_back(scene_.world()->frame());
        });
    at(18, [&] { clock_.advance(std::chrono::milliseconds(200)); });
    playUntil(20);
    EXPECT_TRUE(calls.starts_with("hphphphphphphphphphp")) << calls;
    ASSERT_EQ(times.size(), 10U);
    for (std::size_t i = 1; i < times.size(); ++i) EXPECT_EQ(frames[i], frames[i - 1] + 1);
    for (std::size_t i = 1; i < 9; ++i) EXPECT_EQ(times[i] - times[i - 1], 40);
}

/// Notes what it gets, passes nothing on and leaves after one attempt.
class WatchingSteering final : public Steering {
public:
    void prepare(WorldStart& start) override { start.score = 700; }
    void begin(World& world) override { note("begin", world); }
    void keyDown(World& world, PlayKey /*key*/) override { note("down", world); }
    void keyUp(World& world, PlayKey /*key*/) override { note("up", world); }
    void otherKey(World& world) override { note("other", world); }
    void beforeStep(World& world) override { lastStep = world.frame() + 1; }
    void afterFrame(const World& world) override { EXPECT_EQ(world.frame(), lastStep); }
    bool goesOnAfter(const World& world) override {
        note("over", world);
        return false;
    }
    void note(const char* what, const World& world) { told += what + std::string(world.ended() ? " ended " : " "); }

    std::string told;
    int lastStep = 0;
};

TEST_F(LevelSceneTest, SteeringComesBetweenTheKeysAndTheWorld) {
    WatchingSteering steering;
    scene_.setSteering(steering);
    at(10, [&] {
        press(KeyRight);
        press(keyCodeOf('F'));
        scene_.post(SharedRef<SceneMessage>(new MouseMessage(MessageType::Pressed, MouseButton::Right, 0, 0)));
        release(KeyRight);
        release(keyCodeOf('F'));
    });
    at(30, [&] {
        EXPECT_EQ(scene_.world()->hero().x, 0);
        EXPECT_EQ(scene_.world()->score(), 700);
    });
    playUntil(31);
    EXPECT_EQ(steering.told, "begin down other other up over ended ");
    EXPECT_TRUE(shellVisited_);
}

/// Plays to the right for 250 game frames and back for 30, unseen.
class HurryingSteering final : public Steering {
public:
    bool playUnseenFrame(World& world) override {
        if (world.frame() == 280) return false;
        world.keyDown(world.frame() < 250 ? PlayKey::Right : PlayKey::Left);
        world.step();
        world.finishFrame(true);
        camera.follow(world.hero().x, world.hero().y, world.map().width(), world.map().height());
        return true;
    }
    Camera camera;
};

TEST_F(LevelSceneTest, ALevelFileFromDiskTakesThePlaceOfTheListAndUnseenFramesMoveTheCamera) {
    const ScratchDirectory directory;
    const std::string row(60, '.');
    scene_.setLevel(directory.write("wide.lvl", levelFileOf(Drawing({"@" + row, std::string(61, '#')}))));
    HurryingSteering steering;
    scene_.setSteering(steering);
    at(10, [&] {
        EXPECT_GE(scene_.world()->frame(), 280);
        EXPECT_EQ(scene_.camera().scrollX(), steering.camera.scrollX());
    });
    playUntil(11);
    EXPECT_GT(steering.camera.scrollX(), 0);
}

TEST_F(LevelSceneTest, ALevelThatCannotBePlayedIsSaidInOneLine) {
    const ScratchDirectory directory;
    const std::string huge = directory.write("huge.lvl", {});
    std::filesystem::resize_file(huge, std::uintmax_t{5} << 30);  // a hole, it takes no room
    levels_.put(std::string(kLevelNames[1]), Bytes{1, 2, 3});
    const struct {
        const char* what;
        std::string level;
        const char* reason;
    } rows[] = {
        {"missing in the package", std::string(kLevelNames[7]), "there is no such file"},
        {"broken", std::string(kLevelNames[1]), "shorter than its header of 32 bytes"},
        {"huge", huge, "version 0 at byte 20, known are 1 to 4"},
        {"missing on disk", directory.file("none.lvl"), "shorter than its header of 32 bytes"},
        {"without a block table", std::string(kLevelNames[0]), "the block table levels\\typeblok.ini is missing"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        if (row.level == kLevelNames[0]) levels_.remove("levels\\typeblok.ini");
        LevelScene scene(data_, levels_);
        scene.enter();
        scene.setLevel(row.level);
        testing::internal::CaptureStderr();
        EXPECT_FALSE(scene.startLevel(0));
        EXPECT_EQ(testing::internal::GetCapturedStderr(), row.level + ": " + row.reason + "\n");
        EXPECT_TRUE(scene.hasRefusedLevel());
    }
}

TEST_F(LevelSceneTest, EveryKeyOfPlaySteersTheHero) {
    constexpr std::pair<KeyCode, PlayKey> kKeys[] = {
        {KeyUp, PlayKey::Up},       {KeyDown, PlayKey::Down},   {KeyLeft, PlayKey::Left}, {KeyRight, PlayKey::Right},
        {KeySpace, PlayKey::Space}, {KeyEnter, PlayKey::Enter}, {KeyZ, PlayKey::Z},       {KeyX, PlayKey::X},
        {KeyA, PlayKey::A},         {KeyB, PlayKey::B},
    };
    std::size_t compared = 0;
    at(30, [&] {
        World expected = *scene_.world();
        for (const auto& [code, playKey] : kKeys) {
            SCOPED_TRACE(code);
            scene_.handleMessage(key(MessageType::Pressed, code));
            expected.keyDown(playKey);
            EXPECT_EQ(*scene_.world(), expected);
            scene_.handleMessage(key(MessageType::Released, code));
            expected.keyUp(playKey);
            EXPECT_EQ(*scene_.world(), expected);
            ++compared;
        }
    });
    playUntil(31);
    EXPECT_EQ(compared, std::size(kKeys));
}

TEST_F(LevelSceneTest, ALostLevelIsTriedAgainAndANewGameStartsAfresh) {
    putLevel(0, {". @ k .",  //
                 "= = # #",  //
                 "# # # #"});
    for (const auto& [screen, code] : {std::pair{10, KeyRight}, {30, KeyLeft}}) {
        at(screen, [this, code] { press(code); });
        at(screen + 10, [this, code] { release(code); });
    }
    at(60, [&] { press(KeyZ); });
    at(80, [&] { press(KeyLeft); });  // into the hole, which closes ten seconds later
    at(400, [&] {
        EXPECT_EQ(scene_.world()->hero().x, 64) << "at the start again";
        EXPECT_EQ(scene_.world()->score(), 50);
        EXPECT_EQ(scene_.world()->lives(), kStartLives);
        EXPECT_EQ(scene_.world()->keysRemaining(), 0) << "a key taken half-way stays taken";
    });
    playUntil(401);
    at(413, [&] {
        EXPECT_EQ(scene_.world()->score(), 0);
        EXPECT_EQ(scene_.world()->keysRemaining(), 1);
        EXPECT_TRUE(scene_.animations().strip(90)->isAcquired());
    });
    playUntil(414);
    EXPECT_GE(screens_, 414);
    EXPECT_FALSE(scene_.animations().strip(90)->isAcquired()) << "textures live during a visit only";
}

TEST_F(LevelSceneTest, AWindowClosedWhileNothingIsBuiltLeavesAtOnce) {
    playUntil(1);
    EXPECT_TRUE(shellVisited_);
    EXPECT_LE(screens_, 2);
}

TEST_F(LevelSceneTest, AWonLevelLeadsToTheNextOneThatThePackageHolds) {
    putLevel(0, {"E k @", "# # #"});
    putLevel(3, {"@ .", "# #"});
    int index = 0;
    at(9, [&] { press(KeyLeft); });
    at(60, [&] { index = scene_.levelIndex(); });
    playUntil(61);
    EXPECT_EQ(index, 3);
}

TEST_F(LevelSceneTest, ALoaderThatIsStoppedLoadsNothingMoreUntilItIsStartedAgain) {
    for (int round = 0; round < 50; ++round) {
        LevelScene scene(data_, levels_);
        scene.startLoadingPass();
        scene.stopLoading();
        const std::size_t textures = renderer_.textures.size();
        std::this_thread::yield();
        EXPECT_EQ(renderer_.textures.size(), textures);
        if (round % 10 != 0) continue;
        scene.startLoadingPass();
        while (!scene.loader().isComplete()) std::this_thread::yield();
        EXPECT_EQ(scene.animations().count(), 335);
    }
}

TEST_F(LevelSceneTest, PlaysSoundsAndMusicAndSetsTheVolumeOfWhatTheSecondPassLoads) {
    const auto log = FakeAudioDevice::install();
    MemorySource package;
    package.put("sound\\sound.ini", std::string("[music]\ngame1=200\ngame2=200\n[sound]\nsteps=126\nskull=148\n"));
    for (const std::size_t size : {126, 148, 200})
        package.put("sound\\" + std::to_string(size), writeWav({.samples = Bytes(size, 0)}));
    SoundBank bank(package);
    bank.load(false);
    SoundBank::setCurrent(&bank);
    at(10, [this] { press(KeyRight); });
    playUntil(30);
    const std::vector<std::string>& calls = log->calls;
    const auto place = [&](const char* call) { return std::ranges::find(calls, call) - calls.begin(); };
    EXPECT_LT(place("volume 148 99"), place("loop 200")) << "before the level begins";
    EXPECT_LT(place("volume 200 71"), place("loop 200")) << "music stays behind the effects";
    EXPECT_LT(place("loop 200"), place("play 126")) << "he walks to music";
    EXPECT_EQ(std::ranges::count(calls, "loop 200"), 1);
    EXPECT_EQ(std::ranges::count(calls, "stop music 200"), 1);
}

}  // namespace
}  // namespace grub
