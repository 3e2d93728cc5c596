#include "level_map.h"

#include <algorithm>
#include <cstring>

#include "enemy_traits.h"
#include "rules.h"
#include "state_hash.h"

namespace grub {

namespace {

void addTo(StateHash& hash, const MapCell& cell) {
    hash.add(cell.sprite, cell.frame, cell.frameDelay, cell.frameDelayReload, cell.timer, cell.type, cell.breakState,
             cell.keyPresent, cell.holeOccupied, cell.animationDone);
}

/// A number of the generator spread over `count` values, as evenly as whole numbers allow.
int spread(int random, int count) { return std::min(random / (WorldRandom::kMax / count), count - 1); }

bool isEnterable(BlockType type) {
    return type == BlockType::Empty || type == BlockType::Ladder || type == BlockType::Pipe;
}

}  // namespace

LevelMap::LevelMap(int width, int height)
    : width_(width),
      height_(height),
      cells_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)),
      awake_(cells_.size(), 1),
      distances_(width, height) {}

void LevelMap::addKey(int x, int y, std::uint8_t kind) {
    MapCell& cell = cellAt(x, y);
    cell.keyPresent = true;
    cell.keyKind = kind;
    ++keysRemaining_;
}

void LevelMap::removeEnemies() {
    std::erase_if(objects_, [](const LevelObject& object) { return isEnemy(object.code); });
}

bool LevelMap::isPassable(int x, int y, View view) const {
    if (!contains(x, y)) return false;
    const MapCell& cell = cellAt(x, y);
    if (view == View::Physical) return isEnterable(cell.type) && !cell.holeOccupied;
    return cell.type == BlockType::Ladder || cell.type == BlockType::Pipe || cell.baseType == BlockType::Empty ||
           cell.baseType == BlockType::Exit;
}

bool LevelMap::canStand(int x, int y, View view) const {
    if (y >= height_ - 1) return true;
    if (!contains(x, y)) return false;
    if (cellAt(x, y).type == BlockType::Ladder) return true;
    const MapCell& below = cellAt(x, y + 1);
    if (below.type == BlockType::Ladder || below.type == BlockType::Solid) return true;
    if (view == View::Planned) return below.baseType == BlockType::Floor;
    return below.type == BlockType::Floor || below.holeOccupied;
}

bool LevelMap::isPipe(int x, int y) const { return contains(x, y) && cellAt(x, y).type == BlockType::Pipe; }

bool LevelMap::isDiggable(int x, int y) const {
    return contains(x, y) && isPassable(x, y - 1, View::Physical) && cellAt(x, y).type == BlockType::Floor;
}

bool LevelMap::isClimbableLadder(int x, int y, View view) const {
    return y >= 1 && contains(x, y) && cellAt(x, y).type == BlockType::Ladder && isPassable(x, y, view);
}

bool LevelMap::canPlanSideways(int x, int y) const {
    return isPassable(x, y, View::Planned) && (canStand(x, y, View::Planned) || isPipe(x, y));
}

// Down a ladder only, but up through anything that can be entered: hunters come down where there is a ladder and look
// for the hero above them as if they could rise.
unsigned LevelMap::routeStepsFrom(int x, int y) const {
    unsigned steps = 0;
    if (isPassable(x, y - 1, View::Planned)) steps |= kStepUp;
    if (y < height_ - 1 && cellAt(x, y + 1).type == BlockType::Ladder) steps |= kStepDown;
    if (canPlanSideways(x + 1, y)) steps |= kStepRight;
    if (canPlanSideways(x - 1, y)) steps |= kStepLeft;
    return steps;
}

// A dug floor is planned like the floor it was, so plans change only when a hidden ladder appears.
void LevelMap::planRoutes() {
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) distances_.setSteps(x, y, routeStepsFrom(x, y));
    }
    distances_.stepsAreSet();
    routesKnown_ = true;
}

void LevelMap::fillDistances(int x, int y, int distance) {
    if (!isPassable(x, y, View::Planned)) return;
    if (!routesKnown_) planRoutes();
    distances_.fill(x, y, distance);
}

std::optional<CellPosition> LevelMap::randomFreeCell(WorldRandom& random) const {
    CellPosition place;
    place.x = spread(random.next(), width_);
    place.y = spread(random.next(), height_);
    while (!canStand(place.x, place.y, View::Physical)) ++place.y;  // the bottom row ends this
    if (!isPassable(place.x, place.y, View::Physical)) return std::nullopt;
    if (cellAt(place.x, place.y).baseType != BlockType::Empty) return std::nullopt;
    return place;
}

std::optional<CellPosition> LevelMap::randomSpawnPoint(WorldRandom& random) const {
    if (spawnPoints_.empty()) return std::nullopt;
    const int index = spread(random.next(), static_cast<int>(spawnPoints_.size()));
    return spawnPoints_[static_cast<std::size_t>(index)];
}

void LevelMap::keyIsGone(MapCell& cell) {
    cell.keyPresent = false;
    --keysRemaining_;
    if (keysRemaining_ == 0) std::fill(awake_.begin(), awake_.end(), std::uint8_t{1});  // exits and hidden ladders
}

bool LevelMap::takeKeyForNow(int x, int y) {
    if (!contains(x, y) || !cellAt(x, y).keyPresent) return false;
    keyIsGone(cellAt(x, y));
    return true;
}

bool LevelMap::collectKey(int x, int y) {
    if (!takeKeyForNow(x, y)) return false;
    if (collectedKeys_.size() < kMaxCollectedKeys) collectedKeys_.push_back({x, y});
    return true;
}

bool LevelMap::isKeyCollected(int x, int y) const {
    return std::ranges::find(collectedKeys_, CellPosition{x, y}) != collectedKeys_.end();
}

void LevelMap::withdrawCollectedKeys(std::span<const CellPosition> collected) {
    collectedKeys_.assign(collected.begin(), collected.end());
    for (const CellPosition& place : collected) takeKeyForNow(place.x, place.y);
}

std::size_t LevelMap::nextAwake(std::size_t from) const {
    const std::uint8_t* const first = awake_.data() + from;
    const void* const found = std::memchr(first, 1, awake_.size() - from);
    if (found == nullptr) return awake_.size();
    return static_cast<std::size_t>(static_cast<const std::uint8_t*>(found) - awake_.data());
}

// What a level file says of a cell and play never changes is left out: another level is seen at once all the same.
void LevelMap::addTo(StateHash& hash) const {
    hash.add(width_, height_, keysRemaining_, collectedKeys_.size());
    for (const CellPosition& place : collectedKeys_) hash.add(place.x, place.y);
    for (const MapCell& cell : cells_) grub::addTo(hash, cell);
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) hash.add(distanceAt(x, y));
    }
}

}  // namespace grub
