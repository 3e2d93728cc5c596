// The worlds and what stands in them: everything that a level is built of, and what Grub takes.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "all_strips.h"
#include "built_strips.h"
#include "loading_list.h"
#include "run_grubtool.h"

namespace grub {
namespace {

// ---- all strips

TEST(Strips, AreThoseOfTheLoadingListAndShowSomething) {
    std::set<std::string_view> names;
    for (const StripDrawing& strip : allStrips()) {
        SCOPED_TRACE(strip.name);
        EXPECT_TRUE(names.insert(strip.name).second);
        EXPECT_EQ(builtStrip(strip.name).size(), static_cast<std::size_t>(strip.frames));
        EXPECT_EQ(builtFrame(strip.name).width, strip.width);
        for (const PixelImage& frame : builtStrip(strip.name)) {
            EXPECT_TRUE(std::any_of(frame.pixels.begin(), frame.pixels.end(), [](const Pixel& p) { return p.a > 0; }));
        }
        if (strip.ground == Ground::Clear && strip.width == 64) {
            EXPECT_LT(visiblePixels(builtFrame(strip.name)), 64 * 64 * 92 / 100) << "it hides the wall behind it";
        }
    }
    for (const LoadEntry& file : loadingList()) {
        const StripDrawing* strip = findStrip(file.stem);
        ASSERT_NE(strip, nullptr) << file.stem;
        EXPECT_EQ(strip->frameHeight, file.frameHeight) << file.stem;
    }
}

// The packages may come from a program that another compiler made, with other options.
TEST(Pictures, ComeOutTheSameInEveryBuild) {
    for (const StripDrawing& strip : allStrips()) {
        const int last = strip.frames - 1;
        EXPECT_EQ(renderFrame(strip, last), builtFrame(strip.name, last)) << strip.name;
    }
}

TEST(RenderCommands, NameAStripThatIsNotThereAndAPlaceThatCannotBeWritten) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(runGrubtool({"render", "strip", "grub\\nobody", "x.bmp"}), 1);
    EXPECT_EQ(runGrubtool({"render", "strip", "c_small", "/dev/null/x.bmp"}), 1);
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::AllOf(testing::HasSubstr("grub\\nobody"), testing::HasSubstr("/dev/null/x.bmp")));
}

// ---- worlds

struct World {
    const char* name;
    std::vector<const char*> walls;  // the first is the plain one
    double joint;                    // step across the lower edge of a wall, as a multiple of the mean step inside
    std::vector<const char*> floors;
    const char* leftEnd;
    const char* rightEnd;
    const char* solid;
    const char* ladder;
    const char* pipe;
    std::vector<const char*> breaking;
    std::vector<const char*> growing;
    std::vector<const char*> doors;
};

const World kWorlds[] = {
    {"turma",
     {"steny\\modul", "steny\\modul01", "steny\\modul02", "steny\\modul03", "steny\\modul2", "steny\\modul9"},
     1,
     {"steny\\modul_pol_11a", "poly\\modul_pol"},
     "poly\\pol_kray1",
     "poly\\pol_kray2",
     "poly\\modul_pol04",
     "lesenki\\modul_lestn",
     "trubi\\mod_trub04",
     {"poly\\lom1", "poly\\lom2", "poly\\lom3", "poly\\lom4"},
     {"poly\\vosstfull", "poly\\vossthalf"},
     {"dveri\\door_a", "dveri\\door_b", "dveri\\door_c", "dveri\\door_d"}},
    {"jelezo",
     {"sten_jel\\fon_jel", "fon\\modul3", "fon\\modul4", "fon\\modul6", "fon\\modul7"},
     3,  // plates end there
     {"poly\\pol_jel", "jelezo\\pol_der"},
     "poly\\pol_kray4",
     "poly\\pol_kray5",
     "poly\\kam_jel",
     "lesenki\\lest_j",
     "trubi\\mod_trub14",
     {"jelezo\\animation_floor_iron_01"},
     {"jelezo\\animation_floor_iron_close01"},
     {"dveri\\animation_door_iron_01", "dveri\\animation_door_iron_02", "dveri\\animation_door_iron_03",
      "dveri\\animation_door_iron_04"}},
    {"podval",
     {"fon\\modul02", "fon\\modul2", "fon\\modul03", "fon\\modul8", "fon\\modul9"},
     1,
     {"poly\\tr_pol1", "poly\\tr_pol2"},
     "poly\\truba_za3",
     "poly\\truba_za5",
     "fon\\kam1",
     "lesenki\\modul_lestn",
     "trubi\\mod_trub04",
     {"poly\\truba_za1"},
     {"poly\\truba_za2"},
     {"dveri\\dverfin1", "dveri\\dverfin2", "dveri\\dverfin3", "dveri\\dverfin4"}},
};

