// The game as a player starts it, played by scripts.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "scratch_directory.h"

namespace grub {
namespace {

using Bytes = std::vector<std::uint8_t>;

const std::string kGame = GRUB_BIN_DIR "/grubaway";
const std::string kTool = GRUB_BIN_DIR "/grubtool";
const std::string kData = GRUB_DATA_DIR;

int exitCodeOf(const std::string& command) {
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// A working directory in which the game is played by a script.
class Play {
public:
    explicit Play(const std::string& script, const std::string& options = "") {
        directory_.write("play.script", Bytes(script.begin(), script.end()));
        exitCode = exitCodeOf("cd '" + directory_.path().string() + "' && '" + kGame + "' --data '" + kData +
                              "' --script play.script " + options + " 2>errors.txt");
    }
    [[nodiscard]] Bytes file(const std::string& name) const { return directory_.read(name); }
    [[nodiscard]] std::string errors() const {
        const Bytes bytes = file("errors.txt");
        return {bytes.begin(), bytes.end()};
    }
    int exitCode = -1;

private:
    ScratchDirectory directory_;
};

std::string at(int frame, const std::string& what) { return std::to_string(frame) + " " + what + "\n"; }

TEST(Play, AKeyOfAGameFrameComesBeforeIt) {
    const Play still(at(0, "shot 0.png") + at(1, "shot 1.png"));
    const Play turning(at(1, "down Right") + at(0, "shot 0.png") + at(1, "shot 1.png"));
    ASSERT_EQ(still.exitCode, 0) << still.errors();
    ASSERT_EQ(turning.exitCode, 0) << turning.errors();
    ASSERT_FALSE(still.file("1.png").empty());
    EXPECT_EQ(still.file("0.png"), turning.file("0.png"));
    EXPECT_NE(still.file("1.png"), turning.file("1.png")) << "he turns in frame 1";
}

TEST(Play, TheSameScriptGivesTheSamePictures) {
    const std::string script = at(1, "down Right") + at(70, "up Right") + at(71, "down Z") + at(90, "shot end.png");
    const Play first(script);
    const Play second(script);
    ASSERT_EQ(first.exitCode, 0) << first.errors();
    ASSERT_FALSE(first.file("end.png").empty());
    EXPECT_EQ(first.file("end.png"), second.file("end.png"));
}

TEST(Play, LevelsAreChosenByNumberAndTheirPicturesDiffer) {
    const Play first(at(5, "shot a.png"), "--level 1");
    const Play second(at(5, "shot a.png"), "--level 2");
    const Play last(at(5, "shot a.png"), "--level 20");
    EXPECT_NE(first.file("a.png"), second.file("a.png"));
    EXPECT_NE(second.file("a.png"), last.file("a.png"));
    EXPECT_NE(last.file("a.png"), Bytes{});
}

TEST(Play, TheFirstLevelCanBeWonAndTheSecondFollows) {
    std::string script = at(1, "down Right") + at(55, "down Up") + at(78, "down Right") + at(90, "down Left") +
                         at(141, "down Up") + at(157, "down Left");
    constexpr int kFirst = 218;  // pictures: the game frames end with the first level
    constexpr int kLast = 238;
    for (int number = kFirst; number <= kLast; ++number)
        script += "picture " + std::to_string(number) + " shot " + std::to_string(number) + ".png\n";
    const Play won(script);
    const Play second(at(0, "shot start.png"), "--level 2");
    ASSERT_EQ(won.exitCode, 0) << won.errors();
    ASSERT_FALSE(second.file("start.png").empty());
    int same = 0;
    for (int number = kFirst; number <= kLast; ++number)
        same += won.file(std::to_string(number) + ".png") == second.file("start.png");
    EXPECT_GE(same, 1) << "the second level's first picture was not seen";
}

TEST(Play, AClosedWindowAndEscapeEndTheProgramWell) {
    for (const char* how : {"close", "down Escape"}) {
        const Play play(at(10, how));
        EXPECT_EQ(play.exitCode, 0) << how << play.errors();
        EXPECT_EQ(play.errors(), "") << how;
    }
}

TEST(Play, WhatIsMissingOrBrokenIsSaidAndEndsTheProgram) {
    const Play noLevel(at(5, "shot a.png"), "--level 3");
    EXPECT_EQ(noLevel.exitCode, 2);
    EXPECT_TRUE(noLevel.errors().starts_with("grubaway: levels.pak does not hold levels\\turma\\level05.lvl; "))
        << noLevel.errors();
    EXPECT_EQ(std::ranges::count(noLevel.errors(), '\n'), 1) << noLevel.errors();
    for (const char* script : {"5 dance\n", "5 close\n900 shot a.png\n"}) {
        const Play wrong(script);
        EXPECT_EQ(wrong.exitCode, 1) << script;
        EXPECT_EQ(std::ranges::count(wrong.errors(), '\n'), 1) << wrong.errors();
    }
}

TEST(Packages, AreSoundAndComeBackTheSameFromTheirFiles) {
    const ScratchDirectory directory;
    for (const std::string name : {"data64", "levels", "sound", "make_m64", "make_z64"}) {
        const std::string package = "'" + kData + "/" + name + ".pak'";
        const std::string folder = "'" + directory.file(name) + "'";
        const std::string again = directory.file(name + ".pak");
        EXPECT_EQ(exitCodeOf("'" + kTool + "' verify " + package + " >/dev/null"), 0) << name;
        ASSERT_EQ(exitCodeOf("'" + kTool + "' extract " + package + " " + folder + " >/dev/null"), 0) << name;
        ASSERT_EQ(exitCodeOf("'" + kTool + "' pack " + folder + " '" + again + "' >/dev/null"), 0) << name;
        EXPECT_EQ(exitCodeOf("cmp -s " + package + " '" + again + "'"), 0) << name;
    }
}

TEST(Screen, ThatCannotBeReachedEndsTheProgramWithOneLine) {
    for (const char* const display : {"", "DISPLAY=:9999"}) {
        const ScratchDirectory directory;
        const std::string inside = "cd '" + directory.path().string() + "' && env -u SDL_VIDEODRIVER -u DISPLAY ";
        EXPECT_EQ(exitCodeOf(inside + "-u WAYLAND_DISPLAY " + display + " timeout 20 '" + kGame + "' --data '" + kData +
                             "' 2>errors.txt"),
                  1)
            << display;
        const Bytes errors = directory.read("errors.txt");
        EXPECT_EQ(std::ranges::count(errors, '\n'), 1) << std::string(errors.begin(), errors.end());
        EXPECT_TRUE(std::string(errors.begin(), errors.end()).starts_with("video: no screen can be reached"));
    }
}

}  // namespace
}  // namespace grub
