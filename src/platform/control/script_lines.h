#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// One line of a script: what the player does, and when.
struct ScriptLine {
    enum class Action { KeyDown, KeyUp, MouseMove, MousePress, MouseRelease, Shot, Close, Stay };
    /// Game frames are what the program calls so, pictures go to the screen, milliseconds of the script's clock pass
    /// whether or not pictures come.
    enum class Count { GameFrames, Pictures, Milliseconds };
    Count count = Count::GameFrames;
    std::uint64_t number = 0;  // of the game frame (from 0), of the picture (from 1), of ms since the first picture
    Action action = Action::Close;
    std::string name;  // of the key, or of the PNG file
    int x = 0;         // of the mouse, in pixels of the picture
    int y = 0;
};

/// Reads a script. One action a line: `FRAME down|up NAME`, `FRAME move X Y`, `FRAME press|release X Y`,
/// `FRAME shot FILE.png`, `FRAME close`; `picture N` in place of FRAME counts pictures, `time MS` counts milliseconds.
/// The word `stay` alone lets the program end by itself. A line that starts with "#" is a comment. Lines come back
/// ordered by their numbers, equal ones as written. When a line is not understood the result is empty and `error` names
/// the line.
[[nodiscard]] std::optional<std::vector<ScriptLine>> parseScript(std::string_view text, std::string& error);

}  // namespace platform
