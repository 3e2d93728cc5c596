#include "resource_package.h"

#include <gtest/gtest.h>
#include <testing.h>

#include <optional>

#include "package_writer.h"
#include "scratch_directory.h"
#include "string_hash.h"

namespace grub {
namespace {

using platform::testing::MessageBoxRecorder;

constexpr UINT kErrorBox = 0x2010;
constexpr const char* kCaption = "Package resource manager";

Bytes contentsOf(const SharedBuffer& buffer) { return {buffer.bytes().begin(), buffer.bytes().end()}; }

void expectBoxes(const MessageBoxRecorder& recorder, const std::vector<std::string>& texts) {
    const auto boxes = recorder.boxes();
    ASSERT_EQ(boxes.size(), texts.size());
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        EXPECT_EQ(boxes[i].text, texts[i]);
        EXPECT_EQ(boxes[i].caption, kCaption);
        EXPECT_EQ(boxes[i].style, kErrorBox);
    }
}

TEST(StringHash, GivesKnownBuckets) {
    struct {
        std::string_view name;
        std::uint32_t of101, of3000, of1097;
    } const known[] = {
        {"", 0, 0, 0},          {"a", 97, 97, 97},
        {"ab", 97, 139, 743},   {"\xE9", 45, 2273, 552},  // counts as -23
        {"a\xE9", 77, 18, 622}, {"levels\\typeblok.ini", 56, 825, 112},
    };
    for (const auto& [name, of101, of3000, of1097] : known) {
        SCOPED_TRACE(name);
        EXPECT_EQ(bucketOf(name, 101), of101);
        EXPECT_EQ(bucketOf(name, 3000), of3000);
        EXPECT_EQ(bucketOf(name, 1097), of1097);
    }
}

class PackageTest : public testing::Test {
protected:
    std::string write(const PackageWriter& writer) { return scratch_.write("test.pak", writer.package()); }

    ScratchDirectory scratch_;
    MessageBoxRecorder boxes_;
};

TEST_F(PackageTest, GivesTheStoredBytes) {
    ResourcePackage package(
        write(PackageWriter().add("data\\b.txt", bytesOf("second")).add("a", bytesOf("first"))).c_str());
    EXPECT_EQ(contentsOf(package.load("a")), bytesOf("first"));
    EXPECT_EQ(contentsOf(package.load("data\\b.txt")), bytesOf("second"));
    EXPECT_EQ(contentsOf(package.load("a")), bytesOf("first")) << "again, into a buffer of its own";
    expectBoxes(boxes_, {});
}

TEST_F(PackageTest, TakesASlashForABackslashAndNothingElse) {
    ResourcePackage package(write(PackageWriter().add("data\\gif\\a", bytesOf("x")).add("b/c", bytesOf("y"))).c_str());
    EXPECT_TRUE(package.exists("data/gif/a"));
    EXPECT_TRUE(package.exists("data\\gif/a"));
    for (const char* name : {"data\\gif\\A", "data\\\\gif\\a", "data\\gif\\..\\gif\\a", "data\\gif\\a ", "a", ""}) {
        EXPECT_FALSE(package.exists(name)) << name;
    }
    EXPECT_FALSE(package.exists("b/c")) << "stored names are not normalised, so this one cannot be asked for";
    expectBoxes(boxes_, {});
}

TEST_F(PackageTest, ReportsAMissingNameAsItWasAsked) {
    ResourcePackage package(write(PackageWriter().add("a", bytesOf("x"))).c_str());
    EXPECT_TRUE(package.load("data/Gif/%s").empty());
    EXPECT_TRUE(package.load("").empty());
    expectBoxes(boxes_, {"Can't find resource: data/Gif/%s", "Can't find resource: "});
}

TEST_F(PackageTest, ReportsAFileThatIsNotThere) {
    ResourcePackage package(scratch_.file("missing.pak").c_str());
    EXPECT_FALSE(package.exists("a"));
    EXPECT_TRUE(package.load("a").empty());
    expectBoxes(boxes_,
                {"Can't open resource package file: " + scratch_.file("missing.pak"), "Can't find resource: a"});
}

TEST_F(PackageTest, LoadsAnEntryWithoutBytesAsABufferOfSizeZero) {
    ResourcePackage package(write(PackageWriter().add("nothing", {}).add("last", {})).c_str());
    for (const char* name : {"nothing", "last"}) {
        const SharedBuffer buffer = package.load(name);
        EXPECT_FALSE(buffer.empty()) << name;
        EXPECT_EQ(buffer.size(), 0u) << name;
    }
}

TEST_F(PackageTest, UsesTheFirstOfTwoEqualNames) {
    ResourcePackage package(write(PackageWriter().add("a", bytesOf("first")).add("a", bytesOf("other"))).c_str());
    EXPECT_EQ(contentsOf(package.load("a")), bytesOf("first"));
}

TEST_F(PackageTest, KeepsLoadedBytesWhenItIsGone) {
    std::optional<ResourcePackage> package(std::in_place, write(PackageWriter().add("a", bytesOf("x"))).c_str());
    const SharedBuffer buffer = package->load("a");
    package.reset();
    EXPECT_EQ(contentsOf(buffer), bytesOf("x"));
}

TEST_F(PackageTest, GivesTheEmptyBufferForAShortReadAndSaysNothing) {
    const std::string path = write(PackageWriter().add("a", bytesOf("abc")).add("b", bytesOf("def")));
    ResourcePackage package(path.c_str());
    std::filesystem::resize_file(path, std::filesystem::file_size(path) - 1);
    EXPECT_TRUE(package.load("b").empty());
    EXPECT_EQ(contentsOf(package.load("a")), bytesOf("abc"));
    expectBoxes(boxes_, {});
}

/// The smallest package, and the smallest with a resource, as docs/formats/packages.md prints them.
TEST_F(PackageTest, SmallestFilesAreTheseBytes) {
    EXPECT_EQ(PackageWriter().package(), (Bytes{0x78, 0x19, 8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    const Bytes one{0x78, 0x19, 0x0A, 0, 1, 0, 'a', 0, 1, 0, 0, 0, 0x10, 0, 0, 0, 0x2A};
    EXPECT_EQ(PackageWriter().add("a", {0x2A}).package(), one);

    ResourcePackage none(write(PackageWriter()).c_str());
    EXPECT_FALSE(none.exists(""));
    ResourcePackage single(scratch_.write("one.pak", one).c_str());
    EXPECT_EQ(contentsOf(single.load("a")), (Bytes{0x2A}));
    expectBoxes(boxes_, {});
}

}  // namespace
}  // namespace grub
