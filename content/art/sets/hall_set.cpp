#include "hall_set.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <mutex>
#include <string_view>
#include <utility>

#include "common_room.h"
#include "jelezo_room.h"
#include "podval_room.h"
#include "surface.h"
#include "turma_room.h"

namespace grub {

namespace {

constexpr int kCell = 64;

/// The strips that a hall is built of.
struct HallTiles {
    std::array<std::string_view, 3> walls;  // mixed at will
    std::array<std::string_view, 2> floors;
    std::array<std::string_view, 2> under;  // floor under a floor
};

constexpr std::array kHalls{
    HallTiles{{"steny\\modul", "steny\\modul01", "steny\\modul02"},
              {"steny\\modul_pol_11a", "poly\\modul_pol"},
              {"poly\\modul_pol01", "poly\\modul_pol02"}},
    HallTiles{{"sten_jel\\fon_jel", "fon\\modul4", "fon\\modul6"},
              {"poly\\pol_jel", "jelezo\\pol_der"},
              {"jelezo\\pol_der_full", "poly\\pj"}},
    HallTiles{{"fon\\modul02", "fon\\modul2", "fon\\modul02"},
              {"poly\\tr_pol1", "poly\\tr_pol2"},
              {"poly\\tr_pol3", "poly\\tr_pol4"}},
};

/// The first frame of a strip, `scale` times as large as in play. Tiles join, so the drawing goes on around the cell.
PixelImage drawnTile(const StripDrawing& strip, double scale) {
    constexpr int kSamples = 2;
    constexpr int kMargin = 32;
    if (scale == 1) return renderFrame(strip, 0);
    const int side = static_cast<int>(kCell * scale);
    Canvas canvas(side, side, kSamples, kMargin);
    const auto enlarged = canvas.placed({}, 0, scale, scale);
    strip.draw(canvas, {0, strip.frames, strip.name});
    return canvas.picture();
}

/// The tile of that name and size, drawn once. Any thread may ask.
const PixelImage& tile(std::string_view name, double scale) {
    static std::mutex mutex;
    static std::map<std::pair<std::string_view, double>, PixelImage> drawn;
    const std::scoped_lock lock(mutex);
    if (const auto known = drawn.find({name, scale}); known != drawn.end()) return known->second;
    return drawn.emplace(std::pair{name, scale}, drawnTile(hallStrip(name), scale)).first->second;
}

/// One of the variants, the first more often than the others.
template <std::size_t N>
std::string_view mixed(const std::array<std::string_view, N>& variants, int column, int row) {
    const float share = randomShare(static_cast<std::uint32_t>(column), static_cast<std::uint32_t>(row), 17);
    return variants[static_cast<std::size_t>(share * share * N)];
}

}  // namespace

const StripDrawing& hallStrip(std::string_view name) {
    for (const auto room : {turmaRoom, jelezoRoom, podvalRoom, commonRoom}) {
        const auto strips = room();
        const auto found = std::ranges::find(strips, name, &StripDrawing::name);
        if (found != strips.end()) return *found;
    }
    std::fprintf(stderr, "%.*s: no hall has such a strip\n", static_cast<int>(name.size()), name.data());
    std::abort();
}

void drawHall(Canvas& canvas, const HallSet& set, Point corner) {
    const HallTiles& hall = kHalls[static_cast<std::size_t>(set.hall)];
    for (int row = 0; row < set.rows; ++row) {
        for (int column = 0; column < set.columns; ++column) {
            const Point at = corner + Point{1.0 * column, 1.0 * row} * (kCell * set.scale);
            canvas.stamp(tile(mixed(hall.walls, column, row), set.scale), at);
            if (row < set.floorRow) continue;
            const auto& floors = row == set.floorRow ? hall.floors : hall.under;
            canvas.stamp(tile(mixed(floors, column, row), set.scale), at);
        }
    }
}

}  // namespace grub
