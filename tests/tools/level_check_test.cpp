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
    TextError error;
    const auto level = openForChecks("world jelezo\nfield\n" + field + "end\n" + below, table, counts, error);
    if (!level) return error.in("") + "\n";
    std::string all;
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
    {"no door", "X@k.X\nXX#XX\n", "", ":2: wanted at least 1 door"},
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

TEST(LevelCheck, MeasuresTheWinBesideASource) {
    const ScratchDirectory scratch;
    const std::string source = scratch.write("a.txt", *readWholeFile(kLevels + "turma/level02.txt"));
    const auto check = [&] {
        return grubtool({"level", "check", source, "--blocks", kLevels + "typeblok.ini", "--data", GRUB_DATA_DIR});
    };
    scratch.write("a.game", *readWholeFile(kLevels + "turma/level02.game"));
    EXPECT_NE(check().out.find("   18.8    0     49%       - WWWW   8/8\n"), std::string::npos) << check().out;
    scratch.write("a.game", bytesOf("level a.txt\nindex 1\nseed 11\n\n1 down Right\n"));
    EXPECT_TRUE(check().failed(1, "a.game: its keys do not win the level"));
}

}  // namespace
}  // namespace grub
