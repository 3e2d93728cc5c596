#include "application.h"

#include <gtest/gtest.h>

#include <optional>

#include "control/call_controls.h"
#include "control/testing.h"
#include "dsound/sound_card.h"
#include "engine_services.h"
#include "input_messages.h"
#include "recording_scene.h"

namespace grub {
namespace {

using platform::testing::Call;
using platform::testing::FailingCall;
using enum MessageType;

constexpr std::uint32_t kScene = 1;

/// The application as the game makes it, with one scene.
struct RunningGame {
    RunningGame() { application.registerScene(kScene, scene); }

    RecordingScene scene;  // outlives the application, which may still be running it
    Application application{nullptr, 800, 600, "Grubaway", true, nullptr};
};

TEST(ApplicationStart, WithoutAWindowOrAThreadNothingRuns) {
    for (const Call call : {Call::RegisterClass, Call::CreateWindow, Call::ResumeThread}) {
        const FailingCall failing(call);
        RunningGame game;
        EXPECT_EQ(game.application.window() != nullptr, call == Call::ResumeThread);
        EXPECT_FALSE(game.application.run(kScene));
        EXPECT_EQ(EngineServices::renderer(), nullptr);
    }
}

TEST(ApplicationRun, ScenesFindTheServicesOnAThreadOfTheirOwn) {
    for (const auto output : {platform::SoundOutput::None, platform::SoundOutput::Card}) {
        platform::setSoundOutput(output);
        const platform::testing::MessageBoxRecorder boxes;
        RunningGame game;
        bool allThere = false;
        game.scene.onRun = [&, caller = GetCurrentThreadId()] {
            EXPECT_NE(GetCurrentThreadId(), caller);
            EXPECT_EQ(EngineServices::soundDevice()->isReady(), output == platform::SoundOutput::Card);
            allThere = EngineServices::renderer()->isReady() && EngineServices::mouse() && EngineServices::keyboard();
        };
        EXPECT_TRUE(game.application.run(kScene));
        EXPECT_TRUE(allThere) << "without a sound card too";
        EXPECT_EQ(boxes.boxes().size(), output == platform::SoundOutput::Card ? 0U : 1U);
        EXPECT_EQ(EngineServices::renderer(), nullptr);
    }
}

TEST(ApplicationRun, StartsAndStopsAThousandTimes) {
    platform::setSoundOutput(platform::SoundOutput::ByHand);  // the system's device takes 40 ms to open and close
    for (int round = 0; round < 1000; ++round) {
        RunningGame game;
        game.scene.onRun = [&] { SendMessageA(game.application.window(), WM_ERASEBKGND, 0, 0); };
        ASSERT_TRUE(game.application.run(kScene));
    }
    platform::setSoundOutput(platform::SoundOutput::Card);
}

TEST(ApplicationRun, TheModeIsSwitchedFromTheGameThread) {
    RunningGame game;
    game.scene.onRun = [&] {
        for (const bool windowed : {true, false, false, true}) {
            EXPECT_TRUE(game.application.setWindowed(windowed));
            EXPECT_EQ(game.application.renderer()->isFullScreen(), !windowed);
        }
    };
    const platform::testing::DesktopSize desktop(1600, 1200);
    EXPECT_TRUE(game.application.run(kScene));
}

TEST(WindowProcedure, AnswersEachMessageAndTellsTheSceneWhatItShouldKnow) {
    using enum MessageSource;
    struct Row {
        UINT message;
        WPARAM wParam;
        LRESULT result;
        std::optional<MessageType> told;
        MessageSource source;
    };
    const Row rows[] = {
        {WM_PAINT, 0, 0, Repaint, Window},
        {WM_CLOSE, 0, 0, CloseRequest, Window},
        {WM_ERASEBKGND, 0, 1, {}, Window},
        {WM_KEYDOWN, VK_LEFT, 0, Pressed, Keyboard},
        {WM_KEYUP, VK_LEFT, 0, Released, Keyboard},
        {WM_SYSKEYDOWN, 'Z', 0, {}, Keyboard},
        {WM_MOUSEMOVE, 0, 0, MouseMoved, Mouse},
        {WM_RBUTTONDBLCLK, 0, 0, Pressed, Mouse},
        {WM_USER + 2, 0, S_OK, {}, Window},  // test device
        {WM_USER + 3, 0, S_OK, {}, Window},  // reset device
        {WM_USER + 9, 0, 0, {}, Window},
    };
    constexpr LPARAM kPosition = 599 << 16 | 799;
    RunningGame game;
    game.scene.onRun = [&] {
        for (const Row& row : rows) {
            SCOPED_TRACE(row.message);
            game.scene.processMessages();
            game.scene.messages.clear();
            EXPECT_EQ(SendMessageA(game.application.window(), row.message, row.wParam, kPosition), row.result);
            game.scene.processMessages();
            ASSERT_EQ(game.scene.messages.size(), row.told ? 1U : 0U);
            if (!row.told) continue;
            const SceneMessage& told = *game.scene.messages[0];
            EXPECT_EQ(told.type, *row.told);
            ASSERT_EQ(told.source, row.source);
            EXPECT_TRUE(row.source != Keyboard || static_cast<const KeyMessage&>(told).keyCode == KeyLeft);
            EXPECT_TRUE(row.source != Mouse || static_cast<const MouseMessage&>(told).y == 599);
        }
    };
    EXPECT_TRUE(game.application.run(kScene)) << "closing must not destroy the window by itself";
}

}  // namespace
}  // namespace grub
