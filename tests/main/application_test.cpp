#include "application.h"

#include <gmock/gmock.h>

#include <optional>
#include <thread>

#include "engine_services.h"
#include "game_window.h"
#include "input_messages.h"
#include "recording_scene.h"
#include "sound_output.h"
#include "testing.h"
#include "testing_d3d8.h"

namespace grub {
namespace {

using platform::testing::Call;
using platform::testing::FailingCall;
using testing::ElementsAre;
using enum MessageType;

constexpr std::uint32_t kScene = 1;

/// The application as the game makes it, with one scene.
struct RunningGame {
    RunningGame() { application.registerScene(kScene, scene); }

    RecordingScene scene;  // outlives the application, which may still be running it
    Application application{nullptr, 800, 600, "Grubaway", true, nullptr};
};

TEST(ApplicationStart, WithoutAWindowNothingRuns) {
    for (const Call call : {Call::RegisterClass, Call::CreateWindow}) {
        const FailingCall failing(call);
        RunningGame game;
        EXPECT_EQ(game.application.window(), nullptr);
        EXPECT_FALSE(game.application.run(kScene));
        EXPECT_EQ(EngineServices::renderer(), nullptr);
    }
}

TEST(ApplicationStart, AnUnknownSceneLeavesTheServicesToTheDestructor) {
    {
        RunningGame game;
        EXPECT_FALSE(game.application.run(9));
        EXPECT_NE(EngineServices::renderer(), nullptr);
        EXPECT_NE(EngineServices::keyboard(), nullptr);
    }
    EXPECT_EQ(EngineServices::renderer(), nullptr);
    EXPECT_EQ(EngineServices::keyboard(), nullptr);
}

TEST(ApplicationStart, AGameThreadThatDoesNotStartEndsTheRun) {
    const FailingCall failing(Call::ResumeThread);
    RunningGame game;
    EXPECT_FALSE(game.application.run(kScene));
    EXPECT_EQ(EngineServices::renderer(), nullptr);
}

TEST(ApplicationStart, WithoutARendererTheProcessEndsWithOne) {
    const auto startWithoutDevice = [] {
        platform::testing::DeviceControls device;
        device.fail(platform::DeviceFunction::CreateDevice, D3DERR_NOTAVAILABLE);
        RunningGame game;
        game.application.run(kScene);
    };
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_EXIT(startWithoutDevice(), testing::ExitedWithCode(1), "DirectX error: .*D3DERR_NOTAVAILABLE");
}

TEST(ApplicationRun, ScenesFindTheServicesOnAThreadOfTheirOwn) {
    RunningGame game;
    const DWORD mainThread = GetCurrentThreadId();
    bool allThere = false;
    DWORD sceneThread = mainThread;
    game.scene.onRun = [&] {
        sceneThread = GetCurrentThreadId();
        allThere = EngineServices::renderer()->isReady() && EngineServices::mouse() && EngineServices::keyboard() &&
                   EngineServices::soundDevice()->isReady();
    };
    EXPECT_TRUE(game.application.run(kScene));
    EXPECT_TRUE(allThere);
    EXPECT_NE(sceneThread, mainThread);
    EXPECT_EQ(EngineServices::renderer(), nullptr);
    EXPECT_EQ(EngineServices::mouse(), nullptr);
    EXPECT_EQ(EngineServices::soundDevice(), nullptr);
}

TEST(ApplicationRun, WithoutASoundCardTheGameGoesOnInSilenceAfterOneBox) {
    platform::setSoundOutput(platform::SoundOutput::None);
    const platform::testing::MessageBoxRecorder boxes;
    RunningGame game;
    bool silent = false;
    game.scene.onRun = [&] { silent = !EngineServices::soundDevice()->isReady(); };
    EXPECT_TRUE(game.application.run(kScene));
    EXPECT_TRUE(silent);
    EXPECT_EQ(boxes.boxes().size(), 1U);
    platform::setSoundOutput(platform::SoundOutput::Card);
}

TEST(ApplicationRun, StartsAndStopsAThousandTimes) {
    platform::setSoundOutput(platform::SoundOutput::ByHand);  // the system's device takes 40 ms to open and close
    int ended = 0;
    for (int round = 0; round < 1000; ++round) {
        RunningGame game;
        game.scene.onRun = [&] { SendMessageA(game.application.window(), WM_ERASEBKGND, 0, 0); };
        if (game.application.run(kScene)) ++ended;
    }
    EXPECT_EQ(ended, 1000);
    platform::setSoundOutput(platform::SoundOutput::Card);
}

TEST(ApplicationRun, SendingToAWindowThatGoesAwayReturns) {
    RunningGame game;
    game.scene.onRun = [&] {
        PostMessageA(game.application.window(), kDestroyWindowMessage, 0, 0);
        while (SendMessageA(game.application.window(), WM_ERASEBKGND, 0, 0) == 1) std::this_thread::yield();
    };
    EXPECT_TRUE(game.application.run(kScene));
}

TEST(ApplicationRun, TheModeIsSwitchedFromTheGameThread) {
    RunningGame game;
    std::vector<bool> fullScreen;
    bool allSwitched = true;
    game.scene.onRun = [&] {
        for (const bool windowed : {true, false, false, true}) {
            allSwitched &= game.application.setWindowed(windowed);
            fullScreen.push_back(game.application.renderer()->isFullScreen());
        }
    };
    const platform::testing::DesktopSize desktop(1600, 1200);
    game.application.run(kScene);
    EXPECT_TRUE(allSwitched);
    EXPECT_THAT(fullScreen, ElementsAre(false, true, true, false));
}

TEST(WindowProcedure, AnswersEachMessageAndTellsTheSceneWhatItShouldKnow) {
    struct Row {
        const char* what;
        UINT message;
        WPARAM wParam;
        LRESULT result;
        std::optional<MessageType> told;
        MessageSource source;
    };
    using enum MessageSource;
    const Row rows[] = {
        {"paint", WM_PAINT, 0, 0, Repaint, Window},
        {"close", WM_CLOSE, 0, 0, CloseRequest, Window},
        {"erase", WM_ERASEBKGND, 0, 1, {}, Window},
        {"key down", WM_KEYDOWN, 'Z', 0, Pressed, Keyboard},
        {"key up", WM_KEYUP, 'Z', 0, Released, Keyboard},
        {"Alt key down", WM_SYSKEYDOWN, 'Z', 0, {}, Keyboard},
        {"move", 0x200, 0, 0, MouseMoved, Mouse},
        {"left down", 0x201, 0, 0, Pressed, Mouse},
        {"left up", 0x202, 0, 0, Released, Mouse},
        {"left double", 0x203, 0, 0, Pressed, Mouse},
        {"right down", 0x204, 0, 0, Pressed, Mouse},
        {"right up", 0x205, 0, 0, Released, Mouse},
        {"right double", 0x206, 0, 0, Pressed, Mouse},
        {"middle down", 0x207, 0, 0, {}, Mouse},
        {"middle up", 0x208, 0, 0, {}, Mouse},
        {"test device", WM_USER + 2, 0, S_OK, {}, Window},
        {"reset device", WM_USER + 3, 0, S_OK, {}, Window},
        {"unknown", WM_USER + 9, 0, 0, {}, Window},
    };
    RunningGame game;
    game.scene.onRun = [&] {
        for (const Row& row : rows) {
            SCOPED_TRACE(row.what);
            game.scene.processMessages();
            game.scene.messages.clear();
            EXPECT_EQ(SendMessageA(game.application.window(), row.message, row.wParam, 0), row.result);
            game.scene.processMessages();
            ASSERT_EQ(game.scene.messages.size(), row.told ? 1U : 0U);
            if (!row.told) continue;
            EXPECT_EQ(game.scene.messages[0]->type, *row.told);
            EXPECT_EQ(game.scene.messages[0]->source, row.source);
        }
    };
    EXPECT_TRUE(game.application.run(kScene)) << "closing must not destroy the window by itself";
}

TEST(WindowProcedure, PassesTheKeyAndThePosition) {
    RunningGame game;
    game.scene.onRun = [&] {
        SendMessageA(game.application.window(), WM_KEYDOWN, VK_LEFT, 0);
        SendMessageA(game.application.window(), WM_LBUTTONDOWN, 0, 599 << 16 | 799);
        game.scene.processMessages();
    };
    game.application.run(kScene);
    const auto& messages = game.scene.messages;
    ASSERT_GE(messages.size(), 2U);
    EXPECT_EQ(static_cast<const KeyMessage&>(*messages[messages.size() - 2]).keyCode, KeyLeft);
    const auto& mouse = static_cast<const MouseMessage&>(*messages.back());
    EXPECT_EQ(mouse.x, 799);
    EXPECT_EQ(mouse.y, 599);
}

TEST(GameWindow, IsCentredByItsPictureAndFramedOutsideIt) {
    const platform::testing::DesktopSize desktop(1600, 1200);
    const int frame = GetSystemMetrics(SM_CYEDGE) + GetSystemMetrics(SM_CXBORDER);
    const WindowPlacement place = placementFor({nullptr, nullptr, "Grubaway", 800, 600, true});
    EXPECT_EQ(place.extendedStyle, 0U);
    EXPECT_EQ(place.style, 0x00CA0000U);
    EXPECT_EQ(place.x, 400);
    EXPECT_EQ(place.y, 300);
    EXPECT_EQ(place.width, 800 + 2 * frame);
    EXPECT_EQ(place.height, 600 + GetSystemMetrics(SM_CYCAPTION) + 2 * frame);
}

TEST(GameWindow, FillsItsPictureOnTheFullScreen) {
    const WindowPlacement place = placementFor({nullptr, nullptr, "Grubaway", 800, 600, false});
    EXPECT_EQ(place.extendedStyle, WS_EX_TOPMOST);
    EXPECT_EQ(place.style, 0x80880000U);
    EXPECT_EQ(place.x, 0);
    EXPECT_EQ(place.y, 0);
    EXPECT_EQ(place.width, 800);
    EXPECT_EQ(place.height, 600);
}

TEST(GameWindow, HasRoomForThePictureInsideItsFrame) {
    const platform::testing::DesktopSize desktop(1600, 1200);
    const RunningGame game;
    const auto size = platform::testing::windowSize(game.application.window());
    ASSERT_TRUE(size);
    EXPECT_EQ(size->x, 800);
    EXPECT_EQ(size->y, 600);
}

}  // namespace
}  // namespace grub
