#include "sets_room.h"

#include <algorithm>
#include <array>
#include <vector>

namespace grub {

namespace {

constexpr std::array kTables{
    menuWallSets, openingSets, tunnelSets,     kitchenSets,    cellSets,        prisonSets,   worksSets,
    cellarSets,   meadowSets,  dogKitchenSets, shadowWallSets, closedFloorSets, openDoorSets,
};

}  // namespace

void drawSet(Canvas& canvas, const SetDrawing& set, const Rect& area) {
    const auto group = canvas.group({.box = area});
    const auto corner = canvas.placed({area.x, area.y});
    set.draw(canvas, {0, 0, area.width, area.height});
}

std::span<const SetDrawing> allSets() {
    static const std::vector<SetDrawing> sets = [] {
        std::vector<SetDrawing> all;
        for (const auto table : kTables) {
            const auto own = table();
            all.insert(all.end(), own.begin(), own.end());
        }
        return all;
    }();
    return sets;
}

const SetDrawing* findSet(std::string_view name) {
    const auto found = std::ranges::find(allSets(), name, &SetDrawing::name);
    return found == allSets().end() ? nullptr : &*found;
}

}  // namespace grub
