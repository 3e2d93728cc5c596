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

TEST(SceneSwitch, TheSceneThatWasSelectedLastRunsNext) {
    struct Row {
        const char* what;
        std::function<void(TwoScenes&)> selections;
        std::uint32_t start;
        const char* log;
    };
    const Row rows[] = {
        {"a scene that selects none ends the program", [](auto& /*scenes*/) {}, 2, "shell(run) "},
        {"in run", [](auto& s) { s.shell.onRun = [&s] { s.application.selectScene(1); }; }, 2,
         "shell(run) level(run) "},
        {"in enter, which does not skip the visit",
         [](auto& s) { s.shell.onEnter = [&s] { s.application.selectScene(1); }; }, 2, "shell(run) level(run) "},
        {"in leave, and the scene itself",
         [](auto& s) {
             s.shell.onRun = [&s] { s.application.selectScene(1); };
             s.shell.onLeave = [&s] {
                 s.shell.onLeave = s.shell.onRun = nullptr;
                 s.application.selectScene(2);
             };
         },
         2, "shell(run) shell(run) "},
        {"twice before the start", [](auto& s) { s.application.selectScene(2); }, 1, "level(run) "},
        {"an unknown one changes nothing",
         [](auto& s) {
             s.shell.onRun = [&s] {
                 s.application.selectScene(1);
                 EXPECT_FALSE(s.application.selectScene(12));  // 12 and 1 share a bucket
             };
         },
         2, "shell(run) level(run) "},
        {"an unknown start runs nothing", [](auto& /*scenes*/) {}, 9, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        TwoScenes scenes;
        row.selections(scenes);
        EXPECT_EQ(scenes.application.run(row.start), row.start != 9);
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
    EXPECT_THAT(typesOf(shell), ElementsAre(Pressed));
    application.postToCurrentScene(messageOf(Released));  // the last scene stays current after the end
    shell.processMessages();
    EXPECT_THAT(typesOf(shell), ElementsAre(Pressed, Released));
}

TEST(SceneSwitch, AThousandSwitchesUnderInputLoseNoMessage) {
    constexpr int kSwitches = 1000;
    TwoScenes scenes;
    int switches = 0;
    std::atomic<bool> running = false;
    const auto bounceTo = [&](RecordingScene& scene, std::uint32_t next) {
        scene.onEnter = [&] { running = true; };
        scene.onRun = [&, next] {
            scene.waitForMessages(1);
            scene.processMessages();
            if (++switches < kSwitches) scenes.application.selectScene(next);
        };
    };
    bounceTo(scenes.level, 2);
    bounceTo(scenes.shell, 1);

    std::atomic<bool> ended = false;
    std::thread gameThread([&] {
        scenes.application.run(2);
        ended = true;
    });
    while (!running) std::this_thread::yield();
    std::size_t posted = 0;
    for (; !ended; ++posted) {
        scenes.application.postToCurrentScene(messageOf(Pressed));
        if (posted % 16 == 0) std::this_thread::yield();
    }
    gameThread.join();
    scenes.level.processMessages();
    scenes.shell.processMessages();

    EXPECT_EQ(switches, kSwitches);
    EXPECT_EQ(scenes.level.messages.size() + scenes.shell.messages.size(), posted);
}

}  // namespace
}  // namespace grub
