// What `grubtool level check` finds in damaged levels, and what it says of good ones.

#include "level_check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "bytes.h"
#include "grubtool_run.h"
#include "scratch_directory.h"
#include "whole_file.h"

namespace grub {
namespace {

const std::string kLevels = GRUB_CONTENT_DIR "/levels/";

/// A room in which nothing is wrong; the field begins in line 3.
const std::string kGood = "X....H..RX\nX@.k.H..EX\nX#####XXXX\nXXXXXXXXXX\n";

/// All faults of a level as lines "LINE:COLUMN: reason".
std::string faultsIn(const std::string& field, const std::string& below,
                     const AnimationFrameCounts& counts = AnimationFrameCounts::all(8)) {
    TableSource table(*readWholeFile(kLevels + "typeblok.ini"));
    std::vector<TextError> errors;
    const auto level = openForChecks("world jelezo\nfield\n" + field + "end\n" + below, table, counts, errors);
    std::string all;
    for (const TextError& error : errors) all += error.in("") + "\n";
    if (!level) return all;
    for (const LevelFault& fault : faultsOf(*level)) all += faultInSource(fault, level->source).in("") + "\n";
    return all;
}

struct DamagedLevel {
    const char* what;
    std::string field;
    std::string below;
    const char* fault;  // part of what is found; empty: nothing
};

const DamagedLevel kDamaged[] = {
    {"two heroes, and no door", "X@k@X\nXX#XX\n", "", ":2: wanted at least 1 door"},
    {"a block placed below makes a wall", kGood, "base solid 2 0\n", ":3:3: a block below the field"},
    {"a thing on the wall makes a wall", kGood, "layer2 solid 2 0\n", ":3:3: a block below the field"},
    {"a floor as a thing on the wall", kGood, "layer2 floor 4 1\n", ":4:5: a floor without pictures"},
    {"a ladder one column off", "X@.k..EX\nX####H#X\nX...H..X\nX...H..X\nX######X\n", "", ":4:6: the ladder ends here"},
    {"a ladder under a lid", "X@.k..EX\nX######X\nXXXXXXXX\nXXXHXXXX\nXXXXXXXX\n", "",
     ":6:4: the ladder's top is shut"},
    {"a rat in a cage", "X@kEXRX\nXX##XXX\n", "", ":3:6: the rat has no room"},
    {"a rat that fills a dead end", "XXXXXXXX\nXE@HRk.X\nX##HXXXX\nXXXXXXXX\n", "", ""},
    {"a rat before a key far away", "XXXXXXXXXX\nX@HR....kX\nXXHXXXXXXX\nXEH#XXXXXX\nXXXXXXXXXX\n", "",
     ":4:9: a key in a dead end"},
    {"a key behind a wall", "X@kEXk.X\nX###XXXX\n", "", ":3:6: Grub can reach this key"},
    {"a door behind a wall", "X@k.XEX\nX###XXX\n", "", ":3:6: Grub can reach the door"},
    {"a door up a ladder that appears", "XXXEX\nX@khX\nX##hX\nXXXXX\n", "", ""},
    {"a pit without a way to lose", "XE@k.X\nX###.X\nXXXX.X\nXXXXXX\n", "", ":3:5: Grub may be shut in"},
    {"the same pit with a dog", "XE@kDX\nX###.X\nXXXX.X\nXXXXXX\n", "", ""},
    {"a start inside a floor", "X..kEX\nX####X\n", "object hero 2 1\n", ":4:3: the attempt ends in its first"},
};

TEST(LevelCheck, FindsWhatIsWrongAndWhere) {
    EXPECT_EQ(faultsIn(kGood, ""), "");
    for (const DamagedLevel& level : kDamaged) {
        SCOPED_TRACE(level.what);
        const std::string found = faultsIn(level.field, level.below);
        EXPECT_NE(found.find(level.fault), std::string::npos) << found;
        EXPECT_EQ(found.empty(), *level.fault == '\0') << found;
    }
}

TEST(LevelCheck, FindsAMissingPictureOnce) {
    AnimationFrameCounts counts = AnimationFrameCounts::all(8);
    counts.set(262, 0);
    EXPECT_EQ(faultsIn(kGood, "", counts),
              ":5:2: the picture data\\gif\\jelezo\\animation_floor_iron_01.bmp is missing\n");
}

TEST(LevelCheck, FindsNothingInTheLevelsOfTheGame) {
    std::vector<std::string> words{"level", "check", "--data", GRUB_DATA_DIR};
    for (const auto& entry : std::filesystem::recursive_directory_iterator(kLevels))
        if (entry.path().extension() == ".txt") words.insert(words.begin() + 2, entry.path().string());
    const GrubtoolRun run = grubtool(words);
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_GE(std::ranges::count(run.out, '\n'), 4) << run.out;
}

// A dog comes along a corridor, and only a hole before it lets Grub by: a slow player must dig nearer to where he
// stands.
TEST(LevelCheck, MeasuresTheWinsBesideASource) {
    const std::string quick =
        "1 down Right\n20 up Right\n20 down Left\n28 up Left\n28 down X\n29 up X\n"
        "38 down Right\n86 up Right\n86 down Left\n";
    const std::string calm = "32 down X\n33 up X\n57 down Right\n113 up Right\n128 down Left\n";
    const std::string corridor = "E..@...D..k\n###########\nXXXXXXXXXXX\n";
    const std::string leftFirst = "1 down Left\n40 up Left\n40 down Right\n";
    const std::string rightFirst = "1 down Right\n20 up Right\n20 down Left\n80 up Left\n80 down Right\n";
    struct Row {
        std::string field;
        std::string first;
        std::string second;
        const char* measures;
        const char* error;
    };
    const Row rows[] = {
        {corridor, quick, "", "    1    6.6    1    100%      48 WW-- W---   8/8\n", ""},
        {corridor, quick, calm, "    2    6.6    1    100%      48 WW-- WWWW   8/8\n", ""},
        {corridor, "1 down Right\n", "", "-", "a.game: its keys do not win the level"},
        {"k..@.k.E\n########\n", "1000000000 down Left\n", "", "-", "a.game: its keys do not win the level"},
        {corridor, quick, quick, "-", "a.second.game: takes the same keys in the same order"},
        {"k..@.k.E\n########\n", leftFirst, rightFirst, "    2 ", ""},
    };
    const ScratchDirectory scratch;
    for (const Row& row : rows) {
        const std::string source = scratch.write("a.txt", bytesOf("world turma\nfield\n" + row.field + "end\n"));
        scratch.write("a.game", bytesOf("level a.txt\nindex 0\nseed 1\n\n" + row.first));
        if (!row.second.empty())
            scratch.write("a.second.game", bytesOf("level a.txt\nindex 0\nseed 1\n\n" + row.second));
        const GrubtoolRun run =
            grubtool({"level", "check", source, "--blocks", kLevels + "typeblok.ini", "--data", GRUB_DATA_DIR});
        EXPECT_NE(run.out.find(row.measures), std::string::npos) << run.out;
        EXPECT_NE(run.errors.find(row.error), std::string::npos) << run.errors;
        std::filesystem::remove(scratch.file("a.second.game"));
    }
}

}  // namespace
}  // namespace grub
