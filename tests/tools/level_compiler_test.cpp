#include "level_compiler.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "level_checks.h"
#include "level_dressing.h"
#include "level_file.h"
#include "level_test_palette.h"
#include "level_text.h"

namespace grub {
namespace {

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
}

const std::string kGoodField = "@k.E\nXXXX";

struct SourceFault {
    const char* what;
    std::string text;
    int line;
    const char* message;  // part of it
};

const SourceFault kFaults[] = {
    {"an empty file", "", 0, "wanted a playing field"},
    {"no world", "field\n@kE\nend\n", 3, "wanted a line 'world NAME'"},
    {"a world with two words", "world t t\n", 1, "'world NAME'"},
    {"a world without blocks", "world u\nfield\n@kE\nend\n", 1, "wanted a world that has the block 'wall', found 'u'"},
    {"a word that is none", "world t\nfurniture\n", 2, "found 'furniture'"},
    {"bytes that are no text", std::string("\x01\xff\0", 3), 1, "found '?"},
    {"field with something behind it", "field X\n", 1, "'field' alone"},
    {"two fields", sourceOf(kGoodField) + "field\n", 6, "wanted one playing field"},
    {"a field without rows", "world t\nfield\nend\n", 3, "at least one row"},
    {"a field without end", "world t\nfield\n@kE\n", 3, "wanted a line 'end'"},
    {"an empty row", sourceOf("@k.E\n\nXXXX"), 4, "found 0"},
    {"a longer row", sourceOf("@k.E\nXXXXX"), 4, "wanted 4 columns as in the first row, found 5"},
    {"101 columns", sourceOf(std::string(101, 'X')), 3, "wanted 1 to 100 columns, found 101"},
    {"101 rows", sourceOf(repeated("X\n", 100) + "X"), 103, "at most 100 rows"},
    {"an unknown character", sourceOf("@k?E"), 3, "wanted one of .#XHh-ES@DRLk+, found '?' in column 2"},
    {"a legend without a block", "legend X\n", 1, "'legend CHARACTER BLOCK'"},
    {"a legend for two characters", "legend XX solid\n", 1, "'legend CHARACTER BLOCK'"},
    {"a character with two meanings", "legend X solid\nlegend X marble\n", 2, "a second one of 'X'"},
    {"a legend with no such block", "world t\nlegend X gold\nfield\nX@kE\nend\n", 2, "found 'gold'"},
    {"a legend nobody uses", "world t\nlegend Q solid\nfield\nX@kE\nend\n", 2, "found 'Q'"},
    {"a placement without a place", sourceOf(kGoodField, "layer2 lamp\n"), 6, "'layer2 NAME COLUMN ROW"},
    {"a placement with half a place", sourceOf(kGoodField, "layer2 lamp 1 1 2\n"), 6, "'layer2 NAME COLUMN ROW"},
    {"a place that is no number", sourceOf(kGoodField, "layer2 lamp 1 -1\n"), 6, "counted from 0, found '-1'"},
    {"a huge place", sourceOf(kGoodField, "layer2 lamp 99999999999 1\n"), 6, "found '99999999999'"},
    {"a place outside", sourceOf(kGoodField, "layer2 lamp 4 1\n"), 6, "inside 4 columns and 2 rows, found 4 1"},
    {"a large thing half outside", sourceOf(kGoodField, "layer2 sun 3 0\n"), 6, "found 4 0"},
    {"no such block", sourceOf(kGoodField, "base gold 1 1\n"), 6, "found 'gold'"},
    {"a block id too large", sourceOf(kGoodField, "layer2 65536 1 1\n"), 6, "found '65536'"},
    {"no such object", sourceOf(kGoodField, "object cat 1 1\n"), 6, "wanted hero, dog, "},
    {"bytes that are too few", "bytes 00\n", 1, "46 hexadecimal digits"},
    {"bytes that are no digits", "bytes " + std::string(46, 'g') + "\n", 1, "found 'gg'"},
    {"no hero", sourceOf(".k.E\nXXXX"), 0, "hero (@), found 0"},
    {"two heroes", sourceOf("@k@E\nXXXX"), 0, "hero (@), found 2"},
    {"no key", sourceOf("@..E\nXXXX"), 0, "keys (k), found 0"},
    {"101 keys", sourceOf("@E" + std::string(49, 'k') + "\n" + std::string(51, 'k') + "\n" + std::string(51, 'k')), 0,
     "keys (k), found 151"},
    {"no door", sourceOf("@k..\nXXXX"), 0, "doors (E), found 0"},
    {"21 dogs", sourceOf("@kE" + std::string(21, 'D')), 0, "enemies (D, R, L), found 21"},
    {"41 hearts", sourceOf("@kE" + std::string(41, '+')), 0, "decorations together, found 41"},
    {"51 spawn points", sourceOf("@kE" + std::string(51, 'S')), 0, "spawn points (S), found 51"},
    {"air in the last of 13 columns", sourceOf("@kE.........."), 0, "found another at 12 0"},
    {"air in the last of 9 rows", sourceOf("@kE\n" + repeated("...\n", 7) + "X.X"), 0, "found another at 1 8"},
};

TEST(LevelCompiler, NamesLineAndFaultOfASourceItRefuses) {
    const BlockPalette palette = testPalette();
    TextError error;
    ASSERT_TRUE(compileLevel(sourceOf(kGoodField), palette, error)) << error.message;
    for (const SourceFault& fault : kFaults) {
        error = {-1, "no error"};
        EXPECT_FALSE(compileLevel(fault.text, palette, error)) << fault.what;
        EXPECT_NE(error.message.find(fault.message), std::string::npos) << fault.what << ": " << error.message;
        EXPECT_EQ(error.line, fault.line) << fault.what << ": " << error.message;
        EXPECT_EQ(error.message.find('\n'), std::string::npos) << fault.what;
    }
}

TEST(LevelCompiler, WarnsOfARatThatIsShutIn) {
    const struct {
        const char* field;
        std::size_t warnings;
    } rows[] = {
        {"@kE.XRX\nXXXXXXX", 1},  // in Solid it dies
        {"@kE..R.\nXXXX.X.", 1},  // nothing to stand on at either side
        {"@kE.XR.\nXXXXXXX", 0},  // room to the right
        {"@kE.XRH\nXXXXXXX", 0},  // a ladder is room
        {"@kE.XXX\nXXXX.RX", 0},  // the bottom row carries
        {"@kE.RX.\nXXXXXXX", 0},
    };
    const BlockPalette palette = testPalette();
    for (const auto& row : rows) {
        TextError error;
        std::string reason;
        const auto bytes = compileLevel(sourceOf(row.field), palette, error);
        ASSERT_TRUE(bytes) << error.message;
        EXPECT_EQ(levelWarnings(*readLevelFile(*bytes, reason), palette).size(), row.warnings) << row.field;
    }
}

TEST(LevelCompiler, TakesLineEndsOfEitherKindCommentsAndBlanksAtTheEndOfRows) {
    const BlockPalette palette = testPalette();
    TextError error;
    const auto plain = compileLevel(sourceOf(kGoodField), palette, error);
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain, compileLevel("; a comment\r\n title A b\r\nworld t\r\n\r\nfield\r\n@k.E  \r\nXXXX\r\nend", palette,
                                  error));
}

