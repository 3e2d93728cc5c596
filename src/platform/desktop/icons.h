#pragma once

#include <cstdint>
#include <span>

namespace platform {

struct Window;

/// Offers an icon under a number to LoadIconA: width x height pixels 0xAARRGGBB, straight alpha, top row first. The
/// pixels are copied. Any thread.
void setIconResource(std::uint16_t id, std::span<const std::uint32_t> argb, int width, int height);
/// Shows a class's icon on a window; the owner only.
void showIcon(Window& window);

}  // namespace platform
