#include <gtest/gtest.h>
#include <sys/resource.h>
#include <windows.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <string_view>

#include "control/call_controls.h"
#include "control/testing.h"
#include "files/files.h"
#include "scratch_directory.h"

namespace {

using grub::ScratchDirectory;
using grub::WorkingDirectory;

constexpr DWORD kBoth = GENERIC_READ | GENERIC_WRITE;

HANDLE open(const char* path, DWORD access, DWORD disposition) {
    return CreateFileA(path, access, FILE_SHARE_READ, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

void put(const ScratchDirectory& directory, const std::string& name, std::string_view text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    directory.write(name, {bytes, text.size()});
}

std::string textOf(const ScratchDirectory& directory, const std::string& name) {
    const auto bytes = directory.read(name);
    return {bytes.begin(), bytes.end()};
}

/// The whole file as the game would read it; "absent" when it cannot be opened.
std::string readAll(const char* path) {
    const HANDLE file = open(path, GENERIC_READ, OPEN_EXISTING);
    if (file == INVALID_HANDLE_VALUE) return "absent";
    std::string text(100, '\0');
    DWORD count = 0;
    EXPECT_TRUE(ReadFile(file, text.data(), 100, &count, nullptr));
    CloseHandle(file);
    text.resize(count);
    return text;
}

TEST(Files, OpenAsAccessAndDispositionSay) {
    struct Row {
        const char* what;
        DWORD access, disposition;
        const char* missing;   // the file afterwards, one byte "x" having been written where that is allowed
        const char* existing;  // the same, from "0123"
    };
    for (const auto& row : {
             Row{"read", GENERIC_READ, OPEN_EXISTING, "absent", "0123"},
             Row{"write, keep", GENERIC_WRITE, OPEN_ALWAYS, "x", "x123"},
             Row{"write, empty", GENERIC_WRITE, CREATE_ALWAYS, "x", "x"},
             Row{"both, keep", kBoth, OPEN_ALWAYS, "x", "x123"},
             Row{"both, empty", kBoth, CREATE_ALWAYS, "x", "x"},
             Row{"write, must be there", GENERIC_WRITE, OPEN_EXISTING, "absent", "x123"},
         }) {
        const ScratchDirectory scratch;
        const WorkingDirectory here(scratch.path());
        put(scratch, "existing", "0123");
        for (const char* name : {"missing", "existing"}) {
            const HANDLE file = open(name, row.access, row.disposition);
            DWORD written = 0;
            const BOOL couldWrite = WriteFile(file, "x", 1, &written, nullptr);
            EXPECT_EQ(couldWrite != FALSE, written == 1) << row.what;
            EXPECT_EQ(FlushFileBuffers(file), couldWrite) << row.what;
            CloseHandle(file);
        }
        EXPECT_EQ(readAll("missing"), row.missing) << row.what;
        EXPECT_EQ(readAll("existing"), row.existing) << row.what;
    }
}

TEST(Files, MoveTheirPointerAndRefusePlacesBeforeTheStart) {
    const ScratchDirectory scratch;
    const WorkingDirectory here(scratch.path());
    put(scratch, "file", "0123456789");
    const HANDLE file = open("file", GENERIC_READ, OPEN_EXISTING);
    char byte = '?';
    DWORD count = 0;
    EXPECT_EQ(SetFilePointer(file, 4, nullptr, FILE_BEGIN), 4U);
    EXPECT_TRUE(ReadFile(file, &byte, 1, &count, nullptr));
    EXPECT_EQ(byte, '4');
    EXPECT_EQ(SetFilePointer(file, -2, nullptr, FILE_CURRENT), 3U);
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_END), 10U);
    EXPECT_TRUE(ReadFile(file, &byte, 1, &count, nullptr)) << "the end of a file is no failure";
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(SetFilePointer(file, -11, nullptr, FILE_END), INVALID_SET_FILE_POINTER);
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_CURRENT), 10U);
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_FALSE(ReadFile(file, &byte, 1, &count, nullptr));
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_BEGIN), INVALID_SET_FILE_POINTER);
}

TEST(Files, AreNoDirectoriesAndTakeBackslashes) {
    const ScratchDirectory scratch;
    const WorkingDirectory here(scratch.path());
    put(scratch, "folder/file", "inside");
    EXPECT_EQ(open("folder", GENERIC_READ, OPEN_EXISTING), INVALID_HANDLE_VALUE);
    EXPECT_EQ(readAll("folder\\file"), "inside");
}

