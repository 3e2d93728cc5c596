#include <ctime>
#include <memory>

#include "application.h"
#include "control/script.h"
#include "crt.h"
#include "desktop/video.h"
#include "direct_start.h"
#include "files/files.h"
#include "game_steering.h"
#include "game_window.h"
#include "level_scene.h"
#include "log_file.h"
#include "menu_shell.h"
#include "own_options.h"
#include "resource_package.h"
#include "sound_bank.h"

namespace grub {
namespace {

// Packages, sounds and scenes in order of construction.
struct Game {
    ResourcePackage data{"data64.pak"};
    ResourcePackage levels{"levels.pak"};
    ResourcePackage sound{"sound.pak"};
    SoundBank bank{sound};
    LevelScene level{data, levels};
    MenuShell shell{data, level};
    DirectStart directStart;

    explicit Game(int startIndex) : directStart(data, level, startIndex) {}
};

// Sets up what lies below the game. False after one line on standard error.
bool prepareHost(const OwnOptions& options) {
    if (!options.dataDirectory.empty()) platform::setDataDirectory(options.dataDirectory);
    return options.scriptFile.empty() || platform::playScript(options.scriptFile);
}

// The game from start to end: opens the window, runs the scenes and returns 0, or 1 when a level could not be started.
// Ends the process with 1 when the renderer cannot start.
int runGame(const char* commandLine, const PlayStart& start) {
    crt::srand(start.seed.value_or(static_cast<unsigned>(std::time(nullptr))));
    const bool windowed = startsWindowed(commandLine);

    Application application(nullptr, kScreenWidth, kScreenHeight, "Grubaway", windowed, nullptr);
    setProgramIcon(application.window(), nullptr);

    static Game& game = *new Game(start.levelIndex);  // never destroyed
    game.level.setLevel(start.level);
    if (start.steering != nullptr) game.level.setSteering(*start.steering);
    SoundBank::setCurrent(&game.bank);
    game.shell.setFullScreen(!windowed);
    game.directStart.setFullScreen(!windowed);
    application.registerScene(kLevelSceneId, game.level);
    if (start.withoutMenu)
        application.registerScene(kMenuShellId, game.directStart);
    else
        application.registerScene(kMenuShellId, game.shell);

    application.run(kMenuShellId);
    return game.level.stage().hasRefusedLevel() ? 1 : 0;
}

int runProgram(const OwnOptions& options) {
    openLog();  // empties the log: only a start of the game does that
    if (!prepareHost(options)) return 1;
    PlayStart start = options.start;
    std::unique_ptr<GameSteering> steering;
    if (!prepareGame(options, start, steering)) return 2;
    if (!platform::openVideo()) return 1;  // without a screen: one line and no game
    start.steering = steering.get();
    const int exitCode = runGame(options.commandLine.c_str(), start);
    if (exitCode != 0) return exitCode;
    return platform::isScriptDone() ? steering->exitCode() : 1;
}

}  // namespace
}  // namespace grub

int main(int argc, char** argv) {
    const grub::OwnOptions options = grub::readOwnOptions(argc, argv);
    return options.exitCode ? *options.exitCode : grub::runProgram(options);
}
