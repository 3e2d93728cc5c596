#include "relaxed_map.h"

#include <functional>
#include <queue>
#include <utility>

#include "rules.h"

namespace grub {

namespace {

constexpr int kStepFrames = kCellSize / kHeroSpeed;
/// A dig takes about ten game frames, and he steps aside for it.
constexpr int kDigFrames = 14;

}  // namespace

RelaxedMap::RelaxedMap(const LevelMap& map, RelaxedRules rules)
    : width_(map.width()),
      height_(map.height()),
      laddersRisen_(rules.laddersRisen),
      frames_(map.cellCount(), 0),
      steps_(map.cellCount()) {
    findOpenings(map, rules.digs);
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x)
            if (isOpen(x, y)) addStepsFrom(map, x, y);
    }
}

// From the top: a floor can be dug when the cell above it is open or can be dug itself.
void RelaxedMap::findOpenings(const LevelMap& map, bool digs) {
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            auto& frames = frames_[indexOf(x, y)];
            switch (map.cellAt(x, y).baseType) {
                case BlockType::Floor:
                    if (digs && isOpen(x, y - 1)) frames = kStepFrames + kDigFrames;
                    break;
                case BlockType::Solid:
                case BlockType::Inert:
                case BlockType::InertToo: break;
                default: frames = kStepFrames;
            }
        }
    }
}

bool RelaxedMap::isOpen(int x, int y) const {
    return x >= 0 && y >= 0 && x < width_ && y < height_ && frames_[indexOf(x, y)] != 0;
}

bool RelaxedMap::isLadder(const LevelMap& map, int x, int y) const {
    const BlockType type = map.cellAt(x, y).baseType;
    return type == BlockType::Ladder || (type == BlockType::HiddenLadder && laddersRisen_);
}

bool RelaxedMap::holds(const LevelMap& map, int x, int y) const {
    if (y == height_ - 1 || isLadder(map, x, y) || map.cellAt(x, y).baseType == BlockType::Pipe) return true;
    const BlockType below = map.cellAt(x, y + 1).baseType;
    return isLadder(map, x, y + 1) || below == BlockType::Floor || below == BlockType::Solid;
}

void RelaxedMap::addStepsFrom(const LevelMap& map, int x, int y) {
    addStep(x, y, x, y + 1);
    if (!holds(map, x, y)) return;
    addStep(x, y, x - 1, y);
    addStep(x, y, x + 1, y);
    if (isLadder(map, x, y)) addStep(x, y, x, y - 1);
}

void RelaxedMap::addStep(int x, int y, int toX, int toY) {
    if (!isOpen(toX, toY)) return;
    const std::size_t to = indexOf(toX, toY);
    steps_[to].push_back({static_cast<std::uint16_t>(indexOf(x, y)), frames_[to]});
}

std::vector<int> RelaxedMap::distancesTo(CellPosition target) const {
    std::vector<int> distances(steps_.size(), kNoWay);
    using Entry = std::pair<int, std::size_t>;
    std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
    const auto goal = indexOf(target.x, target.y);
    distances[goal] = 0;
    open.emplace(0, goal);
    while (!open.empty()) {
        const auto [length, cell] = open.top();
        open.pop();
        if (length > distances[cell]) continue;
        for (const StepIn& step : steps_[cell]) {
            const int longer = length + step.frames;
            if (longer >= distances[step.from]) continue;
            distances[step.from] = longer;
            open.emplace(longer, step.from);
        }
    }
    return distances;
}

}  // namespace grub
