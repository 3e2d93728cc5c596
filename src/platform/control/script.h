#pragma once

#include <cstdint>
#include <string>

namespace platform {

/// Makes this process play the script at `path` (script_lines.h): dummy drivers, a clock that moves as fast as the
/// program lets it, sound that is mixed with that clock, and the registry in `registry.txt` of the working directory,
/// since the player's own may say anything. Call it on the main thread before any window exists. False after one line
/// on standard error when the script cannot be read.
///
/// What the player does in a line of a game frame comes before this frame; a shot shows it. A line of a picture comes
/// with this picture. A line of time comes last in its millisecond, when every thread waits, and a shot shows the
/// latest picture. Lines of different counts do not wait for each other.
///
/// One second of the clock after the last line the process ends with exit code 0, unless the script stays; with 1 when
/// a shot cannot be written, or when no picture comes for a minute of that clock and no line of time is ahead.
bool playScript(const std::string& path);

/// Tells the script that the next picture shows this game frame. Any thread. Has no effect without a script.
void showScriptFrame(std::uint64_t frame);

/// Whether the script, if there is one, has performed all its lines. False after one line on standard error that counts
/// the lines that are left. For the end of the program, when no more line can come.
[[nodiscard]] bool isScriptDone();

}  // namespace platform
