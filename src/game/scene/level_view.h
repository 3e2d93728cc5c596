#pragma once

#include "animation_table.h"
#include "camera.h"
#include "renderer.h"
#include "world.h"

namespace grub {

/// Draws what the camera sees of a level, back to front: map, decorations, bonuses, hero, enemies,
/// front of the map, rising points. Only cells and actors near the
/// screen are drawn. Pictures that are missing are left out.
void drawLevel(const World& world, const Camera& camera, const AnimationTable& animations, Renderer& renderer);

}  // namespace grub
