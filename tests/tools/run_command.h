#pragma once

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string>
#include <vector>

namespace grub {

/// Runs commands of grubtool, those that `addCommands` adds, on the words of a command line; the exit code.
inline int runCommand(void (*addCommands)(CLI::App&), std::vector<std::string> words) {
    CLI::App app;
    addCommands(app);
    std::reverse(words.begin(), words.end());  // as the parser wants them
    try {
        app.parse(words);
    } catch (const CLI::RuntimeError& error) {
        return error.get_exit_code();
    }
    return 0;
}

}  // namespace grub
