#pragma once

#include <cstddef>
#include <cstdint>

/// The part of Win32 that the game calls, with its documented meaning. A comment says where this layer does less than
/// the original on purpose. Each name has a caller (docs/platform.md).

// ---------------------------------------------------------------------------------------------------------------------
// Types

/// Widths as on Windows: LONG and DWORD have 32 bits, the parameters of a message are as wide as a pointer.
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = std::uint32_t;
using ULONG = std::uint32_t;
using LONG = std::int32_t;
using BOOL = int;
using ATOM = WORD;
using HRESULT = LONG;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using LONG_PTR = std::intptr_t;
using LPSTR = char*;
using LPCSTR = const char*;
using LPVOID = void*;

/// A BOOL is an int: anything but FALSE is true.
inline constexpr BOOL FALSE = 0;
inline constexpr BOOL TRUE = 1;

/// Handles are numbers in the type of a pointer. The layer never uses a number twice, so it can refuse a stale handle.
using HANDLE = void*;
using HINSTANCE = struct HINSTANCE__*;
using HWND = struct HWND__*;
using HICON = struct HICON__*;
using HCURSOR = HICON;
using HBRUSH = struct HBRUSH__*;
using HMENU = struct HMENU__*;
using HKEY = struct HKEY__*;

/// CreateFileA returns this on failure; every other call that makes a handle returns null.
inline const HANDLE INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(std::intptr_t{-1});

/// The name of an interface.
struct GUID {
    DWORD Data1;
    WORD Data2;
    WORD Data3;
    BYTE Data4[8];

    bool operator==(const GUID&) const = default;
};

/// Calling conventions of the original; here there is only one.
#define WINAPI
#define CALLBACK

/// A result is a failure when its top bit is set.
constexpr bool FAILED(HRESULT result) { return result < 0; }
constexpr bool SUCCEEDED(HRESULT result) { return result >= 0; }

/// Results of the system. d3d8.h and dsound.h have their own.
inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005U);
inline constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000EU);

/// A point and a rectangle in pixels; right and bottom lie outside.
struct POINT {
    LONG x, y;
};
struct RECT {
    LONG left, top, right, bottom;
};

/// A 64-bit number; the original's halves are not offered.
union LARGE_INTEGER {
    std::int64_t QuadPart;
};

// ---------------------------------------------------------------------------------------------------------------------
// Windows and messages

/// Handles one message of a window, on the thread that created it.
using WNDPROC = LRESULT(CALLBACK*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// What RegisterClassExA takes. Only style, procedure, icon and name are used. The layer copies the name.
struct WNDCLASSEXA {
    UINT cbSize;
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;
    HICON hIconSm;
};

/// WM_CREATE's lParam points at this. `lpCreateParams` is the caller's; the rest describes the window that it asked
/// for.
struct CREATESTRUCTA {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy, cx, y, x;
    LONG style;
    LPCSTR lpszName;
    LPCSTR lpszClass;
    DWORD dwExStyle;
};

/// A message of a window's queue. `time` is in milliseconds; `pt` is not filled.
struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};

/// Class styles. Without CS_DBLCLKS a fast second press is an ordinary press.
inline constexpr UINT CS_DBLCLKS = 0x0008;
inline constexpr UINT CS_OWNDC = 0x0020;

/// Window styles. They decide the size of the client area; the device decides whether the picture fills the screen.
inline constexpr DWORD WS_POPUP = 0x80000000U;
inline constexpr DWORD WS_CAPTION = 0x00C00000U;
inline constexpr DWORD WS_BORDER = 0x00800000U;
inline constexpr DWORD WS_SYSMENU = 0x00080000U;
inline constexpr DWORD WS_MINIMIZEBOX = 0x00020000U;
inline constexpr DWORD WS_EX_TOPMOST = 0x00000008U;

/// Messages that the layer produces. Middle buttons never arrive.
inline constexpr UINT WM_CREATE = 0x0001;
inline constexpr UINT WM_DESTROY = 0x0002;
inline constexpr UINT WM_PAINT = 0x000F;
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_QUIT = 0x0012;
inline constexpr UINT WM_ERASEBKGND = 0x0014;
inline constexpr UINT WM_KEYDOWN = 0x0100;
inline constexpr UINT WM_KEYUP = 0x0101;
inline constexpr UINT WM_SYSKEYDOWN = 0x0104;
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;
inline constexpr UINT WM_LBUTTONUP = 0x0202;
inline constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
inline constexpr UINT WM_RBUTTONDOWN = 0x0204;
inline constexpr UINT WM_RBUTTONUP = 0x0205;
inline constexpr UINT WM_RBUTTONDBLCLK = 0x0206;
inline constexpr UINT WM_MBUTTONDOWN = 0x0207;
inline constexpr UINT WM_MBUTTONUP = 0x0208;
/// From here on the numbers are the program's own.
inline constexpr UINT WM_USER = 0x0400;