TEST(LevelCompiler, AnyCutOfASourceIsAnswered) {
    const BlockPalette palette = testPalette();
    const std::string whole = "title x\nworld t\nlegend X marble\nbytes " + std::string(46, '1') +
                              "\nfield\n@k.E\nXXXX\nend\nlayer4 sun 0 0\nobject drops 2 0\n";
    for (std::size_t length = 0; length < whole.size(); ++length) {
        TextError error{-1, ""};
        const bool good = compileLevel(whole.substr(0, length), palette, error).has_value();
        EXPECT_EQ(good, error.line == -1) << length;
    }
}

/// Compiles what `show` prints of a level; the bytes must be the level's own.
void expectComesBack(const std::vector<std::uint8_t>& bytes, const BlockPalette& palette) {
    std::string reason;
    const auto level = readLevelFile(bytes, reason);
    ASSERT_TRUE(level) << reason;
    const std::string text = showLevel(*level, palette);
    TextError error;
    const auto source = parseLevelSource(text, error);
    ASSERT_TRUE(source) << error.line << ": " << error.message << "\n" << text;
    const auto back = dressLevel(*source, palette, error);
    ASSERT_TRUE(back) << error.line << ": " << error.message << "\n" << text;
    EXPECT_EQ(writeLevelFile(*back), bytes) << text;
}

TEST(LevelText, ShowsALevelAsItWasDrawn) {
    const BlockPalette palette = testPalette();
    const std::string source =
        "world t\nlegend X marble\n\nfield\n@k.#.H\nS-h-DE\nXXXXXX\nend\n\nlayer2 lamp  2 0  4 1\nobject drops  2 0\n";
    TextError error;
    const auto bytes = compileLevel(source, palette, error);
    ASSERT_TRUE(bytes) << error.message;
    std::string reason;
    EXPECT_EQ(showLevel(*readLevelFile(*bytes, reason), palette), source);
}

TEST(LevelText, BringsEveryLevelBack) {
    const BlockPalette palette = testPalette();
    std::mt19937 random(5);
    for (int round = 0; round < 50; ++round) {
        LevelFile level = emptyLevel(1 + static_cast<int>(random() % 30), 1 + static_cast<int>(random() % 12));
        for (CellRecord& record : level.records) {
            record.base = static_cast<std::uint16_t>(random() % 100);  // half of these ids have no name
            record.layer2 = random() % 3 == 0 ? static_cast<std::uint16_t>(random()) : 0;
            record.layer3 = random() % 2 == 0 ? 80 : 0;
            record.layer5 = random() % 4 == 0 ? 82 : 0;
            record.code = random() % 9 == 0 ? static_cast<std::uint16_t>(40 + random() % 3) : 0;
        }
        level.records[random() % level.records.size()].code = 8;
        for (std::size_t i = 0; i < kFreeBytes; i += 1 + random() % 9) level.header[freeByteOffset(i)] = 0xa5;
        expectComesBack(writeLevelFile(level), palette);
    }
}

TEST(LevelText, WidensOlderVersions) {
    LevelFile level = emptyLevel(2, 1);
    level.version = 2;
    level.records = {{10, 81, 0, 0, 8, 0}, {60, 0, 0, 0, 0, 0}};
    std::string reason;
    const auto read = readLevelFile(writeLevelFile(level), reason);
    ASSERT_TRUE(read) << reason;
    level.version = LevelFile::kCurrentVersion;
    TextError error;
    const auto back = dressLevel(*parseLevelSource(showLevel(*read, testPalette()), error), testPalette(), error);
    ASSERT_TRUE(back) << error.message;
    EXPECT_EQ(back->records, level.records);
}

}  // namespace
}  // namespace grub
