#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace grub {

/// What keeps the game from using a resource, in words; empty when nothing does. Looks into pictures (BMP, GIF, JPEG)
/// and sounds (WAV, Ogg Vorbis), by the name's ending or by their first bytes, and INI tables (by the name's ending);
/// other resources pass.
[[nodiscard]] std::string contentFault(std::string_view name, std::span<const std::uint8_t> bytes);

/// What is allowed but hardly meant, in words; empty when there is nothing: a picture of 32 bits whose alpha plane is
/// all zero, which many programs write, is wholly invisible in the game; a large WAV file. For bytes without a
/// `contentFault`.
[[nodiscard]] std::string contentWarning(std::span<const std::uint8_t> bytes);

}  // namespace grub
