#pragma once

namespace platform {

/// Turns SDL's events into messages of the windows. With `waitLimit` (milliseconds) above 0 it first waits
/// that long for something to report or for wakeSystemWait.
void takeSystemEvents(int waitLimit);
/// Ends takeSystemEvents' wait. Any thread.
void wakeSystemWait();

}  // namespace platform
