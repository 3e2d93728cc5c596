#include "game_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "scratch_directory.h"

namespace grub {
namespace {

TEST(GameFile, IsReplacedAsAWholeOrNotAtAll) {
    const ScratchDirectory scratch;
    const std::string path = scratch.file("a.game");
    EXPECT_TRUE(replaceTextFile(path, "first"));
    EXPECT_TRUE(replaceTextFile(path, "second"));
    EXPECT_EQ(readTextFile(path), "second");
    EXPECT_FALSE(replaceTextFile(scratch.file("nowhere/a.game"), "lost"));
    std::filesystem::create_directory(scratch.path() / "folder");
    EXPECT_FALSE(replaceTextFile(scratch.file("folder"), "lost"));
    const auto entries = std::filesystem::directory_iterator(scratch.path());
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 2) << "nothing half-written stays";
}

TEST(GameFile, ThatCannotBeReadSaysSo) {
    const ScratchDirectory scratch;
    std::string error;
    EXPECT_FALSE(loadGame(scratch.file("none.game"), error));
    EXPECT_EQ(error, scratch.file("none.game") + ": cannot be read");
    EXPECT_FALSE(loadGame(scratch.path().string(), error)) << "a folder";
    ASSERT_TRUE(replaceTextFile(scratch.file("bad.game"), "# so\nlevel a\nseed\n"));
    EXPECT_FALSE(loadGame(scratch.file("bad.game"), error));
    EXPECT_EQ(error, scratch.file("bad.game") + ":3: wanted index, found 'seed'");
}

TEST(GameFile, ALevelIsANameOfTheListOrLiesBesideTheGame) {
    RecordedGame game;
    game.level = "levels\\turma\\level22.lvl";
    EXPECT_EQ(levelFileOf(game, "/games/a.game"), std::nullopt);
    game.level = "../mine/well.txt";
    EXPECT_EQ(levelFileOf(game, "/games/a.game"), "/games/../mine/well.txt");
    EXPECT_EQ(levelFileOf(game, "a.game"), "../mine/well.txt");
}

}  // namespace
}  // namespace grub
