#include "game_window.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <optional>
#include <vector>

#include "scratch_directory.h"
#include "testing.h"

namespace grub {
namespace {

using Value = std::vector<BYTE>;

constexpr const char* kKey = "SOFTWARE\\Quenmor\\Grubaway";

class DisplayMode : public testing::Test {
protected:
    static void makeKey(const std::optional<Value>& fullScreen) {
        HKEY key = nullptr;
        ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, kKey, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr,
                                  &key, nullptr),
                  ERROR_SUCCESS);
        if (fullScreen) {
            RegSetValueExA(key, "FULLSCREEN", 0, REG_BINARY, fullScreen->data(),
                           static_cast<DWORD>(fullScreen->size()));
        }
        RegCloseKey(key);
    }

    // What the registry holds; nothing when the key or the value is not there.
    static std::optional<Value> storedValue() {
        HKEY key = nullptr;
        if (RegOpenKeyExA(HKEY_CURRENT_USER, kKey, 0, KEY_READ, &key) != ERROR_SUCCESS) return std::nullopt;
        Value value(16);
        DWORD type = 0;
        auto size = static_cast<DWORD>(value.size());
        const LONG result = RegQueryValueExA(key, "FULLSCREEN", nullptr, &type, value.data(), &size);
        RegCloseKey(key);
        if (result != ERROR_SUCCESS) return std::nullopt;
        EXPECT_EQ(type, REG_BINARY);
        value.resize(size);
        return value;
    }
};

TEST_F(DisplayMode, WithoutSettingsACapitalFAsksForTheFullScreen) {
    const ScratchDirectory directory;
    const platform::testing::RegistryFile registry(directory.file("registry.txt"));
    struct Row {
        const char* commandLine;
        bool windowed;
    };
    for (const Row& row : {Row{"", true}, Row{"f", true}, Row{"-window", true}, Row{"F", false}, Row{"-F", false},
                           Row{"FULL", false}, Row{"WOLF", false}, Row{"some File", false}}) {
        EXPECT_EQ(startsWindowed(row.commandLine), row.windowed) << row.commandLine;
    }
    EXPECT_EQ(storedValue(), std::nullopt) << "the key is not made here";
}

TEST_F(DisplayMode, SettingsDecideAloneAndAreUsedUp) {
    struct Row {
        const char* what;
        std::optional<Value> stored;
        bool windowed;
    };
    const Row rows[] = {
        {"no value", std::nullopt, true},
        {"on", Value{1, 0, 0, 0}, false},
        {"off", Value{0, 0, 0, 0}, true},
        {"one byte on", Value{1}, false},
        {"on in a higher byte", Value{0, 0, 0, 1}, false},
        {"five bytes do not fit", Value{1, 0, 0, 0, 0}, true},
    };
    for (const Row& row : rows) {
        for (const char* const commandLine : {"", "F"}) {
            SCOPED_TRACE(testing::Message() << row.what << ", command line '" << commandLine << "'");
            const ScratchDirectory directory;
            const platform::testing::RegistryFile registry(directory.file("registry.txt"));
            makeKey(row.stored);
            EXPECT_EQ(startsWindowed(commandLine), row.windowed);
            EXPECT_EQ(storedValue(), (Value{0, 0, 0, 0}));
        }
    }
}

}  // namespace
}  // namespace grub
