#include "scene.h"

#include <gmock/gmock.h>

#include "engine_timer.h"
#include "recording_scene.h"
#include "refusing_heap.h"
#include "testing.h"

namespace grub {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using enum MessageType;

TEST(SceneQueue, HandlesMessagesInPostingOrderAndLeavesTheSceneAsleep) {
    RecordingScene scene;
    for (const auto type : {Pressed, MouseMoved, Released}) scene.post(messageOf(type));
    scene.processMessages();
    EXPECT_THAT(typesOf(scene), ElementsAre(Pressed, MouseMoved, Released));
    EXPECT_FALSE(scene.waitForMessages(0));
}

TEST(SceneQueue, WaitingForMessagesLeavesThemQueued) {
    RecordingScene scene;
    EXPECT_FALSE(scene.waitForMessages(0));
    scene.post(messageOf(Pressed));
    EXPECT_TRUE(scene.waitForMessages(0));
    scene.processMessages();
    EXPECT_THAT(typesOf(scene), ElementsAre(Pressed));
}

TEST(SceneQueue, AMessageThatAHandlerPostsIsHandledInTheSameCall) {
    RecordingScene scene;
    scene.onMessage = [&] {
        if (scene.messages.size() == 1) scene.post(messageOf(Repaint));
    };
    scene.post(messageOf(Pressed));
    scene.post(messageOf(Released));
    scene.processMessages();
    EXPECT_THAT(typesOf(scene), ElementsAre(Pressed, Released, Repaint));
}

TEST(SceneQueue, TheRestOfABurstStillReachesASceneThatIsLeaving) {
    WindowlessApplication application;
    RecordingScene scene;
    application.registerScene(1, scene);
    scene.onMessage = [&] { scene.switchTo(1); };
    for (const auto type : {CloseRequest, Pressed, Released}) scene.post(messageOf(type));
    scene.processMessages();
    EXPECT_THAT(typesOf(scene), ElementsAre(CloseRequest, Pressed, Released));
    EXPECT_FALSE(scene.waitForMessages(0));
}

TEST(SceneQueue, WithoutMemoryAMessageIsDroppedButTheSceneWakes) {
    // Earlier tests may have left any number of free nodes in the pool: one scene takes them all first.
    RecordingScene hoarder;
    std::size_t posts = 0;
    RecordingScene scene;
    const auto message = messageOf(Pressed);
    {
        const RefusingHeap heap(1'000'000);
        for (; !heap.hasRefused(); ++posts) hoarder.post(message);
        scene.post(message);
    }
    EXPECT_TRUE(scene.waitForMessages(0));
    scene.processMessages();
    EXPECT_THAT(typesOf(scene), ElementsAre());
    hoarder.processMessages();
    EXPECT_EQ(hoarder.messages.size(), posts - 1) << "all but the one that found no memory";
}

TEST(SceneQueue, ADestroyedSceneDropsWhatNobodyRead) {
    struct Marked final : SceneMessage {
        explicit Marked(bool& gone) : SceneMessage(Pressed, MessageSource::Window), gone_(gone) {}
        ~Marked() override { gone_ = true; }
        bool& gone_;
    };
    bool gone = false;
    {
        RecordingScene scene;
        scene.post(SharedRef<SceneMessage>(new Marked(gone)));
        EXPECT_FALSE(gone);
    }
    EXPECT_TRUE(gone);
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

TEST(SceneLoop, WakesEveryTenMillisecondsWithoutMessages) {
    const platform::testing::HandDrivenClock clock;
    LoopingScene scene(5);
    scene.runDefaultLoop();
    EXPECT_EQ(clock.now(), 60ms);  // the stop is seen after one more wait
}

TEST(SceneLoop, AMessageCutsTheWaitShort) {
    const platform::testing::HandDrivenClock clock;
    LoopingScene scene(1);
    scene.post(messageOf(Pressed));
    scene.onMessage = [&] { EXPECT_EQ(clock.now(), 0ms); };
    scene.runDefaultLoop();
    EXPECT_THAT(typesOf(scene), ElementsAre(Pressed));
    EXPECT_EQ(clock.now(), 10ms);
}

TEST(SceneLoop, TicksEveryRunningTimer) {
    const platform::testing::HandDrivenClock clock;
    int firings = 0;
    Timer timer(20);
    timer.start(makeCallback([&] { ++firings; }));
    LoopingScene scene(10);
    scene.runDefaultLoop();
    EXPECT_EQ(firings, 5);
}

TEST(SceneLoop, AStopBeforeItRunsIsLost) {
    const platform::testing::HandDrivenClock clock;
    LoopingScene scene(3);
    scene.stop();
    scene.runDefaultLoop();
    EXPECT_EQ(clock.now(), 40ms);
}

TEST(SceneLoop, SwitchingToAnUnknownSceneChangesNothing) {
    WindowlessApplication application;
    const platform::testing::HandDrivenClock clock;
    LoopingScene scene(2);
    scene.post(messageOf(Pressed));
    scene.onMessage = [&] {
        EXPECT_FALSE(scene.switchTo(7));
        EXPECT_TRUE(scene.isRunning());
    };
    scene.runDefaultLoop();
    EXPECT_EQ(clock.now(), 20ms) << "the loop should have gone on to its second drawing";
}

}  // namespace
}  // namespace grub