PixelImage turned(const PixelImage& image) {
    PixelImage result(image.height, image.width);
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) result.at(y, x) = image.at(x, y);
    }
    return result;
}

/// Sum of the steps from a column of pixels to the next; from the last column to the first one of `right`.
double stepBehind(const PixelImage& image, int column, const PixelImage& right) {
    double sum = 0;
    for (int y = 0; y < 64; ++y) {
        sum += difference(image.at(column, y), column == 63 ? right.at(0, y) : image.at(column + 1, y));
    }
    return sum;
}
double meanStep(const PixelImage& image) {
    double sum = 0;
    for (int x = 0; x < 63; ++x) sum += stepBehind(image, x, image) / 63;
    return sum;
}
double strongestStep(const PixelImage& image) {
    double strongest = 0;
    for (int x = 0; x < 63; ++x) strongest = std::max(strongest, stepBehind(image, x, image));
    return strongest;
}

TEST(Worlds, ClimbInBrightnessFromWallToCap) {
    for (const World& world : kWorlds) {
        SCOPED_TRACE(world.name);
        const PixelImage& floor = builtFrame(world.floors[0]);
        const double face = lightnessOf(floor, 18, 62);
        const double wall = lightnessOf(builtFrame(world.walls[0]));
        EXPECT_NEAR(wall, 22.5, 3.5);
        EXPECT_NEAR(face, 41.5, 3.5);
        EXPECT_GT(lightnessOf(builtFrame(world.solid)), face);
        EXPECT_GT(lightnessOf(builtFrame(world.ladder)), 49);
        EXPECT_GT(lightnessOf(builtFrame(world.pipe), 5, 15), 49);
        EXPECT_GE(lightnessOf(floor, 2, 10), 66);
        EXPECT_GT(lightnessOf(builtFrame("key")), wall + 25);
    }
    EXPECT_NEAR(lightnessOf(builtFrame("grub\\ani_08")), 50, 8);
}

TEST(Worlds, HaveWallsOfWhichFiguresAndThingsStandOut) {
    struct Row {
        std::span<const StripDrawing> strips;
        double least;
    };
    for (const World& world : kWorlds) {
        for (const Row& row :
             {Row{dogStrips(), 2.5}, Row{ladyStrips(), 2.5}, Row{ratStrips(), 2.5}, Row{thingStrips(), 3}}) {
            for (const StripDrawing& strip : row.strips) {
                for (const PixelImage& frame : builtStrip(strip.name))
                    EXPECT_GE(contrast(frame, builtFrame(world.walls[0])), row.least) << strip.name << world.name;
            }
        }
    }
}

TEST(Worlds, HaveWallsThatJoinInAnyMixture) {
    for (const World& world : kWorlds) {
        const PixelImage& plain = builtFrame(world.walls[0]);
        for (const char* name : world.walls) {
            SCOPED_TRACE(name);
            const PixelImage& other = builtFrame(name);
            EXPECT_LE(stepBehind(plain, 63, other), meanStep(plain));
            EXPECT_LE(stepBehind(turned(plain), 63, turned(other)), world.joint * meanStep(turned(plain)));
            for (int i = 0; i < 64; ++i) {
                for (const auto& [x, y] : {std::pair(i, 0), std::pair(i, 63), std::pair(0, i), std::pair(63, i)})
                    EXPECT_LE(difference(plain.at(x, y), other.at(x, y)), 8) << "another edge at " << x << ", " << y;
            }
            EXPECT_EQ(visiblePixels(other), 64 * 64) << "a hole";
        }
    }
}

