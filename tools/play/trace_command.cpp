#include "trace_command.h"

#include <cstdint>
#include <cstdio>
#include <limits>
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

namespace grub {
namespace {

LevelMap mapOf(const Arguments& arguments) {
    TableSource table(inputBytes(arguments.text("--blocks"), kCannotPlay));
    LevelLoader loader(table);
    loader.loadBlockTypes();
    addListedSpriteNumbers(loader.spriteNumbers());
    const std::string path = arguments.text("--level");
    std::string reason;
    const auto level = readLevelFile(inputBytes(path, kRefused), reason);
    auto map = level ? loader.build(*level, reason) : std::nullopt;
    if (!map) failWith(kRefused, path + ": " + reason);
    return std::move(*map);
}

AnimationFrameCounts countsOf(const Arguments& arguments) {
    const std::string path = arguments.text("--counts");
    if (path.empty()) {
        std::string reason;
        const auto content = PlayContent::open(arguments.text("--data"), reason);
        if (content == nullptr) failWith(kCannotPlay, reason);
        return content->frameCounts();
    }
    TextError error;
    const auto counts = readFrameCounts(inputText(path, kCannotPlay), error);
    if (!counts) failWith(kCannotPlay, error.in(path));
    return *counts;
}

std::vector<KeyEvent> keysOf(const Arguments& arguments) {
    const std::string path = arguments.text("--keys");
    TextError error;
    auto keys = readKeyFile(inputText(path, kCannotPlay), error);
    if (!keys) failWith(kCannotPlay, error.in(path));
    return std::move(*keys);
}

void trace(const Arguments& arguments) {
    const std::vector<KeyEvent> keys = keysOf(arguments);
    const AnimationFrameCounts counts = countsOf(arguments);
    const WorldStart start{
        .levelIndex = arguments.number("--index", 0), .seed = arguments.number("--seed", 0U), .collectedKeys = {}};
    World world(mapOf(arguments), start, counts);
    world.step();
    KeyFeed feed(keys);
    const int frames = arguments.number("--frames", 0);
    for (int frame = 1; frame <= frames; ++frame) {
        playFrame(world, feed);
        std::puts(traceLine(world).c_str());
        if (world.ended()) break;
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
        failWith(kCannotPlay, "the trace cannot be written to standard output");
}

}  // namespace

Command traceCommand() {
    constexpr auto kMostFrames = std::numeric_limits<int>::max();
    constexpr auto kLastLevel = static_cast<std::uint32_t>(kLevelCount) - 1;
    return {"trace",
            "Play keys on a level and print a line for each game frame",
            {option("--level", "level file (.lvl)", true), option("--blocks", "block table", true),
             number("--index", "place in the level list", 0, kLastLevel, true),
             number("--seed", "generator when the level starts to be built", 0, UINT32_MAX, true),
             option("--keys", "key file: lines `FRAME down|up NAME`", true),
             number("--frames", "game frames to play", 0, kMostFrames, true),
             option("--counts", "frame counts: lines `ID COUNT`; without it those of the packages"),
             option("--data", "directory of the packages")},
            trace};
}

}  // namespace grub
