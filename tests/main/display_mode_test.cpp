#include <gtest/gtest.h>

#include <string>

#include "bytes.h"
#include "control/testing.h"
#include "game_window.h"
#include "scratch_directory.h"

namespace grub {
namespace {

const std::string kKey = R"(HKEY_CURRENT_USER\SOFTWARE\Quenmor\Grubaway)";

// The registry with a binary value of these hexadecimal bytes.
std::string settings(const std::string& value) { return kKey + "\tFULLSCREEN\t3\t" + value + "\n"; }

TEST(DisplayMode, SettingsDecideAndAreUsedUpElseACapitalFAsksForTheFullScreen) {
    struct Row {
        const char* what;
        std::string registry;
        const char* commandLine;
        bool windowed;
    };
    for (const Row& row : {Row{"nothing", "", "f", true},
                           {"a word with an F", "", "some File", false},
                           {"a key without a value", kKey + "\n", "F", true},
                           {"off", settings("00000000"), "F", true},
                           {"one byte", settings("01"), "", false},
                           {"on in a higher byte", settings("00000001"), "", false},
                           {"five bytes do not fit", settings("0100000000"), "F", true}}) {
        SCOPED_TRACE(row.what);
        const ScratchDirectory directory;
        const platform::testing::RegistryFile file(directory.write("registry.txt", bytesOf(row.registry)));
        EXPECT_EQ(startsWindowed(row.commandLine), row.windowed);
        EXPECT_EQ(directory.read("registry.txt"), bytesOf(row.registry.empty() ? "" : settings("00000000")));
    }
}

}  // namespace
}  // namespace grub
