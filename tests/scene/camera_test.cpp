#include "level_view.h"

#include <gtest/gtest.h>

namespace grub {
namespace {

struct CameraCase {
    const char* what;
    int columns, rows;
    int heroX, heroY;
    int scrollX, scrollY;
};

const CameraCase kFromTheCorner[] = {
    {"13 columns and 9 rows never scroll", 13, 9, 12 * 64, 8 * 64, 0, 0},
    {"on the edge of the band nothing moves", 30, 20, 544, 344, 0, 0},
    {"one pixel beyond it moves one pixel", 30, 20, 545, 345, 1, 1},
    {"a hero far away appears at the band's edge at once", 30, 20, 1200, 800, 656, 456},
    {"14 columns scroll by 96 pixels, 10 rows by 104 above the panel", 14, 10, 13 * 64, 9 * 64, 96, 104},
    {"the end of the map stops the view, above the panel", 30, 20, 29 * 64, 19 * 64, 30 * 64 - 800, 20 * 64 - 536},
};

TEST(Camera, FollowsTheHeroUpToTheMapsEnds) {
    for (const CameraCase& c : kFromTheCorner) {
        SCOPED_TRACE(c.what);
        Camera camera;
        camera.follow(c.heroX, c.heroY, c.columns, c.rows);
        EXPECT_EQ(camera.scrollX(), c.scrollX);
        EXPECT_EQ(camera.scrollY(), c.scrollY);
        EXPECT_EQ(camera.firstColumn(), c.scrollX / 64);
        EXPECT_EQ(camera.firstRow(), c.scrollY / 64);
    }
}

TEST(Camera, StaysWhileTheHeroIsInsideTheBandAndGoesBackWithHim) {
    Camera camera;
    camera.follow(1000, 700, 40, 40);
    const int x = camera.scrollX();
    const int y = camera.scrollY();
    camera.follow(x + 192, y + 128, 40, 40);
    EXPECT_EQ(camera.scrollX(), x);
    EXPECT_EQ(camera.scrollY(), y);
    camera.follow(x + 191, y + 127, 40, 40);
    EXPECT_EQ(camera.scrollX(), x - 1);
    EXPECT_EQ(camera.scrollY(), y - 1);
    camera.follow(0, 0, 40, 40);
    EXPECT_EQ(camera.scrollX(), 0);
    EXPECT_EQ(camera.scrollY(), 0);
}

}  // namespace
}  // namespace grub
