#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <vector>

#include "moves.h"
#include "state_key.h"
#include "tour.h"
#include "world.h"
#include "world_pool.h"

namespace grub {

/// Cells between two corners, both included.
struct CellRange {
    CellPosition first;
    CellPosition last;

    /// Whether the cell is among them; a range may reach beyond the level.
    [[nodiscard]] bool has(int x, int y) const { return x >= first.x && x <= last.x && y >= first.y && y <= last.y; }
};

/// What the hero may do beside the rules of play.
struct SearchRules {
    int mostDigs = std::numeric_limits<int>::max();
    int firstDigFrame = 0;
    int delay = 0;  // game frames for which he stands still before each new key (playMove)
    bool takesBonuses = true;
    std::vector<CellPosition> keyOrder;  // cells of keys that are best taken first, in this order
    std::vector<CellPosition> way;       // cells that he must pass, in this order, before he wins
    std::optional<CellRange> part;       // cells that he must not leave; see keysAreEnough

    /// Whether the last key wins: there is no door in the part.
    [[nodiscard]] bool keysAreEnough(const LevelMap& map) const;
};

/// How widely a search looks, and when it gives up.
struct SearchShape {
    std::size_t width = 1000;                        // states that go on from each slice of time
    std::size_t groupWidth = 12;                     // of these, states that are alike (groupKey)
    std::uint32_t keyOrder = 0;                      // which order of the keys the tour prefers; 0 leaves it as it is
    int patience = std::numeric_limits<int>::max();  // game frames without a shorter tour until it gives up
    Grain grain = {};
    std::uint64_t mostStates = std::numeric_limits<std::uint64_t>::max();
    std::size_t mostBytes = std::numeric_limits<std::size_t>::max();
};

/// How far a search is.
struct SearchProgress {
    std::uint64_t states = 0;  // played to the next decision
    std::size_t mostKeys = 0;  // taken in one of them
    int frame = 0;
    int shortestTour = kNoWay;  // the least that is left, in game frames (Tour::lengthFrom)
};

/// Won: moves were found that win. Exhausted: every state was followed (like ones, by the grain, once). Cut: something
/// was left out.
enum class Verdict : std::uint8_t { Won, Exhausted, Cut };

/// What a search found out.
struct SearchResult {
    Verdict verdict = Verdict::Cut;
    std::vector<Move> moves;              ///< of the win; empty without one
    SearchProgress reached;               ///< where the search stopped
    std::array<std::uint64_t, 7> ends{};  ///< states that ended, by LossCause
    std::uint64_t outOfReach = 0;         ///< states dropped because a key or the door was out of reach
};

/// A search for a win in the order of game frames: it plays copies of the real world from one decision to the next.
/// From each slice of time only the states with the shortest tours ahead go on. Runs on one thread, always the same
/// way.
class Search {
public:
    /// Called now and then; false ends the search as cut.
    using Watch = std::function<bool(const SearchProgress&)>;

    /// `start` is a settled world, `tour` was made for it.
    Search(const World& start, Tour tour, const SearchRules& rules, const SearchShape& shape);
    Search(const Search&) = delete;  // the worlds of the pool know where the distances are
    Search& operator=(const Search&) = delete;

    /// Searches until a win, the end of all states or a limit. Once.
    [[nodiscard]] SearchResult run(const Watch& watch);

private:
    static constexpr std::uint32_t kNoNode = std::numeric_limits<std::uint32_t>::max();

    /// A move of a state that was kept, and the state before.
    struct Node {
        std::uint32_t parent;
        Move move;
    };
    /// What a state has behind it, as far as it limits what may come.
    struct Deeds {
        int digs = 0;
        std::size_t passed = 0;  // cells of the way
    };
    /// A state that waits for its slice of time.
    struct Entry {
        std::uint64_t group;
        std::uint32_t world;
        std::uint32_t node;
        int tour;
        Deeds deeds;
    };
    using Slice = std::vector<Entry>;

    void narrow(Slice& slice);
    void noteShortest(const Slice& slice);
    void expand(const Entry& entry);
    void follow(const Entry& entry, Move move);
    [[nodiscard]] bool isAllowed(const Entry& entry, const World& world, Move move) const;
    [[nodiscard]] bool isEnd(const World& world, const Deeds& deeds);
    [[nodiscard]] bool hasTooMuch(const World& world) const;
    [[nodiscard]] bool isWin(const World& world, const Deeds& deeds) const;
    [[nodiscard]] bool isNew(const World& world, const Deeds& deeds);
    void keep(std::uint32_t world, const Entry& from, Move move, int tour, Deeds deeds);
    [[nodiscard]] bool isOverLimit() const;
    [[nodiscard]] std::vector<Move> movesTo(std::uint32_t node) const;

    Tour tour_;
    SearchRules rules_;
    SearchShape shape_;
    int startScore_;
    bool keysAreEnough_;
    DistanceCache distances_;  // from each cell of the hero, with each set of risen ladders
    WorldPool pool_;
    std::vector<Node> nodes_;
    KeySet known_;
    std::map<int, Slice> slices_;
    SearchResult result_;
    int shortestFrame_ = 0;  // when the shortest tour was found
    bool leftOut_ = false;
};

}  // namespace grub
