#include "system_objects.h"

#include <gtest/gtest.h>

namespace grub {
namespace {

TEST(Event, AutoResetLetsOneWaitThrough) {
    Event event(false, true);
    EXPECT_TRUE(event.wait(0));
    EXPECT_FALSE(event.wait(0));
    EXPECT_TRUE(event.set());
    EXPECT_TRUE(event.wait(INFINITE));
}

TEST(Event, ManualResetStaysSetUntilReset) {
    Event event(true, false);
    EXPECT_FALSE(event.wait(1));
    event.set();
    EXPECT_TRUE(event.wait(0));
    EXPECT_TRUE(event.wait(0));
    EXPECT_TRUE(event.reset());
    EXPECT_FALSE(event.wait(0));
}

}  // namespace
}  // namespace grub