/// Virtual keys that are not a letter or a digit (those are their upper-case ASCII codes).
inline constexpr UINT VK_RETURN = 0x0D;
inline constexpr UINT VK_ESCAPE = 0x1B;
inline constexpr UINT VK_SPACE = 0x20;
inline constexpr UINT VK_LEFT = 0x25;
inline constexpr UINT VK_UP = 0x26;
inline constexpr UINT VK_RIGHT = 0x27;
inline constexpr UINT VK_DOWN = 0x28;

/// Registers a window class; 0 when it has no name or no procedure. Registering the same name again replaces the class.
ATOM RegisterClassExA(const WNDCLASSEXA* windowClass);
/// Creates a hidden window and sends it WM_CREATE. The calling thread owns it; all windows must have the same owner.
/// `className` is a name or a class atom (MAKEINTRESOURCEA). Sizes are outer sizes in pixels; parent and menu must be
/// null. Null when the class is unknown, the system refuses, or WM_CREATE answers -1.
HWND CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR title, DWORD style, int x, int y, int width, int height,
                     HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter);
/// Shows the window for SW_SHOW. Returns whether it was visible before.
BOOL ShowWindow(HWND window, int command);
inline constexpr int SW_SHOW = 5;
/// Destroys a window of the calling thread: answers every waiting SendMessageA with 0, then sends WM_DESTROY.
BOOL DestroyWindow(HWND window);

/// Takes the next message of the calling thread's windows; waits for one and serves SendMessageA meanwhile. 0 after
/// PostQuitMessage, -1 when the thread has no window. The filters are not used.
BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last);
/// Calls the window procedure for a message of GetMessageA.
LRESULT DispatchMessageA(const MSG* message);
/// Queues a message; any thread. FALSE when the window is gone.
BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// Runs the window procedure on the window's own thread and returns its result; any thread. 0 when the window is gone,
/// also when it is destroyed while the call waits.
LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// Lets GetMessageA of the calling thread return 0 after the messages that are queued now.
void PostQuitMessage(int exitCode);
/// Handles the messages that a procedure leaves: Alt+F4 and WM_CLOSE close the window, WM_PAINT counts as painted.
LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// Returns whether the window wants WM_PAINT. `rect`, when not null, receives the client area.
BOOL GetUpdateRect(HWND window, RECT* rect, BOOL erase);
/// Marks the whole window as painted; the rectangle is not used.
BOOL ValidateRect(HWND window, const RECT* rect);
/// One pointer-sized value kept with the window for its procedure; the only index is GWLP_USERDATA.
LONG_PTR SetWindowLongPtrA(HWND window, int index, LONG_PTR value);
LONG_PTR GetWindowLongPtrA(HWND window, int index);
inline constexpr int GWLP_USERDATA = -21;
/// Gives the class of `window` another large icon (index GCL_HICON) and shows it. Returns the handle before, or 0. The
/// value is as wide as a pointer, so that a handle fits.
LONG_PTR SetClassLongA(HWND window, int index, LONG_PTR value);
inline constexpr int GCL_HICON = -14;

/// Sizes in pixels. The screen's are those of the desktop that the window opens on; 0 for an unknown index.
int GetSystemMetrics(int index);
inline constexpr int SM_CXSCREEN = 0;
inline constexpr int SM_CYSCREEN = 1;
inline constexpr int SM_CYCAPTION = 4;
inline constexpr int SM_CXBORDER = 5;
inline constexpr int SM_CYEDGE = 46;

/// A resource's number in the place of its name.
inline LPCSTR MAKEINTRESOURCEA(WORD id) { return reinterpret_cast<LPCSTR>(std::uintptr_t{id}); }
inline const LPCSTR IDI_WINLOGO = MAKEINTRESOURCEA(32517);
inline const LPCSTR IDC_ARROW = MAKEINTRESOURCEA(32512);
/// An icon that the program offers under a number, or the system icon IDI_WINLOGO. Null for any other name.
HICON LoadIconA(HINSTANCE instance, LPCSTR name);
/// The system's arrow; other cursors are not offered (null).
HCURSOR LoadCursorA(HINSTANCE instance, LPCSTR name);

