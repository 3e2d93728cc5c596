#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace platform {

/// What MessageBoxA was asked to show.
struct MessageBox {
    std::string text;
    std::string caption;
    UINT style;  // MB_ flags
};

/// Gets each message box in place of the screen, on the thread that asked for it; the box counts as answered when it
/// returns.
using MessageBoxTaker = std::function<void(const MessageBox&)>;

/// Sends all later boxes to `taker`; null: to the screen again. Any thread.
void takeMessageBoxes(MessageBoxTaker taker);

}  // namespace platform
