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

using platform::testing::HandDrivenClock;

constexpr std::uint32_t kLevel = 1;
constexpr std::uint32_t kShell = 2;

const Drawing kCorridor{"@ . . . .", "# # # # #"};

Bytes levelFileOf(const Drawing& drawing) { return writeLevelFile(drawnLevel(drawing)); }

SharedRef<SceneMessage> key(MessageType type, KeyCode code) {
    return SharedRef<SceneMessage>(new KeyMessage(type, code, 0));
}

/// The level scene as the program runs it, on the test's own thread, with pictures and levels in memory and a clock
/// that moves while everybody waits. `at(n, what)` does something when the n-th picture is presented; the window is
/// closed at the last one.
class LevelSceneTest : public ::testing::Test {
protected:
    LevelSceneTest() {
        for (const LoadEntry& entry : loadingList())
            data_.put(entry.path(), writeBmp(1, 64 * 2, Bytes(std::size_t{128} * 3, 9)));
        levels_.put("levels\\typeblok.ini", drawnBlockTable());
        putLevel(0, kCorridor);
        application_.registerScene(kLevel, scene_);
        application_.registerScene(kShell, shell_);
        renderer_.onEndFrame = [this] { presented(); };
        shell_.onRun = [this] { shellVisited_ = true; };
    }

    void putLevel(int index, const Drawing& drawing) {
        levels_.put(std::string(kLevelNames[static_cast<std::size_t>(index)]), levelFileOf(drawing));
    }

    void at(int picture, std::function<void()> what) { actions_.emplace_back(picture, std::move(what)); }
    void press(KeyCode code) { scene_.post(key(MessageType::Pressed, code)); }
    void release(KeyCode code) { scene_.post(key(MessageType::Released, code)); }
    void close() { scene_.post(messageOf(MessageType::CloseRequest)); }

    /// A new game from level `index` until `pictures` have been presented and the window is closed. The first one
    /// starts the loader, as the program's shell does.
    void playFrom(int index, int pictures) {
        at(pictures, [this] { close(); });
        scene_.requestNewGame(index);
        if (!std::exchange(loaderStarted_, true)) scene_.startLoadingPass();
        application_.run(kLevel);
    }

    HandDrivenClock clock_;
    platform::testing::MessageBoxRecorder boxes_;
    FakeRenderer renderer_;
    MemorySource data_;
    MemorySource levels_;
    WindowlessApplication application_;
    RecordingScene shell_;
    LevelScene scene_{data_, levels_};
    bool shellVisited_ = false;
    int pictures_ = 0;

private:
    void presented() {
        ++pictures_;
        for (const auto& [picture, action] : actions_)
            if (picture == pictures_) action();
    }

    std::vector<std::pair<int, std::function<void()>>> actions_;
    bool loaderStarted_ = false;
};

TEST_F(LevelSceneTest, LoadsBothListsThenBuildsTheLevelAndShowsItBeforePlayBegins) {
    std::vector<LevelState> states;
    std::vector<int> frames;
    for (int picture = 1; picture <= 12; ++picture)
        at(picture, [&] {
            states.push_back(scene_.state());
            frames.push_back(scene_.world() ? scene_.world()->frame() : -1);
        });
    playFrom(0, 12);
    EXPECT_EQ(scene_.animations().frameCounts().of(90), 2) << "the second list was there when the level was built";
    const auto intro = std::find(states.begin(), states.end(), LevelState::Intro);
    ASSERT_NE(intro, states.end());
    const auto built = static_cast<std::size_t>(intro - states.begin());
    ASSERT_LT(built + 3, frames.size());
    EXPECT_EQ(frames[built], 0) << "the settling step is taken before the first picture";
    EXPECT_EQ(frames[built + 1], 0) << "the introduction shows it";
    EXPECT_EQ(frames[built + 2], 1);
    EXPECT_EQ(frames[built + 3], 2);
}

