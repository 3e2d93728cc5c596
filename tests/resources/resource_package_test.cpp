#include "resource_package.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <thread>

#include "control/testing.h"
#include "package_writer.h"
#include "scratch_directory.h"

namespace grub {
namespace {

using platform::testing::MessageBoxRecorder;

class Package : public testing::Test {
protected:
    std::string write(const PackageWriter& writer) { return scratch_.write("test.pak", writer.package()); }

    ScratchDirectory scratch_;
};

/// The bytes are those of docs/formats/packages.md.
TEST_F(Package, GivesTheStoredBytesAlsoWhenItIsGone) {
    const Bytes file{0x78, 0x19, 0x0A, 0, 1, 0, 'a', 0, 1, 0, 0, 0, 0x10, 0, 0, 0, 0x2A};
    std::optional<ResourcePackage> package(std::in_place, scratch_.write("one.pak", file).c_str());
    const SharedBuffer first = package->load("a");
    const SharedBuffer second = package->load("a");
    package.reset();
    EXPECT_EQ(bytesOf(first), (Bytes{0x2A}));
    EXPECT_EQ(bytesOf(second), (Bytes{0x2A}));
    EXPECT_NE(first.data(), second.data());
}

TEST_F(Package, TakesASlashForABackslashAndNothingElse) {
    ResourcePackage package(write(PackageWriter().add("data\\gif\\a", bytesOf("x")).add("b/c", bytesOf("y"))).c_str());
    EXPECT_TRUE(package.exists("data/gif/a"));
    EXPECT_TRUE(package.exists("data\\gif/a"));
    for (const char* name : {"data\\gif\\A", "data\\\\gif\\a", "data\\gif\\a ", "a", ""})
        EXPECT_FALSE(package.exists(name)) << name;
    EXPECT_FALSE(package.exists("b/c")) << "stored names are not normalised, so a stored slash is never found";
}

TEST_F(Package, ShowsABoxForWhatIsMissing) {
    const MessageBoxRecorder recorder;
    ResourcePackage package(write(PackageWriter().add("a", bytesOf("x"))).c_str());
    EXPECT_TRUE(package.load("data/Gif/%s").empty());
    const std::string path = scratch_.file("missing.pak");
    const ResourcePackage missing(path.c_str());
    ASSERT_EQ(recorder.boxes().size(), 2U);
    EXPECT_EQ(recorder.boxes()[0].text, "Can't find resource: data/Gif/%s");
    EXPECT_EQ(recorder.boxes()[1].text, "Can't open resource package file: " + path);
}

TEST_F(Package, GivesTheEmptyBufferForAShortReadAndABufferForAnEntryWithoutBytes) {
    const std::string path = write(PackageWriter().add("none", {}).add("b", bytesOf("def")));
    ResourcePackage package(path.c_str());
    std::filesystem::resize_file(path, std::filesystem::file_size(path) - 1);
    EXPECT_TRUE(package.load("b").empty());
    EXPECT_FALSE(package.load("none").empty());
}

/// Three resources of three bytes; header 0..5, entries "a" 6..15, "b" 16..25, "c" 26..35, data from 36.
Bytes goodPackage() {
    return PackageWriter().add("a", bytesOf("one")).add("b", bytesOf("two")).add("c", bytesOf("six")).package();
}
constexpr std::size_t kDirectorySize = 2;
constexpr std::size_t kEntryCount = 4;
constexpr std::size_t kSizeOfB = 18;
constexpr std::size_t kOffsetOfB = 22;

/// What the reader promises for a broken package.
struct PackageFault {
    const char* what;
    void (*damage)(Bytes& package);
    const char* loadable;  // the names that still give their bytes
    const char* listed;    // the names that the directory knows
};
// clang-format off
const PackageFault kFaults[] = {
    // what is wrong                 how                                                  loads   knows
    {"cut inside the header",        [](Bytes& p) { p.resize(5); },                       "",    ""},
    {"cut inside the directory",     [](Bytes& p) { p.resize(35); },                      "",    ""},
    {"cut inside the last data",     [](Bytes& p) { p.resize(44); },                      "ab",  "abc"},
    {"another magic number",         [](Bytes& p) { p[0] ^= 1; },                         "",    ""},
    {"directory of 7 bytes",         [](Bytes& p) { put(p, kDirectorySize, 7, 2); },      "",    ""},
    {"directory ends in an offset",  [](Bytes& p) { put(p, kDirectorySize, 19, 2); },     "a",   "a"},
    {"counts fewer than it holds",   [](Bytes& p) { put(p, kEntryCount, 2, 2); },         "ab",  "ab"},
    {"counts more than it holds",    [](Bytes& p) { put(p, kEntryCount, 0xFFFF, 2); },    "abc", "abc"},
    {"a name that never ends",       [](Bytes& p) { std::fill_n(&p[26], 10, 'c'); },      "ab",  "ab"},
    {"an entry claims 4 GiB",        [](Bytes& p) { put(p, kSizeOfB, 0xFFFFFFFF, 4); },   "ac",  "abc"},
    {"an entry ends a byte too far", [](Bytes& p) { put(p, kSizeOfB, 7, 4); },            "ac",  "abc"},
    {"an entry starts beyond it",    [](Bytes& p) { put(p, kOffsetOfB, 0xFFFFFFFF, 4); }, "ac",  "abc"},
    {"equal names",                  [](Bytes& p) { p[16] = 'a'; },                       "ac",  "ac"},
};
// clang-format on

TEST_F(Package, ThatIsDamagedLosesWhatTheTableSays) {
    for (const PackageFault& fault : kFaults) {
        SCOPED_TRACE(fault.what);
        Bytes bytes = goodPackage();
        fault.damage(bytes);
        const MessageBoxRecorder recorder;
        ResourcePackage package(scratch_.write("broken.pak", bytes).c_str());
        std::string loadable;
        std::string listed;
        for (const char* name : {"a", "b", "c"}) {
            if (!package.exists(name)) continue;
            listed += name;
            const Bytes loaded = bytesOf(package.load(name));
            if (loaded == bytesOf(*name == 'a' ? "one" : *name == 'b' ? "two" : "six")) loadable += name;
        }
        EXPECT_EQ(loadable, fault.loadable);
        EXPECT_EQ(listed, fault.listed);
        EXPECT_EQ(recorder.boxes().size(), bytes.size() < 6 ? 1U : 0U) << "only for a package without a header";
    }
}

/// Different sizes and bytes, so that a read from another's position shows.
Bytes dataOf(int i) { return Bytes(static_cast<std::size_t>(i % 97 + 1), static_cast<std::uint8_t>(i)); }

TEST_F(Package, GivesTwoThreadsTheStoredBytes) {
    constexpr int kResources = 1000;
    PackageWriter writer;
    for (int i = 0; i < kResources; ++i) writer.add("data\\" + std::to_string(i), dataOf(i));
    ResourcePackage package(write(writer).c_str());
    const auto load = [&] {
        for (int i = 0; i < 10 * kResources; ++i) {  // in fewer loads the threads hardly meet
            const int which = i % kResources;
            EXPECT_EQ(bytesOf(package.load(("data/" + std::to_string(which)).c_str())), dataOf(which));
        }
    };
    std::thread other(load);
    load();
    other.join();
}

TEST_F(Package, GoesOnWhileAnotherThreadWaitsForAMessageBox) {
    ResourcePackage package(write(PackageWriter().add("a", bytesOf("x"))).c_str());
    MessageBoxRecorder recorder(MessageBoxRecorder::Answers::OnRequest);
    std::thread asker([&] { EXPECT_TRUE(package.load("missing").empty()); });
    while (recorder.boxes().empty()) std::this_thread::yield();
    EXPECT_EQ(package.load("a").size(), 1U) << "the package must not be locked while its box is open";
    recorder.answerAll();
    asker.join();
}

}  // namespace
}  // namespace grub