TEST(Worlds, HaveFloorsThatFillTheirCellAndEndsThatDoNot) {
    for (const World& world : kWorlds) {
        SCOPED_TRACE(world.name);
        for (const char* name : world.floors) {
            EXPECT_EQ(runsIn(builtFrame(name), 30), (std::vector{std::pair(0, 64)})) << name;
            EXPECT_LE(highestRow(builtFrame(name)), 1) << name;
        }
        EXPECT_EQ(visiblePixels(builtFrame(world.solid)), 64 * 64);
        EXPECT_LT(builtFrame(world.leftEnd).at(0, 1).a, 128);
        EXPECT_EQ(builtFrame(world.leftEnd).at(63, 30).a, 255);
        EXPECT_LT(builtFrame(world.rightEnd).at(63, 1).a, 128);
        EXPECT_EQ(builtFrame(world.rightEnd).at(0, 30).a, 255);
    }
}

TEST(Worlds, BreakTheirOwnFloorUntilAHoleIsOpen) {
    for (const World& world : kWorlds) {
        EXPECT_LT(differenceWhereOpaque(builtFrame(world.floors[0]), builtFrame(world.breaking[0])), 40) << world.name;
        for (const char* name : world.breaking) {
            SCOPED_TRACE(name);
            const std::vector<PixelImage>& frames = builtStrip(name);
            ASSERT_EQ(frames.size(), 8U);
            EXPECT_EQ(visiblePixels(frames[0]), 64 * 64) << "it is whole when it is hit";
            for (std::size_t i = 2; i < frames.size(); ++i) {
                EXPECT_LT(visiblePixels(frames[i]), visiblePixels(frames[i - 1])) << i;
                EXPECT_GT(highestRow(frames[i], 20, 44), highestRow(frames[i - 1], 20, 44)) << i;
            }
            EXPECT_GE(highestRow(frames[3], 20, 44), 12) << "the middle hardly falls";
            EXPECT_EQ(highestRow(frames[7], 20, 44), 64) << "the hole is not open";
            EXPECT_LT(visiblePixels(frames[7]), 64 * 64 / 5);
        }
    }
}

TEST(Worlds, GrowTheirOwnFloorAgain) {
    for (const World& world : kWorlds) {
        EXPECT_LT(differenceWhereOpaque(builtFrame(world.floors[0]), builtFrame(world.growing[0], 7)), 60)
            << world.name;
        for (const char* name : world.growing) {
            SCOPED_TRACE(name);
            const std::vector<PixelImage>& frames = builtStrip(name);
            ASSERT_EQ(frames.size(), 8U);
            EXPECT_LT(visiblePixels(frames[0]), 64 * 64 / 3) << "it starts as a hole";
            for (std::size_t i = 1; i < frames.size(); ++i)
                EXPECT_GT(visiblePixels(frames[i]), visiblePixels(frames[i - 1])) << i;
            EXPECT_EQ(visiblePixels(frames[7]), 64 * 64);
        }
    }
}

/// Pixels of the opening of a door that are as bright as daylight.
std::ptrdiff_t litIn(const PixelImage& image) {
    return std::count_if(image.pixels.begin(), image.pixels.end(),
                         [](const Pixel& p) { return p.a == 255 && lightness(p) > 70 && p.r > p.b + 20; });
}

TEST(Worlds, HaveDoorsThatShowRedWhileShutAndGreenAsTheyOpen) {
    for (const World& world : kWorlds) {
        for (const char* name : world.doors) {
            SCOPED_TRACE(name);
            const std::vector<PixelImage>& frames = builtStrip(name);
            ASSERT_EQ(frames.size(), 10U);
            EXPECT_GT(frames[0].at(32, 8).r, frames[0].at(32, 8).g + 40);
            EXPECT_GT(frames[9].at(32, 8).g, frames[9].at(32, 8).r + 40);
            EXPECT_GT(lightness(frames[9].at(32, 58)), 70) << "no light falls out";
            for (std::size_t i = 3; i < frames.size(); ++i)
                EXPECT_GE(litIn(frames[i]) + 8, litIn(frames[i - 1])) << "it goes back in frame " << i;
            EXPECT_GT(litIn(frames[9]), litIn(frames[0]) + 400);
            EXPECT_LT(highestRow(frames[0]), 3);
            EXPECT_EQ(lowestRow(frames[0]), 63);
        }
    }
}

