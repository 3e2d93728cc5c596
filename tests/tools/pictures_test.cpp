// What every picture promises to the rules, to its neighbours on the map and to the player's eye: a table, and a walk
// over it.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "built_strips.h"
#include "level_list.h"
#include "level_loader.h"
#include "level_picture.h"
#include "loading_list.h"

namespace grub {
namespace {

// ---- the table

/// Promises of a strip, as bits of a set.
enum Promise : unsigned {
    kCycle = 1,     // the last frame leads on to the first
    kSteady = 2,    // the middle of the figure stays in its column
    kPipe = 4,      // something holds the pipe, whose axis is row 10
    kInside = 8,    // nothing visible lies on the edge of the cell
    kInked = 16,    // a dark line runs round nearly all of it
    kFull = 32,     // no pixel is clear
    kJoins = 64,    // its edges are those of the plain wall in the row above the variants
    kBreaks = 128,  // from a whole cell to an open hole
    kGrows = 256,   // from an open hole to a whole cell
    kDoor = 512,    // red while shut, green as it opens
    kOpens = 2048,  // from a whole cell to next to nothing
    kAcross = 1024  // fills its cell from side to side at row 30, up to its upper edge
};
constexpr unsigned kFigure = kInside | kInked;
constexpr unsigned kWall = kFull | kJoins;

/// A strip, or all whose names begin so when the name ends in '*'; the first row that fits counts. Frames are digits;
/// "*" are all, "$" is the last. Brightness is the L* of the mean light of frame 0, from 0 to 100.
struct PictureRow {
    const char* strips;
    int frames;  // as many as the rules count
    unsigned promises = 0;
    double darkest = 0;
    double brightest = 100;
    const char* grounded = "";  // stand on row 61; in a cycle the others do not
    int gripRow = 0;            // where feet or hands touch what goes back 8 px a frame
    const char* grips = "";     // frames up to whose next something on that row does so
};

// Brightness climbs from walls over floors, solid blocks, ladders and pipes to figures and keys. 50 is 2.5 times, and
// 67 is 4.5 times the light of the brightest plain wall.
constexpr PictureRow kPictures[] = {
    // figures            frames promises              L*       grounded   grips
    {"grub\\ani_01", 8, kFigure | kCycle | kSteady, 55, 65, "012456", 60, "0145"},
    {"grub\\ani_02", 8, kFigure | kCycle, 55, 65},
    {"grub\\ani_03", 6, kFigure | kCycle, 55, 65},
    {"grub\\ani_04", 8, kFigure | kCycle | kPipe, 55, 65},
    {"grub\\ani_05", 10, kFigure, 55, 65, "*"},
    {"grub\\ani_06", 8, kFigure, 55, 65, "*"},
    {"grub\\ani_07", 8, kFigure, 55, 65, "*"},
    {"grub\\ani_08", 50, kFigure | kCycle, 55, 65, "*"},
    {"led\\shield_03", 6, kInside | kCycle, 60},
    {"led\\shield_05", 10, kInside, 60},
    {"led\\shield_08", 50, kInside | kCycle, 60},
    {"led\\shield_*", 8, kInside, 60},
    {"polkan\\ani_01", 8, kFigure | kCycle | kSteady, 50, 65, "*", 60, "*"},
    {"polkan\\ani_02", 8, kFigure | kCycle, 50, 65},
    {"polkan\\ani_03", 8, kFigure | kCycle | kPipe, 50, 65, "", 6, "012456"},
    {"polkan\\ani_04", 8, kFigure, 50, 65, "0"},
    {"polkan\\ani_05", 8, kFigure, 50, 65, "$"},
    {"polkan\\ani_06", 8, kFigure, 50, 65, "$"},
    {"tetka\\ani_01", 8, kFigure | kCycle | kSteady, 50, 65, "*", 60, "012456"},
    {"tetka\\ani_02", 8, kFigure | kCycle, 50, 65},
    {"tetka\\ani_03", 8, kFigure | kCycle | kPipe, 50, 65, "", 6, "012456"},
    {"tetka\\ani_04", 8, kFigure, 50, 65, "$"},
    {"tetka\\ani_05", 8, kFigure, 50, 65, "$"},
    {"tetka\\ani_06", 8, kFigure, 50, 65, "0"},
    {"rat\\ani_01", 8, kFigure | kCycle | kSteady, 50, 65, "*", 60, "*"},
    {"rat\\ani_up", 4, kFigure, 50, 65},
    {"rat\\ani_down", 4, kFigure, 50, 65, "$"},
    // things
    {"key*", 1, kInside, 67},
    {"bonuses\\animation_bonus_*", 12, kInside | kCycle, 50},
    {"font_for_score", 10},
    {"c_imp", 10, 0, 65},
    {"c_small", 10, kInside, 65},
    // what lies over the halls
    {"panel\\panel_*", 1, kFull, 35, 48},
    {"polosa", 1, kFull, 10, 25},
    {"open", 8, kOpens},
    {"close", 8, kGrows},
    // walls; the plain one of each world leads its variants
    {"steny\\modul", 1, kWall, 20, 26},
    {"steny\\modul_lampa*", 1, kWall},
    {"steny\\modul_pol_11a", 1, kAcross, 47, 54},
    {"steny\\modul*", 1, kWall, 20, 26},
    {"sten_jel\\fon_jel", 1, kWall, 20, 26},
    {"fon\\modul02", 1, kWall, 20, 26},
    {"fon\\modul3", 1, kFull, 20, 26},
    {"fon\\modul4", 1, kFull, 20, 26},
    {"fon\\modul6", 1, kFull, 20, 26},
    {"fon\\modul7", 1, kFull, 20, 26},
    {"fon\\modul*", 1, kWall, 20, 26},
    {"steny\\arka*", 1, kFull, 18, 26},
    {"sten_jel\\door_jel", 1, kFull},
    {"sten_jel\\cep_jel", 1, kFull, 20, 26},
    {"sten_jel\\pol_lamp_jel", 1, kFull},
    // floors
    {"poly\\lom*", 8, kBreaks},
    {"jelezo\\animation_floor_iron_01", 8, kBreaks},
    {"poly\\truba_za1", 8, kBreaks},
    {"poly\\vosst*", 8, kGrows},
    {"jelezo\\animation_floor_iron_close01", 8, kGrows},
    {"poly\\truba_za2", 8, kGrows},
    {"dveri\\modul_dver_1a", 8, kBreaks},
    {"dveri\\modul_dver_1b", 8, kGrows},
    {"dveri\\modul_dver_1c", 8, kBreaks},
    {"dveri\\modul_dver_1d", 8, kGrows},
    {"poly\\modul_pol01", 1, kFull, 34, 44},
    {"poly\\modul_pol02", 1, kFull, 34, 44},
    {"jelezo\\pol_der_full", 1, kFull, 34, 44},
    {"poly\\pj", 1, kFull, 34, 44},
    {"poly\\tr_pol3", 1, kFull, 34, 44},
    {"poly\\tr_pol4", 1, kFull, 34, 44},
    {"poly\\modul_pol03", 1, kFull, 44, 56},
    {"poly\\modul_pol04", 1, kFull, 44, 56},
    {"poly\\modul_pol*", 1, kAcross, 47, 54},
    {"poly\\pol_jel", 1, kAcross, 47, 54},
    {"jelezo\\pol_der", 1, kAcross, 47, 54},
    {"poly\\tr_pol*", 1, kAcross, 47, 54},
    {"poly\\pol_kray*", 1, 0, 47, 54},
    {"poly\\truba_za*", 1, 0, 47, 54},
    // what cannot be dug, ladders and pipes
    {"poly\\polkam", 1, kFull, 44, 56},
    {"poly\\kam_proz", 1, 0, 44, 60},
    {"poly\\kam_jel*", 1, kFull, 44, 56},
    {"fon\\kam4", 1, kInside},
    {"fon\\kam*", 1, kFull, 44, 56},
    {"lesenki\\*", 1, 0, 56, 67},
    {"trubi\\tr_lest1", 1, 0, 56, 67},
    {"trubproz\\tr_lest", 1, 0, 56, 67},
    {"trubi\\mod_trub04", 1, 0, 60, 75},
    {"trubi\\mod_trub14", 1, 0, 60, 75},
    {"trubi\\tr_*", 1, 0, 60, 75},
    // exits
    {"dveri\\door_*", 10, kDoor},
    {"dveri\\animation_door_*", 10, kDoor},
    {"dveri\\dverfin2-red", 1},
    {"dveri\\dverfin*", 10, kDoor},
    {"dveri\\*", 1},
    // what dresses the halls changes no rule; darker than what can be walked on
    {"fon\\fakel", 8, kInside | kCycle},
    {"kam_*", 8, kCycle},
    {"kapli", 10, kCycle},
    {"polkan\\drop_*", 8, kInside | kCycle},
    {"fon\\prov*", 1, 0, 0, 50},
    {"provoda\\*", 1, 0, 0, 50},
    {"trubi\\*", 1, 0, 0, 55},
    {"trubproz\\*", 1, 0, 0, 55},
    {"fon\\pipe*", 1, 0, 0, 55},
    {"fon\\sh*", 1, 0, 0, 5},
    {"fon\\mashine*", 1, kInked, 0, 55},
    {"fon\\*", 1},
    {"poly\\paut*", 1},
    {"sten_jel\\*", 1},
    {"jelezo\\*", 1},
    {"bonuses\\modul_stol_pust", 1, kInside | kInked},
    {"lampa*", 1},
    {"gor", 1},
    {"vert", 1},
};

const PictureRow* rowOf(std::string_view strip) {
    const auto* row = std::ranges::find_if(kPictures, [strip](const PictureRow& each) {
        const std::string_view name = each.strips;
        return name.ends_with('*') ? strip.starts_with(name.substr(0, name.size() - 1)) : strip == name;
    });
    return row == std::end(kPictures) ? nullptr : row;
}

// ---- what is measured

double lightOf(const Pixel& p) {
    static const auto kLinear = [] {
        std::array<double, 256> linear{};
        for (std::size_t i = 0; i < linear.size(); ++i) {
            const double value = static_cast<double>(i) / 255.0;
            linear[i] = value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        }
        return linear;
    }();
    return 0.2126 * kLinear[p.r] + 0.7152 * kLinear[p.g] + 0.0722 * kLinear[p.b];
}
double brightnessOf(double light) { return light > 0.008856 ? 116 * std::cbrt(light) - 16 : 903.3 * light; }

/// Of what is visible.
double meanLightOf(const PixelImage& image) {
    double sum = 0;
    for (const Pixel& p : image.pixels) sum += isVisible(p) ? lightOf(p) : 0;
    return sum / static_cast<double>(std::max<std::ptrdiff_t>(1, visiblePixels(image)));
}

/// Share of dark pixels among the visible ones that touch what is clear.
double inkShareOf(const PixelImage& image) {
    double edge = 0;
    double dark = 0;
    for (int y = 1; y + 1 < image.height; ++y) {
        for (int x = 1; x + 1 < image.width; ++x) {
            const bool inside = isVisible(image.at(x - 1, y)) && isVisible(image.at(x + 1, y)) &&
                                isVisible(image.at(x, y - 1)) && isVisible(image.at(x, y + 1));
            if (!isVisible(image.at(x, y)) || inside) continue;
            ++edge;
            dark += brightnessOf(lightOf(image.at(x, y))) < 42 ? 1 : 0;
        }
    }
    return edge > 0 ? dark / edge : 1;
}

bool names(const char* set, std::size_t frame, std::size_t count) {
    const std::string_view frames = set;
    if (frames == "*" || frames == "$") return frames == "*" || frame + 1 == count;
    return frame < 10 && frames.find(static_cast<char>('0' + frame)) != std::string_view::npos;
}

/// Whether a side of something that touches the row lies 8 +- 1 px further right in the next frame.
bool slidesBack(const PixelImage& before, const PixelImage& after, int row) {
    const auto isEight = [](int from, int to) { return std::abs(to - from - 8) <= 1; };
    for (const auto& a : runsIn(before, row)) {
        for (const auto& b : runsIn(after, row))
            if (isEight(a.first, b.first) || isEight(a.second, b.second)) return true;
    }
    return false;
}

/// Sum of the steps from a column of pixels to the next, or from the last one to the first.
int stepBehind(const PixelImage& image, int column) {
    int sum = 0;
    for (int y = 0; y < 64; ++y) sum += difference(image.at(column, y), image.at((column + 1) % 64, y));
    return sum;
}

// ---- the walk

void keepsItsPlace(const PictureRow& row, const Frames& frames, std::size_t i) {
    const PixelImage& frame = frames[i];
    const auto promises = [&row](Promise promise) { return (row.promises & promise) != 0; };
    const bool grounded = names(row.grounded, i, frames.size());
    EXPECT_TRUE((!grounded && (*row.grounded == 0 || !promises(kCycle))) || (lowestRow(frame) == 61) == grounded)
        << "its lowest row is " << lowestRow(frame);
    EXPECT_TRUE(!names(row.grips, i, frames.size()) || slidesBack(frame, frames[(i + 1) % frames.size()], row.gripRow))
        << "nothing goes back 8 px";
    EXPECT_TRUE(!promises(kPipe) || !runsIn(frame, 10).empty()) << "nothing holds the pipe";
    EXPECT_TRUE(!promises(kSteady) || std::abs(middleOf(frame).first - middleOf(frames[0]).first) <= 3) << "it jitters";
    EXPECT_TRUE(!promises(kInside) || !touchesEdge(frame)) << "it is cut off";
    EXPECT_TRUE(!promises(kInked) || inkShareOf(frame) >= 0.9) << "ink on its edge: " << inkShareOf(frame);
    EXPECT_TRUE(!promises(kFull) || visiblePixels(frame) == std::ptrdiff_t{frame.width} * frame.height)
        << "it has a hole";
}

void joins(const PixelImage& wall, const PixelImage& plain) {
    for (int i = 0; i < 64; ++i) {
        for (const auto& [x, y] : {std::pair(i, 0), std::pair(i, 63), std::pair(0, i), std::pair(63, i)})
            EXPECT_LE(difference(plain.at(x, y), wall.at(x, y)), 8) << "another edge at " << x << ", " << y;
    }
    // Iron plates end below in a lit edge.
    for (const auto& [image, most, seam] :
         {std::tuple(plain, 1, "a seam at its side"), std::tuple(turned(plain), 3, "a seam below")}) {
        double inside = 0;
        for (int x = 0; x < 63; ++x) inside += stepBehind(image, x) / 63.0;
        EXPECT_LE(stepBehind(image, 63), most * inside) << seam;
    }
}

void opens(Frames frames, bool grows) {
    if (grows) std::ranges::reverse(frames);
    EXPECT_EQ(visiblePixels(frames[0]), 64 * 64) << "it is not whole";
    for (std::size_t i = grows ? 1 : 2; i < 8; ++i)
        EXPECT_LT(visiblePixels(frames[i]), visiblePixels(frames[i - 1])) << i;
    EXPECT_LT(visiblePixels(frames[7]), 64 * 64 / (grows ? 3 : 5)) << "the hole is not open";
    if (grows) return;
    for (std::size_t i = 2; i < 8; ++i)
        EXPECT_GT(highestRow(frames[i], 20, 44), highestRow(frames[i - 1], 20, 44)) << i;
    EXPECT_GE(highestRow(frames[3], 20, 44), 12) << "the middle hardly falls";
    EXPECT_EQ(highestRow(frames[7], 20, 44), 64);
}

void isDoor(const Frames& frames) {
    EXPECT_GT(frames[0].at(32, 8).r, frames[0].at(32, 8).g + 40);
    EXPECT_GT(frames[9].at(32, 8).g, frames[9].at(32, 8).r + 40);
    EXPECT_LT(highestRow(frames[0]), 3);
    EXPECT_EQ(lowestRow(frames[0]), 63);
}

TEST(Pictures, KeepWhatTheyPromise) {
    const PixelImage* plain = nullptr;
    for (const StripDrawing& strip : allStrips()) {
        SCOPED_TRACE(strip.name);
        const PictureRow* row = rowOf(strip.name);
        ASSERT_NE(row, nullptr) << "the table has no row for it";
        const Frames& frames = builtStrip(strip.name);
        ASSERT_EQ(frames.size(), static_cast<std::size_t>(row->frames));
        const double brightness = brightnessOf(meanLightOf(frames[0]));
        EXPECT_TRUE(brightness >= row->darkest && brightness <= row->brightest) << brightness;
        for (std::size_t i = 0; i < frames.size(); ++i) {
            SCOPED_TRACE(i);
            EXPECT_TRUE(std::ranges::any_of(frames[i].pixels, [](const Pixel& p) { return p.a > 0; })) << "nothing";
            keepsItsPlace(*row, frames, i);
        }
        EXPECT_TRUE((row->promises & kCycle) == 0 || isCycle(frames)) << "it jumps at its end";
        if (strip.name == row->strips) plain = &frames[0];
        if ((row->promises & kJoins) != 0) joins(frames[0], *plain);
        if ((row->promises & kAcross) != 0) {
            EXPECT_EQ(runsIn(frames[0], 30), (std::vector{std::pair(0, 64)}));
            EXPECT_LE(highestRow(frames[0]), 1);
        }
        if ((row->promises & (kBreaks | kGrows)) != 0) opens(frames, (row->promises & kGrows) != 0);
        if ((row->promises & kOpens) != 0) opens(Frames(frames.rbegin(), frames.rend()), true);
        if ((row->promises & kDoor) != 0) isDoor(frames);
    }
}

TEST(Pictures, AreThoseOfTheLoadingList) {
    for (const LoadEntry& file : loadingList()) {
        const StripDrawing* strip = findStrip(file.stem);
        ASSERT_NE(strip, nullptr) << file.stem;
        EXPECT_EQ(strip->frameHeight, file.frameHeight) << file.stem;
    }
    for (const StripDrawing& strip : allStrips())
        EXPECT_TRUE(std::ranges::none_of(builtFrame(strip.name).pixels, [](const Pixel& p) { return p == Pixel{}; }))
            << strip.name << ": clear pixels have the colour of the nearest visible one";
}

// The packages may come from a program that another compiler made, with other options.
TEST(Pictures, ComeOutTheSameInEveryBuild) {
    for (const StripDrawing& strip : allStrips()) {
        const int last = strip.frames - 1;
        EXPECT_EQ(renderFrame(strip, last), builtFrame(strip.name, last)) << strip.name;
    }
}

// ---- pictures that belong together

TEST(Pictures, ThatShowDifferentThingsDiffer) {
    const char* const kSets[] = {"key", "bonuses\\animation_bonus_", "lesenki\\", "steny\\", "fon\\mashine"};
    for (const char* set : kSets) {
        std::vector<const PixelImage*> seen;
        for (const StripDrawing& strip : allStrips()) {
            if (!strip.name.starts_with(set)) continue;
            const PixelImage& frame = builtFrame(strip.name);
            EXPECT_TRUE(std::ranges::none_of(seen, [&](const PixelImage* other) { return *other == frame; }))
                << strip.name;
            seen.push_back(&frame);
        }
    }
}

/// Mean light of a cell of a level's picture.
double lightOfCell(const PixelImage& level, int column, int row) {
    double sum = 0;
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x) sum += lightOf(level.at(column * 64 + x, row * 64 + y));
    }
    return sum / (64 * 64);
}

