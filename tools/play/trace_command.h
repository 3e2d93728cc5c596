#pragma once

#include <CLI/CLI.hpp>

namespace grub {

/// Adds the command trace; see addPlayCommands.
void addTraceCommand(CLI::App& app);

}  // namespace grub
