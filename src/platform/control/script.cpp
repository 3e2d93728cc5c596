#include "control/script.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <span>
#include <utility>

#include "control/script_lines.h"
#include "desktop/input_map.h"
#include "desktop/messages.h"
#include "desktop/presenter.h"
#include "desktop/screen_picture.h"
#include "desktop/video.h"
#include "desktop/window.h"
#include "dsound/sound_card.h"
#include "files/registry_store.h"
#include "kernel/clock.h"

namespace platform {
namespace {

/// How long the program runs on after the script's last line, and how long it may be without a picture before it, in
/// milliseconds of the hand-driven clock.
constexpr DWORD kAfterLastLine = 1000;
constexpr DWORD kLongestStandstill = 60'000;

/// Carries a script out. Its lines are performed on the window's thread while the game waits: for its picture to be
/// shown, or, with a line of time, for anything at all. So the same script meets the same state of the game each time.
class ScriptPlayer {
public:
    explicit ScriptPlayer(std::vector<ScriptLine> lines) : linesLeft_(lines.size()) {
        for (ScriptLine& line : lines) (isOfTime(line) ? timeLines_ : pictureLines_).push_back(std::move(line));
    }

    void showFrame(std::uint64_t frame) { framesShown_ = frame + 1; }

    /// Performs the lines that are due with this picture.
    void pictureShown(HWND window, std::uint64_t number) {
        if (window_ == nullptr) {
            window_ = window;
            firstPicture_ = clock_.now();
        }
        playSoundUntilNow();
        const std::uint64_t framesShown = framesShown_;
        for (auto line = pictureLines_.begin(); line != pictureLines_.end();) {
            const bool isDue = isDueWith(*line, number, framesShown);
            if (isDue) perform(window, *line);
            line = isDue ? pictureLines_.erase(line) : line + 1;
        }
        if (pictureLines_.empty() && !stays_) SetEvent(picturesDone_);
        SetEvent(pictureCame_);
    }

    [[nodiscard]] std::size_t linesLeft() const { return linesLeft_; }

    /// Performs the lines of time and ends the process when its time has come; runs on a thread of its own.
    [[noreturn]] void watch() {
        awaitPicture();
        for (const ScriptLine& line : timeLines_) performInTime(line);
        while (WaitForSingleObject(picturesDone_, 0) != WAIT_OBJECT_0) awaitPicture();
        Sleep(kAfterLastLine);
        ExitProcess(isScriptDone() ? 0 : 1);  // lines of time are left when the window has gone before them
    }

private:
    static bool isOfTime(const ScriptLine& line) { return line.count == ScriptLine::Count::Milliseconds; }

    void awaitPicture() {
        if (WaitForSingleObject(pictureCame_, kLongestStandstill) == WAIT_OBJECT_0) return;
        std::fprintf(stderr, "script: no picture for %u s of its clock, %zu lines are left\n",
                     kLongestStandstill / 1000, linesLeft());
        ExitProcess(1);
    }

    [[nodiscard]] std::uint64_t sinceFirstPicture() const {
        return static_cast<std::uint64_t>((clock_.now() - firstPicture_).count());
    }

    /// The threads that the line's millisecond has woken, and those that the line before it has, have their turn first:
    /// else it would be chance what they do before the line.
    void performInTime(const ScriptLine& line) {
        for (auto now = sinceFirstPicture(); now < line.number; now = sinceFirstPicture())
            Sleep(static_cast<DWORD>(std::min<std::uint64_t>(line.number - now, kLongestStandstill)));
        clock_.settle();
        const auto window = windowOf(window_);
        if (!window) return;  // the line is left
        callOwner(window, [&]() -> LRESULT {
            playSoundUntilNow();
            perform(window_, line);
            return 0;
        });
    }

    /// A shot waits for the picture of its game frame, an event for that of the frame before.
    static bool isDueWith(const ScriptLine& line, std::uint64_t picture, std::uint64_t framesShown) {
        if (line.count == ScriptLine::Count::Pictures) return line.number <= picture;
        const std::uint64_t wanted =
            line.action == ScriptLine::Action::Shot ? line.number + 1 : std::max<std::uint64_t>(line.number, 1);
        return wanted <= framesShown;
    }