// Torches, keys and figures are meant to be bright: their cells do not count. Light around them may fall on a few
// others.
TEST(Levels, AreDarkWhereGrubGoes) {
    ResourcePackage levels(GRUB_DATA_DIR "/levels.pak");
    ResourcePackage pictures(GRUB_DATA_DIR "/data64.pak");
    const double grub = meanLightOf(builtFrame("grub\\ani_01"));
    int drawn = 0;
    for (const std::string_view level : kLevelNames) {
        const std::string name(level);
        if (!levels.exists(name.c_str())) continue;
        SCOPED_TRACE(name);
        LevelLoader loader(levels);
        std::string reason;
        ASSERT_TRUE(loader.loadBlockTypes());
        std::optional<LevelMap> map = loader.load(name, reason);
        ASSERT_TRUE(map) << reason;
        const PixelImage picture = drawLevelPicture(*map, pictures).image;
        ++drawn;
        int cells = 0;
        int bright = 0;
        for (int y = 0; y < map->height(); ++y) {
            for (int x = 0; x < map->width(); ++x) {
                if (map->cellAt(x, y).type != BlockType::Empty || map->cellAt(x, y).code != 0) continue;
                ++cells;
                bright += (grub + 0.05) / (lightOfCell(picture, x, y) + 0.05) < 2.5 ? 1 : 0;
            }
        }
        EXPECT_LE(bright, cells / 10) << "of " << cells << " cells";
    }
    EXPECT_GT(drawn, 0);
}

