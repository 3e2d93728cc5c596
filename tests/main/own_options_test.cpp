#include "own_options.h"

#include <gtest/gtest.h>

#include <vector>

#include "scratch_directory.h"

namespace grub {
namespace {

OwnOptions read(std::vector<const char*> arguments, const char* program = "grubaway") {
    arguments.insert(arguments.begin(), program);
    return readOwnOptions(static_cast<int>(arguments.size()), arguments.data());
}

TEST(OwnOptions, WhatIsNotOursIsTheGamesCommandLine) {
    const ScratchDirectory directory;
    directory.write("Foo/F.lvl", {});
    const std::string data = directory.file("Foo");
    const std::string dataOption = "--data=" + data;
    const std::string level = directory.file("Foo/F.lvl");
    struct Row {
        std::vector<const char*> arguments;
        const char* commandLine;
    };
    const Row rows[] = {
        {{}, ""},
        {{"F"}, "F"},
        {{"-F"}, "-F"},
        {{"one", "two"}, "one two"},
        {{"--data", data.c_str(), "full"}, "full"},
        {{"-w", dataOption.c_str()}, "-w"},
        {{"--level", level.c_str(), "--script", "F.txt"}, ""},
    };
    for (const Row& row : rows) {
        const OwnOptions options = read(row.arguments, "/home/Fred/grub");
        EXPECT_EQ(options.exitCode, std::nullopt);
        EXPECT_EQ(options.commandLine, row.commandLine);
    }
}

TEST(OwnOptions, ALevelIsANumberOfTheListOrAFile) {
    const ScratchDirectory directory;
    directory.write("mine.lvl", {});
    const std::string file = directory.file("mine.lvl");
    EXPECT_EQ(read({}).start.levelIndex, 0);
    EXPECT_EQ(read({"--level", "1"}).start.levelIndex, 0);
    EXPECT_EQ(read({"--level=50"}).start.levelIndex, 49);
    EXPECT_EQ(read({"--level", file.c_str()}).start.level, file);
}

TEST(OwnOptions, OnlyAScriptPlaysTheSameGameEachTime) {
    EXPECT_FALSE(read({}).start.seed);
    const OwnOptions scripted = read({"--script", "play.txt"});
    EXPECT_EQ(scripted.scriptFile, "play.txt");
    EXPECT_TRUE(scripted.start.seed);
}

TEST(OwnOptions, AGameIsReplayedOrRecorded) {
    const OwnOptions replay = read({"--replay", "a.game", "--at", "250"});
    EXPECT_EQ(replay.replayFile, "a.game");
    EXPECT_EQ(replay.showFrom, 250);
    EXPECT_EQ(read({"--record", "b.game"}).recordFile, "b.game");
}

TEST(OwnOptions, HelpAndVersionEndTheProgramWell) {
    struct Row {
        const char* argument;
        const char* said;
    };
    for (const Row& row : {Row{"--help", "--data DIR"}, Row{"--version", "grubaway "}}) {
        testing::internal::CaptureStdout();
        const OwnOptions options = read({row.argument});
        EXPECT_NE(testing::internal::GetCapturedStdout().find(row.said), std::string::npos) << row.argument;
        EXPECT_EQ(options.exitCode, 0);
    }
}

TEST(OwnOptions, WrongUsageEndsTheProgramWithOneReason) {
    struct Row {
        const char* what;
        std::vector<const char*> arguments;
        const char* reason;
    };
    const Row rows[] = {
        {"level 0", {"--level", "0"}, "'0' is neither"},
        {"level 51", {"--level", "51"}, "'51' is neither"},
        {"half a number", {"--level", "7x"}, "'7x' is neither"},
        {"a huge number", {"--level", "99999999999999999999"}, "is neither"},
        {"a level file that is not there", {"--level", "nowhere.lvl"}, "'nowhere.lvl' is neither"},
        {"no directory", {"--data", "/nowhere/at/all"}, "/nowhere/at/all"},
        {"an option without its value", {"--script"}, "--script"},
        {"a frame of no game", {"--at", "5"}, "--at"},
        {"a frame before the first", {"--replay", "a.game", "--at", "-5"}, "--at"},
        {"two games at once", {"--replay", "a.game", "--record", "b.game"}, "--record"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        testing::internal::CaptureStderr();
        const OwnOptions options = read(row.arguments);
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_EQ(options.exitCode, 2);
        EXPECT_NE(said.find(row.reason), std::string::npos) << said;
    }
}

}  // namespace
}  // namespace grub