TEST_F(LevelSceneTest, OneHandlerRunsBetweenTwoPresentsFortyMillisecondsApart) {
    std::vector<std::string> calls;
    std::vector<std::int64_t> times;
    renderer_.onBeginFrame = [&] { calls.emplace_back("handler"); };
    for (int picture = 10; picture < 20; ++picture)
        at(picture, [&] {
            calls.emplace_back("present");
            times.push_back(clock_.now().count());
        });
    at(9, [&] { calls.clear(); });
    playFrom(0, 20);
    ASSERT_EQ(times.size(), 10U);
    for (std::size_t i = 1; i < times.size(); ++i) EXPECT_EQ(times[i] - times[i - 1], 40);
    ASSERT_GE(calls.size(), 2 * times.size());
    for (std::size_t i = 0; i < times.size(); ++i) {
        EXPECT_EQ(calls[2 * i], "handler");
        EXPECT_EQ(calls[2 * i + 1], "present");
    }
}

TEST_F(LevelSceneTest, PlayDoesNotCatchUpAfterASlowPass) {
    int before = 0;
    int after = 0;
    at(12, [&] {
        before = scene_.world()->frame();
        clock_.advance(std::chrono::milliseconds(200));
    });
    at(13, [&] { after = scene_.world()->frame(); });
    playFrom(0, 14);
    EXPECT_EQ(after, before + 1);
}

/// Notes what it is told, lets nothing through and leaves after one attempt.
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

    std::vector<std::string> told;
    int lastStep = 0;

private:
    void note(const char* what, const World& world) {
        told.push_back(what + std::string(world.ended() ? " ended" : ""));
    }
};

TEST_F(LevelSceneTest, SteeringComesBetweenTheKeysAndTheWorld) {
    WatchingSteering steering;
    scene_.setSteering(steering);
    int x = -1;
    int score = -1;
    at(10, [&] {
        press(KeyRight);
        press(keyCodeOf('F'));
        scene_.post(SharedRef<SceneMessage>(new MouseMessage(MessageType::Pressed, MouseButton::Right, 0, 0)));
        release(KeyRight);
        release(keyCodeOf('F'));
    });
    at(30, [&] {
        x = scene_.world()->hero().x;
        score = scene_.world()->score();
    });
    playFrom(0, 31);
    EXPECT_EQ(steering.told, (std::vector<std::string>{"begin", "down", "other", "other", "up", "over ended"}));
    EXPECT_EQ(x, 0);
    EXPECT_EQ(score, 700);
    EXPECT_TRUE(shellVisited_);
}

TEST_F(LevelSceneTest, KeysSteerTheHeroAndTheirReleaseStopsHim) {
    int x = -1;
    at(10, [&] { press(KeyRight); });
    at(20, [&] { release(KeyRight); });
    at(40, [&] { x = scene_.world()->hero().x; });
    playFrom(0, 41);
    EXPECT_EQ(x, 64) << "three frames to turn, seven of walking, then on to the next cell";
    EXPECT_EQ(scene_.lastKey(), KeyRight);
}

TEST_F(LevelSceneTest, ALevelFileFromDiskTakesThePlaceOfEveryLevel) {
    const ScratchDirectory directory;
    scene_.setLevel(directory.write("mine.lvl", levelFileOf({"@ . .", "# # #"})));
    at(10, [&] { EXPECT_EQ(scene_.world()->map().width(), 3); });
    playFrom(0, 11);
    EXPECT_GE(pictures_, 10);
}

TEST_F(LevelSceneTest, ALevelFileFromDiskMayBeAnything) {
    const ScratchDirectory directory;
    const std::string huge = directory.write("huge.lvl", {});
    std::filesystem::resize_file(huge, std::uintmax_t{5} << 30);  // a hole, it takes no room
    scene_.enter();
    for (const std::string& path : {huge, directory.file("none.lvl"), directory.path().string()}) {
        scene_.setLevel(path);
        EXPECT_FALSE(scene_.startLevel(0)) << path;
    }
    scene_.leave();
}

