#include "soak_coverage.h"

#include <sstream>

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

void SoakCoverage::add(const World& before, const World& after) {
    for (std::size_t number = 0; number < before.enemies().size(); ++number) {
        const EnemyState was = before.enemies()[number].state();
        const EnemyState is = after.enemies()[number].state();
        if (was == is) continue;
        trapped += is == EnemyState::Trapped ? 1 : 0;
        escaped += is == EnemyState::Escaping ? 1 : 0;
        killed += is == EnemyState::Dead ? 1 : 0;
        returned += was == EnemyState::Dead ? 1 : 0;
    }
    for (const auto& slot : after.bonuses().slots)
        if (slot && slot->isExpired()) ++bonuses[static_cast<std::size_t>(slot->bonusKind())];
    digs += after.hero().isDigging() && !before.hero().isDigging() ? 1 : 0;
    regrown += holesIn(after.map()) < holesIn(before.map()) ? 1 : 0;
    drawingFrames += before.randomState() != after.randomState() ? 1 : 0;
    if (after.ended()) ++ends.at(static_cast<std::size_t>(after.cause()));
}

std::string SoakCoverage::summary() const {
    std::ostringstream text;
    text << "ends by dog, lady, rat, pit, won:";
    for (const int count : ends) text << ' ' << count;
    text << "; bonuses by kind:";
    for (const int count : bonuses) text << ' ' << count;
    text << "; " << digs << " digs, " << regrown << " holes closed; enemies " << trapped << " trapped, " << escaped
         << " escaped, " << killed << " killed, " << returned << " returned; " << drawingFrames
         << " frames with draws, " << unsureForecasts << " of them unsure";
    return text.str();
}

}  // namespace grub
