#include <gtest/gtest.h>

#include "bonus.h"
#include "drawn_world.h"

namespace grub {
namespace {

// A floor that breaks opens the one under it. The floor under his feet stays, and so what it covers.
const struct {
    const char* what;
    Drawing before;
    int x;
    int y;
    Drawing after;
} kCraters[] = {
    {"floors all round",
     {". . . . .", "= = = = =", "= = = = =", "= = @ = =", "= = = = =", "= = = = =", "# # # # #"},
     2,
     3,
     {". . . . .", "_ _ _ _ _", "_ _ _ _ _", "_ _ . _ _", "_ _ = _ _", "_ _ = _ _", "# # # # #"}},
    {"a roof keeps all that is under it",
     {"# # # # #", "= = = = =", "= = @ = =", "= = = = =", "= = = = ="},
     2,
     2,
     {"# # # # #", "= = = = =", "= = . = =", "= = = = =", "= = = = ="}},
    {"two cells and no more",
     {". . . . . . .", ". . . @ . . .", "= = = = = = =", "= = = = = = =", "= = = = = = ="},
     3,
     1,
     {". . . . . . .", ". . . . . . .", "= _ _ = _ _ =", "= _ _ = _ _ =", "= = = = = = ="}},
    {"the floor of a storey below", {"H", ".", "=", "#"}, 0, 0, {"H", ".", "_", "#"}},
    {"at the map's corner", {"@ .", "= ="}, 0, 0, {". .", "= _"}},
};

TEST(Bomb, EatsDownwardsThroughTheFloors) {
    for (const auto& row : kCraters) {
        SCOPED_TRACE(row.what);
        LevelMap map = mapFrom(row.before);
        blast(map, row.x, row.y);
        EXPECT_EQ(drawnMap(map), row.after);
    }
}

}  // namespace
}  // namespace grub