TEST_F(LevelSceneTest, EveryKeyOfPlaySteersTheHero) {
    constexpr std::pair<KeyCode, PlayKey> kKeys[] = {
        {KeyUp, PlayKey::Up},       {KeyDown, PlayKey::Down},   {KeyLeft, PlayKey::Left}, {KeyRight, PlayKey::Right},
        {KeySpace, PlayKey::Space}, {KeyEnter, PlayKey::Enter}, {KeyZ, PlayKey::Z},       {KeyX, PlayKey::X},
        {KeyA, PlayKey::A},         {KeyB, PlayKey::B},
    };
    int compared = 0;
    at(30, [&] {
        World expected = *scene_.world();
        for (const auto& [code, steering] : kKeys) {
            scene_.handleMessage(key(MessageType::Pressed, code));
            expected.keyDown(steering);
            EXPECT_EQ(*scene_.world(), expected) << code;
            scene_.handleMessage(key(MessageType::Released, code));
            expected.keyUp(steering);
            EXPECT_EQ(*scene_.world(), expected) << code;
            ++compared;
        }
    });
    playFrom(0, 31);
    EXPECT_EQ(compared, 10);
}

TEST_F(LevelSceneTest, AKeyPressedBeforePlayBeginsGivesNoCommand) {
    bool pressed = false;
    int x = -1;
    for (int picture = 1; picture < 12; ++picture)
        at(picture, [&] {
            if (scene_.state() == LevelState::Intro && !std::exchange(pressed, true)) press(KeyRight);
        });
    at(40, [&] { x = scene_.world()->hero().x; });
    playFrom(0, 41);
    EXPECT_TRUE(pressed);
    EXPECT_EQ(x, 0);
}

TEST_F(LevelSceneTest, ALostLevelIsTriedAgainAndANewGameStartsAfresh) {
    putLevel(0, {". @ k .",  //
                 "= = # #",  //
                 "# # # #"});
    int score = 0;
    at(10, [&] { press(KeyRight); });
    at(20, [&] { release(KeyRight); });
    at(30, [&] { press(KeyLeft); });
    at(40, [&] { release(KeyLeft); });
    at(60, [&] { press(KeyZ); });
    at(80, [&] { press(KeyLeft); });  // into the hole, which closes ten seconds later
    at(300, [&] { score = scene_.world()->score(); });
    at(400, [&] {
        EXPECT_EQ(scene_.world()->hero().x, 64) << "at the start again";
        EXPECT_EQ(scene_.world()->score(), 50);
        EXPECT_EQ(scene_.world()->lives(), kStartLives);
        EXPECT_EQ(scene_.world()->keysRemaining(), 0) << "a key taken half-way stays taken";
        EXPECT_EQ(scene_.levelIndex(), 0);
    });
    playFrom(0, 401);
    EXPECT_EQ(score, 50);
    const int now = pictures_;
    int keys = 0;
    at(now + 12, [&] {
        score = scene_.world()->score();
        keys = scene_.world()->keysRemaining();
    });
    playFrom(0, now + 13);
    EXPECT_EQ(score, 0);
    EXPECT_EQ(keys, 1);
}

TEST_F(LevelSceneTest, AMouseButtonIsNoKey) {
    // Button 12 has the number of a key.
    at(10, [&] {
        scene_.post(SharedRef<SceneMessage>(new MouseMessage(MessageType::Pressed, MouseButton::Right, 10, 10)));
    });
    playFrom(0, 14);
    EXPECT_EQ(scene_.lastKey(), 0U);
}

TEST_F(LevelSceneTest, AMouseButtonKeepsTheHeroFromGrowingRestless) {
    at(30, [&] {
        World expected = *scene_.world();
        scene_.handleMessage(
            SharedRef<SceneMessage>(new MouseMessage(MessageType::Pressed, MouseButton::Right, 10, 10)));
        EXPECT_NE(*scene_.world(), expected);
        expected.restartIdleTimer();
        EXPECT_EQ(*scene_.world(), expected);
    });
    playFrom(0, 31);
    EXPECT_GE(pictures_, 30);
}

TEST_F(LevelSceneTest, EscapeTheKeyCAndAClosedWindowLeadBackToTheShell) {
    for (const KeyCode code : {KeyEscape, KeyC}) {
        shellVisited_ = false;
        const int now = pictures_;
        at(now + 12, [this, code] { press(code); });
        playFrom(0, now + 1000);
        EXPECT_TRUE(shellVisited_);
        EXPECT_LT(pictures_, now + 20);
        EXPECT_EQ(scene_.world(), nullptr) << "the level is taken down when the scene is left";
    }
}

