#pragma once

namespace grub {

/// Empties "nimbo.log" in the working directory. The program does so once, before its entry point, so that every start
/// leaves a log of its own; a directory that cannot be written stops nothing.
void openLog();

/// Writes one line to the log and flushes it: the text as printf formats it, at most 1023 bytes, then LF. Opens the log
/// when nobody has yet. May be called from any thread and before main. Names from data are arguments, never `format`.
[[gnu::format(printf, 1, 2)]] void logLine(const char* format, ...);

}  // namespace grub
