#pragma once

namespace grub {

/// Opens and empties "nimbo.log" in the working directory. The program calls this once, before the game starts, so
/// that the log holds the lines of one start only. In a directory that cannot be written, the program runs without a
/// log.
void openLog();

/// Writes one line to the log and flushes it: the text as printf formats it, at most 1023 bytes, then LF. Opens the log
/// if it is not open yet. Any thread may call it, also before main. Pass names from data as arguments, never as
/// `format`.
[[gnu::format(printf, 1, 2)]] void logLine(const char* format, ...);

}  // namespace grub
