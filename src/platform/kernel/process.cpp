#include <crt.h>
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <mutex>

namespace {

std::recursive_mutex& mutexOf(CRITICAL_SECTION* section) { return *static_cast<std::recursive_mutex*>(section->lock); }

}  // namespace

void InitializeCriticalSection(CRITICAL_SECTION* section) { section->lock = new std::recursive_mutex; }

void DeleteCriticalSection(CRITICAL_SECTION* section) {
    delete &mutexOf(section);
    section->lock = nullptr;
}

void EnterCriticalSection(CRITICAL_SECTION* section) { mutexOf(section).lock(); }

void LeaveCriticalSection(CRITICAL_SECTION* section) { mutexOf(section).unlock(); }

void ExitProcess(UINT exitCode) {
    // No destructors of static objects: the game thread and the loader may be using them at this moment.
    std::fflush(nullptr);
    std::_Exit(static_cast<int>(exitCode));
}

namespace crt {
namespace {

std::mutex sequenceLock;
std::uint32_t seed = 1;  // the C library starts with this one, too

}  // namespace

void srand(unsigned newSeed) {
    const std::lock_guard lock(sequenceLock);
    seed = newSeed;
}

int rand() {
    const std::lock_guard lock(sequenceLock);
    seed = seed * 214013U + 2531011U;
    return static_cast<int>((seed >> 16U) & 0x7FFFU);
}

}  // namespace crt
