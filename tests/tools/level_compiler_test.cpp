// Level sources to level files and back, and the block table that they use.

#include "level_compiler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "level_file.h"

namespace grub {
namespace {

/// Every type, every shape, one family with variants.
const BlockPalette& palette() {
    constexpr std::string_view kTable =
        "[0]\nname=t.wall\n[1]\nname=t.wall~2\n[2]\nname=t.wall~3\n"
        "[10]\nname=t.floor\ntype=1\n[11]\nname=t.floor.left\ntype=1\n[12]\nname=t.floor.right\ntype=1\n"
        "[13]\nname=t.floor.single\ntype=1\n[14]\nname=t.floor.under\ntype=1\n"
        "[20]\nname=t.solid\ntype=5\n[21]\nname=t.marble\ntype=5\n"
        "[30]\nname=t.ladder\ntype=2\n[31]\nname=t.ladder.top\ntype=2\n[32]\nname=t.ladder.foot\ntype=2\n"
        "[40]\nname=t.pipe\ntype=3\n[41]\nname=t.pipe.left\ntype=3\n[42]\nname=t.pipe.right\ntype=3\n"
        "[43]\nname=t.pipe.single\ntype=3\n[44]\nname=t.pipe.joint\ntype=3\n"
        "[50]\nname=t.hidden\ntype=6\n[60]\nname=t.door\ntype=8\n[70]\nname=t.spawn\ntype=9\n"
        "[80]\nname=shade\n[83]\nname=shade.left\n[84]\nname=shade.right\n[81]\nname=t.lamp\n[82]\nname=lamp\n"
        "[91]\nname=sun.11\n[92]\nname=sun.12\n[93]\nname=sun.21\n[94]\nname=sun.23\n";
    static const BlockPalette kPalette(SharedBuffer::view(reinterpret_cast<const std::uint8_t*>(kTable.data()),
                                                          static_cast<std::uint32_t>(kTable.size())));
    return kPalette;
}

/// A source of world "t" with this playing field and these lines below it.
std::string sourceOf(const std::string& field, const std::string& below = "") {
    return "world t\nfield\n" + field + "\nend\n" + below;
}

LevelFile dressed(const std::string& text) {
    TextError error;
    const auto source = parseLevelSource(text, error);
    const auto level = source ? dressLevel(*source, palette(), error) : std::nullopt;
    EXPECT_TRUE(level) << error.in(text);
    return level.value_or(emptyLevel(1, 1));
}

struct SourceFault {
    const char* what;
    std::string text;
    int line;
    const char* message;  // part of it
};

void expectFaults(std::span<const SourceFault> faults, bool (*accepts)(const std::string& text, TextError& error)) {
    for (const SourceFault& fault : faults) {
        SCOPED_TRACE(fault.what);
        TextError error{-1, "no error"};
        EXPECT_FALSE(accepts(fault.text, error));
        EXPECT_NE(error.message.find(fault.message), std::string::npos) << error.message;
        EXPECT_EQ(error.line, fault.line) << error.message;
    }
}

const std::string kGood = "@k.E\nXXXX";

const SourceFault kSourceFaults[] = {
    {"no world", "field\n@kE\nend\n", 3, "wanted a line 'world NAME'"},
    {"an unknown word, and no text", "world t\n\x01\xff\n", 2, "found '?"},
    {"101 columns", sourceOf(std::string(101, 'X')), 3, "wanted 1 to 100 columns, found 101"},
    {"an unknown character", sourceOf("@k?E"), 3, "wanted one of .#XHh-ES@DRLk+, found '?'"},
    {"a legend without such a block", "world t\nlegend X gold\nfield\nX@kE\nend\n", 2, "found 'gold'"},
    {"a large thing half outside", sourceOf(kGood, "layer2 sun 3 0\n"), 6, "inside 4 columns and 2 rows, found 4 0"},
    {"a block id too large", sourceOf(kGood, "layer2 65536 1 1\n"), 6, "found '65536'"},
    {"no door", sourceOf("@k..\nXXXX"), 2, "wanted at least 1 door (E), found 0"},
    {"two heroes", sourceOf("@kE.\nX@XX"), 4, "wanted exactly 1 hero (@), found 2"},
    {"21 dogs", sourceOf("@kE" + std::string(21, 'D')), 3, "wanted at most 20 enemies (D, R, L), found 21"},
    {"air in the last of 13 columns", sourceOf("@kE.........."), 3, "another block"},
};

TEST(LevelCompiler, NamesLineAndFaultOfASourceItRefuses) {
    TextError error;
    ASSERT_TRUE(compileLevel(sourceOf(kGood), palette(), error)) << error.message;
    expectFaults(kSourceFaults, [](const std::string& text, TextError& fault) {
        return compileLevel(text, palette(), fault).has_value();
    });
}

TEST(LevelCompiler, TakesEitherLineEndCommentsAndBlanksAtTheEndOfRows) {
    TextError error;
    const auto plain = compileLevel(sourceOf("#k.E\n@XXX"), palette(), error);
    ASSERT_TRUE(plain) << error.message;
    EXPECT_EQ(plain, compileLevel(" # a comment\r\n title A b\r\nworld t\r\n\r\nfield\r\n#k.E  \r\n@XXX\r\nend",
                                  palette(), error));
}

struct DressedRow {
    const char* what;
    std::string field;
    std::string below;
    Slot slot;
    int row;
    const char* wanted;  // ids of the row; _ is 0 or any picture of the wall
};

const std::string kLamps = "base marble 0 0\nlayer2 lamp 1 0\nlayer3 777 1 0\nlayer4 shade 1 0\nobject drops 2 0 3 0\n";
const std::string kSun = "....\n....\n....";

const DressedRow kDressedRows[] = {
    {"floors end in air only", "..........\n.##.#.H##X", "", Slot::Base, 1, "_ 11 12 _ 13 _ 31 10 10 20"},
    {"floors go on at the level's edge", "..\n##", "", Slot::Base, 1, "10 10"},
    {"floors below masonry have no cap", "#X..\n###.", "", Slot::Base, 1, "14 14 12 _"},
    {"pipes have ends and joints", "H-------.-.-", "", Slot::Base, 0, "30 41 40 40 44 40 40 42 _ 43 _ 41"},
    {"ladders go on above the first row", "H.\nH.\n..", "", Slot::Base, 0, "30 _"},
    {"ladders have a top", "..\nH.\nH.\n..", "", Slot::Base, 1, "31 _"},
    {"ladders have a foot", "..\nH.\nH.\n..", "", Slot::Base, 2, "32 _"},
    {"a shadow falls below masonry", "#X#.\n#.##", "", Slot::Layer3, 1, "_ 80 _ _"},
    {"a shadow ends with its floor", ".###.#H#.\n.......##", "", Slot::Layer3, 1, "_ 83 80 84 _ 80 _ _ _"},
    {"a source takes the shadow away", "#XH.\n#.HH", "layer3 none 1 1\n", Slot::Layer3, 1, "_ _ _ _"},
    {"placed: a block", "....", kLamps, Slot::Base, 0, "21 _ _ _"},
    {"placed: the world's own lamp", "....", kLamps, Slot::Layer2, 0, "_ 81 _ _"},
    {"placed: objects, the last line wins", "....", kLamps + "object 99 3 0\n", Slot::Object, 0, "_ _ 28 99"},
    {"a large thing, second row", kSun, "layer4 sun 1 1\n", Slot::Layer4, 2, "_ 93 _ 94"},
    {"a legend changes the block", "Xwk", "legend X marble\nlegend w wall~2\nlegend k wall~3\n", Slot::Base, 0,
     "21 1 2"},
};

TEST(LevelDressing, GivesCellsTheirBlocks) {
    for (const DressedRow& row : kDressedRows) {
        SCOPED_TRACE(row.what);
        const LevelFile level = dressed(sourceOf(row.field, row.below));
        std::istringstream wanted(row.wanted);
        int column = 0;
        for (std::string word; wanted >> word; ++column) {
            const int id = valueIn(recordAt(level, column, row.row), row.slot);
            EXPECT_TRUE(word == "_" ? id <= 2 : word == std::to_string(id)) << "column " << column << ": " << id;
        }
        EXPECT_EQ(column, level.width);
    }
}

TEST(LevelDressing, VariantsDependOnThePlaceAlone) {
    const LevelFile open = dressed(sourceOf(std::string(40, '.') + "\n" + std::string(40, '.')));
    const LevelFile shut = dressed(sourceOf(std::string(40, '#') + "\n" + std::string(40, '.')));
    std::vector<int> counts(3);
    for (std::size_t i = 40; i < 80; ++i) {
        EXPECT_EQ(open.records[i].base, shut.records[i].base) << i;
        ++counts.at(open.records[i].base);
    }
    EXPECT_TRUE(counts[0] > 20 && counts[1] > 0 && counts[2] > 0) << "most walls are plain, some are not";
}

TEST(LevelText, ShowsALevelAsItWasDrawn) {
    const std::string source =
        "world t\nlegend X marble\n\nfield\n@k.#.H\nS-h-DE\nXXXXXX\nend\n\nlayer2 lamp  2 0  4 1\nobject drops  2 0\n";
    EXPECT_EQ(showLevel(dressed(source), palette()), source);
}

TEST(LevelText, BringsEveryLevelBack) {
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
        level.records[0].base = 10;  // makes it a level of world t
        for (std::size_t i = 0; i < 24; i += 1 + random() % 9)
            if (i != 20) level.header[i] = 0xa5;  // 20 is the version
        const std::string text = showLevel(level, palette());
        EXPECT_EQ(writeLevelFile(dressed(text)), writeLevelFile(level)) << text;
    }
}

TEST(BlockTable, BecomesWhatTheGameReads) {
    TextError error;
    EXPECT_EQ(packBlockTable("; c\n[6]\ntype=1\nspriteFire=poly\\lom1\nspriteRost=poly\\vosstfull#2\n[7]\nsprite=90\n",
                             error),
              "; c\r\n[6]\r\ntype=1\r\nspriteFire=88\r\nspriteRost=164\r\n[7]\r\nsprite=90\r\n");
    EXPECT_EQ(packBlockTable("[6]\r\ntype=2\r\n", error), "[6]\r\ntype=2\r\n");
}

TEST(BlockTable, OfTheGameHasEveryBlockInEveryWorld) {
    std::ifstream file(GRUB_CONTENT_DIR "/levels/typeblok.ini", std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    TextError error;
    const auto table = packBlockTable(text, error);
    ASSERT_TRUE(table) << error.in("typeblok.ini");
    const BlockPalette blocks(SharedBuffer::view(reinterpret_cast<const std::uint8_t*>(table->data()),
                                                 static_cast<std::uint32_t>(table->size())));
    constexpr std::string_view kShapes[] = {
        "wall",        "wall~2",        "floor",     "floor~2",     "floor.left",  "floor.right",     "floor.single",
        "floor.under", "floor.under~2", "solid",     "solid.under", "ladder",      "ladder.top",      "ladder.foot",
        "hidden",      "pipe",          "pipe.left", "pipe.right",  "pipe.single", "pipe.joint",      "door",
        "door.bars",   "door.gate",     "spawn",     "lamp",        "wallpipe",    "wallpipe.upright"};
    for (const LevelWorld& world : kLevelWorlds) {
        for (const std::string_view shape : kShapes) {
            const Block* first = blocks.byName("turma." + std::string(shape));
            const Block* own = blocks.byName(std::string(world.name) + "." + std::string(shape));
            ASSERT_TRUE(first != nullptr && own != nullptr) << world.name << " " << shape;
            EXPECT_EQ(own->type, first->type) << own->name;
        }
    }
}

TEST(BlockTable, RefusesWhatTheGameWouldSkipOrMisread) {
    const SourceFault faults[] = {
        {"a section that is not closed", "[5\n", 1, "'[NUMBER]'"},
        {"a blank before the equals sign", "[5]\ntype =2\n", 2, "found 'type '"},
        {"a picture that does not exist", "[5]\nsprite=34\n", 2,
         "a picture with a sprite number in the loading list, or such a number, found '34'"},
        {"a picture that stands there once only", "[5]\nsprite=fon\\lamp#2\n", 2, "found 'fon\\lamp#2'"},
        {"a picture of no block", "[5]\ntype=2\nsprite=grub\\ani_01\n", 3, "found 'grub\\ani_01'"},
        {"a name twice", "[5]\nname=a\n[6]\nname=a\n", 4, "each name once"},
        {"a floor that cannot grow back", "[6]\ntype=1\nspriteFire=88\n[7]\n", 1, "spriteFire and spriteRost"},
        {"a last line without an end", "[6]\ntype=2", 2, "wanted a line end"},
    };
    expectFaults(faults,
                 [](const std::string& text, TextError& error) { return packBlockTable(text, error).has_value(); });
}

}  // namespace
}  // namespace grub
