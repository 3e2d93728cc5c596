#include <memory>

#include "game_steering.h"
#include "log_file.h"
#include "own_options.h"
#include "start_up.h"

int main(int argc, char** argv) {
    grub::openLog();  // every start empties it, also one that ends in the next lines
    const grub::OwnOptions options = grub::readOwnOptions(argc, argv);
    if (options.exitCode) return *options.exitCode;
    if (!grub::prepareHost(options)) return 1;
    grub::PlayStart start = options.start;
    std::unique_ptr<grub::GameSteering> steering;
    if (!grub::prepareGame(options, start, steering)) return 2;
    start.steering = steering.get();
    const int exitCode = grub::runGame(nullptr, nullptr, options.commandLine.c_str(), SW_SHOW, start);
    return steering && exitCode == 0 ? steering->exitCode() : exitCode;
}
