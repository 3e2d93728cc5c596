#include "trace_line.h"

#include <array>
#include <cstdio>
#include <string_view>

namespace grub {

namespace {

/// In the order of HeroCommand.
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
           " face=" + numberOf(hero.facing()) + " anim=" + number(hero.picture().animation) + ":" +
           number(hero.picture().frame) + " dig=" + number(hero.isDigging() ? 1 : 0) +
           " shield=" + number(hero.shieldTimer());
}

std::string attemptFields(const World& world) {
    return " inv=" + number(world.bonuses().invisibilityTimer) + " anchor=" + number(world.bonuses().anchorTimer) +
           " keys=" + number(world.keysRemaining()) + " score=" + number(world.score()) +
           " lives=" + number(world.lives()) + " rng=" + hexadecimal(world.randomState());
}

}  // namespace

std::string traceLine(const World& world) {
    return "f=" + number(world.frame()) + heroFields(world.hero()) + attemptFields(world) +
           " enemies=" + enemies(world) + " holes=" + holes(world.map()) + " bonuses=" + bonuses(world.bonuses()) +
           " end=" + (world.ended() ? numberOf(world.cause()) : "-");
}

}  // namespace grub
