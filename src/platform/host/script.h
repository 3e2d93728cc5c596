#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// One line of a script: what the player does when the `tick`-th picture (from 1) has been handed to the screen.
struct ScriptLine {
    enum class Action { KeyDown, KeyUp, MouseMove, MousePress, MouseRelease, Shot, Close };
    std::uint64_t tick = 0;
    Action action = Action::Close;
    std::string name;  // of the key, or of the PNG file
    int x = 0;         // of the mouse, in pixels of the picture
    int y = 0;
};

/// Reads a script. One action a line: `TICK down|up NAME`, `TICK move X Y`, `TICK press|release X Y`,
/// `TICK shot FILE.png`, `TICK close`; "#" starts a comment. Lines come back ordered by tick, equal ticks as written.
/// Nothing, and one line in `error` that names the place, when a line is not understood.
[[nodiscard]] std::optional<std::vector<ScriptLine>> parseScript(std::string_view text, std::string& error);

/// Makes this process play the script at `path`: dummy drivers, a clock that moves as fast as the program lets it,
/// sound that is mixed with that clock, picture by picture; one more second of that clock after the last line, then
/// exit code 0 (1 when a shot could not be written or its lines never come due). Call it on the main thread before any
/// window exists. False after one line on standard error when the script cannot be read.
bool playScript(const std::string& path);

}  // namespace platform