TEST(Worlds, HaveLargeThingsThatGoOnFromCellToCell) {
    const char* things[][4] = {{"fon\\p11", "fon\\p12", "fon\\p21", "fon\\p22"},
                               {"fon\\k11", "fon\\k12", "fon\\k21", "fon\\k22"},
                               {"dveri\\d11", "dveri\\d12", "dveri\\d21", "dveri\\d22"}};
    const auto goesOn = [](const PixelImage& first, const PixelImage& second) {
        return stepBehind(first, 63, second) <= strongestStep(first);
    };
    for (const auto& thing : things) {
        SCOPED_TRACE(thing[0]);
        EXPECT_TRUE(goesOn(builtFrame(thing[0]), builtFrame(thing[1])));
        EXPECT_TRUE(goesOn(builtFrame(thing[2]), builtFrame(thing[3])));
        EXPECT_TRUE(goesOn(turned(builtFrame(thing[0])), turned(builtFrame(thing[2]))));
        EXPECT_TRUE(goesOn(turned(builtFrame(thing[1])), turned(builtFrame(thing[3]))));
    }
}

TEST(Worlds, HavePipesAndCablesThatMeetAtTheirSides) {
    struct Joint {
        const char* first;
        const char* second;
        bool below;  // else to the right
    };
    const Joint joints[] = {
        {"trubi\\mod_trub1", "trubi\\kran1", false},
        {"trubi\\mod_trub8", "trubi\\mod_trub10", false},
        {"trubi\\mod_trub8", "trubi\\mod_trub11", true},
        {"trubproz\\trub4", "trubproz\\tr_z", false},
        {"trubproz\\trub_stuk", "trubproz\\trub_stuk2", true},
        {"fon\\pipe7", "fon\\pipe9", true},
        {"fon\\prov2", "fon\\prov8", true},
        {"provoda\\prov3", "provoda\\prov6", false},
    };
    for (const Joint& joint : joints) {
        SCOPED_TRACE(joint.first);
        const auto across = [&](const char* name) { return joint.below ? turned(builtFrame(name)) : builtFrame(name); };
        const PixelImage first = across(joint.first);
        const PixelImage second = across(joint.second);
        int visible = 0;
        for (int y = 0; y < 64; ++y) {
            EXPECT_EQ(isVisible(first.at(63, y)), isVisible(second.at(0, y))) << y;
            visible += isVisible(first.at(63, y)) ? 1 : 0;
        }
        EXPECT_GE(visible, 3);
    }
}

// ---- things

TEST(Things, LoopInsideTheirCellWithARimOfGold) {
    for (const StripDrawing& thing : thingStrips()) {
        SCOPED_TRACE(thing.name);
        const std::vector<PixelImage>& frames = builtStrip(thing.name);
        EXPECT_EQ(frames.size(), thing.name.starts_with("key") ? 1U : 12U);
        for (const PixelImage& frame : frames) EXPECT_EQ(visibleOnBorder(frame), 0);
        if (frames.size() > 1) {
            EXPECT_LE(jumpAtTheEnd(frames), 1.3);
        }
        const auto gold = std::count_if(frames[0].pixels.begin(), frames[0].pixels.end(), [](const Pixel& p) {
            return p.a > 200 && p.r > 180 && p.g > p.b + 50 && p.r > p.g;
        });
        EXPECT_GT(gold, 90) << "what can be taken has a rim of gold";
        for (const StripDrawing& other : thingStrips())
            EXPECT_EQ(frames[0] == builtFrame(other.name), &other == &thing) << other.name;
    }
}

TEST(Things, OnTheWallBurnWithoutAJump) {
    for (const char* torch : {"fon\\fakel", "kam_left", "kam_right"}) {
        EXPECT_LE(jumpAtTheEnd(builtStrip(torch)), 1.3) << torch;
        EXPECT_GT(jumpAtTheEnd(builtStrip(torch)), 0) << torch << " does not move";
    }
}

TEST(Digits, DifferFromOneAnother) {
    for (const StripDrawing& font : digitStrips()) {
        ASSERT_EQ(font.frames, 10) << font.name;
        for (int a = 0; a < 10; ++a) {
            for (int b = 0; b < a; ++b)
                EXPECT_GT(difference(builtFrame(font.name, a), builtFrame(font.name, b)), 300) << font.name << a << b;
        }
    }
}

}  // namespace
}  // namespace grub
