#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "package_builder.h"
#include "package_contents.h"
#include "package_extractor.h"
#include "package_verifier.h"
#include "package_writer.h"
#include "run_grubtool.h"
#include "scratch_directory.h"
#include "wav_writer.h"

namespace grub {
namespace {

std::string outputOf(const std::vector<std::string>& arguments) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(runGrubtool(arguments), 0);
    return testing::internal::GetCapturedStdout();
}

/// What a command that must fail says on standard error.
std::string complaintOf(const std::vector<std::string>& arguments) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(runGrubtool(arguments), 1);
    return testing::internal::GetCapturedStderr();
}

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
    ASSERT_EQ(runGrubtool({"pack", scratch_.file("in"), package_}), 0);
    EXPECT_EQ(scratch_.read("test.pak"), PackageWriter()
                                             .add("b.txt", bytesOf("bee"))
                                             .add("data\\B.txt", bytesOf("B"))
                                             .add("data\\gif\\a.txt", bytesOf("aye"))
                                             .add("\xE9.txt", {})
                                             .package());
    EXPECT_EQ(outputOf({"list", package_}), "3 b.txt\n1 data\\B.txt\n3 data\\gif\\a.txt\n0 \xE9.txt\n");
    EXPECT_EQ(runGrubtool({"verify", package_}), 0);
}

TEST_F(PackCommands, ExtractedPackagePacksToTheSameBytes) {
    for (int i = 0; i < 300; ++i) {
        scratch_.write("in/" + std::to_string(i % 7) + "/f" + std::to_string(i),
                       Bytes(static_cast<std::size_t>(i), static_cast<std::uint8_t>(i)));
    }
    ASSERT_EQ(runGrubtool({"pack", scratch_.file("in"), package_}), 0);
    ASSERT_EQ(runGrubtool({"extract", package_, scratch_.file("out")}), 0);
    ASSERT_EQ(runGrubtool({"pack", scratch_.file("out"), scratch_.file("again.pak")}), 0);
    EXPECT_EQ(scratch_.read("again.pak"), scratch_.read("test.pak"));
    EXPECT_EQ(scratch_.read("out/5/f299"), Bytes(299, 299 - 256));
}

TEST_F(PackCommands, AnEmptyDirectoryGivesTheSmallestPackage) {
    std::filesystem::create_directory(scratch_.path() / "in");
    ASSERT_EQ(runGrubtool({"pack", scratch_.file("in"), package_}), 0);
    EXPECT_EQ(scratch_.read("test.pak"), PackageWriter().package());
    EXPECT_EQ(outputOf({"list", package_}), "");
    EXPECT_EQ(runGrubtool({"verify", package_}), 0);
}

