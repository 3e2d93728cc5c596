#pragma once

#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "distance_fill.h"
#include "map_cell.h"
#include "world_random.h"

namespace grub {

class StateHash;

/// What a query asks about: the cell as it is now, or as routes are planned. In a plan a dug floor counts as the floor
/// that it will be again.
enum class View : bool { Planned = false, Physical = true };

/// An actor, a heart or a decoration that the level file places.
struct LevelObject {
    int x = 0;
    int y = 0;
    std::uint16_t code = 0;  // map_cell.h

    friend bool operator==(const LevelObject&, const LevelObject&) = default;
};

/// The playing field: cells and what the rules ask about them. A plain value. Queries take any column and row and
/// answer false outside the map, unless their comment says otherwise; `cellAt` needs a cell inside.
class LevelMap {
public:
    /// The first bytes of a level file, kept as read.
    using Header = std::array<std::uint8_t, 32>;

    /// Empty cells without keys or objects; 1 to kMaxMapSize columns and rows.
    LevelMap(int width, int height);

    /// Columns.
    [[nodiscard]] int width() const { return width_; }
    /// Rows.
    [[nodiscard]] int height() const { return height_; }
    [[nodiscard]] bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < width_ && y < height_; }
    /// The cell, which must be inside the map.
    [[nodiscard]] const MapCell& cellAt(int x, int y) const { return cells_[indexOf(x, y)]; }
    /// The same, to change it. After a change of its type call `routesChanged`, after the start of an animation `wake`.
    [[nodiscard]] MapCell& cellAt(int x, int y) { return cells_[indexOf(x, y)]; }

    /// What the builder of a map fills in: the file's header, where the hero starts, and what lies and waits where.
    void setHeader(const Header& header) { header_ = header; }
    [[nodiscard]] const Header& header() const { return header_; }
    void setHeroStart(CellPosition start) { heroStart_ = start; }
    [[nodiscard]] CellPosition heroStart() const { return heroStart_; }
    void addObject(const LevelObject& object) { objects_.push_back(object); }
    /// In the order of the level file, which is the order of rows.
    [[nodiscard]] std::span<const LevelObject> objects() const { return objects_; }
    /// Takes away the enemies, before a world is built.
    void removeEnemies();
    void addSpawnPoint(CellPosition point) { spawnPoints_.push_back(point); }
    [[nodiscard]] std::span<const CellPosition> spawnPoints() const { return spawnPoints_; }
    /// Puts a key into a cell without one.
    void addKey(int x, int y, std::uint8_t kind);

    /// Whether an actor can enter the cell.
    [[nodiscard]] bool isPassable(int x, int y, View view) const;
    /// Whether an actor in this cell has support. The bottom row always has.
    [[nodiscard]] bool canStand(int x, int y, View view) const;
    [[nodiscard]] bool isPipe(int x, int y) const;
    /// Whether an actor in this cell hangs on its pipe, with nothing under its feet.
    [[nodiscard]] bool hangsAt(int x, int y) const { return isPipe(x, y) && !canStand(x, y, View::Physical); }
    /// Whether the cell is a floor with room above it.
    [[nodiscard]] bool isDiggable(int x, int y) const;
    /// Whether a ladder leads up from here; never from the top row.
    [[nodiscard]] bool isClimbableLadder(int x, int y, View view) const;

    /// Forgets all distances from the hero.
    void resetDistances() { distances_.reset(); }
    /// Takes distances from a cache, and adds to it (DistanceField::useCache). Copies of the map use it too.
    void cacheDistances(DistanceCache& cache) { distances_.useCache(cache); }
    /// Adds the distances from (x, y), which gets `distance`. Nothing when no route can pass through that cell.
    void fillDistances(int x, int y, int distance);
    /// DistanceField::kUnreached for a cell that no fill has reached.
    [[nodiscard]] int distanceAt(int x, int y) const { return distances_.at(x, y); }
    /// Tells that the type of a cell has changed in a way that plans can see.
    void routesChanged() { routesKnown_ = false; }

    /// A cell to put a bonus in: a random one, or the first below it where one can stand. Nothing when that cell is
    /// taken. Draws two numbers.
    [[nodiscard]] std::optional<CellPosition> randomFreeCell(WorldRandom& random) const;
    /// Where an enemy comes back; nothing, and no number drawn, on a map without spawn points.
    [[nodiscard]] std::optional<CellPosition> randomSpawnPoint(WorldRandom& random) const;

    /// Keys that still lie.
    [[nodiscard]] int keysRemaining() const { return keysRemaining_; }
    /// Takes the key out of a cell and remembers that it was taken. False for a cell without a key.
    bool collectKey(int x, int y);
    /// Takes the key out of a cell; it comes back with the next attempt. False for a cell without a key.
    bool takeKeyForNow(int x, int y);
    /// Cells whose keys stay taken in the next attempt, in the order they were taken.
    [[nodiscard]] std::span<const CellPosition> collectedKeys() const { return collectedKeys_; }
    [[nodiscard]] bool isKeyCollected(int x, int y) const;
    void clearCollectedKeys() { collectedKeys_.clear(); }
    /// Takes away the keys that earlier attempts have collected. Once, before play.
    void withdrawCollectedKeys(std::span<const CellPosition> collected);

    /// Cells by number, row by row, for the update of all of them. An update that changed nothing will change nothing
    /// until the cell is broken or the last key is taken, so such a cell sleeps; most cells of a map do.
    [[nodiscard]] std::size_t cellCount() const { return cells_.size(); }
    [[nodiscard]] MapCell& cellNumber(std::size_t number) { return cells_[number]; }
    /// The first cell that is awake at or after number `from`; `cellCount()` when all of them sleep.
    [[nodiscard]] std::size_t nextAwake(std::size_t from) const;
    void sleep(std::size_t number) { awake_[number] = 0; }
    void wake(int x, int y) { awake_[indexOf(x, y)] = 1; }

    /// Adds everything that play depends on.
    void addTo(StateHash& hash) const;

    friend bool operator==(const LevelMap&, const LevelMap&) = default;

private:
    [[nodiscard]] std::size_t indexOf(int x, int y) const {
        assert(contains(x, y));
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
    }
    [[nodiscard]] bool canPlanSideways(int x, int y) const;
    [[nodiscard]] unsigned routeStepsFrom(int x, int y) const;
    void planRoutes();
    void keyIsGone(MapCell& cell);

    int width_;
    int height_;
    int keysRemaining_ = 0;
    bool routesKnown_ = false;
    Header header_{};
    CellPosition heroStart_;
    std::vector<MapCell> cells_;       // row by row
    std::vector<std::uint8_t> awake_;  // a byte for each cell, so that a search runs over many at once
    std::vector<LevelObject> objects_;
    std::vector<CellPosition> spawnPoints_;
    std::vector<CellPosition> collectedKeys_;
    DistanceField distances_;
};

}  // namespace grub
