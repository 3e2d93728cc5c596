#pragma once

namespace CLI {
class App;
}

namespace grub {

/// Adds the commands pack, list, extract and verify. One that fails says so in a line on standard error and throws
/// CLI::RuntimeError with the exit code 1.
void addPackCommands(CLI::App& app);

}  // namespace grub
