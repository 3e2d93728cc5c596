#include "win_measures.h"

#include <algorithm>
#include <cstdlib>

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
        measures_.frames = world.frame();
        way_.look(world);
        measures_.cellsVisited += visited_.add({hero.cellX(), hero.cellY()}) ? 1 : 0;
        for (const Enemy& enemy : world.enemies()) approach(hero, enemy);
    }

    /// What has been counted.
    [[nodiscard]] WinMeasures measures() const {
        WinMeasures measures = measures_;
        measures.way = way_.way();
        measures.digs = static_cast<int>(measures.way.digs.size());
        return measures;
    }

private:
    /// An enemy in a hole is walked over; it is no danger.
    void approach(const Hero& hero, const Enemy& enemy) {
        if (enemy.state() == EnemyState::Dead || enemy.state() == EnemyState::Trapped) return;
        const int distance = std::max(std::abs(hero.x - enemy.x), std::abs(hero.y - enemy.y));
        measures_.closestEnemy = std::min(measures_.closestEnemy.value_or(distance), distance);
    }

    WinMeasures measures_{};
    WayWatcher way_;
    CellSet visited_;
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
    WinMeasures measures = watcher.measures();
    for (std::size_t i = 0; i < kLateStarts.size(); ++i)
        measures.winsLate[i] = wins(later(game, kLateStarts[i]), map, counts);
    for (std::uint32_t i = 1; i <= kOtherSeeds; ++i)
        measures.seedsWon += wins(withSeed(game, game.start.seed + i), map, counts) ? 1 : 0;
    for (std::size_t i = 0; i < kReactionDelays.size(); ++i)
        measures.winsSlowly[i] = winsWithDelay(game, map, counts, kReactionDelays[i]);
    return measures;
}

}  // namespace grub
