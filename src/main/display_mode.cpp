#include "display_mode.h"

#include <windows.h>

#include <cstring>
#include <optional>

namespace grub {

namespace {

constexpr const char* kSettingsKey = "SOFTWARE\\Quenmor\\Grubaway";
constexpr const char* kFullScreenValue = "FULLSCREEN";

DWORD readFullScreen(HKEY key) {
    DWORD value = 0;
    DWORD size = sizeof(value);
    const LONG result =
        RegQueryValueExA(key, kFullScreenValue, nullptr, nullptr, reinterpret_cast<BYTE*>(&value), &size);
    return result == ERROR_SUCCESS ? value : 0;
}

void writeFullScreenOff(HKEY key) {
    const DWORD off = 0;
    RegSetValueExA(key, kFullScreenValue, 0, REG_BINARY, reinterpret_cast<const BYTE*>(&off), sizeof(off));
}

// The player's setting, taken out of the registry; empty where the key does not exist.
std::optional<bool> takeFullScreenSetting() {
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, kSettingsKey, 0, KEY_ALL_ACCESS, &key) != ERROR_SUCCESS) return std::nullopt;
    const bool fullScreen = readFullScreen(key) != 0;
    writeFullScreenOff(key);
    RegCloseKey(key);
    return fullScreen;
}

}  // namespace

bool startsWindowed(const char* commandLine) {
    const bool fullScreenWished = std::strchr(commandLine, 'F') != nullptr;
    return !takeFullScreenSetting().value_or(fullScreenWished);
}

}  // namespace grub
