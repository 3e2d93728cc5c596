#pragma once

#include <string>
#include <vector>

namespace grub {

/// Runs grubtool on the words that follow its name. Returns 0, the exit code of a command that failed, or 2 when the
/// words are wrong; then a line on standard error says what is wrong.
int runGrubtool(std::vector<std::string> words);

}  // namespace grub
