#pragma once

#include <CLI/CLI.hpp>
#include <cstdio>
#include <string>

namespace grub {

/// Exit codes: the game differs, or the level is refused; something cannot be read or is wrongly asked for.
inline constexpr int kDiffers = 1;
inline constexpr int kRefused = 1;
inline constexpr int kCannotPlay = 2;

/// Ends the command after a line on standard error.
[[noreturn]] inline void failWith(int exitCode, const std::string& line) {
    std::fprintf(stderr, "%s\n", line.c_str());
    throw CLI::RuntimeError(exitCode);
}

}  // namespace grub
