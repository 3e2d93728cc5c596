// The words of grubtool, and grubtool level on the levels of the game.

#include <filesystem>

#include "bytes.h"
#include "grubtool_run.h"
#include "scratch_directory.h"

namespace grub {
namespace {

namespace fs = std::filesystem;

const fs::path kLevels = fs::path(GRUB_CONTENT_DIR) / "levels";
const std::string kTable = (kLevels / "typeblok.ini").string();

TEST(LevelCommands, DrawALevelSourceWith64PixelsACell) {
    const ScratchDirectory scratch;
    grubtool({"level", "picture", (kLevels / "turma" / "level01.txt").string(), scratch.file("level.png"), "--art",
              scratch.path().string()});
    const auto png = scratch.read("level.png");
    ASSERT_GT(png.size(), 24U);
    const auto big = [&](std::size_t at) { return png[at] << 24 | png[at + 1] << 16 | png[at + 2] << 8 | png[at + 3]; };
    EXPECT_EQ(big(16), 13 * 64);
    EXPECT_EQ(big(20), 9 * 64);
}

TEST(Grubtool, FailsWithALineThatNamesTheFile) {
    const ScratchDirectory scratch;
    const std::string bad = scratch.write("bad.txt", bytesOf("x\n"));
    const std::string out = scratch.file("out.lvl");
    const std::pair<std::vector<std::string>, std::string> rows[] = {
        {{"level", "compile", bad, out, "--blocks", kTable}, bad + ":1: wanted title, "},
        {{"level", "compile", bad, out, "--blocks", "none.ini"}, "none.ini: cannot be read"},
        {{"level", "compile", bad, out}, bad + ": no typeblok.ini"},
        {{"level", "show", bad, "--blocks", kTable}, bad + ": shorter than its header"},
        {{"level", "blocks", bad, out}, bad + ":1: wanted a comment"},
        {{"render", "strip", "grub\\nobody", out}, "grub\\nobody"},
        {{"render", "strip", "c_small", "/dev/null/x.bmp"}, "/dev/null/x.bmp"},
    };
    for (const auto& [words, line] : rows) EXPECT_TRUE(grubtool(words).failed(1, line));
    EXPECT_FALSE(fs::exists(out));
}

TEST(Grubtool, AnswersWrongWordsWithALine) {
    const std::pair<std::vector<std::string>, const char*> rows[] = {
        {{}, "grubtool: a command is missing; the commands are pack, list, "},
        {{"level", "foo"}, "grubtool level: 'foo' is not a command; the commands are compile, show, "},
        {{"list", "a", "b"}, "grubtool: "},
        {{"play", "a", "--at", "5"}, "--at requires --show"},
        {{"play", "a", "--show", "--update"}, "--show excludes --update"},
        {{"render", "sheet", "a", "--zoom", "9"}, "'9' is not a number from 1 to 8"},
        {{"play", "a", "--show", "--at", "+1"}, "'+1' is not a number from 0 to 2147483647"},
    };
    for (const auto& [words, line] : rows) EXPECT_TRUE(grubtool(words).failed(2, line));
    EXPECT_NE(grubtool({"level", "--help"}).out.find("compile"), std::string::npos);
}

}  // namespace
}  // namespace grub
