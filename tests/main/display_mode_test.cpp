#include <gtest/gtest.h>
#include <windows.h>

#include <optional>
#include <vector>

#include "control/testing.h"
#include "game_window.h"
#include "scratch_directory.h"

namespace grub {
namespace {

using Value = std::vector<BYTE>;

constexpr const char* kKey = "SOFTWARE\\Quenmor\\Grubaway";

void makeKey(const Value& fullScreen) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, kKey, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr,
                              &key, nullptr),
              ERROR_SUCCESS);
    if (!fullScreen.empty())
        RegSetValueExA(key, "FULLSCREEN", 0, REG_BINARY, fullScreen.data(), static_cast<DWORD>(fullScreen.size()));
    RegCloseKey(key);
}

// What the registry holds; nothing when the key or the value is not there.
std::optional<Value> storedValue() {
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

TEST(DisplayMode, SettingsDecideAndAreUsedUpElseACapitalFAsksForTheFullScreen) {
    struct Row {
        const char* what;
        std::optional<Value> settings;  // none: no key; empty: no value
        const char* commandLine;
        bool windowed;
    };
    for (const Row& row : {Row{"nothing", {}, "f", true},
                           {"a word", {}, "-F", false},
                           {"a word with an F", {}, "some File", false},
                           {"a key without a value", Value{}, "F", true},
                           {"off", Value{0, 0, 0, 0}, "F", true},
                           {"one byte", Value{1}, "", false},
                           {"on in a higher byte", Value{0, 0, 0, 1}, "", false},
                           {"five bytes do not fit", Value{1, 0, 0, 0, 0}, "F", true}}) {
        SCOPED_TRACE(row.what);
        const ScratchDirectory directory;
        const platform::testing::RegistryFile registry(directory.file("registry.txt"));
        if (row.settings) makeKey(*row.settings);
        EXPECT_EQ(startsWindowed(row.commandLine), row.windowed);
        EXPECT_EQ(storedValue(), row.settings ? std::optional(Value{0, 0, 0, 0}) : std::nullopt);
    }
}

}  // namespace
}  // namespace grub
