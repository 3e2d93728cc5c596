#pragma once

#include <cstdint>
#include <span>

#include "engine_string.h"

namespace grub {

/// Replaces a file of the player's (a saved game, scores) so that no crash, power cut or full disk can spoil it: writes
/// PATH.new beside it, waits until that is on the disk, then renames it. At every moment PATH is the old file or the
/// new one, whole. True: it is the new one, and on the disk. False: it is the old one, and PATH.new is gone if it can
/// be removed; only when the disk fails behind the rename, PATH is the new one already. Waits for the disk, so what can
/// be made again uses `writeWholeFile` (whole_file.h).
bool replaceFile(const EngineString& path, std::span<const std::uint8_t> bytes);

}  // namespace grub
