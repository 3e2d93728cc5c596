#include "own_options.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "scratch_directory.h"

namespace grub {
namespace {

/// What the program says to these arguments, on either stream, and what it takes from them. "DATA" stands for a
/// directory of packages, "EMPTY" for one without, "LEVEL" for a level file that exists.
class Read {
public:
    explicit Read(const std::vector<std::string>& arguments) {
        for (const char* package : {"data64.pak", "levels.pak", "sound.pak", "make_m64.pak", "make_z64.pak"})
            directory_.write(std::string("Foo/") + package, {});
        directory_.write("Foo/F.lvl", {});
        std::vector<std::string> words{"/home/Fred/grubaway"};
        for (const std::string& argument : arguments) words.push_back(replaced(argument));
        std::vector<const char*> pointers;
        for (const std::string& word : words) pointers.push_back(word.c_str());
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        options = readOwnOptions(static_cast<int>(pointers.size()), pointers.data());
        said = testing::internal::GetCapturedStdout();
        complaint = testing::internal::GetCapturedStderr();
    }
    OwnOptions options;
    std::string said, complaint;

private:
    [[nodiscard]] std::string replaced(const std::string& argument) const {
        if (argument == "DATA") return directory_.file("Foo");
        if (argument == "EMPTY") return directory_.file("");
        return argument == "LEVEL" ? directory_.file("Foo/F.lvl") : argument;
    }
    ScratchDirectory directory_;
};

TEST(OwnOptions, TheGameReadsOnlyTheWishForTheFullScreen) {
    const std::pair<std::vector<std::string>, const char*> rows[] = {
        {{}, ""},
        {{"--full-screen"}, "F"},
        {{"--data", "DATA", "FULL"}, "FULL"},
        {{"--level", "LEVEL", "--script", "F.txt"}, ""},
    };
    for (const auto& [arguments, commandLine] : rows) {
        const Read read(arguments);
        EXPECT_EQ(read.options.exitCode, std::nullopt) << read.complaint;
        EXPECT_EQ(read.options.commandLine, commandLine);
    }
}

TEST(OwnOptions, SayWhereToStartAndWhatToPlay) {
    EXPECT_EQ(Read({}).options.start.levelIndex, 0);
    EXPECT_EQ(Read({"--level=50"}).options.start.levelIndex, 49);
    EXPECT_TRUE(Read({"--level", "LEVEL"}).options.start.level.ends_with("Foo/F.lvl"));
    EXPECT_TRUE(Read({"--data", "DATA"}).options.dataDirectory.ends_with("/Foo"));
    EXPECT_EQ(Read({"--record", "b.game"}).options.recordFile, "b.game");
    EXPECT_EQ(Read({"--replay", "a.game", "--at", "250"}).options.showFrom, 250);
    EXPECT_TRUE(Read({"--script", "play.txt"}).options.start.seed) << "a script plays the same game each time";
}

TEST(OwnOptions, HelpAndWrongUsageEndTheProgramWithOneReason) {
    struct Row {
        const char* what;
        std::vector<std::string> arguments;
        int exitCode;
        const char* reason;
    };
    const Row rows[] = {
        {"help", {"--help"}, 0, "--full-screen"},
        {"level 51", {"--level", "51"}, 2, "'51' is neither"},
        {"half a number", {"--level", "7x"}, 2, "'7x' is neither"},
        {"a level file that is not there", {"--level", "nowhere.lvl"}, 2, "'nowhere.lvl' is neither"},
        {"a directory without packages", {"--data", "EMPTY"}, 2, "holds no data64.pak"},
        {"an option without its value", {"--script"}, 2, "--script"},
        {"a frame of no game", {"--at", "5"}, 2, "--at"},
        {"a frame before the first", {"--replay", "a.game", "--at", "-5"}, 2, "--at"},
        {"two games at once", {"--replay", "a.game", "--record", "b.game"}, 2, "--record"},
        {"words that mean nothing", {"one", "F", "-w"}, 2, "unknown: 'one' '-w'; "},
        {"a misspelt option", {"--FOO"}, 2, "'--FOO'"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const Read read(row.arguments);
        EXPECT_EQ(read.options.exitCode, row.exitCode);
        const std::string& told = row.exitCode == 0 ? read.said : read.complaint;
        EXPECT_NE(told.find(row.reason), std::string::npos) << told;
        EXPECT_TRUE(row.exitCode == 0 || std::ranges::count(told, '\n') == 1) << told;
    }
}

}  // namespace
}  // namespace grub
