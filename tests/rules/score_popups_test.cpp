#include "score_popups.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "drawn_world.h"

namespace grub {
namespace {

int shown(const ScorePopups& popups) {
    return static_cast<int>(
        std::ranges::count_if(popups.entries(), [](const ScorePopup& entry) { return entry.shown; }));
}

TEST(ScorePopup, RisesForFiftyPicturesBehindDialogsToo) {
    auto world = worldFrom({"@ +", "# #"});
    world.script("1:+R").runTo(12);
    const ScorePopup& popup = world.world().popups().entries()[0];
    EXPECT_EQ(popup.value, 100);
    EXPECT_EQ(popup.x, 64 + 32);
    EXPECT_EQ(popup.y, 31) << "drawn at 32 in the frame of its points, then one up";
    for (int picture = 2; picture <= 50; ++picture) {
        ASSERT_TRUE(popup.shown) << picture;
        world.world().finishFrame(false);
        ASSERT_TRUE(world.world().sounds().empty()) << "a dialog is no reason to hear the bonus again";
    }
    EXPECT_TRUE(popup.shown);
    EXPECT_EQ(popup.y, 32 - 50);
    world.world().finishFrame(false);
    EXPECT_FALSE(popup.shown);
}

TEST(ScorePopup, FindsNoTwentyFirstPlaceThoughThePointsCount) {
    Attempt attempt = attemptOn({"@", "#"});
    for (int i = 1; i <= 21; ++i) attempt.addScore(i, 0, 0);
    attempt.popups.finishFrame();
    EXPECT_EQ(shown(attempt.popups), 20);
    EXPECT_EQ(attempt.score, 21 * 22 / 2);
    for (int picture = 2; picture < 50; ++picture) attempt.popups.finishFrame();
    attempt.addScore(50, 0, 0);
    attempt.popups.finishFrame();
    EXPECT_EQ(shown(attempt.popups), 20) << "they are shown for the last time";
    attempt.addScore(50, 0, 0);
    attempt.popups.finishFrame();
    EXPECT_EQ(shown(attempt.popups), 1) << "the others have left their places";
}

}  // namespace
}  // namespace grub
