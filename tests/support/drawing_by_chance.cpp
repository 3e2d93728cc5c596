#include "drawing_by_chance.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "rules.h"

namespace grub {

namespace {

/// Takes away the last things when a level has no room for all.
void keepWithinLimits(std::vector<std::string>& rows, std::string_view things, std::size_t limit) {
    std::size_t count = 0;
    for (std::string& row : rows) {
        for (char& cell : row)
            if (things.find(cell) != std::string_view::npos && ++count > limit) cell = '.';
    }
}

}  // namespace

Drawing drawingByChance(int width, int height, bool isThicket, WorldRandom& random) {
    const auto upTo = [&random](int most) { return random.next() % (most + 1); };
    const auto chance = [&random](int percent) { return random.next() % 100 < percent; };
    const int storey = isThicket ? kMaxMapSize + 1 : 2 + upTo(3);  // rows from floor to floor
    const int holes = upTo(12);                                    // this and the rest are percents of the cells
    const std::pair<const char*, int> things[] = {{"HHHHh", 1 + upTo(isThicket ? 60 : 8)},
                                                  {"#=", upTo(isThicket ? 20 : 6)},
                                                  {"-", upTo(8)},
                                                  {"dlr", 1 + upTo(4)},
                                                  {"s", upTo(2)},
                                                  {"k", upTo(2)},
                                                  {"E+", 1}};
    std::vector<std::string> rows(static_cast<std::size_t>(height), std::string(static_cast<std::size_t>(width), '.'));
    for (std::size_t y = 0; y < rows.size(); ++y) {
        for (std::size_t x = 0; x < rows[y].size(); ++x) {
            char& cell = rows[y][x];
            for (const auto& [symbols, percent] : things)
                if (cell == '.' && chance(percent))
                    cell = symbols[random.next() % static_cast<int>(std::strlen(symbols))];
            const bool isFloor = static_cast<int>(y) % storey == storey - 1;
            if (isFloor && std::strchr("H#", cell) == nullptr && !chance(holes)) cell = '=';
            if (y > 0 && rows[y - 1][x] == 'H' && chance(75)) cell = 'H';  // ladders go down
        }
    }
    if (chance(66)) std::ranges::fill(rows.back(), '=');
    keepWithinLimits(rows, "dlr", kMaxEnemies);
    keepWithinLimits(rows, "+", kMaxObjects - kMaxEnemies);
    keepWithinLimits(rows, "s", kMaxSpawnPoints);
    for (const char symbol : {'E', '@'})
        rows[static_cast<std::size_t>(random.next() % height)][static_cast<std::size_t>(random.next() % width)] =
            symbol;
    return Drawing(std::move(rows));
}

}  // namespace grub
