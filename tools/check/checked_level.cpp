#include "checked_level.h"

#include <string>
#include <utility>

namespace grub {

std::optional<CheckedLevel> openForChecks(std::string_view text, TableSource& table, const AnimationFrameCounts& counts,
                                          TextError& error) {
    auto source = parseLevelSource(text, error);
    if (!source) return std::nullopt;
    BlockPalette palette(table.buffer());
    auto file = dressLevel(*source, palette, error);
    if (!file) return std::nullopt;
    std::string reason;
    auto map = levelMapOf(writeLevelFile(*file), table, reason);
    if (!map) {
        const auto faults = levelFaults(*file, palette);
        error = faultInSource(faults.empty() ? LevelFault{{}, reason} : faults.front(), *source);
        return std::nullopt;
    }
    return CheckedLevel{std::move(*source), std::move(*file), std::move(palette), std::move(*map), counts};
}

}  // namespace grub
