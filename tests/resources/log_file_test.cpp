#include "log_file.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "package_writer.h"
#include "scratch_directory.h"

namespace grub {
namespace {

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

TEST(Log, IsEmptiedAtEachStart) {
    const ScratchDirectory scratch;
    start(scratch.path(), [] { logLine("Can't load %s", "a.bmp"); });
    EXPECT_EQ(scratch.read("nimbo.log"), bytesOf("Can't load a.bmp\n"));
    start(scratch.path(), [] {});
    EXPECT_TRUE(std::filesystem::exists(scratch.file("nimbo.log")));
    EXPECT_TRUE(scratch.read("nimbo.log").empty());
}

TEST(Log, WritesLinesWithoutPrefixEachEndedByLf) {
    const ScratchDirectory scratch;
    start(scratch.path(), [] {
        logLine("one");
        logLine("%d and %s", 2, "%n%s");
        logLine("%s", "");
    });
    EXPECT_EQ(scratch.read("nimbo.log"), bytesOf("one\n2 and %n%s\n\n"));
}

TEST(Log, CutsALineAfter1023Bytes) {
    const ScratchDirectory scratch;
    start(scratch.path(), [] {
        for (const std::size_t length : {1023u, 1024u, 5000u}) logLine("%s", std::string(length, 'x').c_str());
    });
    const std::string line = std::string(1023, 'x') + "\n";
    EXPECT_EQ(scratch.read("nimbo.log"), bytesOf(line + line + line));
}

TEST(Log, IsFlushedLineByLine) {
    const ScratchDirectory scratch;
    EXPECT_EXIT(
        {
            std::filesystem::current_path(scratch.path());
            logLine("the last words");
            std::abort();
        },
        testing::KilledBySignal(SIGABRT), "");
    EXPECT_EQ(scratch.read("nimbo.log"), bytesOf("the last words\n"));
}

TEST(Log, StopsNothingWhereItCannotBeWritten) {
    const ScratchDirectory scratch;
    std::filesystem::create_directory(scratch.path() / "nimbo.log");  // a folder stands where the file should go
    start(scratch.path(), [] { logLine("nobody hears this"); });
    EXPECT_TRUE(std::filesystem::is_directory(scratch.path() / "nimbo.log"));
}

}  // namespace
}  // namespace grub
