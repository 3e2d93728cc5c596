#include "trace_command.h"

#include <CLI/CLI.hpp>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <memory>
#include <string>

#include "command.h"
#include "exit_codes.h"
#include "frame_counts.h"
#include "key_events.h"
#include "level_file.h"
#include "level_loader.h"
#include "play_content.h"
#include "table_source.h"
#include "trace_line.h"
#include "whole_number.h"

namespace grub {
namespace {

struct Arguments {
    std::string level;
    std::string blocks;
    std::string keys;
    std::string counts;
    std::string data;
    int index = 0;
    std::uint32_t seed = 0;
    int frames = 0;
};

LevelMap mapOf(const Arguments& arguments) {
    TableSource table(inputBytes(arguments.blocks, kCannotPlay));
    LevelLoader loader(table);
    loader.loadBlockTypes();
    addListedSpriteNumbers(loader.spriteNumbers());
    std::string reason;
    const auto level = readLevelFile(inputBytes(arguments.level, kRefused), reason);
    auto map = level ? loader.build(*level, reason) : std::nullopt;
    if (!map) failWith(kRefused, arguments.level + ": " + reason);
    return std::move(*map);
}

AnimationFrameCounts countsOf(const Arguments& arguments) {
    if (arguments.counts.empty()) {
        std::string reason;
        const auto content = PlayContent::open(arguments.data, reason);
        if (content == nullptr) failWith(kCannotPlay, reason);
        return content->frameCounts();
    }
    TextError error;
    const auto counts = readFrameCounts(inputText(arguments.counts, kCannotPlay), error);
    if (!counts) failWith(kCannotPlay, error.in(arguments.counts));
    return *counts;
}

std::vector<KeyEvent> keysOf(const Arguments& arguments) {
    TextError error;
    auto keys = readKeyFile(inputText(arguments.keys, kCannotPlay), error);
    if (!keys) failWith(kCannotPlay, error.in(arguments.keys));
    return std::move(*keys);
}

void trace(const Arguments& arguments) {
    const std::vector<KeyEvent> keys = keysOf(arguments);
    const AnimationFrameCounts counts = countsOf(arguments);
    World world(mapOf(arguments), {.levelIndex = arguments.index, .seed = arguments.seed, .collectedKeys = {}}, counts);
    world.step();
    KeyFeed feed(keys);
    for (int frame = 1; frame <= arguments.frames; ++frame) {
        playFrame(world, feed);
        std::puts(traceLine(world).c_str());
        if (world.ended()) break;
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
        failWith(kCannotPlay, "the trace cannot be written to standard output");
}

}  // namespace

void addTraceCommand(CLI::App& app) {
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* const command = app.add_subcommand("trace", "Play keys on a level and print a line for each game frame");
    command->add_option("--level", arguments->level, "level file (.lvl)")->required();
    command->add_option("--blocks", arguments->blocks, "block table")->required();
    command->add_option("--index", arguments->index, "place in the level list")
        ->required()
        ->transform(wholeNumber(static_cast<std::uint32_t>(kLevelCount) - 1));
    command->add_option("--seed", arguments->seed, "generator when the level starts to be built")
        ->required()
        ->transform(wholeNumber(std::numeric_limits<std::uint32_t>::max()));
    command->add_option("--keys", arguments->keys, "key file: lines `FRAME down|up NAME`")->required();
    command->add_option("--frames", arguments->frames, "game frames to play")
        ->required()
        ->transform(wholeNumber(std::numeric_limits<int>::max()));
    command->add_option("--counts", arguments->counts, "frame counts: lines `ID COUNT`; else those of the packages");
    command->add_option("--data", arguments->data, "directory of the packages");
    command->callback([=] { trace(*arguments); });
}

}  // namespace grub
