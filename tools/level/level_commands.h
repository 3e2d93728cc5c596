#pragma once

namespace CLI {
class App;
}

namespace grub {

/// Adds `level` with its subcommands compile, show, picture and blocks. One that fails says so in a line on standard
/// error and throws CLI::RuntimeError with the exit code 1.
void addLevelCommands(CLI::App& app);

}  // namespace grub
