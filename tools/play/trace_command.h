#pragma once

namespace CLI {
class App;
}

namespace grub {

/// Adds the command trace; see addPlayCommands.
void addTraceCommand(CLI::App& app);

}  // namespace grub
