#include "scene.h"

#include <gmock/gmock.h>

#include "control/testing.h"
#include "engine_timer.h"
#include "recording_scene.h"

namespace grub {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using enum MessageType;

TEST(SceneQueue, HandlesMessagesInPostingOrderAlsoThoseThatAHandlerPosts) {
    RecordingScene scene;
    scene.onMessage = [&] {
        scene.stop();                                                    // a scene that is leaving still gets the rest
        if (scene.messages.size() == 3) scene.post(messageOf(Repaint));  // into an empty queue
    };
    EXPECT_FALSE(scene.waitForMessages(0));
    for (const auto type : {Pressed, MouseMoved, Released}) scene.post(messageOf(type));
    EXPECT_TRUE(scene.waitForMessages(0)) << "waiting leaves the messages queued";
    scene.processMessages();
    EXPECT_THAT(typesOf(scene), ElementsAre(Pressed, MouseMoved, Released, Repaint));
    EXPECT_FALSE(scene.waitForMessages(0)) << "an empty queue lets the scene sleep";
}

/// The default frame loop on a clock that jumps from wait to wait; the scene stops itself in the n-th drawing.
class LoopingScene final : public RecordingScene {
public:
    explicit LoopingScene(int drawings) : drawingsLeft_(drawings) {}
    void draw(bool wholeFrame) override {
        EXPECT_TRUE(wholeFrame);
        if (--drawingsLeft_ == 0) stop();
    }

private:
    int drawingsLeft_;
};

TEST(SceneLoop, WakesEveryTenMillisecondsOrForAMessageAndTicksEveryTimer) {
    const platform::testing::HandDrivenClock clock;
    WindowlessApplication application;
    int firings = 0;
    Timer timer(20);
    timer.start(makeCallback([&] { ++firings; }));
    LoopingScene scene(10);
    scene.post(messageOf(Pressed));
    scene.onMessage = [&] {
        EXPECT_EQ(clock.now(), 0ms);
        EXPECT_FALSE(scene.switchTo(7)) << "no scene has this number: the loop goes on";
        EXPECT_TRUE(scene.isRunning());
    };
    scene.stop();  // before it runs: lost
    scene.runDefaultLoop();
    EXPECT_THAT(typesOf(scene), ElementsAre(Pressed));
    EXPECT_EQ(clock.now(), 100ms) << "nine waits, and one more in which the stop is seen";
    EXPECT_EQ(firings, 4);
}

}  // namespace
}  // namespace grub
