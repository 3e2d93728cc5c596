#include "drawn_world.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>
#include <utility>

#include "recorded_game.h"

namespace grub {

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

Drawing DrawnWorld::drawn() const { return Drawing(drawField(world_.map(), marksOf(world_))); }

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
    std::vector<FieldMark> holes;
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x)
            if (map.cellAt(x, y).breakState != BreakState::Intact) holes.push_back({'_', {x, y}});
    }
    return Drawing(drawField(map, holes));
}

Attempt attemptOn(const Drawing& drawing) {
    return {.map = mapFrom(drawing),
            .random = WorldRandom(1),
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
