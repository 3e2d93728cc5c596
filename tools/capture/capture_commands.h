#pragma once

#include <CLI/CLI.hpp>

namespace grub {

/// Adds `capture` to the command `sound`, which must be there.
void addCaptureCommands(CLI::App& app);

}  // namespace grub
