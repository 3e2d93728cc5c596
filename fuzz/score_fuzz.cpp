#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <span>

#include "score_file.h"

/// What is read is in order and has room in the table, and comes back when it is written. The input is read as it is,
/// and as the bits in which a file differs from a good one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto check = [](std::span<const std::uint8_t> bytes) {
        const auto table = grub::tableFrom(bytes);
        if (!std::ranges::is_sorted(table.rows(), std::ranges::greater{}, &grub::HighScoreEntry::score)) std::abort();
        const auto written = grub::scoreBytes(table);
        if (written.size() != grub::kScoreFileSize || grub::tableFrom(written) != table) std::abort();
    };
    check({data, size});
    grub::HighScoreTable good;
    for (int score = 1; score <= 10; ++score) good.add({"GRUB", 1000 * score, score});
    auto changed = grub::scoreBytes(good);
    for (std::size_t i = 0; i < std::min(size, changed.size()); ++i) changed[i] ^= data[i];
    check(changed);
    return 0;
}
