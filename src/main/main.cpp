#include "own_options.h"
#include "start_up.h"

int main(int argc, char** argv) {
    const grub::OwnOptions options = grub::readOwnOptions(argc, argv);
    if (options.exitCode) return *options.exitCode;
    if (!grub::prepareHost(options)) return 1;
    return grub::runGame(nullptr, nullptr, options.commandLine.c_str(), SW_SHOW, options.start);
}
