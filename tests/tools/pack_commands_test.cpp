#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "grubtool_run.h"
#include "level_list.h"
#include "level_writer.h"
#include "package_files.h"
#include "package_writer.h"
#include "scratch_directory.h"
#include "wav_writer.h"

namespace grub {
namespace {

class PackCommands : public testing::Test {
protected:
    ScratchDirectory scratch_;
    std::string package_ = scratch_.file("test.pak");
};

TEST_F(PackCommands, PackLaysFilesInTheOrderOfTheirNames) {
    scratch_.write("in/b.txt", bytesOf("bee"));
    scratch_.write("in/data/gif/a.txt", bytesOf("aye"));
    scratch_.write("in/data/B.txt", bytesOf("B"));
    scratch_.write("in/\xE9.txt", {});
    ASSERT_EQ(grubtool({"pack", scratch_.file("in"), package_}).exitCode, 0);
    EXPECT_EQ(scratch_.read("test.pak"), PackageWriter()
                                             .add("b.txt", bytesOf("bee"))
                                             .add("data\\B.txt", bytesOf("B"))
                                             .add("data\\gif\\a.txt", bytesOf("aye"))
                                             .add("\xE9.txt", {})
                                             .package());
    EXPECT_EQ(grubtool({"list", package_}).out, "3 b.txt\n1 data\\B.txt\n3 data\\gif\\a.txt\n0 \xE9.txt\n");
    EXPECT_EQ(grubtool({"verify", package_}).exitCode, 0);
}

TEST_F(PackCommands, ExtractedPackagePacksToTheSameBytes) {
    for (int i = 0; i < 300; ++i) {
        scratch_.write("in/" + std::to_string(i % 7) + "/f" + std::to_string(i),
                       Bytes(static_cast<std::size_t>(i), static_cast<std::uint8_t>(i)));
    }
    ASSERT_EQ(grubtool({"pack", scratch_.file("in"), package_}).exitCode, 0);
    ASSERT_EQ(grubtool({"extract", package_, scratch_.file("out")}).exitCode, 0);
    ASSERT_EQ(grubtool({"pack", scratch_.file("out"), scratch_.file("again.pak")}).exitCode, 0);
    EXPECT_EQ(scratch_.read("again.pak"), scratch_.read("test.pak"));
    EXPECT_EQ(scratch_.read("out/5/f299"), Bytes(299, 299 - 256));
}

TEST_F(PackCommands, FailureIsALineThatNamesTheFile) {
    EXPECT_TRUE(grubtool({"list", package_}).failed(1, package_ + ": cannot be read\n"));
    scratch_.write("test.pak", bytesOf("something else"));
    EXPECT_TRUE(
        grubtool({"verify", package_})
            .failed(1, package_ + ": is no package: it wants the bytes 78 19, then a directory of at least 8 bytes\n"));
    EXPECT_TRUE(grubtool({"pack", scratch_.file("nowhere"), package_})
                    .failed(1, package_ + ": " + scratch_.file("nowhere") + ": No such file or directory\n"));
    scratch_.write("in/a\\b", bytesOf("x"));
    EXPECT_TRUE(
        grubtool({"pack", scratch_.file("in"), package_})
            .failed(1, package_ + ": " + scratch_.file("in/a\\b") + ": \"\\\" in a file's name separates folders\n"));
}

TEST(PackageBuilder, HoldsADirectoryOf65535BytesAndRefusesMore) {
    std::vector<PackItem> items;
    items.reserve(257);
    for (int i = 0; i < 257; ++i) items.push_back({std::to_string(1000 + i) + std::string(242, 'x'), {}});  // 255 each
    std::string fault;
    EXPECT_TRUE(buildPackage(items, fault)) << fault;
    items.back().name += 'x';
    EXPECT_FALSE(buildPackage(items, fault));
    EXPECT_EQ(fault, "the directory would take 65536 bytes (each name and 9), at most 65535 fit");
    EXPECT_FALSE(buildPackage(std::vector<PackItem>(70000, {"x", {}}), fault)) << "nor can it count so many";
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

TEST_F(PackCommands, ExtractGivesTheFirstOfTwoEqualNamesAsTheGameDoes) {
    scratch_.write("test.pak",
                   PackageWriter().add("..a\\b..", bytesOf("1st")).add("..a\\b..", bytesOf("2nd")).package());
    ASSERT_EQ(grubtool({"extract", package_, scratch_.file("out")}).exitCode, 0);
    EXPECT_EQ(scratch_.read("out/..a/b.."), bytesOf("1st"));
}

/// A BMP of black pixels, 24 or 32 bits each.
Bytes bmpOf(std::uint32_t width, std::uint16_t bits, std::uint8_t alpha = 0) {
    Bytes bmp(54 + std::size_t{4} * width);
    bmp[0] = 'B';
    bmp[1] = 'M';
    put(bmp, 10, 54, 4);
    put(bmp, 14, 40, 4);
    put(bmp, 18, width, 4);
    put(bmp, 22, 1, 4);
    put(bmp, 26, 1, 2);
    put(bmp, 28, bits, 2);
    bmp.back() = alpha;
    return bmp;
}

template <class Damage>
Bytes damaged(Bytes bytes, Damage damage) {
    damage(bytes);
    return bytes;
}

/// Header 0..5, entries from 6 and 16, data from 26.
Bytes goodPackage() { return PackageWriter().add("a", bytesOf("one")).add("b", bytesOf("two")).package(); }

Bytes holding(std::string_view name, Bytes bytes) { return PackageWriter().add(name, std::move(bytes)).package(); }

Bytes wavOf(const WavParts& parts) { return holding("a.wav", writeWav(parts)); }

/// A levels package of one level.
Bytes levelsOf(Bytes level, const std::string& table = drawnBlockTable()) {
    return PackageWriter().add(kBlockTableName, bytesOf(table)).add("a.lvl", std::move(level)).package();
}
Bytes drawn(const Drawing& drawing) { return writeLevelFile(drawnLevel(drawing)); }

Bytes soundsOf(std::string_view table) {
    return PackageWriter()
        .add("sound\\sound.ini", bytesOf(table))
        .add("sound\\a.wav", writeWav({.samples = {1, 2}}))
        .package();
}

/// A package and how the first line about it begins, behind the name of the file.
struct VerifyRule {
    const char* what;
    Bytes package;
    const char* line;
};

// clang-format off
const VerifyRule kVerifyRules[] = {
    {"a good one",          goodPackage(), ""},
    {"a cut directory",     damaged(goodPackage(), [](Bytes& p) { p.resize(20); }), "the file ends inside the directory of 20 bytes"},
    {"a count too high",    damaged(goodPackage(), [](Bytes& p) { put(p, 4, 3, 2); }), "counts 3 entries, the directory holds 2"},
    {"a count too low",     damaged(goodPackage(), [](Bytes& p) { put(p, 4, 1, 2); }), "the directory has 10 bytes behind its last entry"},
    {"an entry of 4 GiB",   damaged(goodPackage(), [](Bytes& p) { put(p, 18, 0xFFFFFFFF, 4); }), "b: ends at byte 4294967324, the file has 32"},
    {"an overlap",          damaged(goodPackage(), [](Bytes& p) { put(p, 22, 28, 4); }), "b: overlaps \"a\""},
    {"in the directory",    damaged(goodPackage(), [](Bytes& p) { put(p, 12, 20, 4); }), "a: starts at byte 20, inside header and directory"},
    {"equal names",         damaged(goodPackage(), [](Bytes& p) { p[16] = 'a'; }), "a: is there twice"},
    {"a slash",             holding("data/a", {1}), "data/a: has \"/\" in its name"},
    {"no name",             holding("", {1}), "has no name"},
    {"an opaque picture",   holding("a.bmp", bmpOf(1, 24)), ""},
    {"a seen picture",      holding("a.bmp", bmpOf(1, 32, 4)), ""},
    {"an invisible one",    holding("a.bmp", bmpOf(1, 32)), "warning: a.bmp: the alpha plane is all zero"},
    {"the largest picture", holding("a.bmp", bmpOf(4096, 32, 1)), ""},
    {"a larger picture",    holding("a.bmp", bmpOf(4097, 32, 1)), "a.bmp: the picture has 4097 x 1 pixels, the game shows 1 to 4096"},
    {"a picture of nothing", holding("a.bmp", bmpOf(0, 24)), "a.bmp: the picture has 0 x 1 pixels"},
    {"a picture by name",   holding("a.GIF", bytesOf("hello")), "a.GIF: the picture does not decode: "},
    {"a picture by magic",  holding("a", bytesOf("\xFF\xD8\xFF\xC0garbage")), "a: the picture does not decode: "},
    {"a sound",             wavOf({.samples = Bytes(10), .beforeData = riffChunk("LIST", {1})}), ""},
    {"a large sound",       wavOf({.samples = Bytes(262144)}), "warning: a.wav: a WAV file of this size is streamed"},
    {"an empty sound",      wavOf({}), "a.wav: the sound does not decode"},
    {"nine channels",       wavOf({.channels = 9, .samples = Bytes(18)}), "a.wav: the sound has 9 channels"},
    {"seven bits",          wavOf({.bits = 7, .samples = Bytes(10)}), "a.wav: the sound has 7 bits a sample"},
    {"a slow rate",         wavOf({.rate = 99, .samples = Bytes(10)}), "a.wav: the sound has 99 samples a second"},
    {"a data size too high", holding("a.wav", damaged(writeWav({.samples = Bytes(10)}), [](Bytes& w) { put(w, 40, 12, 4); })),
                            "a.wav: the chunk 'data' claims 12 bytes, the file has 10"},
    {"a data size too low", holding("a.wav", damaged(writeWav({.samples = Bytes(10)}), [](Bytes& w) { put(w, 40, 8, 4); })),
                            "a.wav: the WAV file ends with a piece of a chunk"},
    {"a sound of floats",   holding("a.wav", damaged(writeWav({.samples = Bytes(10)}), [](Bytes& w) { put(w, 20, 3, 2); })),
                            "a.wav: the WAV file has format 3, the game plays PCM (1)"},
    {"a sound by magic",    holding("a", bytesOf("OggS")), "a: the sound does not decode"},
    {"a table",             holding("a.ini", bytesOf("[1]\r\n; x\r\n\r\ntype=1\r\n")), ""},
    {"an unclosed section", holding("a.ini", bytesOf("x=1\n[1\n")), "a.ini: line 2 is neither"},
    {"a lost last line",    holding("a.ini", bytesOf("x=1\r\ny=2")), "a.ini: the last line lacks its line end"},
    {"sounds",              soundsOf("[sound]\r\nrat=a.wav\r\n"), ""},
    {"a missing sound",     soundsOf("[sound]\r\nrat=a.wav\r\nlov=b.wav\r\n"), "sound\\sound.ini: line 3 names \"sound\\b.wav\", which the package lacks"},
    {"a level",             levelsOf(drawn({"@ k E", "# # #"})), ""},
    {"no block table",      holding("a.lvl", drawn({"@ k E", "# # #"})), "levels\\typeblok.ini: is missing"},
    {"a bad block table",   levelsOf(drawn({"@ k E", "# # #"}), drawnBlockTable() + "[7]\r\ntype=8\r\n"), "levels\\typeblok.ini: line "},
    {"a cut level",         levelsOf(damaged(drawn({"@ k E", "# # #"}), [](Bytes& l) { l.pop_back(); })), "a.lvl: the level is refused: 72 bytes of cells announced, 71 there"},
    {"a level without key", levelsOf(drawn({"@ . E", "# # #"})), "a.lvl: the level cannot be played: wanted 1 to 100 keys (k), found 0"},
};
// clang-format on

TEST(PackageVerifier, NamesEntryAndFault) {
    const ScratchDirectory scratch;
    for (const VerifyRule& rule : kVerifyRules) {
        SCOPED_TRACE(rule.what);
        const std::string path = scratch.write("test.pak", rule.package);
        const GrubtoolRun run = grubtool({"verify", path});
        const std::string_view line = rule.line;
        EXPECT_EQ(run.exitCode, line.empty() || line.starts_with("warning: ") ? 0 : 1);
        EXPECT_TRUE(line.empty() ? run.errors.empty() : run.errors.starts_with(path + ": " + rule.line)) << run.errors;
    }
}

}  // namespace
}  // namespace grub