// The rules move the rat half a cell at once, at the start of its fall and of its leap.
TEST(Enemies, TheRatsHolesMakeUpForHalfACell) {
    const auto middleRow = [](const PixelImage& image) { return middleOf(image).second; };
    const double running = middleRow(builtFrame("rat\\ani_01"));
    EXPECT_NEAR(running - middleRow(builtFrame("rat\\ani_down")), 32, 10) << "it jumps as it loses the ground";
    EXPECT_NEAR(middleRow(builtStrip("rat\\ani_up").back()), running, 4);
}

TEST(Shields, HoldAllOfGrubInsideTheGlass) {
    for (int number = 1; number <= 8; ++number) {
        SCOPED_TRACE(number);
        const Frames& shielded = builtStrip("led\\shield_0" + std::to_string(number));
        EXPECT_EQ(shielded.size(), builtStrip("grub\\ani_0" + std::to_string(number)).size());
        for (const PixelImage& frame : shielded) {
            for (int i = 0; i < frame.width * frame.height; ++i) {
                const auto [row, column] = std::div(i, frame.width);
                if (isVisible(frame.at(column, row))) {
                    ASSERT_LT(std::hypot(column - 31.5, row - 31.5), 31.6) << "at " << column << ", " << row;
                }
            }
        }
    }
}

}  // namespace
}  // namespace grub
