#include "level_compiler.h"

#include "level_checks.h"
#include "level_dressing.h"
#include "level_file.h"

namespace grub {

std::optional<std::vector<std::uint8_t>> compileLevel(std::string_view text, const BlockPalette& palette,
                                                      TextError& error) {
    const auto source = parseLevelSource(text, error);
    if (!source) return std::nullopt;
    const auto level = dressLevel(*source, palette, error);
    if (!level) return std::nullopt;
    if (std::string fault = levelFault(*level, palette); !fault.empty()) {
        error = {0, std::move(fault)};
        return std::nullopt;
    }
    return writeLevelFile(*level);
}

}  // namespace grub
