#pragma once

#include <string>

/// Where the packages of the game are looked for.
namespace platform {

/// Sets the directory where packages are looked for first, before the working directory; "" unsets it. Call it before
/// other threads exist.
void setDataDirectory(std::string directory);
/// The directory of packages that the working directory lacks: the one that was set, else "../data" beside the
/// program's own directory, else the installed "../share/grubaway". Without a trailing slash.
[[nodiscard]] const std::string& dataDirectory();

}  // namespace platform
