#include "control/script.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <span>
#include <utility>

#include "desktop/input_map.h"
#include "desktop/presenter.h"
#include "desktop/screen_picture.h"
#include "desktop/video.h"
#include "desktop/window.h"
#include "dsound/sound_card.h"
#include "kernel/clock.h"

namespace platform {
namespace {

using Action = ScriptLine::Action;

enum class Operands { None, Key, Point, File };

struct Verb {
    std::string_view word;
    Action action;
    Operands operands;
};
constexpr std::array kVerbs{
    Verb{"down", Action::KeyDown, Operands::Key},           Verb{"up", Action::KeyUp, Operands::Key},
    Verb{"move", Action::MouseMove, Operands::Point},       Verb{"press", Action::MousePress, Operands::Point},
    Verb{"release", Action::MouseRelease, Operands::Point}, Verb{"shot", Action::Shot, Operands::File},
    Verb{"close", Action::Close, Operands::None},
};

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Takes the first word off `rest`.
std::string_view takeWord(std::string_view& rest) {
    const auto word = rest.substr(0, rest.find_first_of(" \t"));
    rest = trimmed(rest.substr(word.size()));
    return word;
}

template <class Number>
bool parseNumber(std::string_view text, Number& number) {
    const auto* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end;
}

/// What is wrong with the operands; empty when they are in `line`.
std::string takeOperands(Operands operands, std::string_view rest, ScriptLine& line) {
    switch (operands) {
        case Operands::None: return rest.empty() ? "" : "nothing is wanted after \"close\"";
        case Operands::Key:
            line.name = rest;
            return namedKey(rest, true) ? "" : "no key is named \"" + line.name + "\"";
        case Operands::Point: {
            const bool numbers = parseNumber(takeWord(rest), line.x) && parseNumber(takeWord(rest), line.y);
            return numbers && rest.empty() ? "" : "two whole numbers are wanted, X and Y";
        }
        case Operands::File: {
            line.name = rest;
            constexpr std::string_view kEnd = ".png";
            return rest.size() > kEnd.size() && rest.ends_with(kEnd) ? "" : "a file name ending in .png is wanted";
        }
    }
    return "";
}

/// What is wrong with the text of one line; empty when it is in `line`.
std::string parseLine(std::string_view text, ScriptLine& line) {
    if (text == "stay") {
        line.count = ScriptLine::Count::Pictures;
        line.action = Action::Stay;
        return "";
    }
    auto number = takeWord(text);
    if (number == "picture") {
        line.count = ScriptLine::Count::Pictures;
        number = takeWord(text);
    }
    const std::uint64_t first = line.count == ScriptLine::Count::Pictures ? 1 : 0;
    if (!parseNumber(number, line.number) || line.number < first) {
        return std::string("the number of a ") + (first == 1 ? "picture, from 1," : "game frame, from 0,") +
               " is wanted instead of \"" + std::string(number) + "\"";
    }
    const auto word = takeWord(text);
    const auto* verb = std::ranges::find(kVerbs, word, &Verb::word);
    if (verb == kVerbs.end()) {
        return "down, up, move, press, release, shot or close is wanted instead of \"" + std::string(word) + "\"";
    }
    line.action = verb->action;
    return takeOperands(verb->operands, text, line);
}

/// How long the program runs on after the script's last line, and how long it may be without a picture before it, in
/// milliseconds of the hand-driven clock.
constexpr DWORD kAfterLastLine = 1000;
constexpr DWORD kLongestStandstill = 60'000;

/// Carries a script out. Its lines are performed on the window's thread while the thread that presented the picture
/// waits, so that the same script meets the same state of the game each time.
class ScriptPlayer {
public:
    explicit ScriptPlayer(std::vector<ScriptLine> lines) : lines_(std::move(lines)) {}

    void showFrame(std::uint64_t frame) { framesShown_ = frame + 1; }

    /// Performs the lines that are due with this picture.
    void pictureShown(HWND window, std::uint64_t number) {
        playSoundUntilNow();
        const std::uint64_t framesShown = framesShown_;
        for (auto line = lines_.begin(); line != lines_.end();) {
            const bool isDue = isDueWith(*line, number, framesShown);
            if (isDue) perform(window, *line);
            line = isDue ? lines_.erase(line) : line + 1;
        }
        linesLeft_ = lines_.size();
        if (lines_.empty() && !stays_) SetEvent(allPerformed_);
        SetEvent(pictureCame_);
    }

    [[nodiscard]] std::size_t linesLeft() const { return linesLeft_; }

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
    /// A shot waits for the picture of its game frame, an event for that of the frame before.
    static bool isDueWith(const ScriptLine& line, std::uint64_t picture, std::uint64_t framesShown) {
        if (line.count == ScriptLine::Count::Pictures) return line.number <= picture;
        const std::uint64_t wanted =
            line.action == Action::Shot ? line.number + 1 : std::max<std::uint64_t>(line.number, 1);
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
    std::vector<ScriptLine> lines_;  // that are left
    std::atomic<std::size_t> linesLeft_ = lines_.size();
    std::atomic<std::uint64_t> framesShown_ =
        0;  // number of game frames that pictures have shown, that of the next too
    bool stays_ = false;
    std::int64_t soundFrames_ = 0;  // mixed so far
    HANDLE allPerformed_ = CreateEventA(nullptr, TRUE, FALSE, nullptr);
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

std::optional<std::vector<ScriptLine>> parseScript(std::string_view text, std::string& error) {
    std::vector<ScriptLine> lines;
    for (int number = 1; !text.empty(); ++number) {
        const auto end = std::min(text.find('\n'), text.size());
        const auto content = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (content.empty() || content.front() == '#') continue;
        const auto fault = parseLine(content, lines.emplace_back());
        if (fault.empty()) continue;
        error = "line " + std::to_string(number) + ": " + fault;
        return std::nullopt;
    }
    std::ranges::stable_sort(lines, {}, &ScriptLine::number);
    return lines;
}

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
