#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// One line of a script. It counts what the program calls game frames, or the pictures that go to the screen.
struct ScriptLine {
    enum class Action { KeyDown, KeyUp, MouseMove, MousePress, MouseRelease, Shot, Close, Stay };
    enum class Count { GameFrames, Pictures };
    Count count = Count::GameFrames;
    std::uint64_t number = 0;  // of the game frame (from 0) or of the picture (from 1)
    Action action = Action::Close;
    std::string name;  // of the key, or of the PNG file
    int x = 0;         // of the mouse, in pixels of the picture
    int y = 0;
};

/// Reads a script. One action a line: `FRAME down|up NAME`, `FRAME move X Y`, `FRAME press|release X Y`,
/// `FRAME shot FILE.png`, `FRAME close`; `picture N` in place of FRAME counts pictures. What the player does in a line
/// of a game frame comes before this frame; a shot shows it. The word `stay` alone lets the program end by itself. A
/// line that starts with "#" is a comment. Lines come back ordered by their numbers, equal ones as written. When a line
/// is not understood the result is empty and `error` names the line.
[[nodiscard]] std::optional<std::vector<ScriptLine>> parseScript(std::string_view text, std::string& error);

/// Makes this process play the script at `path`: dummy drivers, a clock that moves as fast as the program lets it,
/// sound that is mixed with that clock, picture by picture. One second of that clock after the last line the process
/// ends with exit code 0, unless the script stays; with 1 when a shot cannot be written or no picture comes for a
/// minute of that clock. Call it on the main thread before any window exists. False after one line on standard error
/// when the script cannot be read.
bool playScript(const std::string& path);

/// Tells the script that the next picture shows this game frame. Any thread. Has no effect without a script.
void showScriptFrame(std::uint64_t frame);

/// Whether the script, if there is one, has performed all its lines. False after one line on standard error that counts
/// the lines that are left. For the end of the program, when no more picture can come.
[[nodiscard]] bool isScriptDone();

}  // namespace platform
