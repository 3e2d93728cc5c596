#include "scenario.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "game_text.h"

namespace grub {

namespace {

using State = std::map<std::string, std::string>;

constexpr std::pair<const char*, SoundId> kSounds[] = {
    {"break", SoundId::Break},    {"key", SoundId::GetKey},          {"door", SoundId::OpenDoor},
    {"water", SoundId::Water},    {"caught", SoundId::Caught},       {"ratcaught", SoundId::CaughtRat},
    {"falls", SoundId::Falling},  {"lands", SoundId::Landing},       {"steps", SoundId::Steps},
    {"pipe", SoundId::PipeSteps}, {"ladder", SoundId::LadderSteps},  {"shield", SoundId::Shield},
    {"anchor", SoundId::Anchor},  {"heart", SoundId::Heart},         {"skull", SoundId::Skull},
    {"bomb", SoundId::Bomb},      {"invisible", SoundId::Invisible},
};
constexpr const char* kEnemyStates[] = {"roams", "trapped", "climbs", "dead"};
constexpr const char* kDirections[] = {"undecided", "left", "right", "up", "down", "nowhere"};
constexpr const char* kFloors[] = {"broken", "regrows", "waits", "whole"};

std::vector<std::string> split(std::string_view text, char at) {
    std::vector<std::string> parts;
    std::istringstream stream{std::string(text)};
    for (std::string part; std::getline(stream, part, at);) parts.push_back(part);
    return parts;
}

template <class Values>
std::string joined(const Values& values, char between) {
    std::ostringstream text;
    for (const auto& value : values) text << value << between;
    std::string all = text.str();
    if (!all.empty()) all.pop_back();
    return all;
}

std::string pair(int first, char between, int second) {
    return std::to_string(first) + between + std::to_string(second);
}

void addHero(State& state, const World& world) {
    const Hero& hero = world.hero();
    const HeroFrame shown = world.heroFrame();
    state["x"] = std::to_string(hero.x);
    state["y"] = std::to_string(hero.y);
    state["looks"] = hero.facing() == Facing::Left ? "left" : "right";
    state["digs"] = hero.isDigging() ? "yes" : "no";
    state["shows"] = pair(shown.animation, ':', shown.frame);
    state["half"] = shown.halfTransparent ? "yes" : "no";
}

void addEnemy(State& state, const Enemy& enemy, const std::string& number) {
    state["at" + number] = pair(enemy.x, ',', enemy.y);
    state["is" + number] = kEnemyStates[static_cast<std::size_t>(enemy.state())];
    state["wants" + number] = kDirections[static_cast<std::size_t>(enemy.direction())];
    state["shows" + number] = pair(enemy.stripFrame().animation, ':', enemy.stripFrame().frame);
    state["speed" + number] = std::to_string(enemy.speed());
    state["timer" + number] = std::to_string(enemy.timer());
}

void addCells(State& state, const LevelMap& map) {
    for (int y = 0; y < map.height(); ++y) {
        std::vector<std::string> distances;
        for (int x = 0; x < map.width(); ++x) {
            const MapCell& cell = map.cellAt(x, y);
            const int distance = map.distanceAt(x, y);
            distances.push_back(distance == DistanceField::kUnreached ? "." : std::to_string(distance));
            state["is" + pair(x, ',', y)] = kFloors[static_cast<std::size_t>(cell.breakState)];
            state["shows" + pair(x, ',', y)] = pair(cell.sprite, ':', cell.frame);
        }
        state["far" + std::to_string(y)] = joined(distances, ',');
    }
}

State stateOf(const DrawnWorld& drawn) {
    State state;
    const World& world = drawn.world();
    const auto& slots = world.bonuses().slots;
    state["map"] = joined(drawn.drawn().rows, '/');
    state["end"] = world.ended() ? nameOf(world.cause()) : "no";
    state["score"] = std::to_string(world.score());
    state["keys"] = std::to_string(world.keysRemaining());
    state["lives"] = std::to_string(world.lives());
    state["draws"] = std::to_string(drawn.draws());
    state["bonuses"] = std::to_string(std::ranges::count_if(slots, [](const auto& slot) { return slot.has_value(); }));
    addHero(state, world);
    for (std::size_t i = 0; i < world.enemies().size(); ++i) addEnemy(state, world.enemies()[i], std::to_string(i + 1));
    addCells(state, world.map());
    for (const auto& [name, sound] : kSounds) state[name] = joined(drawn.framesOf(sound), ',');
    return state;
}

/// Plays on to the frame that begins `line`, and compares.
void expectFrame(DrawnWorld& world, const std::string& line) {
    std::istringstream words(line);
    int frame = 0;
    char colon = 0;
    words >> frame >> colon;
    ASSERT_EQ(colon, ':') << line;
    ASSERT_EQ(world.runTo(frame).world().frame(), frame) << "frames must rise";
    const State state = stateOf(world);
    std::string word;
    ASSERT_TRUE(words >> word) << "nothing is wanted in frame " << frame;
    do {
        const std::size_t equals = word.find('=');
        const auto found = state.find(word.substr(0, equals));
        ASSERT_TRUE(equals != std::string::npos && found != state.end()) << "nothing is called " << word;
        EXPECT_EQ(found->second, word.substr(equals + 1))
            << "frame " << frame << ", " << found->first << testing::PrintToString(world.drawn());
    } while (words >> word);
}

}  // namespace

Drawing drawingOf(std::string_view rows) {
    std::string cells(rows);
    std::erase(cells, ' ');
    return Drawing(split(cells, '/'));
}

void expectScenarios(std::initializer_list<Scenario> scenarios) {
    for (const Scenario& row : scenarios) {
        SCOPED_TRACE(row.what);
        auto world = worldFrom(drawingOf(row.map), row.start, AnimationFrameCounts::all(row.strip)).script(row.keys);
        const auto lines = split(row.wanted, ';');
        ASSERT_FALSE(lines.empty());
        for (const std::string& line : lines) expectFrame(world, line);
    }
}

WorldStart seeded(std::uint32_t seed) {
    WorldStart start;
    start.seed = seed;
    return start;
}

WorldStart drawing(std::initializer_list<int> quarters) {
    return seeded(seedWhere([&](WorldRandom random) {
        return std::ranges::all_of(quarters, [&](int quarter) { return random.next() / kQuarterOfRandom == quarter; });
    }));
}

void update(Attempt& attempt, int times) {
    for (int i = 0; i < times; ++i) {
        for (Enemy& enemy : attempt.enemies) enemy.update(attempt);
    }
}

}  // namespace grub
