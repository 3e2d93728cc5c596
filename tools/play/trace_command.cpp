#include <array>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "block_table.h"
#include "command.h"
#include "command_lists.h"
#include "key_events.h"
#include "play_content.h"
#include "world.h"

namespace grub {
namespace {

/// Names in the order of HeroCommand.
constexpr std::array<std::string_view, 7> kCommandNames{"None", "Left", "Right", "Up", "Down", "DigLeft", "DigRight"};

std::string number(int value) { return std::to_string(value); }
std::string pair(int first, int second) { return number(first) + "," + number(second); }

template <class Enumeration>
std::string numberOf(Enumeration value) {
    return number(static_cast<int>(value));
}

/// Entries with ";" between them; "-" when there are none.
class TraceList {
public:
    void add(const std::string& entry) { text_ += (text_.empty() ? "" : ";") + entry; }
    [[nodiscard]] std::string text() const { return text_.empty() ? "-" : text_; }

private:
    std::string text_;
};

std::string enemies(const World& world) {
    TraceList list;
    for (const Enemy& enemy : world.enemies()) {
        list.add(numberOf(enemy.kind()) + ":" + pair(enemy.x, enemy.y) + ":" + numberOf(enemy.state()) + ":" +
                 numberOf(enemy.direction()) + ":" + pair(enemy.vx, enemy.vy));
    }
    return list.text();
}

std::string holes(const LevelMap& map) {
    TraceList list;
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x) {
            const MapCell& cell = map.cellAt(x, y);
            if (cell.breakState != BreakState::Intact)
                list.add(pair(x, y) + ":" + numberOf(cell.breakState) + ":" + number(cell.timer));
        }
    }
    return list.text();
}

std::string bonuses(const Bonuses& bonuses) {
    TraceList list;
    for (const auto& slot : bonuses.slots) {
        if (slot)
            list.add(numberOf(slot->bonusKind()) + ":" + pair(slot->cellX(), slot->cellY()) + ":" +
                     number(slot->lifetime()));
    }
    return list.text();
}

std::string hexadecimal(std::uint32_t value) {
    char digits[9];
    std::snprintf(digits, sizeof(digits), "%08x", static_cast<unsigned>(value));
    return digits;
}

std::string heroFields(const Hero& hero) {
    return " hero=" + pair(hero.x, hero.y) + " v=" + pair(hero.vx, hero.vy) +
           " cmd=" + std::string(kCommandNames[static_cast<std::size_t>(hero.command())]) +
           " face=" + numberOf(hero.facing()) + " anim=" + number(hero.stripFrame().animation) + ":" +
           number(hero.stripFrame().frame) + " dig=" + number(hero.isDigging() ? 1 : 0) +
           " shield=" + number(hero.shieldTimer());
}

std::string attemptFields(const World& world) {
    return " inv=" + number(world.bonuses().invisibilityTimer) + " anchor=" + number(world.bonuses().anchorTimer) +
           " keys=" + number(world.keysRemaining()) + " score=" + number(world.score()) +
           " lives=" + number(world.lives()) + " rng=" + hexadecimal(world.randomState());
}

/// A world after a game frame as a line of a trace, without its line end (docs/formats/games.md).
std::string traceLine(const World& world) {
    return "f=" + number(world.frame()) + heroFields(world.hero()) + attemptFields(world) +
           " enemies=" + enemies(world) + " holes=" + holes(world.map()) + " bonuses=" + bonuses(world.bonuses()) +
           " end=" + (world.ended() ? numberOf(world.cause()) : "-");
}

LevelMap mapOf(const Arguments& arguments) {
    const std::string path = arguments.text("--level");
    TableSource table(inputBytes(arguments.text("--blocks"), kCannotPlay));
    std::string reason;
    auto map = levelMapOf(inputBytes(path, kRefused), table, reason);
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

std::vector<Command> traceCommands() {
    constexpr auto kMostFrames = std::numeric_limits<int>::max();
    constexpr auto kLastLevel = static_cast<std::uint32_t>(kLevelCount) - 1;
    return {{"trace",
             "Play keys on a level and print a line for each game frame",
             {option("--level", "level file (.lvl)", true), option("--blocks", "block table", true),
              number("--index", "place in the level list", 0, kLastLevel, true),
              number("--seed", "generator when the level starts to be built", 0, UINT32_MAX, true),
              option("--keys", "key file: lines `FRAME down|up NAME`", true),
              number("--frames", "game frames to play", 0, kMostFrames, true),
              option("--counts", "frame counts: lines `ID COUNT`; without it those of the packages"),
              option("--data", "directory of the packages")},
             trace}};
}

}  // namespace grub
