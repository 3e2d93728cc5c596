#pragma once

#include <cstdint>
#include <span>
#include <string>

/// The side of the platform layer that the game does not see: what the program's start sets up before `runGame`.
namespace platform {

/// The directory given by the user: packages are looked for there first, then in the working directory. Call it before
/// other threads exist.
void setDataDirectory(std::string directory);
/// The directory that packages come from when the working directory has none: the one that was set, else "../data"
/// beside the program's own directory, else the installed "../share/grubaway". Without a trailing slash.
[[nodiscard]] const std::string& dataDirectory();

/// Runs without screen and sound card. Call it before the first window or sound device exists.
void useDummyDrivers();
/// Whether pictures go to no screen: the dummy drivers were asked for, or there is no display to connect to.
[[nodiscard]] bool headless();

/// Offers an icon under a number to LoadIconA: width x height pixels 0xAARRGGBB, straight alpha, top row first. The
/// pixels are copied.
void setIconResource(std::uint16_t id, std::span<const std::uint32_t> argb, int width, int height);
/// Offers the program's own icon, a miner's helmet, as resource 101. The program's start calls this first.
void offerProgramIcon();

}  // namespace platform
