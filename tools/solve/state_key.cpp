#include "state_key.h"

#include <utility>

namespace grub {

namespace {

/// Mixes whole words, each into all bits: faster than the hash of recorded games, which must be the same for ever.
class Mixer {
public:
    template <class... Values>
    void add(Values... values) {
        (mix(static_cast<std::uint64_t>(values)), ...);
    }
    /// Never 0.
    [[nodiscard]] std::uint64_t value() const { return value_ == 0 ? 1 : value_; }

private:
    void mix(std::uint64_t word) {
        value_ = (value_ ^ word) * 0x9E3779B97F4A7C15ULL;
        value_ ^= value_ >> 29U;
    }

    std::uint64_t value_ = 0x243F6A8885A308D3ULL;
};

void addKeys(Mixer& mixer, const World& world, const std::vector<CellPosition>& keys) {
    std::uint64_t bits = 1;
    for (const CellPosition& key : keys) {
        bits = bits << 1U | std::uint64_t{world.map().cellAt(key.x, key.y).keyPresent};
        if (bits >> 63U != 0) mixer.add(std::exchange(bits, 1));
    }
    mixer.add(bits);
}

/// Calls `visit` for each open hole. An open hole never sleeps.
template <class Visit>
void forEachHole(const LevelMap& map, Visit visit) {
    for (auto number = map.nextAwake(0); number < map.cellCount(); number = map.nextAwake(number + 1)) {
        const auto width = static_cast<std::size_t>(map.width());
        const MapCell& cell = map.cellAt(static_cast<int>(number % width), static_cast<int>(number / width));
        if (cell.breakState != BreakState::Intact) visit(number, cell);
    }
}

void addHoles(Mixer& mixer, const LevelMap& map, Grain grain) {
    forEachHole(map, [&](std::size_t number, const MapCell& cell) {
        mixer.add(number, cell.breakState, cell.timer / grain.holeFrames, cell.holeOccupied);
        if (cell.timer == 0 || grain.isExact()) mixer.add(cell.frame, grain.isExact() ? cell.frameDelay : 0);
    });
}

void addEnemies(Mixer& mixer, const World& world, Grain grain) {
    const bool exact = grain.isExact();
    for (const Enemy& enemy : world.enemies()) {
        mixer.add(enemy.state());
        if (enemy.state() == EnemyState::Dead && !enemy.traits().comesBack) continue;
        mixer.add(enemy.x / grain.enemyPixels, enemy.y / grain.enemyPixels, enemy.direction(),
                  enemy.timer() / grain.holeFrames);
        if (exact) mixer.add(enemy.vx, enemy.vy, enemy.speed(), enemy.wasAtNode());
    }
}

void addBonuses(Mixer& mixer, const World& world, Grain grain) {
    const Bonuses& bonuses = world.bonuses();
    mixer.add(bonuses.anchorTimer / grain.holeFrames, bonuses.invisibilityTimer / grain.holeFrames,
              world.hero().shieldTimer() / grain.holeFrames);
    if (!grain.chance) return;
    mixer.add(bonuses.countdown, world.randomState());
    for (const auto& slot : bonuses.slots)
        if (slot) mixer.add(slot->bonusKind(), slot->x, slot->y, slot->lifetime(), slot->isActive());
}

void addHero(Mixer& mixer, const Hero& hero, bool exact) {
    mixer.add(hero.cellX(), hero.cellY());
    if (exact) mixer.add(hero.vx, hero.vy, hero.facing(), hero.command());
}

}  // namespace

std::uint64_t stateKey(const World& world, const std::vector<CellPosition>& keys, Grain grain) {
    Mixer mixer;
    addHero(mixer, world.hero(), grain.isExact());
    addKeys(mixer, world, keys);
    addHoles(mixer, world.map(), grain);
    addEnemies(mixer, world, grain);
    addBonuses(mixer, world, grain);
    return mixer.value();
}

std::uint64_t groupKey(const World& world, const std::vector<CellPosition>& keys) {
    Mixer mixer;
    addHero(mixer, world.hero(), false);
    addKeys(mixer, world, keys);
    int holes = 0;
    forEachHole(world.map(), [&](std::size_t, const MapCell&) { ++holes; });
    mixer.add(holes);
    return mixer.value();
}

bool KeySet::insert(std::uint64_t key) {
    if (count_ * 2 >= slots_.size()) grow();
    if (!place(key)) return false;
    ++count_;
    return true;
}

bool KeySet::place(std::uint64_t key) {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = static_cast<std::size_t>(key) & mask;
    for (; slots_[slot] != 0; slot = (slot + 1) & mask)
        if (slots_[slot] == key) return false;
    slots_[slot] = key;
    return true;
}

void KeySet::grow() {
    const std::vector<std::uint64_t> old = std::exchange(slots_, std::vector<std::uint64_t>(slots_.size() * 2, 0));
    for (const std::uint64_t key : old)
        if (key != 0) place(key);
}

}  // namespace grub
