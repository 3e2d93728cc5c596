#include "settings.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "bytes.h"
#include "control/testing.h"
#include "name_entry.h"
#include "scratch_directory.h"

namespace grub {
namespace {

TEST(SettingsInTheRegistry, AreWrittenTogetherAndReadOneByOne) {
    const ScratchDirectory directory;
    const platform::testing::RegistryFile file(directory.path() / "registry.txt");
    const auto line = [](const std::string& value) {
        return "HKEY_CURRENT_USER\\SOFTWARE\\Quenmor\\Grubaway\t" + value + "\n";
    };
    saveSettings({.sound = 8, .music = 0, .fullScreen = true});
    EXPECT_EQ(directory.read("registry.txt"),
              bytesOf(line("FULLSCREEN\t3\t01000000") + line("MUSIC\t3\t00000000") + line("SOUND\t3\t08000000")));
    using Rows = std::vector<std::pair<const char*, Settings>>;
    for (const auto& [values, expected] : Rows{{"SOUND\t3\t05000000", {.sound = 5}},
                                               {"MUSIC\t3\t05000000", {.music = 5}},
                                               {"SOUND\t3\t09000000", {.sound = 8}},
                                               {"SOUND\t3\tffffffff", {.sound = 0}},
                                               {"SOUND\t3\t05", {}},
                                               {"SOUND\t3\t0500000000", {}},
                                               {"SOUND\t4\t05000000", {}},
                                               {"FULLSCREEN\t3\t01000000", {}}}) {
        SCOPED_TRACE(values);
        directory.write("registry.txt", bytesOf(line(values)));
        Settings settings;
        loadSettings(settings);
        EXPECT_EQ(settings, expected);
    }
}

TEST(NameEntries, TakeCharactersUntilTheyAreComplete) {
    using Rows = std::vector<std::tuple<std::vector<std::uint32_t>, const char*, bool>>;
    for (const auto& [keys, name, isComplete] :
         Rows{{{'Z', 'X', '9', '0'}, "ZX90  ", false},
              {{'Z', 0x2F, 0x5B, 0x60, KeyUp, KeyDown, KeyEscape}, "Z     ", false},
              {{KeyLeft, 8, 'D', 'E', 'F', KeyLeft, 8, 'G'}, "DG    ", false},
              {{'D', KeyA, 'D', KeyB, 'D', KeyC}, "D D D ", true},
              {{KeyRight, 'D', KeySpace, 'E'}, " D E  ", false},
              {{'D', KeyEnter, 'E'}, "D     ", true},
              {{'G', 'R', 'U', 'B', 'B', 'Y', KeyLeft}, "GRUBBY", true}}) {
        SCOPED_TRACE(name);
        NameEntry entry;
        for (const std::uint32_t key : keys) entry.keyDown(KeyCode{key});
        EXPECT_EQ(entry.name().view(), name);
        EXPECT_EQ(entry.isComplete(), isComplete);
    }
}

}  // namespace
}  // namespace grub
