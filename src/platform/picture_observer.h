#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>

namespace platform {

/// Hears of every picture handed to a window, by number from 1, on the window's thread, while the thread that handed it
/// over waits.
using PictureObserver = std::function<void(HWND window, std::uint64_t number)>;

/// Sets the one observer; an empty one ends it. Only while no pictures are handed over.
void observePictures(PictureObserver observer);

}  // namespace platform
