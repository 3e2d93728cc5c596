#include "difficulty.h"

#include <algorithm>
#include <numeric>

#include "measure_table.h"
#include "rules.h"

namespace grub {

namespace {

double nearness(const WinMeasures& win) {
    return win.closestEnemy ? std::clamp((96 - *win.closestEnemy) / 16.0, 0.0, 4.0) : 0;
}

}  // namespace

std::optional<double> difficultyOf(const BookLevel& entry) {
    if (!entry.win) return std::nullopt;
    const double seconds = entry.win->frames * kGameFrameMs / 1000.0;
    const auto lateLosses = std::ranges::count(entry.win->winsLate, false);
    return seconds / 10 + entry.win->digs / 4.0 + entry.level.map.keysRemaining() / 2.0 + enemiesOf(entry.level.map) +
           static_cast<double>(lateLosses) + nearness(*entry.win);
}

std::vector<double> smoothed(const std::vector<double>& values) {
    std::vector<double> means;
    const auto size = static_cast<std::ptrdiff_t>(values.size());
    for (std::ptrdiff_t i = 0; i < size; ++i) {
        const auto first = values.begin() + std::max<std::ptrdiff_t>(i - 2, 0);
        const auto last = values.begin() + std::min(i + 3, size);
        means.push_back(std::accumulate(first, last, 0.0) / static_cast<double>(last - first));
    }
    return means;
}

}  // namespace grub
