#include "run_game.h"

#include <ctime>

#include "application.h"
#include "application_base.h"
#include "crt.h"
#include "game_window.h"
#include "level_scene.h"
#include "menu_shell.h"
#include "resource_package.h"
#include "sound_bank.h"

namespace grub {

namespace {

constexpr std::uint16_t kScreenWidth = 800;
constexpr std::uint16_t kScreenHeight = 600;
constexpr WORD kIconResource = 101;

/// Packages, sounds and scenes in order of construction.
struct Game {
    ResourcePackage data{"data64.pak"};
    ResourcePackage levels{"levels.pak"};
    ResourcePackage sound{"sound.pak"};
    SoundBank bank{sound};
    LevelScene level{data, levels};
    MenuShell shell;

    explicit Game(int startIndex) : shell(level, startIndex) {}
};

void setIcon(HWND window, HINSTANCE instance) {
    const HICON icon = LoadIconA(instance, MAKEINTRESOURCEA(kIconResource));
    SetClassLongA(window, GCL_HICON, reinterpret_cast<LONG_PTR>(icon));
}

}  // namespace

int runGame(HINSTANCE instance, HINSTANCE, const char* commandLine, int, const PlayStart& start) {
    crt::srand(start.seed.value_or(static_cast<unsigned>(std::time(nullptr))));
    const bool windowed = startsWindowed(commandLine);

    Application application(instance, kScreenWidth, kScreenHeight, "Grubaway", windowed, nullptr);
    setIcon(application.window(), instance);

    static Game& game = *new Game(start.levelIndex);  // never destroyed
    game.level.setLevel(start.level);
    if (start.steering != nullptr) game.level.setSteering(*start.steering);
    SoundBank::setCurrent(&game.bank);
    application.registerScene(kLevelSceneId, game.level);
    application.registerScene(kMenuShellId, game.shell);

    application.run(kMenuShellId);
    return game.level.hasRefusedLevel() ? 1 : 0;
}

}  // namespace grub
