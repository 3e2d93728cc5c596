#pragma once

#include <string>
#include <vector>

namespace grub {

/// Starts the game that lies beside this program, with these arguments, and waits for it: its exit code, 128 and
/// the signal's number when it was killed, or -1 when it cannot be started.
int runGameProgram(const std::vector<std::string>& arguments);

}  // namespace grub
