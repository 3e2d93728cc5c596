// Random games: after every frame the world is searched for what must never be, and a twin must play the same.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "happenings.h"
#include "level_list.h"
#include "level_loader.h"
#include "level_writer.h"
#include "loading_list.h"
#include "resource_package.h"
#include "world_faults.h"

namespace grub {
namespace {

constexpr int kSuiteFrames = 300000;
/// An attempt that has not ended by this frame is given up.
constexpr int kLongest = 1500;
/// How often the twin is compared, and how often every second game replaces it by a copy.
constexpr int kCompareEvery = 100;
constexpr int kCopyEvery = 400;

/// A level to play at random.
struct SoakLevel {
    std::string name;  // in the level list, or which drawing by chance it is
    LevelMap map;
    int levelIndex;
};

/// All levels of this build's package.
std::vector<SoakLevel> packagedLevels() {
    ResourcePackage package(EngineString(GRUB_DATA_DIR "/levels.pak"));
    LevelLoader loader(package);
    loader.loadBlockTypes();
    for (const LoadEntry& entry : loadingList()) {
        if (entry.spriteNumber >= 0)
            loader.spriteNumbers().addSpriteNumber(entry.spriteNumber, static_cast<std::int16_t>(entry.id));
    }
    std::vector<SoakLevel> levels;
    for (int index = 0; index < static_cast<int>(kLevelCount); ++index) {
        const std::string name(kLevelNames[static_cast<std::size_t>(index)]);
        std::string reason;
        if (auto map = loader.load(name, reason)) levels.push_back({name, *std::move(map), index});
    }
    return levels;
}

/// A level of any size that is drawn by chance, the same for the same number. See drawingByChance.
SoakLevel levelByChance(int number) {
    WorldRandom random(static_cast<std::uint32_t>(number));
    for (int i = 0; i < 3; ++i) random.next();  // neighbouring seeds begin alike
    const bool isLargest = number % 100 == 1;
    const int width = isLargest ? kMaxMapSize : 2 + random.next() % 30;
    const int height = isLargest ? kMaxMapSize : 2 + random.next() % 20;
    LevelMap map = mapFrom(drawingByChance(width, height, false, random));
    const int levelIndex = random.next() % 8;  // in one of eight no bonus comes by chance
    return {"map by chance " + std::to_string(number), std::move(map), levelIndex};
}

int fromEnvironment(const char* name, int usual) {
    const char* const text = std::getenv(name);
    return text == nullptr ? usual : std::atoi(text);
}

/// A player without a plan, the same for the same seed. He presses keys, directions more often than digs, and another
/// one when Grub has stood for a moment; now and then he lets him stand.
class RandomKeys {
public:
    explicit RandomKeys(std::uint32_t seed) : random_(seed) {}

    /// The keys before a step.
    void press(World& world) {
        const bool stands = world.hero().vx == 0 && world.hero().vy == 0;
        patience_ -= stands ? 1 : 0;
        if (--rest_ > 0 && patience_ > 0) return;
        rest_ = 1 + random_.next() % 100;
        patience_ = random_.next() % 64 == 0 ? 200 : 6;
        const int dice = random_.next() % 20;
        const auto key = static_cast<PlayKey>(dice < 10 ? dice : dice % 4);  // Up, Down, Left and Right come first
        const int what = random_.next() % 8;
        if (what == 0) world.restartIdleTimer();
        what < 2 ? world.keyUp(key) : world.keyDown(key);
    }

private:
    WorldRandom random_;
    int rest_ = 0;      // frames until the next key
    int patience_ = 0;  // the same while he stands
};

/// One attempt at a level under random keys. Everything in it follows from the number; a copy plays on alike. The
/// strips have 1 to 9 frames, so that digs and holes last differently.
struct SoakGame {
    SoakGame(const SoakLevel& level, int number)
        : keys(static_cast<std::uint32_t>(number) * 7919U),
          world(level.map,
                {.levelIndex = level.levelIndex, .seed = static_cast<std::uint32_t>(number), .collectedKeys = {}},
                AnimationFrameCounts::all(1 + number % 9)) {
        world.step();
    }
    void playFrame() {
        keys.press(world);
        world.step();
        world.finishFrame(true);
    }

    RandomKeys keys;
    World world;
};

/// Plays a game beside its twin, which never shows a frame twice. Returns the last frame.
int play(SoakGame& game, SoakGame twin, bool copies, Happenings& happenings) {
    while (!game.world.ended() && game.world.frame() < kLongest && !testing::Test::HasFailure()) {
        const World before = game.world;
        game.playFrame();
        twin.playFrame();
        const int frame = game.world.frame();
        addHappenings(happenings, before, game.world);
        EXPECT_EQ(faultOf(before, game.world), "") << "in frame " << frame;
        if (frame % kCompareEvery != 0 && !game.world.ended()) continue;
        EXPECT_EQ(twin.world.stateHash(), game.world.stateHash()) << "the twin went another way by frame " << frame;
        if (copies && frame % kCopyEvery == 0) twin = game;
        game.world.finishFrame(false);  // as behind a dialog
    }
    return game.world.frame();
}

TEST(Soak, RandomGamesBreakNoRule) {
    const int frames = fromEnvironment("GRUB_SOAK_FRAMES", kSuiteFrames);
    const int first = fromEnvironment("GRUB_SOAK_FIRST", 0);
    const std::vector<SoakLevel> packaged = packagedLevels();
    ASSERT_FALSE(packaged.empty());
    Happenings happenings;
    int number = first;
    int played = 0;
    std::uint64_t digest = 0;
    for (; played < frames; ++number) {
        const auto turn = static_cast<std::size_t>(number);
        const SoakLevel level = turn % 3 == 0 ? packaged[turn / 3 % packaged.size()] : levelByChance(number);
        SCOPED_TRACE("game " + std::to_string(number) + ", " + level.name);
        SoakGame game(level, number);
        played += play(game, SoakGame(level, number), number % 2 == 0, happenings);
        ASSERT_FALSE(HasFailure());
        digest = digest * 31 + game.world.stateHash();
    }
    std::cout << played << " frames in " << number - first << " games, digest " << std::hex << digest << std::dec
              << "; " << testing::PrintToString(happenings) << '\n';
    if (frames < kSuiteFrames) return;
    for (const char* what : {"end Dog", "end Lady", "end Rat", "end Pit", "end Won", "bonus 0", "bonus 1", "bonus 2",
                             "bonus 3", "bonus 4", "bonus 5", "dig", "regrown", "trapped 9", "struck "})
        EXPECT_TRUE(std::ranges::any_of(happenings, [&](const auto& seen) { return seen.first.starts_with(what); }))
            << "games that never show it prove nothing about: " << what;
}

}  // namespace
}  // namespace grub
