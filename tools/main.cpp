#include <CLI/CLI.hpp>
#include <cstdio>

#include "capture_commands.h"
#include "level_commands.h"
#include "pack_commands.h"
#include "play_commands.h"
#include "render_commands.h"
#include "synth_commands.h"

namespace {

constexpr int kWrongUsage = 2;

// Help ends well; of wrong words one line tells, without advice.
int reportEnd(const CLI::App& app, const CLI::ParseError& end) {
    if (end.get_exit_code() == 0) return app.exit(end);
    std::fprintf(stderr, "grubtool: %s\n", end.what());
    return kWrongUsage;
}

}  // namespace

// Commands report every failure themselves; what still escapes is a mistake in here, and shall end loudly.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argc, char** argv) {
    CLI::App app("Makes and inspects Grubaway's content", "grubtool");
    app.require_subcommand(1);
    grub::addPackCommands(app);
    grub::addLevelCommands(app);
    grub::addRenderCommands(app);
    grub::addSynthCommands(app);
    grub::addCaptureCommands(app);
    grub::addPlayCommands(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::RuntimeError& end) {
        return end.get_exit_code();
    } catch (const CLI::ParseError& end) {
        return reportEnd(app, end);
    }
    return 0;
}
