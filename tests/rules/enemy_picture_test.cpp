#include <gtest/gtest.h>

#include "drawn_world.h"

namespace grub {
namespace {

// The picture is chosen in even frames. Strips count eight pictures, a rat's way in and out of a hole four.
const struct {
    const char* what;
    Drawing map;
    const char* keys;
    int frame;
    int animation;
    int shown;
} kPictures[] = {
    {"a dog walks left", {"@ . . . d", "# # # # #"}, "", 4, 90, 3},
    {"a dog walks right", {"d . . . @", "# # # # #"}, "", 5, 91, 2},
    {"a lady walks left", {"@ . . . l", "# # # # #"}, "", 2, 103, 1},
    {"a rat runs left", {"@ . . . r", "# # # # #"}, "", 4, 110, 2},
    {"a rat runs right", {"r . . . @", "# # # # #"}, "", 4, 111, 2},
    {"the strip comes round", {"@ . . . d", "# # # # #"}, "", 14, 90, 0},
    {"a lady hangs left", {"@ - - - l", "# . . . #"}, "", 2, 105, 1},
    {"a lady sees the pipe to her right", {"l - - - @", "# . . . #"}, "", 2, 106, 1},
    {"a dog sees the pipe to its right going left", {"@ . - d", "# # . #"}, "", 20, 92, 2},
    {"a dog walks on a pipe on a floor", {"@ - - - d", "# # # # #"}, "", 2, 90, 2},
    {"a dog climbs", {"@ .", "H .", "H d", "# #"}, "", 18, 94, 1},
    {"a dog falls", {"d # @", ". # #", ". # #", "# # #"}, "", 4, 96, 2},
    {"a dog stands", {"d # @", "# # #"}, "", 4, 96, 0},
    {"a lady stands", {"l # @", "# # #"}, "", 4, 109, 0},
    {"a dog is in a hole", {"@ . d", "= = =", "# # #"}, "16:+X", 28, 95, 6},
    {"and stays in its last picture", {"@ . d", "= = =", "# # #"}, "16:+X", 150, 95, 7},
    {"a dog climbs out", {"@ . d", "= = =", "# # #"}, "16:+X", 158, 244, 1},
    {"a lady is in a hole", {"@ . l", "= = =", "# # #"}, "16:+X", 18, 108, 1},
    {"a rat is in a hole", {"@ . r", "= = =", "# # #"}, "16:+X", 20, 114, 2},
    {"a rat keeps its fourth picture", {"@ . r", "= = =", "# # #"}, "16:+X", 140, 114, 3},
    {"a rat comes out", {"@ . r", "= = =", "# # #"}, "16:+X", 150, 112, 1},
};

TEST(EnemyPicture, ShowsWhatItDoes) {
    for (const auto& row : kPictures) {
        SCOPED_TRACE(row.what);
        auto world = worldFrom(row.map);
        const AnimationFrame picture = world.script(row.keys).runTo(row.frame).enemy().picture();
        EXPECT_EQ(picture.animation, row.animation);
        EXPECT_EQ(picture.frame, row.shown);
    }
}

}  // namespace
}  // namespace grub