/// The character a virtual key gives without modifiers, 0 when it gives none. MAPVK_VK_TO_CHAR is the only kind.
UINT MapVirtualKeyA(UINT code, UINT kind);
inline constexpr UINT MAPVK_VK_TO_CHAR = 2;

/// Shows a text with one button, OK, and waits for the answer; any thread. A thread that owns a window serves
/// SendMessageA meanwhile. Without a screen the text is a line on standard error and the call does not wait. Always
/// IDOK.
int MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT style);
inline constexpr int IDOK = 1;
inline constexpr UINT MB_OK = 0x0000;
inline constexpr UINT MB_ICONERROR = 0x0010;
inline constexpr UINT MB_TASKMODAL = 0x2000;

// ---------------------------------------------------------------------------------------------------------------------
// Threads and waits

/// A lock that its owner may take again. Initialise it before use; delete it while no thread holds it.
struct CRITICAL_SECTION {
    void* lock;
};
void InitializeCriticalSection(CRITICAL_SECTION* section);
void DeleteCriticalSection(CRITICAL_SECTION* section);
void EnterCriticalSection(CRITICAL_SECTION* section);
void LeaveCriticalSection(CRITICAL_SECTION* section);

/// Makes an unnamed event; attributes and name must be null. The caller closes the handle. An auto-reset event releases
/// one wait for each SetEvent.
HANDLE CreateEventA(void* attributes, BOOL manualReset, BOOL initiallySet, LPCSTR name);
BOOL SetEvent(HANDLE event);
BOOL ResetEvent(HANDLE event);
/// Waits for an event, or for the end of a thread. A thread that owns a window serves SendMessageA meanwhile.
DWORD WaitForSingleObject(HANDLE object, DWORD milliseconds);
/// Waits for one of up to 64 events and threads: WAIT_OBJECT_0 + the lowest index that is ready. WAIT_FAILED, at once,
/// when a handle cannot be waited for, or with `all`, which is not offered.
DWORD WaitForMultipleObjects(DWORD count, const HANDLE* objects, BOOL all, DWORD milliseconds);
inline constexpr DWORD WAIT_OBJECT_0 = 0;
inline constexpr DWORD WAIT_TIMEOUT = 258;
inline constexpr DWORD WAIT_FAILED = 0xFFFFFFFFU;
inline constexpr DWORD INFINITE = 0xFFFFFFFFU;
/// Gives up a handle of an event, thread or file. The thread itself runs on.
BOOL CloseHandle(HANDLE handle);

/// What a thread runs. Its result is not kept.
using LPTHREAD_START_ROUTINE = DWORD(WINAPI*)(LPVOID argument);
/// Starts a thread, or with CREATE_SUSPENDED prepares one that ResumeThread starts. Attributes must be null, the stack
/// size is the system's, `threadId` is not filled. Null on failure.
HANDLE CreateThread(void* attributes, std::size_t stackSize, LPTHREAD_START_ROUTINE routine, LPVOID argument,
                    DWORD flags, DWORD* threadId);
inline constexpr DWORD CREATE_SUSPENDED = 0x00000004;
/// Starts a suspended thread. Returns 1 if it was suspended, 0 if not, 0xFFFFFFFF on failure.
DWORD ResumeThread(HANDLE thread);
/// Asks the system to run the thread before others. TRUE also when the system refuses.
BOOL SetThreadPriority(HANDLE thread, int priority);
inline constexpr int THREAD_PRIORITY_HIGHEST = 2;
/// The thread counts as ended at once. It sleeps for ever in its present wait or in its next one, and keeps the locks
/// that it holds. The exit code is not kept.
BOOL TerminateThread(HANDLE thread, DWORD exitCode);
/// A number that no other thread of the process has.
DWORD GetCurrentThreadId();
/// Gives up the processor for at least this long.
void Sleep(DWORD milliseconds);
/// Ends the process at once: flushes C streams and runs no destructors, since other threads may still run.
[[noreturn]] void ExitProcess(UINT exitCode);

/// A counter that never goes back, and its ticks per second (10 MHz). Always TRUE.
BOOL QueryPerformanceCounter(LARGE_INTEGER* counter);
BOOL QueryPerformanceFrequency(LARGE_INTEGER* frequency);

// ---------------------------------------------------------------------------------------------------------------------
// Files

/// Opens a file; relative paths are those of the working directory, "\" counts as "/". A package ("*.pak") opened for
/// reading only is also looked for in the data directory. Attributes and template are not used. INVALID_HANDLE_VALUE on
/// failure.
HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD shareMode, void* security, DWORD disposition, DWORD attributes,
                   HANDLE templateFile);
