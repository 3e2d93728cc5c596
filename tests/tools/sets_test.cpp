// The places that pages show.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "canvas.h"
#include "sets_room.h"

namespace grub {
namespace {

TEST(Sets, FillTheirAreaAndStayInside) {
    constexpr int kRoom = 8;
    std::set<std::string_view> names;
    for (const SetDrawing& set : allSets()) {
        SCOPED_TRACE(set.name);
        EXPECT_TRUE(names.insert(set.name).second) << "two sets have this name";
        EXPECT_EQ(findSet(set.name)->draw, set.draw);
        Canvas canvas(set.width + 2 * kRoom, set.height + 2 * kRoom, 1);
        drawSet(canvas, set, {kRoom, kRoom, 1.0 * set.width, 1.0 * set.height});
        const PixelImage image = canvas.picture();
        int outside = 0;
        int clear = 0;
        for (int y = 0; y < image.height; ++y) {
            for (int x = 0; x < image.width; ++x) {
                const bool within = x >= kRoom && x < kRoom + set.width && y >= kRoom && y < kRoom + set.height;
                outside += !within && image.at(x, y).a > 0 ? 1 : 0;
                clear += within && image.at(x, y).a < 255 ? 1 : 0;
            }
        }
        EXPECT_EQ(outside, 0);
        EXPECT_EQ(clear > 0, set.inFront) << clear << " pixels show what lies behind";
    }
}

}  // namespace
}  // namespace grub