TEST_F(LevelSceneTest, AWindowClosedWhileNothingIsBuiltLeavesAtOnce) {
    playFrom(0, 1);
    EXPECT_TRUE(shellVisited_);
    EXPECT_LE(pictures_, 2);
}

TEST_F(LevelSceneTest, AWonLevelLeadsToTheNextOneThatThePackageHolds) {
    putLevel(0, {"E k @", "# # #"});
    putLevel(3, kCorridor);
    std::vector<int> indices;
    at(9, [&] { press(KeyLeft); });
    at(60, [&] { indices.push_back(scene_.levelIndex()); });
    playFrom(0, 61);
    EXPECT_EQ(indices, std::vector{3});
}

TEST_F(LevelSceneTest, ALevelThatIsMissingOrBrokenIsReportedAndLeft) {
    levels_.put(std::string(kLevelNames[0]), Bytes{1, 2, 3});
    playFrom(0, 1000);
    EXPECT_TRUE(shellVisited_);
    EXPECT_LT(pictures_, 20);
    shellVisited_ = false;
    const int now = pictures_;
    playFrom(7, 1000);
    EXPECT_TRUE(shellVisited_);
    EXPECT_LT(pictures_, now + 20);
}

TEST_F(LevelSceneTest, EveryVisitHasItsPicturesAndANewWorld) {
    for (int visit = 0; visit < 3; ++visit) {
        const int now = pictures_;
        std::size_t drawn = 0;
        bool textures = false;
        at(now + 12, [&] {
            drawn = renderer_.drawn.size();
            textures = scene_.animations().strip(333)->isAcquired();
        });
        at(now + 15, [&] { close(); });
        scene_.requestNewGame(0);
        if (visit == 0) scene_.startLoadingPass();
        application_.run(kLevel);
        EXPECT_FALSE(scene_.animations().strip(90)->isAcquired()) << "textures live during a visit only";
        EXPECT_GT(drawn, 0U);
        EXPECT_TRUE(textures);
        renderer_.drawn.clear();
    }
}

TEST_F(LevelSceneTest, ALoaderThatIsStoppedLoadsNothingMoreUntilItIsStartedAgain) {
    for (int round = 0; round < 50; ++round) {
        LevelScene scene(data_, levels_);
        scene.startLoadingPass();
        scene.stopLoading();
        const std::size_t textures = renderer_.textures.size();
        EXPECT_TRUE(scene.animations().isStopped());
        std::this_thread::yield();
        EXPECT_EQ(renderer_.textures.size(), textures);
        if (round % 10 != 0) continue;
        scene.startLoadingPass();
        while (!scene.loader().isComplete()) std::this_thread::yield();
        EXPECT_EQ(scene.animations().count(), 335);
    }
}

/// A bank with one effect of each phase and the two tracks of the game, named by their sizes.
class BankOfFour {
public:
    BankOfFour() {
        package_.put("sound\\sound.ini", std::string("[music]\ngame1=a\ngame2=a\n[sound]\nsteps=b\nskull=c\n"));
        package_.put("sound\\a", writeWav({.samples = Bytes(200, 0)}));
        package_.put("sound\\b", writeWav({.samples = Bytes(126, 0)}));
        package_.put("sound\\c", writeWav({.samples = Bytes(148, 0)}));
        bank_.load(false);
        SoundBank::setCurrent(&bank_);
    }

private:
    MemorySource package_;
    SoundBank bank_{package_};
};

TEST_F(LevelSceneTest, PlaysSoundsAndMusicAndSetsTheVolumeOfWhatTheSecondPassLoads) {
    const auto log = FakeAudioDevice::install();
    const BankOfFour bank;
    at(10, [this] { press(KeyRight); });
    playFrom(0, 30);
    const std::vector<std::string>& calls = log->calls;
    const auto place = [&](const char* call) { return std::find(calls.begin(), calls.end(), call) - calls.begin(); };
    EXPECT_LT(place("volume 148 99"), place("loop 200")) << "before the level begins";
    EXPECT_LT(place("loop 200"), place("play 126")) << "he walks to music";
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "loop 200"), 1);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "stop music 200"), 1);
}

}  // namespace
}  // namespace grub
