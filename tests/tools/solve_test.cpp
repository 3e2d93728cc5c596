// grubtool solve on tiny levels: what it answers, and that the real rules agree with a win.

#include <gmock/gmock.h>

#include "grubtool_run.h"
#include "level_writer.h"
#include "scratch_directory.h"

namespace grub {
namespace {

using testing::HasSubstr;

class SolveCommand : public testing::Test {
protected:
    [[nodiscard]] GrubtoolRun solve(const std::string& field, std::vector<std::string> options = {},
                                    const std::string& below = "") const {
        scratch_.write("level.txt", bytesOf("world turma\nfield\n" + field + "end\n" + below));
        options.insert(options.begin(), {"solve", scratch_.file("level.txt"), "--data", GRUB_DATA_DIR});
        return grubtool(options);
    }
    ScratchDirectory scratch_;
};

/// The way down is through the floor beside the wall.
const std::string kVault = "@.X\n##X\nk.E\nXXX\n";
/// A dog between Grub and the key, in a corridor: only a hole lets him by.
const std::string kCorridor = "E..@...D..k\n###########\nXXXXXXXXXXX\n";

TEST_F(SolveCommand, WritesAWinThatTheRulesReplay) {
    for (const std::string& field : {kVault, kCorridor}) {
        const std::string game = scratch_.file("win.game");
        const GrubtoolRun run = solve(field, {"--out", game});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_THAT(run.out, testing::StartsWith("won: 1 of 1 keys"));
        EXPECT_THAT(grubtool({"play", game, "--data", GRUB_DATA_DIR}).out, HasSubstr("Won in frame"));
    }
}

TEST_F(SolveCommand, SaysWhyThereIsNoWin) {
    struct Row {
        std::string field;
        std::vector<std::string> options;
        const char* answer;
        const char* detail;
    };
    const std::string pit = "E@..k\n##..X\nX..XX\nXXXXX\n";  // who has gone for the key cannot come back
    const Row rows[] = {
        {kVault, {"--no-dig"}, "exhausted: 0 of 1 keys", "no way to the key 0,2\nno way to a door\n"},
        {kCorridor, {"--no-dig", "--exact"}, "exhausted: 0 of 1 keys", "lost to Dog "},
        {kCorridor, {"--no-dig-before", "150"}, "exhausted: 0 of 1 keys", "lost to Dog "},
        {kCorridor, {"--delay", "60"}, "exhausted: 0 of 1 keys", "lost to Dog "},
        {pit, {}, "exhausted: 0 of 1 keys", "no way to the key 4,0\n"},
        {kCorridor, {"--states", "1"}, "cut: 0 of 1 keys", "out of reach 0"},
    };
    for (const Row& row : rows) {
        const GrubtoolRun run = solve(row.field, row.options);
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_THAT(run.out, testing::StartsWith(row.answer)) << row.field;
        EXPECT_THAT(run.out, HasSubstr(row.detail)) << row.field;
    }
    EXPECT_TRUE(solve(kVault, {"--keys", "0,2 3"}).failed(2, "wanted cells as '3,4 5,6', found '3'"));
    EXPECT_TRUE(solve(kVault, {"--keys", "1,0"}).failed(2, "--keys: no key lies at 1,0"));
    EXPECT_TRUE(solve(kVault, {"--way", "source"}).failed(2, "--way: there are no cells"));
    EXPECT_TRUE(solve(kVault, {"--out", scratch_.file("no/win.game")}).failed(2, "no such folder"));
    EXPECT_EQ(solve(kCorridor, {"--no-dig", "--no-enemies"}).exitCode, 0) << "it is the dog that stands in the way";
}

TEST_F(SolveCommand, SearchesInAPartAndOverCellsOfAWay) {
    const std::string hall = "k..@..k\nX##H##X\nE..H..k\nXXXXXXX\n";
    struct Row {
        std::vector<std::string> options;
        std::string below;
        const char* answer;
    };
    const Row rows[] = {
        {{}, "", "won in game frame 165"},
        {{"--part", "6,2 3,0"}, "", "won: 2 of 2 keys"},
        {{"--part", "0,0 3,1", "--no-dig"}, "base solid 2 2\n", "won: 1 of 1 keys"},  // the door is out of reach
        {{"--part", "0,2 6,2", "--from", "6,2"}, "", "won: 0 of 0 keys"},
        {{"--way", "0,2 6,2"}, "", "won in game frame 216"},
        {{"--way", "source"}, "way 0 2  6 2\n", "won in game frame 216"},
        {{"--way", "0,2", "--no-dig"}, "base ladder 3 1\nbase none 3 2\n", "won"},
        {{"--way", "1,3"}, "", "exhausted"},
    };
    for (const Row& row : rows) EXPECT_THAT(solve(hall, row.options, row.below).out, HasSubstr(row.answer));
    EXPECT_TRUE(solve(hall, {"--part", "0,2 6,2"}).failed(2, "--part: Grub starts outside"));
    EXPECT_TRUE(solve(hall, {"--from", "0,1"}).failed(2, "--from: wanted a cell where Grub can be"));
    EXPECT_TRUE(solve(hall, {"--way", "7,0"}).failed(2, "the way leads out of the level"));
}

// With one dig the narrow searches leave states out, and a wider one gives the answer.
TEST_F(SolveCommand, AnswersTheSameWithOneThreadAndWithTwo) {
    const std::string vaults = "@..........X\n####X####XHX\nk...X..k.XHX\n###.X###.XHX\nE..k......HX\nXXXXXXXXXXXX\n";
    const auto answer = [&](const char* threads) {
        const std::string out = solve(vaults, {"--digs", "1", "--threads", threads}).out;
        return out.substr(0, out.find(" states"));
    };
    EXPECT_THAT(answer("1"), testing::StartsWith("exhausted: 2 of 3 keys, width 2000, "));
    EXPECT_EQ(answer("2"), answer("1"));
}

}  // namespace
}  // namespace grub
