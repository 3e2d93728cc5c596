#pragma once

#include <string>
#include <vector>

namespace grub {

/// Runs grubtool on the words that follow its name. The exit code: 0, the failed command's own one, or 2 for a wrong
/// use, after a line on standard error.
int runGrubtool(std::vector<std::string> words);

}  // namespace grub
