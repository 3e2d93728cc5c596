#include <gmock/gmock.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include "recording_scene.h"

namespace grub {
namespace {

using testing::ElementsAre;
using enum MessageType;

/// Two registered scenes that share a log: the level (1) and the shell (2).
struct TwoScenes {
    TwoScenes() {
        application.registerScene(1, level);
        application.registerScene(2, shell);
    }

    WindowlessApplication application;
    std::string log;
    RecordingScene level{"level", &log};
    RecordingScene shell{"shell", &log};
};

/// What a scene asks for, where it asks, and who then runs.
struct Selection {
    const char* what;
    std::function<void()> RecordingScene::*where;  // in the shell, at its first visit
    std::uint32_t asked;
    const char* log;
};

TEST(SceneSwitch, TheSceneThatWasSelectedLastRunsNext) {
    for (const Selection& row :
         {Selection{"in enter, which does not skip the visit", &RecordingScene::onEnter, 1, "shell(run) level(run) "},
          {"in run", &RecordingScene::onRun, 1, "shell(run) level(run) "},
          {"in leave, and the scene itself", &RecordingScene::onLeave, 2, "shell(run) shell(run) "},
          {"an unknown one", &RecordingScene::onRun, 12, "shell(run) "}}) {  // 12 and 1 share a bucket
        SCOPED_TRACE(row.what);
        TwoScenes scenes;
        scenes.shell.*row.where = [&] {
            EXPECT_EQ(scenes.application.selectScene(row.asked), row.asked != 12);
            scenes.shell.*row.where = nullptr;
        };
        scenes.application.selectScene(1);  // the start replaces it
        EXPECT_TRUE(scenes.application.run(2));
        EXPECT_FALSE(scenes.application.run(9)) << "an unknown start runs nothing";
        EXPECT_EQ(scenes.log, row.log);
    }
}

TEST(SceneSwitch, NumbersAreUniqueAlsoWithinABucket) {
    TwoScenes scenes;
    RecordingScene twelfth("twelfth", &scenes.log);  // 12 and 1 share a bucket
    EXPECT_TRUE(scenes.application.registerScene(12, twelfth));
    EXPECT_FALSE(scenes.application.registerScene(1, twelfth));
    scenes.application.run(12);
    scenes.application.run(1);
    EXPECT_EQ(scenes.log, "twelfth(run) level(run) ");
}

TEST(SceneSwitch, MessagesGoToTheSceneThatIsCurrentAndWaitThere) {
    TwoScenes scenes;
    auto& [application, log, level, shell] = scenes;
    application.postToCurrentScene(messageOf(CloseRequest));  // dropped: no scene is current yet
    shell.onRun = [&] {
        shell.onRun = [&] { shell.processMessages(); };
        application.selectScene(1);
        application.postToCurrentScene(messageOf(Pressed));  // during the hand-over: waits for the next visit
    };
    level.onRun = [&] {
        level.processMessages();
        application.selectScene(2);
    };
    application.run(2);
    EXPECT_THAT(typesOf(level), ElementsAre());
    application.postToCurrentScene(messageOf(Released));  // the last scene stays current after the end
    shell.processMessages();
    EXPECT_THAT(typesOf(shell), ElementsAre(Pressed, Released));
}

TEST(SceneSwitch, AThousandSwitchesUnderInputLoseNoMessage) {
    TwoScenes scenes;
    std::atomic<int> switches = 0;
    const auto bounceTo = [&](RecordingScene& scene, std::uint32_t next) {
        scene.onRun = [&, next] {
            scene.waitForMessages(1);
            scene.processMessages();
            if (++switches < 1000) scenes.application.selectScene(next);
        };
    };
    bounceTo(scenes.level, 2);
    bounceTo(scenes.shell, 1);
    std::thread gameThread([&] { scenes.application.run(2); });
    while (switches == 0) std::this_thread::yield();
    std::size_t posted = 0;
    for (; switches < 1000; ++posted) {
        scenes.application.postToCurrentScene(messageOf(Pressed));
        if (posted % 16 == 0) std::this_thread::yield();
    }
    gameThread.join();
    scenes.level.processMessages();
    scenes.shell.processMessages();
    EXPECT_EQ(scenes.level.messages.size() + scenes.shell.messages.size(), posted);
}

}  // namespace
}  // namespace grub
