// Texts that people write, whole files, and the log.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
    EXPECT_TRUE(writeWholeText(path, "first"));
    EXPECT_TRUE(writeWholeText(path, "second"));
    EXPECT_EQ(readWholeText(path), "second");
    EXPECT_FALSE(writeWholeText(scratch.file("nowhere/a.txt"), "lost"));
    std::filesystem::create_directory(scratch.path() / "folder");
    EXPECT_FALSE(writeWholeText(scratch.file("folder"), "lost"));
    const auto entries = std::filesystem::directory_iterator(scratch.path());
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 2) << "nothing half-written stays";
}

TEST(WholeFile, CanBeOfAnyLength) {
    const ScratchDirectory scratch;
    for (const std::size_t size : {0, 1, (1 << 14) - 1, 1 << 14, 40'000}) {
        const std::string text(size, 'x');
        ASSERT_TRUE(writeWholeText(scratch.file("a.txt"), text));
        EXPECT_EQ(readWholeText(scratch.file("a.txt")), text);
    }
    EXPECT_EQ(readWholeText(scratch.file("none")), std::nullopt);
    EXPECT_EQ(readWholeFile(scratch.path()), std::nullopt) << "a folder";
}

TEST(WholeFile, APipeStaysAPipe) {
    const ScratchDirectory scratch;
    std::filesystem::create_symlink("/dev/null", scratch.path() / "null");
    EXPECT_TRUE(writeWholeText(scratch.file("null"), "away"));
    EXPECT_TRUE(std::filesystem::is_symlink(scratch.path() / "null"));
    EXPECT_EQ(readWholeText(scratch.file("null")), "");
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
    EXPECT_EQ(numberIn<double>("0.5"), 0.5);
    EXPECT_EQ(numberIn<std::uint8_t>("fF", 16), 255);
    for (const char* word : {"", "+1", " 1", "1 ", "1x", "0x1", "300"})
        EXPECT_EQ(numberIn<std::uint8_t>(word), std::nullopt) << word;
    EXPECT_EQ(numberIn<std::uint8_t>("100", 16), std::nullopt);
}

TEST(TextError, IsOneLineWhateverTheTextHolds) {
    const TextError error = wantedButFound(3, "a word", inQuotes("\n\xFF" + std::string(50, 'x')));
    EXPECT_EQ(error.in("a.txt"), "a.txt:3: wanted a word, found '\?\?" + std::string(38, 'x') + "...'");
    EXPECT_EQ(wantedButFound(0, "a", "b").in("a.txt"), "a.txt: wanted a, found b");
}

/// One start of the program in `directory`: a child process, since the log opens once in a process.
template <class Program>
void start(const std::filesystem::path& directory, Program program) {
    EXPECT_EXIT(
        {
            std::filesystem::current_path(directory);
            openLog();
            program();
            std::exit(0);
        },
        testing::ExitedWithCode(0), "");
}

TEST(Log, HoldsTheLinesOfTheLastStart) {
    const ScratchDirectory scratch;
    start(scratch.path(), [] {
        logLine("Can't load %s", "%n.bmp");
        logLine("%s", "");
    });
    EXPECT_EQ(readWholeText(scratch.file("nimbo.log")), "Can't load %n.bmp\n\n");
    start(scratch.path(), [] {});
    EXPECT_EQ(readWholeText(scratch.file("nimbo.log")), "");
}

TEST(Log, CutsALineAfter1023Bytes) {
    const ScratchDirectory scratch;
    start(scratch.path(), [] {
        for (const std::size_t length : {1023u, 1024u, 5000u}) logLine("%s", std::string(length, 'x').c_str());
    });
    const std::string line = std::string(1023, 'x') + "\n";
    EXPECT_EQ(readWholeText(scratch.file("nimbo.log")), line + line + line);
}

}  // namespace
}  // namespace grub