inline constexpr DWORD GENERIC_READ = 0x80000000U;
inline constexpr DWORD GENERIC_WRITE = 0x40000000U;
/// Share modes are accepted and not enforced.
inline constexpr DWORD FILE_SHARE_READ = 0x00000001;
inline constexpr DWORD FILE_SHARE_WRITE = 0x00000002;
inline constexpr DWORD CREATE_ALWAYS = 2;
inline constexpr DWORD OPEN_EXISTING = 3;
inline constexpr DWORD OPEN_ALWAYS = 4;
inline constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x00000080;
/// Reads at the file pointer and moves it. TRUE with fewer bytes, or none, at the end of the file.
BOOL ReadFile(HANDLE file, void* buffer, DWORD count, DWORD* read, void* overlapped);
/// Writes at the file pointer and moves it. FALSE when the system takes less than `count` bytes; `written` is what it
/// took.
BOOL WriteFile(HANDLE file, const void* buffer, DWORD count, DWORD* written, void* overlapped);
/// Moves the file pointer by a signed distance; positions below 4 GiB. The new position, or INVALID_SET_FILE_POINTER.
/// `distanceHigh` must be null.
DWORD SetFilePointer(HANDLE file, LONG distance, LONG* distanceHigh, DWORD method);
inline constexpr DWORD FILE_BEGIN = 0;
inline constexpr DWORD FILE_CURRENT = 1;
inline constexpr DWORD FILE_END = 2;
inline constexpr DWORD INVALID_SET_FILE_POINTER = 0xFFFFFFFFU;
/// Waits until the disk holds what was written. WriteFile alone hands it to the operating system, which keeps it when
/// the program ends, however it ends, but not when the machine does.
BOOL FlushFileBuffers(HANDLE file);
/// Renames a file within its file system; at every moment `to` is the old file or the new one. A move that does not
/// replace is not offered (FALSE). With MOVEFILE_WRITE_THROUGH the call waits until the disk knows the new name; it is
/// FALSE also when only that fails, and then `to` is the new file already.
BOOL MoveFileExA(LPCSTR from, LPCSTR to, DWORD flags);
inline constexpr DWORD MOVEFILE_REPLACE_EXISTING = 0x00000001;
inline constexpr DWORD MOVEFILE_WRITE_THROUGH = 0x00000008;
/// Removes a file, but no directory.
BOOL DeleteFileA(LPCSTR path);

// ---------------------------------------------------------------------------------------------------------------------
// Registry

/// The one root, the access rights (not enforced), the one value type that is written, and the results of the calls
/// below. ERROR_WRITE_FAULT: the file cannot be read or written, and holds what it held before.
using REGSAM = DWORD;
inline const HKEY HKEY_CURRENT_USER = reinterpret_cast<HKEY>(std::uintptr_t{0x80000001U});
inline constexpr REGSAM KEY_READ = 0x00020019;
inline constexpr REGSAM KEY_ALL_ACCESS = 0x000F003F;
inline constexpr DWORD REG_OPTION_NON_VOLATILE = 0;
inline constexpr DWORD REG_BINARY = 3;
inline constexpr LONG ERROR_SUCCESS = 0;
inline constexpr LONG ERROR_FILE_NOT_FOUND = 2;
inline constexpr LONG ERROR_INVALID_HANDLE = 6;
inline constexpr LONG ERROR_WRITE_FAULT = 29;
inline constexpr LONG ERROR_MORE_DATA = 234;
/// Opens an existing key below HKEY_CURRENT_USER, the only root. The caller closes it. Access rights are not enforced.
LONG RegOpenKeyExA(HKEY root, LPCSTR path, DWORD options, REGSAM access, HKEY* key);
/// Opens a key; creates it when it does not exist. Class, attributes and disposition must be null.
LONG RegCreateKeyExA(HKEY root, LPCSTR path, DWORD reserved, LPSTR keyClass, DWORD options, REGSAM access,
                     void* attributes, HKEY* key, DWORD* disposition);
/// Copies a value into `data`. `size` holds the room in bytes and receives the value's size; ERROR_MORE_DATA when the
/// value does not fit (nothing is copied). `type` may be null.
LONG RegQueryValueExA(HKEY key, LPCSTR name, DWORD* reserved, DWORD* type, BYTE* data, DWORD* size);
/// Stores a value. On success it is on the disk; on failure the file is unchanged.
LONG RegSetValueExA(HKEY key, LPCSTR name, DWORD reserved, DWORD type, const BYTE* data, DWORD size);
LONG RegCloseKey(HKEY key);
