// Recorded games: whatever is taken comes back the same from what is written of it, and from its draft.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "game_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    grub::TextError error;
    const auto game = grub::readGame(text, error);
    if (!game) return 0;
    if (grub::readGame(grub::writeGame(*game), error) != game) std::abort();
    if (game->isComplete() && grub::readGame(grub::withOutcome(grub::draftOf(text), *game), error) != game)
        std::abort();
    return 0;
}
