#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "bytes.h"
#include "control/call_controls.h"
#include "control/testing.h"
#include "files/registry_store.h"
#include "scratch_directory.h"

namespace {

using platform::testing::FailingCall;
using platform::testing::RegistryFile;

constexpr const char* kPath = R"(SOFTWARE\Maker\Game)";

LONG setValue(HKEY key, const char* name, const std::vector<BYTE>& bytes) {
    return RegSetValueExA(key, name, 0, REG_BINARY, bytes.data(), static_cast<DWORD>(bytes.size()));
}

class Registry : public testing::Test {
protected:
    ~Registry() override { RegCloseKey(key_); }

    LONG createKey() {
        return RegCreateKeyExA(HKEY_CURRENT_USER, kPath, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr,
                               &key_, nullptr);
    }
    [[nodiscard]] std::string fileText() const {
        const auto bytes = scratch_.read("registry.txt");
        return {bytes.begin(), bytes.end()};
    }

    grub::ScratchDirectory scratch_;
    RegistryFile file_{scratch_.path() / "registry.txt"};
    HKEY key_ = nullptr;
};

TEST_F(Registry, IsATextFileOfOneLineAValue) {
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, kPath, 0, KEY_ALL_ACCESS, &key), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(createKey(), ERROR_SUCCESS);
    EXPECT_EQ(fileText(), "HKEY_CURRENT_USER\\SOFTWARE\\Maker\\Game\n");
    EXPECT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, R"(software\MAKER\game)", 0, KEY_READ, &key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    setValue(key_, "SOUND", {0x64, 0, 0, 0});
    setValue(key_, "FULLSCREEN", {1});
    EXPECT_EQ(fileText(),
              "HKEY_CURRENT_USER\\SOFTWARE\\Maker\\Game\tFULLSCREEN\t3\t01\n"
              "HKEY_CURRENT_USER\\SOFTWARE\\Maker\\Game\tSOUND\t3\t64000000\n");
}

TEST_F(Registry, GivesBackWhatFitsTheBuffer) {
    createKey();
    for (const std::vector<BYTE>& stored : {std::vector<BYTE>{}, {1}, {1, 2, 3, 4}, {1, 2, 3, 4, 5}}) {
        SCOPED_TRACE(stored.size());
        EXPECT_EQ(setValue(key_, "VALUE", stored), ERROR_SUCCESS);
        std::vector<BYTE> buffer(4, 0xAA);
        auto expected = buffer;
        const bool fits = stored.size() <= 4;
        if (fits) std::ranges::copy(stored, expected.begin());
        DWORD size = 4;
        DWORD type = 0;
        EXPECT_EQ(RegQueryValueExA(key_, "value", nullptr, &type, buffer.data(), &size),
                  fits ? ERROR_SUCCESS : ERROR_MORE_DATA);
        EXPECT_EQ(buffer, expected);
        EXPECT_EQ(size, stored.size());
        EXPECT_EQ(type, REG_BINARY);
    }
    DWORD size = 4;
    EXPECT_EQ(RegQueryValueExA(key_, "OTHER", nullptr, nullptr, nullptr, &size), ERROR_FILE_NOT_FOUND);
}

TEST_F(Registry, KeepsTheOldFileWhenWritingFails) {
    createKey();
    setValue(key_, "SOUND", {1});
    const auto before = fileText();
    {
        const FailingCall full(platform::Call::RegistryWrite);
        EXPECT_EQ(setValue(key_, "SOUND", {2}), ERROR_WRITE_FAULT);
    }
    EXPECT_EQ(fileText(), before);
    EXPECT_TRUE(scratch_.read("registry.txt.new").empty()) << "the unfinished file stayed";
    EXPECT_EQ(setValue(key_, "two\nlines", {2}), ERROR_WRITE_FAULT);
    EXPECT_EQ(fileText(), before);
}

TEST_F(Registry, SkipsAndKeepsLinesItDoesNotUnderstand) {
    for (const std::string foreign :
         {"K\tV\t3", "K\tV\tx\t00", "K\tV\t99999999999\t00", "K\tV\t3\t0", "K\tV\t3\t0g", "\tV\t3\t00", "\xff\t"}) {
        scratch_.write("registry.txt", grub::bytesOf(foreign + "\nOLD\tV\t3\t0a\n"));
        EXPECT_EQ(createKey(), ERROR_SUCCESS);
        EXPECT_EQ(fileText(), "HKEY_CURRENT_USER\\SOFTWARE\\Maker\\Game\nOLD\tV\t3\t0a\n" + foreign + "\n");
        RegCloseKey(key_);
    }
}

TEST_F(Registry, LeavesAFileAloneThatItCannotRead) {
    const std::string large(2 << 20, 'x');
    scratch_.write("registry.txt", grub::bytesOf(large));
    EXPECT_EQ(createKey(), ERROR_WRITE_FAULT);
    EXPECT_EQ(fileText(), large);
    platform::useRegistryFile(scratch_.path());  // a folder opens, but cannot be read
    EXPECT_EQ(createKey(), ERROR_WRITE_FAULT);
}

}  // namespace
