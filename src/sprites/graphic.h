#pragma once

#include <cstdint>

#include "renderer.h"

namespace grub {

/// A place on the screen in pixels: the top-left corner of what is drawn there.
struct Position {
    std::int16_t x = 0;
    std::int16_t y = 0;

    friend constexpr bool operator==(Position, Position) = default;
};

/// An image that can be drawn while somebody uses it. Textures exist from the first `acquire` to the last `release`,
/// so a scene decides when video memory is spent.
class Graphic {
public:
    virtual ~Graphic() = default;

    /// Counts a use; the first one makes the textures. False, and no use counted at all, when they cannot be made.
    virtual bool acquire() = 0;
    /// Ends a use; the last one destroys the textures. Always true, also when nothing was in use.
    virtual bool release() = 0;
    /// Whether somebody uses it.
    [[nodiscard]] virtual bool isAcquired() const = 0;
    /// Draws it with its top-left corner at `position`; `opacity` is 0 to 1. Nothing is drawn while it is not acquired.
    virtual void draw(Renderer& renderer, Position position, float opacity) const = 0;
};

}  // namespace grub
