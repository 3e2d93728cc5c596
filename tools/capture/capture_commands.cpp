#include <cstdio>
#include <string>

#include "command.h"
#include "command_lists.h"
#include "dsound/sound_card.h"
#include "game_text.h"
#include "play_content.h"
#include "resource_package.h"
#include "sound_capture.h"
#include "sound_file.h"

namespace grub {
namespace {

void capture(const Arguments& arguments) {
    const std::string path = arguments.text("GAME");
    const std::string output = arguments.text("FILE");
    std::string error;
    const auto game = loadGame(path, error);
    if (!game) failWith(kCannotPlay, error);
    if (!game->end) failWith(kCannotPlay, path + ": wanted an end, found a draft");
    const auto content = PlayContent::open(arguments.text("--data"), error);
    if (content == nullptr) failWith(kCannotPlay, error);
    auto world = content->worldOf(*game, path, error);
    if (!world) failWith(kCannotPlay, error);

    ResourcePackage package("sound.pak");
    if (!package.exists("sound\\sound.ini")) failWith(kCannotPlay, "sound.pak: wanted sound\\sound.ini, found none");
    const HandMixedDevice device;
    if (!device.isReady()) failWith(kCannotPlay, "no sound can be mixed");
    SoundBank bank(package);
    const auto samples = captureSound(*game, *world, bank);
    const auto bytes = wavBytes(samples, platform::kHandMixedChannels, platform::kHandMixedRate);
    outputBytes(output, bytes, kCannotPlay);
    std::printf("%s: %d frames\n", output.c_str(), world->frame());
}

}  // namespace

std::vector<Command> captureCommands() {
    return {{"sound capture",
             "Play a recorded game and write what the speakers would get",
             {word("GAME", "recorded game"), word("FILE", "WAV file to write"),
              option("--data", "directory of the packages")},
             capture}};
}

}  // namespace grub
