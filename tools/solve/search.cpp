#include "search.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace grub {

namespace {

/// Game frames of a slice of time.
constexpr int kSliceFrames = 4;
/// No level needs five minutes.
constexpr int kLongestFrames = 7500;
/// A slice is narrowed when it has this many times as many states as may go on.
constexpr std::size_t kSlack = 3;

}  // namespace

bool SearchRules::keysAreEnough(const LevelMap& map) const {
    if (!part) return false;
    for (int y = 0; y < map.height(); ++y)
        for (int x = 0; x < map.width(); ++x)
            if (part->has(x, y) && map.cellAt(x, y).isExit) return false;
    return true;
}

Search::Search(const World& start, Tour tour, const SearchRules& rules, const SearchShape& shape)
    : tour_(std::move(tour)),
      rules_(rules),
      shape_(shape),
      startScore_(start.score()),
      keysAreEnough_(rules.keysAreEnough(start.map())) {
    if (shape_.keyOrder != 0) tour_.preferChanceOrder(shape_.keyOrder);
    const int length = tour_.lengthFrom(start);
    if (length >= kNoWay) return;
    const std::uint32_t first = pool_.copy(start);
    pool_[first].cacheDistances(distances_);
    slices_[0].push_back({.group = 0, .world = first, .node = kNoNode, .tour = length, .deeds = {}});
}

SearchResult Search::run(const Watch& watch) {
    while (!slices_.empty() && result_.moves.empty()) {
        const auto first = slices_.begin();
        Slice slice = std::move(first->second);
        result_.reached.frame = first->first * kSliceFrames;
        slices_.erase(first);
        narrow(slice);
        noteShortest(slice);
        for (const Entry& entry : slice)
            if (result_.moves.empty()) expand(entry);
        if (isOverLimit() || !watch(result_.reached)) {
            leftOut_ = true;
            break;
        }
    }
    result_.verdict = !result_.moves.empty() ? Verdict::Won : leftOut_ ? Verdict::Cut : Verdict::Exhausted;
    return result_;
}

/// Leaves the states with the shortest tours, and few of each group.
void Search::narrow(Slice& slice) {
    std::ranges::stable_sort(slice, {}, &Entry::tour);
    std::unordered_map<std::uint64_t, std::size_t> alike;
    std::size_t kept = 0;
    for (const Entry& entry : slice) {
        if (kept < shape_.width && alike[entry.group]++ < shape_.groupWidth) {
            slice[kept++] = entry;
        } else {
            pool_.giveBack(entry.world);
            leftOut_ = true;
        }
    }
    slice.resize(kept);
}

void Search::noteShortest(const Slice& slice) {
    if (slice.empty() || slice.front().tour >= result_.reached.shortestTour) return;
    result_.reached.shortestTour = slice.front().tour;
    shortestFrame_ = result_.reached.frame;
}

void Search::expand(const Entry& entry) {
    for (const Move move : kAllMoves)
        if (isAllowed(entry, pool_[entry.world], move)) follow(entry, move);
    pool_.giveBack(entry.world);
}

bool Search::isAllowed(const Entry& entry, const World& world, Move move) const {
    if (isDig(move) && (entry.deeds.digs >= rules_.mostDigs || world.frame() + 1 < rules_.firstDigFrame)) return false;
    return isPossible(world, move);
}

void Search::follow(const Entry& entry, Move move) {
    const std::uint32_t number = pool_.copy(pool_[entry.world]);
    World& world = pool_[number];
    playMove(world, move, rules_.delay);
    ++result_.reached.states;
    const Deeds deeds{entry.deeds.digs + (isDig(move) ? 1 : 0), tour_.passedAt(world, entry.deeds.passed)};
    const bool goesOn = !isEnd(world, deeds);
    if (!goesOn && isWin(world, deeds) && result_.moves.empty()) {
        result_.moves = movesTo(entry.node);
        result_.moves.push_back(move);
    }
    if (goesOn && isNew(world, deeds)) {
        const int tour = tour_.lengthFrom(world, deeds.passed);
        if (tour < kNoWay) return keep(number, entry, move, tour, deeds);
        ++result_.outOfReach;
    }
    pool_.giveBack(number);
}

bool Search::isEnd(const World& world, const Deeds& deeds) {
    const std::size_t taken = tour_.keys().size() - static_cast<std::size_t>(world.keysRemaining());
    result_.reached.mostKeys = std::max(result_.reached.mostKeys, taken);
    if (world.ended()) {
        ++result_.ends[static_cast<std::size_t>(world.cause())];
        return true;
    }
    if (world.frame() > kLongestFrames) {
        leftOut_ = true;
        return true;
    }
    if (rules_.part && !rules_.part->has(world.hero().cellX(), world.hero().cellY())) return true;
    return hasTooMuch(world) || isWin(world, deeds);
}

/// Whether he has taken a bonus that he should leave: points beyond those of keys tell.
bool Search::hasTooMuch(const World& world) const {
    if (rules_.takesBonuses) return false;
    const int taken = static_cast<int>(tour_.keys().size()) - world.keysRemaining();
    const int won = world.ended() && world.cause() == LossCause::Won ? kWinScore : 0;
    return world.score() - startScore_ != taken * kKeyScore + won;
}

bool Search::isWin(const World& world, const Deeds& deeds) const {
    if (deeds.passed < rules_.way.size()) return false;
    const bool hasAllKeys = keysAreEnough_ && !world.ended() && world.keysRemaining() == 0;
    return (hasAllKeys || (world.ended() && world.cause() == LossCause::Won)) && !hasTooMuch(world);
}

bool Search::isNew(const World& world, const Deeds& deeds) {
    std::uint64_t key = stateKey(world, tour_.keys(), shape_.grain);
    const bool digsCount = rules_.mostDigs != std::numeric_limits<int>::max();
    if (digsCount) key += static_cast<std::uint64_t>(deeds.digs) * 0x9E3779B97F4A7C15ULL;
    if (rules_.delay > 0) key += static_cast<std::uint64_t>(world.hero().command()) * 0xC2B2AE3D27D4EB4FULL;
    key += deeds.passed * 0x165667B19E3779F9ULL;
    return known_.insert(key == 0 ? 1 : key);
}

void Search::keep(std::uint32_t world, const Entry& from, Move move, int tour, Deeds deeds) {
    const auto node = static_cast<std::uint32_t>(nodes_.size());
    nodes_.push_back({from.node, move});
    Slice& slice = slices_[pool_[world].frame() / kSliceFrames];
    slice.push_back({groupKey(pool_[world], tour_.keys()), world, node, tour, deeds});
    if (slice.size() > kSlack * shape_.width) narrow(slice);
}

bool Search::isOverLimit() const {
    const std::size_t bytes =
        pool_.size() * bytesOf(pool_[0]) + nodes_.size() * sizeof(Node) + known_.bytes() + distances_.bytes();
    const bool isStuck = result_.reached.frame - shortestFrame_ > shape_.patience;
    return isStuck || bytes > shape_.mostBytes || result_.reached.states > shape_.mostStates;
}

std::vector<Move> Search::movesTo(std::uint32_t node) const {
    std::vector<Move> moves;
    for (; node != kNoNode; node = nodes_[node].parent) moves.push_back(nodes_[node].move);
    std::ranges::reverse(moves);
    return moves;
}

}  // namespace grub
