#include "tour.h"

#include <algorithm>
#include <bit>
#include <random>
#include <utility>

namespace grub {

namespace {

/// With more keys the table of all sets would be too large.
constexpr std::size_t kMostKeysInTable = 16;
/// Game frames by which a tour counts as longer for each key that it takes out of the order that is preferred.
constexpr int kDetourFrames = 400;

}  // namespace

Tour::Tour(const World& world, bool digs)
    : width_(world.map().width()), after_(world.map(), {.digs = digs, .laddersRisen = true}) {
    const LevelMap& map = world.map();
    const RelaxedMap before(map, {.digs = digs, .laddersRisen = false});
    toExit_.assign(map.cellCount(), kNoWay);
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x) {
            if (map.cellAt(x, y).keyPresent) {
                keys_.push_back({x, y});
                toKeys_.push_back(before.distancesTo({x, y}));
            }
            if (!map.cellAt(x, y).isExit) continue;
            const auto toThis = after_.distancesTo({x, y});
            std::ranges::transform(toExit_, toThis, toExit_.begin(), [](int a, int b) { return std::min(a, b); });
        }
    }
    preferOrder({});
}

void Tour::preferChanceOrder(std::uint32_t number) {
    std::vector<CellPosition> order = keys_;
    std::mt19937 random(number);
    for (std::size_t last = order.size(); last > 1; --last) std::swap(order[last - 1], order[random() % last]);
    preferOrder(order);
}

void Tour::preferOrder(std::span<const CellPosition> order) {
    earlier_.assign(keys_.size(), 0);
    if (keys_.size() > kMostKeysInTable) return;
    Keys before = 0;
    for (const CellPosition place : order) before |= takeAfter(before, place);
    for (std::size_t key = 0; key < keys_.size(); ++key)
        if ((before & Keys{1} << key) == 0) earlier_[key] = before;
    solveAll();
}

/// Notes for the key of a cell that others come before it. Its bit; 0 without a key.
Tour::Keys Tour::takeAfter(Keys before, CellPosition place) {
    const auto key = static_cast<std::size_t>(std::ranges::find(keys_, place) - keys_.begin());
    if (key == keys_.size()) return 0;
    earlier_[key] = before;
    return Keys{1} << key;
}

int Tour::detour(Keys left, std::size_t key) const { return std::popcount(left & earlier_[key]) * kDetourFrames; }

std::size_t Tour::cellOf(CellPosition place) const {
    return static_cast<std::size_t>(place.y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(place.x);
}

// Each set comes after the sets that lack one of its keys.
void Tour::solveAll() {
    const Keys sets = Keys{1} << keys_.size();
    rests_.assign(std::max<std::size_t>(sets * keys_.size(), 1), kNoWay);
    for (Keys left = 0; left < sets; ++left) {
        for (std::size_t key = 0; key < keys_.size(); ++key) restBehind(left, key) = shortest(left, cellOf(keys_[key]));
    }
}

int Tour::shortest(Keys left, std::size_t cell) const {
    if (left == 0) return toExit_[cell];
    int best = kNoWay;
    for (std::size_t key = 0; key < keys_.size(); ++key) {
        const Keys bit = Keys{1} << key;
        if ((left & bit) != 0)
            best = std::min(best, toKeys_[key][cell] + restBehind(left & ~bit, key) + detour(left, key));
    }
    return best;
}

int Tour::nearestFirst(const LevelMap& map, std::size_t cell) const {
    std::vector<std::size_t> left;
    for (std::size_t key = 0; key < keys_.size(); ++key) {
        if (map.cellAt(keys_[key].x, keys_[key].y).keyPresent) left.push_back(key);
    }
    int length = 0;
    while (!left.empty()) {
        const auto nearest = std::ranges::min_element(left, {}, [&](std::size_t key) { return toKeys_[key][cell]; });
        length = std::min(kNoWay, length + toKeys_[*nearest][cell]);
        cell = cellOf(keys_[*nearest]);
        left.erase(nearest);
    }
    return std::min(kNoWay, length + toExit_[cell]);
}

void Tour::endWithKeys() {
    std::ranges::fill(toExit_, 0);
    preferOrder({});
}

void Tour::leadOver(std::span<const CellPosition> way) {
    for (const CellPosition place : way) {
        way_.push_back(cellOf(place));
        toWay_.push_back(after_.distancesTo(place));
    }
}

std::size_t Tour::passedAt(const World& world, std::size_t before) const {
    const std::size_t cell = cellOf({world.hero().cellX(), world.hero().cellY()});
    return before < way_.size() && way_[before] == cell ? before + 1 : before;
}

int Tour::lengthFrom(const World& world, std::size_t passed) const {
    std::size_t cell = cellOf({world.hero().cellX(), world.hero().cellY()});
    const int overKeys = lengthOverKeys(world.map(), cell);
    if (passed >= way_.size() || overKeys == kNoWay) return overKeys;
    int length = 0;
    for (; passed < way_.size(); ++passed) {
        length = std::min(kNoWay, length + toWay_[passed][cell]);
        cell = way_[passed];
    }
    // Keys that lie along a way without return cannot be fetched behind it; then they count as if from here.
    const int behind = lengthOverKeys(world.map(), cell);
    return std::min(kNoWay, length + (behind < kNoWay ? behind : overKeys));
}

int Tour::lengthOverKeys(const LevelMap& map, std::size_t cell) const {
    if (rests_.empty()) return nearestFirst(map, cell);
    Keys left = 0;
    for (std::size_t key = 0; key < keys_.size(); ++key) {
        if (map.cellAt(keys_[key].x, keys_[key].y).keyPresent) left |= Keys{1} << key;
    }
    return std::min(kNoWay, shortest(left, cell));
}

std::vector<std::string> Tour::outOfReach(const World& world) const {
    const std::size_t cell = cellOf({world.hero().cellX(), world.hero().cellY()});
    std::vector<std::string> names;
    for (std::size_t key = 0; key < keys_.size(); ++key) {
        if (toKeys_[key][cell] < kNoWay) continue;
        names.push_back("the key " + std::to_string(keys_[key].x) + "," + std::to_string(keys_[key].y));
    }
    if (toExit_[cell] == kNoWay) names.emplace_back("a door");
    return names;
}

}  // namespace grub
