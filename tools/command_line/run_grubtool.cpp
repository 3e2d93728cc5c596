#include "run_grubtool.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>

#include "capture_commands.h"
#include "level_commands.h"
#include "pack_commands.h"
#include "play_commands.h"
#include "render_commands.h"
#include "synth_commands.h"

namespace grub {

namespace {

constexpr int kWrongUsage = 2;

// Help ends well; of wrong words one line tells, without advice.
int reportEnd(const CLI::App& app, const CLI::ParseError& end) {
    if (end.get_exit_code() == 0) return app.exit(end);
    std::fprintf(stderr, "grubtool: %s\n", end.what());
    return kWrongUsage;
}

}  // namespace

int runGrubtool(std::vector<std::string> words) {
    CLI::App app("Makes and inspects Grubaway's content", "grubtool");
    app.require_subcommand(1);
    addPackCommands(app);
    addLevelCommands(app);
    addRenderCommands(app);
    addSynthCommands(app);
    addCaptureCommands(app);
    addPlayCommands(app);
    std::reverse(words.begin(), words.end());  // the parser takes them from the end
    try {
        app.parse(std::move(words));
    } catch (const CLI::RuntimeError& end) {
        return end.get_exit_code();
    } catch (const CLI::ParseError& end) {
        return reportEnd(app, end);
    }
    return 0;
}

}  // namespace grub
