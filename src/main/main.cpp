#include "log_file.h"
#include "own_options.h"
#include "start_up.h"

int main(int argc, char** argv) {
    grub::openLog();  // every start empties it, also one that ends in the next lines
    const grub::OwnOptions options = grub::readOwnOptions(argc, argv);
    if (options.exitCode) return *options.exitCode;
    if (!grub::prepareHost(options)) return 1;
    return grub::runGame(nullptr, nullptr, options.commandLine.c_str(), SW_SHOW, options.start);
}
