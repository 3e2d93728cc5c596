#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <cstdlib>
#include <string>
#include <vector>

#include "control/call_controls.h"
#include "control/testing.h"
#include "files/registry_store.h"
#include "scratch_directory.h"

namespace {

using platform::testing::Call;
using platform::testing::FailingCall;
using platform::testing::RegistryFile;

constexpr const char* kPath = R"(SOFTWARE\Maker\Game)";

HKEY createKey() {
    HKEY key = nullptr;
    EXPECT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, kPath, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr,
                              &key, nullptr),
              ERROR_SUCCESS);
    return key;
}

LONG setValue(HKEY key, const char* name, const std::vector<BYTE>& bytes) {
    return RegSetValueExA(key, name, 0, REG_BINARY, bytes.data(), static_cast<DWORD>(bytes.size()));
}

std::string fileText(const grub::ScratchDirectory& scratch) {
    const auto bytes = scratch.read("registry.txt");
    return {bytes.begin(), bytes.end()};
}

class Registry : public testing::Test {
protected:
    void store(const std::string& text) const {
        scratch_.write("registry.txt", {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    }

    grub::ScratchDirectory scratch_;
    RegistryFile file_{scratch_.path() / "registry.txt"};
};

TEST_F(Registry, HasNoKeyUntilItIsCreated) {
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, kPath, 0, KEY_ALL_ACCESS, &key), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegCloseKey(createKey()), ERROR_SUCCESS);
    EXPECT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, R"(software\MAKER\game)", 0, KEY_READ, &key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegOpenKeyExA(nullptr, kPath, 0, KEY_READ, &key), ERROR_INVALID_HANDLE);
}

TEST_F(Registry, GivesBackWhatFitsTheBuffer) {
    const HKEY key = createKey();
    struct Row {
        std::vector<BYTE> stored;
        LONG result;
        std::array<BYTE, 4> buffer;  // from AA AA AA AA
    };
    for (const auto& row : {
             Row{{1}, ERROR_SUCCESS, {1, 0xAA, 0xAA, 0xAA}},
             Row{{1, 2, 3, 4}, ERROR_SUCCESS, {1, 2, 3, 4}},
             Row{{1, 2, 3, 4, 5}, ERROR_MORE_DATA, {0xAA, 0xAA, 0xAA, 0xAA}},
             Row{{}, ERROR_SUCCESS, {0xAA, 0xAA, 0xAA, 0xAA}},
         }) {
        EXPECT_EQ(setValue(key, "VALUE", row.stored), ERROR_SUCCESS);
        std::array<BYTE, 4> buffer{0xAA, 0xAA, 0xAA, 0xAA};
        DWORD size = 4;
        DWORD type = 0;
        EXPECT_EQ(RegQueryValueExA(key, "value", nullptr, &type, buffer.data(), &size), row.result);
        EXPECT_EQ(buffer, row.buffer);
        EXPECT_EQ(size, row.stored.size());
        EXPECT_EQ(type, REG_BINARY);
    }
    DWORD size = 4;
    EXPECT_EQ(RegQueryValueExA(key, "OTHER", nullptr, nullptr, nullptr, &size), ERROR_FILE_NOT_FOUND);
    RegCloseKey(key);
}

TEST_F(Registry, IsATextFileOfOneLineAValue) {
    const HKEY key = createKey();
    EXPECT_EQ(fileText(scratch_), "HKEY_CURRENT_USER\\SOFTWARE\\Maker\\Game\n");
    setValue(key, "SOUND", {0x64, 0, 0, 0});
    setValue(key, "FULLSCREEN", {1});
    RegCloseKey(key);
    EXPECT_EQ(fileText(scratch_),
              "HKEY_CURRENT_USER\\SOFTWARE\\Maker\\Game\tFULLSCREEN\t3\t01\n"
              "HKEY_CURRENT_USER\\SOFTWARE\\Maker\\Game\tSOUND\t3\t64000000\n");
}

TEST_F(Registry, KeepsTheOldFileWhenWritingFails) {
    const HKEY key = createKey();
    setValue(key, "SOUND", {1});
    const auto before = fileText(scratch_);
    {
        const FailingCall full(Call::RegistryWrite);
        EXPECT_EQ(setValue(key, "SOUND", {2}), ERROR_WRITE_FAULT);
    }
    EXPECT_EQ(fileText(scratch_), before);
    EXPECT_TRUE(scratch_.read("registry.txt.new").empty()) << "the unfinished file stayed";
    EXPECT_EQ(setValue(key, "two\nlines", {2}), ERROR_WRITE_FAULT);
    EXPECT_EQ(fileText(scratch_), before);
    RegCloseKey(key);
}

TEST_F(Registry, SkipsLinesItDoesNotUnderstandAndKeepsTheRest) {
    const std::vector<std::string> badLines{"K\tV\t3",          "K\tV\tx\t00",   "K\tV\t3\t0", "K\tV\t3\t0g",
                                            "\tV\t3\t00",       "K\tV\t3\t00\t", "",           "K\tV\t99999999999\t00",
                                            {"\0\xff\t\t\t", 5}};
    for (const auto& bad : badLines) {
        const std::string text = bad + "\nGOOD\tV\t3\t0a\n";
        store(text);
        const auto keys = platform::loadRegistry(platform::registryFile()).keys;
        EXPECT_EQ(keys.size(), 1U) << bad;
        ASSERT_TRUE(keys.contains(std::string("GOOD"))) << bad;
        EXPECT_EQ(keys.at("GOOD").at("V").bytes, (std::vector<BYTE>{0x0A})) << bad;
    }
}

TEST_F(Registry, KeepsForeignLinesWhenItIsWritten) {
    store("a\tline of\tthe player\nOLD\tV\t3\t0a\n");
    const HKEY key = createKey();
    setValue(key, "SOUND", {1});
    RegCloseKey(key);
    EXPECT_EQ(fileText(scratch_),
              "HKEY_CURRENT_USER\\SOFTWARE\\Maker\\Game\tSOUND\t3\t01\nOLD\tV\t3\t0a\na\tline of\tthe player\n");
}

TEST_F(Registry, LeavesAFileAloneThatItCannotRead) {
    const std::string large(2 << 20, 'x');
    store(large);
    HKEY key = nullptr;
    EXPECT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, kPath, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
              ERROR_WRITE_FAULT);
    EXPECT_EQ(fileText(scratch_), large);
    const RegistryFile folder(scratch_.path());  // opens, but cannot be read
    EXPECT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, kPath, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
              ERROR_WRITE_FAULT);
}

TEST(RegistryPlace, IsTheUsersConfigurationDirectory) {
    const char* before = std::getenv("XDG_CONFIG_HOME");
    const std::string kept = before == nullptr ? "" : before;
    ::setenv("XDG_CONFIG_HOME", "/home/player/conf", 1);
    EXPECT_EQ(platform::registryFile(), "/home/player/conf/grubaway/registry.txt");
    ::setenv("XDG_CONFIG_HOME", "relative", 1);  // as if it were not set
    EXPECT_TRUE(platform::registryFile().string().ends_with("/.config/grubaway/registry.txt"));
    ::setenv("XDG_CONFIG_HOME", kept.c_str(), 1);
}

}  // namespace
