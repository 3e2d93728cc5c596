#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "recording_scene.h"

namespace grub {
namespace {

using testing::ElementsAre;
using enum MessageType;

/// Two registered scenes that share a log: the level (1) and the shell (2).
class SceneSwitch : public testing::Test {
protected:
    SceneSwitch() {
        application_.registerScene(1, level_);
        application_.registerScene(2, shell_);
    }

    WindowlessApplication application_;
    SceneLog log_;
    RecordingScene level_{"level", &log_};
    RecordingScene shell_{"shell", &log_};
};

TEST_F(SceneSwitch, ASceneThatSelectsNothingEndsTheProgram) {
    shell_.onRun = [&] { application_.selectScene(1); };
    EXPECT_TRUE(application_.run(2));
    EXPECT_THAT(log_,
                ElementsAre("shell enter", "shell run", "shell leave", "level enter", "level run", "level leave"));
}

TEST_F(SceneSwitch, TheLastSelectionWins) {
    application_.selectScene(2);
    EXPECT_TRUE(application_.run(1));
    EXPECT_THAT(log_, ElementsAre("level enter", "level run", "level leave"));
}

TEST_F(SceneSwitch, ASelectionWhileLeavingStillCounts) {
    shell_.onRun = [&] { application_.selectScene(1); };
    shell_.onLeave = [&] {
        shell_.onLeave = shell_.onRun = nullptr;
        application_.selectScene(2);
    };
    application_.run(2);
    EXPECT_THAT(log_,
                ElementsAre("shell enter", "shell run", "shell leave", "shell enter", "shell run", "shell leave"));
}

TEST_F(SceneSwitch, ASelectionInEnterDoesNotSkipTheVisit) {
    shell_.onEnter = [&] { application_.selectScene(1); };
    application_.run(2);
    EXPECT_THAT(log_,
                ElementsAre("shell enter", "shell run", "shell leave", "level enter", "level run", "level leave"));
}

TEST_F(SceneSwitch, NumbersAreUniqueAlsoWithinABucket) {
    RecordingScene twelfth("twelfth", &log_);  // 12 and 1 share a bucket
    RecordingScene late("late", &log_);
    EXPECT_TRUE(application_.registerScene(12, twelfth));
    EXPECT_FALSE(application_.registerScene(1, late));
    EXPECT_FALSE(application_.selectScene(23));
    application_.run(12);
    application_.run(1);
    EXPECT_THAT(
        log_, ElementsAre("twelfth enter", "twelfth run", "twelfth leave", "level enter", "level run", "level leave"));
}

TEST_F(SceneSwitch, AnUnknownStartSceneRunsNothing) {
    EXPECT_FALSE(application_.run(9));
    EXPECT_TRUE(log_.empty());
}

TEST_F(SceneSwitch, WithoutACurrentSceneMessagesAreDropped) {
    application_.postToCurrentScene(messageOf(Pressed));
    shell_.onRun = [&] { shell_.processMessages(); };
    application_.run(2);
    EXPECT_TRUE(shell_.messages.empty());
}

TEST_F(SceneSwitch, WhatComesDuringTheHandOverWaitsForTheOldScenesNextVisit) {
    shell_.onRun = [&] {
        shell_.onRun = [&] { shell_.processMessages(); };
        application_.selectScene(1);
        application_.postToCurrentScene(messageOf(Pressed));
    };
    level_.onRun = [&] {
        level_.processMessages();
        application_.selectScene(2);
    };
    application_.run(2);
    EXPECT_TRUE(level_.messages.empty());
    EXPECT_THAT(typesOf(shell_), ElementsAre(Pressed));
}

TEST_F(SceneSwitch, TheLastSceneStaysCurrentAfterTheEnd) {
    application_.run(1);
    application_.postToCurrentScene(messageOf(Released));
    level_.processMessages();
    EXPECT_THAT(typesOf(level_), ElementsAre(Released));
}

TEST_F(SceneSwitch, AThousandSwitchesUnderInputLoseNoMessage) {
    constexpr int kSwitches = 1000;
    int switches = 0;
    std::atomic<bool> running = false;
    const auto bounceTo = [&](RecordingScene& scene, std::uint32_t next) {
        scene.onEnter = [&] { running = true; };
        scene.onRun = [&, next] {
            scene.waitForMessages(1);
            scene.processMessages();
            if (++switches < kSwitches) application_.selectScene(next);
        };
    };
    bounceTo(level_, 2);
    bounceTo(shell_, 1);

    std::thread gameThread([&] { application_.run(2); });
    std::atomic<bool> ended = false;
    std::thread waiter([&] {
        gameThread.join();
        ended = true;
    });
    while (!running) std::this_thread::yield();
    std::size_t posted = 0;
    for (; !ended; ++posted) {
        application_.postToCurrentScene(messageOf(Pressed));
        if (posted % 16 == 0) std::this_thread::yield();
    }
    waiter.join();
    level_.processMessages();
    shell_.processMessages();

    EXPECT_EQ(switches, kSwitches);
    EXPECT_EQ(level_.messages.size() + shell_.messages.size(), posted);
}

TEST(ApplicationBase, IsKnownToTheProcessWhileItLives) {
    EXPECT_FALSE(ApplicationBase::exists());
    {
        const WindowlessApplication application;
        EXPECT_EQ(&ApplicationBase::instance(), &application);
    }
    EXPECT_FALSE(ApplicationBase::exists());
}

}  // namespace
}  // namespace grub
