#pragma once

#include <windows.h>

/// The symbolic name of a DirectX result code, for example "D3DERR_NOTAVAILABLE" or "DSERR_NODRIVER"; "Unknown" for any
/// other code. The text is constant and belongs to the layer.
[[nodiscard]] const char* DXGetErrorString8A(HRESULT result);
