#include "rooms.h"

#include <algorithm>
#include <array>

#include "common_room.h"
#include "dog.h"
#include "enemies_room.h"
#include "grub.h"
#include "grub_room.h"
#include "jelezo_room.h"
#include "lady.h"
#include "overlay_room.h"
#include "podval_room.h"
#include "rat.h"
#include "things_room.h"
#include "turma_room.h"

namespace grub {

namespace {

constexpr std::array kRooms{
    Room{"grub", grubRoom},   Room{"enemies", enemiesRoom}, Room{"things", thingsRoom}, Room{"common", commonRoom},
    Room{"turma", turmaRoom}, Room{"jelezo", jelezoRoom},   Room{"podval", podvalRoom}, Room{"overlay", overlayRoom},
};

template <class Entries>
auto findNamed(const Entries& entries, std::string_view name) {
    const auto found = std::ranges::find(entries, name, [](const auto& entry) { return entry.name; });
    return found == entries.end() ? nullptr : &*found;
}

}  // namespace

std::span<const Room> rooms() { return kRooms; }

const Room* findRoom(std::string_view name) { return findNamed(kRooms, name); }

std::span<const FigureDrawing* const> figures() {
    static const std::vector<const FigureDrawing*> known{&grubFigure(), &dogFigure(), &ladyFigure(), &ratFigure()};
    return known;
}

const FigureDrawing* findFigure(std::string_view name) {
    const auto found = std::ranges::find(figures(), name, [](const FigureDrawing* figure) { return figure->name; });
    return found == figures().end() ? nullptr : *found;
}

const std::vector<StripDrawing>& allStrips() {
    static const std::vector<StripDrawing> strips = [] {
        std::vector<StripDrawing> all;
        for (const Room& room : kRooms) {
            const auto own = room.strips();
            all.insert(all.end(), own.begin(), own.end());
        }
        return all;
    }();
    return strips;
}

const StripDrawing* findStrip(std::string_view name) { return findNamed(allStrips(), name); }

}  // namespace grub
