#pragma once

#include "level_sound.h"

namespace grub {

/// The loudest level of sound and music; 0 is silence.
inline constexpr int kLoudestSetting = 8;

/// What the player has set.
struct Settings {
    int sound = Volumes{}.effects;  // 0 to `kLoudestSetting`
    int music = Volumes{}.music;    // the same
    bool fullScreen = false;        // how the next start of the program opens

    bool operator==(const Settings&) const = default;
};

/// The registry key of all settings, below HKEY_CURRENT_USER.
inline constexpr const char* kSettingsKey = "SOFTWARE\\Quenmor\\Grubaway";
/// The value of `fullScreen`. The start of the program uses it up (game_window.h).
inline constexpr const char* kFullScreenValue = "FULLSCREEN";

/// Reads both levels, clamped to their range. A value that is missing, or not four bytes of binary data, leaves its
/// level alone. Does not read `fullScreen`.
void loadSettings(Settings& settings);
/// Stores all three and waits for the disk. What cannot be stored keeps its old value, without a message.
void saveSettings(const Settings& settings);

}  // namespace grub
