#include "bench_levels.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace grub {

namespace {

using Rows = std::vector<std::string>;

constexpr int kStorey = 4;  // rows from floor to floor
constexpr int kLadderEvery = 30;

Rows rowsOf(int columns, int rows, char cell) {
    return Rows(static_cast<std::size_t>(rows), std::string(static_cast<std::size_t>(columns), cell));
}

char& at(Rows& rows, int x, int y) { return rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]; }

/// From one floor through the next; the ladders of neighbouring storeys stand in different columns.
void addLadders(Rows& rows, int columns, int floor, int storey) {
    for (int x = (3 + storey * 11) % std::min(columns, kLadderEvery); x < columns; x += kLadderEvery) {
        for (int y = floor; y < floor + kStorey; ++y) at(rows, x, y) = 'H';
    }
}

}  // namespace

Drawing house(int columns, int rows, int hunters) {
    Rows map = rowsOf(columns, rows, '.');
    const int storeys = rows / kStorey;
    for (int storey = 0; storey < storeys; ++storey) {
        const int floor = storey * kStorey + kStorey - 1;
        map[static_cast<std::size_t>(floor)].assign(static_cast<std::size_t>(columns), '=');
        if (floor + kStorey < rows) addLadders(map, columns, floor, storey);
    }
    const auto standing = [&](int storey) { return storey * kStorey + kStorey - 2; };
    at(map, columns / 2, standing(storeys / 2)) = '@';
    for (int hunter = 0; hunter < hunters; ++hunter) {
        const int x = hunter % 2 == 0 ? hunter / storeys : columns - 1 - hunter / storeys;
        at(map, x, standing(hunter % storeys)) = hunter % 3 == 2 ? 'l' : 'd';
    }
    at(map, 1, 0) = 'k';
    return Drawing(map);
}

Drawing floorsAndLadders(int size) {
    Rows map = rowsOf(size, size, '=');
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            if (x % 4 == 0)
                at(map, x, y) = 'H';
            else if (y % 2 == 0)
                at(map, x, y) = '.';
        }
    }
    at(map, size / 2, size / 4 * 2) = '@';
    return Drawing(map);
}

Drawing onlyLadders(int size, int hunters) {
    Rows map = rowsOf(size, size, 'H');
    at(map, size / 2, size / 2) = '@';
    for (int hunter = 0; hunter < hunters; ++hunter) at(map, hunter / 4, hunter % 4) = hunter % 3 == 2 ? 'l' : 'd';
    return Drawing(map);
}

}  // namespace grub
