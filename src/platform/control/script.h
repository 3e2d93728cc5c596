#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// One line of a script: the player's action when picture number `tick` (from 1) has gone to the screen.
struct ScriptLine {
    enum class Action { KeyDown, KeyUp, MouseMove, MousePress, MouseRelease, Shot, Close };
    std::uint64_t tick = 0;
    Action action = Action::Close;
    std::string name;  // of the key, or of the PNG file
    int x = 0;         // of the mouse, in pixels of the picture
    int y = 0;
};

/// Reads a script. One action a line: `TICK down|up NAME`, `TICK move X Y`, `TICK press|release X Y`,
/// `TICK shot FILE.png`, `TICK close`. A line that starts with "#" is a comment. Lines come back ordered by tick, equal
/// ticks as written. When a line is not understood the result is empty and `error` names the line.
[[nodiscard]] std::optional<std::vector<ScriptLine>> parseScript(std::string_view text, std::string& error);

/// Makes this process play the script at `path`: dummy drivers, a clock that moves as fast as the program lets it,
/// sound that is mixed with that clock, picture by picture. One second of that clock after the last line the process
/// ends with exit code 0; with 1 when a shot cannot be written or no picture comes for a minute of that clock. Call it
/// on the main thread before any window exists. False after one line on standard error when the script cannot be read.
bool playScript(const std::string& path);

}  // namespace platform
