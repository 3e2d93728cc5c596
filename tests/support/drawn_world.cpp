#include "drawn_world.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>
#include <utility>

namespace grub {

namespace {

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
    std::string lines(keys);
    std::ranges::replace(lines, ',', '\n');
    TextError error;
    const auto events = readKeyFile(lines, error);
    if (!events) {
        std::cerr << error.in(lines) << '\n';
        std::abort();
    }
    events_.insert(events_.end(), events->begin(), events->end());
    return *this;
}

DrawnWorld& DrawnWorld::runTo(int frame) {
    while (world_.frame() < frame) playFrame();
    return *this;
}

void DrawnWorld::playFrame() {
    for (const KeyEvent& event : events_) {
        if (event.frame == world_.frame() + 1) tell(world_, event);
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
        if (enemy.state() != EnemyState::Dead) symbolAt(drawing, enemy) = enemy.traits().mark;
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