    /// Sound follows the script's clock instead of real time, so that cursors and refills are the same in each run. The
    /// samples are thrown away.
    void playSoundUntilNow() {
        const std::int64_t due = clock_.now().count() * kHandMixedRate / 1000;
        std::array<std::int16_t, 2048> unheard{};
        while (soundFrames_ < due) {
            const auto count = std::min<std::int64_t>(due - soundFrames_, unheard.size() / kHandMixedChannels);
            mixSound(std::span(unheard).first(static_cast<std::size_t>(count) * kHandMixedChannels));
            soundFrames_ += count;
        }
    }

    static void key(Window& window, const std::string& name, bool down) {
        const auto stroke = namedKey(name, down);
        if (const auto message = window.keys.translate(*stroke)) {
            callProcedure(window, message->message, message->virtualKey, 0);
        }
    }

    static void mouse(Window& window, UINT message, const ScriptLine& line) {
        callProcedure(window, message, 0, mousePosition(line.x, line.y));
    }

    static void shot(const Window& window, const std::string& file) {
        if (!writePng(file, window.presenter.latest())) ExitProcess(1);
    }

    void perform(HWND handle, const ScriptLine& line) {
        const auto window = windowOf(handle);
        if (!window) return;
        --linesLeft_;
        switch (line.action) {
            case ScriptLine::Action::KeyDown: return key(*window, line.name, true);
            case ScriptLine::Action::KeyUp: return key(*window, line.name, false);
            case ScriptLine::Action::MouseMove: return mouse(*window, WM_MOUSEMOVE, line);
            case ScriptLine::Action::MousePress: return mouse(*window, WM_LBUTTONDOWN, line);
            case ScriptLine::Action::MouseRelease: return mouse(*window, WM_LBUTTONUP, line);
            case ScriptLine::Action::Shot: return shot(*window, line.name);
            case ScriptLine::Action::Close: callProcedure(*window, WM_CLOSE, 0, 0); return;
            case ScriptLine::Action::Stay: stays_ = true; return;
        }
    }

    HandDrivenClock clock_;
    std::vector<ScriptLine> pictureLines_;  // that are left, those of game frames too; the window's thread only
    std::vector<ScriptLine> timeLines_;     // all of them, also those performed
    std::atomic<std::size_t> linesLeft_;
    /// Number of game frames that pictures have shown, that of the next too.
    std::atomic<std::uint64_t> framesShown_ = 0;
    HWND window_ = nullptr;                     // of the first picture, and when it came: set before pictureCame_
    std::chrono::milliseconds firstPicture_{};  // on the script's clock
    bool stays_ = false;
    std::int64_t soundFrames_ = 0;  // mixed so far
    HANDLE picturesDone_ = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    HANDLE pictureCame_ = CreateEventA(nullptr, FALSE, FALSE, nullptr);
};

std::optional<std::string> readText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

ScriptPlayer* thePlayer = nullptr;  // of the process, never destroyed; its clock stays too

DWORD WINAPI watchScript(LPVOID player) { static_cast<ScriptPlayer*>(player)->watch(); }

}  // namespace

bool playScript(const std::string& path) {
    const auto text = readText(path);
    std::string error = "cannot be read";
    auto lines = text ? parseScript(*text, error) : std::nullopt;
    if (!lines) {
        std::fprintf(stderr, "%s: %s\n", path.c_str(), error.c_str());
        return false;
    }
    useDummyDrivers();
    setSoundOutput(SoundOutput::ByHand);
    useRegistryFile("registry.txt");
    thePlayer = new ScriptPlayer(std::move(*lines));
    observePictures([](HWND window, std::uint64_t number) { thePlayer->pictureShown(window, number); });
    return CreateThread(nullptr, 0, watchScript, thePlayer, 0, nullptr) != nullptr;
}

void showScriptFrame(std::uint64_t frame) {
    if (thePlayer) thePlayer->showFrame(frame);
}

bool isScriptDone() {
    if (!thePlayer || thePlayer->linesLeft() == 0) return true;
    std::fprintf(stderr, "script: the program ended before %zu of its lines\n", thePlayer->linesLeft());
    return false;
}

}  // namespace platform
