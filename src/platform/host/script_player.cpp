#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <span>
#include <utility>

#include "host.h"
#include "mouse_map.h"
#include "picture_observer.h"
#include "png_file.h"
#include "script.h"
#include "sound_output.h"
#include "testing.h"
#include "window.h"

namespace platform {
namespace {

/// How long the program goes on after the script's last line, and how long it may go without a picture before that, in
/// milliseconds of the hand-driven clock.
constexpr DWORD kAfterLastLine = 1000;
constexpr DWORD kLongestStandstill = 60'000;

/// Carries a script out. Its lines are performed on the window's thread while the thread that presented the picture
/// waits, so that the same script meets the same state of the game each time.
class ScriptPlayer {
public:
    explicit ScriptPlayer(std::vector<ScriptLine> lines) : lines_(std::move(lines)) {}

    /// Performs the lines of this picture.
    void pictureShown(HWND window, std::uint64_t number) {
        playSoundUntilNow();
        while (next_ < lines_.size() && lines_[next_].tick <= number) perform(window, lines_[next_++]);
        if (next_ == lines_.size()) SetEvent(allPerformed_);
        SetEvent(pictureCame_);
    }

    /// Ends the process when its time has come; runs on a thread of its own.
    [[noreturn]] void watch() {
        while (WaitForSingleObject(allPerformed_, 0) != WAIT_OBJECT_0) {
            if (WaitForSingleObject(pictureCame_, kLongestStandstill) == WAIT_OBJECT_0) continue;
            std::fprintf(stderr, "script: no picture for %u s of its clock, lines are left\n",
                         kLongestStandstill / 1000);
            ExitProcess(1);
        }
        Sleep(kAfterLastLine);
        ExitProcess(0);
    }

private:
    /// Sound goes on with the script's clock and not with the world's, so that cursors and refills are the same in each
    /// run; nobody hears it.
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

    static void perform(HWND handle, const ScriptLine& line) {
        const auto window = windowOf(handle);
        if (!window) return;
        switch (line.action) {
            case ScriptLine::Action::KeyDown: return key(*window, line.name, true);
            case ScriptLine::Action::KeyUp: return key(*window, line.name, false);
            case ScriptLine::Action::MouseMove: return mouse(*window, WM_MOUSEMOVE, line);
            case ScriptLine::Action::MousePress: return mouse(*window, WM_LBUTTONDOWN, line);
            case ScriptLine::Action::MouseRelease: return mouse(*window, WM_LBUTTONUP, line);
            case ScriptLine::Action::Shot: return shot(*window, line.name);
            case ScriptLine::Action::Close: callProcedure(*window, WM_CLOSE, 0, 0); return;
        }
    }

    testing::HandDrivenClock clock_;
    std::vector<ScriptLine> lines_;
    std::size_t next_ = 0;
    std::int64_t soundFrames_ = 0;  // mixed so far
    HANDLE allPerformed_ = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    HANDLE pictureCame_ = CreateEventA(nullptr, FALSE, FALSE, nullptr);
};

std::optional<std::string> readText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

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
    static auto* player = new ScriptPlayer(std::move(*lines));  // stays for the rest of the process, and its clock too
    observePictures([](HWND window, std::uint64_t number) { player->pictureShown(window, number); });
    return CreateThread(nullptr, 0, watchScript, player, 0, nullptr) != nullptr;
}

}  // namespace platform