TEST(Files, FailToWriteWhereATestWantsIt) {
    using platform::testing::Call;
    const ScratchDirectory scratch;
    const WorkingDirectory here(scratch.path());
    const HANDLE file = open("file", GENERIC_WRITE, CREATE_ALWAYS);
    DWORD written = 9;
    {
        const platform::testing::FailingCall second(Call::WriteFile, 1);
        EXPECT_TRUE(WriteFile(file, "a", 1, &written, nullptr));
        EXPECT_FALSE(WriteFile(file, "b", 1, &written, nullptr));
        EXPECT_EQ(written, 0U);
        const platform::testing::FailingCall flush(Call::FlushFile);
        EXPECT_FALSE(FlushFileBuffers(file));
    }
    EXPECT_TRUE(WriteFile(file, "c", 1, &written, nullptr));
    CloseHandle(file);
    EXPECT_EQ(textOf(scratch, "file"), "ac");
}

TEST(Files, AnswerAFailureWhenTheDiskTakesOnlyAPart) {
    const ScratchDirectory scratch;
    const WorkingDirectory here(scratch.path());
    const HANDLE file = open("file", GENERIC_WRITE, CREATE_ALWAYS);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{4096, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    DWORD written = 0;
    EXPECT_FALSE(WriteFile(file, std::string(10'000, 'x').data(), 10'000, &written, nullptr));
    EXPECT_EQ(written, 4096U);
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    CloseHandle(file);
}

/// A data directory for the length of a test.
struct DataDirectory {
    explicit DataDirectory(const ScratchDirectory& scratch) { platform::setDataDirectory(scratch.file("data")); }
    ~DataDirectory() { platform::setDataDirectory(""); }
    DataDirectory(const DataDirectory&) = delete;
    DataDirectory& operator=(const DataDirectory&) = delete;
};

TEST(DataDirectory, GivesPackagesToReadersAndNothingElse) {
    const ScratchDirectory scratch;
    for (const char* name : {"only.pak", "both.pak", "sub/deep.pak", "slot0.sav", "GrubScore.sco", "nimbo.log"}) {
        put(scratch, std::string("data/") + name, "data");
    }
    for (const char* name : {"both.pak", "own.pak"}) put(scratch, std::string("work/") + name, "work");
    const WorkingDirectory here(scratch.path() / "work");
    const DataDirectory data(scratch);
    struct Row {
        const char* name;
        const char* found;
    };
    for (const auto& [name, found] : {
             Row{"only.pak", "data"},
             Row{"both.pak", "data"},  // the user named the directory, so it goes first
             Row{"own.pak", "work"},
             Row{"sub\\deep.pak", "data"},
             Row{"nowhere.pak", "absent"},
             Row{"slot0.sav", "absent"},
             Row{"GrubScore.sco", "absent"},
             Row{"nimbo.log", "absent"},
         }) {
        EXPECT_EQ(readAll(name), found) << name;
    }
    EXPECT_EQ(readAll(scratch.file("work/only.pak").c_str()), "absent") << "an absolute path means that file";
}

TEST(DataDirectory, IsNeverWrittenTo) {
    const ScratchDirectory scratch;
    put(scratch, "data/level.pak", "data");
    put(scratch, "work/stays", "");
    const WorkingDirectory here(scratch.path() / "work");
    const DataDirectory data(scratch);
    for (const DWORD access : {GENERIC_WRITE, kBoth}) {
        const HANDLE file = open("level.pak", access, OPEN_ALWAYS);
        DWORD written = 0;
        EXPECT_TRUE(WriteFile(file, "work", 4, &written, nullptr));
        CloseHandle(file);
    }
    EXPECT_EQ(textOf(scratch, "data/level.pak"), "data");
    EXPECT_EQ(textOf(scratch, "work/level.pak"), "work");
}

TEST(DataDirectory, LiesBesideTheProgramWhenNobodyNamesOne) {
    EXPECT_TRUE(platform::dataDirectory().ends_with("/data") || platform::dataDirectory().ends_with("/share/grubaway"))
        << platform::dataDirectory();
    platform::setDataDirectory("/named/by/the/user/");
    EXPECT_EQ(platform::dataDirectory(), "/named/by/the/user");
    platform::setDataDirectory("");
}

}  // namespace
