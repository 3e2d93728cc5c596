#pragma once

namespace CLI {
class App;
}

namespace grub {

/// Adds `capture` to the command `sound`, which must be there.
void addCaptureCommands(CLI::App& app);

}  // namespace grub
