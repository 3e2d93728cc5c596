#include "control/script.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <span>
#include <utility>

#include "desktop/input_map.h"
#include "desktop/picture.h"
#include "desktop/presenter.h"
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
    const auto tick = takeWord(text);
    if (!parseNumber(tick, line.tick) || line.tick == 0) {
        return "a picture's number, from 1, is wanted instead of \"" + std::string(tick) + "\"";
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

    HandDrivenClock clock_;
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
    std::ranges::stable_sort(lines, {}, &ScriptLine::tick);
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
    static auto* player = new ScriptPlayer(std::move(*lines));  // stays for the rest of the process, and its clock too
    observePictures([](HWND window, std::uint64_t number) { player->pictureShown(window, number); });
    return CreateThread(nullptr, 0, watchScript, player, 0, nullptr) != nullptr;
}

}  // namespace platform
