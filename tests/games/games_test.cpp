// Every recorded game comes out as recorded, and together they show what a level can do.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "game_player.h"
#include "game_text.h"
#include "happenings.h"
#include "level_list.h"
#include "play_content.h"
#include "resource_package.h"

namespace grub {
namespace {

std::vector<std::string> gameFilesIn(std::initializer_list<const char*> folders) {
    std::vector<std::string> files;
    for (const char* const folder : folders)
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
            if (entry.path().extension() == ".game") files.push_back(entry.path().string());
    std::ranges::sort(files);
    return files;
}

std::vector<std::string> gameFiles() { return gameFilesIn({GRUB_GAMES_DIR, GRUB_LEVELS_DIR}); }

class RecordedGames : public testing::Test {
protected:
    void SetUp() override {
        content_ = PlayContent::open(GRUB_DATA_DIR, error_);
        ASSERT_NE(content_, nullptr) << error_;
        ASSERT_GE(gameFiles().size(), 10U);
    }
    World worldOf(const RecordedGame& game, const std::string& file) {
        auto world = content_->worldOf(game, file, error_);
        EXPECT_TRUE(world) << error_;
        return std::move(*world);
    }

    std::string error_;
    std::unique_ptr<PlayContent> content_;
};

TEST_F(RecordedGames, ComeOutAsRecorded) {
    for (const std::string& file : gameFiles()) {
        SCOPED_TRACE(file);
        const auto game = loadGame(file, error_);
        ASSERT_TRUE(game) << error_;
        ASSERT_TRUE(game->isComplete());
        World world = worldOf(*game, file);
        EXPECT_TRUE(replay(*game, world)) << differenceAt(*game, world).value_or("") << "\n" << drawBoth(*game, world);
    }
}

TEST_F(RecordedGames, ShowEveryEndEveryBonusAndEveryFateOfEveryEnemy) {
    Happenings seen;
    for (const std::string& file : gameFilesIn({GRUB_GAMES_DIR})) {
        const auto game = loadGame(file, error_);
        ASSERT_TRUE(game) << error_;
        World world = worldOf(*game, file);
        KeyFeed keys(game->events);
        while (!isOver(*game, world)) {
            const World before = world;
            playFrame(world, keys);
            addHappenings(seen, before, world);
        }
    }
    for (const char* what :
         {"end Dog",   "end Lady",   "end Rat",    "end Pit",  "end Won",   "bonus 0",    "bonus 1",
          "bonus 2",   "bonus 3",    "bonus 4",    "bonus 5",  "trapped 9", "trapped 10", "trapped 24",
          "escaped 9", "escaped 10", "escaped 24", "buried 9", "buried 10", "buried 24",  "struck 9"})
        EXPECT_TRUE(seen.contains(what)) << what;
}

/// The wins of a level of the list lie beside the level's source, under its name.
std::string winOf(std::string_view level, std::string_view extension) {
    std::string path(level.substr(kLevelFolder.size()));
    std::ranges::replace(path, '\\', '/');
    return std::string(GRUB_LEVELS_DIR "/").append(path, 0, path.find('.')).append(extension);
}

TEST_F(RecordedGames, WinEveryLevelAndHalfOfThemInAnotherWay) {
    ResourcePackage levels(GRUB_DATA_DIR "/levels.pak");
    int seconds = 0;
    for (std::size_t index = 0; index < kLevelCount; ++index) {
        const std::string_view level = kLevelNames[index];
        EXPECT_TRUE(levels.exists(EngineString(level))) << level;
        for (const char* const extension : {".game", ".second.game"}) {
            const std::string file = winOf(level, extension);
            const bool isSecond = extension != std::string_view(".game");
            if (isSecond && !std::filesystem::exists(file)) continue;
            seconds += isSecond ? 1 : 0;
            const auto game = loadGame(file, error_);
            ASSERT_TRUE(game) << error_;
            EXPECT_EQ(game->level, level);
            EXPECT_EQ(game->start.levelIndex, static_cast<int>(index)) << file;
            EXPECT_EQ(game->start.lives, kStartLives) << file;
            EXPECT_TRUE(game->end && game->end->cause == LossCause::Won) << file;
        }
    }
    EXPECT_GE(seconds, 25);
}

}  // namespace
}  // namespace grub
