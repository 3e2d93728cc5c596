#include <gtest/gtest.h>
#include <testing.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <string>
#include <utility>

#include "package_writer.h"
#include "resource_package.h"
#include "scratch_directory.h"

namespace grub {
namespace {

using platform::testing::MessageBoxRecorder;

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
    {"no bytes at all",              [](Bytes& p) { p.clear(); },                         true,  "",    ""},
    {"cut inside the header",        [](Bytes& p) { p.resize(5); },                       true,  "",    ""},
    {"cut behind the header",        [](Bytes& p) { p.resize(6); },                       false, "",    ""},
    {"cut inside the directory",     [](Bytes& p) { p.resize(35); },                      false, "",    ""},
    {"cut behind the directory",     [](Bytes& p) { p.resize(36); },                      false, "",    "abc"},
    {"cut inside the last data",     [](Bytes& p) { p.resize(44); },                      false, "ab",  "abc"},
    {"another magic number",         [](Bytes& p) { p[0] ^= 1; },                         false, "",    ""},
    {"magic number in reverse",      [](Bytes& p) { std::swap(p[0], p[1]); },             false, "",    ""},
    {"directory of 7 bytes",         [](Bytes& p) { put(p, kDirectorySize, 7, 2); },      false, "",    ""},
    {"directory of 8, too few",      [](Bytes& p) { put(p, kDirectorySize, 8, 2); },      false, "",    ""},
    {"directory ends in an offset",  [](Bytes& p) { put(p, kDirectorySize, 19, 2); },     false, "a",   "a"},
    {"directory beyond the file",    [](Bytes& p) { put(p, kDirectorySize, 0xFFFF, 2); }, false, "",    ""},
    {"counts no entry",              [](Bytes& p) { put(p, kEntryCount, 0, 2); },         false, "",    ""},
    {"counts fewer than it holds",   [](Bytes& p) { put(p, kEntryCount, 2, 2); },         false, "ab",  "ab"},
    {"counts more than it holds",    [](Bytes& p) { put(p, kEntryCount, 0xFFFF, 2); },    false, "abc", "abc"},
    {"a name that never ends",       [](Bytes& p) { std::fill_n(&p[26], 10, 'c'); },      false, "ab",  "ab"},
    {"an entry claims 4 GiB",        [](Bytes& p) { put(p, kSizeOfB, 0xFFFFFFFF, 4); },   false, "ac",  "abc"},
    {"an entry ends a byte too far", [](Bytes& p) { put(p, kSizeOfB, 7, 4); },            false, "ac",  "abc"},
    {"an entry starts at the end",   [](Bytes& p) { put(p, kOffsetOfB, 45, 4); },         false, "ac",  "abc"},
    {"an entry starts beyond it",    [](Bytes& p) { put(p, kOffsetOfB, 0xFFFFFFFF, 4); }, false, "ac",  "abc"},
    {"offset and size wrap around",  [](Bytes& p) { put(p, kOffsetOfB, 0xFFFFFFFE, 4); }, false, "ac",  "abc"},
    {"equal names",                  [](Bytes& p) { p[16] = 'a'; },                       false, "ac",  "ac"},
    {"a name without characters",    [](Bytes& p) { p[26] = 0; },                         false, "ab",  "ab"},
};
// clang-format on

/// The most address space this process has had at once, in KiB.
long peakAddressSpace() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmPeak:")) return std::stol(line.substr(7));
    }
    return 0;
}

class PackageDamage : public testing::Test {
protected:
    /// Those of "a", "b", "c" that load with three bytes.
    static std::string loadableIn(ResourcePackage& package) {
        std::string names;
        for (const char* name : {"a", "b", "c"}) {
            if (package.exists(name) && package.load(name).size() == 3) names += name;
        }
        return names;
    }
    static std::string listedIn(ResourcePackage& package) {
        std::string names;
        for (const char* name : {"a", "b", "c"}) {
            if (package.exists(name)) names += name;
        }
        return names;
    }

    ScratchDirectory scratch_;
};

TEST_F(PackageDamage, CostsWhatTheTableSays) {
    for (const PackageFault& fault : kFaults) {
        SCOPED_TRACE(fault.what);
        Bytes bytes = goodPackage();
        fault.damage(bytes);
        const std::string path = scratch_.write("broken.pak", bytes);
        const MessageBoxRecorder recorder;
        ResourcePackage package(path.c_str());
        EXPECT_EQ(loadableIn(package), fault.loadable);
        EXPECT_EQ(listedIn(package), fault.listed);
        const auto boxes = recorder.boxes();
        ASSERT_EQ(boxes.size(), fault.cannotRead ? 1u : 0u);
        for (const auto& box : boxes) EXPECT_EQ(box.text, "Can't read resource package file: " + path);
    }
}

TEST_F(PackageDamage, TakesNoMemoryForWhatTheFileCannotHold) {
    Bytes bytes = goodPackage();
    put(bytes, kSizeOfB, 0x20000000, 4);  // 512 MiB, which any system would hand out
    const std::string path = scratch_.write("broken.pak", bytes);
    const auto loadInFreshProcess = [&] {  // other tests have raised the peak of this one
        ResourcePackage package(path.c_str());
        const long before = peakAddressSpace();
        const bool refused = package.load("b").empty();
        std::exit(before > 0 && refused && peakAddressSpace() - before < 128L * 1024 ? 0 : 1);
    };
    EXPECT_EXIT(loadInFreshProcess(), testing::ExitedWithCode(0), "");
}

TEST_F(PackageDamage, OfAnyByteNeverGivesMoreThanTheFileHolds) {
    const Bytes good = goodPackage();
    for (std::size_t at = 0; at < good.size(); ++at) {
        for (const int value : {0, 1, 127, 255}) {
            SCOPED_TRACE("byte " + std::to_string(at) + " set to " + std::to_string(value));
            Bytes bytes = good;
            bytes[at] = static_cast<std::uint8_t>(value);
            const MessageBoxRecorder recorder;
            ResourcePackage package(scratch_.write("broken.pak", bytes).c_str());
            for (const char* name : {"a", "b", "c"}) {
                const std::size_t loaded = package.exists(name) ? package.load(name).size() : 0;
                EXPECT_LE(loaded, good.size());
            }
            EXPECT_TRUE(recorder.boxes().empty());
        }
    }
}

TEST_F(PackageDamage, OfAnyCutLeavesTheResourcesBeforeIt) {
    const Bytes good = goodPackage();
    for (std::size_t length = 0; length < good.size(); ++length) {
        SCOPED_TRACE("cut to " + std::to_string(length));
        const MessageBoxRecorder recorder;
        ResourcePackage package(scratch_.write("cut.pak", std::span(good).first(length)).c_str());
        const std::size_t whole = length < 36 ? 0 : (length - 36) / 3;
        EXPECT_EQ(loadableIn(package), std::string("abc").substr(0, whole));
        EXPECT_EQ(recorder.boxes().size(), length < 6 ? 1u : 0u);
    }
}

}  // namespace
}  // namespace grub
