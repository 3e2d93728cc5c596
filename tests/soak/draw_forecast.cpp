#include "draw_forecast.h"

#include <algorithm>

namespace grub {

namespace {

enum class Certainty { No, Yes, Perhaps };

bool isLadder(const LevelMap& map, int x, int y) {
    return map.contains(x, y) && map.cellAt(x, y).type == BlockType::Ladder;
}

/// Whether the cell could be entered while the enemies decided.
Certainty wasOpen(const World& before, const World& after, int x, int y) {
    if (!before.map().contains(x, y)) return Certainty::No;
    const auto isBroken = [&](const World& world) { return world.map().cellAt(x, y).breakState != BreakState::Intact; };
    if (isBroken(before) || isBroken(after)) return Certainty::Perhaps;
    return before.map().isPassable(x, y, View::Physical) ? Certainty::Yes : Certainty::No;
}

/// The draws of one enemy from one state of the generator.
class EnemyDraws {
public:
    EnemyDraws(const World& before, const World& after, std::size_t number)
        : before_(before), after_(after), enemy_(before.enemies()[number]), later_(after.enemies()[number]) {}

    void add(std::vector<std::uint32_t>& states, std::uint32_t start) const {
        WorldRandom random(start);
        if (enemy_.kind() == EnemyKind::Rat || !enemy_.isAligned()) return states.push_back(start);
        if (enemy_.state() == EnemyState::Dead) {
            if (enemy_.timer() <= 1) random.next();
            return states.push_back(random.state());
        }
        if (wanders()) return addWandering(states, random);
        states.push_back(start);
    }

private:
    /// Whoever dies in a step, by the skull or where it stands, decides nothing in it.
    [[nodiscard]] bool wanders() const {
        return enemy_.state() != EnemyState::Trapped && later_.state() != EnemyState::Dead &&
               after_.map().distanceAt(enemy_.cellX(), enemy_.cellY()) == DistanceField::kUnreached;
    }

    void addWandering(std::vector<std::uint32_t>& states, WorldRandom random) const {
        int direction = static_cast<int>(enemy_.direction());
        if (direction == 0) direction = random.next() / 8191 + 1;
        const Certainty right = wasOpen(before_, after_, enemy_.cellX() + 1, enemy_.cellY());
        const bool mayLook = direction == 1 || (direction == 2 && right != Certainty::No);
        const bool mayNotLook = direction != 1 && (direction != 2 || right != Certainty::Yes);
        if (mayNotLook) states.push_back(random.state());
        if (!mayLook) return;
        if (isLadder(before_.map(), enemy_.cellX(), enemy_.cellY())) random.next();
        if (isLadder(before_.map(), enemy_.cellX(), enemy_.cellY() + 1)) random.next();
        states.push_back(random.state());
    }

    const World& before_;
    const World& after_;
    const Enemy& enemy_;
    const Enemy& later_;
};

/// The first level has no bonuses by chance; elsewhere a place takes two draws and, when it is free, the kind one more.
std::uint32_t afterBonus(const World& before) {
    WorldRandom random(before.randomState());
    if (before.levelIndex() == 0 || before.bonuses().countdown > 1) return random.state();
    const LevelMap& map = before.map();
    const int x = std::min(random.next() / (32767 / map.width()), map.width() - 1);
    int y = std::min(random.next() / (32767 / map.height()), map.height() - 1);
    while (!map.canStand(x, y, View::Physical)) ++y;
    const bool isFree = map.isPassable(x, y, View::Physical) && map.cellAt(x, y).baseType == BlockType::Empty;
    if (isFree && (x != before.hero().cellX() || y != before.hero().cellY())) random.next();
    return random.state();
}

}  // namespace

std::vector<std::uint32_t> forecastDraws(const World& before, const World& after) {
    std::vector<std::uint32_t> states{afterBonus(before)};
    std::vector<std::uint32_t> next;
    for (std::size_t number = 0; number < before.enemies().size(); ++number) {
        next.clear();
        const EnemyDraws enemy(before, after, number);
        for (const std::uint32_t state : states) enemy.add(next, state);
        std::ranges::sort(next);
        next.erase(std::unique(next.begin(), next.end()), next.end());
        states.swap(next);
    }
    return states;
}

}  // namespace grub
