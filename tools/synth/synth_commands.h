#pragma once

namespace CLI {
class App;
}

namespace grub {

/// Adds `sound` with render, sheet and measure, and `music` with render. A command that fails prints a line on standard
/// error and throws CLI::RuntimeError with its exit code.
void addSynthCommands(CLI::App& app);

}  // namespace grub
