#include "control/script.h"

#include <dsound.h>
#include <gtest/gtest.h>
#include <png.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "control/testing.h"
#include "desktop/presenter.h"
#include "game_thread.h"
#include "test_window.h"

namespace {

namespace fs = std::filesystem;
using platform::parseScript;
using Action = platform::ScriptLine::Action;
using Count = platform::ScriptLine::Count;

TEST(Script, IsOneActionALine) {
    std::string error;
    const auto lines = parseScript(
        "# walk\n"
        "1 down Left\r\n"
        "  # to the wall\n"
        "\n"
        "  picture 9\tup Left\n"
        "2 move -5 700\n"
        "3 press 1 2\n"
        "3 release 1 2\n"
        "4 down Keypad 5\n"
        "5 shot a #b.png\n"
        "5 close",
        error);
    ASSERT_TRUE(lines) << error;
    struct Row {
        std::uint64_t number;
        Action action;
        std::string name;
        int x, y;
    };
    const std::vector<Row> expected{
        {1, Action::KeyDown, "Left", 0, 0},     {2, Action::MouseMove, "", -5, 700},
        {3, Action::MousePress, "", 1, 2},      {3, Action::MouseRelease, "", 1, 2},
        {4, Action::KeyDown, "Keypad 5", 0, 0}, {5, Action::Shot, "a #b.png", 0, 0},
        {5, Action::Close, "", 0, 0},           {9, Action::KeyUp, "Left", 0, 0},
    };
    ASSERT_EQ(lines->size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const auto& line = (*lines)[i];
        EXPECT_EQ(line.number, expected[i].number) << i;
        EXPECT_EQ(line.count == Count::Pictures, line.number == 9) << i;
        EXPECT_EQ(line.action, expected[i].action) << i;
        EXPECT_EQ(line.name, expected[i].name) << i;
        EXPECT_EQ(line.x, expected[i].x) << i;
        EXPECT_EQ(line.y, expected[i].y) << i;
    }
}

TEST(Script, NamesTheLineThatIsNotUnderstood) {
    struct Row {
        const char* text;
        const char* error;
    };
    for (const auto& [text, expected] : {
             Row{"picture 0 close", "line 1: the number of a picture, from 1, is wanted instead of \"0\""},
             Row{"\n\n-1 close", "line 3: the number of a game frame, from 0, is wanted instead of \"-1\""},
             Row{"99999999999999999999 close",
                 "line 1: the number of a game frame, from 0, is wanted instead of \"99999999999999999999\""},
             Row{"close", "line 1: the number of a game frame, from 0, is wanted instead of \"close\""},
             Row{"1", "line 1: down, up, move, press, release, shot or close is wanted instead of \"\""},
             Row{"1 jump", "line 1: down, up, move, press, release, shot or close is wanted instead of \"jump\""},
             Row{"1 down", "line 1: no key is named \"\""},
             Row{"1 down Lft", "line 1: no key is named \"Lft\""},
             Row{"1 move 3", "line 1: two whole numbers are wanted, X and Y"},
             Row{"1 move 3 4 5", "line 1: two whole numbers are wanted, X and Y"},
             Row{"1 press 3.5 4", "line 1: two whole numbers are wanted, X and Y"},
             Row{"1 shot", "line 1: a file name ending in .png is wanted"},
             Row{"1 shot .png", "line 1: a file name ending in .png is wanted"},
             Row{"1 shot a.bmp", "line 1: a file name ending in .png is wanted"},
             Row{"1 close now", "line 1: nothing is wanted after \"close\""},
         }) {
        std::string error;
        EXPECT_FALSE(parseScript(text, error)) << text;
        EXPECT_EQ(error, expected);
    }
}

/// A small game in a process of its own: it presents a picture each 40 ms, writes the keys it hears and the time they
/// came at on standard error, and ends when its window is closed.
void playInThisProcess(const std::string& script, bool presents) {
    if (!platform::playScript(script)) ExitProcess(3);
    LARGE_INTEGER now{};
    const TestWindow window([&](HWND handle, const TestWindow::Heard& heard) {
        if (heard.message == WM_KEYDOWN || heard.message == WM_KEYUP || heard.message == WM_LBUTTONDOWN) {
            QueryPerformanceCounter(&now);
            std::fprintf(stderr, "%x %x at %d;", heard.message, static_cast<unsigned>(heard.wParam),
                         static_cast<int>(now.QuadPart / 10'000));
        }
        return TestWindow::defaultProcedure(handle, heard);
    });
    const GameThread game([&] {
        const std::vector<std::uint32_t> pixels(800UL * 600, 0x00FF8040);
        while (!presents) Sleep(1000);
        platform::showScriptFrame(0);
        for (int frame = 1; platform::showFrame(window.handle(), pixels.data(), 800, 600, 3200); ++frame) {
            Sleep(40);
            platform::showScriptFrame(static_cast<std::uint64_t>(frame));
        }
    });
    TestWindow::loop();
    QueryPerformanceCounter(&now);
    std::fprintf(stderr, "closed at %d", static_cast<int>(now.QuadPart / 10'000));
    ExitProcess(5);
}

/// The same with a sound that a thread refills on its events, as a game does; the number of refills comes at the end.
void playSoundInThisProcess(const std::string& script) {
    if (!platform::playScript(script)) ExitProcess(3);
    IDirectSound8* sound = nullptr;
    if (DirectSoundCreate8(nullptr, &sound, nullptr) != DS_OK) ExitProcess(4);
    const TestWindow window(TestWindow::defaultProcedure);
    sound->SetCooperativeLevel(window.handle(), DSSCL_PRIORITY);
    WAVEFORMATEX format{WAVE_FORMAT_PCM, 1, 10'000, 20'000, 2, 16, 0};
    const DSBUFFERDESC description{sizeof(DSBUFFERDESC), DSBCAPS_CTRLPOSITIONNOTIFY, 2000, 0, &format, {}};
    IDirectSoundBuffer* buffer = nullptr;
    sound->CreateSoundBuffer(&description, &buffer, nullptr);
    const HANDLE passed = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    void* notify = nullptr;
    buffer->QueryInterface(IID_IDirectSoundNotify, &notify);
    const DSBPOSITIONNOTIFY at[]{{999, passed}, {1999, passed}};
    static_cast<IDirectSoundNotify*>(notify)->SetNotificationPositions(2, at);
    int refills = 0;
    const GameThread streaming([&] {
        while (WaitForSingleObject(passed, INFINITE) == WAIT_OBJECT_0) ++refills;
    });
    buffer->Play(0, 0, DSBPLAY_LOOPING);
    const GameThread game([&] {
        const std::vector<std::uint32_t> pixels(800UL * 600);
        while (platform::showFrame(window.handle(), pixels.data(), 800, 600, 3200)) Sleep(40);
    });
    TestWindow::loop();
    std::fprintf(stderr, "%d refills", refills);
    ExitProcess(5);
}

/// Death tests of this style start the test program again, so both processes must mean the same directory.
class ScriptDeathTest : public testing::Test {
protected:
    ScriptDeathTest() {
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        fs::create_directories(directory_);
    }
    void TearDown() override { fs::remove_all(directory_); }

    [[nodiscard]] std::string file(const std::string& name) const { return (directory_ / name).string(); }
    [[nodiscard]] std::string script(const std::string& text) const {
        std::ofstream(file("script.txt")) << text;
        return file("script.txt");
    }

private:
    fs::path directory_ = fs::current_path() / testing::UnitTest::GetInstance()->current_test_info()->name();
};

/// The colour of every pixel of an RGB PNG of 800 x 600; 0 when it is something else.
std::uint32_t onlyColourOf(const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, path.c_str()) == 0) return 0;
    image.format = PNG_FORMAT_RGB;
    std::vector<png_byte> bytes(PNG_IMAGE_SIZE(image));
    if (png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr) == 0) return 0;
    if (image.width != 800 || image.height != 600) return 0;
    for (std::size_t i = 3; i < bytes.size(); ++i) {
        if (bytes[i] != bytes[i - 3]) return 0;
    }
    return std::uint32_t{bytes[0]} << 16U | std::uint32_t{bytes[1]} << 8U | bytes[2];
}

TEST_F(ScriptDeathTest, PlaysItsLinesAtTheirFramesAndPicturesAndEndsOneSecondLater) {
    const auto path = script("1 down Left\n5 up Left\npicture 5 press 3 4\n");
    EXPECT_EXIT(playInThisProcess(path, true), testing::ExitedWithCode(0), "^100 25 at 0;101 25 at 160;201 0 at 160;$");
}

TEST_F(ScriptDeathTest, ClosesTheWindowWhichMayEndTheProgramEarlier) {
    const auto path = script("3 close\n");
    EXPECT_EXIT(playInThisProcess(path, true), testing::ExitedWithCode(5), "^closed at 80$");
}

TEST_F(ScriptDeathTest, LetsSoundGoOnWithItsOwnClock) {
    const auto path = script("picture 26 close\n");  // one second, and a half of the buffer is 50 ms
    EXPECT_EXIT(playSoundInThisProcess(path), testing::ExitedWithCode(5), "^20 refills$");
}

TEST_F(ScriptDeathTest, SavesThePictureThatWasHandedOver) {
    const auto path = script("2 shot " + file("shot.png") + "\n");
    EXPECT_EXIT(playInThisProcess(path, true), testing::ExitedWithCode(0), "^$");
    EXPECT_EQ(onlyColourOf(file("shot.png")), 0x00FF8040U);
}

TEST_F(ScriptDeathTest, FailsWhenAShotCannotBeWritten) {
    const auto path = script("2 shot " + file("no/such/folder.png") + "\n");
    EXPECT_EXIT(playInThisProcess(path, true), testing::ExitedWithCode(1), "folder.png: cannot be written");
}

TEST_F(ScriptDeathTest, FailsWhenTheProgramShowsNothing) {
    const auto path = script("2 close\n");
    EXPECT_EXIT(playInThisProcess(path, false), testing::ExitedWithCode(1), "no picture for 60 s of its clock");
}

TEST_F(ScriptDeathTest, IsRefusedInOneLine) {
    const auto path = script("1 hop\n");
    EXPECT_EXIT(playInThisProcess(path, true), testing::ExitedWithCode(3), "script.txt: line 1: .*\"hop\"\n$");
    EXPECT_EXIT(playInThisProcess("/nowhere", true), testing::ExitedWithCode(3), "^/nowhere: cannot be read\n$");
}

}  // namespace
