#include "win_measures.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "key_events.h"
#include "relaxed_ways.h"
#include "slow_player.h"

namespace grub {

namespace {

bool wins(const RecordedGame& game, const LevelMap& map, const AnimationFrameCounts& counts) {
    return watchWin(game, map, counts, [](const World&) {});
}

RecordedGame later(RecordedGame game, int frames) {
    for (KeyEvent& event : game.events) event.frame += frames;
    return game;
}

RecordedGame withSeed(RecordedGame game, std::uint32_t seed) {
    game.start.seed = seed;
    return game;
}

/// Sees a run and counts.
class Watcher {
public:
    explicit Watcher(const LevelMap& map) : visited_(map) {}

    void look(const World& world) {
        const Hero& hero = world.hero();
        measures.frames = world.frame();
        if (hero.isDigging() && !wasDigging_) noteDig(hero);
        wasDigging_ = hero.isDigging();
        // A world that is won has forgotten its keys.
        const auto taken = world.collectedKeys();
        if (!world.ended()) measures.way.keys.assign(taken.begin(), taken.end());
        measures.cellsVisited += visited_.add({hero.cellX(), hero.cellY()}) ? 1 : 0;
        for (const Enemy& enemy : world.enemies()) approach(hero, enemy);
    }

    WinMeasures measures{};

private:
    void noteDig(const Hero& hero) {
        ++measures.digs;
        const CellPosition dug{hero.cellX() + (hero.facing() == Facing::Left ? -1 : 1), hero.cellY() + 1};
        auto& digs = measures.way.digs;
        const auto isBefore = [](CellPosition a, CellPosition b) { return std::pair(a.y, a.x) < std::pair(b.y, b.x); };
        const auto place = std::ranges::lower_bound(digs, dug, isBefore);
        if (place == digs.end() || *place != dug) digs.insert(place, dug);
    }
    /// An enemy in a hole is walked over; it is no danger.
    void approach(const Hero& hero, const Enemy& enemy) {
        if (enemy.state() == EnemyState::Dead || enemy.state() == EnemyState::Trapped) return;
        const int distance = std::max(std::abs(hero.x - enemy.x), std::abs(hero.y - enemy.y));
        measures.closestEnemy = std::min(measures.closestEnemy.value_or(distance), distance);
    }

    CellSet visited_;
    bool wasDigging_ = false;
};

}  // namespace

bool watchWin(const RecordedGame& game, const LevelMap& map, const AnimationFrameCounts& counts,
              const std::function<void(const World&)>& look) {
    World world(map, game.start, counts);
    world.step();
    KeyFeed keys(game.events);
    const int last = game.events.empty() ? 0 : std::min(game.events.back().frame, kLongestRun);
    while (!world.ended() && world.frame() < last + kPatience) {
        playFrame(world, keys);
        look(world);
    }
    return world.ended() && world.cause() == LossCause::Won;
}

std::optional<WinMeasures> measureWin(const RecordedGame& game, const LevelMap& map,
                                      const AnimationFrameCounts& counts) {
    Watcher watcher(map);
    if (!watchWin(game, map, counts, [&](const World& world) { watcher.look(world); })) return std::nullopt;
    WinMeasures measures = watcher.measures;
    for (std::size_t i = 0; i < kLateStarts.size(); ++i)
        measures.winsLate[i] = wins(later(game, kLateStarts[i]), map, counts);
    for (std::uint32_t i = 1; i <= kOtherSeeds; ++i)
        measures.seedsWon += wins(withSeed(game, game.start.seed + i), map, counts) ? 1 : 0;
    for (std::size_t i = 0; i < kReactionDelays.size(); ++i)
        measures.winsSlowly[i] = winsWithDelay(game, map, counts, kReactionDelays[i]);
    return measures;
}

}  // namespace grub
