#include <gtest/gtest.h>
#include <sys/resource.h>
#include <windows.h>

#include <csignal>
#include <filesystem>
#include <string>

#include "bytes.h"
#include "files/files.h"
#include "scratch_directory.h"

namespace {

using grub::bytesOf;
using grub::ScratchDirectory;

HANDLE open(const char* path, DWORD access, DWORD disposition) {
    return CreateFileA(path, access, FILE_SHARE_READ, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// The whole file as the game would read it; "absent" when it cannot be opened.
std::string readAll(const std::string& path) {
    const HANDLE file = open(path.c_str(), GENERIC_READ, OPEN_EXISTING);
    if (file == INVALID_HANDLE_VALUE) return "absent";
    std::string text(100, '\0');
    DWORD count = 0;
    EXPECT_TRUE(ReadFile(file, text.data(), 100, &count, nullptr));
    CloseHandle(file);
    text.resize(count);
    return text;
}

TEST(Files, AnswerAFailureWhenTheDiskTakesOnlyAPart) {
    const ScratchDirectory scratch;
    const HANDLE file = open(scratch.file("file").c_str(), GENERIC_WRITE, CREATE_ALWAYS);
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
    explicit DataDirectory(const std::string& path) { platform::setDataDirectory(path); }
    ~DataDirectory() { platform::setDataDirectory(""); }
    DataDirectory(const DataDirectory&) = delete;
    DataDirectory& operator=(const DataDirectory&) = delete;
};

TEST(DataDirectory, GivesPackagesToReadersAndNothingElse) {
    const ScratchDirectory scratch;
    for (const char* name : {"only.pak", "both.pak", "sub/deep.pak", "slot0.sav"}) {
        scratch.write(std::string("data/") + name, bytesOf("data"));
    }
    for (const char* name : {"both.pak", "own.pak"}) scratch.write(std::string("work/") + name, bytesOf("work"));
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(scratch.path() / "work");
    const DataDirectory data(scratch.file("data/"));
    struct Row {
        const char* name;
        const char* found;
    };
    for (const auto& [name, found] : {
             Row{"only.pak", "data"},
             Row{"both.pak", "data"},  // the user named the directory, so it goes first
             Row{"own.pak", "work"},
             Row{"sub\\deep.pak", "data"},
             Row{"sub", "absent"},  // a directory is no file
             Row{"nowhere.pak", "absent"},
             Row{"slot0.sav", "absent"},
         }) {
        EXPECT_EQ(readAll(name), found) << name;
    }
    EXPECT_EQ(readAll(scratch.file("work/only.pak")), "absent") << "an absolute path means that file";
    for (const DWORD access : {GENERIC_WRITE, GENERIC_READ | GENERIC_WRITE}) {
        const HANDLE file = open("only.pak", access, OPEN_ALWAYS);
        DWORD written = 0;
        EXPECT_TRUE(WriteFile(file, "x", 1, &written, nullptr));
        CloseHandle(file);
    }
    EXPECT_EQ(readAll(scratch.file("data/only.pak")), "data") << "nothing is written there";
    EXPECT_EQ(readAll(scratch.file("work/only.pak")), "x");
    std::filesystem::current_path(before);
}

}  // namespace
