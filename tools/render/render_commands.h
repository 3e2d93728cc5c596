#pragma once

namespace CLI {
class App;
}

namespace grub {

/// Adds `render` with list, picture, all and sheet. A command that fails prints a line on standard error and throws
/// CLI::RuntimeError with its exit code.
void addRenderCommands(CLI::App& app);

}  // namespace grub
