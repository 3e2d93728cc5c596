#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "glyph_writer.h"
#include "grubtool_run.h"
#include "level_list.h"
#include "level_writer.h"
#include "ogg_writer.h"
#include "package_files.h"
#include "package_writer.h"
#include "pixel_image.h"
#include "scratch_directory.h"
#include "wav_writer.h"

namespace grub {
namespace {

class PackCommands : public testing::Test {
protected:
    const ScratchDirectory scratch_;
    const std::string package_ = scratch_.file("test.pak");
};

TEST_F(PackCommands, PackLaysFilesInTheOrderOfTheirNames) {
    scratch_.write("in/b.txt", bytesOf("bee"));
    scratch_.write("in/data/gif/a.txt", bytesOf("aye"));
    scratch_.write("in/data/B.txt", bytesOf("B"));
    scratch_.write("in/\xE9.txt", {});
    ASSERT_EQ(grubtool({"pack", scratch_.file("in"), package_}).exitCode, 0);
    EXPECT_EQ(grubtool({"list", package_}).out, "3 b.txt\n1 data\\B.txt\n3 data\\gif\\a.txt\n0 \xE9.txt\n");
}

TEST_F(PackCommands, FailureIsALineThatNamesTheFile) {
    const std::string in = scratch_.file("in");
    EXPECT_TRUE(grubtool({"list", package_}).failed(1, package_ + ": cannot be read\n"));
    EXPECT_TRUE(grubtool({"pack", in, package_}).failed(1, package_ + ": " + in + ": No such file or directory\n"));
    EXPECT_TRUE(
        grubtool({"verify", scratch_.write("a.pak", bytesOf("something else"))}).failed(1, ".pak: is no package"));
    scratch_.write("in/a\\b", bytesOf("x"));
    EXPECT_TRUE(grubtool({"pack", in, package_}).failed(1, "in/a\\b: \"\\\" in a file's name separates folders\n"));
}

TEST(PackageBuilder, HoldsADirectoryOf65535BytesAndRefusesMore) {
    std::vector<PackItem> items;
    for (int i = 1000; i < 1257; ++i) items.push_back({std::to_string(i) + std::string(242, 'x'), {}});  // 255 each
    std::string fault;
    EXPECT_TRUE(buildPackage(items, fault)) << fault;
    items.back().name += 'x';
    EXPECT_FALSE(buildPackage(items, fault));
    EXPECT_EQ(fault, "the directory would take 65536 bytes (each name and 9), at most 65535 fit");
}

TEST_F(PackCommands, ExtractWritesNothingOutsideItsDirectory) {
    for (const char* name : {"..\\a", "a\\..\\..\\b", "/a", "c:a", "..", ""}) {
        SCOPED_TRACE(name);
        scratch_.write("test.pak", PackageWriter().add("good", {1}).add(name, {1}).package());
        EXPECT_TRUE(grubtool({"extract", package_, scratch_.file("out")})
                        .failed(1, package_ + ": \"" + name + "\" would leave the directory\n"));
        EXPECT_FALSE(std::filesystem::exists(scratch_.file("out")));
    }
}

/// These bytes with a field of `size` bytes changed.
Bytes with(Bytes bytes, std::size_t offset, std::uint32_t value, unsigned size) {
    put(bytes, offset, value, size);
    return bytes;
}
/// Their first `size` bytes.
Bytes cut(Bytes bytes, std::size_t size) {
    bytes.resize(size);
    return bytes;
}

/// Header 0..5, entries from 6 and 16, data from 26.
const Bytes kGood = PackageWriter().add("a", bytesOf("one")).add("b", bytesOf("two")).package();
const Bytes kWav = writeWav({.samples = Bytes(10)});

Bytes holding(std::string_view name, const Bytes& bytes) { return PackageWriter().add(name, bytes).package(); }
/// A picture of clear pixels.
Bytes pictureOf(int width) { return holding("a.bmp", bmpBytes(PixelImage(width, 1))); }
Bytes wavOf(const WavParts& parts) { return holding("a.wav", writeWav(parts)); }

Bytes drawn(const Drawing& drawing) { return writeLevelFile(drawnLevel(drawing)); }
const Bytes kLevel = drawn({"@ k E", "# # #"});
/// A levels package of one level.
Bytes levelsOf(const Bytes& level, const std::string& below = "") {
    return PackageWriter().add(kBlockTableName, bytesOf(drawnBlockTable() + below)).add("a.lvl", level).package();
}

Bytes interfaceOf(const std::string& records) {
    return holding("data\\ui._i_2", bytesOf("S,\"p\",1\nL,\"i\",1\n" + records));
}
/// An interface with a picture of the one file in "ui.pak", which has 2 x 4 pixels.
Bytes pictured(const std::string& file, const std::string& size, const std::string& grid = "1,1,0") {
    return interfaceOf("A,\"\",\"" + file + "\",0,0," + size + ",0,0," + grid + "\n");
}
const Bytes kInterfacePackage = holding("ui\\one.bmp", bmpBytes(PixelImage(2, 4)));
Bytes glyphsOf(const Bytes& table) { return holding("f_1_0.bmp.dat", table); }

Bytes soundsOf(const Bytes& ogg) { return holding("a.ogg", ogg); }
const Bytes kOgg = writeOgg({sine(44100, 440, 44100)}, {.smallPages = true});

/// A package and how the first line about it begins, behind the name of the file.
struct VerifyRule {
    const char* what;
    Bytes package;
    std::string_view line;
};

// clang-format off
const VerifyRule kVerifyRules[] = {
    {"a good one",          kGood, ""},
    {"a cut directory",     cut(kGood, 20), "the file ends inside the directory of 20 bytes"},
    {"a count too high",    with(kGood, 4, 3, 2), "counts 3 entries, the directory holds 2"},
    {"an entry of 4 GiB",   with(kGood, 18, 0xFFFFFFFF, 4), "b: ends at byte 4294967324, the file has 32"},
    {"an overlap",          with(kGood, 22, 28, 4), "b: overlaps \"a\""},
    {"equal names",         with(kGood, 16, 'a', 1), "a: is there twice"},
    {"a slash",             holding("data/a", {1}), "data/a: has \"/\" in its name"},
    {"the largest picture", pictureOf(4096), "warning: a.bmp: the alpha plane is all zero"},
    {"a larger picture",    pictureOf(4097), "a.bmp: the picture has 4097 x 1 pixels, the game shows 1 to 4096"},
    {"a picture by magic",  holding("a", bytesOf("\xFF\xD8\xFF\xC0garbage")), "a: the picture does not decode: "},
    {"an odd chunk",        wavOf({.samples = Bytes(10), .beforeData = riffChunk("LIST", {1})}), ""},
    {"a large sound",       wavOf({.samples = Bytes(262144)}), "warning: a.wav: a WAV file of this size is streamed"},
    {"an empty sound",      wavOf({}), "a.wav: the sound does not decode"},
    {"nine channels",       wavOf({.channels = 9, .samples = Bytes(18)}), "a.wav: the sound has 9 channels"},
    {"a data size too high", holding("a.wav", with(kWav, 40, 12, 4)), "a.wav: the chunk 'data' claims 12 bytes, the file has 10"},
    {"a missing sound",     holding("sound\\sound.ini", bytesOf("[sound]\r\nlov=b.wav\r\n")), "sound\\sound.ini: line 2 names \"sound\\b.wav\", which the package lacks"},
    {"no sound table",      holding("sound\\a.wav", kWav), "sound\\sound.ini: is missing"},
    {"a whole Ogg file",    soundsOf(kOgg), ""},
    {"a cut Ogg file",      soundsOf(cut(kOgg, kOgg.size() - 1)), "a.ogg: the Ogg file ends inside a page"},
    {"an Ogg page missing", soundsOf(cut(kOgg, oggPages(kOgg).back().start)), "a.ogg: the Ogg file ends before its last page"},
    {"an Ogg page damaged", soundsOf(with(kOgg, oggPages(kOgg).back().start, 'x', 1)), "a.ogg: the Ogg file has no page where one must begin"},
    {"a good interface",    pictured("one.bmp", "2,4,2"), ""},
    {"an unknown tag",      interfaceOf("X,\"\"\n"), "data\\ui._i_2: line 3: wanted Screens, S, L, A or T, found 'X'"},
    {"no such picture",     pictured("two.bmp", "2,4,1"), "data\\ui._i_2: layout \"p\", item \"i\": a picture is \"ui\\two.bmp\", which ui.pak lacks"},
    {"another size",        pictured("one.bmp", "2,5,1"), "data\\ui._i_2: layout \"p\", item \"i\": a picture is described as 2 x 5, \"ui\\one.bmp\" is 2 x 4"},
    {"frames left over",    pictured("one.bmp", "2,4,3"), "data\\ui._i_2: layout \"p\", item \"i\": a picture is 4 pixels high, which 3 frames do not divide"},
    {"a grid too large",    pictured("one.bmp", "2,4,1", "999,999,1"), "data\\ui._i_2: layout \"p\", item \"i\": a picture has 999 x 999 cells, the game draws at most 10000"},
    {"no such font",        interfaceOf("T,\"\",\"\",0,0,0,0,0,0,0,0,0,0,\"f\",1,0,0,\"\"\n"), "data\\ui._i_2: a font is \"ui\\f_1_0.bmp\", which ui.pak lacks"},
    {"no interface package", holding("data\\ux._i_2", {}), "data\\ux._i_2: needs ux.pak beside its package: cannot be read"},
    {"a good glyph table",  glyphsOf(writeGlyphTable('A', 'A', 9, {{}})), ""},
    {"a cut glyph table",   glyphsOf(writeGlyphTable('A', 'B', 9, {{}})), "f_1_0.bmp.dat: the glyph table has 26 bytes, the codes 65 to 66 take 46"},
    {"no glyph",            glyphsOf(writeGlyphTable('B', 'A', 9, {})), "f_1_0.bmp.dat: the glyph table has the codes 66 to 65: no glyph"},
    {"a bad block table",   levelsOf(kLevel, "[7]\r\ntype=8\r\n"), "levels\\typeblok.ini: line "},
    {"a cut level",         levelsOf(cut(kLevel, kLevel.size() - 1)), "a.lvl: the level is refused: 72 bytes of cells announced, 71 there"},
    {"a level of no width", levelsOf(with(kLevel, 24, 0, 4)), "a.lvl: the level is refused: "},
    {"a level too wide",    levelsOf(with(kLevel, 24, 101, 4)), "a.lvl: the level is refused: "},
    {"a level without hero", levelsOf(drawn({"k . E", "# # #"})), "a.lvl: the level is refused: "},
    {"an unknown block",    levelsOf(with(kLevel, 32 + 3 * 12, 77, 2)), "a.lvl: the cell 0 1 has the block 77, which the table lacks"},
    {"no block table",      holding("a.lvl", kLevel), "levels\\typeblok.ini: is missing"},
    {"a level without key", levelsOf(drawn({"@ . E", "# # #"})), "a.lvl: the level cannot be played: wanted 1 to 100 keys (k), found 0"},
};
// clang-format on

TEST(PackageVerifier, NamesEntryAndFault) {
    const ScratchDirectory scratch;
    for (const VerifyRule& rule : kVerifyRules) {
        SCOPED_TRACE(rule.what);
        const std::string path = scratch.write("test.pak", rule.package);
        scratch.write("ui.pak", kInterfacePackage);
        const GrubtoolRun run = grubtool({"verify", path});
        EXPECT_EQ(run.exitCode, rule.line.empty() || rule.line.starts_with("warning: ") ? 0 : 1);
        EXPECT_TRUE(rule.line.empty() ? run.errors.empty()
                                      : run.errors.starts_with(path + ": " + std::string(rule.line)))
            << run.errors;
    }
}

}  // namespace
}  // namespace grub
