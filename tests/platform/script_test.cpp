#include "control/script.h"

#include <gtest/gtest.h>
#include <png.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "control/script_lines.h"
#include "desktop/presenter.h"
#include "game_thread.h"
#include "opened_card.h"
#include "test_window.h"

namespace {

namespace fs = std::filesystem;
using platform::parseScript;
using platform::ScriptLine;

TEST(Script, IsOneActionALine) {
    std::string error;
    const auto lines = parseScript(
        "# walk\n1 down Left\r\n  # to the wall\n\n  picture 9\tup Left\ntime 3  up X\n2 move -5 700\n4 down Keypad "
        "5\n5 shot a "
        "#b.png\n"
        "5 close",
        error);
    ASSERT_TRUE(lines) << error;
    std::string read;
    for (const ScriptLine& line : *lines) {
        read += line.count == ScriptLine::Count::Pictures ? "picture " : "";
        read += line.count == ScriptLine::Count::Milliseconds ? "time " : "";
        read += std::to_string(line.number) + " " + line.name + " " + std::to_string(line.x) + " " +
                std::to_string(line.y) + "\n";
    }
    EXPECT_EQ(read,
              "1 Left 0 0\n2  -5 700\ntime 3 X 0 0\n4 Keypad 5 0 0\n5 a #b.png 0 0\n5  0 0\npicture 9 Left 0 0\n");
}

TEST(Script, NamesTheLineThatIsNotUnderstood) {
    struct Row {
        const char* text;
        const char* error;
    };
    for (const auto& [text, expected] : {
             Row{"picture 0 close", "line 1: the number of a picture, from 1, is wanted instead of \"0\""},
             Row{"\n\n-1 close", "line 3: the number of a game frame, from 0, is wanted instead of \"-1\""},
             Row{"time -1 close", "line 1: a number of milliseconds, from 0, is wanted instead of \"-1\""},
             Row{"1 jump", "line 1: down, up, move, press, release, shot or close is wanted instead of \"jump\""},
             Row{"1 down Lft", "line 1: no key is named \"Lft\""},
             Row{"1 move 3 4 5", "line 1: two whole numbers are wanted, X and Y"},
             Row{"1 shot .png", "line 1: a file name ending in .png is wanted"},
             Row{"1 close now", "line 1: nothing is wanted after \"close\""},
         }) {
        std::string error;
        EXPECT_FALSE(parseScript(text, error)) << text;
        EXPECT_EQ(error, expected);
    }
}

/// What the game does that a script plays in a process of its own.
enum class Game { Plays, ShowsNothing, PlaysSound, AnswersWithSound };

bool showPicture(HWND window) {
    static const std::vector<std::uint32_t> pixels(800UL * 600, 0x00FF8040);
    return platform::showFrame(window, pixels.data(), 800, 600, 3200);
}

/// Shows a game frame each 40 ms from time 0 on.
void showFrames(HWND window) {
    platform::showScriptFrame(0);
    for (std::uint64_t frame = 1; showPicture(window); ++frame) {
        Sleep(40);
        platform::showScriptFrame(frame);
    }
}

/// Shows a picture at 30 ms and another one for each key, which takes a while that the script's clock does not see.
void answerKeys(HWND window, HANDLE keyCame) {
    Sleep(30);
    while (showPicture(window)) {
        std::fprintf(stderr, "shown;");
        WaitForSingleObject(keyCame, INFINITE);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

/// Counts what a looping buffer of 100 ms asks for: two refills in each round.
void countRefills(int& refills) {
    static const OpenedCard card;
    static const BufferRef buffer = card.silence(waveFormat(1, 16, 44'100), 8820);
    static const ScopedEvent passed;
    const DSBPOSITIONNOTIFY at[]{{4409, passed.handle}, {8819, passed.handle}};
    setEvents(*buffer, at);
    buffer->Play(0, 0, DSBPLAY_LOOPING);
    while (WaitForSingleObject(passed.handle, INFINITE) == WAIT_OBJECT_0) ++refills;
}

int clockNow() {
    LARGE_INTEGER now{};
    QueryPerformanceCounter(&now);
    return static_cast<int>(now.QuadPart / 10'000);
}

/// Writes keys and clicks, with the time they came at, on standard error. Ends the process when the window is closed:
/// with exit code 5, or with 6 when lines are left.
void run(const std::string& script, Game game) {
    if (!platform::playScript(script)) ExitProcess(3);
    const ScopedEvent keyCame;
    const TestWindow window([&](HWND handle, const TestWindow::Heard& heard) {
        if (heard.message >= WM_KEYDOWN && heard.message <= WM_LBUTTONUP) {
            std::fprintf(stderr, "%x %x %x at %d;", heard.message, static_cast<unsigned>(heard.wParam),
                         static_cast<unsigned>(heard.lParam), clockNow());
        }
        if (heard.message == WM_KEYDOWN || heard.message == WM_KEYUP) SetEvent(keyCame.handle);
        return TestWindow::defaultProcedure(handle, heard);
    });
    int refills = 0;
    const GameThread sound([&] {
        if (game == Game::PlaysSound || game == Game::AnswersWithSound) countRefills(refills);
    });
    const GameThread pictures([&] {
        while (game == Game::ShowsNothing) Sleep(1000);
        if (game == Game::AnswersWithSound) answerKeys(window.handle(), keyCame.handle);
        showFrames(window.handle());
    });
    TestWindow::loop();
    std::fprintf(stderr, "closed at %d, %d refills\n", clockNow(), refills);
    ExitProcess(platform::isScriptDone() ? 5 : 6);
}

/// The first pixel of a picture of 800 x 600 pixels; empty when the file is something else.
std::vector<png_byte> firstPixelOf(const char* file) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, file) == 0 || image.width != 800 || image.height != 600) return {};
    image.format = PNG_FORMAT_RGB;
    std::vector<png_byte> bytes(PNG_IMAGE_SIZE(image));
    png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr);
    return {bytes.begin(), bytes.begin() + 3};
}

TEST(ScriptDeathTest, PlaysAGameToItsEnd) {
    struct Row {
        const char* what;
        const char* script;
        Game game;
        int exitCode;
        const char* standardError;
    };
    const Row rows[]{
        {"lines come at their frames and pictures, the end one second later",
         "1 down Left\n5 up Left\npicture 5 press 3 4\n6 move 5 6\n7 release 7 8\n2 shot script_test/shot.png\n",
         Game::Plays, 0, "^100 25 0 at 0;101 25 0 at 160;201 0 40003 at 160;200 0 60005 at 200;202 0 80007 at 240;$"},
        {"a closed window ends the program earlier", "3 close\n", Game::Plays, 5, "^closed at 80, 0 refills\n$"},
        {"lines are left", "3 close\n9 up X\n", Game::Plays, 6, "script: the program ended before 1 of its lines\n$"},
        {"sound goes on with the script's clock", "picture 26 close\n", Game::PlaysSound, 5, "at 1000, 20 refills\n$"},
        {"lines of time need no pictures, and each waits for the answer to the one before",
         "time 90000 close\ntime 70 down X\ntime 70 up X\npicture 1 down A\n", Game::AnswersWithSound, 5,
         "^100 41 0 at 30;shown;shown;100 58 0 at 100;shown;101 58 0 at 100;shown;closed at 90030, 1800 refills\n$"},
        {"the last line of time has come, no picture follows", "time 70 down X\npicture 9 close\n",
         Game::AnswersWithSound, 1, "no picture for 60 s of its clock, 1 lines are left\n$"},
        {"a shot that cannot be written", "2 shot script_test/no/such/folder.png\n", Game::Plays, 1,
         "folder.png: cannot be written"},
        {"a program that shows nothing", "2 close\n", Game::ShowsNothing, 1, "no picture for 60 s of its clock"},
        {"a line that is not understood", "1 hop\n", Game::Plays, 3, "^script_test/play.txt: line 1: .*\"hop\"\n$"},
    };
    // Each row starts the test program again, which writes the same files on its way to the row.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    fs::create_directories("script_test");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        std::ofstream("script_test/play.txt") << row.script;
        EXPECT_EXIT(run("script_test/play.txt", row.game), testing::ExitedWithCode(row.exitCode), row.standardError);
    }
    EXPECT_EXIT(run("/nowhere", Game::Plays), testing::ExitedWithCode(3), "^/nowhere: cannot be read\n$");
    EXPECT_EQ(firstPixelOf("script_test/shot.png"), (std::vector<png_byte>{0xFF, 0x80, 0x40}));
    fs::remove_all("script_test");
}

}  // namespace
