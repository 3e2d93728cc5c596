#pragma once

namespace CLI {
class App;
}

namespace grub {

/// Adds the commands play, record and trace. One that fails says so in a line on standard error and throws
/// CLI::RuntimeError: play with 1 when a game differs and 2 when it cannot be played, trace with 1 for a refused level
/// and 2 for anything else.
void addPlayCommands(CLI::App& app);

}  // namespace grub
