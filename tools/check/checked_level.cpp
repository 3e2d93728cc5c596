#include "checked_level.h"

#include <string>
#include <utility>

namespace grub {

namespace {

std::vector<TextError> refusals(const LevelFile& file, const BlockPalette& palette, const LevelSource& source,
                                const std::string& reason) {
    std::vector<TextError> errors;
    for (const LevelFault& fault : levelFaults(file, palette)) errors.push_back(faultInSource(fault, source));
    if (errors.empty()) errors.push_back(faultInSource({{}, reason}, source));
    return errors;
}

}  // namespace

std::optional<CheckedLevel> openForChecks(std::string_view text, TableSource& table, const AnimationFrameCounts& counts,
                                          std::vector<TextError>& errors) {
    TextError error;
    auto source = parseLevelSource(text, error);
    BlockPalette palette(table.buffer());
    auto file = source ? dressLevel(*source, palette, error) : std::nullopt;
    if (!file) {
        errors = {error};
        return std::nullopt;
    }
    std::string reason;
    auto map = levelMapOf(writeLevelFile(*file), table, reason);
    if (!map) {
        errors = refusals(*file, palette, *source, reason);
        return std::nullopt;
    }
    return CheckedLevel{std::move(*source), std::move(*file), std::move(palette), std::move(*map), counts};
}

}  // namespace grub
