#include <CLI/CLI.hpp>

#include "level_commands.h"
#include "pack_commands.h"
#include "render_commands.h"

// Commands report every failure themselves; what still escapes is a mistake in here, and shall end loudly.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argc, char** argv) {
    CLI::App app("Makes and inspects Grubaway's content", "grubtool");
    app.require_subcommand(1);
    grub::addPackCommands(app);
    grub::addLevelCommands(app);
    grub::addRenderCommands(app);
    CLI11_PARSE(app, argc, argv);
    return 0;
}
