#pragma once

#include <windows.h>

namespace grub {

/// Posted by the game thread as its last act: the window is to be destroyed.
inline constexpr UINT kDestroyWindowMessage = WM_USER + 1;

/// Procedure of the game's window, whose creation parameter is its Application. Main thread.
LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace grub
