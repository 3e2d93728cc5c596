#include "happenings.h"

#include "game_text.h"

namespace grub {

namespace {

int holesIn(const LevelMap& map) {
    int holes = 0;
    for (int y = 0; y < map.height(); ++y) {
        for (int x = 0; x < map.width(); ++x) holes += map.cellAt(x, y).breakState != BreakState::Intact ? 1 : 0;
    }
    return holes;
}

}  // namespace

void Happenings::add(const World& before, const World& after) {
    for (std::size_t slot = 0; slot < kBonusSlots; ++slot) {
        const auto& was = before.bonuses().slots[slot];
        const auto& is = after.bonuses().slots[slot];
        // A bonus that has run out is no longer active either, but has no time left.
        if (was && was->isActive() && is && !is->isActive() && is->lifetime() > 0)
            ++counts_["bonus " + std::to_string(static_cast<int>(is->bonusKind()))];
    }
    for (std::size_t i = 0; i < after.enemies().size(); ++i) addFate(before.enemies()[i], after.enemies()[i]);
    if (after.hero().isDigging() && !before.hero().isDigging()) ++counts_["dig"];
    if (holesIn(after.map()) < holesIn(before.map())) ++counts_["regrown"];
    if (after.ended()) ++counts_["end " + std::string(nameOf(after.cause()))];
}

void Happenings::addFate(const Enemy& before, const Enemy& after) {
    if (before.state() == after.state()) return;
    const std::string kind = " " + std::to_string(static_cast<int>(after.kind()));
    if (after.state() == EnemyState::Trapped) ++counts_["trapped" + kind];
    if (after.state() == EnemyState::Escaping) ++counts_["escaped" + kind];
    if (before.state() == EnemyState::Dead) ++counts_["returned" + kind];
    if (after.state() == EnemyState::Dead)
        ++counts_[(before.state() == EnemyState::Trapped ? "buried" : "struck") + kind];
}

int Happenings::count(const std::string& name) const {
    const auto found = counts_.find(name);
    return found == counts_.end() ? 0 : found->second;
}

std::string Happenings::summary() const {
    std::string text;
    for (const auto& [name, count] : counts_) text += (text.empty() ? "" : ", ") + name + ": " + std::to_string(count);
    return text;
}

}  // namespace grub
