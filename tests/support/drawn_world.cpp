#include "drawn_world.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>
#include <utility>

namespace grub {

namespace {

PlayKey keyNamed(std::string_view name) {
    constexpr std::array<std::pair<std::string_view, PlayKey>, 10> kNames{{{"U", PlayKey::Up},
                                                                           {"D", PlayKey::Down},
                                                                           {"L", PlayKey::Left},
                                                                           {"R", PlayKey::Right},
                                                                           {"Space", PlayKey::Space},
                                                                           {"Enter", PlayKey::Enter},
                                                                           {"Z", PlayKey::Z},
                                                                           {"X", PlayKey::X},
                                                                           {"A", PlayKey::A},
                                                                           {"B", PlayKey::B}}};
    for (const auto& [known, key] : kNames) {
        if (known == name) return key;
    }
    std::cerr << "no key is called '" << name << "'\n";
    std::abort();
}

char symbolOf(const MapCell& cell) {
    if (cell.keyPresent) return 'k';
    if (cell.isExit) return 'E';
    if (cell.isSpawnPoint) return 's';
    switch (cell.type) {
        case BlockType::Floor: return '=';
        case BlockType::Ladder: return 'H';
        case BlockType::Pipe: return '-';
        case BlockType::Solid: return '#';
        case BlockType::Empty: break;
        default: return '?';
    }
    if (cell.baseType == BlockType::Floor) return '_';
    return cell.baseType == BlockType::HiddenLadder ? 'h' : '.';
}

char symbolOf(EnemyKind kind) {
    switch (kind) {
        case EnemyKind::Dog: return 'd';
        case EnemyKind::Lady: return 'l';
        case EnemyKind::Rat: break;
    }
    return 'r';
}

char& symbolAt(Drawing& drawing, const Actor& actor) {
    return drawing.rows[static_cast<std::size_t>(actor.cellY())][static_cast<std::size_t>(actor.cellX())];
}

}  // namespace

DrawnWorld::DrawnWorld(const Drawing& drawing, const WorldStart& start, const AnimationFrameCounts& counts)
    : world_(mapFrom(drawing), start, counts), seed_(start.seed) {
    world_.step();
    listen();
}

DrawnWorld& DrawnWorld::script(std::string_view keys) {
    std::istringstream words{std::string(keys)};
    int frame = 0;
    for (std::string word; words >> word;) {
        if (const std::size_t colon = word.find(':'); colon != std::string::npos) {
            std::from_chars(word.data(), word.data() + colon, frame);
            word.erase(0, colon + 1);
        }
        events_.push_back({frame, word.front() == '+', keyNamed(word.substr(1))});
    }
    std::ranges::stable_sort(events_, {}, &KeyEvent::frame);
    return *this;
}

DrawnWorld& DrawnWorld::runTo(int frame) {
    while (world_.frame() < frame) playFrame();
    return *this;
}

DrawnWorld& DrawnWorld::hold(PlayKey key, int frames) {
    world_.keyDown(key);
    run(frames);
    world_.keyUp(key);
    return *this;
}

void DrawnWorld::playFrame() {
    for (const KeyEvent& event : events_) {
        if (event.frame != world_.frame() + 1) continue;
        event.down ? world_.keyDown(event.key) : world_.keyUp(event.key);
    }
    world_.step();
    world_.finishFrame(true);
    listen();
}

void DrawnWorld::listen() {
    for (const SoundRequest& request : world_.sounds()) sounds_.push_back({world_.frame(), request});
}

Drawing DrawnWorld::drawn() const {
    Drawing drawing = drawnMap(world_.map());
    for (const Enemy& enemy : world_.enemies()) {
        if (enemy.state() != EnemyState::Dead) symbolAt(drawing, enemy) = symbolOf(enemy.kind());
    }
    symbolAt(drawing, world_.hero()) = '@';
    return drawing;
}

int DrawnWorld::draws() const {
    WorldRandom random(seed_);
    int count = 0;
    for (; random.state() != world_.randomState(); ++count) random.next();
    return count;
}

std::vector<std::string> DrawnWorld::distances() const {
    const LevelMap& map = world_.map();
    std::vector<std::string> rows;
    for (int row = 0; row < map.height(); ++row) {
        std::string line;
        for (int column = 0; column < map.width(); ++column) {
            const int distance = map.distanceAt(column, row);
            if (column > 0) line += ' ';
            line += distance == DistanceField::kUnreached ? "." : std::to_string(distance);
        }
        rows.push_back(line);
    }
    return rows;
}

std::vector<int> DrawnWorld::framesOf(SoundId sound) const {
    std::vector<int> frames;
    for (const HeardSound& heard : sounds_) {
        if (heard.request == SoundRequest{sound, SoundRequest::Action::Play}) frames.push_back(heard.frame);
    }
    return frames;
}

DrawnWorld worldFrom(const Drawing& drawing, const WorldStart& start, const AnimationFrameCounts& counts) {
    return {drawing, start, counts};
}

Drawing drawnMap(const LevelMap& map) {
    std::vector<std::string> rows;
    for (int row = 0; row < map.height(); ++row) {
        std::string line;
        for (int column = 0; column < map.width(); ++column) line += symbolOf(map.cellAt(column, row));
        rows.push_back(line);
    }
    return Drawing(std::move(rows));
}

Attempt attemptOn(const Drawing& drawing, std::uint32_t seed) {
    return {.map = mapFrom(drawing),
            .random = WorldRandom(seed),
            .frameCounts = AnimationFrameCounts::all(kDrawnFrames),
            .sounds = {},
            .enemies = {},
            .decorations = {},
            .bonuses = {},
            .popups = {}};
}

WorldStart startWithBonus(const Drawing& drawing, BonusKind kind, CellPosition place) {
    const LevelFile level = drawnLevel(drawing);
    WorldStart start;
    start.levelIndex = 1;
    start.seed = seedWhere([&](WorldRandom random) {
        const int x = std::min(random.next() / (32767 / level.width), level.width - 1);
        const int y = std::min(random.next() / (32767 / level.height), level.height - 1);
        return CellPosition{x, y} == place && random.next() / 5461 == static_cast<int>(kind);
    });
    return start;
}

}  // namespace grub