TEST_F(PackCommands, FailureIsALineThatNamesTheFile) {
    EXPECT_EQ(complaintOf({"list", package_}), package_ + ": cannot be read\n");
    scratch_.write("test.pak", bytesOf("something else"));
    EXPECT_EQ(complaintOf({"verify", package_}),
              package_ + ": is no package: it wants the bytes 78 19, then a directory of at least 8 bytes\n");
    EXPECT_EQ(complaintOf({"pack", scratch_.file("nowhere"), package_}),
              package_ + ": " + scratch_.file("nowhere") + ": No such file or directory\n");
    scratch_.write("in/a\\b", bytesOf("x"));
    EXPECT_EQ(complaintOf({"pack", scratch_.file("in"), package_}),
              package_ + ": " + scratch_.file("in/a\\b") + ": \"\\\" in a file's name separates folders\n");
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

TEST(PackageExtractor, WritesNothingOutsideItsDirectory) {
    const ScratchDirectory scratch;
    for (const char* name : {"..\\a", "../a", "a\\..\\..\\b", "\\a", "/a", "C:\\a", "c:a", "..", "a/..", ""}) {
        SCOPED_TRACE(name);
        EXPECT_FALSE(staysBelowDirectory(name));
        scratch.write("bad.pak", PackageWriter().add("good", {1}).add(name, {1}).package());
        std::string fault;
        const auto contents = readPackageContents(scratch.file("bad.pak"), fault);
        ASSERT_TRUE(contents) << fault;
        EXPECT_FALSE(extractPackage(*contents, scratch.path() / "out", fault));
        EXPECT_EQ(fault, "\"" + std::string(name) + "\" would leave the directory");
        EXPECT_FALSE(std::filesystem::exists(scratch.path() / "out"));
    }
    for (const char* name : {"a", "a\\b", "..a\\b..", "a..\\b", ".a"}) EXPECT_TRUE(staysBelowDirectory(name)) << name;
}

TEST(PackageExtractor, GivesTheFirstOfTwoEqualNamesAsTheGameDoes) {
    const ScratchDirectory scratch;
    scratch.write("two.pak", PackageWriter().add("a", bytesOf("first")).add("a", bytesOf("other")).package());
    ASSERT_EQ(runGrubtool({"extract", scratch.file("two.pak"), scratch.file("out")}), 0);
    EXPECT_EQ(scratch.read("out/a"), bytesOf("first"));
}

/// A BMP of one pixel, 24 or 32 bits.
Bytes onePixelBmp(std::uint16_t bits, Bytes pixel) {
    Bytes bmp(54);
    bmp[0] = 'B';
    bmp[1] = 'M';
    put(bmp, 10, 54, 4);
    put(bmp, 14, 40, 4);
    put(bmp, 18, 1, 4);
    put(bmp, 22, 1, 4);
    put(bmp, 26, 1, 2);
    put(bmp, 28, bits, 2);
    pixel.resize(4);
    bmp.insert(bmp.end(), pixel.begin(), pixel.end());
    return bmp;
}

Bytes goodPackage() { return PackageWriter().add("a", bytesOf("one")).add("b", bytesOf("two")).package(); }

/// A package and the beginning of the only line about it: "entry: text". Header 0..5, entries from 6 and 16, data 26.
struct VerifyRule {
    const char* what;
    Bytes package;
    const char* line;
};
template <class Damage>
Bytes damaged(Damage damage) {
    Bytes bytes = goodPackage();
    damage(bytes);
    return bytes;
}
Bytes holding(std::string_view name, Bytes bytes) { return PackageWriter().add(name, std::move(bytes)).package(); }

Bytes wavOf(std::size_t sampleBytes) { return writeWav({.samples = Bytes(sampleBytes)}); }

// clang-format off
const VerifyRule kVerifyRules[] = {
    {"a good one",          goodPackage(), ""},
    {"a cut directory",     damaged([](Bytes& p) { p.resize(20); }), ": the file ends inside the directory of 20 bytes"},
    {"a count too high",    damaged([](Bytes& p) { put(p, 4, 3, 2); }), ": counts 3 entries, the directory holds 2"},
    {"a count too low",     damaged([](Bytes& p) { put(p, 4, 1, 2); }), ": the directory has 10 bytes behind its last entry"},
    {"an entry too long",   damaged([](Bytes& p) { put(p, 18, 4, 4); }), "b: ends at byte 33, the file has 32"},
    {"an entry of 4 GiB",   damaged([](Bytes& p) { put(p, 18, 0xFFFFFFFF, 4); }), "b: ends at byte 4294967324"},
    {"an overlap",          damaged([](Bytes& p) { put(p, 22, 28, 4); }), "b: overlaps \"a\""},
    {"in the directory",    damaged([](Bytes& p) { put(p, 12, 20, 4); }), "a: starts at byte 20, inside header and directory"},
    {"equal names",         damaged([](Bytes& p) { p[16] = 'a'; }), "a: is there twice"},
    {"a slash",             holding("data/a", {1}), "data/a: has \"/\" in its name"},
    {"no name",             holding("", {1}), ": has no name"},
    {"a picture",           holding("a.bmp", onePixelBmp(24, {1, 2, 3})), ""},
    {"a picture with alpha", holding("a.bmp", onePixelBmp(32, {1, 2, 3, 4})), ""},
    {"an invisible one",    holding("a.bmp", onePixelBmp(32, {1, 2, 3, 0})), "a.bmp: the alpha plane is all zero"},
    {"a cut picture",       holding("a.BMP", bytesOf("BM")), "a.BMP: the picture does not decode: "},
    {"a picture by magic",  holding("a", bytesOf("GIF89a")), "a: the picture does not decode: "},
    {"no picture",          holding("a.gif", bytesOf("hello")), "a.gif: the picture does not decode: "},
    {"a fatal JPEG",        holding("a.jpg", bytesOf("\xFF\xD8\xFF\xC0garbage")), "a.jpg: the picture does not decode: "},
    {"a sound",             holding("a.wav", wavOf(10)), ""},
    {"a large sound",       holding("a.wav", wavOf(262144)), "a.wav: a WAV file of this size is streamed"},
    {"an empty sound",      holding("a.WAV", wavOf(0)), "a.WAV: the sound does not decode"},
    {"no sound",            holding("a.ogg", bytesOf("hello")), "a.ogg: the sound does not decode"},
    {"a cut sound by magic", holding("a", bytesOf("OggS")), "a: the sound does not decode"},
    {"a table",             holding("a.ini", bytesOf("[1]\r\n; x\r\n\r\ntype=1\r\n")), ""},
    {"a line without =",    holding("a.ini", bytesOf("[1]\r\ntype\r\n")), "a.ini: line 2 is neither"},
    {"an unclosed section", holding("a.ini", bytesOf("x=1\n[1\n")), "a.ini: line 2 is neither"},
    {"a lost last line",    holding("a.ini", bytesOf("x=1\r\ny=2")), "a.ini: the last line lacks its line end"},
};
// clang-format on

TEST(PackageVerifier, NamesEntryAndFault) {
    const ScratchDirectory scratch;
    for (const VerifyRule& rule : kVerifyRules) {
        SCOPED_TRACE(rule.what);
        scratch.write("test.pak", rule.package);
        std::string fault;
        const auto contents = readPackageContents(scratch.file("test.pak"), fault);
        ASSERT_TRUE(contents) << fault;
        std::string line;
        bool isWarning = false;
        for (const PackageFinding& finding : verifyPackage(*contents)) {
            line += finding.entry + ": " + finding.text;
            isWarning = finding.isWarning;
        }
        EXPECT_TRUE(line.starts_with(rule.line)) << line;
        EXPECT_EQ(line.empty(), std::string_view(rule.line).empty()) << line;
        testing::internal::CaptureStderr();
        EXPECT_EQ(runGrubtool({"verify", scratch.file("test.pak")}), line.empty() || isWarning ? 0 : 1);
        const std::string printed = testing::internal::GetCapturedStderr();
        EXPECT_EQ(printed.empty(), line.empty());
        EXPECT_EQ(printed.find(": warning: ") != std::string::npos, isWarning);
    }
}

}  // namespace
}  // namespace grub
