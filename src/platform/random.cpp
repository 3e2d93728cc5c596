#include <crt.h>

#include <cstdint>
#include <mutex>

namespace crt {
namespace {

std::mutex sequenceLock;
std::uint32_t seed = 1;  // what the C library starts with when nobody seeds

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
