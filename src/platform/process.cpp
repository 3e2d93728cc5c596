#include <windows.h>

#include <cstdio>
#include <cstdlib>

void ExitProcess(UINT exitCode) {
    // No destructors of static objects: the game thread and the loader may be using them at this moment.
    std::fflush(nullptr);
    std::_Exit(static_cast<int>(exitCode));
}
