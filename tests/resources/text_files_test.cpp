// Texts that people write, whole files, and the log.

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "log_file.h"
#include "scratch_directory.h"
#include "text_lines.h"
#include "whole_file.h"

namespace grub {
namespace {

using testing::ElementsAre;

TEST(WholeFile, IsReplacedAsAWholeOrNotAtAll) {
    const ScratchDirectory scratch;
    const std::string path = scratch.file("a.txt");
    for (const std::size_t size : {40'000, 1 << 14, (1 << 14) - 1, 1, 0}) {
        const std::string text(size, 'x');
        EXPECT_TRUE(writeWholeText(path, text));
        EXPECT_EQ(readWholeText(path), text);
    }
    EXPECT_FALSE(writeWholeText(scratch.file("nowhere/a.txt"), "lost"));
    EXPECT_EQ(readWholeText(scratch.file("none")), std::nullopt);
    EXPECT_EQ(readWholeFile(scratch.path()), std::nullopt) << "a folder";
    std::filesystem::create_directory(scratch.path() / "folder");
    EXPECT_FALSE(writeWholeText(scratch.file("folder"), "lost"));
    const auto entries = std::filesystem::directory_iterator(scratch.path());
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 2) << "nothing half-written stays";
}

TEST(WholeFile, APipeStaysAPipe) {
    const ScratchDirectory scratch;
    std::filesystem::create_symlink("/dev/null", scratch.path() / "null");
    EXPECT_TRUE(writeWholeText(scratch.file("null"), "away"));
    EXPECT_TRUE(std::filesystem::is_symlink(scratch.path() / "null"));
}

TEST(TextLines, AreNumberedAndLoseWhatSaysNothing) {
    std::vector<std::string> seen;
    for (const TextLine& line : textLines(" # a comment\n\n  one \ttwo #3 ;\r\n\t\r\n;last"))
        seen.push_back(std::to_string(line.number) + ":" + std::string(line.content));
    EXPECT_THAT(seen, ElementsAre("3:one \ttwo #3 ;", "5:;last"));
    EXPECT_THAT(splitWords(" one \t two\r"), ElementsAre("one", "two"));
    EXPECT_TRUE(splitWords(" \t").empty());
}

TEST(TextLines, ANumberIsTheWholeWord) {
    EXPECT_EQ(numberIn<int>("-12"), -12);
    EXPECT_EQ(numberIn<std::uint8_t>("fF", 16), 255);
    for (const char* word : {"", "+1", " 1", "1 ", "0x1", "300"}) EXPECT_EQ(numberIn<std::uint8_t>(word), std::nullopt);
}

TEST(TextError, IsOneLineWhateverTheTextHolds) {
    const TextError error = wantedButFound(3, "a word", inQuotes("\n\xFF" + std::string(50, 'x')));
    EXPECT_EQ(error.in("a.txt"), "a.txt:3: wanted a word, found '\?\?" + std::string(38, 'x') + "...'");
    EXPECT_EQ(wantedButFound(0, "a", "b").in("a.txt"), "a.txt: wanted a, found b");
}

TEST(Log, HoldsTheLinesOfTheLastStartEachOf1023BytesAtMost) {
    const ScratchDirectory scratch;
    ASSERT_TRUE(writeWholeText(scratch.file("nimbo.log"), "of an earlier start\n"));
    const auto start = [&] {  // in a process of its own, since the log opens once in a process
        std::filesystem::current_path(scratch.path());
        openLog();
        logLine("Can't load %s", "%n.bmp");
        for (const std::size_t length : {0, 1023, 1024, 5000}) logLine("%s", std::string(length, 'x').c_str());
        std::exit(0);
    };
    EXPECT_EXIT(start(), testing::ExitedWithCode(0), "");
    const std::string line = std::string(1023, 'x') + "\n";
    EXPECT_EQ(readWholeText(scratch.file("nimbo.log")), "Can't load %n.bmp\n\n" + line + line + line);
}

}  // namespace
}  // namespace grub
