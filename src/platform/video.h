#pragma once

namespace platform {

/// Opens SDL's video once, on the calling thread, which owns the windows from then on. Without a display it takes the
/// dummy driver. False when no driver comes up.
bool openVideo();

}  // namespace platform
