#include "resource_package.h"

#include <gtest/gtest.h>
#include "control/testing.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <thread>

#include "package_writer.h"
#include "scratch_directory.h"
#include "whole_file.h"

namespace grub {
namespace {

using platform::testing::MessageBoxRecorder;

Bytes contentsOf(const SharedBuffer& buffer) { return {buffer.bytes().begin(), buffer.bytes().end()}; }

TEST(StringHash, CountsBytesFrom128UpAsNegative) {
    EXPECT_EQ(stringHash("ab") % 1097, 743U);
    EXPECT_EQ(stringHash("\xE9") % 3000, 2273U);
    EXPECT_EQ(stringHash("levels\\typeblok.ini") % 101, 56U);
}

class Package : public testing::Test {
protected:
    std::string write(const PackageWriter& writer) { return scratch_.write("test.pak", writer.package()); }
    void expectBoxes(const std::vector<std::string>& texts) {
        std::vector<std::string> shown;
        for (const auto& box : boxes_.boxes()) {
            shown.push_back(box.text);
            EXPECT_EQ(box.caption, "Package resource manager");
            EXPECT_EQ(box.style, 0x2010U);
        }
        EXPECT_EQ(shown, texts);
    }

    ScratchDirectory scratch_;
    MessageBoxRecorder boxes_;
};

/// The bytes are those of docs/formats/packages.md.
TEST_F(Package, GivesTheStoredBytesAlsoWhenItIsGone) {
    const Bytes file{0x78, 0x19, 0x0A, 0, 1, 0, 'a', 0, 1, 0, 0, 0, 0x10, 0, 0, 0, 0x2A};
    std::optional<ResourcePackage> package(std::in_place, scratch_.write("one.pak", file).c_str());
    const SharedBuffer first = package->load("a");
    const SharedBuffer second = package->load("a");
    package.reset();
    EXPECT_EQ(contentsOf(first), (Bytes{0x2A}));
    EXPECT_EQ(contentsOf(second), (Bytes{0x2A}));
    EXPECT_NE(first.data(), second.data());
    expectBoxes({});
}

TEST_F(Package, TakesASlashForABackslashAndNothingElse) {
    ResourcePackage package(write(PackageWriter().add("data\\gif\\a", bytesOf("x")).add("b/c", bytesOf("y"))).c_str());
    EXPECT_TRUE(package.exists("data/gif/a"));
    EXPECT_TRUE(package.exists("data\\gif/a"));
    for (const char* name : {"data\\gif\\A", "data\\\\gif\\a", "data\\gif\\a ", "a", ""}) {
        EXPECT_FALSE(package.exists(name)) << name;
    }
    EXPECT_FALSE(package.exists("b/c")) << "stored names are not normalised, so a stored slash is never found";
}

TEST_F(Package, ShowsABoxForWhatIsMissing) {
    ResourcePackage package(write(PackageWriter().add("a", bytesOf("x"))).c_str());
    EXPECT_TRUE(package.load("data/Gif/%s").empty());
    const std::string path = scratch_.file("missing.pak");
    ResourcePackage missing(path.c_str());
    EXPECT_TRUE(missing.load("a").empty());
    expectBoxes(
        {"Can't find resource: data/Gif/%s", "Can't open resource package file: " + path, "Can't find resource: a"});
}

TEST_F(Package, GivesTheEmptyBufferForAShortReadAndABufferForAnEntryWithoutBytes) {
    const std::string path = write(PackageWriter().add("a", bytesOf("abc")).add("none", {}).add("b", bytesOf("def")));
    ResourcePackage package(path.c_str());
    std::filesystem::resize_file(path, std::filesystem::file_size(path) - 1);
    EXPECT_TRUE(package.load("b").empty());
    EXPECT_EQ(contentsOf(package.load("a")), bytesOf("abc"));
    EXPECT_FALSE(package.load("none").empty());
    EXPECT_EQ(package.load("none").size(), 0u);
    expectBoxes({});
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
    bool cannotRead;       // whether opening shows the message box
    const char* loadable;  // the names that still give their bytes
    const char* listed;    // the names that the directory knows
};
// clang-format off
const PackageFault kFaults[] = {
    // what is wrong                 how                                                  box    loads   knows
    {"nothing",                      [](Bytes&) {},                                       false, "abc", "abc"},
    {"cut inside the header",        [](Bytes& p) { p.resize(5); },                       true,  "",    ""},
    {"cut behind the header",        [](Bytes& p) { p.resize(6); },                       false, "",    ""},
    {"cut inside the directory",     [](Bytes& p) { p.resize(35); },                      false, "",    ""},
    {"cut inside the last data",     [](Bytes& p) { p.resize(44); },                      false, "ab",  "abc"},
    {"another magic number",         [](Bytes& p) { p[0] ^= 1; },                         false, "",    ""},
    {"directory of 7 bytes",         [](Bytes& p) { put(p, kDirectorySize, 7, 2); },      false, "",    ""},
    {"directory ends in an offset",  [](Bytes& p) { put(p, kDirectorySize, 19, 2); },     false, "a",   "a"},
    {"directory beyond the file",    [](Bytes& p) { put(p, kDirectorySize, 0xFFFF, 2); }, false, "",    ""},
    {"counts fewer than it holds",   [](Bytes& p) { put(p, kEntryCount, 2, 2); },         false, "ab",  "ab"},
    {"counts more than it holds",    [](Bytes& p) { put(p, kEntryCount, 0xFFFF, 2); },    false, "abc", "abc"},
    {"a name that never ends",       [](Bytes& p) { std::fill_n(&p[26], 10, 'c'); },      false, "ab",  "ab"},
    {"an entry claims 4 GiB",        [](Bytes& p) { put(p, kSizeOfB, 0xFFFFFFFF, 4); },   false, "ac",  "abc"},
    {"an entry ends a byte too far", [](Bytes& p) { put(p, kSizeOfB, 7, 4); },            false, "ac",  "abc"},
    {"an entry starts beyond it",    [](Bytes& p) { put(p, kOffsetOfB, 0xFFFFFFFF, 4); }, false, "ac",  "abc"},
    {"equal names",                  [](Bytes& p) { p[16] = 'a'; },                       false, "ac",  "ac"},
};
// clang-format on

TEST(PackageDamage, CostsWhatTheTableSays) {
    const ScratchDirectory scratch;
    for (const PackageFault& fault : kFaults) {
        SCOPED_TRACE(fault.what);
        Bytes bytes = goodPackage();
        fault.damage(bytes);
        const MessageBoxRecorder recorder;
        ResourcePackage package(scratch.write("broken.pak", bytes).c_str());
        std::string loadable;
        std::string listed;
        for (const char* name : {"a", "b", "c"}) {
            if (!package.exists(name)) continue;
            listed += name;
            if (package.load(name).size() == 3) loadable += name;
        }
        EXPECT_EQ(loadable, fault.loadable);
        EXPECT_EQ(listed, fault.listed);
        const auto boxes = recorder.boxes();
        ASSERT_EQ(boxes.size(), fault.cannotRead ? 1u : 0u);
        if (fault.cannotRead) {
            EXPECT_EQ(boxes[0].text, "Can't read resource package file: " + scratch.file("broken.pak"));
        }
    }
    ResourcePackage equalNames(
        scratch.write("equal.pak", PackageWriter().add("a", bytesOf("first")).add("a", bytesOf("other")).package())
            .c_str());
    EXPECT_EQ(contentsOf(equalNames.load("a")), bytesOf("first"));
}

/// The most address space that this process has had at once, in KiB.
long peakAddressSpace() {
    const std::string status = readWholeText("/proc/self/status").value_or("");
    return std::stol(status.substr(status.find("VmPeak:") + 7));
}

TEST(PackageDamage, TakesNoMemoryForWhatTheFileCannotHold) {
    const ScratchDirectory scratch;
    Bytes bytes = goodPackage();
    put(bytes, kSizeOfB, 0x20000000, 4);   // 512 MiB, which any system would hand out
    const auto loadInFreshProcess = [&] {  // other tests have raised the peak of this one
        ResourcePackage package(scratch.write("broken.pak", bytes).c_str());
        const long before = peakAddressSpace();
        std::exit(package.load("b").empty() && peakAddressSpace() - before < 128L * 1024 ? 0 : 1);
    };
    EXPECT_EXIT(loadInFreshProcess(), testing::ExitedWithCode(0), "");
}

constexpr int kResources = 1000;
constexpr int kRounds = 10;  // without the lock a single round mostly passes, since the threads hardly meet

std::string nameOf(int i) { return "data\\" + std::to_string(i); }

/// Different sizes and bytes, so that a read from another's position shows.
Bytes dataOf(int i) { return Bytes(static_cast<std::size_t>(i % 97 + 1), static_cast<std::uint8_t>(i)); }

int countRightLoads(ResourcePackage& package) {
    int right = 0;
    for (int load = 0; load < kRounds * kResources; ++load) {
        const int i = load % kResources;
        if (contentsOf(package.load(nameOf(i).c_str())) == dataOf(i)) ++right;
    }
    return right;
}

TEST_F(Package, GivesTwoThreadsTheStoredBytes) {
    PackageWriter writer;
    for (int i = 0; i < kResources; ++i) writer.add(nameOf(i), dataOf(i));
    ResourcePackage package(write(writer).c_str());

    int rightInOther = 0;
    std::thread other([&] { rightInOther = countRightLoads(package); });
    const int rightHere = countRightLoads(package);
    other.join();
    EXPECT_EQ(rightHere, kRounds * kResources);
    EXPECT_EQ(rightInOther, kRounds * kResources);
}

TEST(PackageThreads, GoOnWhileAnotherWaitsForAMessageBox) {
    const ScratchDirectory scratch;
    ResourcePackage package(scratch.write("test.pak", PackageWriter().add("a", bytesOf("x")).package()).c_str());
    MessageBoxRecorder recorder(MessageBoxRecorder::Answers::OnRequest);
    std::thread asker([&] { EXPECT_TRUE(package.load("missing").empty()); });
    while (recorder.boxes().empty()) std::this_thread::yield();
    EXPECT_EQ(package.load("a").size(), 1u) << "the package must not be locked while its box is open";
    recorder.answerAll();
    asker.join();
}

}  // namespace
}  // namespace grub
