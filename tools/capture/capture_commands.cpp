#include "capture_commands.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <string>

#include "command.h"
#include "exit_codes.h"
#include "game_file.h"
#include "play_content.h"
#include "resource_package.h"
#include "sound_capture.h"
#include "sound_output.h"
#include "wav_file.h"

namespace grub {
namespace {

struct Arguments {
    std::string game;
    std::string output;
    std::string data;
};

void capture(const Arguments& arguments) {
    std::string error;
    const auto game = loadGame(arguments.game, error);
    if (!game) failWith(kCannotPlay, error);
    if (!game->end) failWith(kCannotPlay, arguments.game + ": wanted an end, found a draft");
    const auto content = PlayContent::open(arguments.data, error);
    if (content == nullptr) failWith(kCannotPlay, error);
    auto world = content->worldOf(*game, arguments.game, error);
    if (!world) failWith(kCannotPlay, error);

    ResourcePackage package("sound.pak");
    if (!package.exists("sound\\sound.ini")) failWith(kCannotPlay, "sound.pak: wanted sound\\sound.ini, found none");
    const HandMixedDevice device;
    if (!device.isReady()) failWith(kCannotPlay, "no sound can be mixed");
    SoundBank bank(package);
    const auto samples = captureSound(*game, *world, bank);
    const auto bytes = wavBytes(samples, platform::kHandMixedChannels, platform::kHandMixedRate);
    outputBytes(arguments.output, bytes, kCannotPlay);
    std::printf("%s: %d frames\n", arguments.output.c_str(), world->frame());
}

}  // namespace

void addCaptureCommands(CLI::App& app) {
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* const command = app.get_subcommand("sound")->add_subcommand(
        "capture", "Play a recorded game and write what the speakers would get");
    command->add_option("FILE", arguments->game, "recorded game")->required();
    command->add_option("OUT.wav", arguments->output, "WAV file to write")->required();
    command->add_option("--data", arguments->data, "directory of the packages");
    command->callback([=] { capture(*arguments); });
}

}  // namespace grub
