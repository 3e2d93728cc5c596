#include "game_program.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

namespace grub {

/// What shells add to the number of the signal that ended a program.
constexpr int kKilled = 128;

int runGameProgram(const std::vector<std::string>& arguments) {
    std::error_code failure;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", failure);
    std::vector<std::string> words{(self.parent_path() / "grubaway").string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers(words.size() + 1, nullptr);  // the last one ends the list
    std::ranges::transform(words, pointers.begin(), [](std::string& word) { return word.data(); });
    pid_t child = 0;
    if (posix_spawn(&child, words.front().c_str(), nullptr, nullptr, pointers.data(), environ) != 0) return -1;
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : kKilled + WTERMSIG(status);
}

}  // namespace grub
