#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "slot_file.h"

/// A slot that is read can be written again: the twelve bytes of its numbers come out as they were, and its label has
/// the length that menus have room for.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto contents = grub::slotContents({data, size});
    if (!contents) return 0;
    if (!std::equal(data, data + 12, grub::slotBytes(contents->game, std::tm{}).begin())) std::abort();
    if (contents->dateTime.length() != std::strlen("MM/DD/YY HH:MM:SS")) std::abort();
    return 0;
}
