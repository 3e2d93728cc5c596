// Traces of small levels, line for line; every number is worked out from the rules by hand.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include <string>
#include <vector>

#include "level_writer.h"
#include "object_code.h"
#include "run_grubtool.h"
#include "scratch_directory.h"

namespace grub {
namespace {

using Lines = std::vector<std::string>;

std::span<const std::uint8_t> bytesOf(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// The command on files of its own.
class Trace : public testing::Test {
protected:
    void level(const LevelFile& file) { scratch_.write("a.lvl", writeLevelFile(file)); }
    void level(const Drawing& drawing) { level(drawnLevel(drawing)); }
    void keys(const std::string& text) { scratch_.write("keys", bytesOf(text)); }
    void counts(const std::string& text) { scratch_.write("counts", bytesOf(text)); }
    int run(const std::string& index, const std::string& seed, const std::string& frames) {
        return runGrubtool({"trace", "--level", scratch_.file("a.lvl"), "--blocks", scratch_.file("blocks"), "--index",
                            index, "--seed", seed, "--keys", scratch_.file("keys"), "--frames", frames, "--counts",
                            scratch_.file("counts")});
    }
    Lines linesOf(const std::string& index, const std::string& seed, const std::string& frames) {
        testing::internal::CaptureStdout();
        EXPECT_EQ(run(index, seed, frames), 0);
        std::istringstream text(testing::internal::GetCapturedStdout());
        Lines lines;
        for (std::string line; std::getline(text, line);) lines.push_back(line);
        return lines;
    }
    /// One of the words is no number that the command takes.
    void expectRefused(const std::string& index, const std::string& seed, const std::string& frames) {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        EXPECT_EQ(run(index, seed, frames), 2);
        EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("is not a number from 0 to "));
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    }
    void SetUp() override {
        scratch_.write("blocks", bytesOf(drawnBlockTable()));
        keys("");
        counts("");
    }

    ScratchDirectory scratch_;
};

// The dog, five cells to the right, starts to hunt in frame 0 and goes 4 pixels in each frame. Grub digs in frame 1;
// the dig of 3 pictures ends with the third. The breaking floor of 1 picture, which stays for 3 frames, is done in the
// second of them and waits from the third on. The floor's timer counts in the frame of the dig too.
TEST_F(Trace, OfADigAndADogThatHunts) {
    level(Drawing{"@ . k . . d", "# = # # # #"});
    keys("# digs to the right\n1 down X\n2 up X\n");
    counts("# digging\n81 3\n83 1\n");
    EXPECT_EQ(
        linesOf("0", "7", "4"),
        (Lines{"f=1 hero=0,0 v=0,0 cmd=None face=2 anim=81:0 dig=1 shield=0 inv=0 anchor=0 keys=1 score=0 lives=3 "
               "rng=00000007 enemies=9:312,0:0:1:-4,0 holes=1,1:0:249 bonuses=- end=-",
               "f=2 hero=0,0 v=0,0 cmd=None face=2 anim=81:1 dig=1 shield=0 inv=0 anchor=0 keys=1 score=0 lives=3 "
               "rng=00000007 enemies=9:308,0:0:1:-4,0 holes=1,1:0:248 bonuses=- end=-",
               "f=3 hero=0,0 v=0,0 cmd=None face=2 anim=81:2 dig=0 shield=0 inv=0 anchor=0 keys=1 score=0 lives=3 "
               "rng=00000007 enemies=9:304,0:0:1:-4,0 holes=1,1:2:247 bonuses=- end=-",
               "f=4 hero=0,0 v=0,0 cmd=None face=2 anim=334:0 dig=0 shield=0 inv=0 anchor=0 keys=1 score=0 "
               "lives=3 rng=00000007 enemies=9:300,0:0:1:-4,0 holes=1,1:2:246 bonuses=- end=-"}));
}

// From 128 the dog is at 124 after frame 0 and at 28, closer than 32, after frame 24.
TEST_F(Trace, EndsWithTheLineThatHasTheCause) {
    level(Drawing{"@ . d k", "# # # #"});
    const Lines lines = linesOf("0", "1", "100");
    ASSERT_EQ(lines.size(), 24U);
    EXPECT_THAT(lines[22], testing::HasSubstr("enemies=9:32,0:0:1:-4,0 holes=- bonuses=- end=-"));
    EXPECT_THAT(lines[23], testing::HasSubstr("enemies=9:28,0:0:1:-4,0 holes=- bonuses=- end=0"));
}

// The seed is chosen for its first three numbers, 16386, 9185 and 25408: right column, upper row, kind 4. Without a key
// Grub stands through his 8 pictures, anew from frame 125 on when he grows restless. Pressed in 250, Right turns him
// for three frames, and eight later he is on the next cell. There he takes the shield in 261, whose first frame counts.
TEST_F(Trace, OfARandomBonus) {
    level(Drawing{"@ .", "# #"});
    keys("250 down Right\n");
    const Lines lines = linesOf("1", "5006", "262");
    ASSERT_EQ(lines.size(), 262U);
    EXPECT_THAT(lines[247], testing::HasSubstr(" rng=0000138e enemies=- holes=- bonuses=- "));
    EXPECT_EQ(lines[248],
              "f=249 hero=0,0 v=0,0 cmd=None face=1 anim=333:5 dig=0 shield=0 inv=0 anchor=0 keys=0 score=0 lives=3 "
              "rng=6340b35b enemies=- holes=- bonuses=4:1,0:200 end=-");
    EXPECT_THAT(lines[251], testing::StartsWith("f=252 hero=0,0 v=0,0 cmd=Right face=2 anim=334:2 "));
    EXPECT_THAT(lines[259], testing::StartsWith("f=260 hero=64,0 v=8,0 cmd=Right face=2 anim=76:7 "));
    EXPECT_EQ(lines[260],
              "f=261 hero=64,0 v=0,0 cmd=Right face=2 anim=334:0 dig=0 shield=499 inv=0 anchor=0 keys=0 score=100 "
              "lives=3 rng=6340b35b enemies=- holes=- bonuses=4:1,0:188 end=-");
    EXPECT_THAT(lines[261], testing::HasSubstr(" shield=498 "));
    EXPECT_THAT(lines[261], testing::EndsWith(" bonuses=- end=-"));
}

// On an open exit he wins in the settling step, and again in frame 1.
TEST_F(Trace, OfALevelThatIsWonAsItStarts) {
    LevelFile won = drawnLevel(Drawing{"E .", "# #"});
    won.records[0].code = object_code::kHero;
    level(won);
    EXPECT_EQ(linesOf("0", "4294967295", "9"),
              (Lines{"f=1 hero=0,0 v=0,0 cmd=None face=1 anim=333:0 dig=0 shield=0 inv=0 anchor=0 keys=0 score=2000 "
                     "lives=3 rng=ffffffff enemies=- holes=- bonuses=- end=4"}));
    EXPECT_TRUE(linesOf("0", "0", "0").empty());
}

struct TraceFault {
    const char* what;
    const char* file;
    const char* contents;
    int exitCode;
    const char* reason;
};

TEST_F(Trace, RefusesWhatIsWrongWithALineAndNoTrace) {
    const TraceFault faults[] = {
        {"a level that is none", "a.lvl", "level", 1, "a.lvl: "},
        {"a key that steers nothing", "keys", "1 down Up\n1 down Escape\n", 2, "keys:2: wanted a key"},
        {"an animation outside", "counts", "400 1", 2, "counts:1: wanted an animation from 0 to 399, found '400'"},
        {"a count too many", "counts", "1 70000", 2, "counts:1: wanted a frame count"},
    };
    for (const TraceFault& fault : faults) {
        SCOPED_TRACE(fault.what);
        SetUp();
        level(Drawing{"@ .", "# #"});
        scratch_.write(fault.file, bytesOf(fault.contents));
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        EXPECT_EQ(run("0", "1", "5"), fault.exitCode);
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
        EXPECT_THAT(said, testing::HasSubstr(fault.reason));
        EXPECT_EQ(std::ranges::count(said, '\n'), 1) << said;
    }
}

// A number is its digits: no word that merely begins with one, and none that is read as another.
TEST_F(Trace, TakesNumbersWrittenInDigitsOnly) {
    level(Drawing{"@ .", "# #"});
    for (const char* bad : {"", " 1", "+1", "-1", "0x1", "1.0", "1e3", "x", "4294967296", "18446744073709551617"}) {
        SCOPED_TRACE(bad);
        expectRefused("0", bad, "1");
        expectRefused(bad, "0", "1");
        expectRefused("0", "0", bad);
    }
    expectRefused("50", "0", "1");
    const Lines lines = linesOf("049", "010", "01");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_THAT(lines[0], testing::HasSubstr(" rng=0000000a "));
}

}  // namespace
}  // namespace grub
