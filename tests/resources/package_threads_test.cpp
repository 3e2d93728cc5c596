#include <gtest/gtest.h>
#include <testing.h>

#include <string>
#include <thread>

#include "package_writer.h"
#include "resource_package.h"
#include "scratch_directory.h"

namespace grub {
namespace {

using platform::testing::MessageBoxRecorder;

constexpr int kResources = 1000;
constexpr int kRounds = 10;  // without the lock a single round mostly passes, since the threads hardly meet

std::string nameOf(int i) { return "data\\" + std::to_string(i); }

/// Different sizes and bytes, so that a read from another's position shows.
Bytes dataOf(int i) { return Bytes(static_cast<std::size_t>(i % 97 + 1), static_cast<std::uint8_t>(i)); }

int countRightLoads(ResourcePackage& package) {
    int right = 0;
    for (int load = 0; load < kRounds * kResources; ++load) {
        const int i = load % kResources;
        const SharedBuffer buffer = package.load(nameOf(i).c_str());
        if (Bytes(buffer.bytes().begin(), buffer.bytes().end()) == dataOf(i)) ++right;
    }
    return right;
}

TEST(PackageThreads, TwoThatLoadEverythingGetTheStoredBytes) {
    const ScratchDirectory scratch;
    PackageWriter writer;
    for (int i = 0; i < kResources; ++i) writer.add(nameOf(i), dataOf(i));
    ResourcePackage package(scratch.write("test.pak", writer.package()).c_str());

    int rightInOther = 0;
    std::thread other([&] { rightInOther = countRightLoads(package); });
    const int rightHere = countRightLoads(package);
    other.join();
    EXPECT_EQ(rightHere, kRounds * kResources);
    EXPECT_EQ(rightInOther, kRounds * kResources);
}

TEST(PackageThreads, AnUnansweredMessageBoxStopsOnlyItsOwn) {
    const ScratchDirectory scratch;
    ResourcePackage package(scratch.write("test.pak", PackageWriter().add("a", bytesOf("x")).package()).c_str());
    MessageBoxRecorder recorder(MessageBoxRecorder::Answers::OnRequest);
    std::thread asker([&] { EXPECT_TRUE(package.load("missing").empty()); });
    while (recorder.boxes().empty()) std::this_thread::yield();
    EXPECT_EQ(package.load("a").size(), 1u) << "the package must not be locked while its box is open";
    recorder.answerAll();
    asker.join();
    EXPECT_EQ(recorder.boxes().size(), 1u);
}

}  // namespace
}  // namespace grub
