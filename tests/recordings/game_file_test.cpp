#include "game_file.h"

#include <gtest/gtest.h>

#include "package_writer.h"
#include "scratch_directory.h"

namespace grub {
namespace {

TEST(GameFile, ThatCannotBeReadSaysSo) {
    const ScratchDirectory scratch;
    std::string error;
    EXPECT_FALSE(loadGame(scratch.file("none.game"), error));
    EXPECT_EQ(error, scratch.file("none.game") + ": cannot be read");
    EXPECT_FALSE(loadGame(scratch.path().string(), error)) << "a folder";
    scratch.write("bad.game", bytesOf("# so\nlevel a\nseed\n"));
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
