#include <memory>

#include "control/script.h"
#include "desktop/video.h"
#include "files/files.h"
#include "game_steering.h"
#include "log_file.h"
#include "own_options.h"
#include "program_icon.h"
#include "run_game.h"

namespace {

// Sets up what lies below the game. False after one line on standard error.
bool prepareHost(const grub::OwnOptions& options) {
    grub::offerProgramIcon();
    if (!options.dataDirectory.empty()) platform::setDataDirectory(options.dataDirectory);
    return options.scriptFile.empty() || platform::playScript(options.scriptFile);
}

}  // namespace

int main(int argc, char** argv) {
    const grub::OwnOptions options = grub::readOwnOptions(argc, argv);
    if (options.exitCode) return *options.exitCode;
    grub::openLog();  // empties the log: only a start of the game does that
    if (!prepareHost(options)) return 1;
    grub::PlayStart start = options.start;
    std::unique_ptr<grub::GameSteering> steering;
    if (!grub::prepareGame(options, start, steering)) return 2;
    if (!platform::openVideo()) return 1;  // without a screen: one line and no game
    start.steering = steering.get();
    const int exitCode = grub::runGame(nullptr, nullptr, options.commandLine.c_str(), SW_SHOW, start);
    if (exitCode != 0) return exitCode;
    return platform::isScriptDone() ? steering->exitCode() : 1;
}
