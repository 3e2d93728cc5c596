#include <windows.h>

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
