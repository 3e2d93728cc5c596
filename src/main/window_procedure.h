#pragma once

#include <windows.h>

namespace grub {

/// What the game thread asks of the window's thread. The first is posted, the other two are sent for their result.
inline constexpr UINT kDestroyWindowMessage = WM_USER + 1;
inline constexpr UINT kTestDeviceMessage = WM_USER + 2;
inline constexpr UINT kResetDeviceMessage = WM_USER + 3;

/// Procedure of the game's window, whose creation parameter is its Application. Main thread.
LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace grub
