#include "application.h"

#include <gmock/gmock.h>

#include <optional>
#include <vector>

#include "control/call_controls.h"
#include "control/testing.h"
#include "dsound/sound_card.h"
#include "engine_services.h"
#include "game_window.h"
#include "input_messages.h"
#include "recording_scene.h"

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

TEST(ApplicationStart, WithoutAWindowOrAThreadNothingRuns) {
    for (const Call call : {Call::RegisterClass, Call::CreateWindow, Call::ResumeThread}) {
        const FailingCall failing(call);
        RunningGame game;
        EXPECT_EQ(game.application.window() != nullptr, call == Call::ResumeThread);
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

TEST(ApplicationStart, WithoutARendererTheProcessEndsWithOne) {
    const auto startWithoutDevice = [] {
        platform::testing::DeviceControls device;
        device.fail(platform::Call::CreateDevice, D3DERR_NOTAVAILABLE);
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
    constexpr LPARAM kPosition = 599 << 16 | 799;
    const Row rows[] = {
        {"paint", WM_PAINT, 0, 0, Repaint, Window},
        {"close", WM_CLOSE, 0, 0, CloseRequest, Window},
        {"erase", WM_ERASEBKGND, 0, 1, {}, Window},
        {"key down", WM_KEYDOWN, VK_LEFT, 0, Pressed, Keyboard},
        {"key up", WM_KEYUP, VK_LEFT, 0, Released, Keyboard},
        {"Alt key down", WM_SYSKEYDOWN, 'Z', 0, {}, Keyboard},
        {"the first of the mouse", WM_MOUSEMOVE, 0, 0, MouseMoved, Mouse},
        {"left down", WM_LBUTTONDOWN, 0, 0, Pressed, Mouse},
        {"the last of the mouse", WM_RBUTTONDBLCLK, 0, 0, Pressed, Mouse},
        {"middle down", WM_MBUTTONDOWN, 0, 0, {}, Mouse},
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
            EXPECT_EQ(SendMessageA(game.application.window(), row.message, row.wParam, kPosition), row.result);
            game.scene.processMessages();
            ASSERT_EQ(game.scene.messages.size(), row.told ? 1U : 0U);
            if (!row.told) continue;
            const SceneMessage& told = *game.scene.messages[0];
            EXPECT_EQ(told.type, *row.told);
            ASSERT_EQ(told.source, row.source);
            if (row.source == Keyboard) {
                EXPECT_EQ(static_cast<const KeyMessage&>(told).keyCode, KeyLeft);
            }
            if (row.source == Mouse) {
                EXPECT_EQ(static_cast<const MouseMessage&>(told).y, 599);
            }
        }
    };
    EXPECT_TRUE(game.application.run(kScene)) << "closing must not destroy the window by itself";
}

TEST(GameWindow, IsCentredByItsPictureAndFramedOutsideItOrFillsTheScreen) {
    const platform::testing::DesktopSize desktop(1600, 1200);
    const int frame = GetSystemMetrics(SM_CYEDGE) + GetSystemMetrics(SM_CXBORDER);
    const int caption = GetSystemMetrics(SM_CYCAPTION);
    struct Row {
        bool windowed;
        WindowPlacement place;
    };
    const Row rows[] = {
        {true, {0, 0x00CA0000, 400, 300, 800 + 2 * frame, 600 + caption + 2 * frame}},
        {false, {WS_EX_TOPMOST, 0x80880000, 0, 0, 800, 600}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.windowed);
        const WindowPlacement place = placementFor({nullptr, nullptr, "Grubaway", 800, 600, row.windowed});
        EXPECT_EQ(place.extendedStyle, row.place.extendedStyle);
        EXPECT_EQ(place.style, row.place.style);
        EXPECT_EQ(place.x, row.place.x);
        EXPECT_EQ(place.y, row.place.y);
        EXPECT_EQ(place.width, row.place.width);
        EXPECT_EQ(place.height, row.place.height);
    }
}

}  // namespace
}  // namespace grub
