#include "settings.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <memory>

namespace grub {
namespace {

constexpr const char* kSoundValue = "SOUND";
constexpr const char* kMusicValue = "MUSIC";

struct KeyCloser {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using OpenKey = std::unique_ptr<HKEY__, KeyCloser>;

void readLevel(const OpenKey& key, const char* name, int& level) {
    std::int32_t value = 0;
    DWORD type = 0;
    DWORD size = sizeof(value);
    const LONG result = RegQueryValueExA(key.get(), name, nullptr, &type, reinterpret_cast<BYTE*>(&value), &size);
    if (result != ERROR_SUCCESS || type != REG_BINARY || size != sizeof(value)) return;
    level = std::clamp(value, 0, kLoudestSetting);
}

void write(const OpenKey& key, const char* name, std::int32_t value) {
    RegSetValueExA(key.get(), name, 0, REG_BINARY, reinterpret_cast<const BYTE*>(&value), sizeof(value));
}

}  // namespace

void loadSettings(Settings& settings) {
    HKEY found = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, kSettingsKey, 0, KEY_READ, &found) != ERROR_SUCCESS) return;
    const OpenKey key(found);
    readLevel(key, kSoundValue, settings.sound);
    readLevel(key, kMusicValue, settings.music);
}

void saveSettings(const Settings& settings) {
    HKEY made = nullptr;
    const LONG result = RegCreateKeyExA(HKEY_CURRENT_USER, kSettingsKey, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                        KEY_ALL_ACCESS, nullptr, &made, nullptr);
    if (result != ERROR_SUCCESS) return;
    const OpenKey key(made);
    write(key, kSoundValue, settings.sound);
    write(key, kMusicValue, settings.music);
    write(key, kFullScreenValue, settings.fullScreen ? 1 : 0);
}

}  // namespace grub
