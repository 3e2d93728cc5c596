#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ini_table.h"
#include "resource_package.h"
#include "sound_recording.h"

namespace grub {

/// The sounds of this build by the names that the game has for them.
class SoundPackage {
public:
    /// Bytes of the file that sound.ini names; a failure is reported to the test.
    [[nodiscard]] std::vector<std::uint8_t> file(const char* section, const char* key) {
        const EngineString name(std::string_view("sound\\" + std::string(table_.getString(section, key).view())));
        EXPECT_TRUE(package_.exists(name)) << section << " " << key;
        if (!package_.exists(name)) return {};
        const SharedBuffer bytes = package_.load(name);
        return {bytes.bytes().begin(), bytes.bytes().end()};
    }

    /// The same, decoded; an empty sound when that fails.
    [[nodiscard]] SoundRecording recording(const char* section, const char* key) {
        const auto decoded = decodeSound(file(section, key));
        EXPECT_TRUE(decoded) << section << " " << key;
        return decoded.value_or(SoundRecording{kMusicRate, {Samples(kMusicRate)}});
    }

private:
    static constexpr std::uint32_t kBuckets = 97;

    ResourcePackage package_{GRUB_DATA_DIR "/sound.pak"};
    IniTable table_{package_.load("sound\\sound.ini"), kBuckets};
};

}  // namespace grub
