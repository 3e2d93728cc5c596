#pragma once

#include <string>
#include <vector>

namespace platform {

/// Where to look for a file that is opened for reading only, in this order. A package (relative, "*.pak"): the data
/// directory given by the user, the working directory, the data directory that comes with the program. Anything else,
/// saves and scores above all: its own path only, or a save left in the data directory would appear as the player's.
[[nodiscard]] std::vector<std::string> placesToReadFrom(const std::string& path);

}  // namespace platform
