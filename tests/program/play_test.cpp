// The game as a player starts it, played by scripts.

#include <gmock/gmock.h>

#include "program_run.h"

namespace grub {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::StartsWith;

using Play = ProgramRun;

/// Without the menu.
constexpr const char* kFirstLevel = "--level 1";

std::string at(int frame, const std::string& what) { return std::to_string(frame) + " " + what + "\n"; }

TEST_F(Play, AKeyOfAGameFrameComesBeforeIt) {
    ASSERT_EQ(play(at(0, "shot 0.png") + at(1, "shot 1.png"), kFirstLevel), 0) << errors;
    ASSERT_EQ(play(at(1, "down Right") + at(0, "shot same.png") + at(1, "shot turning.png"), kFirstLevel), 0) << errors;
    EXPECT_NE(bytes("0.png"), Bytes());
    EXPECT_EQ(bytes("0.png"), bytes("same.png"));
    EXPECT_NE(bytes("1.png"), bytes("turning.png")) << "he turns in frame 1";
}

TEST_F(Play, LevelsAreChosenByNumberAndTheirPicturesDiffer) {
    ASSERT_EQ(play(at(5, "shot 2.png"), "--level 2"), 0) << errors;
    ASSERT_EQ(play(at(5, "shot 20.png"), "--level 20"), 0) << errors;
    EXPECT_NE(bytes("2.png"), bytes("20.png"));
}

TEST_F(Play, TheFirstLevelCanBeWonAndTheSecondSavedAndLeftByTheGameMenu) {
    std::string script = at(1, "down Right") + at(55, "down Up") + at(78, "down Right") + at(90, "down Left") +
                         at(141, "down Up") + at(157, "down Left") + at(210, "up Left");
    const auto tap = [&](int picture, const std::string& key) {
        for (const char* what : {" down ", " up "})
            script += "picture " + std::to_string(picture++) + what + key + "\n";
    };
    tap(280, "A");  // the picture of the end
    tap(320, "Escape");
    tap(330, "Down");
    tap(332, "Enter");  // to the slots
    tap(350, "Enter");  // the first one
    tap(375, "Up");
    tap(377, "Enter");  // leave
    ASSERT_EQ(play(script + "stay\n", kFirstLevel), 0) << errors;
    const Bytes slot = bytes("slot0.sav");
    ASSERT_EQ(slot.size(), 52U);
    EXPECT_EQ(slot[0], 1) << "the second level";
    EXPECT_EQ(slot[4], 4) << "a life more";
}

TEST_F(Play, TheMenuLeadsFromTheOpeningIntoTheFirstLevelTheSameWayEachTime) {
    const std::string script =
        "time 1500 shot start.png\ntime 1500 up F1\ntime 1600 shot again.png\n"
        "time 1600 down Enter\ntime 3500 shot comic.png\ntime 3500 up Enter\ntime 3600 shot untouched.png\n"
        "time 3600 down Enter\ntime 6000 down Enter\n0 shot level.png\n1 close\nstay\n";
    ASSERT_EQ(play(script), 0) << errors;
    EXPECT_EQ(bytes("start.png"), bytes("again.png")) << "the opening is over without a key";
    EXPECT_EQ(bytes("comic.png"), bytes("untouched.png")) << "a comic stands still without the last tiles";
    const std::vector<Bytes> pictures{bytes("start.png"), bytes("comic.png"), bytes("level.png")};
    ASSERT_EQ(play(script), 0) << errors;
    EXPECT_EQ(pictures, (std::vector<Bytes>{bytes("start.png"), bytes("comic.png"), bytes("level.png")}));
    ASSERT_EQ(play(at(0, "shot level.png"), kFirstLevel), 0) << errors;
    EXPECT_EQ(pictures[2], bytes("level.png"));
    EXPECT_THAT(text("registry.txt"), HasSubstr("SOUND")) << "the player's own registry stays as it is";
}

TEST_F(Play, AClosedWindowEndsTheProgramWell) {
    EXPECT_EQ(play(at(10, "close"), kFirstLevel), 0);
    EXPECT_EQ(errors, "");
}

TEST_F(Play, WhatIsMissingOrBrokenIsSaidAndEndsTheProgram) {
    ASSERT_EQ(
        run(kTool + "extract '" GRUB_DATA_DIR "/levels.pak' all && rm all/levels/turma/level05.lvl && mkdir less && " +
            kTool + "pack all less/levels.pak && ln -s '" GRUB_DATA_DIR "'/[!l]*.pak less"),
        0)
        << errors;
    EXPECT_EQ(run("'" GRUB_BIN_DIR "/grubaway' --data less --level 3"), 2);
    EXPECT_THAT(errors, StartsWith("grubaway: levels.pak does not hold levels\\turma\\level05.lvl; "));
    EXPECT_THAT(errors, Contains('\n').Times(1));
    for (const char* script : {"5 dance\n", "5 close\n900 shot a.png\n"}) {
        EXPECT_EQ(play(script, kFirstLevel), 1) << script;
        EXPECT_THAT(errors, Contains('\n').Times(1));
    }
}

using Packages = ProgramRun;

TEST_F(Packages, AreSoundAndComeBackTheSameFromTheirFiles) {
    for (const std::string name : {"data64", "levels", "sound", "make_m64", "make_z64"}) {
        const std::string package = "'" GRUB_DATA_DIR "/" + name + ".pak' ";
        EXPECT_EQ(run(kTool + "verify " + package), 0) << name << out;
        ASSERT_EQ(run(kTool + "extract " + package + name), 0) << name << errors;
        ASSERT_EQ(run(kTool + "pack " + name + " " + name + ".pak"), 0) << name << errors;
        EXPECT_EQ(run("cmp -s " + package + name + ".pak"), 0) << name;
    }
}

using Screen = ProgramRun;

TEST_F(Screen, ThatCannotBeReachedEndsTheProgramWithOneLine) {
    for (const std::string display : {"", "DISPLAY=:9999 "}) {
        EXPECT_EQ(run("env -u SDL_VIDEODRIVER -u DISPLAY -u WAYLAND_DISPLAY " + display + "timeout 20 " + kGame), 1);
        EXPECT_THAT(errors, StartsWith("video: no screen can be reached")) << display;
        EXPECT_THAT(errors, Contains('\n').Times(1));
    }
}

}  // namespace
}  // namespace grub
