#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <span>

#include "slot_file.h"

/// What is read can be written again, and its label has the length that menus have room for. The input is read as it
/// is, and as the bits in which a file differs from a good one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto check = [](std::span<const std::uint8_t> bytes) {
        const auto contents = grub::slotContents(bytes);
        if (!contents) return;
        const auto numbers = grub::slotBytes(contents->game, std::tm{});
        if (!std::equal(bytes.begin(), bytes.begin() + 12, numbers.begin())) std::abort();
        if (contents->dateTime.length() != std::strlen("MM/DD/YY HH:MM:SS")) std::abort();
    };
    check({data, size});
    auto changed = grub::slotBytes({.levelIndex = 7, .lives = 3, .score = 100}, std::tm{.tm_mday = 1});
    for (std::size_t i = 0; i < std::min(size, changed.size()); ++i) changed[i] ^= data[i];
    check(changed);
    return 0;
}
