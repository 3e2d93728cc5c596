#pragma once

namespace grub {

/// Whether the program starts in a window. A capital F anywhere in the command line asks for the full screen. Where the
/// player's settings exist in the registry they decide instead, and the full-screen one is used up: it is written back
/// as off, so that a full screen that cannot be left is not met twice. The menu writes it again.
[[nodiscard]] bool startsWindowed(const char* commandLine);

}  // namespace grub
